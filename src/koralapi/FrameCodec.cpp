#include "koralapi/FrameCodec.h"

#include <algorithm>

namespace koral {

std::uint16_t crc16(std::span<const std::uint8_t> data, std::uint16_t crc)
{
    for (std::uint8_t byte : data) {
        crc ^= static_cast<std::uint16_t>(byte << 8);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000) ? static_cast<std::uint16_t>((crc << 1) ^ 0x1021)
                                 : static_cast<std::uint16_t>(crc << 1);
    }
    return crc;
}

std::vector<std::uint8_t> encodeFrame(FrameKind kind, std::uint8_t seq,
                                      std::span<const std::uint8_t> body)
{
    body = body.first(std::min(body.size(), frame::kMaxBody));
    std::vector<std::uint8_t> out;
    out.reserve(body.size() + frame::kOverhead);
    out.push_back(frame::kSync);
    out.push_back(static_cast<std::uint8_t>(kind));
    out.push_back(seq);
    out.push_back(static_cast<std::uint8_t>(body.size() >> 8));
    out.push_back(static_cast<std::uint8_t>(body.size()));
    out.insert(out.end(), body.begin(), body.end());
    const std::uint16_t crc = crc16(std::span(out).subspan(1));
    out.push_back(static_cast<std::uint8_t>(crc >> 8));
    out.push_back(static_cast<std::uint8_t>(crc));
    return out;
}

namespace {
bool knownKind(std::uint8_t kind)
{
    return kind >= static_cast<std::uint8_t>(FrameKind::Data) &&
           kind <= static_cast<std::uint8_t>(FrameKind::Close);
}
} // namespace

void FrameDecoder::feed(std::span<const std::uint8_t> bytes)
{
    for (std::uint8_t byte : bytes) {
        // Outside a frame only a sync byte is worth keeping.
        if (m_buffer.empty() && byte != frame::kSync)
            continue;
        m_buffer.push_back(byte);
    }
}

void FrameDecoder::reject(FrameFault fault, std::size_t bytes)
{
    ++m_rejected;
    if (m_keepRejections) {
        const auto end =
            m_buffer.begin() + static_cast<std::ptrdiff_t>(std::min(bytes, m_buffer.size()));
        m_rejections.push_back({fault, std::vector<std::uint8_t>(m_buffer.begin(), end)});
    }
    // Drop the sync byte the frame started at and hunt again from the next byte.
    m_buffer.pop_front();
    while (!m_buffer.empty() && m_buffer.front() != frame::kSync)
        m_buffer.pop_front();
}

std::optional<Frame> FrameDecoder::next()
{
    while (m_buffer.size() >= frame::kHeaderSize) {
        const std::uint8_t kind = m_buffer[1];
        const std::size_t length = (std::size_t{m_buffer[3]} << 8) | m_buffer[4];
        const bool bodyAllowed = kind == static_cast<std::uint8_t>(FrameKind::Data);
        if (!knownKind(kind) || length > frame::kMaxBody || (!bodyAllowed && length != 0)) {
            reject(FrameFault::Header, frame::kHeaderSize);
            continue;
        }
        const std::size_t total = frame::kHeaderSize + length + frame::kCrcSize;
        if (m_buffer.size() < total)
            return std::nullopt;
        std::vector<std::uint8_t> bytes(m_buffer.begin(), m_buffer.begin() + total);
        const std::uint16_t expected =
            static_cast<std::uint16_t>((bytes[total - 2] << 8) | bytes[total - 1]);
        if (crc16(std::span(bytes).subspan(1, total - 1 - frame::kCrcSize)) != expected) {
            reject(FrameFault::Checksum, total);
            continue;
        }
        m_buffer.erase(m_buffer.begin(), m_buffer.begin() + total);
        while (!m_buffer.empty() && m_buffer.front() != frame::kSync)
            m_buffer.pop_front();
        Frame frame;
        frame.kind = static_cast<FrameKind>(kind);
        frame.seq = bytes[2];
        frame.body.assign(bytes.begin() + frame::kHeaderSize,
                          bytes.begin() + frame::kHeaderSize + length);
        return frame;
    }
    return std::nullopt;
}

std::size_t FrameDecoder::discardPartial()
{
    if (m_buffer.empty())
        return 0;
    const std::size_t before = m_buffer.size();
    reject(FrameFault::Truncated, before);
    return before - m_buffer.size();
}

} // namespace koral
