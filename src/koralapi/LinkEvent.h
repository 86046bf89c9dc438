#pragma once

#include <cstdint>
#include <vector>

namespace koral {

// One thing that happened on the link, as a trace records it: a frame that crossed the wire,
// or a fault (a missed acknowledgement, a damaged frame, an answer that did not come).
struct LinkEvent
{
    enum class Kind : std::uint8_t
    {
        Sent,          // a frame written for the first time
        Resent,        // a frame written again (`transmission` is 2 or more)
        Received,      // a complete frame whose checksum matched
        AckTimeout,    // `bytes` (a frame in flight) was not acknowledged within `boundMs`
        GivenUp,       // `bytes` failed after its last transmission; `count` messages failed
        ChecksumError, // `bytes` arrived whole but its checksum does not match
        BadHeader,     // `bytes` (a frame header) holds an unknown kind or an impossible length
        Truncated,     // `bytes` started a frame, then nothing came within the inter-byte bound
        ReplyTimeout,  // no message of `opcode` (-1: of a transfer) came within `boundMs`
    };

    Kind kind = Kind::Sent;
    std::int64_t timeMs = 0;         // since the trace started
    std::vector<std::uint8_t> bytes; // the frame's bytes on the wire, as far as there are any
    int transmission = 1;
    int boundMs = 0;
    int count = 0;
    int opcode = -1;
};

} // namespace koral
