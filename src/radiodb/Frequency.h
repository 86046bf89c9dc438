#pragma once

// The program's one definition of a channel frequency's text form and of the conversion of a
// typed MHz text to hertz. Dialogs work in steps of 10 Hz: the last hertz digit of a stored
// frequency is dropped when it is shown, and a typed text counts at most five decimals.

#include <cstdint>
#include <string>
#include <string_view>

namespace koral {

// A stored frequency in MHz as the dialogs hold it: (hertz / 10) x 0.00001.
float mhzOfHertz(std::uint32_t hertz);

// "%.5f" with trailing zeros (and then the point) removed; zero shows as an empty text.
// 12.5 shows as "12.5", 7 as "7".
std::string frequencyDisplayText(double mhz);
std::string frequencyDisplayText(std::uint32_t hertz);

// A non-empty text of digits with at most one ".".
bool isFrequencyText(std::string_view text);

// Hertz from a MHz value and the text it was typed as, without floating-point rounding: the
// value's integer part, then the text's first five digits after the "." (further digits count
// nothing), in units of 10 Hz.
std::uint32_t hertzFromText(float mhz, std::string_view text);

enum class FrequencyRange
{
    Transmit, // 0, or 1.6..30 MHz
    Receive,  // 0, or 0.1..30 MHz
};
bool inRange(float mhz, FrequencyRange range);

} // namespace koral
