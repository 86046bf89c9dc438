#pragma once

// Value lists: the (value, text) pairs of an enumerated field. The same list serves the
// dialogs, the data files and the print-outs, so a value's text is looked up, never formatted.

#include <span>
#include <string_view>

namespace koral {

// One entry of a value list: the number stored in the record and the text shown and saved.
struct ValueText
{
    int value;
    const char* text;
};

// Every value list ends with an entry of this value (and a null text). Looking up a text that
// the list does not hold answers this value too.
inline constexpr int kValueListEnd = 0x8000;

// A value list, normally including its end entry (a list without one ends with the span).
using ValueList = std::span<const ValueText>;

// The entries before the end entry, in list order (what a drop-down list shows).
ValueList entriesOf(ValueList list);
// The text of a value, or nullptr when the list does not hold it.
const char* textOf(ValueList list, int value);
// The value of a text (exact, case-sensitive match), or kValueListEnd.
int valueOf(ValueList list, std::string_view text);
bool holds(ValueList list, int value);

} // namespace koral
