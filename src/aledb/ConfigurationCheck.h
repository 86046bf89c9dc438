#pragma once

// The panels' "Configuration Check": the radio database check (which also looks at the ALE
// nets' channel references), then the ALE check. One operation for the panels and koralctl.

#include "aledb/AleCheck.h"
#include "aledb/ale_dbase.h"

#include <array>
#include <string>
#include <vector>

namespace koral {

class Notifier;
struct dbase;
struct AleNetChannels;

struct ConfigurationCheckResult
{
    std::vector<std::string> radioLines; // the radio check's lines
    AleCheckResult ale; // the ALE check's lines and flags (empty without an ALE programme)

    bool radioConfigurationValid() const { return radioLines.empty(); }
    // Every line, the radio's first.
    std::vector<std::string> lines() const;
};

// The channel references of the 20 nets in the form the radio check takes.
std::array<AleNetChannels, kAleNetCount> aleNetChannels(const ale_dbase& db);

// programme may be null (no ALE programme, as in CCIR mode): then only the radio check runs.
ConfigurationCheckResult runConfigurationCheck(const dbase& radio, const AleProgramme* programme,
                                               const AleSettings& settings, Notifier& notifier);

} // namespace koral
