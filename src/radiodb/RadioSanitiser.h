#pragma once

#include "radiodb/ChannelNumbers.h"
#include "radiodb/dbase.h"

#include <span>
#include <string_view>

namespace koral {

// Brings a radio database into the form the radio accepts, silently: texts cleaned to their
// character sets, channels above the radio's channel count emptied, group members and guards
// limited to real channels, every enumerated byte and number replaced by its default when out
// of range, and the effects of the "Delete LSB" and "Noise Blanker" options applied. It runs on
// a copy before every save and on both sides of a comparison. `channelCount` is the number of
// channels that the connected radio supports.
void sanitise(dbase& db, int channelCount = kChannelCount);
dbase sanitised(const dbase& db, int channelCount = kChannelCount);

// Whether two databases differ once both are sanitised: 0 when equal, otherwise -1 or 1 by the
// first differing byte (as memcmp).
int compare(const dbase& a, const dbase& b, int channelCount = kChannelCount);

// Keeps the characters of a fixed-width text field that are in `allowed`, in order, and pads the
// rest with NUL. The text ends at the field's first NUL.
void cleanText(std::span<char> field, std::string_view allowed);

} // namespace koral
