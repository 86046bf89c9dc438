#pragma once

#include "koralapi/LinkEvent.h"

#include <cstdint>
#include <span>
#include <string>

namespace koral {

// One line of a link trace, in columns: what a technician reads to tell a bad cable (damaged
// frames, retries, silence) from a radio that refuses a request.
struct LinkTraceRow
{
    // What makes a line stand out; None for the frames of a healthy link.
    enum class Mark : std::uint8_t
    {
        None,
        Retry,         // "RETRY n/3": a frame sent again
        Timeout,       // "TIMEOUT": an acknowledgement, an answer or a frame's bytes did not come
        ChecksumError, // "CRC-ERROR"
        BadFrame,      // "BAD-FRAME": a header no station sends
        Failed,        // "FAILED": a frame given up after its last transmission
    };

    std::int64_t timeMs = 0;
    std::string direction; // "->" sent, "<-" received, "" neither
    Mark mark = Mark::None;
    std::string markText; // the word of the mark, with the transmission for a retry
    std::string frame;    // "DATA #3", "ACK #3"
    std::string message;  // "SetActiveChannel (100)"
    std::string fields;   // "unit=0 channel=12", or what went wrong
    std::string hex;      // the bytes, "7E 01 03 ..."

    // The row as one line of a trace file.
    std::string line() const;

    // The row of one event.
    static LinkTraceRow describe(const LinkEvent& event);
    // "7E 01 03": bytes in hex, one space apart.
    static std::string hexBytes(std::span<const std::uint8_t> bytes);
    // The name of a message by its opcode and direction ("SetActiveChannel (100)").
    static std::string messageName(int opcode, bool fromRadio);
};

} // namespace koral
