#pragma once

#include "radiosim/FaultPlan.h"
#include "radiosim/RadioEvent.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace koral::radiosim {

struct ClearFaults
{
    bool operator==(const ClearFaults&) const = default;
};

// Which items the next built-in tests report badly; items "pass" clears both lists.
struct SelfTestOutcome
{
    enum class Result : std::uint8_t
    {
        Failed,
        Unable,
        AllPass,
    };
    Result result = Result::AllPass;
    std::vector<unsigned> items;
    bool operator==(const SelfTestOutcome&) const = default;
};

struct SetBaud
{
    unsigned baud = 0; // 0: bytes go out as fast as the line takes them
    bool operator==(const SetBaud&) const = default;
};

struct SetMode
{
    bool ccir = false;
    bool operator==(const SetMode&) const = default;
};

struct SetVersion
{
    std::string text;
    bool operator==(const SetVersion&) const = default;
};

struct SetSupport
{
    bool extended = true;
    bool operator==(const SetSupport&) const = default;
};

struct ShowStatus
{
    bool operator==(const ShowStatus&) const = default;
};

struct ShowHelp
{
    bool operator==(const ShowHelp&) const = default;
};

struct Quit
{
    bool operator==(const Quit&) const = default;
};

using ConsoleCommand = std::variant<RadioEvent, FaultCommand, ClearFaults, SelfTestOutcome, SetBaud,
                                    SetMode, SetVersion, SetSupport, ShowStatus, ShowHelp, Quit>;

struct ConsoleParse
{
    std::optional<ConsoleCommand> command; // none for a blank line or an error
    std::string error;                     // what was wrong, for the operator
};

// One line of the simulator's console, e.g. `call station STN1 "HELLO"` or
// `fault drop-after 2000`. Words are case-insensitive; quoted text keeps its blanks.
ConsoleParse parseConsoleLine(std::string_view line);

// The list of console commands with their arguments, one per line.
std::string consoleHelp();

} // namespace koral::radiosim
