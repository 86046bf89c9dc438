#include "koralapi/RadioRecords.h"

#include <algorithm>
#include <bit>

namespace koral {

namespace {

// dbase: u16 parameter word, u16 guard channel of each of the five groups, u32 transmit and
// receive hertz of each of the 200 channels, u16 priority channel.
constexpr std::size_t kGroups = 5;
constexpr std::size_t kGroupStride = 61;
constexpr std::size_t kChannels = 200;
constexpr std::size_t kNets = 20;
constexpr std::size_t kNetStride = 91;

constexpr auto makeDbaseFields()
{
    std::array<WideField, 1 + kGroups + 2 * kChannels + 1> fields{};
    std::size_t n = 0;
    fields[n++] = {1330, 2};
    for (std::size_t g = 0; g < kGroups; ++g)
        fields[n++] = {static_cast<std::uint16_t>(1383 + kGroupStride * g), 2};
    for (std::size_t c = 0; c < kChannels; ++c) {
        const auto base = 1688 + record::kChannelSize * c;
        fields[n++] = {static_cast<std::uint16_t>(base + 3), 4};
        fields[n++] = {static_cast<std::uint16_t>(base + 7), 4};
    }
    fields[n++] = {4288, 2};
    return fields;
}

constexpr auto makeAleFields()
{
    std::array<WideField, kNets> fields{};
    for (std::size_t net = 0; net < kNets; ++net)
        fields[net] = {static_cast<std::uint16_t>(kNetStride * net + 49), 2};
    return fields;
}

constexpr auto kDbaseFields = makeDbaseFields();
constexpr auto kAleFields = makeAleFields();
constexpr std::array<WideField, 2> kChannelFields{{{3, 4}, {7, 4}}};

static_assert(kDbaseFields.back().offset + kDbaseFields.back().size <= record::kDbaseSize);
static_assert(kAleFields.back().offset + kAleFields.back().size <= record::kAleDbaseSize);

void reverseFields(std::span<const WideField> fields, std::span<std::uint8_t> bytes,
                   std::size_t offset)
{
    if constexpr (std::endian::native == std::endian::big)
        return;
    for (const WideField& field : fields) {
        if (field.offset < offset || field.offset + field.size > offset + bytes.size())
            continue;
        auto first = bytes.begin() + static_cast<std::ptrdiff_t>(field.offset - offset);
        std::reverse(first, first + field.size);
    }
}

} // namespace

std::size_t targetSize(int target)
{
    switch (static_cast<TransferTarget>(target)) {
    case TransferTarget::Radio:
    case TransferTarget::RadioMemory:
        return record::kDbaseSize;
    case TransferTarget::Ale:
        return record::kAleDbaseSize;
    case TransferTarget::GlobalMembers:
        return record::kGlobalMembersSize;
    case TransferTarget::Ccir:
        return record::kCcirDbaseSize;
    case TransferTarget::ChannelName:
        return record::kChannelNameSize;
    case TransferTarget::ExtraOptions:
        return record::kExtraOptionsSize;
    }
    return 0;
}

std::span<const WideField> wideFields(TransferTarget target)
{
    switch (target) {
    case TransferTarget::Radio:
        return kDbaseFields;
    case TransferTarget::Ale:
        return kAleFields;
    default:
        return {};
    }
}

void convertByteOrder(TransferTarget target, std::span<std::uint8_t> bytes, std::size_t offset)
{
    reverseFields(wideFields(target), bytes, offset);
}

void convertChannelByteOrder(std::span<std::uint8_t, record::kChannelSize> bytes)
{
    reverseFields(kChannelFields, bytes, 0);
}

} // namespace koral
