#pragma once

// The radio database: everything the RSS panel edits, 4,304 bytes, exchanged with the radio
// library by address and addressed section by section in the radio's memory, so every offset
// and width below is part of a wire format. Multi-byte numbers are in host order here (the
// radio's memory holds them big-endian). Text fields are fixed-width and NUL-padded, and not
// NUL-terminated when full. Value-initialise (dbase{}) for an all-zero record.

#include "radiodb/ChannelNumbers.h"
#include "radiodb/Unaligned.h"
#include "radiodb/channel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace koral {

// Character sets of the text fields.
inline constexpr std::string_view kVersionChars = "0123456789.";
inline constexpr std::string_view kAlphanumericChars =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
inline constexpr std::string_view kEcnChars =
    " 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

inline constexpr int kOptionSlotCount = 15;
inline constexpr int kEcnCount = 50;
inline constexpr int kSpCount = 6;
inline constexpr int kGroupCount = 5;
inline constexpr int kParameterEntryCount = 10;
// A group's member bitmap has one bit per channel number 0..200 (bit 0 is never a channel).
inline constexpr int kGroupBitCount = 201;

// The option slots in record order; their names are also the keys of the .rss file.
enum class OptionSlot
{
    HighStabilityOscillator,
    DeleteLsb,
    NoiseBlanker,
    RemoteControl,
    SelCall,
    DeleteAle,
    DeleteData,
    AccessoryStopScan,
    AmateurFrequencyRestriction,
    MultiNetEnable,
    BroadBandFilterEnable, // the Radio Wide Information dialog calls it "Global ALE"
    ReadProgrammedMemory,
    VpOptionEnable,
    PpsOptionEnable,
    InputPasswordEnable,
};

inline constexpr std::array<const char*, kOptionSlotCount> kOptionSlotNames{
    "High Stability Oscillator",
    "Delete LSB",
    "Noise Blanker",
    "Remote Control",
    "SelCall",
    "Delete ALE",
    "Delete Data",
    "Accessory Stop Scan",
    "Amateure Ferq Restriction",
    "MultyNet Enable",
    "Broad Band Filter Enable",
    "Read Programmed Memory",
    "VP Option Enable",
    "PPS Option Enable",
    "Input Password Enable"};

// One installed option of the radio, 17 bytes.
struct OptionRecord
{
    std::array<char, 8> softwareVersion; // kVersionChars
    std::array<char, 8> hardwareVersion; // kVersionChars
    std::uint8_t status;                 // values::kOptionStatus

    bool enabled() const { return status == 1; }
};
static_assert(sizeof(OptionRecord) == 17);
static_assert(offsetof(OptionRecord, softwareVersion) == 0);
static_assert(offsetof(OptionRecord, hardwareVersion) == 8);
static_assert(offsetof(OptionRecord, status) == 16);

// One scan group, 61 bytes: a guard channel and the member channels as a bitmap, bit n for
// channel number n, most significant bit first within each byte.
struct Group
{
    U16 guardChannel; // channel number, kNoChannel for none
    std::array<std::uint8_t, 26> members;
    std::array<std::uint8_t, 33> reserved;

    bool isMember(int number) const;
    void setMember(int number, bool member);
    // A group is in use when any channel is a member, whatever its guard channel.
    bool isProgrammed() const;
};
static_assert(sizeof(Group) == 61);
static_assert(offsetof(Group, guardChannel) == 0);
static_assert(offsetof(Group, members) == 2);
static_assert(offsetof(Group, reserved) == 28);

// The radio parameters that no dialog names: the record carries them and the sanitiser bounds
// them (63 bytes).
struct ParameterBlock
{
    // Per entry: byte 0 in 0..60, byte 1 in 0..70, bytes 2..5 in 0..127.
    std::array<std::array<std::uint8_t, 6>, kParameterEntryCount> entries;
    U16 word;          // 0..4095
    std::uint8_t byte; // 0..127
};
static_assert(sizeof(ParameterBlock) == 63);
static_assert(offsetof(ParameterBlock, entries) == 0);
static_assert(offsetof(ParameterBlock, word) == 60);
static_assert(offsetof(ParameterBlock, byte) == 62);

// The radio options, 14 bytes.
struct RadioOptions
{
    U16 priorityChannel;                 // channel number 1..N
    std::uint8_t cwPttHold;              // values::kCwPttHold, units of 10 ms
    std::uint8_t scanRate;               // values::kScanRate, channels per second
    std::uint8_t dataPowerLevel;         // values::kPower
    std::uint8_t alertTone;              // values::kAlertTone
    std::uint8_t alternateDisplayTime;   // values::kAlternateDisplayTime, seconds
    std::uint8_t accessorySideTone;      // values::kNoYes
    std::uint8_t microphoneSideTone;     // values::kNoYes
    std::uint8_t beepAfterKeyboardPress; // values::kNoYes
    std::uint8_t beepAfterPttRelease;    // values::kNoYes
    std::uint8_t frequencyDisplay;       // values::kFrequencyDisplay
    std::uint8_t baudRate;               // values::kBaudRate
    std::uint8_t noiseBlanker;           // values::kNoYes
};
static_assert(sizeof(RadioOptions) == 14);
static_assert(offsetof(RadioOptions, priorityChannel) == 0);
static_assert(offsetof(RadioOptions, cwPttHold) == 2);
static_assert(offsetof(RadioOptions, scanRate) == 3);
static_assert(offsetof(RadioOptions, dataPowerLevel) == 4);
static_assert(offsetof(RadioOptions, alertTone) == 5);
static_assert(offsetof(RadioOptions, alternateDisplayTime) == 6);
static_assert(offsetof(RadioOptions, accessorySideTone) == 7);
static_assert(offsetof(RadioOptions, microphoneSideTone) == 8);
static_assert(offsetof(RadioOptions, beepAfterKeyboardPress) == 9);
static_assert(offsetof(RadioOptions, beepAfterPttRelease) == 10);
static_assert(offsetof(RadioOptions, frequencyDisplay) == 11);
static_assert(offsetof(RadioOptions, baudRate) == 12);
static_assert(offsetof(RadioOptions, noiseBlanker) == 13);

struct dbase
{
    std::array<char, 8> softwareVersion;                // kVersionChars
    std::array<char, 4> reserved1;                      // NUL-padded text of any characters
    std::array<char, 16> serialNumber;                  // kAlphanumericChars
    std::array<char, 16> radioCode;                     // kAlphanumericChars
    std::array<char, 8> hardwareVersion;                // kVersionChars
    std::array<char, 8> controlHeadSoftwareVersion;     // kVersionChars
    std::array<char, 8> controlHeadHardwareVersion;     // kVersionChars
    std::array<OptionRecord, kOptionSlotCount> options; // in OptionSlot order
    std::array<std::array<char, 16>, kEcnCount> ecn;    // kEcnChars
    std::array<std::array<char, 16>, kSpCount> sp;      // kAlphanumericChars
    std::array<std::uint8_t, 2> reserved2;
    std::uint8_t language;                  // values::kLanguage
    std::array<std::uint8_t, 48> reserved3; // always cleared by the sanitiser
    ParameterBlock parameters;
    std::array<std::uint8_t, 50> reserved4;
    std::array<Group, kGroupCount> groups;       // A to E
    std::array<channel, kChannelCount> channels; // channel number n at index n - 1
    RadioOptions radioOptions;
    std::uint8_t accessoryInstalled; // values::kAccessoryInstalled
    std::uint8_t tuner;              // values::kNoYes

    const OptionRecord& option(OptionSlot slot) const
    {
        return options[static_cast<std::size_t>(slot)];
    }
    OptionRecord& option(OptionSlot slot) { return options[static_cast<std::size_t>(slot)]; }
    // The channel of a number 1..200 (the caller checks the range).
    const channel& channelNo(int number) const
    {
        return channels[static_cast<std::size_t>(channelIndex(number))];
    }
    channel& channelNo(int number)
    {
        return channels[static_cast<std::size_t>(channelIndex(number))];
    }
};

static_assert(sizeof(dbase) == 4304);
static_assert(alignof(dbase) == 1);
static_assert(offsetof(dbase, softwareVersion) == 0);
static_assert(offsetof(dbase, reserved1) == 8);
static_assert(offsetof(dbase, serialNumber) == 12);
static_assert(offsetof(dbase, radioCode) == 28);
static_assert(offsetof(dbase, hardwareVersion) == 44);
static_assert(offsetof(dbase, controlHeadSoftwareVersion) == 52);
static_assert(offsetof(dbase, controlHeadHardwareVersion) == 60);
static_assert(offsetof(dbase, options) == 68);
static_assert(offsetof(dbase, ecn) == 323);
static_assert(offsetof(dbase, sp) == 1123);
static_assert(offsetof(dbase, reserved2) == 1219);
static_assert(offsetof(dbase, language) == 1221);
static_assert(offsetof(dbase, reserved3) == 1222);
static_assert(offsetof(dbase, parameters) == 1270);
static_assert(offsetof(dbase, parameters) + offsetof(ParameterBlock, word) == 1330);
static_assert(offsetof(dbase, parameters) + offsetof(ParameterBlock, byte) == 1332);
static_assert(offsetof(dbase, reserved4) == 1333);
static_assert(offsetof(dbase, groups) == 1383);
static_assert(offsetof(dbase, channels) == 1688);
static_assert(offsetof(dbase, radioOptions) == 4288);
static_assert(offsetof(dbase, accessoryInstalled) == 4302);
static_assert(offsetof(dbase, tuner) == 4303);

// The text of a fixed-width field: up to its first NUL, or the whole field when full.
template <std::size_t N>
std::string_view fieldText(const std::array<char, N>& field)
{
    std::string_view text(field.data(), N);
    return text.substr(0, text.find('\0'));
}

// Stores a text into a fixed-width field: at most N characters, the rest NUL.
template <std::size_t N>
void setFieldText(std::array<char, N>& field, std::string_view text)
{
    field.fill('\0');
    text.copy(field.data(), N);
}

} // namespace koral
