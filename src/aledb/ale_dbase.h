#pragma once

// The radio's ALE programme as the radio library exchanges it: three packed records of bytes.
// Every field is a byte or a byte array, so the structures have no padding and alignment 1;
// the one 16-bit number sits at an odd offset and is copied in and out by value.

#include "radiodb/Unaligned.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace koral {

inline constexpr int kAleNetCount = 20;
inline constexpr int kAleMemberSlots = 16;
inline constexpr int kAleDirectorySize = 100;
inline constexpr int kAleMessageCount = 10;
inline constexpr int kAleAutoDialCount = 10;
inline constexpr int kAleGlobalMemberSlots = 20;
inline constexpr std::size_t kAleAddressSize = 16; // 15 characters and the terminator
inline constexpr std::size_t kAleMessageSize = 91; // 90 characters and the terminator
inline constexpr int kAleScanBits = 201;           // channel numbers 0..200, bit 0 never used

// Slot values that refer to the directory.
inline constexpr std::uint8_t kSlotSelfAddress = 254;
inline constexpr std::uint8_t kSlotEmpty = 255;
inline constexpr std::uint16_t kNoAllCallChannel = 0xFFFF;
inline constexpr std::uint8_t kGlobalPriorityBit = 0x80;

using AleAddress = std::array<char, kAleAddressSize>;
using AleMessage = std::array<char, kAleMessageSize>;

struct ale_net
{
    AleAddress name;
    AleAddress selfAddress;
    std::array<std::uint8_t, kAleMemberSlots> members; // directory index, 254 self, 255 empty
    std::uint8_t allCall;                              // 0 none, 1 send, 2 receive, 3 both
    U16 allCallChannel;                                // channel number, 0xFFFF none
    std::uint8_t tuneTime;                             // seconds, 0 = no tune time
    std::uint8_t silent;                               // inverted: 0 silent, 1 not silent
    std::uint8_t homeAck;
    std::uint8_t monitorAck;
    std::uint8_t scanRate;    // channels per second
    std::uint8_t masterSlave; // 0 master, 1 slave
    std::uint8_t lqaRequest;
    std::uint8_t sounding;                        // minutes, 0 = manual
    std::uint8_t occupancyCheck;                  // hundreds of milliseconds, 0 = off
    std::array<std::uint8_t, 26> scannedChannels; // bit (7 - c % 8) of byte c / 8
    std::array<std::uint8_t, 5> reserved;         // kept as the radio gave it

    bool isScanned(int channel) const;
    void setScanned(int channel, bool on);
    bool hasScannedChannel() const; // any byte of the set non-zero
};

struct ale_options
{
    std::uint8_t pttTimeout; // minutes, 0 = no timeout
    std::uint8_t alert;
    std::uint8_t externalAlarm;
    std::uint8_t autoAddress;
    std::uint8_t quickPttCall;
    std::uint8_t minLqaScore;
    std::uint8_t acceptLinkTimeout;
    std::uint8_t multinet;
    std::uint8_t anycall;
    std::uint8_t wildcard;
    std::uint8_t amdMessage;
    std::uint8_t inLink;
};

struct ale_auto_dial
{
    std::uint8_t address; // directory index 0..99 (or 254), 255 none
    std::uint8_t message; // message index 0..9, 255 none
};

struct ale_dbase
{
    std::array<ale_net, kAleNetCount> nets;
    ale_options options;
    std::array<AleAddress, kAleDirectorySize> directory;
    std::array<ale_auto_dial, kAleAutoDialCount> autoDials;
    std::array<std::uint8_t, 5> reserved1;
    std::array<AleMessage, kAleMessageCount> messages;
    std::array<std::uint8_t, 10> reserved2;
};

struct ale_global_member_group
{
    AleAddress name;
    std::array<std::uint8_t, kAleGlobalMemberSlots> members; // member number | priority bit, 255
};

struct ale_dbase_global_members
{
    std::array<ale_global_member_group, kAleNetCount> nets;
};

struct AleExtraOptions
{
    std::uint8_t multinet;
    std::uint8_t maxChannel; // 0 = automatic
    std::uint8_t linkAfterBidr;
    std::uint8_t vcds;
};

static_assert(sizeof(ale_net) == 91 && alignof(ale_net) == 1);
static_assert(offsetof(ale_net, name) == 0);
static_assert(offsetof(ale_net, selfAddress) == 16);
static_assert(offsetof(ale_net, members) == 32);
static_assert(offsetof(ale_net, allCall) == 48);
static_assert(offsetof(ale_net, allCallChannel) == 49);
static_assert(offsetof(ale_net, tuneTime) == 51);
static_assert(offsetof(ale_net, silent) == 52);
static_assert(offsetof(ale_net, homeAck) == 53);
static_assert(offsetof(ale_net, monitorAck) == 54);
static_assert(offsetof(ale_net, scanRate) == 55);
static_assert(offsetof(ale_net, masterSlave) == 56);
static_assert(offsetof(ale_net, lqaRequest) == 57);
static_assert(offsetof(ale_net, sounding) == 58);
static_assert(offsetof(ale_net, occupancyCheck) == 59);
static_assert(offsetof(ale_net, scannedChannels) == 60);
static_assert(offsetof(ale_net, reserved) == 86);

static_assert(sizeof(ale_options) == 12);
static_assert(offsetof(ale_options, pttTimeout) == 0);
static_assert(offsetof(ale_options, alert) == 1);
static_assert(offsetof(ale_options, externalAlarm) == 2);
static_assert(offsetof(ale_options, autoAddress) == 3);
static_assert(offsetof(ale_options, quickPttCall) == 4);
static_assert(offsetof(ale_options, minLqaScore) == 5);
static_assert(offsetof(ale_options, acceptLinkTimeout) == 6);
static_assert(offsetof(ale_options, multinet) == 7);
static_assert(offsetof(ale_options, anycall) == 8);
static_assert(offsetof(ale_options, wildcard) == 9);
static_assert(offsetof(ale_options, amdMessage) == 10);
static_assert(offsetof(ale_options, inLink) == 11);

static_assert(sizeof(ale_auto_dial) == 2);
static_assert(offsetof(ale_auto_dial, address) == 0);
static_assert(offsetof(ale_auto_dial, message) == 1);

static_assert(sizeof(ale_dbase) == 4377 && alignof(ale_dbase) == 1);
static_assert(offsetof(ale_dbase, nets) == 0);
static_assert(offsetof(ale_dbase, options) == 1820);
static_assert(offsetof(ale_dbase, directory) == 1832);
static_assert(offsetof(ale_dbase, autoDials) == 3432);
static_assert(offsetof(ale_dbase, reserved1) == 3452);
static_assert(offsetof(ale_dbase, messages) == 3457);
static_assert(offsetof(ale_dbase, reserved2) == 4367);

static_assert(sizeof(ale_global_member_group) == 36);
static_assert(offsetof(ale_global_member_group, name) == 0);
static_assert(offsetof(ale_global_member_group, members) == 16);
static_assert(sizeof(ale_dbase_global_members) == 720);

static_assert(sizeof(AleExtraOptions) == 4);
static_assert(offsetof(AleExtraOptions, multinet) == 0);
static_assert(offsetof(AleExtraOptions, maxChannel) == 1);
static_assert(offsetof(AleExtraOptions, linkAfterBidr) == 2);
static_assert(offsetof(AleExtraOptions, vcds) == 3);

// The three records the panel edits and the .ale file holds, kept together.
struct AleProgramme
{
    ale_dbase database{};
    ale_dbase_global_members globalMembers{};
    AleExtraOptions extraOptions{};
};

// Program-wide values that govern the ALE rules; the caller owns them.
struct AleSettings
{
    bool globalMembers = true; // the radio supports global member groups
    int maxChannel = 200;      // highest channel number in force
};

} // namespace koral
