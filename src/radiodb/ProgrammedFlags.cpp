#include "radiodb/ProgrammedFlags.h"

namespace koral {

ProgrammedFlags ProgrammedFlags::of(const dbase& db)
{
    ProgrammedFlags flags{};
    auto set = [&flags](int index, bool on) {
        flags.bytes[static_cast<std::size_t>(index)] = on ? 1 : 0;
    };
    set(kSingletons, true);
    for (int i = 0; i < kEcnCount; ++i)
        set(kFirstEcn + i, !fieldText(db.ecn[static_cast<std::size_t>(i)]).empty());
    for (int i = 0; i < kSpCount; ++i)
        set(kFirstSp + i, !fieldText(db.sp[static_cast<std::size_t>(i)]).empty());
    for (int i = 0; i < kGroupCount; ++i)
        set(kFirstGroup + i, db.groups[static_cast<std::size_t>(i)].isProgrammed());
    for (int i = 0; i < kChannelCount; ++i)
        set(kFirstChannel + i, db.channels[static_cast<std::size_t>(i)].isProgrammed());
    return flags;
}

} // namespace koral
