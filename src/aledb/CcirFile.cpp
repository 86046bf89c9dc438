#include "aledb/CcirFile.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace koral {

namespace {

using schema::Row;
using schema::Type;

// A row per key, in the order they are written. The identities and the three settings keep
// their value when the key is there but empty; the directory entries are written only when
// set (flag i for entry i).
constexpr std::array<Row, 8> kRows{{
    {.key = "Ccir 6 Digits Id",
     .defaultText = "0",
     .type = Type::U32,
     .offset = offsetof(ccir_dbase, selfId6),
     .emptyKeeps = true},
    {.key = "Ccir 4 Digits Id",
     .defaultText = "0",
     .type = Type::U16,
     .offset = offsetof(ccir_dbase, selfId4),
     .emptyKeeps = true},
    {.key = "Ccir Alarm",
     .defaultText = "0",
     .type = Type::U8,
     .offset = offsetof(ccir_dbase, alarm),
     .emptyKeeps = true},
    {.key = "Ccir Beacon",
     .defaultText = "0",
     .type = Type::U8,
     .offset = offsetof(ccir_dbase, beacon),
     .emptyKeeps = true},
    {.key = "Ccir Preamble",
     .defaultText = "6",
     .type = Type::U8,
     .offset = offsetof(ccir_dbase, preamble),
     .emptyKeeps = true},
    {.key = "Ccir Message1",
     .type = Type::Text,
     .offset = offsetof(ccir_dbase, message1),
     .width = kCcirMessageSize},
    {.key = "Ccir Message2",
     .type = Type::Text,
     .offset = offsetof(ccir_dbase, message2),
     .width = kCcirMessageSize},
    {.key = "Ccir Directory",
     .flag = 0,
     .type = Type::U32,
     .offset = offsetof(ccir_dbase, directory),
     .count = kCcirDirectorySize,
     .stride = sizeof(BigEndian<std::uint32_t>),
     .firstNumber = 0},
}};

// The original read every key of this file into a buffer of 100 characters.
constexpr std::size_t kReadBuffer = 100;

template <typename T>
void swapTo(BigEndian<T>& field, bool toRadio)
{
    T value;
    if (toRadio) {
        std::memcpy(&value, field.bytes.data(), sizeof value);
        field.set(value);
    } else {
        value = field.get();
        std::memcpy(field.bytes.data(), &value, sizeof value);
    }
}

ccir_dbase converted(ccir_dbase record, bool toRadio)
{
    swapTo(record.selfId4, toRadio);
    swapTo(record.selfId6, toRadio);
    for (auto& entry : record.directory)
        swapTo(entry, toRadio);
    return record;
}

std::span<std::uint8_t> bytesOf(ccir_dbase& record)
{
    return {reinterpret_cast<std::uint8_t*>(&record), sizeof record};
}

ProfileFile build(const FileInfo& info, const ccir_dbase& record)
{
    ccir_dbase host = CcirFile::toHostOrder(record);
    std::array<std::uint8_t, kCcirDirectorySize> present{};
    std::transform(record.directory.begin(), record.directory.end(), present.begin(),
                   [](const BigEndian<std::uint32_t>& id) { return id.get() != 0 ? 1 : 0; });
    ProfileFile file;
    schema::save(file, kRows, bytesOf(host), present, {.section = CcirFile::kSection});
    fileinfo::write(file, info, CcirFile::kSection);
    fileinfo::writeVersion(file);
    return file;
}

} // namespace

CcirFile::CcirFile(std::filesystem::path path)
    : m_file(std::move(path)), m_readable(m_file.errorString().empty()),
      m_error(m_file.errorString())
{}

std::span<const schema::Row> CcirFile::table()
{
    return kRows;
}

ccir_dbase CcirFile::toHostOrder(const ccir_dbase& record)
{
    return converted(record, false);
}

ccir_dbase CcirFile::toRadioOrder(const ccir_dbase& hostOrder)
{
    return converted(hostOrder, true);
}

std::string CcirFile::content(const FileInfo& info, const ccir_dbase& record)
{
    return build(info, record).content();
}

int CcirFile::save(FileInfo& info, const ccir_dbase& record)
{
    ProfileFile file = build(info, record);
    if (!file.saveAs(m_file.path())) {
        m_error = file.errorString();
        return 0;
    }
    m_file = std::move(file);
    m_readable = true;
    m_error.clear();
    info.modificationTime = fileModificationTime(m_file.path());
    return 1;
}

int CcirFile::load(FileInfo* info, ccir_dbase& record, CcirState& state) const
{
    if (!m_readable)
        return kReadFailed;
    // Fields whose key is present but empty keep the caller's value.
    ccir_dbase host = toHostOrder(record);
    schema::load(m_file, kRows, bytesOf(host), {.section = kSection, .bufferSize = kReadBuffer});
    record = toRadioOrder(host);
    if (info != nullptr) {
        fileinfo::read(m_file, *info, kSection);
        info->modificationTime = fileModificationTime(m_file.path());
    }
    state.dataFromFile = true;
    return kLoaded;
}

channel_name toChannelName(const CcirChannelNumbers& numbers)
{
    channel_name record{};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        record.numbers[i].set(numbers[i]);
    return record;
}

CcirChannelNumbers fromChannelName(const channel_name& record)
{
    CcirChannelNumbers numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = record.numbers[i].get();
    return numbers;
}

} // namespace koral
