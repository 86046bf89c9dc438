#include "cli/RadioDocument.h"

#include "cli/Command.h"
#include "radiodb/RssFile.h"

namespace koral::cli {

std::optional<RadioDocument> loadRadioDocument(const std::string& path, std::ostream& err)
{
    if (!checkInputFile(path, FileKind::Rss, err))
        return std::nullopt;
    const RssFile file(path);
    RadioDocument document;
    if (file.load(&document.info, &document.record, &document.isb) != RssFile::kOk) {
        fail(err, file.errorString());
        return std::nullopt;
    }
    CcirChannelNumbers numbers{};
    if (file.loadCcirChannelNumbers(numbers))
        document.ccirNumbers = numbers;
    return document;
}

bool saveRadioDocument(RadioDocument& document, const std::string& path, std::ostream& err)
{
    RssFile file(path);
    const CcirChannelNumbers* numbers = document.ccirNumbers ? &*document.ccirNumbers : nullptr;
    if (file.save(document.info, document.record, document.isb, numbers) != RssFile::kOk) {
        fail(err, file.errorString());
        return false;
    }
    return true;
}

} // namespace koral::cli
