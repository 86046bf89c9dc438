// koralctl diff: what differs between two files of one kind, or between a file and the radio.

#include "cli/AleDocument.h"
#include "cli/Command.h"
#include "cli/RadioDocument.h"
#include "cli/RadioImage.h"

#include "aledb/AleDiff.h"
#include "aledb/CcirFile.h"
#include "common/Texts.h"
#include "radiodb/RadioDiff.h"

#include <memory>
#include <ostream>

namespace koral::cli {

namespace {

// One side of the comparison as all three record kinds; only the file's kind is filled.
struct Side
{
    RadioContents radio;
    AleProgramme ale{};
    ccir_dbase ccir{};
};

bool loadFile(const std::string& path, FileKind kind, const AleSettings& settings, Side& side,
              std::ostream& err)
{
    switch (kind) {
    case FileKind::Rss: {
        const auto document = loadRadioDocument(path, err);
        if (document)
            side.radio = {document->record, document->isb, document->ccirNumbers};
        return document.has_value();
    }
    case FileKind::Ale: {
        const auto document = loadAleDocument(path, settings, err);
        if (document)
            side.ale = document->programme;
        return document.has_value();
    }
    case FileKind::Ccr: {
        if (!checkInputFile(path, FileKind::Ccr, err))
            return false;
        const CcirFile file(path);
        CcirState state;
        if (file.load(nullptr, side.ccir, state) != CcirFile::kLoaded) {
            fail(err, file.errorString());
            return false;
        }
        return true;
    }
    case FileKind::Unknown:
        break;
    }
    fail(err, text::format(text::kCliUnknownKind.data(), path.c_str(), ".rss, .ale or .ccr"));
    return false;
}

// The radio's databases as the side of `kind`; false, after saying why, when it cannot be.
bool readRadio(const Invocation& invocation, FileKind kind, AleSettings& settings, Side& side)
{
    auto image = std::make_unique<RadioImage>();
    const auto caps = readRadioImage(invocation, *image);
    if (!caps)
        return false;
    if (kind == FileKind::Ccr && !caps->ccir) {
        fail(invocation.err,
             text::format(text::kCliNotInCcirMode.data(), invocation.positional[0].c_str()));
        return false;
    }
    settings.globalMembers = caps->globalAndExtra;
    side.radio.record = image->radio;
    side.radio.isb = image->isb;
    if (caps->ccir)
        side.radio.ccirNumbers = image->channelNumbers();
    side.ale = image->ale;
    side.ccir = image->ccir;
    return true;
}

} // namespace

int runDiff(const Invocation& invocation)
{
    const bool withRadio = invocation.option("--port").has_value();
    const std::size_t files = invocation.positional.size();
    if (files != (withRadio ? 1u : 2u))
        return fail(invocation.err,
                    text::format(text::kCliWrongArguments.data(), "diff", "A B | --port P B"));
    const FileKind kind = fileKindOf(invocation.positional[0]);
    if (files == 2 && fileKindOf(invocation.positional[1]) != kind)
        return fail(invocation.err,
                    text::format(text::kCliDiffKinds.data(), invocation.positional[0].c_str(),
                                 invocation.positional[1].c_str()));
    AleSettings settings;
    auto before = std::make_unique<Side>();
    auto after = std::make_unique<Side>();
    // The radio, when named, is the first side: the lines tell what writing the file changes.
    if (withRadio) {
        if (!loadFile(invocation.positional[0], kind, settings, *after, invocation.err) ||
            !readRadio(invocation, kind, settings, *before))
            return kExitError;
    } else if (!loadFile(invocation.positional[0], kind, settings, *before, invocation.err) ||
               !loadFile(invocation.positional[1], kind, settings, *after, invocation.err)) {
        return kExitError;
    }
    std::vector<std::string> lines;
    if (kind == FileKind::Rss)
        lines = radioDifferences(before->radio, after->radio);
    else if (kind == FileKind::Ale)
        lines = aleDifferences(before->ale, after->ale, settings);
    else
        lines = ccirDifferences(before->ccir, after->ccir);
    for (const std::string& line : lines)
        invocation.out << line << '\n';
    return lines.empty() ? kExitOk : kExitProblems;
}

} // namespace koral::cli
