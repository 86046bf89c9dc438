#include "gui/RssFileIo.h"

#include "common/Texts.h"
#include "gui/RssDocument.h"
#include "radiodb/RssFile.h"

#include <filesystem>
#include <system_error>

namespace koral::rssio {

std::string load(RssDocument& document, const std::string& path, bool* foreign)
{
    std::error_code error;
    // A missing file would load as all defaults: opening one is the operator's mistake.
    if (!std::filesystem::is_regular_file(path, error))
        return text::format(text::kFileNotReadable.data(), path.c_str());
    const RssFile file(path);
    RssDocument loaded = document;
    // Files of any version open.
    if (file.load(&loaded.info, &loaded.record, &loaded.isb, false) != RssFile::kOk)
        return text::format(text::kFileNotReadable.data(), path.c_str());
    if (foreign)
        *foreign = !file.looksLikeRadioDatabase();
    // The numbers are taken only from a file that has some; otherwise the current ones stay.
    RssDocument::CcirNumbers numbers{};
    if (file.loadCcirChannelNumbers(numbers)) {
        loaded.ccirNumbers = numbers;
        loaded.ccirPresent = true;
    }
    document = loaded;
    return {};
}

std::string save(RssDocument& document, const std::string& path)
{
    RssFile file(path);
    FileInfo info = document.info;
    const int result = file.save(info, document.record, document.isb,
                                 document.ccirPresent ? &document.ccirNumbers : nullptr);
    if (result != RssFile::kOk)
        return text::format(text::kFileNotWritten.data(), path.c_str(), file.errorString().c_str());
    document.info = info;
    return {};
}

std::string printText(const RssDocument& document, std::string& error)
{
    error.clear();
    return RssFile::content(document.info, document.record, document.isb,
                            document.ccirPresent ? &document.ccirNumbers : nullptr, kChannelCount,
                            true);
}

} // namespace koral::rssio
