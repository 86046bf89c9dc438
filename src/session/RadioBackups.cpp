#include "session/RadioBackups.h"

#include "aledb/AleFile.h"
#include "aledb/CcirFile.h"
#include "common/Texts.h"
#include "profile/FileInfo.h"
#include "radiodb/RssFile.h"

#include <algorithm>
#include <ctime>
#include <system_error>

namespace koral {

namespace {

constexpr const char* kExtensions[] = {".rss", ".ale", ".ccr"};

// A set's name starts with its date and time, so names sort oldest first.
bool isSetName(const std::string& name)
{
    return name.size() > 20 && name[4] == '-' && name[10] == '_' && name[19] == '_';
}

} // namespace

RadioBackups::RadioBackups(std::filesystem::path folder, int keep)
    : m_folder(std::move(folder)), m_keep(std::max(1, keep))
{}

std::string RadioBackups::setName(std::chrono::system_clock::time_point when,
                                  std::string_view serialNumber)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(when);
    std::tm local{};
    localtime_r(&seconds, &local);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y-%m-%d_%H-%M-%S", &local);
    std::string serial;
    for (char c : serialNumber) {
        if (kAlphanumericChars.find(c) != std::string_view::npos)
            serial += c;
    }
    return std::string(stamp) + "_" + (serial.empty() ? std::string("unknown") : serial);
}

std::optional<std::filesystem::path> RadioBackups::save(const Contents& contents,
                                                        std::chrono::system_clock::time_point when,
                                                        std::string& error)
{
    std::error_code code;
    std::filesystem::create_directories(m_folder, code);
    if (code) {
        error = text::format(text::kProfileCannotWrite.data(), m_folder.string().c_str(),
                             code.message().c_str());
        return std::nullopt;
    }
    std::string name = setName(when, fieldText(contents.radio->serialNumber));
    // Two writes within one second keep both sets.
    for (int n = 2; std::filesystem::exists(m_folder / (name + ".rss")); ++n)
        name = setName(when, fieldText(contents.radio->serialNumber)) + "-" + std::to_string(n);
    const std::filesystem::path base = m_folder / name;

    FileInfo info;
    RssFile rss(base.string() + ".rss");
    if (rss.save(info, *contents.radio, contents.isb, contents.ccirNumbers) != RssFile::kOk) {
        error = rss.errorString();
        return std::nullopt;
    }
    if (contents.ale != nullptr &&
        saveAleFile(base.string() + ".ale", *contents.ale, *contents.radio, &info,
                    contents.aleSettings, &error) != alefile::kSuccess)
        return std::nullopt;
    if (contents.ccir != nullptr) {
        CcirFile ccr(base.string() + ".ccr");
        if (ccr.save(info, *contents.ccir) != 1) {
            error = ccr.errorString();
            return std::nullopt;
        }
    }
    prune();
    return base.string() + ".rss";
}

std::vector<std::filesystem::path> RadioBackups::list() const
{
    std::vector<std::filesystem::path> sets;
    std::error_code code;
    for (std::filesystem::directory_iterator entry(m_folder, code), end; !code && entry != end;
         entry.increment(code)) {
        const std::filesystem::path& path = entry->path();
        if (path.extension() == ".rss" && isSetName(path.stem().string()))
            sets.push_back(path);
    }
    std::sort(sets.begin(), sets.end(), [](const auto& a, const auto& b) {
        return a.filename().string() > b.filename().string();
    });
    return sets;
}

std::string RadioBackups::label(const std::filesystem::path& set)
{
    std::string name = set.stem().string();
    if (!isSetName(name))
        return name;
    // "2026-11-23_14-05-09_KR2E004417" reads "2026-11-23 14:05:09  KR2E004417".
    name[10] = ' ';
    name[13] = name[16] = ':';
    return name.substr(0, 19) + "  " + name.substr(20);
}

void RadioBackups::prune() const
{
    const std::vector<std::filesystem::path> sets = list();
    for (std::size_t i = static_cast<std::size_t>(m_keep); i < sets.size(); ++i) {
        for (const char* extension : kExtensions) {
            std::filesystem::path file = sets[i];
            file.replace_extension(extension);
            std::error_code ignored;
            std::filesystem::remove(file, ignored);
        }
    }
}

} // namespace koral
