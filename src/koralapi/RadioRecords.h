#pragma once

// What the radio library knows about the records it moves: their sizes, their transfer
// targets and which of their numbers are multi-byte (big-endian in the radio, host order in
// the program). The records themselves are defined by the database layers above this one and
// are only declared here.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace koral {

struct dbase;
struct channel;
struct ale_dbase;
struct ale_dbase_global_members;
struct ccir_dbase;
struct channel_name;
struct AleExtraOptions;
using tag_extra_options = AleExtraOptions;

namespace record {
inline constexpr std::size_t kDbaseSize = 4304;
inline constexpr std::size_t kChannelSize = 13;
inline constexpr std::size_t kAleDbaseSize = 4377;
inline constexpr std::size_t kGlobalMembersSize = 720; // 20 nets x 36
inline constexpr std::size_t kCcirDbaseSize = 475;
inline constexpr std::size_t kChannelNameSize = 400; // 200 x u16, most significant byte first
inline constexpr std::size_t kExtraOptionsSize = 4;
} // namespace record

// Targets of the database block transfer (byte 6 of the transfer messages).
enum class TransferTarget : std::uint8_t
{
    Radio = 1,
    Ale = 2,
    GlobalMembers = 3,
    Ccir = 4,
    ChannelName = 5,
    ExtraOptions = 6,
    RadioMemory = 16,
};

// Size in bytes of a target's record; 0 for a value that is no target.
std::size_t targetSize(int target);

// One multi-byte number of a record: where it starts and how many bytes it has.
struct WideField
{
    std::uint16_t offset;
    std::uint8_t size;
};

// The multi-byte numbers of a target's record (empty for byte-only records, for records the
// program already holds in radio order, and for radio memory, whose bytes the caller orders).
std::span<const WideField> wideFields(TransferTarget target);

// Reverses the byte order of every multi-byte number of `target` that lies wholly inside
// `bytes`, which hold the record from byte `offset` on. Converting host order to radio order
// and back is the same operation on a little-endian host; on a big-endian host it does nothing.
void convertByteOrder(TransferTarget target, std::span<std::uint8_t> bytes, std::size_t offset = 0);

// The same for a `channel` record (its transmit and receive hertz).
void convertChannelByteOrder(std::span<std::uint8_t, record::kChannelSize> bytes);

} // namespace koral
