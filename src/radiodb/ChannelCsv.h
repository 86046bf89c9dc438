#pragma once

// Channel plans as CSV files a spreadsheet opens: a header row with the channel grid's column
// names and "Groups", then one row per channel in use (programmed, or a member of a group),
// every field in the grid's display form, the CCIR channel number ("Ch. Num.", empty for none)
// and the groups the channel belongs to ("A C"). Written as UTF-8 with a byte-order mark,
// comma-separated, CR LF line ends.
//
// Reading takes a byte-order mark or none, comma- or semicolon-separated values (the one the
// header row uses more; with semicolons a decimal comma in a frequency is read as a point),
// quoted fields, and the columns in any order (others are ignored). Each row passes the rules
// of the Channel Configuration dialog; every bad row is reported with its line number and
// the reason, and then nothing changes.

#include "radiodb/ChannelTables.h"
#include "radiodb/dbase.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace koral {

struct ChannelPlan
{
    dbase record{};
    // Present when the database carries CCIR channel numbers.
    std::optional<CcirChannelNumbers> ccirNumbers;
};

std::string channelCsv(const ChannelPlan& plan);

// Replaces the channels, the CCIR channel numbers and the group memberships of `plan` by the
// CSV text's (channels not listed become empty); the guard channels and all else stay. The
// numbers become present when any row has one. `isbOffered` lets the Mode column say "ISB".
// Answers the error lines ("line 7: ..."), empty on success; on any error `plan` is unchanged.
std::vector<std::string> importChannelCsv(std::string_view csv, ChannelPlan& plan, bool isbOffered);

} // namespace koral
