#pragma once

#include "radiodb/dbase.h"

#include <array>
#include <cstdint>

namespace koral {

// Which entries of a radio database are in use: one byte per entry, 1 when it is. The .rss
// save writes an entry only when its flag is set. Byte layout (262 bytes):
//   0          the singletons (always 1)
//   1..50      ECN entries 1..50 (non-empty text)
//   51..56     SP entries 1..6 (non-empty text)
//   57..61     groups A..E (any member bit set)
//   62..261    channels 1..200 (either frequency non-zero)
struct ProgrammedFlags
{
    static constexpr int kSingletons = 0;
    static constexpr int kFirstEcn = 1;
    static constexpr int kFirstSp = kFirstEcn + kEcnCount;
    static constexpr int kFirstGroup = kFirstSp + kSpCount;
    static constexpr int kFirstChannel = kFirstGroup + kGroupCount;
    static constexpr int kSize = kFirstChannel + kChannelCount;

    std::array<std::uint8_t, kSize> bytes;

    static ProgrammedFlags of(const dbase& db);
};
static_assert(sizeof(ProgrammedFlags) == 262);
static_assert(ProgrammedFlags::kFirstSp == 51 && ProgrammedFlags::kFirstGroup == 57 &&
              ProgrammedFlags::kFirstChannel == 62);

} // namespace koral
