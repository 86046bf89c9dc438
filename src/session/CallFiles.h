#pragma once

#include "session/CallRecord.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace koral {

// How one call list is laid out in its profile file.
struct CallListLayout
{
    std::string_view fileName;
    std::string_view listSection;
    std::string_view countKey;
    std::string_view recordPrefix; // followed by the 1-based record number
    std::size_t capacity;
};

inline constexpr CallListLayout kStackLayout{"stack.txt", "Stack List", "Number of Stack Records",
                                             "Stack Record No. ", 100};
inline constexpr CallListLayout kLogLayout{"log.txt", "Log File", "Number of Log Records",
                                           "Log Record No. ", 200};
inline constexpr std::size_t kMessageListCapacity = 200;
inline constexpr std::string_view kMessageFileName = "msg.txt";

// Reads a call list; a missing file or section is an empty list. At most `capacity`
// records are read, each value cut at 99 characters.
std::vector<CallRecord> loadCallList(const std::filesystem::path& file,
                                     const CallListLayout& layout);
// Writes the first `capacity` records. False (with `error` set) when the file cannot be
// written.
bool saveCallList(const std::filesystem::path& file, const CallListLayout& layout,
                  const std::vector<CallRecord>& records, std::string* error = nullptr);

// msg.txt: the prepared call messages. Empty texts are skipped on reading; at most 200 are
// written, replacing the whole section.
std::vector<std::string> loadMessageList(const std::filesystem::path& file);
bool saveMessageList(const std::filesystem::path& file, const std::vector<std::string>& messages,
                     std::string* error = nullptr);

} // namespace koral
