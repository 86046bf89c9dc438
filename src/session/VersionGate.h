#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace koral {

// Software class of a radio from its software version text (only the first 8 characters
// count): versions from "01.000" to "03.000" are class 1, all others class 2, and an
// unreadable version (nullopt) is class 0.
std::uint8_t softwareClassOf(std::optional<std::string_view> version);

// True when the radio's version is "03.8194" or later (first 8 characters compared).
bool isRadioVersionAtLeast38194(std::string_view version);

} // namespace koral
