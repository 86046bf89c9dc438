#include "radiodb/Frequency.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace koral {

float mhzOfHertz(std::uint32_t hertz)
{
    return static_cast<float>(hertz / 10) * 0.00001f;
}

std::string frequencyDisplayText(double mhz)
{
    if (mhz == 0)
        return {};
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.5f", mhz);
    std::string text = buffer;
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    return text;
}

std::string frequencyDisplayText(std::uint32_t hertz)
{
    return frequencyDisplayText(static_cast<double>(mhzOfHertz(hertz)));
}

bool isFrequencyText(std::string_view text)
{
    const bool allowedCharacters = std::all_of(
        text.begin(), text.end(), [](char c) { return (c >= '0' && c <= '9') || c == '.'; });
    return !text.empty() && allowedCharacters && std::count(text.begin(), text.end(), '.') <= 1;
}

std::uint32_t hertzFromText(float mhz, std::string_view text)
{
    if (!(mhz >= 0) || mhz >= 4000.0f) // beyond what a 32-bit hertz count holds
        return 0;
    std::uint32_t tensOfHertz = static_cast<std::uint32_t>(std::trunc(mhz)) * 100'000u;
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos) {
        std::uint32_t weight = 10'000;
        for (std::size_t i = point + 1; i < text.size() && weight > 0; ++i, weight /= 10) {
            if (text[i] < '0' || text[i] > '9')
                break;
            tensOfHertz += static_cast<std::uint32_t>(text[i] - '0') * weight;
        }
    }
    return tensOfHertz * 10u;
}

bool inRange(float mhz, FrequencyRange range)
{
    const double low = range == FrequencyRange::Transmit ? 1.6 : 0.1;
    // The float is widened, not the limits narrowed: a typed 1.6 (1.60000002f) is inside.
    const double value = mhz;
    return value == 0 || (value >= low && value <= 30.0);
}

} // namespace koral
