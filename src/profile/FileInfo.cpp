#include "profile/FileInfo.h"

#include "profile/ProfileFile.h"

namespace koral::fileinfo {

namespace {

// The version key is read with the original's buffer, so at most five characters compare.
constexpr std::size_t kVersionBufferSize = 6;

std::string_view cut(std::string_view text, std::size_t bufferSize)
{
    return text.substr(0, std::min(text.size(), bufferSize - 1));
}

} // namespace

std::string_view formatVersion()
{
    return KORAL_FILE_FORMAT_VERSION;
}

void writeVersion(ProfileFile& file)
{
    file.write(kSection, kVersionKey, formatVersion());
}

bool versionMatches(const ProfileFile& file)
{
    return file.read(kSection, kVersionKey, formatVersion(), kVersionBufferSize) == formatVersion();
}

std::string encodeLineBreaks(std::string_view text)
{
    std::string encoded;
    encoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') {
            encoded += "\\r";
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
        } else {
            encoded += text[i];
        }
    }
    return encoded;
}

std::string decodeLineBreaks(std::string_view text)
{
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == 'r') {
            decoded += "\r\n";
            ++i;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

void write(ProfileFile& file, const FileInfo& info, std::string_view section)
{
    file.write(section, kCommentKey, encodeLineBreaks(cut(info.comment, FileInfo::kCommentSize)));
    file.write(section, kUserNameKey,
               encodeLineBreaks(cut(info.userName, FileInfo::kUserNameSize)));
}

void read(const ProfileFile& file, FileInfo& info, std::string_view section)
{
    info.comment = decodeLineBreaks(file.read(section, kCommentKey, {}, FileInfo::kCommentSize));
    info.userName = decodeLineBreaks(file.read(section, kUserNameKey, {}, FileInfo::kUserNameSize));
}

} // namespace koral::fileinfo
