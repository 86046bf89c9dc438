#include "koralapi/Builders.h"

#include "koralapi/CRadioMessage.h"
#include "koralapi/Opcodes.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>

namespace koral {

namespace {

constexpr std::size_t kAddressField = 16;
constexpr std::size_t kTextField = 91;
// Call layout: pair at 6-7, address length 8, address 9-24, text length 25, text 26-116.
constexpr std::size_t kCallPayload = 2 + 1 + kAddressField + 1 + kTextField;

// A request whose payload is a few bytes, each argument cut to a byte as the radio keeps it.
int bytesRequest(CRadioMessage* msg, int opcode, std::initializer_list<int> values)
{
    if (!msg)
        return 0;
    msg->setOpcodeAndLength(opcode, values.size());
    std::size_t at = CRadioMessage::kHeaderSize;
    for (int value : values)
        (*msg)[at++] = static_cast<std::uint8_t>(value);
    return 1;
}

int callRequest(CRadioMessage* msg, int opcode, const char* address, int addressLength,
                const signed char* channelPair, const char* text, int textLength)
{
    if (!msg || addressLength < 0 || textLength < 0 ||
        static_cast<std::size_t>(addressLength) > kAddressField ||
        static_cast<std::size_t>(textLength) > kTextField || (addressLength > 0 && !address) ||
        (textLength > 0 && !text))
        return 0;
    msg->setOpcodeAndLength(opcode, kCallPayload);
    const signed char automatic[2] = {-1, -1};
    const signed char* pair = channelPair ? channelPair : automatic;
    (*msg)[6] = static_cast<std::uint8_t>(pair[0]);
    (*msg)[7] = static_cast<std::uint8_t>(pair[1]);
    (*msg)[8] = static_cast<std::uint8_t>(addressLength);
    std::memcpy(msg->bytes.data() + 9, address, static_cast<std::size_t>(addressLength));
    (*msg)[24] = 0; // the address always ends in a zero
    (*msg)[25] = static_cast<std::uint8_t>(textLength);
    std::memcpy(msg->bytes.data() + 26, text, static_cast<std::size_t>(textLength));
    (*msg)[26 + kTextField - 1] = 0;
    return 1;
}

} // namespace

int SetActiveChannel(CRadioMessage* msg, unsigned char unit, int channel)
{
    return bytesRequest(msg, op::SetActiveChannel, {unit, channel});
}

int SetSquelchOnOff(CRadioMessage* msg, unsigned char unit, int on)
{
    return bytesRequest(msg, op::SetSquelch, {unit, on});
}

int SetMonitorOnOff(CRadioMessage* msg, unsigned char unit, int on)
{
    return bytesRequest(msg, op::SetMonitor, {unit, on});
}

int SetDspMenuParameters(CRadioMessage* msg, unsigned char unit, int level, int clipper,
                         int noiseBlanker, int attenuator)
{
    return bytesRequest(msg, op::SetDspParameters,
                        {unit, level, clipper, noiseBlanker, attenuator});
}

int SetClarifier(CRadioMessage* msg, unsigned char unit, int direction, int magnitude)
{
    return bytesRequest(msg, op::SetClarifier, {unit, direction, std::clamp(magnitude, 0, 255)});
}

int PerformReset(CRadioMessage* msg)
{
    return bytesRequest(msg, op::Reset, {});
}

int EnterRemoteMode(CRadioMessage* msg, int mode)
{
    return bytesRequest(msg, op::EnterRemoteMode, {mode});
}

int EnableDisableSpecialReport(CRadioMessage* msg, unsigned char unit, int enable, int report)
{
    return bytesRequest(msg, op::SpecialReport, {unit, enable, report});
}

int ReportSquelchState(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QuerySquelch, {});
}

int ReportMonitorState(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QueryMonitor, {});
}

int ReportDspMenuParameters(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QueryDspParameters, {});
}

int ReportClarifierPosition(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QueryClarifier, {});
}

int ReportRadioOperationMode(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QueryOperationMode, {});
}

int ReportAleON_OFF(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QueryAleOnOff, {});
}

int ReportRadioSupportMode(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QuerySupportMode, {});
}

int ReportCcirMode(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QueryCcirMode, {});
}

int ReportIsbMode(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QueryIsbMode, {});
}

int ReportActiveChannel(CRadioMessage* msg)
{
    return bytesRequest(msg, op::QueryActiveChannel, {});
}

int SetAleMode(CRadioMessage* msg, unsigned char unit, int on)
{
    return bytesRequest(msg, op::EnterNetwork, {unit, on});
}

int SetRadioScanMode(CRadioMessage* msg, unsigned char kind, int on, int group)
{
    return bytesRequest(msg, op::SetScanMode, {kind, on, group});
}

int StationCall(CRadioMessage* msg, const char* address, int addressLength,
                const signed char* channelPair, const char* text, int textLength)
{
    return callRequest(msg, op::StationCall, address, addressLength, channelPair, text, textLength);
}

int NetCall(CRadioMessage* msg, const char* address, int addressLength,
            const signed char* channelPair, const char* text, int textLength)
{
    return callRequest(msg, op::NetCall, address, addressLength, channelPair, text, textLength);
}

int AllCall(CRadioMessage* msg, const signed char* channelPair, const char* text, int textLength)
{
    return callRequest(msg, op::AllCall, nullptr, 0, channelPair, text, textLength);
}

int BiDirectionalStation(CRadioMessage* msg, const char* address, int addressLength,
                         const signed char* channelPair, const char* text, int textLength)
{
    return callRequest(msg, op::BiDirectionalStation, address, addressLength, channelPair, text,
                       textLength);
}

int BiDirectionalNet(CRadioMessage* msg, const char* address, int addressLength,
                     const signed char* channelPair, const char* text, int textLength)
{
    return callRequest(msg, op::BiDirectionalNet, address, addressLength, channelPair, text,
                       textLength);
}

int ReplaceLinkChannel(CRadioMessage* msg, unsigned char unit, int automatic, int channel)
{
    return bytesRequest(msg, op::ReplaceLinkChannel, {unit, automatic, channel});
}

int AbortLink(CRadioMessage* msg)
{
    return bytesRequest(msg, op::AbortLink, {});
}

int AcceptLink(CRadioMessage* msg)
{
    return bytesRequest(msg, op::AcceptLink, {});
}

int SetSoundOnOff(CRadioMessage* msg, unsigned char unit, int on)
{
    return bytesRequest(msg, op::Sounding, {unit, on});
}

int PerformSelfTest(CRadioMessage* msg, int type)
{
    return bytesRequest(msg, op::SelfTest, {type});
}

int ReportControlHeadKeyboard(CRadioMessage* msg, int key)
{
    return bytesRequest(msg, op::ControlHeadKey, {key});
}

} // namespace koral
