#include "aledb/CcirIdentity.h"

#include <algorithm>

namespace koral::ccir {

std::string identityText(std::uint32_t value, int digits)
{
    if (value == 0)
        return {};
    if (digits == 0)
        digits = value < 10000 ? 4 : 6;
    const std::string number = std::to_string(value);
    return std::string(std::size_t(std::max(0, digits - int(number.size()))), '0') + number;
}

std::optional<std::uint32_t> parseIdentity(std::string_view text, int digits)
{
    const bool lengthFits =
        digits == 0 ? (text.size() == 4 || text.size() == 6) : int(text.size()) == digits;
    if (!lengthFits ||
        !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    std::uint32_t value = 0;
    for (char c : text)
        value = value * 10 + std::uint32_t(c - '0');
    if (value == 0)
        return std::nullopt;
    return value;
}

} // namespace koral::ccir
