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

std::string_view callStateText(int callState, bool linked, bool sounding)
{
    switch (callState) {
    case 31: // a station, net or all call the radio reports as under way
        return linked ? text::kStateCallIdle : text::kStateCalling;
    case 32: // a net call sent, before the radio's first report
        return text::kStateCallingNet;
    case 33: // an all call sent, before the radio's first report
        return text::kStateCallingAll;
    case 54: // a call sent while linked
        return text::kStateCalling;
    case 37:
        return text::kStateLinkQualityStation;
    case 38:
        return text::kStateLinkQualityNet;
    case 39:
        return text::kStateReplacing;
    case 55:
        return text::kStateIncoming;
    case 62: // a sounding started, and also what an aborted bidirectional exchange leaves
        return sounding ? text::kStateSounding : text::kStateCallIdle;
    default:
        // 1, the aborted call (58) and the passing states the next report turns to idle.
        return text::kStateCallIdle;
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
