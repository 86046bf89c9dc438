#include "aledb/AleFile.h"

#include "aledb/AleNormalizer.h"
#include "aledb/AlePresence.h"
#include "aledb/AleSlots.h"
#include "aledb/AleText.h"
#include "aledb/AleValueLists.h"
#include "profile/FileInfo.h"
#include "profile/ProfileFile.h"
#include "profile/Schema.h"
#include "radiodb/WideInformationRows.h"
#include "radiodb/dbase.h"

#include <cstring>
#include <string_view>

namespace koral {

namespace {

using schema::Field;
using schema::Row;
using schema::Type;
namespace v = alevalues;

template <typename T>
std::span<const std::uint8_t> bytesOf(const T& record)
{
    return {reinterpret_cast<const std::uint8_t*>(&record), sizeof record};
}

template <typename T>
std::span<std::uint8_t> bytesOf(T& record)
{
    return {reinterpret_cast<std::uint8_t*>(&record), sizeof record};
}

constexpr std::size_t kOptions = offsetof(ale_dbase, options);

// --- Options, directory and messages: straight from the ALE record ---
constexpr Row optionRow(const char* key, const char* defaultText, std::size_t field,
                        ValueList values)
{
    return Row{"Options", key, defaultText, schema::kAlways, Type::U8, kOptions + field, 1, 0,
               0,         1,   {},          values};
}

constexpr std::array kDatabaseRows{
    optionRow("PTT Timeout", "No Timeout", offsetof(ale_options, pttTimeout), v::kPttTimeout),
    optionRow("Multinet", "No", offsetof(ale_options, multinet), v::kNoYes),
    optionRow("Anycall", "Yes", offsetof(ale_options, anycall), v::kNoYes),
    optionRow("Min. LQA Score", "", offsetof(ale_options, minLqaScore), {}),
    optionRow("AMD message", "Yes", offsetof(ale_options, amdMessage), v::kNoYes),
    optionRow("External Alarm", "Yes", offsetof(ale_options, externalAlarm), v::kNoYes),
    optionRow("Alert", "Yes", offsetof(ale_options, alert), v::kNoYes),
    optionRow("Wildcard", "Yes", offsetof(ale_options, wildcard), v::kNoYes),
    optionRow("Quick PTT Call", "Yes", offsetof(ale_options, quickPttCall), v::kNoYes),
    optionRow("Auto Address", "Yes", offsetof(ale_options, autoAddress), v::kNoYes),
    optionRow("Accept Link Timeout", "1", offsetof(ale_options, acceptLinkTimeout),
              v::kAcceptLinkTimeout),
    optionRow("In link", "No", offsetof(ale_options, inLink), v::kNoYes),
    Row{"Directory", "Address No. ", "", presence::kDirectory, Type::Text,
        offsetof(ale_dbase, directory), kAleAddressSize, kAleDirectorySize, kAleAddressSize, 1},
    Row{"Messages", "Message No. ", "", presence::kMessages, Type::Text,
        offsetof(ale_dbase, messages), kAleMessageSize, kAleMessageCount, kAleMessageSize, 0},
};

// --- Automatic dials: saved as the texts they point at ---
struct AutoDialTexts
{
    AleAddress address;
    AleMessage message;
};
using AutoDialRecord = std::array<AutoDialTexts, kAleAutoDialCount>;

constexpr std::array kAutoDialFields{
    Field{Type::Text, offsetof(AutoDialTexts, address), kAleAddressSize, ""},
    Field{Type::Text, offsetof(AutoDialTexts, message), kAleMessageSize, ""},
};

constexpr std::array kAutoDialRows{
    Row{"Automatic Dials", "Auto Dial No. ", "", presence::kAutoDials, Type::Composite, 0, 1,
        kAleAutoDialCount, sizeof(AutoDialTexts), 0, kAutoDialFields},
};

// --- One "Net No. n" section per net: the net record, its members as texts and its global
// member group ---
struct NetRecord
{
    ale_net net;
    std::array<AleAddress, kAleMemberSlots> memberTexts;
    ale_global_member_group global;
};

namespace netflag {
constexpr int kNet = 0;
constexpr int kMembers = 1;
constexpr int kGlobalSlots = kMembers + kAleMemberSlots;
constexpr int kGlobalName = kGlobalSlots + kAleGlobalMemberSlots;
constexpr int kCount = kGlobalName + 1;
} // namespace netflag

constexpr Row netRow(const char* key, const char* defaultText, std::size_t field, ValueList values)
{
    return Row{nullptr, key, defaultText, netflag::kNet, Type::U8, field, 1, 0, 0, 1, {}, values};
}

constexpr std::array kNetRows{
    Row{nullptr, "Net Name", "", netflag::kNet, Type::Text, offsetof(ale_net, name),
        kAleAddressSize},
    Row{nullptr, "Self Address", "", netflag::kNet, Type::Text, offsetof(ale_net, selfAddress),
        kAleAddressSize},
    netRow("Scan_Rate", "2 Ch/Sec", offsetof(ale_net, scanRate), v::kScanRate),
    netRow("Tune Time", "No Tune Time", offsetof(ale_net, tuneTime), v::kTuneTime),
    netRow("Master/Slave", "Master", offsetof(ale_net, masterSlave), v::kMasterSlave),
    netRow("Silent", "No", offsetof(ale_net, silent), v::kSilent),
    netRow("Home Ack", "Yes", offsetof(ale_net, homeAck), v::kNoYes),
    netRow("Monitor Ack", "Yes", offsetof(ale_net, monitorAck), v::kNoYes),
    netRow("All Call", "Send and Receive", offsetof(ale_net, allCall), v::kAllCall),
    netRow("LQA Request", "Yes", offsetof(ale_net, lqaRequest), v::kNoYes),
    netRow("Sounding", "Manual", offsetof(ale_net, sounding), v::kSounding),
    // "No" is in no entry of the list, so a missing key reads as 0, "Off".
    netRow("Occupancy Check", "No", offsetof(ale_net, occupancyCheck), v::kOccupancyCheck),
    Row{nullptr, "All Call Channel", "65535", netflag::kNet, Type::U16,
        offsetof(ale_net, allCallChannel), 2},
    Row{nullptr, "Scanned Channels", "", netflag::kNet, Type::Bitmap,
        offsetof(ale_net, scannedChannels), kAleScanBits},
    Row{nullptr, "Member No. ", "", netflag::kMembers, Type::Text, offsetof(NetRecord, memberTexts),
        kAleAddressSize, kAleMemberSlots, kAleAddressSize, 1},
    // The global member rows stay last: they are dropped while the feature is not in force.
    Row{nullptr, "Global Member No. ", "255", netflag::kGlobalSlots, Type::U8,
        offsetof(NetRecord, global) + offsetof(ale_global_member_group, members), 1,
        kAleGlobalMemberSlots, 1, 1},
    Row{nullptr, "Global Members Name", "", netflag::kGlobalName, Type::Text,
        offsetof(NetRecord, global) + offsetof(ale_global_member_group, name), kAleAddressSize},
};
constexpr std::size_t kGlobalRowCount = 2;

std::span<const Row> netRows(bool globalMembers)
{
    return std::span<const Row>(kNetRows).first(kNetRows.size() -
                                                (globalMembers ? 0 : kGlobalRowCount));
}

std::string netSection(int netIndex)
{
    return "Net No. " + std::to_string(netIndex + 1);
}

std::string memberKey(int slot)
{
    return "Member No. " + std::to_string(slot + 1);
}

// --- Extra options: written last into "Options", so their "Multinet" wins ---
constexpr std::array kExtraOptionRows{
    Row{"Options",
        "Max Channel",
        "Auto",
        schema::kAlways,
        Type::U8,
        offsetof(AleExtraOptions, maxChannel),
        1,
        0,
        0,
        1,
        {},
        v::kMaxChannel},
    Row{"Options",
        "Multinet",
        "No",
        schema::kAlways,
        Type::U8,
        offsetof(AleExtraOptions, multinet),
        1,
        0,
        0,
        1,
        {},
        v::kNoYes},
    Row{"Options",
        "Vcds",
        "No",
        schema::kAlways,
        Type::U8,
        offsetof(AleExtraOptions, vcds),
        1,
        0,
        0,
        1,
        {},
        v::kNoYes},
    Row{"Options",
        "LinkAfterBidr",
        "No",
        schema::kAlways,
        Type::U8,
        offsetof(AleExtraOptions, linkAfterBidr),
        1,
        0,
        0,
        1,
        {},
        v::kNoYes},
};

// An older program kept the radio database in the same file; it never belongs in an .ale.
constexpr std::string_view kRadioDatabaseSection = "RSS";

void writeNets(ProfileFile& file, const ale_dbase& db, const ale_dbase_global_members& globals,
               const AlePresenceFlags& presenceFlags, bool globalMembers)
{
    for (int n = 0; n < kAleNetCount; ++n) {
        const std::string section = netSection(n);
        file.removeSection(section);
        if (!presenceFlags[presence::kNets + n])
            continue;
        NetRecord record{};
        std::array<std::uint8_t, netflag::kCount> flags{};
        record.net = db.nets[n];
        record.global = globals.nets[n];
        flags[netflag::kNet] = 1;
        for (int m = 0; m < kAleMemberSlots; ++m) {
            flags[netflag::kMembers + m] = presenceFlags[presence::kMembers + n * 16 + m];
            setFieldText(record.memberTexts[m], slotText(db, n, db.nets[n].members[m]));
        }
        for (int g = 0; g < kAleGlobalMemberSlots; ++g)
            flags[netflag::kGlobalSlots + g] = record.global.members[g] < kSlotEmpty;
        flags[netflag::kGlobalName] = !fieldText(record.global.name).empty();
        schema::save(file, netRows(globalMembers), bytesOf(record), flags, {0, section});
    }
}

void readNets(const ProfileFile& file, ale_dbase& db, ale_dbase_global_members& globals,
              bool globalMembers)
{
    for (int n = 0; n < kAleNetCount; ++n) {
        const std::string section = netSection(n);
        NetRecord record{};
        record.global.members.fill(kSlotEmpty);
        schema::load(file, netRows(globalMembers), bytesOf(record), {0, section});
        ale_net& net = db.nets[n];
        net = record.net;
        // A member key that is missing is an empty slot; a present text goes through the
        // self address and the directory (which was read before the nets).
        for (int m = 0; m < kAleMemberSlots; ++m)
            net.members[m] = file.contains(section, memberKey(m))
                                 ? slotFromText(db, n, fieldText(record.memberTexts[m]))
                                 : kSlotEmpty;
        globals.nets[n] = record.global;
    }
}

AutoDialRecord autoDialTexts(const ale_dbase& db)
{
    AutoDialRecord texts{};
    for (int i = 0; i < kAleAutoDialCount; ++i) {
        const ale_auto_dial& dial = db.autoDials[i];
        // A blank stands for "none", so that the line keeps both parts.
        setFieldText(texts[i].address, dial.address == kSlotEmpty ? std::string_view(" ")
                                                                  : slotText(db, 0, dial.address));
        setFieldText(texts[i].message, dial.message < kAleMessageCount
                                           ? fieldText(db.messages[dial.message])
                                           : std::string_view(" "));
    }
    return texts;
}

std::uint8_t messageIndexOf(const ale_dbase& db, std::string_view text)
{
    if (text.empty())
        return kSlotEmpty;
    for (int i = 0; i < kAleMessageCount; ++i)
        if (fieldText(db.messages[i]) == text)
            return static_cast<std::uint8_t>(i);
    return kSlotEmpty;
}

void readAutoDials(const ProfileFile& file, ale_dbase& db)
{
    AutoDialRecord texts{};
    schema::load(file, kAutoDialRows, bytesOf(texts));
    for (int i = 0; i < kAleAutoDialCount; ++i) {
        db.autoDials[i].address = directoryIndexOf(db, fieldText(texts[i].address));
        db.autoDials[i].message = messageIndexOf(db, fieldText(texts[i].message));
    }
}

} // namespace

void writeAleProfile(ProfileFile& file, const AleProgramme& programme, const dbase& radio,
                     const FileInfo* info, const AleSettings& settings)
{
    ale_dbase db = programme.database;
    normalizeAleDatabase(db, settings.maxChannel);
    const AlePresenceFlags flags = derivePresenceFlags(db);

    fileinfo::writeVersion(file);
    schema::save(file, kWideInformationRows, bytesOf(radio), {});
    schema::save(file, kDatabaseRows, bytesOf(db), flags);
    const AutoDialRecord dials = autoDialTexts(db);
    schema::save(file, kAutoDialRows, bytesOf(dials), flags);
    writeNets(file, db, programme.globalMembers, flags, settings.globalMembers);
    schema::save(file, kExtraOptionRows, bytesOf(programme.extraOptions), {});
    file.removeSection(kRadioDatabaseSection);
    fileinfo::write(file, info ? *info : FileInfo{});
}

int readAleProfile(const ProfileFile& file, AleProgramme* programme, dbase* radio, FileInfo* info,
                   const AleSettings& settings, bool skipVersionCheck)
{
    if (!skipVersionCheck && !fileinfo::versionMatches(file))
        return alefile::kVersionMismatch;
    if (programme) {
        AleProgramme loaded; // all zero, carried-through bytes included
        for (auto& group : loaded.globalMembers.nets)
            group.members.fill(kSlotEmpty);
        schema::load(file, kDatabaseRows, bytesOf(loaded.database));
        readAutoDials(file, loaded.database);
        readNets(file, loaded.database, loaded.globalMembers, settings.globalMembers);
        normalizeAleDatabase(loaded.database, settings.maxChannel);
        schema::load(file, kExtraOptionRows, bytesOf(loaded.extraOptions));
        *programme = loaded;
    }
    if (radio)
        schema::load(file, kWideInformationRows, bytesOf(*radio));
    if (info)
        fileinfo::read(file, *info);
    return alefile::kSuccess;
}

int saveAleFile(const std::filesystem::path& path, const AleProgramme& programme,
                const dbase& radio, FileInfo* info, const AleSettings& settings, std::string* error)
{
    // The file is written anew, so that entries removed since the last save do not survive.
    ProfileFile file;
    writeAleProfile(file, programme, radio, info, settings);
    if (!file.saveAs(path)) {
        if (error)
            *error = file.errorString();
        return alefile::kWriteFailed;
    }
    if (info)
        info->modificationTime = fileModificationTime(path);
    return alefile::kSuccess;
}

int loadAleFile(const std::filesystem::path& path, AleProgramme* programme, dbase* radio,
                FileInfo* info, const AleSettings& settings, bool skipVersionCheck,
                std::string* error)
{
    ProfileFile file;
    if (!file.load(path)) {
        if (error)
            *error = file.errorString();
        return alefile::kReadFailed;
    }
    const int result = readAleProfile(file, programme, radio, info, settings, skipVersionCheck);
    if (result == alefile::kSuccess && info)
        info->modificationTime = fileModificationTime(path);
    return result;
}

} // namespace koral
