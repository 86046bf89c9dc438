#include "session/BaudRate.h"

#include "common/Notifier.h"
#include "common/Texts.h"

#include <charconv>

namespace koral {

int findBaudRateIndex(std::int32_t baudRate)
{
    for (int i = 0; i < 4; ++i)
        if (kBaudRates[i] == baudRate)
            return i;
    return -1;
}

std::int32_t baudRateOfIndex(int index)
{
    return index >= 0 && index < 4 ? kBaudRates[index] : 0;
}

int baudRateToIndex(std::int32_t baudRate, Notifier& notifier)
{
    const int index = findBaudRateIndex(baudRate);
    if (index >= 0)
        return index;
    notifier.show(text::format(text::kBaudRateNotDefined.data(), baudRate));
    return 0;
}

std::optional<std::int32_t> parseBaudRate(std::string_view text)
{
    std::int32_t rate = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, rate);
    if (error != std::errc{} || stop != end || findBaudRateIndex(rate) < 0)
        return std::nullopt;
    return rate;
}

std::string badBaudRateText(std::string_view text)
{
    return text::format(text::kNotARadioBaudRate.data(), std::string(text).c_str(), kBaudRates[0],
                        kBaudRates[1], kBaudRates[2], kBaudRates[3]);
}

} // namespace koral
