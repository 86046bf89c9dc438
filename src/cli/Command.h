#pragma once

// koralctl's commands: each is one entry of the command table (CommandTable.cpp) and one file
// with its run function. A command reads its arguments from the invocation, prints its result
// on `out` and its one-line complaints on `err`, and answers an exit code.

#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace koral::cli {

inline constexpr int kExitOk = 0;
inline constexpr int kExitProblems = 1; // the command ran and found problems
inline constexpr int kExitError = 2;    // bad arguments, unreadable or unknown files

struct Invocation
{
    std::vector<std::string> positional; // in order
    std::vector<std::string> flags;      // the "--name" options given, without values
    std::ostream& out;
    std::ostream& err;

    std::vector<std::pair<std::string, std::string>> options{}; // "--name VALUE", in order

    bool hasFlag(std::string_view flag) const;
    // The value of an option that takes one (listed in the command's flags as "--name=").
    std::optional<std::string> option(std::string_view name) const;
};

struct Command
{
    std::string_view name;
    std::string_view usage;                  // the arguments, e.g. "IN OUT"
    std::string_view help;                   // what it does, several lines
    std::span<const std::string_view> flags; // the options it accepts
    std::size_t minArguments;
    std::size_t maxArguments;
    int (*run)(const Invocation&);
};

// Every command, in the order the overview lists them.
std::span<const Command> commands();

// Runs koralctl with its arguments (without the program name); never throws.
int run(std::span<const std::string> arguments, std::ostream& out, std::ostream& err);

// Creates the Qt application object the radio commands need (once) and makes port 1 the
// built-in virtual radio.
void ensureApplication();

// Prints "koralctl: <message>" on `err` and answers kExitError.
int fail(std::ostream& err, std::string_view message);

enum class FileKind
{
    Unknown,
    Rss,
    Ale,
    Ccr,
};
// The kind named by a path's extension, in any case.
FileKind fileKindOf(std::string_view path);

// Empty when `path` names a readable file; otherwise why not ("No such file or directory").
std::optional<std::string> unreadableReason(const std::string& path);

// Empty when a file can be saved at `path`: it is no folder and its folder exists; otherwise
// why not ("No such file or directory").
std::optional<std::string> unwritableReason(const std::string& path);

// True when `path` has the extension of `kind` and is readable; otherwise prints why on `err`
// (as fail() does) and answers false.
bool checkInputFile(const std::string& path, FileKind kind, std::ostream& err);

} // namespace koral::cli
