#pragma once

// Member slots and automatic dials refer to the directory by index; 254 stands for the net's
// own self address and 255 for nothing. These convert between slot values and texts.

#include "aledb/ale_dbase.h"

#include <cstdint>
#include <string_view>

namespace koral {

// The text a slot of net netIndex stands for: the directory entry, the net's self address
// (254) or nothing.
std::string_view slotText(const ale_dbase& db, int netIndex, std::uint8_t slot);

// The slot value for a text in net netIndex: the self address first (so an empty text gives
// 254 while the net has no self address), then empty gives 255, then the first equal
// directory entry; no match gives 255. Comparisons are exact.
std::uint8_t slotFromText(const ale_dbase& db, int netIndex, std::string_view text);

// The index of the first directory entry equal to text, or 255 (also for an empty text).
std::uint8_t directoryIndexOf(const ale_dbase& db, std::string_view text);

} // namespace koral
