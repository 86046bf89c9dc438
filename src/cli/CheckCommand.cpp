#include "cli/AleCommands.h"
#include "cli/Command.h"
#include "cli/RadioDocument.h"

namespace koral::cli {

int runCheck(const Invocation& invocation)
{
    const std::optional<RadioDocument> document =
        loadRadioDocument(invocation.positional[0], invocation.err);
    if (!document)
        return kExitError;
    return runCheckWithAle(invocation, document->record);
}

} // namespace koral::cli
