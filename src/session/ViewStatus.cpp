#include "session/ViewStatus.h"

#include "common/Texts.h"

namespace koral {

int imageIndexForState(int imageIndex, bool on)
{
    if (on && imageIndex > 12)
        return imageIndex - 12;
    if (!on && imageIndex < 12)
        return imageIndex + 12;
    return imageIndex;
}

std::string_view callStatusText(int code)
{
    switch (code) {
    case 0:
        return text::byId(text::id::NoLinkEstablished);
    case 1:
        return text::byId(text::id::LinkEstablished);
    case 2:
        return text::byId(text::id::ChannelBusy);
    case 3:
        return text::byId(text::id::StationBusy);
    case 4:
        return text::byId(text::id::LinkEstablishedOnSilentNet);
    case 5:
        return text::byId(text::id::CommandInProgress);
    case 7:
        return text::byId(text::id::LastCommandFailed);
    default:
        return {};
    }
}

std::string comPaneText(int commPort, int baudRate)
{
    return text::format(text::kComPane.data(), commPort, baudRate);
}

std::string serialPaneText(std::string_view serialNumber)
{
    return std::string(text::kSerialPane).append(serialNumber);
}

std::string codePaneText(std::string_view radioCode)
{
    return std::string(text::kCodePane).append(radioCode);
}

} // namespace koral
