#pragma once

// The request builders. Each fills a CRadioMessage that the caller has prepared (bytes 0, 2 and
// 5) with the opcode, the payload length and the payload, and returns 1, or 0 when the
// message pointer is null or an argument cannot be carried (an address of more than 16 bytes,
// a message of more than 91 bytes). docs/link-protocol.md lists every payload.

namespace koral {

class CRadioMessage;

int SetActiveChannel(CRadioMessage* msg, unsigned char unit, int channel);
int SetSquelchOnOff(CRadioMessage* msg, unsigned char unit, int on);
int SetMonitorOnOff(CRadioMessage* msg, unsigned char unit, int on);
// 255 leaves a value as it is.
int SetDspMenuParameters(CRadioMessage* msg, unsigned char unit, int level, int clipper,
                         int noiseBlanker, int attenuator);
// direction 0 off, 1 plus, 2 minus.
int SetClarifier(CRadioMessage* msg, unsigned char unit, int direction, int magnitude);
int PerformReset(CRadioMessage* msg);
// 0 leaves remote control, 2 takes it.
int EnterRemoteMode(CRadioMessage* msg, int mode);
int EnableDisableSpecialReport(CRadioMessage* msg, unsigned char unit, int enable, int report);

int ReportSquelchState(CRadioMessage* msg);
int ReportMonitorState(CRadioMessage* msg);
int ReportDspMenuParameters(CRadioMessage* msg);
int ReportClarifierPosition(CRadioMessage* msg);
int ReportRadioOperationMode(CRadioMessage* msg);
int ReportAleON_OFF(CRadioMessage* msg);
int ReportRadioSupportMode(CRadioMessage* msg);
int ReportCcirMode(CRadioMessage* msg);
int ReportIsbMode(CRadioMessage* msg);
int ReportActiveChannel(CRadioMessage* msg);

// on 1 enters the ALE network (scanning), 0 leaves it.
int SetAleMode(CRadioMessage* msg, unsigned char unit, int on);
// kind 1 = group scanning; group index 0..4.
int SetRadioScanMode(CRadioMessage* msg, unsigned char kind, int on, int group);

// Calls: `address` of `addressLength` bytes (its terminating zero included), the channel pair
// as two signed bytes ((0, n) for channel n, (-1, -1) for automatic), `text` of `textLength`
// bytes (its terminating zero included; 0 for none).
int StationCall(CRadioMessage* msg, const char* address, int addressLength,
                const signed char* channelPair, const char* text, int textLength);
int NetCall(CRadioMessage* msg, const char* address, int addressLength,
            const signed char* channelPair, const char* text, int textLength);
int AllCall(CRadioMessage* msg, const signed char* channelPair, const char* text, int textLength);
int BiDirectionalStation(CRadioMessage* msg, const char* address, int addressLength,
                         const signed char* channelPair, const char* text, int textLength);
int BiDirectionalNet(CRadioMessage* msg, const char* address, int addressLength,
                     const signed char* channelPair, const char* text, int textLength);
// automatic 1 lets the radio pick the next best channel; otherwise `channel`.
int ReplaceLinkChannel(CRadioMessage* msg, unsigned char unit, int automatic, int channel);
int AbortLink(CRadioMessage* msg);
int AcceptLink(CRadioMessage* msg);
int SetSoundOnOff(CRadioMessage* msg, unsigned char unit, int on);
// type 0 full test, 1 channel test, 2 low RF test.
int PerformSelfTest(CRadioMessage* msg, int type);
// key codes 4..23, 24 the release.
int ReportControlHeadKeyboard(CRadioMessage* msg, int key);

} // namespace koral
