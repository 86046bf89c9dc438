#pragma once

#include "aledb/ale_dbase.h"
#include "aledb/ccir_dbase.h"
#include "radiodb/dbase.h"

namespace koral {

// The databases read from the radio and written back to it.
struct SessionRecords
{
    dbase radio{};
    ale_dbase ale{};
    ale_dbase_global_members globalMembers{};
    AleExtraOptions extraOptions{};
    ccir_dbase ccir{};
    channel_name channelNames{};
    // The radio's general settings as last read: what edits are compared with.
    dbase reference{};
};

} // namespace koral
