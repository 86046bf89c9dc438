#include "profile/ValueList.h"

#include <algorithm>

namespace koral {

ValueList entriesOf(ValueList list)
{
    const auto end = std::find_if(list.begin(), list.end(), [](const ValueText& entry) {
        return entry.value == kValueListEnd;
    });
    return list.first(static_cast<std::size_t>(end - list.begin()));
}

const char* textOf(ValueList list, int value)
{
    for (const ValueText& entry : entriesOf(list)) {
        if (entry.value == value)
            return entry.text;
    }
    return nullptr;
}

int valueOf(ValueList list, std::string_view text)
{
    for (const ValueText& entry : entriesOf(list)) {
        if (entry.text != nullptr && text == entry.text)
            return entry.value;
    }
    return kValueListEnd;
}

bool holds(ValueList list, int value)
{
    return textOf(list, value) != nullptr;
}

} // namespace koral
