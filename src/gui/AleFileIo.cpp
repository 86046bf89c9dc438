#include "gui/AleFileIo.h"

#include "aledb/AleFile.h"
#include "common/Texts.h"
#include "gui/AleDocument.h"
#include "profile/ProfileFile.h"

#include <filesystem>
#include <system_error>

namespace koral::aleio {

namespace {

bool looksLikeAleProgramme(const ProfileFile& file)
{
    if (file.contains("Options", "PTT Timeout") || file.hasSection("Directory") ||
        file.hasSection("Messages") || file.hasSection("Automatic Dials"))
        return true;
    for (int n = 1; n <= kAleNetCount; ++n)
        if (file.hasSection("Net No. " + std::to_string(n)))
            return true;
    return false;
}

} // namespace

std::string load(AleDocument& document, const std::string& path, const AleSettings& settings,
                 bool* foreign)
{
    std::error_code code;
    // A missing file would load as all defaults: opening one is the operator's mistake.
    if (!std::filesystem::is_regular_file(path, code))
        return text::format(text::kFileNotReadable.data(), path.c_str());
    AleDocument loaded;
    std::string error;
    if (loadAleFile(path, &loaded.programme, &loaded.identity, &loaded.info, settings, true,
                    &error) != alefile::kSuccess)
        return text::format(text::kProfileCannotRead.data(), path.c_str(), error.c_str());
    if (foreign)
        *foreign = !looksLikeAleProgramme(ProfileFile(path));
    loaded.known = {true, true, true};
    document = loaded;
    return {};
}

std::string save(AleDocument& document, const std::string& path, const AleSettings& settings)
{
    FileInfo info = document.info;
    std::string error;
    if (saveAleFile(path, document.programme, document.identity, &info, settings, &error) !=
        alefile::kSuccess)
        return text::format(text::kFileNotWritten.data(), path.c_str(), error.c_str());
    document.info = info;
    return {};
}

std::string printText(const AleDocument& document, const AleSettings& settings)
{
    ProfileFile file;
    writeAleProfile(file, document.programme, document.identity, &document.info, settings);
    return file.content();
}

} // namespace koral::aleio
