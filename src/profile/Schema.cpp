#include "profile/Schema.h"

#include "profile/ProfileFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace koral::schema {

namespace {

bool isCBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

// Bytes a field of this type occupies in the record.
std::size_t sizeOf(Type type, std::size_t width)
{
    switch (type) {
    case Type::Text:
    case Type::FixedText:
        return width;
    case Type::U32:
    case Type::Hex32:
        return 4;
    case Type::U16:
        return 2;
    case Type::U8:
    case Type::Hex8:
        return 1;
    case Type::Bitmap:
        return (width + 7) / 8;
    case Type::Composite:
        return 0; // its fields are checked one by one
    }
    return 0;
}

template <typename T>
T get(std::span<const std::uint8_t> bytes)
{
    T value;
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
}

template <typename T>
void put(std::span<std::uint8_t> bytes, T value)
{
    std::memcpy(bytes.data(), &value, sizeof value);
}

std::string hex(std::uint32_t value)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%X", static_cast<unsigned>(value));
    return buffer;
}

std::string listed(ValueList values, int value, bool hasList)
{
    if (!hasList)
        return std::to_string(value);
    const char* text = textOf(values, value);
    return text != nullptr ? text : "";
}

std::string textField(std::span<const std::uint8_t> bytes)
{
    const auto* begin = reinterpret_cast<const char*>(bytes.data());
    return std::string(begin, strnlen(begin, bytes.size()));
}

std::string bitmapText(std::span<const std::uint8_t> bytes, std::size_t bits)
{
    std::string text;
    for (std::size_t n = 0; n <= bits && n / 8 < bytes.size(); ++n) {
        if (bytes[n / 8] & (0x80u >> (n % 8))) {
            if (!text.empty())
                text += ',';
            text += std::to_string(n);
        }
    }
    return text;
}

// The hexadecimal conversion of the loaders: strtoul on a 32-bit unsigned long.
std::uint32_t parseHex(std::string_view text)
{
    std::string copy(text);
    const char* start = copy.c_str();
    while (isCBlank(*start))
        ++start;
    const bool negative = *start == '-';
    errno = 0;
    const unsigned long long value = std::strtoull(copy.c_str(), nullptr, 16);
    constexpr unsigned long long kMax = std::numeric_limits<std::uint32_t>::max();
    if (errno == ERANGE)
        return static_cast<std::uint32_t>(kMax);
    if (negative) {
        const unsigned long long magnitude = 0ULL - value;
        return magnitude > kMax ? static_cast<std::uint32_t>(kMax)
                                : static_cast<std::uint32_t>(0U - magnitude);
    }
    return value > kMax ? static_cast<std::uint32_t>(kMax) : static_cast<std::uint32_t>(value);
}

bool startsWithNumber(std::string_view text)
{
    while (!text.empty() && isCBlank(text.front()))
        text.remove_prefix(1);
    if (!text.empty() && (text.front() == '+' || text.front() == '-'))
        text.remove_prefix(1);
    return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

void loadBitmap(std::string_view text, std::span<std::uint8_t> bytes, std::size_t bits)
{
    std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
    while (true) {
        const std::size_t comma = text.find(',');
        const std::string_view part = text.substr(0, comma);
        if (startsWithNumber(part)) {
            const std::int32_t n = parseDecimal(part);
            if (n >= 0 && static_cast<std::size_t>(n) <= bits &&
                static_cast<std::size_t>(n) / 8 < bytes.size())
                bytes[static_cast<std::size_t>(n) / 8] |=
                    static_cast<std::uint8_t>(0x80u >> (n % 8));
        }
        if (comma == std::string_view::npos)
            break;
        text.remove_prefix(comma + 1);
    }
}

void loadText(std::string_view text, std::span<std::uint8_t> bytes, std::size_t room)
{
    std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
    const std::size_t size = std::min(text.size(), room);
    std::memcpy(bytes.data(), text.data(), size);
}

// The text of one field whose bytes start at `at`; fields that do not fit give nothing.
std::string formatField(Type type, std::size_t width, ValueList values,
                        std::span<const std::uint8_t> element, std::size_t at,
                        std::span<const Field> fields);

std::string formatComposite(std::span<const Field> fields, std::span<const std::uint8_t> element,
                            std::size_t at)
{
    std::string text;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Field& field = fields[i];
        if (i > 0)
            text += ',';
        text += formatField(field.type, field.width, field.values, element, at + field.offset, {});
    }
    return text;
}

std::string formatField(Type type, std::size_t width, ValueList values,
                        std::span<const std::uint8_t> record, std::size_t at,
                        std::span<const Field> fields)
{
    if (type == Type::Composite)
        return formatComposite(fields, record, at);
    const std::size_t size = sizeOf(type, width);
    if (at > record.size() || size > record.size() - at)
        return {};
    const auto bytes = record.subspan(at, size);
    const bool hasList = !values.empty();
    switch (type) {
    case Type::Text:
        return textField(bytes.first(width > 0 ? width - 1 : 0));
    case Type::FixedText:
        return textField(bytes);
    case Type::U32:
        return std::to_string(static_cast<std::int32_t>(get<std::uint32_t>(bytes)));
    case Type::U16:
        return listed(values, get<std::uint16_t>(bytes), hasList);
    case Type::U8:
        return listed(values, bytes[0], hasList);
    case Type::Hex32:
        return hex(get<std::uint32_t>(bytes));
    case Type::Hex8:
        return hex(bytes[0]);
    case Type::Bitmap:
        return bitmapText(bytes, width);
    case Type::Composite:
        break;
    }
    return {};
}

void parseField(Type type, std::size_t width, ValueList values, std::string_view text,
                std::span<std::uint8_t> record, std::size_t at);

void parseComposite(std::span<const Field> fields, std::string_view text,
                    std::span<std::uint8_t> record, std::size_t at)
{
    std::string_view rest = text;
    bool exhausted = false;
    for (const Field& field : fields) {
        std::string_view part;
        if (field.type == Type::Bitmap) {
            part = exhausted ? std::string_view{} : rest;
            exhausted = true;
        } else if (!exhausted) {
            const std::size_t comma = rest.find(',');
            part = rest.substr(0, comma);
            if (comma == std::string_view::npos)
                exhausted = true;
            else
                rest.remove_prefix(comma + 1);
        }
        if (part.empty())
            part = field.defaultText != nullptr ? field.defaultText : "";
        parseField(field.type, field.width, field.values, part, record, at + field.offset);
    }
}

void parseField(Type type, std::size_t width, ValueList values, std::string_view text,
                std::span<std::uint8_t> record, std::size_t at)
{
    const std::size_t size = sizeOf(type, width);
    if (at > record.size() || size > record.size() - at)
        return;
    const auto bytes = record.subspan(at, size);
    const bool hasList = !values.empty();
    switch (type) {
    case Type::Text:
        loadText(text, bytes, width > 0 ? width - 1 : 0);
        break;
    case Type::FixedText:
        loadText(text, bytes, width);
        break;
    case Type::U32:
        put(bytes, static_cast<std::uint32_t>(parseDecimal(text)));
        break;
    case Type::U16:
        put(bytes,
            static_cast<std::uint16_t>(hasList ? valueOf(values, text) : parseDecimal(text)));
        break;
    case Type::U8:
        bytes[0] = static_cast<std::uint8_t>(hasList ? valueOf(values, text) : parseDecimal(text));
        break;
    case Type::Hex32:
        put(bytes, parseHex(text));
        break;
    case Type::Hex8:
        bytes[0] = static_cast<std::uint8_t>(parseHex(text));
        break;
    case Type::Bitmap:
        loadBitmap(text, bytes, width);
        break;
    case Type::Composite:
        break;
    }
}

bool fits(std::size_t at, std::size_t size, std::size_t recordSize)
{
    return at <= recordSize && size <= recordSize - at;
}

bool fits(const Row& row, std::size_t at, std::size_t recordSize)
{
    if (row.type != Type::Composite)
        return fits(at, sizeOf(row.type, row.width), recordSize);
    return std::all_of(row.fields.begin(), row.fields.end(), [&](const Field& field) {
        return fits(at + field.offset, sizeOf(field.type, field.width), recordSize);
    });
}

std::string_view sectionOf(const Row& row, const Options& options)
{
    return row.section != nullptr ? std::string_view(row.section) : options.section;
}

std::string keyOf(const Row& row, int element)
{
    std::string key = row.key != nullptr ? row.key : "";
    if (row.count > 0)
        key += std::to_string(row.firstNumber + element);
    return key;
}

bool present(std::span<const std::uint8_t> flags, int flag, int element)
{
    if (flag == kAlways)
        return true;
    const long index = static_cast<long>(flag) + element;
    return index >= 0 && static_cast<std::size_t>(index) < flags.size() &&
           flags[static_cast<std::size_t>(index)] != 0;
}

template <typename Visit>
void forEachElement(std::span<const Row> rows, const Options& options, Visit visit)
{
    for (std::size_t r = options.firstRow; r < rows.size(); ++r) {
        const Row& row = rows[r];
        const int elements = row.count > 0 ? row.count : 1;
        for (int i = 0; i < elements; ++i)
            visit(row, i, row.offset + static_cast<std::size_t>(i) * row.stride);
    }
}

} // namespace

std::int32_t parseDecimal(std::string_view text)
{
    while (!text.empty() && isCBlank(text.front()))
        text.remove_prefix(1);
    bool negative = false;
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    constexpr std::int64_t kLimit = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    std::int64_t magnitude = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            break;
        magnitude = std::min(magnitude * 10 + (c - '0'), kLimit);
    }
    if (negative)
        return static_cast<std::int32_t>(-magnitude);
    return static_cast<std::int32_t>(std::min(magnitude, kLimit - 1));
}

void save(ProfileFile& file, std::span<const Row> rows, std::span<const std::uint8_t> record,
          std::span<const std::uint8_t> flags, const Options& options)
{
    forEachElement(rows, options, [&](const Row& row, int element, std::size_t at) {
        if (!present(flags, row.flag, element) || !fits(row, at, record.size()))
            return;
        file.write(sectionOf(row, options), keyOf(row, element),
                   formatField(row.type, row.width, row.values, record, at, row.fields));
    });
}

void load(const ProfileFile& file, std::span<const Row> rows, std::span<std::uint8_t> record,
          const Options& options)
{
    forEachElement(rows, options, [&](const Row& row, int element, std::size_t at) {
        const std::string text =
            file.read(sectionOf(row, options), keyOf(row, element),
                      row.defaultText != nullptr ? row.defaultText : "", options.bufferSize);
        if (row.emptyKeeps && text.empty())
            return;
        if (row.type == Type::Composite)
            parseComposite(row.fields, text, record, at);
        else
            parseField(row.type, row.width, row.values, text, record, at);
    });
}

} // namespace koral::schema
