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
#include <utility>

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

// A name in the form in which names compare.
std::string folded(std::string_view name)
{
    std::string result(name);
    for (char& c : result)
        c = static_cast<char>(foldCase(static_cast<unsigned char>(c)));
    return result;
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
    if (!blankEnd && unquoted(value).size() == value.size())
        return std::string(value);
    // Built by appending: GCC 12 at -O3 wrongly reports an overlapping copy (-Wrestrict) in
    // `"\"" + std::string(value)`, a known false positive of its string inlining.
    std::string quoted;
    quoted.reserve(value.size() + 2);
    quoted.append(1, '"').append(value).append(1, '"');
    return quoted;
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

constexpr std::string_view kTemporaryMark = ".tmp";

// A name beside the target that no other save uses at the same time: the target's name,
// ".tmp" and digits.
std::filesystem::path temporaryPathFor(const std::filesystem::path& target)
{
    static std::mt19937_64 generator{std::random_device{}()};
    std::filesystem::path temporary = target;
    temporary += std::string(kTemporaryMark) + std::to_string(generator() % 1000000000ULL);
    return temporary;
}

bool isTemporaryOf(const std::filesystem::path& candidate, const std::filesystem::path& target)
{
    const std::string name = candidate.filename().string();
    const std::string prefix = target.filename().string() + std::string(kTemporaryMark);
    return name.size() > prefix.size() && name.starts_with(prefix) &&
           std::all_of(name.begin() + static_cast<std::ptrdiff_t>(prefix.size()), name.end(),
                       [](char c) { return c >= '0' && c <= '9'; });
}

// A save killed between writing its temporary file and renaming it leaves that file behind;
// the next save of the same target clears them away.
void removeTemporariesOf(const std::filesystem::path& target)
{
    std::filesystem::path folder = target.parent_path();
    if (folder.empty())
        folder = ".";
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        if (isTemporaryOf(entry->path(), target))
            std::filesystem::remove(entry->path(), ignored);
    }
}

} // namespace

ProfileFile::ProfileFile(std::filesystem::path path)
{
    load(std::move(path));
}

bool ProfileFile::load(std::filesystem::path path)
{
    m_path = std::move(path);
    m_sections.assign(1, Section{});
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
    m_sections.assign(1, Section{});
    m_bom = bytes.starts_with(kBom);
    if (m_bom)
        bytes.remove_prefix(kBom.size());
    std::string_view name;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find_first_of("\r\n");
        const std::size_t endSize =
            end == npos ? 0 : (bytes.substr(end).starts_with(kNewLine) ? 2 : 1);
        Line line{std::string(bytes.substr(0, end)),
                  end == npos ? std::string() : std::string(bytes.substr(end, endSize))};
        bytes.remove_prefix(end == npos ? bytes.size() : end + endSize);
        if (sectionName(line.text, name))
            m_sections.push_back({folded(name), true, {}, {}, false});
        m_sections.back().lines.push_back(std::move(line));
    }
}

std::string ProfileFile::content() const
{
    std::string bytes = m_bom ? std::string(kBom) : std::string();
    for (const Section& section : m_sections) {
        for (const Line& line : section.lines) {
            bytes += line.text;
            bytes += line.end;
        }
    }
    return bytes;
}

void ProfileFile::clear()
{
    m_sections.assign(1, Section{});
    m_bom = false;
    m_modified = true;
}

std::size_t ProfileFile::Section::indexOf(const std::string& foldedKey) const
{
    if (!indexed) {
        keys.clear();
        for (std::size_t i = hasHeader ? 1 : 0; i < lines.size(); ++i) {
            if (!trimmed(lines[i].text).empty())
                keys.emplace(folded(splitKeyLine(lines[i].text).key), i);
        }
        indexed = true;
    }
    const auto found = keys.find(foldedKey);
    return found == keys.end() ? npos : found->second;
}

const ProfileFile::Line* ProfileFile::Section::find(const std::string& foldedKey) const
{
    const std::size_t index = indexOf(foldedKey);
    return index == npos ? nullptr : &lines[index];
}

const ProfileFile::Section* ProfileFile::findSection(std::string_view section) const
{
    const std::string name = folded(trimmed(section));
    for (const Section& candidate : m_sections) {
        if (candidate.hasHeader && candidate.name == name)
            return &candidate;
    }
    return nullptr;
}

ProfileFile::Section* ProfileFile::findSection(std::string_view section)
{
    return const_cast<Section*>(std::as_const(*this).findSection(section));
}

std::string ProfileFile::read(std::string_view section, std::string_view key,
                              std::string_view defaultValue, std::size_t bufferSize) const
{
    if (const Section* found = findSection(section)) {
        if (const Line* line = found->find(folded(trimmed(key)))) {
            const KeyLine entry = splitKeyLine(line->text);
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
    const Section* found = findSection(section);
    const Line* line = found != nullptr ? found->find(folded(trimmed(key))) : nullptr;
    return line != nullptr && splitKeyLine(line->text).hasValue;
}

bool ProfileFile::hasSection(std::string_view section) const
{
    return findSection(section) != nullptr;
}

std::vector<ProfileFile::Entry> ProfileFile::entries() const
{
    std::vector<Entry> result;
    for (const Section& section : m_sections) {
        std::string_view name;
        if (!section.hasHeader || !sectionName(section.lines[0].text, name) ||
            findSection(name) != &section)
            continue;
        for (std::size_t i = 1; i < section.lines.size(); ++i) {
            const KeyLine line = splitKeyLine(section.lines[i].text);
            if (line.hasValue && section.indexOf(folded(line.key)) == i)
                result.push_back(
                    {std::string(name), std::string(line.key), std::string(unquoted(line.value))});
        }
    }
    return result;
}

// The line before an appended one must be ended first.
void ProfileFile::endLastLine()
{
    for (auto section = m_sections.rbegin(); section != m_sections.rend(); ++section) {
        if (!section->lines.empty()) {
            if (section->lines.back().end.empty())
                section->lines.back().end = kNewLine;
            return;
        }
    }
}

void ProfileFile::write(std::string_view section, std::string_view key, std::string_view value)
{
    section = trimmed(section);
    key = trimmed(key);
    Line line{std::string(key) + "=" + storedValue(value), std::string(kNewLine)};
    m_modified = true;

    Section* found = findSection(section);
    if (found == nullptr) {
        endLastLine();
        Section added{folded(section), true, {}, {}, false};
        added.lines.push_back({"[" + std::string(section) + "]", std::string(kNewLine)});
        added.lines.push_back(std::move(line));
        m_sections.push_back(std::move(added));
        return;
    }
    const std::string foldedKey = folded(key);
    const std::size_t index = found->indexOf(foldedKey);
    if (index != npos) {
        Line& existing = found->lines[index];
        existing.text = std::string(splitKeyLine(existing.text).key) + "=" + storedValue(value);
        return;
    }
    // After the section's last non-blank line, so blank lines before the next section stay
    // where they are (and no key line moves, so the key index stays valid).
    std::size_t at = found->lines.size();
    while (at > 0 && trimmed(found->lines[at - 1].text).empty())
        --at;
    if (at == found->lines.size())
        endLastLine();
    else if (at > 0 && found->lines[at - 1].end.empty())
        found->lines[at - 1].end = kNewLine;
    found->lines.insert(found->lines.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
    found->keys.emplace(foldedKey, at);
}

void ProfileFile::removeKey(std::string_view section, std::string_view key)
{
    Section* found = findSection(section);
    if (found == nullptr)
        return;
    const std::size_t index = found->indexOf(folded(trimmed(key)));
    if (index == npos)
        return;
    found->lines.erase(found->lines.begin() + static_cast<std::ptrdiff_t>(index));
    found->indexed = false;
    m_modified = true;
}

void ProfileFile::removeSection(std::string_view section)
{
    const Section* found = findSection(section);
    if (found == nullptr)
        return;
    m_sections.erase(m_sections.begin() + (found - m_sections.data()));
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
    removeTemporariesOf(path);
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
