#include "session/BaudRate.h"

#include "common/Notifier.h"
#include "common/Texts.h"

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

} // namespace koral
