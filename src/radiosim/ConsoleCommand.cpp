#include "radiosim/ConsoleCommand.h"

#include "common/Texts.h"

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

ConsoleParse fail(std::string_view error)
{
    return {std::nullopt, std::string(error)};
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
        return fail(text::kSimCallNeedsKind);
    }
    IncomingCall call;
    if (is(args[0], "station")) {
        call.kind = CallKind::Station;
    } else if (is(args[0], "net")) {
        call.kind = CallKind::Net;
    } else if (is(args[0], "all")) {
        call.kind = CallKind::All;
    } else {
        return fail(text::format(text::kSimUnknownCallKind.data(), args[0].text.c_str()));
    }
    call.address = args[1].text;
    if (call.address.empty() || !validText(call.address, 15, false)) {
        return fail(text::kSimBadAddress);
    }
    for (std::size_t i = 2; i < args.size(); ++i) {
        if (is(args[i], "channel") || is(args[i], "ch")) {
            if (i + 1 >= args.size()) {
                return fail(text::kSimBadChannel);
            }
            const auto channel = number(args[++i], 1, 200);
            if (!channel) {
                return fail(text::kSimBadChannel);
            }
            call.channel = *channel;
        } else if (call.message.empty()) {
            call.message = args[i].text;
            if (!validText(call.message, 90, true)) {
                return fail(text::kSimBadMessage);
            }
        } else {
            return fail(text::format(text::kSimUnexpectedWord.data(), args[i].text.c_str()));
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
        return fail(text::kSimLinkNeedsResult);
    }
    for (const NamedCode& result : kLinkResults) {
        if (is(args[0], result.name)) {
            return ok(RadioEvent{LinkResult{result.code}});
        }
    }
    if (const auto code = number(args[0], 0, 255)) {
        return ok(RadioEvent{LinkResult{static_cast<std::uint8_t>(*code)}});
    }
    return fail(text::format(text::kSimUnknownLinkResult.data(), args[0].text.c_str()));
}

ConsoleParse parseLinkQuality(Args args, bool sounding)
{
    LinkQualityRun run{sounding, 5};
    if (args.size() > 1) {
        return fail(text::kSimBadSteps);
    }
    if (args.size() == 1) {
        const auto steps = number(args[0], 1, 100);
        if (!steps) {
            return fail(text::kSimBadSteps);
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
        return fail(text::kSimBiteNeedsAction);
    }
    if (is(args[0], "run")) {
        for (const NamedCode& type : kTestTypes) {
            if (args.size() == 2 && is(args[1], type.name)) {
                return ok(RadioEvent{SelfTestRun{static_cast<SelfTestType>(type.code)}});
            }
        }
        return fail(text::kSimBiteNeedsType);
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
        return fail(text::kSimBiteNeedsAction);
    }
    if (args.size() < 2) {
        return fail(text::kSimBadTestItem);
    }
    for (const Token& token : args.subspan(1)) {
        const auto item = number(token, 1, 39);
        if (!item) {
            return fail(text::kSimBadTestItem);
        }
        outcome.items.push_back(*item);
    }
    return ok(outcome);
}

ConsoleParse parseChannel(Args args)
{
    const auto channel = args.size() == 1 ? number(args[0], 1, 200) : std::nullopt;
    if (!channel) {
        return fail(text::kSimBadChannel);
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
        return fail(text::kSimBadGroup);
    }
    if (args.size() == 2 && is(args[0], "net")) {
        if (const auto net = number(args[1], 1, 20)) {
            return ok(RadioEvent{FrontPanelScan{true, true, *net - 1}});
        }
        return fail(text::kSimBadNet);
    }
    return fail(text::kSimScanNeeds);
}

constexpr NamedCode kKeys[] = {
    {"f1", 4}, {"f2", 5},   {"f3", 6},     {"f4", 7},   {"#", 8},
    {"*", 9},  {"esc", 10}, {"enter", 11}, {"gps", 12}, {"menu", 23},
};

ConsoleParse parseKey(Args args)
{
    if (args.size() != 1) {
        return fail(text::kSimKeyNeeds);
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
    return fail(text::format(text::kSimUnknownKey.data(), args[0].text.c_str()));
}

ConsoleParse parseRemote(Args args)
{
    if (!args.empty()) {
        return fail(text::kSimNoArguments);
    }
    return ok(RadioEvent{RemoteRequest{}});
}

ConsoleParse parseFault(Args args)
{
    if (args.empty()) {
        return fail(text::kSimFaultNeeds);
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
            return fail(text::kSimBadCorruptCount);
        }
        return ok(FaultCommand{FaultKind::Corrupt, *count});
    }
    if (is(args[0], "drop-after")) {
        const auto bytes = rest.size() == 1 ? number(rest[0], 0, 100000000) : std::nullopt;
        if (!bytes) {
            return fail(text::kSimBadDropCount);
        }
        return ok(FaultCommand{FaultKind::DropAfter, *bytes});
    }
    if (is(args[0], "reject")) {
        const auto opcode = rest.size() == 1 ? number(rest[0], 0, 255) : std::nullopt;
        if (!opcode) {
            return fail(text::kSimBadRejectOpcode);
        }
        return ok(FaultCommand{FaultKind::Reject, *opcode});
    }
    return fail(text::format(text::kSimUnknownFault.data(), args[0].text.c_str()));
}

ConsoleParse parseBaud(Args args)
{
    if (args.size() == 1 && is(args[0], "off")) {
        return ok(SetBaud{0});
    }
    const auto baud = args.size() == 1 ? number(args[0], 50, 4000000) : std::nullopt;
    if (!baud) {
        return fail(text::kSimBaudNeeds);
    }
    return ok(SetBaud{*baud});
}

ConsoleParse parseMode(Args args)
{
    if (args.size() == 1 && (is(args[0], "ale") || is(args[0], "ccir"))) {
        return ok(SetMode{is(args[0], "ccir")});
    }
    return fail(text::kSimModeNeeds);
}

ConsoleParse parseVersion(Args args)
{
    if (args.size() != 1 || args[0].text.empty() || args[0].text.size() > 8 ||
        args[0].text.find_first_not_of("0123456789.") != std::string::npos) {
        return fail(text::kSimVersionNeeds);
    }
    return ok(SetVersion{args[0].text});
}

ConsoleParse parseSupport(Args args)
{
    if (args.size() == 1 && (is(args[0], "on") || is(args[0], "off"))) {
        return ok(SetSupport{is(args[0], "on")});
    }
    return fail(text::kSimSupportNeeds);
}

template <typename T>
ConsoleParse noArguments(Args args)
{
    if (!args.empty()) {
        return fail(text::kSimNoArguments);
    }
    return ok(T{});
}

struct Verb
{
    std::string_view name;
    Parser parse;
};

constexpr Verb kVerbs[] = {
    {"call", parseCall},
    {"link", parseLink},
    {"lqa", parseLqa},
    {"sound", parseSound},
    {"bite", parseBite},
    {"channel", parseChannel},
    {"scan", parseScan},
    {"key", parseKey},
    {"remote", parseRemote},
    {"fault", parseFault},
    {"baud", parseBaud},
    {"mode", parseMode},
    {"version", parseVersion},
    {"support", parseSupport},
    {"status", noArguments<ShowStatus>},
    {"help", noArguments<ShowHelp>},
    {"quit", noArguments<Quit>},
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
                error = text::kSimQuoteNotClosed;
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
        return fail(text::format(text::kSimUnknownCommand.data(), verb.text.c_str()));
    }
    return row->parse(Args(*tokens).subspan(1));
}

std::string consoleHelp()
{
    return std::string(text::kSimConsoleHelp);
}

} // namespace koral::radiosim
