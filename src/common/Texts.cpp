#include "common/Texts.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <utility>

namespace koral::text {

namespace {

constexpr std::array<std::pair<int, std::string_view>, 15> kTable{{
    {id::CommandInProgress, "Command in progress, please wait!!!"},
    {id::LinkEstablishedOnSilentNet, "Link was established on silent net."},
    {id::StationBusy, "Station busy."},
    {id::ChannelBusy, "Channel busy."},
    {id::LinkEstablished, "Link was established."},
    {id::NoLinkEstablished, "No link was established."},
    {id::CommunicationTestPassed, "Communication test has been completed successfully."},
    {id::CommunicationTestFailed, "Communication test failed!!!"},
    {id::LastCommandFailed, "Last command was not completed successfully."},
    {id::TxOutOfRange, "Tx Frequency is out of range. \nTx Frequency range is 1.6-30MHz."},
    {id::RxOutOfRange, "Rx Frequency is out of range. \nRx Frequency range is 0.1-30MHz."},
    {id::CannotOpenPort, "Can't open port."},
    // Two blanks before the line break, as the original resource stores it.
    {id::NoResponse, "Radio does not respond to application messages. Check if the  \nradio is "
                     "turned on and is connected to the computer properly."},
    {id::BothFrequenciesZero, "Tx Frequency and Rx Frequency \ncan't be both zero at the same time."},
    {id::BaudRateDiffers,
     "Radio baud rate is different from computer baud rate. Continue Programming?"},
}};

} // namespace

std::string_view byId(int id)
{
    for (const auto& [key, value] : kTable)
        if (key == id)
            return value;
    return {};
}

std::string format(const char* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    va_list copy;
    va_copy(copy, args);
    const int size = std::vsnprintf(nullptr, 0, fmt, copy);
    va_end(copy);
    std::string result;
    if (size > 0) {
        result.resize(static_cast<std::size_t>(size));
        std::vsnprintf(result.data(), result.size() + 1, fmt, args);
    }
    va_end(args);
    return result;
}

} // namespace koral::text
