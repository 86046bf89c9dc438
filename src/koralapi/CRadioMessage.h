#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace koral {

// One message of the link: 262 bytes, as the program builds and reads it. Byte 0 is the start
// marker, byte 1 the opcode, bytes 3-4 the payload length (big-endian), bytes 2 and 5 the
// destination and source units; the payload starts at byte 6.
class CRadioMessage
{
public:
    static constexpr std::size_t kSize = 262;
    static constexpr std::size_t kHeaderSize = 6;
    static constexpr std::size_t kMaxPayload = kSize - kHeaderSize;
    static constexpr std::uint8_t kStartMarker = 0x24;
    static constexpr std::uint8_t kRadioUnit = 0x18;
    static constexpr std::uint8_t kComputerUnit = 0x03;

    CRadioMessage() = default;

    // Sets bytes 0, 2 and 5 the way the program prepares every request.
    void prepareRequest();
    // Sets bytes 0, 2 and 5 the way the radio marks its own messages.
    void prepareReport();

    int GetOpcode() const { return bytes[1]; }
    // The payload length (bytes 3-4).
    int GetLen() const { return (bytes[3] << 8) | bytes[4]; }

    // Sets the opcode and the payload length; bytes beyond the payload are cleared so that a
    // reused message carries nothing stale.
    void setOpcodeAndLength(int opcode, std::size_t payloadLength);

    // The bytes that travel on the wire: header and payload.
    std::span<const std::uint8_t> wireBytes() const;
    // Takes a received message; false (and the message cleared) when the bytes cannot be one.
    bool assign(std::span<const std::uint8_t> wire);

    std::uint8_t& operator[](std::size_t i) { return bytes[i]; }
    std::uint8_t operator[](std::size_t i) const { return bytes[i]; }
    std::uint8_t* payload() { return bytes.data() + kHeaderSize; }
    const std::uint8_t* payload() const { return bytes.data() + kHeaderSize; }

    // Big-endian numbers in the payload area; `at` counts from byte 0 of the message.
    void put16(std::size_t at, std::uint16_t value);
    std::uint16_t get16(std::size_t at) const;
    void put32(std::size_t at, std::uint32_t value);
    std::uint32_t get32(std::size_t at) const;

    std::array<std::uint8_t, kSize> bytes{};
};

static_assert(sizeof(CRadioMessage) == CRadioMessage::kSize);

} // namespace koral
