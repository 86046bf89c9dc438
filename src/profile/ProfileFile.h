#pragma once

// A profile (INI) file held in memory: read once, edited, written once.
//
// The observable behaviour is that of the Windows profile-string calls, so that files written
// by the radio's original tools load identically here and files written here load there:
//  - a line is trimmed of blanks (tab, LF, VT, FF, CR, 0x1A, space) at both ends; CR, LF and
//    CR LF all end a line; blank lines carry nothing;
//  - "[name]" starts a section (name trimmed, text after its ']' ignored); any other line
//    splits at its first '=' into a trimmed key and a trimmed value; a line without '=' is a
//    key without a value, which reads as missing;
//  - section and key names match case-insensitively (Windows-1252 letters); the first of
//    duplicate sections or keys wins, for reading and for writing;
//  - a value of two or more characters that starts and ends with the same quote (" or ') is
//    read without that one pair;
//  - bytes are Windows-1252 text; a UTF-8 byte-order mark is skipped (and kept on saving).
// Writes replace a value in place (the key keeps its spelling and the line its ending), append
// a new key after the last line of its section and a new section at the end of the file, as
// "[name]" and "key=value" lines ended by CR LF. Lines a write does not touch stay byte for
// byte. Nothing reaches the disk before flush() or saveAs(), which replace the file atomically
// (temporary file in the same folder, then a rename), so an interrupted save leaves the
// previous file as it was; the temporary files such a save leaves go with the next save.
//
// No function throws; failures are answered by a bool and described by errorString(). One
// object belongs to one thread at a time: even reads build the key index they search.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace koral {

class ProfileFile
{
public:
    // The read buffer of the original calls when a caller names none.
    static constexpr std::size_t kDefaultBufferSize = 4096;

    // An empty profile with no path (fill it, then saveAs()).
    ProfileFile() = default;
    // Loads the file at once; see load().
    explicit ProfileFile(std::filesystem::path path);

    // Replaces the content by the file at `path` and remembers the path for flush(). A missing
    // file is an empty profile (every read answers its default) and succeeds; a file that
    // exists but cannot be read gives false, an empty profile and errorString().
    bool load(std::filesystem::path path);

    // Replaces the content by `bytes` (path unchanged); marks the profile modified.
    void setContent(std::string_view bytes);
    // The file's bytes as they would be saved now.
    std::string content() const;
    // Empties the profile (as if the file had been deleted first); marks it modified.
    void clear();

    const std::filesystem::path& path() const { return m_path; }
    bool isModified() const { return m_modified; }
    // The reason of the last failed load(), flush() or saveAs(); empty after a success.
    const std::string& errorString() const { return m_error; }

    // The value of `key` in `section`, or `defaultValue` (trailing blanks dropped) when the
    // section, the key or its '=' is missing. At most bufferSize - 1 characters are returned
    // (nothing for a buffer size of 0), as the original calls copied into a buffer.
    std::string read(std::string_view section, std::string_view key,
                     std::string_view defaultValue = {},
                     std::size_t bufferSize = kDefaultBufferSize) const;
    // True when `section` holds `key` with a value ("key=" counts, a bare "key" does not).
    bool contains(std::string_view section, std::string_view key) const;
    // True when the section exists.
    bool hasSection(std::string_view section) const;

    // One key as read() finds it, with the spelling of its section header and key line.
    struct Entry
    {
        std::string section;
        std::string key;
        std::string value;
    };
    // Every key that read() finds, in file order: keys without '=' and the duplicates of a
    // section or key that reading never reaches are left out.
    std::vector<Entry> entries() const;

    // Sets `key` in `section` to `value`, creating the key or the section as needed. A value
    // with blanks at an end, or one that starts and ends with the same quote, is stored in
    // double quotes, so that read() (and the original system) gives it back unchanged. The
    // value must not hold a line break. Only memory changes; see flush().
    void write(std::string_view section, std::string_view key, std::string_view value);
    // Removes the first `key` line of `section`; nothing happens when it is missing.
    void removeKey(std::string_view section, std::string_view key);
    // Removes the first section of that name: its header and every line up to the next one.
    void removeSection(std::string_view section);

    // Writes the content to path() when it was modified. True on success or when nothing was
    // to be written; false (file untouched, errorString() set) when it could not be written.
    bool flush();
    // Writes the content to `path` atomically, whether modified or not, and makes `path` the
    // profile's path, then removes the temporary files that killed saves of `path` left beside
    // it. False (errorString() set, the file at `path` untouched) on failure.
    bool saveAs(std::filesystem::path path);

private:
    struct Line
    {
        std::string text; // raw bytes without the line end
        std::string end;  // "\r\n", "\n", "\r" or "" (last line without an end)
    };
    // A header line and the lines up to the next one. The lines before the first header form
    // a section without a header, which no name finds.
    struct Section
    {
        std::string name; // case-folded; empty without a header
        bool hasHeader = false;
        std::vector<Line> lines; // lines[0] is the header line when there is one
        // Case-folded key -> index of its first line; built on first use.
        mutable std::unordered_map<std::string, std::size_t> keys;
        mutable bool indexed = false;

        const Line* find(const std::string& foldedKey) const;
        std::size_t indexOf(const std::string& foldedKey) const;
    };

    const Section* findSection(std::string_view section) const;
    Section* findSection(std::string_view section);
    void endLastLine();
    void parse(std::string_view bytes);

    std::filesystem::path m_path;
    std::vector<Section> m_sections{Section{}};
    bool m_bom = false;
    bool m_modified = false;
    std::string m_error;
};

// The file's last-modification time as seconds since 1970 (UTC), or 0 when it cannot be read.
std::int64_t fileModificationTime(const std::filesystem::path& path);

} // namespace koral
