#pragma once

#include <QString>

#include <string_view>

namespace koral {

// A text of the string table (UTF-8) as the widgets take it.
inline QString qs(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

} // namespace koral
