#include "session/IncomingCall.h"

#include "common/Texts.h"

#include <algorithm>
#include <cstdlib>

namespace koral {

namespace {

// Text of a NUL-padded field, cut at its first NUL or at the end of the field.
std::string fieldText(std::span<const std::uint8_t> bytes)
{
    const auto end = std::find(bytes.begin(), bytes.end(), std::uint8_t{0});
    return std::string(bytes.begin(), end);
}

// Some radios send the channel as two decimal characters, others as a zero followed by the
// channel number.
int decodeChannel(std::uint8_t first, std::uint8_t second)
{
    if (first != 0) {
        const char digits[3] = {static_cast<char>(first), static_cast<char>(second), 0};
        return std::atoi(digits);
    }
    return static_cast<std::int8_t>(second);
}

} // namespace

IncomingCall decodeIncomingCall(int opcode, std::span<const std::uint8_t> message)
{
    using namespace incoming_call;
    IncomingCall call;
    switch (opcode) {
    case 79:
    case 90:
        call.title = text::kIncomingStationCall;
        call.callType = text::kCallTypeStation;
        break;
    case 80:
        call.title = text::kIncomingNetCall;
        call.callType = text::kCallTypeNet;
        break;
    case 82:
        call.title = text::kIncomingPriorityCall;
        call.callType = text::kCallTypePriority;
        break;
    default:
        break;
    }
    if (message.size() < kMessage)
        return call;
    call.channel = decodeChannel(message[kChannel], message[kChannel + 1]);
    call.channelValue = message[kChannelValue];
    const auto addressField = message.subspan(kAddress, kAddressSize);
    call.address = fieldText(addressField);
    if (message[kMessageFlag] == 1) {
        const std::size_t length = std::min(kMessageLimit, message.size() - kMessage);
        call.message = fieldText(message.subspan(kMessage, length));
    }
    return call;
}

} // namespace koral
