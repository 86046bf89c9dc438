#pragma once

// The radio configuration check: every reference to a channel that is not programmed, from the
// radio database (priority channel, group guards and members) and from the ALE nets (All Call
// and scanned channels), one line each, in a fixed order.

#include "radiodb/ChannelNumbers.h"
#include "radiodb/dbase.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace koral {

// The channel references of one ALE net, as the check needs them.
struct AleNetChannels
{
    std::uint16_t allCallChannel = kNoChannel;
    // One flag per channel number 1..200 (element n - 1); non-zero: scanned by the net.
    std::array<std::uint8_t, kChannelCount> scanned{};
};

struct RssCheckResult
{
    std::vector<std::string> lines;
    // Any reported problem makes the configuration invalid.
    bool configurationValid() const { return lines.empty(); }
};

// `nets` holds the ALE nets in order (net n at index n - 1); empty when there is no ALE
// programme.
RssCheckResult checkRadioConfiguration(const dbase& db, std::span<const AleNetChannels> nets = {});

// What a line of the check names, so that a reader can go there: the channel (every line
// names one) and the scan group, when the line is about a group.
struct CheckLineTarget
{
    int channel = 0;
    char group = 0; // 'A'..'E', or 0
};
CheckLineTarget checkLineTarget(std::string_view line);

} // namespace koral
