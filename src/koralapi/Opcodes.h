#pragma once

// The opcodes of the link (byte 1 of a CRadioMessage). docs/link-protocol.md gives every
// payload. Requests go from the program to the radio; answers and reports come back.

namespace koral::op {

// --- requests (program -> radio) ---
inline constexpr int SelfTest = 27;
inline constexpr int BiDirectionalStation = 67;
inline constexpr int BiDirectionalNet = 68;
inline constexpr int StationCall = 69;
inline constexpr int NetCall = 70;
inline constexpr int AllCall = 71;
inline constexpr int Sounding = 78;
inline constexpr int EnterNetwork = 79; // SetAleMode
inline constexpr int SetActiveChannel = 100;
inline constexpr int SetSquelch = 101;
inline constexpr int SetMonitor = 102;
inline constexpr int SetDspParameters = 103;
inline constexpr int SetClarifier = 104;
inline constexpr int Reset = 105;
inline constexpr int EnterRemoteMode = 106;
inline constexpr int SpecialReport = 107;
inline constexpr int QuerySquelch = 108;
inline constexpr int QueryMonitor = 109;
inline constexpr int QueryDspParameters = 110;
inline constexpr int QueryClarifier = 111;
inline constexpr int QueryOperationMode = 112;
inline constexpr int QueryAleOnOff = 113;
inline constexpr int QuerySupportMode = 114;
inline constexpr int QueryCcirMode = 115;
inline constexpr int QueryIsbMode = 116;
inline constexpr int QueryActiveChannel = 117;
inline constexpr int SetScanMode = 118;
inline constexpr int ReplaceLinkChannel = 119;
inline constexpr int AbortLink = 120;
inline constexpr int AcceptLink = 121;
inline constexpr int ControlHeadKey = 122;
inline constexpr int QueryProgramWord = 123;
inline constexpr int QueryCurrentChannel = 125;
inline constexpr int ProgramChannel = 127;
inline constexpr int QuerySoftwareVersion = 128;
inline constexpr int QueryRadioSoftwareVersion = 130;
inline constexpr int DatabaseRead = 132;
inline constexpr int DatabaseWrite = 133;
inline constexpr int TransferAbort = 134;
inline constexpr int StartProgramming = 136;
inline constexpr int StopProgramming = 137;

// --- both directions ---
inline constexpr int DataBlock = 135;

// --- answers and reports (radio -> program) ---
inline constexpr int ActiveChannel = 1;
inline constexpr int SquelchState = 9;
inline constexpr int ClarifierPosition = 15;
inline constexpr int DspParameters = 21;
inline constexpr int OperationMode = 22;
inline constexpr int DisplayReport = 27;
inline constexpr int RemoteRequested = 28;
inline constexpr int IsbModeChanged = 30;
inline constexpr int ScanListReport = 45;
inline constexpr int ChannelReport = 46;
inline constexpr int IsbMode = 48;
inline constexpr int CommandRejected = 60;
inline constexpr int LinkStatusValue = 65;
inline constexpr int BiDirectionalProgress = 67;
inline constexpr int StationCallProgress = 69;
inline constexpr int NetCallProgress = 70;
inline constexpr int AllCallProgress = 71;
inline constexpr int SoundingProgress = 78;
inline constexpr int IncomingStationCall = 79;
inline constexpr int IncomingNetCall = 80;
inline constexpr int LinkQualityUpdate = 81;
inline constexpr int IncomingPriorityCall = 82;
inline constexpr int LinkChannelReport = 83;
inline constexpr int LinkEndedByPeer = 84;
inline constexpr int LinkResult = 85;
inline constexpr int AleOnOff = 88;
inline constexpr int MonitorState = 89;
inline constexpr int IncomingSilentNetCall = 90;
inline constexpr int CcirMode = 96;
inline constexpr int SupportMode = 98;
inline constexpr int ProgramWord = 124;
inline constexpr int CurrentChannel = 126;
inline constexpr int SoftwareVersion = 129;
inline constexpr int RadioSoftwareVersion = 131;
inline constexpr int CommandResult = 140;

// Kinds of the display report (opcode 27, byte 6).
namespace display {
inline constexpr int FirstTextLine = 0;
inline constexpr int LastTextLine = 2;
inline constexpr int SelfTestProgress = 3;
inline constexpr int SelfTestResult = 4;
} // namespace display

// Status byte of CommandResult (byte 8).
namespace status {
inline constexpr int Done = 0;
inline constexpr int Refused = 1;
inline constexpr int BadRange = 2;
inline constexpr int NotProgramming = 3;
inline constexpr int Aborted = 4;
inline constexpr int DataRejected = 5;
} // namespace status

} // namespace koral::op
