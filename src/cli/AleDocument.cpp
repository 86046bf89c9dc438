#include "cli/AleDocument.h"

#include "aledb/AleFile.h"
#include "cli/Command.h"
#include "common/Texts.h"

namespace koral::cli {

std::optional<AleDocument> loadAleDocument(const std::string& path, const AleSettings& settings,
                                           std::ostream& err)
{
    if (!checkInputFile(path, FileKind::Ale, err))
        return std::nullopt;
    AleDocument document;
    std::string error;
    if (loadAleFile(path, &document.programme, &document.identity, &document.info, settings, true,
                    &error) != alefile::kSuccess) {
        fail(err, text::format(text::kProfileCannotRead.data(), path.c_str(), error.c_str()));
        return std::nullopt;
    }
    return document;
}

bool saveAleDocument(AleDocument& document, const std::string& path, const AleSettings& settings,
                     std::ostream& err)
{
    std::string error;
    if (saveAleFile(path, document.programme, document.identity, &document.info, settings,
                    &error) != alefile::kSuccess) {
        fail(err, text::format(text::kProfileCannotWrite.data(), path.c_str(), error.c_str()));
        return false;
    }
    return true;
}

} // namespace koral::cli
