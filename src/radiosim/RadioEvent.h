#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace koral::radiosim {

// Things that happen to the radio from outside the control program: another station calls,
// a link attempt ends, the operator presses keys on the radio itself. Played on command (the
// console of koral-radio-sim, or a test).

enum class CallKind : std::uint8_t
{
    Station,
    Net,
    All,
};

struct IncomingCall
{
    CallKind kind = CallKind::Station;
    std::string address;
    std::string message;  // empty: a call without a message
    unsigned channel = 0; // 0: the radio's active channel
    bool operator==(const IncomingCall&) const = default;
};

// Link result codes as the radio reports them (opcode 85).
struct LinkResult
{
    std::uint8_t code = 0;
    bool operator==(const LinkResult&) const = default;
};

// A bidirectional link-quality exchange or a sounding, reported step by step.
struct LinkQualityRun
{
    bool sounding = false;
    unsigned steps = 5;
    bool operator==(const LinkQualityRun&) const = default;
};

enum class SelfTestType : std::uint8_t
{
    Full = 0,
    Channel = 1,
    LowRf = 2,
};

struct SelfTestRun
{
    SelfTestType type = SelfTestType::Full;
    bool operator==(const SelfTestRun&) const = default;
};

// Which items the next built-in tests report as failed or unable to perform (1..39).
struct SelfTestPlan
{
    std::vector<unsigned> failed;
    std::vector<unsigned> unable;
    bool operator==(const SelfTestPlan&) const = default;
};

// The operator turns the channel knob, starts or stops a scan, or presses a key on the radio.
struct FrontPanelChannel
{
    unsigned channel = 1;
    bool operator==(const FrontPanelChannel&) const = default;
};

struct FrontPanelScan
{
    bool on = false;
    bool ale = false;   // scan an ALE net instead of a group
    unsigned index = 0; // group 0..4 or net 0..19
    bool operator==(const FrontPanelScan&) const = default;
};

struct FrontPanelKey
{
    int code = 0;
    bool operator==(const FrontPanelKey&) const = default;
};

// The radio asks the program to take remote control (opcode 28).
struct RemoteRequest
{
    bool operator==(const RemoteRequest&) const = default;
};

using RadioEvent = std::variant<IncomingCall, LinkResult, LinkQualityRun, SelfTestRun,
                                FrontPanelChannel, FrontPanelScan, FrontPanelKey, RemoteRequest>;

} // namespace koral::radiosim
