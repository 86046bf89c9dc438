#include "cli/AleCommands.h"
#include "cli/Command.h"
#include "cli/RadioDocument.h"

#include "aledb/CcirFile.h"
#include "common/Texts.h"

namespace koral::cli {

namespace {

int normalizeRadio(const std::string& in, const std::string& out, std::ostream& err)
{
    std::optional<RadioDocument> document = loadRadioDocument(in, err);
    if (!document)
        return kExitError;
    return saveRadioDocument(*document, out, err) ? kExitOk : kExitError;
}

int normalizeCcir(const std::string& in, const std::string& out, std::ostream& err)
{
    if (!checkInputFile(in, FileKind::Ccr, err))
        return kExitError;
    const CcirFile source(in);
    FileInfo info;
    ccir_dbase record{};
    CcirState state;
    if (source.load(&info, record, state) != CcirFile::kLoaded)
        return fail(err, source.errorString());
    CcirFile target(out);
    if (target.save(info, record) != 1)
        return fail(err, target.errorString());
    return kExitOk;
}

} // namespace

int runNormalize(const Invocation& invocation)
{
    const std::string& in = invocation.positional[0];
    const std::string& out = invocation.positional[1];
    switch (fileKindOf(in)) {
    case FileKind::Rss:
        return normalizeRadio(in, out, invocation.err);
    case FileKind::Ccr:
        return normalizeCcir(in, out, invocation.err);
    case FileKind::Ale:
        return runAleNormalize(invocation);
    case FileKind::Unknown:
        break;
    }
    return fail(invocation.err,
                text::format(text::kCliUnknownKind.data(), in.c_str(), ".rss, .ale or .ccr"));
}

} // namespace koral::cli
