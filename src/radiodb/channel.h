#pragma once

#include "radiodb/Unaligned.h"

#include <cstddef>
#include <cstdint>

namespace koral {

// Frequency limits of a channel, in hertz; 0 means "no frequency" in either direction.
inline constexpr std::uint32_t kMinTxHz = 1'600'000;
inline constexpr std::uint32_t kMinRxHz = 100'000;
inline constexpr std::uint32_t kMaxHz = 30'000'000;

// One channel of the radio database, 13 bytes, exactly as the radio stores it. The enumerated
// bytes take the values of the lists in RadioValueLists.h. Value-initialise (channel{}) for
// an empty, all-zero channel.
struct channel
{
    std::uint8_t power;      // values::kPower
    std::uint8_t sideband;   // values::kSideband
    std::uint8_t bandwidth;  // values::kBandwidth
    U32 txFrequency;         // hertz
    U32 rxFrequency;         // hertz
    std::uint8_t agc;        // values::kAgc
    std::uint8_t modulation; // values::kModulation

    // A channel with either frequency set is in use; both zero is an empty channel.
    bool isProgrammed() const { return txFrequency.get() != 0 || rxFrequency.get() != 0; }
};

static_assert(sizeof(channel) == 13);
static_assert(alignof(channel) == 1);
static_assert(offsetof(channel, power) == 0);
static_assert(offsetof(channel, sideband) == 1);
static_assert(offsetof(channel, bandwidth) == 2);
static_assert(offsetof(channel, txFrequency) == 3);
static_assert(offsetof(channel, rxFrequency) == 7);
static_assert(offsetof(channel, agc) == 11);
static_assert(offsetof(channel, modulation) == 12);

} // namespace koral
