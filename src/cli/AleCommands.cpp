#include "cli/AleCommands.h"

#include "aledb/ConfigurationCheck.h"
#include "cli/AleDocument.h"
#include "cli/Command.h"
#include "common/Notifier.h"

#include <ostream>

namespace koral::cli {

namespace {

// koralctl reports on standard error what the application would show in a message box.
class StreamNotifier : public Notifier
{
public:
    explicit StreamNotifier(std::ostream& err) : m_err(err) {}
    void show(std::string_view text, Icon) override { m_err << "koralctl: " << text << '\n'; }
    Answer ask(std::string_view text, Buttons buttons, Icon) override
    {
        show(text, Icon::Question);
        return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    }

private:
    std::ostream& m_err;
};

} // namespace

int runAleNormalize(const Invocation& invocation)
{
    AleSettings settings;
    settings.globalMembers = !invocation.hasFlag(kNoGlobalMembersFlag);
    // Global members are read whatever the output gets, so the flag only drops them on saving.
    std::optional<AleDocument> document =
        loadAleDocument(invocation.positional[0], AleSettings{}, invocation.err);
    if (!document)
        return kExitError;
    return saveAleDocument(*document, invocation.positional[1], settings, invocation.err)
               ? kExitOk
               : kExitError;
}

int runCheckWithAle(const Invocation& invocation, const dbase& radio)
{
    std::optional<AleDocument> document;
    if (invocation.positional.size() > 1) {
        document = loadAleDocument(invocation.positional[1], AleSettings{}, invocation.err);
        if (!document)
            return kExitError;
    }
    StreamNotifier notifier(invocation.err);
    const ConfigurationCheckResult result = runConfigurationCheck(
        radio, document ? &document->programme : nullptr, AleSettings{}, notifier);
    const std::vector<std::string> lines = result.lines();
    for (const std::string& line : lines)
        invocation.out << line << '\n';
    return lines.empty() ? kExitOk : kExitProblems;
}

} // namespace koral::cli
