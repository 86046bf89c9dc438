#pragma once

// What of an ALE database is worth saving: one flag per optional part, derived from the
// record, in this order: the options block, the nets, each net's member slots, the directory,
// the automatic dials and the messages.

#include "aledb/ale_dbase.h"

#include <array>
#include <cstdint>

namespace koral {

namespace presence {
inline constexpr int kOptions = 0;
inline constexpr int kNets = kOptions + 1;
inline constexpr int kMembers = kNets + kAleNetCount; // net n, slot m: kMembers + n * 16 + m
inline constexpr int kDirectory = kMembers + kAleNetCount * kAleMemberSlots;
inline constexpr int kAutoDials = kDirectory + kAleDirectorySize;
inline constexpr int kMessages = kAutoDials + kAleAutoDialCount;
inline constexpr int kCount = kMessages + kAleMessageCount;
} // namespace presence

using AlePresenceFlags = std::array<std::uint8_t, presence::kCount>;

// A net is present when it has a scanned channel (a name alone does not make a net), a member
// slot when it refers to something (0..254), a directory entry or message when its text is not
// empty, an automatic dial when either of its bytes is below 255. The options are always
// present.
AlePresenceFlags derivePresenceFlags(const ale_dbase& db);

} // namespace koral
