#include "cli/AleCommands.h"
#include "cli/Command.h"

#include <array>

namespace koral::cli {

int runNormalize(const Invocation& invocation);
int runCheck(const Invocation& invocation);
int runSummary(const Invocation& invocation);
int runProbe(const Invocation& invocation);
int runRead(const Invocation& invocation);
int runWrite(const Invocation& invocation);
int runBite(const Invocation& invocation);
int runServe(const Invocation& invocation);
int runDiff(const Invocation& invocation);
int runCsv(const Invocation& invocation);

namespace {

constexpr std::array<std::string_view, 1> kSummaryFlags{"--all"};
constexpr std::array<std::string_view, 1> kNormalizeFlags{kNoGlobalMembersFlag};
// Every command that opens a port can trace its link (--trace FILE).
constexpr std::array<std::string_view, 3> kLinkFlags{"--port=", "--baud=", "--trace="};
constexpr std::array<std::string_view, 4> kReadFlags{"--port=", "--baud=", "--trace=", "-o="};
constexpr std::array<std::string_view, 5> kWriteFlags{
    "--port=", "--baud=", "--trace=", "--backups=", "--keep-backups="};
constexpr std::array<std::string_view, 4> kBiteFlags{"--port=", "--baud=", "--trace=", "--type="};
constexpr std::array<std::string_view, 5> kServeFlags{
    "--port=", "--baud=", "--trace=", "--listen=", "--scratch="};

constexpr std::array kCommands{
    Command{"normalize", "IN OUT [--no-global-members]",
            "Loads IN as the application's Open does (files of any format version) and saves it\n"
            "to OUT with the application's Save, so OUT holds the sanitised database in the\n"
            "program's own layout. The kind comes from IN's extension: .rss (radio database,\n"
            "with its comment, user name and CCIR channel numbers), .ale (ALE programme, with\n"
            "the radio identity IN carries) or .ccr (CCIR database). --no-global-members\n"
            "leaves the nets' global member groups out of an .ale file, for radios without them.\n",
            kNormalizeFlags, 2, 2, runNormalize},
    Command{"check",
            "RADIO.rss [PROGRAMME.ale]",
            "Prints the lines of the configuration check, one a line: every reference to a\n"
            "channel that is not programmed (including the ALE nets' All Call and scanned\n"
            "channels), then the ALE programme's problems (names, self addresses, scanned\n"
            "channels, global groups). Exit code 0 when there is none, 1 when there are.\n",
            {},
            1,
            2,
            runCheck},
    Command{"summary", "RADIO.rss [--all]",
            "Prints the configuration summary as tab-separated text with its header row: the\n"
            "programmed channels, or all 200 with --all. The \"Ch. Num.\" column is there when\n"
            "the file carries CCIR channel numbers.\n",
            kSummaryFlags, 1, 1, runSummary},
    Command{"diff", "A B | --port P [--baud B] [--trace FILE] B",
            "Prints what differs between A and B, one line per difference named as the\n"
            "application names the field (\"Channel 12 Rx. Freq.: 7.10000 -> 7.20000\",\n"
            "\"Group B: +14 -15\", \"Net 3 Self Address: BASE -> CAMP\"), A's value first.\n"
            "A and B are files of one kind (.rss, .ale or .ccr); with --port P, A is what the\n"
            "radio on port P holds, so the lines tell what writing B would change. Prints\n"
            "nothing and exits 0 when they are the same, exits 1 when they differ.\n",
            kLinkFlags, 1, 2, runDiff},
    Command{"csv",
            "export RADIO.rss OUT.csv | import IN.csv RADIO.rss",
            "export writes the channel plan of RADIO.rss as a CSV file for a spreadsheet: one\n"
            "row per channel in use with the channel grid's columns, the CCIR channel number\n"
            "and the groups the channel belongs to. import replaces the channels, CCIR channel\n"
            "numbers and group memberships of RADIO.rss by those of IN.csv (comma- or\n"
            "semicolon-separated) and saves it. Every row is checked as the Channel\n"
            "Configuration dialog checks a channel; each bad row is printed with its line\n"
            "number and the reason, and then RADIO.rss is left as it was (exit code 1).\n",
            {},
            3,
            3,
            runCsv},
    Command{"probe", "--port P [--baud B] [--trace FILE]",
            "Asks the radio on port P (a port number, a device path or tcp:HOST:PORT; port 1 is\n"
            "the built-in virtual radio) for its program word, software versions, operation\n"
            "mode and capabilities. B is the baud rate (default 9600). --trace FILE writes\n"
            "every frame of the link to FILE, with retries, time-outs and damaged frames marked\n"
            "(any command that takes --port does).\n",
            kLinkFlags, 0, 0, runProbe},
    Command{"read", "--port P [--baud B] [--trace FILE] -o BASE",
            "Reads the radio's databases as the application's Read Device does and saves\n"
            "BASE.rss and BASE.ale (BASE.ccr in CCIR mode). Progress goes to standard error.\n",
            kReadFlags, 0, 0, runRead},
    Command{"write",
            "--port P [--baud B] [--trace FILE] [--backups DIR] [--keep-backups N] BASE.rss "
            "[BASE.ale|BASE.ccr]",
            "Saves what the radio holds as BASE.before-write.rss and .ale first, and as a dated\n"
            "backup (date, time and the radio's serial number) in DIR, the application's\n"
            "backup folder unless given, where the newest N (default 20) are kept. Then writes\n"
            "the files into the radio, reads it back and compares; a difference is an error\n"
            "that names the section.\n",
            kWriteFlags, 1, 2, runWrite},
    Command{"bite", "--port P [--baud B] [--trace FILE] --type full|channel|lowrf",
            "Runs the radio's built-in test and prints each item's result and the summary.\n"
            "Exit code 1 when an item failed or could not be performed.\n",
            kBiteFlags, 0, 0, runBite},
    Command{"serve", "--port P [--baud B] [--trace FILE] [--listen ADDRESS:PORT] [--scratch N]",
            "Serves rig-control network clients (logging and digital-mode programs) with the\n"
            "radio on port P until interrupted. They connect to ADDRESS:PORT, 127.0.0.1:4532\n"
            "unless given; an address other than the loopback one lets other computers in.\n"
            "A frequency that no programmed channel receives on is refused, unless N names a\n"
            "scratch channel to program with it. See docs/network-control.md.\n",
            kServeFlags, 0, 0, runServe},
};

} // namespace

std::span<const Command> commands()
{
    return kCommands;
}

} // namespace koral::cli
