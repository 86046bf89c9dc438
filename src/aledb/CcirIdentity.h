#pragma once

// CCIR identities as the operator types and reads them: 4 or 6 decimal digits, leading
// zeros included. The record keeps only the number, 0 standing for "none".

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace koral::ccir {

// The identity with the leading zeros of its form: `digits` 4 or 6, or 0 for the shorter
// form that holds it. Empty for 0.
std::string identityText(std::uint32_t value, int digits = 0);

// The number of a typed identity of exactly `digits` digits (0: 4 or 6 digits); nothing for
// any other text, and for an identity that is all zeros (that would read back as "none").
std::optional<std::uint32_t> parseIdentity(std::string_view text, int digits = 0);

} // namespace koral::ccir
