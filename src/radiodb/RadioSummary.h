#pragma once

// The configuration summary: one row per channel with every column's text, as the summary grid
// shows it. The CCIR number column exists only when the database carries CCIR numbers.

#include "radiodb/ChannelTables.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace koral {

struct RadioSummary
{
    static constexpr int kColumnCount = 9; // with the CCIR number column
    // Column widths in twips (1440 per inch), header row colour as blue-green-red.
    static constexpr std::array<int, kColumnCount> kColumnWidthsTwips{450, 850, 850, 900, 700,
                                                                      700, 700, 750, 900};
    static constexpr unsigned kHeaderColourBgr = 0xFFC864;

    // The header texts, 8 or 9 of them.
    std::vector<std::string> header;
    // Row n - 1 for channel n, each with as many texts as the header.
    std::vector<std::vector<std::string>> rows;

    static RadioSummary of(const ChannelTable& channels,
                           const std::optional<CcirChannelNumbers>& ccirNumbers);
};

} // namespace koral
