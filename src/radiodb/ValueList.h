#pragma once

#include <span>
#include <string_view>

namespace koral {

// One entry of an enumerated field's value list: the byte or word stored in the record and the
// text the dialogs, the files and the print-outs show for it.
struct ValueText
{
    int value;
    const char* text;
};

// Every value list ends with an entry of this value (and a null text). Looking a text up in a
// list that does not hold it yields this value too.
inline constexpr int kValueListEnd = 0x8000;

// A value list, including its end entry.
using ValueList = std::span<const ValueText>;

// The text of a value, or nullptr when the list does not hold it.
const char* textOf(ValueList list, int value);
// The value of a text (exact, case-sensitive match), or kValueListEnd.
int valueOf(ValueList list, std::string_view text);
bool holds(ValueList list, int value);
// The entries before the end entry, in list order (what a drop-down list shows).
ValueList entriesOf(ValueList list);

} // namespace koral
