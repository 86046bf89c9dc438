#include "cli/Command.h"

#include "common/Texts.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <ostream>

namespace koral::cli {

namespace {

const Command* findCommand(std::string_view name)
{
    for (const Command& command : commands()) {
        if (command.name == name)
            return &command;
    }
    return nullptr;
}

void printOverview(std::ostream& out)
{
    out << text::kCliOverview;
    for (const Command& command : commands())
        out << "  koralctl " << command.name << ' ' << command.usage << '\n';
    out << text::kCliOverviewTrace << text::kCliOverviewEnd;
}

void printHelp(const Command& command, std::ostream& out)
{
    out << "usage: koralctl " << command.name << ' ' << command.usage << "\n\n" << command.help;
}

bool isHelp(std::string_view argument)
{
    return argument == "--help" || argument == "-h";
}

int runCommand(const Command& command, std::span<const std::string> arguments, std::ostream& out,
               std::ostream& err)
{
    if (std::any_of(arguments.begin(), arguments.end(), isHelp)) {
        printHelp(command, out);
        return kExitOk;
    }
    Invocation invocation{{}, {}, out, err, {}};
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        // An option that takes a value: "--name VALUE" or "--name=VALUE".
        const std::string name = argument.substr(0, argument.find('='));
        if (argument.size() > 1 && argument[0] == '-' &&
            std::find(command.flags.begin(), command.flags.end(), name + "=") !=
                command.flags.end()) {
            if (name.size() < argument.size())
                invocation.options.emplace_back(name, argument.substr(name.size() + 1));
            else if (i + 1 < arguments.size())
                invocation.options.emplace_back(name, arguments[++i]);
            else
                return fail(err, text::format(text::kCliMissingValue.data(), name.c_str()));
            continue;
        }
        if (argument.size() > 1 && argument[0] == '-') {
            if (std::find(command.flags.begin(), command.flags.end(), argument) ==
                command.flags.end()) {
                return fail(err, text::format(text::kCliUnknownOption.data(), argument.c_str(),
                                              std::string(command.name).c_str()));
            }
            invocation.flags.push_back(argument);
        } else {
            invocation.positional.push_back(argument);
        }
    }
    const std::size_t count = invocation.positional.size();
    if (count < command.minArguments || count > command.maxArguments) {
        return fail(err,
                    text::format(text::kCliWrongArguments.data(), std::string(command.name).c_str(),
                                 std::string(command.usage).c_str()));
    }
    return command.run(invocation);
}

} // namespace

bool Invocation::hasFlag(std::string_view flag) const
{
    return std::find(flags.begin(), flags.end(), flag) != flags.end();
}

std::optional<std::string> Invocation::option(std::string_view name) const
{
    for (const auto& [key, value] : options) {
        if (key == name)
            return value;
    }
    return std::nullopt;
}

int run(std::span<const std::string> arguments, std::ostream& out, std::ostream& err)
{
    try {
        if (arguments.empty()) {
            printOverview(err);
            return kExitError;
        }
        if (isHelp(arguments.front())) {
            printOverview(out);
            return kExitOk;
        }
        const Command* command = findCommand(arguments.front());
        if (command == nullptr)
            return fail(err,
                        text::format(text::kCliUnknownCommand.data(), arguments.front().c_str()));
        return runCommand(*command, arguments.subspan(1), out, err);
    } catch (const std::exception& error) {
        // Nothing below throws on bad input; this is for exhausted memory and the like.
        return fail(err, error.what());
    }
}

int fail(std::ostream& err, std::string_view message)
{
    err << "koralctl: " << message << '\n';
    return kExitError;
}

FileKind fileKindOf(std::string_view path)
{
    std::string extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (extension == ".rss")
        return FileKind::Rss;
    if (extension == ".ale")
        return FileKind::Ale;
    if (extension == ".ccr")
        return FileKind::Ccr;
    return FileKind::Unknown;
}

std::optional<std::string> unreadableReason(const std::string& path)
{
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        return std::string(std::strerror(EISDIR));
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::string(std::strerror(errno != 0 ? errno : ENOENT));
    return std::nullopt;
}

std::optional<std::string> unwritableReason(const std::string& path)
{
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        return std::string(std::strerror(EISDIR));
    std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (folder.empty())
        folder = ".";
    if (!std::filesystem::exists(folder, error))
        return std::string(std::strerror(ENOENT));
    if (!std::filesystem::is_directory(folder, error))
        return std::string(std::strerror(ENOTDIR));
    return std::nullopt;
}

bool checkInputFile(const std::string& path, FileKind kind, std::ostream& err)
{
    if (fileKindOf(path) != kind) {
        const char* expected = kind == FileKind::Rss   ? ".rss"
                               : kind == FileKind::Ale ? ".ale"
                                                       : ".ccr";
        fail(err, text::format(text::kCliUnknownKind.data(), path.c_str(), expected));
        return false;
    }
    if (const auto reason = unreadableReason(path)) {
        fail(err, text::format(text::kProfileCannotRead.data(), path.c_str(), reason->c_str()));
        return false;
    }
    return true;
}

} // namespace koral::cli
