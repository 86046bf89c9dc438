#include "aledb/AleSlots.h"

#include "aledb/AleText.h"

namespace koral {

std::string_view slotText(const ale_dbase& db, int netIndex, std::uint8_t slot)
{
    if (slot < kAleDirectorySize)
        return fieldText(db.directory[slot]);
    if (slot == kSlotSelfAddress && netIndex >= 0 && netIndex < kAleNetCount)
        return fieldText(db.nets[netIndex].selfAddress);
    return {};
}

std::uint8_t slotFromText(const ale_dbase& db, int netIndex, std::string_view text)
{
    if (netIndex >= 0 && netIndex < kAleNetCount &&
        text == fieldText(db.nets[netIndex].selfAddress))
        return kSlotSelfAddress;
    return directoryIndexOf(db, text);
}

std::uint8_t directoryIndexOf(const ale_dbase& db, std::string_view text)
{
    if (text.empty())
        return kSlotEmpty;
    for (int i = 0; i < kAleDirectorySize; ++i)
        if (fieldText(db.directory[i]) == text)
            return static_cast<std::uint8_t>(i);
    return kSlotEmpty;
}

} // namespace koral
