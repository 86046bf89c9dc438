#pragma once

#include <cstdint>

namespace koral {

// The radio database always holds this many channel records; a radio model may support fewer
// (the channel count N that the sanitiser and the checks take as a parameter).
inline constexpr int kChannelCount = 200;

// A guard or All Call channel field holding this value refers to no channel.
inline constexpr std::uint16_t kNoChannel = 65535;

// Channels are numbered from 1 in the interface and in files; records index them from 0.
constexpr int channelIndex(int number)
{
    return number - 1;
}
constexpr int channelNumber(int index)
{
    return index + 1;
}
constexpr bool isChannelNumber(int number, int channelCount = kChannelCount)
{
    return number >= 1 && number <= channelCount;
}

} // namespace koral
