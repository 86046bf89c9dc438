#include "cli/Command.h"
#include "cli/RadioDocument.h"

#include "common/Texts.h"

namespace koral::cli {

int runNormalize(const Invocation& invocation)
{
    const std::string& in = invocation.positional[0];
    const std::string& out = invocation.positional[1];
    switch (fileKindOf(in)) {
    case FileKind::Rss: {
        std::optional<RadioDocument> document = loadRadioDocument(in, invocation.err);
        if (!document)
            return kExitError;
        return saveRadioDocument(*document, out, invocation.err) ? kExitOk : kExitError;
    }
    case FileKind::Ale:
    case FileKind::Ccr:
    case FileKind::Unknown:
        break;
    }
    return fail(invocation.err,
                text::format(text::kCliUnknownKind.data(), in.c_str(), ".rss or .ccr"));
}

} // namespace koral::cli
