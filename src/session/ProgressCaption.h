#pragma once

#include <string>
#include <string_view>

namespace koral {

class Notifier;

enum class TransferMode
{
    None = 0,
    Read = 1,
    Write = 2,
};

// Where a transfer stands in the radio's memory: the title of the database being moved and
// the section within it.
struct ProgressSection
{
    std::string_view title;
    std::string_view section;
};

// The section at a position of the combined layout (radio database from 0, ALE database
// from 4304, then the global members or the CCIR database and its channel numbers).
ProgressSection progressSectionAt(int position, bool aleGlobalSupported);

// The position shown for a number of progress steps: the radio's transfers start part-way
// into the layout (later in CCIR mode) and writes skip the read-only head.
int progressPosition(int steps, TransferMode mode, bool ccirMode);

// "Reading <section>" or "Writing <section>"; any other mode tells the operator and gives the
// text of that message.
std::string progressCaption(TransferMode mode, const ProgressSection& section, Notifier& notifier);

} // namespace koral
