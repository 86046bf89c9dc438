#include "radiosim/ConsoleCommand.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <span>

namespace koral::radiosim {

namespace {

struct Token
{
    std::string text;
    bool quoted = false;
};

using Args = std::span<const Token>;
using Parser = ConsoleParse (*)(Args);

ConsoleParse fail(std::string error)
{
    return {std::nullopt, std::move(error)};
}
ConsoleParse ok(ConsoleCommand command)
{
    return {std::move(command), {}};
}

std::string lower(std::string_view text)
{
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

bool is(const Token& token, std::string_view word)
{
    return !token.quoted && lower(token.text) == word;
}

std::optional<unsigned> number(const Token& token, unsigned min, unsigned max)
{
    unsigned value = 0;
    const char* end = token.text.data() + token.text.size();
    auto [ptr, ec] = std::from_chars(token.text.data(), end, value);
    if (ec != std::errc{} || ptr != end || value < min || value > max) {
        return std::nullopt;
    }
    return value;
}

std::string rangeError(std::string_view what, unsigned min, unsigned max)
{
    return std::string(what) + " must be a number from " + std::to_string(min) + " to " +
           std::to_string(max);
}

constexpr std::string_view kAddressChars =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

bool validText(std::string_view text, std::size_t maxSize, bool blanks)
{
    return text.size() <= maxSize && std::all_of(text.begin(), text.end(), [&](char c) {
               return (blanks && c == ' ') || kAddressChars.find(c) != std::string_view::npos;
           });
}

// call station|net|all ADDRESS ["MESSAGE"] [channel N]
ConsoleParse parseCall(Args args)
{
    if (args.size() < 2) {
        return fail("call needs a kind (station, net, all) and the caller's address");
    }
    IncomingCall call;
    if (is(args[0], "station")) {
        call.kind = CallKind::Station;
    } else if (is(args[0], "net")) {
        call.kind = CallKind::Net;
    } else if (is(args[0], "all")) {
        call.kind = CallKind::All;
    } else {
        return fail("unknown call kind '" + args[0].text + "' (station, net, all)");
    }
    call.address = args[1].text;
    if (call.address.empty() || !validText(call.address, 15, false)) {
        return fail("the address must be 1 to 15 letters and digits");
    }
    for (std::size_t i = 2; i < args.size(); ++i) {
        if (is(args[i], "channel") || is(args[i], "ch")) {
            if (i + 1 >= args.size()) {
                return fail("channel needs a number");
            }
            const auto channel = number(args[++i], 1, 200);
            if (!channel) {
                return fail(rangeError("the channel", 1, 200));
            }
            call.channel = *channel;
        } else if (call.message.empty()) {
            call.message = args[i].text;
            if (!validText(call.message, 90, true)) {
                return fail("the message must be at most 90 letters, digits and blanks");
            }
        } else {
            return fail("unexpected '" + args[i].text + "' (quote a message with blanks)");
        }
    }
    return ok(RadioEvent{call});
}

struct NamedCode
{
    std::string_view name;
    std::uint8_t code;
};

constexpr NamedCode kLinkResults[] = {
    {"none", 0},   {"established", 1}, {"channel-busy", 2}, {"station-busy", 3},
    {"silent", 4}, {"in-progress", 5}, {"failed", 7},
};

ConsoleParse parseLink(Args args)
{
    if (args.size() != 1) {
        return fail("link needs one result: none, established, channel-busy, station-busy, "
                    "silent, in-progress, failed or a code 0-255");
    }
    for (const NamedCode& result : kLinkResults) {
        if (is(args[0], result.name)) {
            return ok(RadioEvent{LinkResult{result.code}});
        }
    }
    if (const auto code = number(args[0], 0, 255)) {
        return ok(RadioEvent{LinkResult{static_cast<std::uint8_t>(*code)}});
    }
    return fail("unknown link result '" + args[0].text + "'");
}

ConsoleParse parseLinkQuality(Args args, bool sounding)
{
    LinkQualityRun run{sounding, 5};
    if (args.size() > 1) {
        return fail("expected at most one number of steps");
    }
    if (args.size() == 1) {
        const auto steps = number(args[0], 1, 100);
        if (!steps) {
            return fail(rangeError("the number of steps", 1, 100));
        }
        run.steps = *steps;
    }
    return ok(RadioEvent{run});
}

ConsoleParse parseLqa(Args args)
{
    return parseLinkQuality(args, false);
}
ConsoleParse parseSound(Args args)
{
    return parseLinkQuality(args, true);
}

constexpr NamedCode kTestTypes[] = {{"full", 0}, {"channel", 1}, {"lowrf", 2}};

ConsoleParse parseBite(Args args)
{
    if (args.empty()) {
        return fail("bite needs run, fail, unable or pass");
    }
    if (is(args[0], "run")) {
        for (const NamedCode& type : kTestTypes) {
            if (args.size() == 2 && is(args[1], type.name)) {
                return ok(RadioEvent{SelfTestRun{static_cast<SelfTestType>(type.code)}});
            }
        }
        return fail("bite run needs a test type: full, channel or lowrf");
    }
    if (is(args[0], "pass") && args.size() == 1) {
        return ok(SelfTestOutcome{});
    }
    SelfTestOutcome outcome;
    if (is(args[0], "fail")) {
        outcome.result = SelfTestOutcome::Result::Failed;
    } else if (is(args[0], "unable")) {
        outcome.result = SelfTestOutcome::Result::Unable;
    } else {
        return fail("bite needs run, fail, unable or pass");
    }
    if (args.size() < 2) {
        return fail("list the test items (1-39)");
    }
    for (const Token& token : args.subspan(1)) {
        const auto item = number(token, 1, 39);
        if (!item) {
            return fail(rangeError("a test item", 1, 39));
        }
        outcome.items.push_back(*item);
    }
    return ok(outcome);
}

ConsoleParse parseChannel(Args args)
{
    const auto channel = args.size() == 1 ? number(args[0], 1, 200) : std::nullopt;
    if (!channel) {
        return fail(rangeError("the channel", 1, 200));
    }
    return ok(RadioEvent{FrontPanelChannel{*channel}});
}

ConsoleParse parseScan(Args args)
{
    if (args.size() == 1 && is(args[0], "stop")) {
        return ok(RadioEvent{FrontPanelScan{}});
    }
    if (args.size() == 2 && is(args[0], "group")) {
        const std::string letter = lower(args[1].text);
        if (letter.size() == 1 && letter[0] >= 'a' && letter[0] <= 'e') {
            return ok(RadioEvent{FrontPanelScan{true, false, unsigned(letter[0] - 'a')}});
        }
        return fail("the group is a letter from A to E");
    }
    if (args.size() == 2 && is(args[0], "net")) {
        if (const auto net = number(args[1], 1, 20)) {
            return ok(RadioEvent{FrontPanelScan{true, true, *net - 1}});
        }
        return fail(rangeError("the net", 1, 20));
    }
    return fail("scan needs group A-E, net 1-20 or stop");
}

constexpr NamedCode kKeys[] = {
    {"f1", 4}, {"f2", 5},   {"f3", 6},     {"f4", 7},   {"#", 8},
    {"*", 9},  {"esc", 10}, {"enter", 11}, {"gps", 12}, {"menu", 23},
};

ConsoleParse parseKey(Args args)
{
    if (args.size() != 1) {
        return fail("key needs one key: 0-9, F1-F4, #, *, ESC, ENTER, GPS or MENU");
    }
    const std::string name = lower(args[0].text);
    if (name.size() == 1 && std::isdigit(static_cast<unsigned char>(name[0]))) {
        return ok(RadioEvent{FrontPanelKey{13 + (name[0] - '0')}});
    }
    for (const NamedCode& key : kKeys) {
        if (name == key.name) {
            return ok(RadioEvent{FrontPanelKey{key.code}});
        }
    }
    return fail("unknown key '" + args[0].text + "'");
}

ConsoleParse parseRemote(Args args)
{
    if (!args.empty()) {
        return fail("remote takes no arguments");
    }
    return ok(RadioEvent{RemoteRequest{}});
}

ConsoleParse parseFault(Args args)
{
    if (args.empty()) {
        return fail("fault needs no-answer, answer-once, corrupt, drop-after, reject or clear");
    }
    const Args rest = args.subspan(1);
    if (is(args[0], "clear") || is(args[0], "none")) {
        return ok(ClearFaults{});
    }
    if (is(args[0], "no-answer") && rest.empty()) {
        return ok(FaultCommand{FaultKind::NoAnswer, 0});
    }
    if (is(args[0], "answer-once") && rest.empty()) {
        return ok(FaultCommand{FaultKind::AnswerOnce, 0});
    }
    if (is(args[0], "corrupt")) {
        const auto count = rest.empty()       ? std::optional<unsigned>(1)
                           : rest.size() == 1 ? number(rest[0], 1, 1000)
                                              : std::nullopt;
        if (!count) {
            return fail(rangeError("the number of frames to corrupt", 1, 1000));
        }
        return ok(FaultCommand{FaultKind::Corrupt, *count});
    }
    if (is(args[0], "drop-after")) {
        const auto bytes = rest.size() == 1 ? number(rest[0], 0, 100000000) : std::nullopt;
        if (!bytes) {
            return fail(rangeError("the number of bytes before the drop", 0, 100000000));
        }
        return ok(FaultCommand{FaultKind::DropAfter, *bytes});
    }
    if (is(args[0], "reject")) {
        const auto opcode = rest.size() == 1 ? number(rest[0], 0, 255) : std::nullopt;
        if (!opcode) {
            return fail(rangeError("the rejected request's opcode", 0, 255));
        }
        return ok(FaultCommand{FaultKind::Reject, *opcode});
    }
    return fail("unknown fault '" + args[0].text + "'");
}

ConsoleParse parseBaud(Args args)
{
    if (args.size() == 1 && is(args[0], "off")) {
        return ok(SetBaud{0});
    }
    const auto baud = args.size() == 1 ? number(args[0], 50, 4000000) : std::nullopt;
    if (!baud) {
        return fail("baud needs a rate in bits per second (e.g. 9600) or off");
    }
    return ok(SetBaud{*baud});
}

ConsoleParse parseMode(Args args)
{
    if (args.size() == 1 && (is(args[0], "ale") || is(args[0], "ccir"))) {
        return ok(SetMode{is(args[0], "ccir")});
    }
    return fail("mode needs ale or ccir");
}

ConsoleParse parseVersion(Args args)
{
    if (args.size() != 1 || args[0].text.empty() || args[0].text.size() > 8 ||
        args[0].text.find_first_not_of("0123456789.") != std::string::npos) {
        return fail("version needs a text of up to 8 digits and dots, e.g. 03.100");
    }
    return ok(SetVersion{args[0].text});
}

ConsoleParse parseSupport(Args args)
{
    if (args.size() == 1 && (is(args[0], "on") || is(args[0], "off"))) {
        return ok(SetSupport{is(args[0], "on")});
    }
    return fail("support needs on or off");
}

template <typename T>
ConsoleParse noArguments(Args args)
{
    if (!args.empty()) {
        return fail("this command takes no arguments");
    }
    return ok(T{});
}

struct Verb
{
    std::string_view name;
    std::string_view usage;
    std::string_view description;
    Parser parse;
};

constexpr Verb kVerbs[] = {
    {"call", "call station|net|all ADDRESS [\"MESSAGE\"] [channel N]",
     "another station calls this radio (with a message when given)", parseCall},
    {"link", "link none|established|channel-busy|station-busy|silent|in-progress|failed|CODE",
     "report the result of the current link attempt", parseLink},
    {"lqa", "lqa [STEPS]", "play a bidirectional link-quality exchange", parseLqa},
    {"sound", "sound [STEPS]", "play a sounding", parseSound},
    {"bite", "bite run full|channel|lowrf", "run the built-in test now", parseBite},
    {"bite", "bite fail ITEM... | bite unable ITEM... | bite pass",
     "choose the items (1-39) the next tests report as failed or unable", parseBite},
    {"channel", "channel N", "the operator selects channel N on the radio", parseChannel},
    {"scan", "scan group A-E | scan net N | scan stop", "the operator starts or stops a scan",
     parseScan},
    {"key", "key 0-9|F1-F4|#|*|ESC|ENTER|GPS|MENU", "the operator presses a key on the radio",
     parseKey},
    {"remote", "remote", "the radio asks for remote control", parseRemote},
    {"fault", "fault no-answer | answer-once | corrupt [FRAMES] | drop-after BYTES",
     "inject a link fault", parseFault},
    {"fault", "fault reject OPCODE | fault clear",
     "refuse requests of an opcode (reply 60); clear all faults", parseFault},
    {"baud", "baud RATE|off", "pace bytes at RATE bits per second, or not at all", parseBaud},
    {"mode", "mode ale|ccir", "switch between ALE and CCIR selective calling", parseMode},
    {"version", "version TEXT", "the software version the radio reports", parseVersion},
    {"support", "support on|off", "whether global members and extra options are kept",
     parseSupport},
    {"status", "status", "show the radio's state", noArguments<ShowStatus>},
    {"help", "help", "list these commands", noArguments<ShowHelp>},
    {"quit", "quit", "stop the virtual radio", noArguments<Quit>},
};

std::optional<std::vector<Token>> tokenize(std::string_view line, std::string& error)
{
    std::vector<Token> tokens;
    std::size_t i = 0;
    while (i < line.size()) {
        if (std::isspace(static_cast<unsigned char>(line[i]))) {
            ++i;
        } else if (line[i] == '"') {
            const std::size_t close = line.find('"', i + 1);
            if (close == std::string_view::npos) {
                error = "a quoted text is not closed";
                return std::nullopt;
            }
            tokens.push_back({std::string(line.substr(i + 1, close - i - 1)), true});
            i = close + 1;
        } else {
            std::size_t end = i;
            while (end < line.size() && !std::isspace(static_cast<unsigned char>(line[end]))) {
                ++end;
            }
            tokens.push_back({std::string(line.substr(i, end - i)), false});
            i = end;
        }
    }
    return tokens;
}

} // namespace

ConsoleParse parseConsoleLine(std::string_view line)
{
    std::string error;
    const auto tokens = tokenize(line, error);
    if (!tokens) {
        return fail(error);
    }
    if (tokens->empty()) {
        return {};
    }
    const Token& verb = tokens->front();
    const auto row = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                  [&](const Verb& v) { return is(verb, v.name); });
    if (row == std::end(kVerbs)) {
        return fail("unknown command '" + verb.text + "' (type help for the list)");
    }
    return row->parse(Args(*tokens).subspan(1));
}

std::string consoleHelp()
{
    std::string help;
    for (const Verb& verb : kVerbs) {
        help += "  ";
        help += verb.usage;
        help += "\n      ";
        help += verb.description;
        help += '\n';
    }
    return help;
}

} // namespace koral::radiosim
