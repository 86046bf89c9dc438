#pragma once

// What differs between two radio databases, one line per difference, named as the operator
// sees the field: "Channel 12 Rx. Freq.: 7.10000 -> 7.20000" (the channel grid's columns, the
// frequencies in MHz with five decimals), "Group B: +14 -15" (channels that joined, channels
// that left), "Radio Options Scan Rate: 2 Ch/Sec -> 3 Ch/Sec" (the rest as the .rss file
// names it). The file's comment and user name are no part of the radio and are not compared.

#include "radiodb/ChannelTables.h"
#include "radiodb/dbase.h"

#include <optional>
#include <string>
#include <vector>

namespace koral {

struct RadioContents
{
    dbase record{};
    bool isb = false;
    // Present when the database carries CCIR channel numbers.
    std::optional<CcirChannelNumbers> ccirNumbers;
};

// Empty when they are the same. Channels first, then the groups, then the other fields.
std::vector<std::string> radioDifferences(const RadioContents& before, const RadioContents& after);

// The parameter block is the one part of a radio database that no file holds and no window
// shows. A database without it (opened from a file: all zeros) takes the radio's, so that a
// write does not erase what the radio keeps there.
void keepRadioParameters(dbase& sent, const dbase& radio);

} // namespace koral
