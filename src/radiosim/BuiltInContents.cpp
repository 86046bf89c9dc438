#include "radiosim/BuiltInContents.h"

#include <initializer_list>
#include <string_view>

namespace koral::radiosim {

namespace {

using namespace layout;

struct ChannelPlan
{
    std::uint32_t txKhz;
    std::uint32_t rxKhz;
    std::uint8_t power;      // 2 low .. 5 max
    std::uint8_t bandwidth;  // 0 "2700", 4 "3000", 3 "CW"
    std::uint8_t agc;        // 0 slow, 1 fast
    std::uint8_t modulation; // 0 SSB, 2 AME
};

// Channels 1..40. Most are simplex; a few are duplex pairs, one listens only (Tx 0).
constexpr ChannelPlan kChannelPlan[] = {
    {2182, 2182, 5, 0, 0, 0},   {2638, 2638, 5, 0, 0, 0},   {2738, 2738, 4, 0, 0, 0},
    {3023, 3023, 5, 0, 0, 0},   {3120, 3120, 4, 0, 1, 0},   {3380, 3380, 4, 0, 0, 0},
    {4125, 4125, 5, 0, 0, 0},   {4146, 4146, 4, 0, 0, 0},   {4417, 4125, 5, 0, 0, 0},
    {5371, 5371, 3, 0, 0, 0},   {5680, 5680, 5, 0, 0, 0},   {5815, 5815, 4, 4, 0, 0},
    {6215, 6215, 5, 0, 0, 0},   {6224, 6224, 4, 0, 1, 0},   {6516, 6215, 5, 0, 0, 0},
    {6890, 6890, 4, 4, 0, 0},   {7055, 7055, 3, 0, 0, 0},   {7620, 7620, 4, 0, 0, 0},
    {8291, 8291, 5, 0, 0, 0},   {8297, 8297, 4, 0, 1, 0},   {8808, 8291, 5, 0, 0, 0},
    {9025, 9025, 4, 4, 0, 0},   {10150, 10150, 3, 3, 1, 0}, {11175, 11175, 5, 0, 0, 0},
    {12290, 12290, 5, 0, 0, 0}, {12359, 12359, 4, 0, 0, 0}, {13200, 13200, 4, 4, 0, 0},
    {14346, 14346, 4, 0, 0, 0}, {16420, 16420, 5, 0, 0, 0}, {16528, 16528, 4, 0, 1, 0},
    {18106, 18106, 4, 0, 0, 0}, {19650, 19650, 4, 4, 0, 0}, {20890, 20890, 3, 0, 0, 0},
    {22060, 22060, 5, 0, 0, 0}, {22159, 22159, 4, 0, 0, 0}, {23350, 23350, 4, 0, 0, 0},
    {24950, 24950, 3, 0, 0, 0}, {25350, 25350, 4, 4, 0, 2}, {27065, 27065, 2, 0, 1, 0},
    {0, 15000, 2, 0, 0, 2},
};
constexpr unsigned kProgrammedChannels = std::size(kChannelPlan);

struct GroupPlan
{
    std::uint16_t guard;
    std::initializer_list<unsigned> channels;
};

struct NetPlan
{
    std::string_view name;
    std::string_view self;
    std::initializer_list<std::uint8_t> members; // directory indices, 254 = own address
    std::uint8_t allCall;
    std::uint16_t allCallChannel;
    std::uint8_t scanRate;
    std::uint8_t sounding;
    std::initializer_list<unsigned> channels;
};

constexpr std::string_view kDirectoryPlan[] = {
    "STN1",  "STN2",    "STN3",    "MOBILE4", "HQ",    "RELAY5",  "SHIP12",
    "CAMP3", "PATROL1", "PATROL2", "BASE9",   "DEPOT", "ANCHOR2", "FIELD8",
};

constexpr std::string_view kMessagePlan[] = {
    "QRV",
    "RETURN TO BASE",
    "CHECK IN AT 1800",
    "RELAY TRAFFIC FOR HQ",
    "ALL STATIONS QSY",
    "WEATHER REPORT FOLLOWS",
};

void writeRadioHead(RadioDatabases& db)
{
    auto r = std::span(db.radio);
    writeText(r, kSoftwareVersion, 8, "03.100");
    writeText(r, kSerialNumber, 16, "KR2E00417");
    writeText(r, kRadioCode, 16, "A7F3K9");
    writeText(r, kHardwareVersion, 8, "02.10");
    writeText(r, kHeadSoftwareVersion, 8, "01.40");
    writeText(r, kHeadHardwareVersion, 8, "01.00");

    // Option slots in their fixed order; which the radio has enabled.
    constexpr std::uint8_t kEnabled[kOptionSlotCount] = {1, 0, 1, 1, 0, 0, 0, 1,
                                                         0, 1, 1, 1, 0, 0, 0};
    for (std::size_t slot = 0; slot < kOptionSlotCount; ++slot) {
        const std::size_t at = kOptionSlots + slot * kOptionSlotSize;
        writeText(r, at, 8, kEnabled[slot] ? "01.20" : "");
        writeText(r, at + 8, 8, kEnabled[slot] ? "01.00" : "");
        r[at + 16] = kEnabled[slot];
    }
    constexpr std::string_view kEcn[] = {"ECN 1045", "ECN 1102", "ECN 1187", "ECN 1203"};
    for (std::size_t i = 0; i < std::size(kEcn); ++i) {
        writeText(r, kEcnList + 16 * i, 16, kEcn[i]);
    }
    writeText(r, kSpList, 16, "SP2001");
    writeText(r, kSpList + 16, 16, "SP2014");
    r[kLanguage] = 0;

    for (std::size_t entry = 0; entry < 10; ++entry) {
        const std::size_t at = kParameterBlock + 6 * entry;
        r[at] = static_cast<std::uint8_t>(28 + entry);
        r[at + 1] = 35;
        for (std::size_t i = 2; i < 6; ++i) {
            r[at + i] = static_cast<std::uint8_t>(60 + entry + i);
        }
    }
    writeU16(r, kParameterWord, 2047);
    r[kParameterByte] = 63;
}

void writeChannels(RadioDatabases& db)
{
    for (unsigned c = 1; c <= kProgrammedChannels; ++c) {
        const ChannelPlan& plan = kChannelPlan[c - 1];
        auto rec = channelRecord(db, c);
        rec[0] = plan.power;
        rec[1] = 1; // USB
        rec[2] = plan.bandwidth;
        writeU32(rec, kChannelTx, plan.txKhz * 1000);
        writeU32(rec, kChannelRx, plan.rxKhz * 1000);
        rec[11] = plan.agc;
        rec[12] = plan.modulation;
    }
    // Empty channels still carry valid settings, as a radio's erased memory does.
    for (unsigned c = kProgrammedChannels + 1; c <= kChannelCount; ++c) {
        auto rec = channelRecord(db, c);
        rec[0] = 5;
        rec[1] = 1;
    }
}

void writeGroups(RadioDatabases& db)
{
    const GroupPlan groups[kGroupCount] = {
        {1, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
        {11, {11, 12, 13, 14, 15, 16, 17, 18, 19, 20}},
        {65535, {21, 22, 23, 24, 25, 26, 27, 28, 29, 30}},
        {35, {31, 32, 33, 34, 35, 36, 37, 38, 39}},
        {65535, {1, 7, 13, 19, 25, 31}},
    };
    for (unsigned g = 0; g < kGroupCount; ++g) {
        const std::size_t at = kGroups + g * kGroupSize;
        writeU16(db.radio, at, groups[g].guard);
        for (unsigned c : groups[g].channels) {
            setChannelBit(db.radio, at + 2, c);
        }
    }
}

void writeRadioOptions(RadioDatabases& db)
{
    constexpr std::uint8_t kOptions[14] = {0, 1, 50, 2, 5, 0, 5, 0, 0, 1, 1, 1, 3, 1};
    std::copy(std::begin(kOptions), std::end(kOptions), db.radio.begin() + kRadioOptions);
    db.radio[kAccessory] = 0;
    db.radio[kTuner] = 1;
}

void writeNets(RadioDatabases& db)
{
    const NetPlan nets[] = {
        {"NETALPHA", "BASE01", {0, 1, 2, 3, 254}, 3, 2, 2, 60, {1, 4, 7, 13, 19, 25, 29}},
        {"NETBRAVO", "BASE02", {4, 5, 6}, 1, 0xFFFF, 5, 0, {2, 8, 14, 20, 26}},
        {"HQNET", "HQ1", {4, 10, 11, 254}, 3, 11, 2, 120, {3, 9, 11, 15, 21, 24, 28, 31}},
        {"MARNET", "SHIP7", {6, 12, 13}, 2, 0xFFFF, 2, 30, {5, 12, 18, 22, 27}},
    };
    for (unsigned n = 0; n < kNetCount; ++n) {
        auto net = std::span(db.ale).subspan(n * kNetSize, kNetSize);
        std::fill(net.begin() + kNetMembers, net.begin() + kNetMembers + 16, std::uint8_t{255});
        writeU16(net, kNetAllCallChannel, 0xFFFF);
        net[51] = 0; // tune time
        net[52] = 1; // not silent
        net[53] = 1; // home ack
        net[54] = 1; // monitor ack
        net[55] = 2; // scan rate
        net[56] = 0; // master
        net[57] = 1; // LQA request
        net[58] = 0; // manual sounding
        net[59] = 0; // occupancy check off
        if (n >= std::size(nets)) {
            continue;
        }
        const NetPlan& plan = nets[n];
        writeText(net, 0, kAddressSize, plan.name);
        writeText(net, kNetSelfAddress, kAddressSize, plan.self);
        std::size_t slot = kNetMembers;
        for (std::uint8_t member : plan.members) {
            net[slot++] = member;
        }
        net[kNetAllCall] = plan.allCall;
        writeU16(net, kNetAllCallChannel, plan.allCallChannel);
        net[51] = 4;
        net[55] = plan.scanRate;
        net[58] = plan.sounding;
        net[59] = n == 2 ? 10 : 0;
        for (unsigned c : plan.channels) {
            setChannelBit(net, kNetScannedChannels, c);
        }
    }
}

void writeAleRest(RadioDatabases& db)
{
    auto a = std::span(db.ale);
    constexpr std::uint8_t kAleOptionBytes[12] = {5, 1, 0, 1, 1, 40, 1, 0, 1, 1, 1, 0};
    std::copy(std::begin(kAleOptionBytes), std::end(kAleOptionBytes), a.begin() + kAleOptions);
    for (std::size_t i = 0; i < std::size(kDirectoryPlan); ++i) {
        writeText(a, kDirectory + i * kAddressSize, kAddressSize, kDirectoryPlan[i]);
    }
    std::fill(a.begin() + kAutoDials, a.begin() + kAutoDials + 20, std::uint8_t{255});
    constexpr std::uint8_t kDials[][2] = {{4, 0}, {0, 2}, {6, 255}};
    for (std::size_t i = 0; i < std::size(kDials); ++i) {
        a[kAutoDials + 2 * i] = kDials[i][0];
        a[kAutoDials + 2 * i + 1] = kDials[i][1];
    }
    for (std::size_t i = 0; i < std::size(kMessagePlan); ++i) {
        writeText(a, kMessages + i * kMessageSize, kMessageSize, kMessagePlan[i]);
    }

    // Global members: one group for the first two nets.
    std::fill(db.globalMembers.begin(), db.globalMembers.end(), std::uint8_t{255});
    for (std::size_t n = 0; n < kNetCount; ++n) {
        writeText(db.globalMembers, n * 36, 16, "");
    }
    writeText(db.globalMembers, 0, 16, "FIELDTEAM");
    db.globalMembers[16] = 0;
    db.globalMembers[17] = 1;
    db.globalMembers[18] = 7;
    writeText(db.globalMembers, 36, 16, "COASTAL");
    db.globalMembers[36 + 16] = 6;
    db.globalMembers[36 + 17] = 12;

    db.extraOptions = {1, 0, 1, 0};
}

void writeCcir(RadioDatabases& db)
{
    auto c = std::span(db.ccir);
    writeU16(c, 0, 4417);
    writeU32(c, 2, 441700);
    constexpr std::uint32_t kIds[] = {1201, 1202, 1310, 2250, 441801, 552900};
    for (std::size_t i = 0; i < std::size(kIds); ++i) {
        writeU32(c, 6 + 4 * i, kIds[i]);
    }
    writeText(c, 406, 33, "CALL BASE ON CH 4");
    writeText(c, 439, 33, "ALL OK");
    c[472] = 6; // preamble
    c[473] = 0; // beacon
    c[474] = 1; // alarm
    for (unsigned ch = 1; ch <= kProgrammedChannels; ++ch) {
        writeU16(db.channelNames, 2 * (ch - 1), static_cast<std::uint16_t>(100 + ch));
    }
}

} // namespace

RadioDatabases builtInDatabases()
{
    RadioDatabases db;
    writeRadioHead(db);
    writeChannels(db);
    writeGroups(db);
    writeRadioOptions(db);
    writeNets(db);
    writeAleRest(db);
    writeCcir(db);
    return db;
}

} // namespace koral::radiosim
