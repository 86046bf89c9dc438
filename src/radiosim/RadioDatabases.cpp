#include "radiosim/RadioDatabases.h"

#include <algorithm>
#include <cstring>

namespace koral::radiosim {

std::uint16_t readU16(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return static_cast<std::uint16_t>(bytes[at] << 8 | bytes[at + 1]);
}

std::uint32_t readU32(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return std::uint32_t{bytes[at]} << 24 | std::uint32_t{bytes[at + 1]} << 16 |
           std::uint32_t{bytes[at + 2]} << 8 | std::uint32_t{bytes[at + 3]};
}

void writeU16(std::span<std::uint8_t> bytes, std::size_t at, std::uint16_t value)
{
    bytes[at] = static_cast<std::uint8_t>(value >> 8);
    bytes[at + 1] = static_cast<std::uint8_t>(value);
}

void writeU32(std::span<std::uint8_t> bytes, std::size_t at, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i) {
        bytes[at + i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
    }
}

void writeText(std::span<std::uint8_t> bytes, std::size_t at, std::size_t width,
               std::string_view text)
{
    auto field = bytes.subspan(at, width);
    std::fill(field.begin(), field.end(), std::uint8_t{0});
    std::memcpy(field.data(), text.data(), std::min(width, text.size()));
}

std::string_view readText(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t width)
{
    const auto* begin = reinterpret_cast<const char*>(bytes.data() + at);
    const auto* end = static_cast<const char*>(std::memchr(begin, 0, width));
    return {begin, end ? static_cast<std::size_t>(end - begin) : width};
}

bool channelBit(std::span<const std::uint8_t> bytes, std::size_t at, unsigned channel)
{
    return (bytes[at + channel / 8] >> (7 - channel % 8) & 1) != 0;
}

void setChannelBit(std::span<std::uint8_t> bytes, std::size_t at, unsigned channel)
{
    bytes[at + channel / 8] |= static_cast<std::uint8_t>(0x80 >> (channel % 8));
}

namespace {
std::size_t channelOffset(unsigned channel)
{
    return layout::kChannels + (channel - 1) * layout::kChannelSize;
}
std::size_t groupOffset(unsigned group)
{
    return layout::kGroups + group * layout::kGroupSize;
}
std::size_t netOffset(unsigned net)
{
    return net * layout::kNetSize;
}
} // namespace

std::uint32_t channelTx(const RadioDatabases& db, unsigned channel)
{
    return readU32(db.radio, channelOffset(channel) + layout::kChannelTx);
}

std::uint32_t channelRx(const RadioDatabases& db, unsigned channel)
{
    return readU32(db.radio, channelOffset(channel) + layout::kChannelRx);
}

bool channelProgrammed(const RadioDatabases& db, unsigned channel)
{
    return channel >= 1 && channel <= layout::kChannelCount &&
           (channelTx(db, channel) != 0 || channelRx(db, channel) != 0);
}

std::span<std::uint8_t, layout::kChannelSize> channelRecord(RadioDatabases& db, unsigned channel)
{
    return std::span(db.radio).subspan(channelOffset(channel)).first<layout::kChannelSize>();
}

std::span<const std::uint8_t, layout::kChannelSize> channelRecord(const RadioDatabases& db,
                                                                  unsigned channel)
{
    return std::span(db.radio).subspan(channelOffset(channel)).first<layout::kChannelSize>();
}

bool groupProgrammed(const RadioDatabases& db, unsigned group)
{
    const auto bitmap =
        std::span(db.radio).subspan(groupOffset(group) + 2, layout::kChannelBitmapSize);
    return std::any_of(bitmap.begin(), bitmap.end(), [](std::uint8_t b) { return b != 0; });
}

bool groupHasChannel(const RadioDatabases& db, unsigned group, unsigned channel)
{
    return channelBit(db.radio, groupOffset(group) + 2, channel);
}

bool netConfigured(const RadioDatabases& db, unsigned net)
{
    const auto set = std::span(db.ale).subspan(netOffset(net) + layout::kNetScannedChannels,
                                               layout::kChannelBitmapSize);
    return std::any_of(set.begin(), set.end(), [](std::uint8_t b) { return b != 0; });
}

bool netHasChannel(const RadioDatabases& db, unsigned net, unsigned channel)
{
    return channelBit(db.ale, netOffset(net) + layout::kNetScannedChannels, channel);
}

std::string_view netName(const RadioDatabases& db, unsigned net)
{
    return readText(db.ale, netOffset(net), layout::kAddressSize);
}

std::string_view netSelfAddress(const RadioDatabases& db, unsigned net)
{
    return readText(db.ale, netOffset(net) + layout::kNetSelfAddress, layout::kAddressSize);
}

} // namespace koral::radiosim
