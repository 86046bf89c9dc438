#pragma once

// The texts of the RSS ALE panel's grids, one row per net, directory address, message and
// automatic dial, as the panel shows them and its report prints them.

#include "aledb/ale_dbase.h"

#include <string>
#include <vector>

namespace koral::aleoverview {

using Rows = std::vector<std::vector<std::string>>;

// Name, self address, members (by name, the net's own self address as such) and scanned
// channels (as ranges, "1-5, 9").
Rows nets(const ale_dbase& db);
// The address, empty where the slot is free.
Rows directory(const ale_dbase& db);
Rows messages(const ale_dbase& db);
// The address and the message each dial refers to, empty where it refers to nothing.
Rows autoDials(const ale_dbase& db);

// Channel numbers as ranges: {1, 2, 3, 7} gives "1-3, 7".
std::string channelRanges(const ale_net& net);

} // namespace koral::aleoverview
