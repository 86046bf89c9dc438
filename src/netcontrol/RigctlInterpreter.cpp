#include "netcontrol/RigctlInterpreter.h"

#include "common/Texts.h"
#include "netcontrol/ClientCommands.h"
#include "radiodb/channel.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <span>

namespace koral {

namespace {

using Toggle = ViewCommands::Toggle;

enum class Action
{
    None, // a command of the protocol that a KORAL radio cannot carry out
    GetFrequency,
    SetFrequency,
    GetMode,
    SetMode,
    GetVfo,
    SetVfo,
    GetMemory,
    SetMemory,
    GetFunction,
    SetFunction,
    GetLevel,
    SetLevel,
    DumpState,
    CheckVfo,
    GetInfo,
    Quit,
};

} // namespace

struct RigctlInterpreter::Command
{
    char letter; // 0: known by its long name only
    std::string_view name;
    int arguments;
    Action action;
    std::string_view label; // of the first value in the extended form
    std::string_view secondLabel = {};
};

namespace {

using Command = RigctlInterpreter::Command;

// The protocol's commands. Those with Action::None are listed so that their arguments are
// consumed and the rest of the line stays in step.
constexpr Command kCommands[] = {
    {'F', "set_freq", 1, Action::SetFrequency, {}},
    {'f', "get_freq", 0, Action::GetFrequency, "Frequency"},
    {'M', "set_mode", 2, Action::SetMode, {}},
    {'m', "get_mode", 0, Action::GetMode, "Mode", "Passband"},
    {'V', "set_vfo", 1, Action::SetVfo, {}},
    {'v', "get_vfo", 0, Action::GetVfo, "VFO"},
    {'E', "set_mem", 1, Action::SetMemory, {}},
    {'e', "get_mem", 0, Action::GetMemory, "Memory#"},
    {'U', "set_func", 2, Action::SetFunction, {}},
    {'u', "get_func", 1, Action::GetFunction, "Func Status"},
    {'L', "set_level", 2, Action::SetLevel, {}},
    {'l', "get_level", 1, Action::GetLevel, "Level Value"},
    {0, "dump_state", 0, Action::DumpState, {}},
    {0, "chk_vfo", 0, Action::CheckVfo, "ChkVFO"},
    {'_', "get_info", 0, Action::GetInfo, "Info"},
    {'q', "quit", 0, Action::Quit, {}},
    {'Q', "quit", 0, Action::Quit, {}},
    {'J', "set_rit", 1, Action::None, {}},
    {'j', "get_rit", 0, Action::None, {}},
    {'Z', "set_xit", 1, Action::None, {}},
    {'z', "get_xit", 0, Action::None, {}},
    {'T', "set_ptt", 1, Action::None, {}},
    {'t', "get_ptt", 0, Action::None, {}},
    {'S', "set_split_vfo", 2, Action::None, {}},
    {'s', "get_split_vfo", 0, Action::None, {}},
    {'I', "set_split_freq", 1, Action::None, {}},
    {'i', "get_split_freq", 0, Action::None, {}},
    {'X', "set_split_mode", 2, Action::None, {}},
    {'x', "get_split_mode", 0, Action::None, {}},
    {'Y', "set_ant", 2, Action::None, {}},
    {'y', "get_ant", 1, Action::None, {}},
    {'b', "send_morse", 1, Action::None, {}},
    {'R', "set_rptr_shift", 1, Action::None, {}},
    {'r', "get_rptr_shift", 0, Action::None, {}},
    {'O', "set_rptr_offs", 1, Action::None, {}},
    {'o', "get_rptr_offs", 0, Action::None, {}},
    {'C', "set_ctcss_tone", 1, Action::None, {}},
    {'c', "get_ctcss_tone", 0, Action::None, {}},
    {'D', "set_dcs_code", 1, Action::None, {}},
    {'d', "get_dcs_code", 0, Action::None, {}},
    {'N', "set_ts", 1, Action::None, {}},
    {'n', "get_ts", 0, Action::None, {}},
    {'P', "set_parm", 2, Action::None, {}},
    {'p', "get_parm", 1, Action::None, {}},
    {'B', "set_bank", 1, Action::None, {}},
    {'G', "vfo_op", 1, Action::None, {}},
    {'g', "scan", 2, Action::None, {}},
    {'H', "set_channel", 1, Action::None, {}},
    {'h', "get_channel", 1, Action::None, {}},
    {'A', "set_trn", 1, Action::None, {}},
    {'a', "get_trn", 0, Action::None, {}},
    {'*', "reset", 1, Action::None, {}},
    {'1', "dump_caps", 0, Action::None, {}},
    {'2', "power2mW", 3, Action::None, {}},
    {'4', "mW2power", 3, Action::None, {}},
    {0, "get_dcd", 0, Action::None, {}},
    {0, "set_ctcss_sql", 1, Action::None, {}},
    {0, "get_ctcss_sql", 0, Action::None, {}},
    {0, "set_dcs_sql", 1, Action::None, {}},
    {0, "get_dcs_sql", 0, Action::None, {}},
    {0, "set_powerstat", 1, Action::None, {}},
    {0, "get_powerstat", 0, Action::None, {}},
    {0, "send_dtmf", 1, Action::None, {}},
    {0, "recv_dtmf", 0, Action::None, {}},
    {0, "get_rig_info", 0, Action::None, {}},
    {0, "get_vfo_info", 1, Action::None, {}},
    {0, "set_clock", 1, Action::None, {}},
    {0, "get_clock", 0, Action::None, {}},
    {0, "set_vfo_opt", 1, Action::None, {}},
    {0, "set_lock_mode", 1, Action::None, {}},
    {0, "get_lock_mode", 0, Action::None, {}},
};

// The protocol's function and level names, and the ones this radio has.
constexpr std::string_view kFunctions[] = {
    "FAGC", "NB",  "COMP", "VOX", "TONE",    "TSQL",  "SBKIN",  "FBKIN",  "ANF",   "NR",  "AIP",
    "APF",  "MON", "MN",   "RF",  "ARO",     "LOCK",  "MUTE",   "VSC",    "REV",   "SQL", "ABM",
    "BC",   "MBC", "RIT",  "AFC", "SATMODE", "SCOPE", "RESUME", "TBURST", "TUNER", "XIT"};
constexpr std::string_view kLevels[] = {
    "PREAMP",     "ATT",        "VOXDELAY", "AF",      "RF",      "SQL",     "IF",      "APF",
    "NR",         "PBT_IN",     "PBT_OUT",  "CWPITCH", "RFPOWER", "MICGAIN", "KEYSPD",  "NOTCHF",
    "COMP",       "AGC",        "BKINDL",   "BAL",     "METER",   "VOXGAIN", "ANTIVOX", "SLOPE_LOW",
    "SLOPE_HIGH", "BKIN_DLYMS", "RAWSTR",   "SWR",     "ALC",     "STRENGTH"};
constexpr std::string_view kOwnFunctions = "NB SQL";
constexpr std::string_view kOwnLevels = "ATT";
// The attenuator has one step; the protocol counts it in decibels, which this server calls 1.
constexpr int kAttenuatorStep = 1;

// Bits of the protocol's masks for what \dump_state declares.
constexpr unsigned kModeAm = 1u << 0;
constexpr unsigned kModeCw = 1u << 1;
constexpr unsigned kModeUsb = 1u << 2;
constexpr unsigned kModeLsb = 1u << 3;
constexpr unsigned kFunctionNb = 1u << 1;
constexpr unsigned kFunctionSql = 1u << 20;
constexpr unsigned kLevelAtt = 1u << 1;
constexpr unsigned kVfoA = 1u << 0;

bool known(std::span<const std::string_view> names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string hex(unsigned value)
{
    return text::format("0x%x", value);
}

// What \dump_state tells a client about this radio: protocol version 1, the frequency
// ranges, the filters, no RIT/XIT, the attenuator, the functions and levels it answers, and
// the settings that keep a client from asking for what is not there.
std::vector<std::string> stateLines()
{
    const unsigned modes = kModeAm | kModeCw | kModeUsb | kModeLsb;
    const unsigned sideband = kModeUsb | kModeLsb;
    std::vector<std::string> lines{"1", "2", "0"};
    lines.push_back(text::format("%u.000000 %u.000000 %s -1 -1 %s 0x0", kMinRxHz, kMaxHz,
                                 hex(modes).c_str(), hex(kVfoA).c_str()));
    lines.push_back("0 0 0 0 0 0 0");
    lines.push_back(text::format("%u.000000 %u.000000 %s -1 -1 %s 0x0", kMinTxHz, kMaxHz,
                                 hex(modes).c_str(), hex(kVfoA).c_str()));
    lines.push_back("0 0 0 0 0 0 0");
    lines.push_back("0 0"); // no tuning steps: the radio works on programmed channels
    for (const int width : {2700, 3300, 3000, 2100})
        lines.push_back(hex(sideband) + " " + std::to_string(width));
    lines.push_back("0 0");
    for (const char* none : {"0", "0", "0", "0", ""}) // RIT, XIT, IF shift, announces, preamp
        lines.emplace_back(none);
    lines.push_back(std::to_string(kAttenuatorStep));
    const std::string functions = hex(kFunctionNb | kFunctionSql);
    const std::string levels = hex(kLevelAtt);
    for (const std::string& mask : {functions, functions, levels, levels})
        lines.push_back(mask);
    lines.insert(lines.end(), {"0x0", "0x0", "vfo_ops=0x0", "ptt_type=0x0", "has_set_vfo=0",
                               "has_get_vfo=1", "has_set_freq=1", "has_get_freq=1", "done"});
    return lines;
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

void skipBlanks(std::string_view& rest)
{
    while (!rest.empty() && isBlank(rest.front()))
        rest.remove_prefix(1);
}

std::string_view nextToken(std::string_view& rest)
{
    skipBlanks(rest);
    std::size_t end = 0;
    while (end < rest.size() && !isBlank(rest[end]))
        ++end;
    const std::string_view token = rest.substr(0, end);
    rest.remove_prefix(end);
    return token;
}

const Command* findCommand(std::string_view& rest)
{
    if (rest.empty())
        return nullptr;
    if (rest.front() == '\\') {
        rest.remove_prefix(1);
        const std::string_view name = nextToken(rest);
        const auto it = std::find_if(std::begin(kCommands), std::end(kCommands),
                                     [&](const Command& c) { return c.name == name; });
        return it == std::end(kCommands) ? nullptr : &*it;
    }
    const char letter = rest.front();
    rest.remove_prefix(1);
    const auto it = std::find_if(std::begin(kCommands), std::end(kCommands),
                                 [&](const Command& c) { return c.letter == letter; });
    return it == std::end(kCommands) ? nullptr : &*it;
}

// The separator of the extended form the line starts with, or 0 for the default form.
char takeSeparator(std::string_view& rest)
{
    if (rest.empty())
        return 0;
    switch (rest.front()) {
    case '+':
        rest.remove_prefix(1);
        return '\n';
    case ';':
    case '|':
    case ',': {
        const char separator = rest.front();
        rest.remove_prefix(1);
        return separator;
    }
    default:
        return 0;
    }
}

std::string format(const Command* command, const RigctlInterpreter::Arguments& arguments,
                   char separator, const RigctlInterpreter::Values& values, int code)
{
    std::string out;
    if (separator == 0) {
        if (code != rigctl::kOk || values.empty())
            return "RPRT " + std::to_string(code) + "\n";
        for (const auto& [label, value] : values)
            out += value + "\n";
        return out;
    }
    out = std::string(command ? command->name : std::string_view("unknown")) + ":";
    for (const std::string& argument : arguments)
        out += " " + argument;
    out += separator;
    if (code == rigctl::kOk) {
        for (const auto& [label, value] : values)
            out += (label.empty() ? value : label + ": " + value) + separator;
    }
    return out + "RPRT " + std::to_string(code) + "\n";
}

std::optional<int> toInt(std::string_view text)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<double> toNumber(const std::string& text)
{
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (text.empty() || end != text.c_str() + text.size())
        return std::nullopt;
    return value;
}

std::optional<Toggle> functionToggle(std::string_view name)
{
    if (name == "SQL")
        return Toggle::Squelch;
    if (name == "NB")
        return Toggle::NoiseBlanker;
    return std::nullopt;
}

// Names the protocol has but this radio lacks are "not implemented"; others are invalid.
int unsupported(std::span<const std::string_view> names, std::string_view name)
{
    return known(names, name) ? rigctl::kNotImplemented : rigctl::kInvalidArgument;
}

} // namespace

std::string RigctlInterpreter::answer(std::string_view line)
{
    std::string out;
    std::string_view rest = line;
    while (true) {
        skipBlanks(rest);
        if (rest.empty())
            return out;
        const char separator = takeSeparator(rest);
        const Command* command = findCommand(rest);
        if (!command)
            return out + format(nullptr, {}, separator, {}, rigctl::kNotImplemented);
        Arguments arguments;
        for (int i = 0; i < command->arguments; ++i) {
            const std::string_view token = nextToken(rest);
            if (token.empty())
                break;
            arguments.emplace_back(token);
        }
        Values values;
        const int code = int(arguments.size()) < command->arguments
                             ? rigctl::kInvalidArgument
                             : run(*command, arguments, values);
        out += format(command, arguments, separator, values, code);
        if (m_quit)
            return out;
    }
}

std::string RigctlInterpreter::refuse(std::string_view line, int code) const
{
    std::string_view rest = line;
    skipBlanks(rest);
    const char separator = takeSeparator(rest);
    return format(findCommand(rest), {}, separator, {}, code);
}

int RigctlInterpreter::run(const Command& command, const Arguments& arguments, Values& values)
{
    const auto value = [&values](std::string_view label, std::string text) {
        values.emplace_back(std::string(label), std::move(text));
    };
    switch (command.action) {
    case Action::None:
        return rigctl::kNotImplemented;
    case Action::GetFrequency: {
        std::uint32_t hertz = 0;
        const int code = m_commands.frequency(hertz);
        value(command.label, std::to_string(hertz));
        return code;
    }
    case Action::SetFrequency: {
        const auto hertz = toNumber(arguments[0]);
        return hertz ? m_commands.setFrequency(*hertz) : rigctl::kInvalidArgument;
    }
    case Action::GetMode: {
        std::string mode;
        int passband = 0;
        const int code = m_commands.mode(mode, passband);
        value(command.label, mode);
        value(command.secondLabel, std::to_string(passband));
        return code;
    }
    case Action::SetMode: {
        const auto passband = toInt(arguments[1]);
        return passband ? m_commands.setMode(arguments[0], *passband) : rigctl::kInvalidArgument;
    }
    case Action::GetVfo:
        // One receiver, tuned by channel: the protocol's first VFO stands for it.
        value(command.label, "VFOA");
        return rigctl::kOk;
    case Action::SetVfo: {
        constexpr std::string_view kThisVfo[] = {"VFOA", "VFO", "currVFO", "Main", "MEM", "RX"};
        return known(kThisVfo, arguments[0]) ? rigctl::kOk : rigctl::kNotImplemented;
    }
    case Action::GetMemory: {
        int number = 0;
        const int code = m_commands.memory(number);
        value(command.label, std::to_string(number));
        return code;
    }
    case Action::SetMemory: {
        const auto number = toInt(arguments[0]);
        return number ? m_commands.setMemory(*number) : rigctl::kInvalidArgument;
    }
    case Action::GetFunction:
    case Action::SetFunction: {
        if (arguments[0] == "?") {
            value({}, std::string(kOwnFunctions));
            return rigctl::kOk;
        }
        const auto toggle = functionToggle(arguments[0]);
        if (!toggle)
            return unsupported(kFunctions, arguments[0]);
        if (command.action == Action::SetFunction) {
            const auto on = toInt(arguments[1]);
            return on ? m_commands.setSetting(*toggle, *on != 0) : rigctl::kInvalidArgument;
        }
        bool on = false;
        const int code = m_commands.setting(*toggle, on);
        value(command.label, on ? "1" : "0");
        return code;
    }
    case Action::GetLevel:
    case Action::SetLevel: {
        if (arguments[0] == "?") {
            value({}, std::string(kOwnLevels));
            return rigctl::kOk;
        }
        if (arguments[0] != "ATT")
            return unsupported(kLevels, arguments[0]);
        if (command.action == Action::SetLevel) {
            const auto level = toNumber(arguments[1]);
            return level ? m_commands.setSetting(Toggle::Attenuator, *level != 0)
                         : rigctl::kInvalidArgument;
        }
        bool on = false;
        const int code = m_commands.setting(Toggle::Attenuator, on);
        value(command.label, std::to_string(on ? kAttenuatorStep : 0));
        return code;
    }
    case Action::DumpState:
        for (std::string& line : stateLines())
            value({}, std::move(line));
        return rigctl::kOk;
    case Action::CheckVfo:
        value(command.label, "0");
        return rigctl::kOk;
    case Action::GetInfo:
        value(command.label, std::string(text::kApplicationName));
        return rigctl::kOk;
    case Action::Quit:
        m_quit = true;
        return rigctl::kOk;
    }
    return rigctl::kNotImplemented;
}

} // namespace koral
