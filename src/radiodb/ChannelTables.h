#pragma once

#include "radiodb/ChannelNumbers.h"
#include "radiodb/channel.h"

#include <array>
#include <cstdint>

namespace koral {

// The 200 channels of a radio database, channel n at index n - 1.
using ChannelTable = std::array<channel, kChannelCount>;
// The CCIR channel number of each channel, host order, element n - 1 for channel n; 0 = none.
using CcirChannelNumbers = std::array<std::uint16_t, kChannelCount>;

} // namespace koral
