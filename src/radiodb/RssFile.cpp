#include "radiodb/RssFile.h"

#include "profile/Schema.h"
#include "radiodb/ProgrammedFlags.h"
#include "radiodb/RadioSanitiser.h"
#include "radiodb/RadioValueLists.h"
#include "radiodb/WideInformationRows.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <vector>

namespace koral {

namespace {

using schema::Field;
using schema::Row;
using schema::Type;
using Flags = ProgrammedFlags;

// What the schema rows address: the record, and beside it the two values the file carries
// that the record has no room for.
struct RssWork
{
    dbase db;
    std::uint8_t isb;                // kept outside the radio database
    std::array<char, 8> fileVersion; // where the version key loads to; never used
};
static_assert(sizeof(RssWork) == 4313);
static_assert(offsetof(RssWork, db) == 0);
static_assert(offsetof(RssWork, isb) == 4304);
static_assert(offsetof(RssWork, fileVersion) == 4305);

constexpr std::size_t kOptions = offsetof(dbase, options);
constexpr std::size_t kRadioOptions = offsetof(dbase, radioOptions);
constexpr std::size_t kGroups = offsetof(dbase, groups);

constexpr std::size_t inOptions(std::size_t offset)
{
    return kRadioOptions + offset;
}

constexpr std::array<Field, 3> kOptionFields{{
    {.type = Type::FixedText, .offset = offsetof(OptionRecord, softwareVersion), .width = 8},
    {.type = Type::FixedText, .offset = offsetof(OptionRecord, hardwareVersion), .width = 8},
    {.type = Type::U8, .offset = offsetof(OptionRecord, status), .values = values::kOptionStatus},
}};

constexpr std::array<Field, 1> kListEntryFields{{{.type = Type::FixedText, .width = 16}}};

constexpr std::array<Field, 2> kGroupFields{{
    {.type = Type::U16, .offset = offsetof(Group, guardChannel), .defaultText = "100"},
    {.type = Type::Bitmap,
     .offset = offsetof(Group, members),
     .width = kGroupBitCount,
     .defaultText = "-1"},
}};

// The line's fields come in this order; the bandwidth, last, was added after the others, so
// older files end a channel line before it.
constexpr std::array<Field, 7> kChannelFields{{
    {.type = Type::U8,
     .offset = offsetof(channel, power),
     .defaultText = "Max",
     .values = values::kPower},
    {.type = Type::U8,
     .offset = offsetof(channel, sideband),
     .defaultText = "USB",
     .values = values::kSideband},
    {.type = Type::U32, .offset = offsetof(channel, txFrequency), .defaultText = "0"},
    {.type = Type::U32, .offset = offsetof(channel, rxFrequency), .defaultText = "0"},
    {.type = Type::U8,
     .offset = offsetof(channel, agc),
     .defaultText = "Slow",
     .values = values::kAgc},
    {.type = Type::U8,
     .offset = offsetof(channel, modulation),
     .defaultText = "SSB",
     .values = values::kModulation},
    {.type = Type::U8,
     .offset = offsetof(channel, bandwidth),
     .defaultText = "2700",
     .values = values::kBandwidth},
}};

Row radioOption(const char* key, const char* defaultText, std::size_t offset, ValueList list,
                const char* section = "Radio Options")
{
    return {.section = section,
            .key = key,
            .defaultText = defaultText,
            .flag = Flags::kSingletons,
            .type = Type::U8,
            .offset = offset,
            .values = list};
}

std::vector<Row> buildTable()
{
    std::vector<Row> rows;
    rows.push_back({.section = "ZOV",
                    .key = "ZOV_Version",
                    .defaultText = fileinfo::formatVersion().data(),
                    .flag = Flags::kSingletons,
                    .type = Type::FixedText,
                    .offset = offsetof(RssWork, fileVersion),
                    .width = 8});
    rows.insert(rows.end(), kWideInformationRows.begin(), kWideInformationRows.end());
    for (std::size_t slot = 0; slot < kOptionSlotCount; ++slot) {
        rows.push_back({.section = "Options",
                        .key = kOptionSlotNames[slot],
                        .defaultText = ",,Disable",
                        .flag = Flags::kSingletons,
                        .type = Type::Composite,
                        .offset = kOptions + slot * sizeof(OptionRecord),
                        .fields = kOptionFields});
    }
    rows.push_back({.section = "ECN List",
                    .key = "ECN",
                    .flag = Flags::kFirstEcn,
                    .type = Type::Composite,
                    .offset = offsetof(dbase, ecn),
                    .count = kEcnCount,
                    .stride = 16,
                    .fields = kListEntryFields});
    rows.push_back({.section = "SP List",
                    .key = "SP",
                    .flag = Flags::kFirstSp,
                    .type = Type::Composite,
                    .offset = offsetof(dbase, sp),
                    .count = kSpCount,
                    .stride = 16,
                    .fields = kListEntryFields});
    static constexpr std::array<const char*, kGroupCount> kGroupKeys{
        "Group_A", "Group_B", "Group_C", "Group_D", "Group_E"};
    for (std::size_t group = 0; group < kGroupCount; ++group) {
        rows.push_back({.section = "Groups Guard Channels",
                        .key = kGroupKeys[group],
                        .flag = Flags::kFirstGroup + static_cast<int>(group),
                        .type = Type::Composite,
                        .offset = kGroups + group * sizeof(Group),
                        .fields = kGroupFields});
    }
    rows.push_back({.section = "Channels",
                    .key = "Channel",
                    .defaultText = "Max,USB,0,0,Slow,SSB",
                    .flag = Flags::kFirstChannel,
                    .type = Type::Composite,
                    .offset = offsetof(dbase, channels),
                    .count = kChannelCount,
                    .stride = sizeof(channel),
                    .fields = kChannelFields});
    rows.push_back({.section = "Radio Options",
                    .key = "Priority_Channel",
                    .defaultText = "1",
                    .flag = Flags::kSingletons,
                    .type = Type::U16,
                    .offset = inOptions(offsetof(RadioOptions, priorityChannel))});
    rows.push_back(radioOption("Scan_Rate", "2 Ch/Sec", inOptions(offsetof(RadioOptions, scanRate)),
                               values::kScanRate));
    rows.push_back(radioOption("Baud_Rate", "9600", inOptions(offsetof(RadioOptions, baudRate)),
                               values::kBaudRate));
    rows.push_back(radioOption("Alert_Tone", "Low", inOptions(offsetof(RadioOptions, alertTone)),
                               values::kAlertTone));
    rows.push_back(radioOption("CW_PTT_Hold", "500 mSec",
                               inOptions(offsetof(RadioOptions, cwPttHold)), values::kCwPttHold));
    rows.push_back(radioOption("Alternate_Display_Time", "5 Sec",
                               inOptions(offsetof(RadioOptions, alternateDisplayTime)),
                               values::kAlternateDisplayTime));
    rows.push_back(radioOption("Data_Power_Level", "Max",
                               inOptions(offsetof(RadioOptions, dataPowerLevel)), values::kPower));
    rows.push_back(
        radioOption("Language", "ENGLISH", offsetof(dbase, language), values::kLanguage));
    rows.push_back(radioOption("Beep_After_Keyboard_Press", "Yes",
                               inOptions(offsetof(RadioOptions, beepAfterKeyboardPress)),
                               values::kNoYes));
    rows.push_back(radioOption("Beep_After_PTT_Release", "No",
                               inOptions(offsetof(RadioOptions, beepAfterPttRelease)),
                               values::kNoYes));
    rows.push_back(radioOption("Accessory_Side_Tone", "No",
                               inOptions(offsetof(RadioOptions, accessorySideTone)),
                               values::kNoYes));
    rows.push_back(radioOption("Microphone_Side_Tone", "No",
                               inOptions(offsetof(RadioOptions, microphoneSideTone)),
                               values::kNoYes));
    rows.push_back(radioOption("Frequency_Display", "View",
                               inOptions(offsetof(RadioOptions, frequencyDisplay)),
                               values::kFrequencyDisplay));
    rows.push_back(radioOption("Noise_Blanker", "No",
                               inOptions(offsetof(RadioOptions, noiseBlanker)), values::kNoYes));
    rows.push_back(radioOption("ISB", "No", offsetof(RssWork, isb), values::kNoYes));
    rows.push_back(radioOption("Accessory_Installed", "None", offsetof(dbase, accessoryInstalled),
                               values::kAccessoryInstalled, "Accessories"));
    rows.push_back(
        radioOption("Tuner", "No", offsetof(dbase, tuner), values::kNoYes, "Accessories"));
    return rows;
}

std::span<std::uint8_t> bytesOf(RssWork& work)
{
    return {reinterpret_cast<std::uint8_t*>(&work), sizeof work};
}

std::string channelKey(int number)
{
    return "Channel" + std::to_string(number);
}

// Only channels with both frequencies set carry a CCIR channel number.
void writeCcirNumbers(ProfileFile& file, std::span<const channel, kChannelCount> channels,
                      const CcirChannelNumbers& numbers)
{
    for (int number = 1; number <= kChannelCount; ++number) {
        const channel& ch = channels[static_cast<std::size_t>(channelIndex(number))];
        if (ch.txFrequency.get() != 0 && ch.rxFrequency.get() != 0)
            file.write(RssFile::kCcirSection, channelKey(number),
                       std::to_string(numbers[static_cast<std::size_t>(channelIndex(number))]));
    }
}

ProfileFile build(const FileInfo& info, const dbase& record, bool isb,
                  const CcirChannelNumbers* ccirNumbers, int channelCount, bool ccirFirst)
{
    RssWork work{};
    work.db = sanitised(record, channelCount);
    work.isb = isb ? 1 : 0;
    const ProgrammedFlags flags = ProgrammedFlags::of(work.db);

    // Built from nothing: what the file held before never survives a save.
    ProfileFile file;
    if (ccirNumbers != nullptr && ccirFirst)
        writeCcirNumbers(file, work.db.channels, *ccirNumbers);
    fileinfo::writeVersion(file);
    schema::save(file, RssFile::table(), bytesOf(work), flags.bytes, {.firstRow = 1});
    fileinfo::write(file, info);
    if (ccirNumbers != nullptr && !ccirFirst)
        writeCcirNumbers(file, work.db.channels, *ccirNumbers);
    return file;
}

} // namespace

RssFile::RssFile(std::filesystem::path path)
    : m_file(std::move(path)), m_readable(m_file.errorString().empty()),
      m_error(m_file.errorString())
{}

std::span<const schema::Row> RssFile::table()
{
    static const std::vector<Row> rows = buildTable();
    return rows;
}

std::string RssFile::content(const FileInfo& info, const dbase& record, bool isb,
                             const CcirChannelNumbers* ccirNumbers, int channelCount,
                             bool ccirFirst)
{
    return build(info, record, isb, ccirNumbers, channelCount, ccirFirst).content();
}

int RssFile::save(FileInfo& info, const dbase& record, bool isb,
                  const CcirChannelNumbers* ccirNumbers, int channelCount)
{
    ProfileFile file = build(info, record, isb, ccirNumbers, channelCount, false);
    if (!file.saveAs(m_file.path())) {
        m_error = file.errorString();
        return kWriteFailed;
    }
    m_file = std::move(file);
    m_readable = true;
    m_error.clear();
    info.modificationTime = fileModificationTime(m_file.path());
    return kOk;
}

bool RssFile::looksLikeRadioDatabase() const
{
    // The version and wide-information sections are shared with the ALE file.
    constexpr std::string_view kOwnSections[] = {
        "Channels", "Radio Options", "Groups Guard Channels", "ECN List", "SP List",
        "Options",  kCcirSection};
    return std::any_of(std::begin(kOwnSections), std::end(kOwnSections),
                       [this](std::string_view section) { return m_file.hasSection(section); });
}

int RssFile::load(FileInfo* info, dbase* record, bool* isb, bool checkVersion,
                  int channelCount) const
{
    if (!m_readable)
        return kReadFailed;
    if (checkVersion && !fileinfo::versionMatches(m_file))
        return kVersionMismatch;
    if (record != nullptr || isb != nullptr) {
        RssWork work{};
        schema::load(m_file, table(), bytesOf(work));
        sanitise(work.db, channelCount);
        if (record != nullptr)
            *record = work.db;
        if (isb != nullptr)
            *isb = work.isb == 1;
    }
    if (info != nullptr) {
        fileinfo::read(m_file, *info);
        info->modificationTime = fileModificationTime(m_file.path());
    }
    return kOk;
}

int RssFile::saveCcirChannelNumbers(std::span<const channel, kChannelCount> channels,
                                    const CcirChannelNumbers& numbers)
{
    m_file.removeSection(kCcirSection);
    writeCcirNumbers(m_file, channels, numbers);
    if (!m_file.flush()) {
        m_error = m_file.errorString();
        return 0;
    }
    m_error.clear();
    return 1;
}

bool RssFile::loadCcirChannelNumbers(CcirChannelNumbers& numbers) const
{
    // The original read these keys into a buffer of six.
    constexpr std::size_t kBufferSize = 6;
    bool found = false;
    for (int number = 1; number <= kChannelCount; ++number) {
        const std::string text = m_file.read(kCcirSection, channelKey(number), {}, kBufferSize);
        found = found || !text.empty();
        numbers[static_cast<std::size_t>(channelIndex(number))] =
            text.empty() ? 0 : static_cast<std::uint16_t>(schema::parseDecimal(text));
    }
    return found;
}

} // namespace koral
