#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace koral {

// What the incoming-call dialog shows of a call report (opcodes 79, 80, 82 and 90).
struct IncomingCall
{
    std::string_view title;    // empty when the opcode names no call type
    std::string_view callType; // "Station", "Net" or "Priority"; empty as above
    int channel = 0;
    int channelValue = 0;
    std::string address;
    std::optional<std::string> message;
};

// Byte positions in the call report: the channel as two bytes, the channel's value, a flag
// that announces a message, the 16-byte calling address, then the message.
namespace incoming_call {
inline constexpr std::size_t kChannel = 6;
inline constexpr std::size_t kChannelValue = 8;
inline constexpr std::size_t kMessageFlag = 9;
inline constexpr std::size_t kAddress = 10;
inline constexpr std::size_t kAddressSize = 16;
inline constexpr std::size_t kMessage = 26;
inline constexpr std::size_t kMessageLimit = 91;
} // namespace incoming_call

// Decodes a call report given as the 262 bytes of its message and its opcode.
IncomingCall decodeIncomingCall(int opcode, std::span<const std::uint8_t> message);

} // namespace koral
