#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace koral {

// Frames on the byte stream: 0x7E, kind, seq, length (2, big-endian), body, CRC-16 (2).
// No byte stuffing: a receiver resynchronises by hunting for the next 0x7E after a bad frame.
enum class FrameKind : std::uint8_t
{
    Data = 1,
    Ack = 2,
    Nak = 3,
    Reset = 4,
    ResetAck = 5,
    Close = 6,
};

struct Frame
{
    FrameKind kind = FrameKind::Data;
    std::uint8_t seq = 0;
    std::vector<std::uint8_t> body;
};

namespace frame {
inline constexpr std::uint8_t kSync = 0x7E;
inline constexpr std::size_t kHeaderSize = 5;
inline constexpr std::size_t kCrcSize = 2;
inline constexpr std::size_t kOverhead = kHeaderSize + kCrcSize;
inline constexpr std::size_t kMaxBody = 262;
inline constexpr std::size_t kMaxFrame = kMaxBody + kOverhead;
} // namespace frame

// CRC-16/CCITT-FALSE: polynomial 0x1021, initial 0xFFFF, no reflection, no final xor.
std::uint16_t crc16(std::span<const std::uint8_t> data, std::uint16_t crc = 0xFFFF);

// The bytes of one frame; a body longer than frame::kMaxBody is cut.
std::vector<std::uint8_t> encodeFrame(FrameKind kind, std::uint8_t seq,
                                      std::span<const std::uint8_t> body = {});

// Why the decoder dropped bytes that had started a frame.
enum class FrameFault : std::uint8_t
{
    Checksum,  // the frame was complete but its checksum does not match
    Header,    // an unknown kind, a length above the limit, or a body where none belongs
    Truncated, // the frame's bytes stopped coming (discardPartial)
};

struct RejectedFrame
{
    FrameFault fault = FrameFault::Checksum;
    std::vector<std::uint8_t> bytes; // from the sync byte on, as far as they were judged
};

// Incremental decoder: feed it whatever the stream delivered, take complete frames out.
// It never throws and never grows beyond one frame plus the unread input.
class FrameDecoder
{
public:
    void feed(std::span<const std::uint8_t> bytes);
    // The next complete, checked frame, if any.
    std::optional<Frame> next();
    // A frame has started but is not complete yet (the inter-byte bound applies).
    bool inFrame() const { return !m_buffer.empty(); }
    // Drops a partial frame whose bytes stopped coming; returns how many bytes were dropped.
    std::size_t discardPartial();
    // Frames rejected so far (bad checksum, bad kind or length, truncated).
    std::size_t rejectedFrames() const { return m_rejected; }
    // Keeps what each rejection dropped until takeRejections (for a trace of the link).
    void setKeepRejections(bool keep) { m_keepRejections = keep; }
    std::vector<RejectedFrame> takeRejections() { return std::exchange(m_rejections, {}); }

private:
    void reject(FrameFault fault, std::size_t bytes);

    std::deque<std::uint8_t> m_buffer;
    std::size_t m_rejected = 0;
    bool m_keepRejections = false;
    std::vector<RejectedFrame> m_rejections;
};

} // namespace koral
