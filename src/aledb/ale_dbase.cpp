#include "aledb/ale_dbase.h"

#include <algorithm>

namespace koral {

bool ale_net::isScanned(int channel) const
{
    if (channel < 0 || channel >= kAleScanBits)
        return false;
    return (scannedChannels[channel / 8] >> (7 - channel % 8)) & 1;
}

void ale_net::setScanned(int channel, bool on)
{
    if (channel < 0 || channel >= kAleScanBits)
        return;
    const auto mask = static_cast<std::uint8_t>(1u << (7 - channel % 8));
    auto& byte = scannedChannels[channel / 8];
    byte = on ? static_cast<std::uint8_t>(byte | mask) : static_cast<std::uint8_t>(byte & ~mask);
}

bool ale_net::hasScannedChannel() const
{
    return std::any_of(scannedChannels.begin(), scannedChannels.end(),
                       [](std::uint8_t byte) { return byte != 0; });
}

} // namespace koral
