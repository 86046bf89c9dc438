#pragma once

// The file-information header that the .rss, .ale and .ccr files share: the section "ZOV" with
// the format version ("ZOV_Version"), the user's comment ("Comment") and name ("UserName").
// The .ccr file keeps its comment and user name in its own section instead.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace koral {

class ProfileFile;

// What the document keeps about its file and the File Information dialog edits.
struct FileInfo
{
    static constexpr std::size_t kCommentSize = 200; // read buffer: at most 199 characters
    static constexpr std::size_t kUserNameSize = 20; // read buffer: at most 19 characters

    std::string comment{}; // line breaks as CR LF
    std::string userName{};
    std::int64_t modificationTime = 0; // seconds since 1970, 0 when unknown
};

namespace fileinfo {

inline constexpr std::string_view kSection = "ZOV";
inline constexpr std::string_view kVersionKey = "ZOV_Version";
inline constexpr std::string_view kCommentKey = "Comment";
inline constexpr std::string_view kUserNameKey = "UserName";

// The version text every data file carries; it names the file format, not a release.
std::string_view formatVersion();

// Writes "ZOV_Version" = formatVersion() into the "ZOV" section.
void writeVersion(ProfileFile& file);
// True when the file's "ZOV_Version" (read with a buffer of 6, as the original did) is
// exactly formatVersion(). A missing key reads as the current version.
bool versionMatches(const ProfileFile& file);

// A comment's line breaks (CR LF, and a lone CR or LF too, which would otherwise split the
// line) become the two characters backslash and 'r', so a multi-line comment fits on one line.
std::string encodeLineBreaks(std::string_view text);
// The reverse: each backslash 'r' becomes CR LF.
std::string decodeLineBreaks(std::string_view text);

// Writes "Comment" (line breaks encoded, at most 199 characters) and "UserName" (at most 19)
// into `section`.
void write(ProfileFile& file, const FileInfo& info, std::string_view section = kSection);
// Reads "Comment" and "UserName" from `section` into `info` with the original buffer sizes
// and decodes the line breaks. The modification time is left to the caller (it belongs to
// the file on disk, see fileModificationTime()).
void read(const ProfileFile& file, FileInfo& info, std::string_view section = kSection);

} // namespace fileinfo
} // namespace koral
