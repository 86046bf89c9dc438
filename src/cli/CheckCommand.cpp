#include "cli/Command.h"
#include "cli/RadioDocument.h"

#include "radiodb/RssCheck.h"

#include <ostream>

namespace koral::cli {

int runCheck(const Invocation& invocation)
{
    const std::optional<RadioDocument> document =
        loadRadioDocument(invocation.positional[0], invocation.err);
    if (!document)
        return kExitError;
    const RssCheckResult result = checkRadioConfiguration(document->record);
    for (const std::string& line : result.lines)
        invocation.out << line << '\n';
    return result.configurationValid() ? kExitOk : kExitProblems;
}

} // namespace koral::cli
