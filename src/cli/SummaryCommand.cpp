#include "cli/Command.h"
#include "cli/RadioDocument.h"

#include "radiodb/RadioSummary.h"

#include <ostream>

namespace koral::cli {

namespace {
void printRow(std::ostream& out, const std::vector<std::string>& cells)
{
    for (std::size_t i = 0; i < cells.size(); ++i)
        out << (i == 0 ? "" : "\t") << cells[i];
    out << '\n';
}
} // namespace

int runSummary(const Invocation& invocation)
{
    const std::optional<RadioDocument> document =
        loadRadioDocument(invocation.positional[0], invocation.err);
    if (!document)
        return kExitError;
    const bool all = invocation.hasFlag("--all");
    const RadioSummary summary = RadioSummary::of(document->record.channels, document->ccirNumbers);
    printRow(invocation.out, summary.header);
    for (std::size_t i = 0; i < summary.rows.size(); ++i) {
        if (all || document->record.channels[i].isProgrammed())
            printRow(invocation.out, summary.rows[i]);
    }
    return kExitOk;
}

} // namespace koral::cli
