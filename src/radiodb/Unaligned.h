#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace koral {

// A multi-byte number inside a packed record, stored in host byte order. The record's layout
// has numbers at odd offsets, so they are kept as bytes and copied in and out by value: no
// reference to a misaligned integer is ever formed.
template <typename T>
struct Unaligned
{
    static_assert(std::is_integral_v<T>);
    std::array<std::uint8_t, sizeof(T)> bytes{};

    T get() const
    {
        T value;
        std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }
    void set(T value) { std::memcpy(bytes.data(), &value, sizeof value); }
};

using U16 = Unaligned<std::uint16_t>;
using U32 = Unaligned<std::uint32_t>;

static_assert(sizeof(U16) == 2 && alignof(U16) == 1);
static_assert(sizeof(U32) == 4 && alignof(U32) == 1);

} // namespace koral
