#include "koralapi/CRadioMessage.h"

#include <algorithm>

namespace koral {

void CRadioMessage::prepareRequest()
{
    bytes[0] = kStartMarker;
    bytes[2] = kRadioUnit;
    bytes[5] = kComputerUnit;
}

void CRadioMessage::prepareReport()
{
    bytes[0] = kStartMarker;
    bytes[2] = kComputerUnit;
    bytes[5] = kRadioUnit;
}

void CRadioMessage::setOpcodeAndLength(int opcode, std::size_t payloadLength)
{
    payloadLength = std::min(payloadLength, kMaxPayload);
    bytes[1] = static_cast<std::uint8_t>(opcode);
    bytes[3] = static_cast<std::uint8_t>(payloadLength >> 8);
    bytes[4] = static_cast<std::uint8_t>(payloadLength);
    std::fill(bytes.begin() + kHeaderSize, bytes.end(), 0);
}

std::span<const std::uint8_t> CRadioMessage::wireBytes() const
{
    const auto length = std::min<std::size_t>(static_cast<std::size_t>(GetLen()), kMaxPayload);
    return {bytes.data(), kHeaderSize + length};
}

bool CRadioMessage::assign(std::span<const std::uint8_t> wire)
{
    bytes.fill(0);
    if (wire.size() < kHeaderSize || wire.size() > kSize)
        return false;
    const std::size_t declared = (std::size_t{wire[3]} << 8) | wire[4];
    if (declared != wire.size() - kHeaderSize)
        return false;
    std::copy(wire.begin(), wire.end(), bytes.begin());
    return true;
}

void CRadioMessage::put16(std::size_t at, std::uint16_t value)
{
    bytes[at] = static_cast<std::uint8_t>(value >> 8);
    bytes[at + 1] = static_cast<std::uint8_t>(value);
}

std::uint16_t CRadioMessage::get16(std::size_t at) const
{
    return static_cast<std::uint16_t>((bytes[at] << 8) | bytes[at + 1]);
}

void CRadioMessage::put32(std::size_t at, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
}

std::uint32_t CRadioMessage::get32(std::size_t at) const
{
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
        value = (value << 8) | bytes[at + i];
    return value;
}

} // namespace koral
