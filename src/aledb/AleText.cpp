#include "aledb/AleText.h"

#include <algorithm>

namespace koral {

std::string_view fieldText(std::span<const char> field)
{
    const auto end = std::find(field.begin(), field.end(), '\0');
    return {field.data(), static_cast<std::size_t>(end - field.begin())};
}

void setFieldText(std::span<char> field, std::string_view text)
{
    if (field.empty())
        return;
    std::fill(field.begin(), field.end(), '\0');
    const auto count = std::min(text.size(), field.size() - 1);
    std::copy_n(text.begin(), count, field.begin());
}

void cleanField(std::span<char> field, std::string_view allowed)
{
    if (field.empty())
        return;
    auto end = std::find(field.begin(), field.end(), '\0');
    if (end == field.end())
        end = field.end() - 1;
    const auto kept = std::remove_if(field.begin(), end, [allowed](char c) {
        return c == '\0' || allowed.find(c) == std::string_view::npos;
    });
    std::fill(kept, field.end(), '\0');
}

} // namespace koral
