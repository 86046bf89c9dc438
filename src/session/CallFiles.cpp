#include "session/CallFiles.h"

#include "profile/ProfileFile.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace koral {

namespace {

// Counts were read into five characters and values into a hundred, terminator included.
constexpr std::size_t kCountBuffer = 5;
constexpr std::size_t kValueBuffer = 100;

constexpr std::string_view kMessagesSection = "Messages";
constexpr std::string_view kMessageCountKey = "Number of messages";
constexpr std::string_view kMessageKeyPrefix = "Message No. ";

struct Field
{
    std::string_view key;
    std::string CallRecord::*member;
};

constexpr std::array<Field, 9> kFields{{
    {"From", &CallRecord::from},
    {"To", &CallRecord::to},
    {"Date", &CallRecord::date},
    {"Start", &CallRecord::start},
    {"End", &CallRecord::end},
    {"Call Type", &CallRecord::callType},
    {"Net", &CallRecord::net},
    {"Channel", &CallRecord::channel},
    {"Message", &CallRecord::message},
}};

std::string numbered(std::string_view prefix, std::size_t number)
{
    return std::string(prefix) + std::to_string(number);
}

std::size_t readCount(const ProfileFile& profile, std::string_view section, std::string_view key,
                      std::size_t capacity)
{
    const int count = std::atoi(profile.read(section, key, "0", kCountBuffer).c_str());
    return count < 1 ? 0 : std::min<std::size_t>(static_cast<std::size_t>(count), capacity);
}

bool store(ProfileFile& profile, const std::filesystem::path& file, std::string* error)
{
    if (profile.saveAs(file))
        return true;
    if (error)
        *error = profile.errorString();
    return false;
}

} // namespace

std::vector<CallRecord> loadCallList(const std::filesystem::path& file,
                                     const CallListLayout& layout)
{
    const ProfileFile profile(file);
    const std::size_t count =
        readCount(profile, layout.listSection, layout.countKey, layout.capacity);
    std::vector<CallRecord> records(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string section = numbered(layout.recordPrefix, i + 1);
        for (const Field& field : kFields)
            records[i].*field.member = profile.read(section, field.key, {}, kValueBuffer);
    }
    return records;
}

bool saveCallList(const std::filesystem::path& file, const CallListLayout& layout,
                  const std::vector<CallRecord>& records, std::string* error)
{
    ProfileFile profile;
    const std::size_t count = std::min(records.size(), layout.capacity);
    profile.write(layout.listSection, layout.countKey, std::to_string(count));
    for (std::size_t i = 0; i < count; ++i) {
        const std::string section = numbered(layout.recordPrefix, i + 1);
        for (const Field& field : kFields)
            profile.write(section, field.key, records[i].*field.member);
    }
    return store(profile, file, error);
}

std::vector<std::string> loadMessageList(const std::filesystem::path& file)
{
    const ProfileFile profile(file);
    const std::size_t count =
        readCount(profile, kMessagesSection, kMessageCountKey, static_cast<std::size_t>(-1));
    std::vector<std::string> messages;
    for (std::size_t i = 1; i <= count; ++i) {
        std::string message =
            profile.read(kMessagesSection, numbered(kMessageKeyPrefix, i), {}, kValueBuffer);
        if (!message.empty())
            messages.push_back(std::move(message));
    }
    return messages;
}

bool saveMessageList(const std::filesystem::path& file, const std::vector<std::string>& messages,
                     std::string* error)
{
    ProfileFile profile(file);
    profile.removeSection(kMessagesSection);
    const std::size_t count = std::min(messages.size(), kMessageListCapacity);
    profile.write(kMessagesSection, kMessageCountKey, std::to_string(count));
    for (std::size_t i = 0; i < count; ++i)
        profile.write(kMessagesSection, numbered(kMessageKeyPrefix, i + 1), messages[i]);
    return store(profile, file, error);
}

} // namespace koral
