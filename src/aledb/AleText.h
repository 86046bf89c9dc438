#pragma once

// Texts held in the fixed, NUL-terminated fields of the ALE records.

#include <span>
#include <string>
#include <string_view>

namespace koral {

// Characters an address (net name, self address, directory entry) may hold.
inline constexpr std::string_view kAleAddressCharacters =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
// Characters a message may hold: the address characters and the blank.
inline constexpr std::string_view kAleMessageCharacters =
    " 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

// The text of a field: up to its terminator, or the whole field when it has none.
std::string_view fieldText(std::span<const char> field);

// Clears the whole field and copies in at most size - 1 characters of text.
void setFieldText(std::span<char> field, std::string_view text);

// Terminates the field within its size, zeroes every byte after the terminator and deletes
// every character that is not in allowed, closing up the rest.
void cleanField(std::span<char> field, std::string_view allowed);

} // namespace koral
