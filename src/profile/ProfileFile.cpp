#include "profile/ProfileFile.h"

#include "common/Texts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <system_error>

namespace koral {

namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";
constexpr std::string_view kNewLine = "\r\n";
constexpr std::size_t npos = std::string_view::npos;

bool isBlank(char c)
{
    switch (c) {
    case ' ':
    case '\t':
    case '\n':
    case '\v':
    case '\f':
    case '\r':
    case '\x1A':
        return true;
    default:
        return false;
    }
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// Upper case of a Windows-1252 byte, so that names match as the original system matched them.
unsigned char foldCase(unsigned char c)
{
    if (c >= 'a' && c <= 'z')
        return static_cast<unsigned char>(c - 'a' + 'A');
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7)
        return static_cast<unsigned char>(c - 0x20);
    switch (c) {
    case 0x9A: // s caron
    case 0x9C: // oe
    case 0x9E: // z caron
        return static_cast<unsigned char>(c - 0x10);
    case 0xFF: // y diaeresis
        return 0x9F;
    default:
        return c;
    }
}

bool sameName(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return foldCase(static_cast<unsigned char>(x)) ==
                      foldCase(static_cast<unsigned char>(y));
           });
}

// The name of a section header line, or nothing when the line is not one. A '[' without a
// closing ']' does not start a section: the line is an ordinary key line.
bool sectionName(std::string_view line, std::string_view& name)
{
    line = trimmed(line);
    if (line.empty() || line.front() != '[')
        return false;
    const std::size_t close = line.find(']');
    if (close == npos)
        return false;
    name = trimmed(line.substr(1, close - 1));
    return true;
}

struct KeyLine
{
    std::string_view key;
    std::string_view value;
    bool hasValue = false;
};

KeyLine splitKeyLine(std::string_view line)
{
    line = trimmed(line);
    const std::size_t equals = line.find('=');
    if (equals == npos)
        return {line, {}, false};
    return {trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)), true};
}

std::string_view unquoted(std::string_view value)
{
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front())
        return value.substr(1, value.size() - 2);
    return value;
}

// The text to store so that reading gives `value` back: a value with blanks at an end, or one
// that reading would unquote, is put in double quotes (reading, here and in the original
// system, removes exactly that pair).
std::string storedValue(std::string_view value)
{
    const bool blankEnd = !value.empty() && (isBlank(value.front()) || isBlank(value.back()));
    if (blankEnd || unquoted(value).size() != value.size())
        return "\"" + std::string(value) + "\"";
    return std::string(value);
}

std::string_view limited(std::string_view text, std::size_t bufferSize)
{
    if (bufferSize == 0)
        return {};
    return text.substr(0, std::min(text.size(), bufferSize - 1));
}

std::string describe(std::string_view what, const std::filesystem::path& path,
                     const std::error_code& error)
{
    return text::format(std::string(what).c_str(), path.string().c_str(), error.message().c_str());
}

// A name beside the target that no other save uses at the same time.
std::filesystem::path temporaryPathFor(const std::filesystem::path& target)
{
    static std::mt19937_64 generator{std::random_device{}()};
    std::filesystem::path temporary = target;
    temporary += ".tmp" + std::to_string(generator() % 1000000000ULL);
    return temporary;
}

} // namespace

ProfileFile::ProfileFile(std::filesystem::path path)
{
    load(std::move(path));
}

bool ProfileFile::load(std::filesystem::path path)
{
    m_path = std::move(path);
    m_lines.clear();
    m_bom = false;
    m_modified = false;
    m_error.clear();

    std::error_code error;
    if (!std::filesystem::exists(m_path, error))
        return true; // a missing file reads as all defaults
    if (std::filesystem::is_directory(m_path, error)) {
        m_error = describe(text::kProfileCannotRead, m_path,
                           std::make_error_code(std::errc::is_a_directory));
        return false;
    }
    errno = 0;
    std::ifstream in(m_path, std::ios::binary);
    std::ostringstream bytes;
    // Streaming the buffer turns read errors into a failed state instead of an exception.
    if (in && in.peek() != std::ifstream::traits_type::eof())
        bytes << in.rdbuf();
    if (!in || !bytes) {
        const int reason = errno != 0 ? errno : EIO;
        m_error = describe(text::kProfileCannotRead, m_path,
                           std::error_code(reason, std::generic_category()));
        return false;
    }
    parse(bytes.view());
    return true;
}

void ProfileFile::setContent(std::string_view bytes)
{
    parse(bytes);
    m_modified = true;
}

void ProfileFile::parse(std::string_view bytes)
{
    m_lines.clear();
    m_bom = bytes.starts_with(kBom);
    if (m_bom)
        bytes.remove_prefix(kBom.size());
    while (!bytes.empty()) {
        const std::size_t end = bytes.find_first_of("\r\n");
        if (end == npos) {
            m_lines.push_back({std::string(bytes), {}});
            break;
        }
        const std::size_t endSize = bytes.substr(end).starts_with(kNewLine) ? 2 : 1;
        m_lines.push_back(
            {std::string(bytes.substr(0, end)), std::string(bytes.substr(end, endSize))});
        bytes.remove_prefix(end + endSize);
    }
}

std::string ProfileFile::content() const
{
    std::string bytes = m_bom ? std::string(kBom) : std::string();
    for (const Line& line : m_lines) {
        bytes += line.text;
        bytes += line.end;
    }
    return bytes;
}

void ProfileFile::clear()
{
    m_lines.clear();
    m_bom = false;
    m_modified = true;
}

std::size_t ProfileFile::findSection(std::string_view section) const
{
    section = trimmed(section);
    std::string_view name;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (sectionName(m_lines[i].text, name) && sameName(name, section))
            return i;
    }
    return npos;
}

std::size_t ProfileFile::sectionEnd(std::size_t header) const
{
    std::string_view name;
    std::size_t i = header + 1;
    while (i < m_lines.size() && !sectionName(m_lines[i].text, name))
        ++i;
    return i;
}

std::size_t ProfileFile::findKey(std::size_t header, std::string_view key) const
{
    key = trimmed(key);
    const std::size_t end = sectionEnd(header);
    for (std::size_t i = header + 1; i < end; ++i) {
        if (trimmed(m_lines[i].text).empty())
            continue;
        if (sameName(splitKeyLine(m_lines[i].text).key, key))
            return i;
    }
    return npos;
}

std::string ProfileFile::read(std::string_view section, std::string_view key,
                              std::string_view defaultValue, std::size_t bufferSize) const
{
    const std::size_t header = findSection(section);
    if (header != npos) {
        const std::size_t line = findKey(header, key);
        if (line != npos) {
            const KeyLine entry = splitKeyLine(m_lines[line].text);
            if (entry.hasValue)
                return std::string(limited(unquoted(entry.value), bufferSize));
        }
    }
    while (!defaultValue.empty() && isBlank(defaultValue.back()))
        defaultValue.remove_suffix(1);
    return std::string(limited(defaultValue, bufferSize));
}

bool ProfileFile::contains(std::string_view section, std::string_view key) const
{
    const std::size_t header = findSection(section);
    if (header == npos)
        return false;
    const std::size_t line = findKey(header, key);
    return line != npos && splitKeyLine(m_lines[line].text).hasValue;
}

bool ProfileFile::hasSection(std::string_view section) const
{
    return findSection(section) != npos;
}

void ProfileFile::write(std::string_view section, std::string_view key, std::string_view value)
{
    section = trimmed(section);
    key = trimmed(key);
    const std::string stored = storedValue(value);
    value = stored;
    m_modified = true;

    // The line before an appended one must be ended first.
    const auto endLastLine = [this](std::size_t index) {
        if (index < m_lines.size() && m_lines[index].end.empty())
            m_lines[index].end = kNewLine;
    };

    const std::size_t header = findSection(section);
    if (header == npos) {
        if (!m_lines.empty())
            endLastLine(m_lines.size() - 1);
        m_lines.push_back({"[" + std::string(section) + "]", std::string(kNewLine)});
        m_lines.push_back({std::string(key) + "=" + std::string(value), std::string(kNewLine)});
        return;
    }
    const std::size_t line = findKey(header, key);
    if (line != npos) {
        const std::string spelling(splitKeyLine(m_lines[line].text).key);
        m_lines[line].text = spelling + "=" + std::string(value);
        return;
    }
    // After the section's last non-blank line, so blank lines before the next section stay
    // where they are.
    std::size_t last = sectionEnd(header) - 1;
    while (last > header && trimmed(m_lines[last].text).empty())
        --last;
    endLastLine(last);
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(last + 1),
                   {std::string(key) + "=" + std::string(value), std::string(kNewLine)});
}

void ProfileFile::removeKey(std::string_view section, std::string_view key)
{
    const std::size_t header = findSection(section);
    if (header == npos)
        return;
    const std::size_t line = findKey(header, key);
    if (line == npos)
        return;
    m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(line));
    m_modified = true;
}

void ProfileFile::removeSection(std::string_view section)
{
    const std::size_t header = findSection(section);
    if (header == npos)
        return;
    m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(header),
                  m_lines.begin() + static_cast<std::ptrdiff_t>(sectionEnd(header)));
    m_modified = true;
}

bool ProfileFile::flush()
{
    if (!m_modified) {
        m_error.clear();
        return true;
    }
    return saveAs(m_path);
}

bool ProfileFile::saveAs(std::filesystem::path path)
{
    m_error.clear();
    if (path.empty()) {
        m_error = describe(text::kProfileCannotWrite, path,
                           std::make_error_code(std::errc::invalid_argument));
        return false;
    }
    const std::filesystem::path temporary = temporaryPathFor(path);
    const std::string bytes = content();
    {
        errno = 0;
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        const int openError = errno;
        if (out)
            out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (out)
            out.close();
        if (!out) {
            const int reason = openError != 0 ? openError : (errno != 0 ? errno : EIO);
            std::error_code ignored;
            std::filesystem::remove(temporary, ignored);
            m_error = describe(text::kProfileCannotWrite, path,
                               std::error_code(reason, std::generic_category()));
            return false;
        }
    }
    std::error_code error;
    std::filesystem::rename(temporary, path, error);
    if (error) {
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
        m_error = describe(text::kProfileCannotWrite, path, error);
        return false;
    }
    m_path = std::move(path);
    m_modified = false;
    return true;
}

std::int64_t fileModificationTime(const std::filesystem::path& path)
{
    std::error_code error;
    const auto time = std::filesystem::last_write_time(path, error);
    if (error)
        return 0;
    const auto systemTime = std::chrono::file_clock::to_sys(time);
    return std::chrono::duration_cast<std::chrono::seconds>(systemTime.time_since_epoch()).count();
}

} // namespace koral
