#include "aledb/AlePresence.h"

#include "aledb/AleText.h"

namespace koral {

AlePresenceFlags derivePresenceFlags(const ale_dbase& db)
{
    AlePresenceFlags flags{};
    flags[presence::kOptions] = 1;
    for (int n = 0; n < kAleNetCount; ++n) {
        const ale_net& net = db.nets[n];
        flags[presence::kNets + n] = net.hasScannedChannel();
        for (int m = 0; m < kAleMemberSlots; ++m)
            flags[presence::kMembers + n * kAleMemberSlots + m] =
                net.members[m] <= kSlotSelfAddress;
    }
    for (int i = 0; i < kAleDirectorySize; ++i)
        flags[presence::kDirectory + i] = !fieldText(db.directory[i]).empty();
    for (int i = 0; i < kAleAutoDialCount; ++i)
        flags[presence::kAutoDials + i] =
            db.autoDials[i].address < kSlotEmpty || db.autoDials[i].message < kSlotEmpty;
    for (int i = 0; i < kAleMessageCount; ++i)
        flags[presence::kMessages + i] = !fieldText(db.messages[i]).empty();
    return flags;
}

} // namespace koral
