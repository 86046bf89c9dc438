#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace koral::radiosim {

// The radio's own memory: every database as the bytes the radio keeps, multi-byte numbers
// most significant byte first. The virtual radio never interprets a record as a host struct;
// it reads and writes the few fields it acts on through the helpers below.
struct RadioDatabases
{
    static constexpr std::size_t kRadioSize = 4304;
    static constexpr std::size_t kAleSize = 4377;
    static constexpr std::size_t kGlobalMembersSize = 720;
    static constexpr std::size_t kCcirSize = 475;
    static constexpr std::size_t kChannelNamesSize = 400;
    static constexpr std::size_t kExtraOptionsSize = 4;

    std::array<std::uint8_t, kRadioSize> radio{};
    std::array<std::uint8_t, kAleSize> ale{};
    std::array<std::uint8_t, kGlobalMembersSize> globalMembers{};
    std::array<std::uint8_t, kCcirSize> ccir{};
    std::array<std::uint8_t, kChannelNamesSize> channelNames{};
    std::array<std::uint8_t, kExtraOptionsSize> extraOptions{};

    bool operator==(const RadioDatabases&) const = default;
};

// Field positions the radio acts on (the record layouts are fixed by the radio's memory).
namespace layout {
inline constexpr std::size_t kSoftwareVersion = 0;
inline constexpr std::size_t kSerialNumber = 12;
inline constexpr std::size_t kRadioCode = 28;
inline constexpr std::size_t kHardwareVersion = 44;
inline constexpr std::size_t kHeadSoftwareVersion = 52;
inline constexpr std::size_t kHeadHardwareVersion = 60;
inline constexpr std::size_t kOptionSlots = 68;
inline constexpr std::size_t kOptionSlotSize = 17;
inline constexpr std::size_t kOptionSlotCount = 15;
inline constexpr std::size_t kEcnList = 323;
inline constexpr std::size_t kSpList = 1123;
inline constexpr std::size_t kLanguage = 1221;
inline constexpr std::size_t kParameterBlock = 1270;
inline constexpr std::size_t kParameterWord = 1330;
inline constexpr std::size_t kParameterByte = 1332;
inline constexpr std::size_t kGroups = 1383;
inline constexpr std::size_t kGroupSize = 61;
inline constexpr std::size_t kGroupCount = 5;
inline constexpr std::size_t kChannels = 1688;
inline constexpr std::size_t kChannelSize = 13;
inline constexpr std::size_t kChannelCount = 200;
inline constexpr std::size_t kRadioOptions = 4288;
inline constexpr std::size_t kAccessory = 4302;
inline constexpr std::size_t kTuner = 4303;

// Inside a channel record.
inline constexpr std::size_t kChannelTx = 3;
inline constexpr std::size_t kChannelRx = 7;
// Inside the radio options.
inline constexpr std::size_t kOptionPriority = 0;
inline constexpr std::size_t kOptionScanRate = 3;
inline constexpr std::size_t kOptionBaudIndex = 12;
inline constexpr std::size_t kOptionNoiseBlanker = 13;

inline constexpr std::size_t kNetSize = 91;
inline constexpr std::size_t kNetCount = 20;
inline constexpr std::size_t kNetSelfAddress = 16;
inline constexpr std::size_t kNetMembers = 32;
inline constexpr std::size_t kNetAllCall = 48;
inline constexpr std::size_t kNetAllCallChannel = 49;
inline constexpr std::size_t kNetScanRate = 55;
inline constexpr std::size_t kNetScannedChannels = 60;
inline constexpr std::size_t kAleOptions = 1820;
inline constexpr std::size_t kDirectory = 1832;
inline constexpr std::size_t kDirectorySize = 100;
inline constexpr std::size_t kAutoDials = 3432;
inline constexpr std::size_t kMessages = 3457;
inline constexpr std::size_t kMessageSize = 91;
inline constexpr std::size_t kAddressSize = 16;
inline constexpr std::size_t kChannelBitmapSize = 26;
} // namespace layout

std::uint16_t readU16(std::span<const std::uint8_t> bytes, std::size_t at);
std::uint32_t readU32(std::span<const std::uint8_t> bytes, std::size_t at);
void writeU16(std::span<std::uint8_t> bytes, std::size_t at, std::uint16_t value);
void writeU32(std::span<std::uint8_t> bytes, std::size_t at, std::uint32_t value);
// Copies text into a NUL-padded field of the given width (cut when longer).
void writeText(std::span<std::uint8_t> bytes, std::size_t at, std::size_t width,
               std::string_view text);
std::string_view readText(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t width);
// Bit n of a 201-bit channel set, most significant bit first in each byte.
bool channelBit(std::span<const std::uint8_t> bytes, std::size_t at, unsigned channel);
void setChannelBit(std::span<std::uint8_t> bytes, std::size_t at, unsigned channel);

// Channel c (1..200) of the radio database.
std::uint32_t channelTx(const RadioDatabases& db, unsigned channel);
std::uint32_t channelRx(const RadioDatabases& db, unsigned channel);
bool channelProgrammed(const RadioDatabases& db, unsigned channel);
// The 13 bytes of channel c, radio order.
std::span<std::uint8_t, layout::kChannelSize> channelRecord(RadioDatabases& db, unsigned channel);
std::span<const std::uint8_t, layout::kChannelSize> channelRecord(const RadioDatabases& db,
                                                                  unsigned channel);
bool groupProgrammed(const RadioDatabases& db, unsigned group);
bool groupHasChannel(const RadioDatabases& db, unsigned group, unsigned channel);
bool netConfigured(const RadioDatabases& db, unsigned net);
bool netHasChannel(const RadioDatabases& db, unsigned net, unsigned channel);
std::string_view netName(const RadioDatabases& db, unsigned net);
std::string_view netSelfAddress(const RadioDatabases& db, unsigned net);

} // namespace koral::radiosim
