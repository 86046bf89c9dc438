#pragma once

// What a write would change in the radio, and the radio's contents kept before it. Both take
// the session's records: those the radio holds (just read) and those a write would send.

#include "aledb/ale_dbase.h"
#include "session/RadioBackups.h"
#include "session/SessionRecords.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace koral {

// How the radio keeps its records: what decides which of them exist and how they read.
struct RecordShape
{
    bool isb = false;
    bool ccir = false;      // CCIR mode: the CCIR database and the channel numbers exist
    bool aleGlobal = false; // the global member groups exist
};

// One line per difference, as the diff tools name it: the radio database, then the ALE
// programme, then the CCIR database. A record the write passes over (not known in `sent`) is
// no difference.
std::vector<std::string> writeDifferences(const SessionRecords& radio, const SessionRecords& sent,
                                          const RecordShape& shape);

// Keeps the records the radio holds (those that were read) as a dated set in `backups`.
std::optional<std::filesystem::path> backUp(RadioBackups& backups, const SessionRecords& radio,
                                            const RecordShape& shape,
                                            std::chrono::system_clock::time_point when,
                                            std::string& error);

} // namespace koral
