#pragma once

// The CCIR selective-call database as the radio library exchanges it: 475 packed bytes whose
// numbers are held most significant byte first (the radio's order) on every host. Beside it,
// the CCIR channel number of each radio channel (`channel_name`, 400 bytes, same order).

#include "radiodb/ChannelTables.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace koral {

// A number stored most significant byte first, as bytes (no alignment, no host order).
template <typename T>
struct BigEndian
{
    static_assert(std::is_unsigned_v<T>);
    std::array<std::uint8_t, sizeof(T)> bytes{};

    T get() const
    {
        T value = 0;
        for (std::uint8_t byte : bytes)
            value = static_cast<T>((value << 8) | byte);
        return value;
    }
    void set(T value)
    {
        for (std::size_t i = sizeof(T); i-- > 0;) {
            bytes[i] = static_cast<std::uint8_t>(value & 0xFF);
            value = static_cast<T>(value >> 8);
        }
    }
};

inline constexpr int kCcirDirectorySize = 100;
inline constexpr std::size_t kCcirMessageSize = 33; // 32 characters and the terminator

using CcirMessage = std::array<char, kCcirMessageSize>;

struct ccir_dbase
{
    BigEndian<std::uint16_t> selfId4;                                   // the 4-digit self identity
    BigEndian<std::uint32_t> selfId6;                                   // the 6-digit self identity
    std::array<BigEndian<std::uint32_t>, kCcirDirectorySize> directory; // 0 = empty entry
    CcirMessage message1;                                               // NUL-terminated
    CcirMessage message2;
    std::uint8_t preamble;
    std::uint8_t beacon;
    std::uint8_t alarm;
};

static_assert(sizeof(ccir_dbase) == 475 && alignof(ccir_dbase) == 1);
static_assert(offsetof(ccir_dbase, selfId4) == 0);
static_assert(offsetof(ccir_dbase, selfId6) == 2);
static_assert(offsetof(ccir_dbase, directory) == 6);
static_assert(offsetof(ccir_dbase, message1) == 406);
static_assert(offsetof(ccir_dbase, message2) == 439);
static_assert(offsetof(ccir_dbase, preamble) == 472);
static_assert(offsetof(ccir_dbase, beacon) == 473);
static_assert(offsetof(ccir_dbase, alarm) == 474);

// The CCIR channel numbers as the radio holds them: element c - 1 for radio channel c, most
// significant byte first; 0 = none.
struct channel_name
{
    std::array<BigEndian<std::uint16_t>, kChannelCount> numbers;
};
static_assert(sizeof(channel_name) == 400 && alignof(channel_name) == 1);

// Between the radio's order and the host-order table the RSS document and the .rss file use.
channel_name toChannelName(const CcirChannelNumbers& numbers);
CcirChannelNumbers fromChannelName(const channel_name& record);

// Where the program's CCIR data came from. One object for the whole program, owned by the
// caller (the document or the session) and passed to whatever reads or loads CCIR data.
struct CcirState
{
    // A .ccr file was loaded (CcirFile::load sets it).
    bool dataFromFile = false;
    // The CCIR channel numbers take part (shown, saved with the .rss file).
    bool channelNumbersPresent = false;

    // After the .rss file's channel numbers were read (RssFile::loadCcirChannelNumbers):
    // unless the CCIR data came from a file, they are present exactly when any was found.
    void channelNumbersLoaded(bool anyFound)
    {
        if (!dataFromFile)
            channelNumbersPresent = anyFound;
    }
};

} // namespace koral
