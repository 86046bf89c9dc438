#pragma once

#include "aledb/ale_dbase.h"
#include "aledb/ccir_dbase.h"
#include "radiodb/dbase.h"

namespace koral {

// The databases read from the radio and written back to it.
struct SessionRecords
{
    // Which records hold what the operator has seen: read from the radio or taken from a
    // document (a file or a window). Any other record is all zeros and is never written to a
    // radio, where it would erase that part of the radio's programme.
    struct Known
    {
        bool radio = false;
        bool ale = false;
        bool globalMembers = false;
        bool extraOptions = false;
        bool ccir = false;
        bool channelNames = false;
    };

    dbase radio{};
    ale_dbase ale{};
    ale_dbase_global_members globalMembers{};
    AleExtraOptions extraOptions{};
    ccir_dbase ccir{};
    channel_name channelNames{};
    // The radio's general settings as last read: what edits are compared with.
    dbase reference{};
    Known known;
};

} // namespace koral
