#include "radiodb/dbase.h"

#include <algorithm>

namespace koral {

namespace {
std::uint8_t bitMask(int number)
{
    return static_cast<std::uint8_t>(0x80u >> (number % 8));
}
} // namespace

bool Group::isMember(int number) const
{
    if (number < 0 || number >= kGroupBitCount)
        return false;
    return (members[static_cast<std::size_t>(number / 8)] & bitMask(number)) != 0;
}

void Group::setMember(int number, bool member)
{
    if (number < 0 || number >= kGroupBitCount)
        return;
    std::uint8_t& byte = members[static_cast<std::size_t>(number / 8)];
    const std::uint8_t mask = bitMask(number);
    byte = static_cast<std::uint8_t>(member ? (byte | mask) : (byte & ~mask));
}

bool Group::isProgrammed() const
{
    return std::any_of(members.begin(), members.end(), [](std::uint8_t byte) { return byte != 0; });
}

} // namespace koral
