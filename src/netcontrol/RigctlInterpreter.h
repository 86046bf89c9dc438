#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace koral {

class ClientCommands;

// One client's side of the rig-control text protocol: takes a line, runs the commands on it
// through ClientCommands and answers in the default form (values one a line, "RPRT n" for a
// set or an error) or, after a '+', ';', '|' or ',', in the extended form (the command's long
// name and arguments, "Label: value" records and "RPRT n", joined by that separator). A
// command a KORAL radio cannot carry out answers "not implemented"; an unknown one too, and
// the rest of its line is dropped.
class RigctlInterpreter
{
public:
    explicit RigctlInterpreter(ClientCommands& commands) : m_commands(commands) {}

    // The answer to one line (without its line end); empty for a blank line.
    std::string answer(std::string_view line);
    // The answer of the line's first command had it failed with `code` (a line that is too
    // long, or that waited too long for the radio).
    std::string refuse(std::string_view line, int code) const;
    // The client asked to end the connection.
    bool quitRequested() const { return m_quit; }

    // A command's values: label and value, in order.
    using Values = std::vector<std::pair<std::string, std::string>>;
    using Arguments = std::vector<std::string>;
    struct Command;

private:
    int run(const Command& command, const Arguments& arguments, Values& values);

    ClientCommands& m_commands;
    bool m_quit = false;
};

} // namespace koral
