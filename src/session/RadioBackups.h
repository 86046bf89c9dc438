#pragma once

// The radio's contents kept before every write to it: each backup is a set of files of one
// name, "2026-11-23_14-05-09_KR2E004417" (local date and time, then the radio's serial number),
// an .rss file and the .ale or .ccr file, in one folder under the data directory. After each
// backup only the newest `keep` sets stay.

#include "aledb/ale_dbase.h"
#include "aledb/ccir_dbase.h"
#include "radiodb/ChannelTables.h"
#include "radiodb/dbase.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace koral {

class RadioBackups
{
public:
    static constexpr int kDefaultKeep = 20;

    // What the radio held; the .ale file is written when `ale` is given, the .ccr when `ccir`.
    struct Contents
    {
        const dbase* radio = nullptr;
        bool isb = false;
        const CcirChannelNumbers* ccirNumbers = nullptr;
        const AleProgramme* ale = nullptr;
        AleSettings aleSettings{};
        const ccir_dbase* ccir = nullptr; // radio order
    };

    // `keep` below 1 counts as 1.
    RadioBackups(std::filesystem::path folder, int keep = kDefaultKeep);

    // Writes the set (creating the folder), then removes the oldest sets beyond `keep`.
    // Answers the .rss file, or nothing with `error` saying why (no set is removed then).
    std::optional<std::filesystem::path>
    save(const Contents& contents, std::chrono::system_clock::time_point when, std::string& error);

    // The .rss files of the sets, newest first.
    std::vector<std::filesystem::path> list() const;

    const std::filesystem::path& folder() const { return m_folder; }
    int keep() const { return m_keep; }

    // A set's date, time and serial number for the eye: "2026-11-23 14:05:09  KR2E004417".
    static std::string label(const std::filesystem::path& set);

    // The name of a set taken at `when` (local time) from the radio of `serialNumber`.
    static std::string setName(std::chrono::system_clock::time_point when,
                               std::string_view serialNumber);

private:
    void prune() const;

    std::filesystem::path m_folder;
    int m_keep;
};

} // namespace koral
