#pragma once

#include "aledb/ale_dbase.h"
#include "koralapi/RadioRecords.h"
#include "radiodb/dbase.h"

#include <array>
#include <cstdint>

namespace koral {

// The databases read from the radio and written back to it. The CCIR record and the CCIR
// channel numbers are kept as the radio's bytes (numbers most significant byte first).
struct SessionRecords
{
    dbase radio{};
    ale_dbase ale{};
    ale_dbase_global_members globalMembers{};
    AleExtraOptions extraOptions{};
    std::array<std::uint8_t, record::kCcirDbaseSize> ccir{};
    std::array<std::uint8_t, record::kChannelNameSize> channelNames{};
    // The radio's general settings as last read: what edits are compared with.
    dbase reference{};
};

} // namespace koral
