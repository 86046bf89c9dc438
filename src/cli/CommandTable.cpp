#include "cli/Command.h"

#include <array>

namespace koral::cli {

int runNormalize(const Invocation& invocation);
int runCheck(const Invocation& invocation);
int runSummary(const Invocation& invocation);

namespace {

constexpr std::array<std::string_view, 1> kSummaryFlags{"--all"};

constexpr std::array kCommands{
    Command{"normalize",
            "IN OUT",
            "Loads IN as the application's Open does (files of any format version) and saves it\n"
            "to OUT with the application's Save, so OUT holds the sanitised database in the\n"
            "program's own layout. The kind comes from IN's extension: .rss (radio database,\n"
            "with its comment, user name and CCIR channel numbers) or .ccr (CCIR database).\n",
            {},
            2,
            2,
            runNormalize},
    Command{"check",
            "RADIO.rss",
            "Prints the lines of the configuration check, one a line: every reference to a\n"
            "channel that is not programmed. Exit code 0 when there is none, 1 when there are.\n",
            {},
            1,
            1,
            runCheck},
    Command{"summary", "RADIO.rss [--all]",
            "Prints the configuration summary as tab-separated text with its header row: the\n"
            "programmed channels, or all 200 with --all. The \"Ch. Num.\" column is there when\n"
            "the file carries CCIR channel numbers.\n",
            kSummaryFlags, 1, 1, runSummary},
};

} // namespace

std::span<const Command> commands()
{
    return kCommands;
}

} // namespace koral::cli
