#pragma once

// The program's operator texts, exactly as the radio's original tools word them (spacing,
// punctuation and spelling included: files, manuals and operators' habits depend on them).
// Numbered texts keep the ids of the original string resource; the others are named.
// Format texts keep their printf placeholders; fill them with koral::text::format.

#include <string>
#include <string_view>

namespace koral::text {

// One text per line, however long, so that a text is found by searching for it.
// clang-format off
namespace id {
inline constexpr int CommandInProgress = 1;
inline constexpr int LinkEstablishedOnSilentNet = 2;
inline constexpr int StationBusy = 3;
inline constexpr int ChannelBusy = 4;
inline constexpr int LinkEstablished = 5;
inline constexpr int NoLinkEstablished = 6;
inline constexpr int CommunicationTestPassed = 7;
inline constexpr int CommunicationTestFailed = 9;
inline constexpr int LastCommandFailed = 23;
inline constexpr int TxOutOfRange = 61463;
inline constexpr int RxOutOfRange = 61464;
inline constexpr int CannotOpenPort = 61465;
inline constexpr int NoResponse = 61466;
inline constexpr int BothFrequenciesZero = 61467;
inline constexpr int BaudRateDiffers = 61474;
} // namespace id

// The numbered string table; an id it does not hold gives an empty text.
std::string_view byId(int id);

// printf-style formatting of the texts below (they come from the original C formats).
std::string format(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

// --- session, main view and transfer ---
inline constexpr std::string_view kNoDatabaseRead = "You must read Data Base from radio!";
inline constexpr std::string_view kBaudRateNotDefined = "The baud rate %d is not defined, is set to 1200";
inline constexpr std::string_view kBaudRateIndexIncorrect = "Baud Rate Index is not correct!";
inline constexpr std::string_view kBaudRateIncorrect = "Baud Rate is not correct!";
inline constexpr std::string_view kNotARadioBaudRate = "'%s' is not a baud rate of the radio (%d, %d, %d or %d)";
inline constexpr std::string_view kStopEventNotSignaled = "m_Globals.incomingThreadEvent non signaled!";
inline constexpr std::string_view kPleaseWait = "Please wait !  ";
inline constexpr std::string_view kOperationCompleted = "The Operation Completed Successful";
inline constexpr std::string_view kProgressDialogProblem = "LoadProgressDlg(): ProgressDlg problem!";
inline constexpr std::string_view kUnknownReadWriteMode = "CProgressDlg::GetCaption: Unknown ReadWrite Mode!";
inline constexpr std::string_view kCcirNotProgrammed = "The ccir data base was not programed";
inline constexpr std::string_view kAleGlobalNotProgrammed = "The ale global data base was not programed";
inline constexpr std::string_view kUpdateSocketFault = "UpdateSocket fault!";
inline constexpr std::string_view kHelpFileNotFound = "The file %s was not found.";
inline constexpr std::string_view kHelpPathNotFound = "The path %s was not found.";
// status-bar panes and the progress dialog's captions
inline constexpr std::string_view kComPane = "COM: %d,%d";
inline constexpr std::string_view kSerialPane = "S/N: ";
inline constexpr std::string_view kCodePane = "Code: ";
inline constexpr std::string_view kReadingPrefix = "Reading ";
inline constexpr std::string_view kWritingPrefix = "Writing ";
inline constexpr std::string_view kRadioDataBase = "Radio Data Base";
inline constexpr std::string_view kGroupsSection = "Groups Section";
inline constexpr std::string_view kChannelsSection = "Channels Section";
inline constexpr std::string_view kRadioOptionsSection = "Radio Options Section";
inline constexpr std::string_view kExternalOptionsSection = "External Options Section";
inline constexpr std::string_view kAleDataBase = "ALE Data Base";
inline constexpr std::string_view kAleNetsSection = "ALE Nets Section";
inline constexpr std::string_view kAleOptionsSection = "ALE Options Section";
inline constexpr std::string_view kAleDirectorySection = "ALE Directory Section";
inline constexpr std::string_view kAleAutodialsSection = "ALE Autodials Section";
inline constexpr std::string_view kAleProgramWord = "ALE Program Word";
inline constexpr std::string_view kAleMessages = "ALE Messages";
inline constexpr std::string_view kGlobalMemberDataBase = "Global member Data Base";
inline constexpr std::string_view kCcirDataBase = "CCIR Data Base";
inline constexpr std::string_view kCcirChannelNumber = "CCIR Channel Number";
// incoming calls and rejected commands
inline constexpr std::string_view kIncomingStationCall = "Incoming Station Call.";
inline constexpr std::string_view kIncomingNetCall = "Incoming Net Call.";
inline constexpr std::string_view kIncomingPriorityCall = "Incoming Priority Call.";
inline constexpr std::string_view kCallTypeStation = "Station";
inline constexpr std::string_view kCallTypeNet = "Net";
inline constexpr std::string_view kCallTypePriority = "Priority";
inline constexpr std::string_view kCanNotPerform = "Can not perform ";
inline constexpr std::string_view kRejectedSelfTest = "Self Test.";
inline constexpr std::string_view kRejectedBiDirectionalStation = "BiDirectional To Station.";
inline constexpr std::string_view kRejectedBiDirectionalNet = "BiDirectional To Net.";
inline constexpr std::string_view kRejectedStationCall = "Station Call.";
inline constexpr std::string_view kRejectedNetCall = "Net Call.";
inline constexpr std::string_view kRejectedPriorityCall = "Priority Call.";
inline constexpr std::string_view kRejectedSounding = "Sounding.";
inline constexpr std::string_view kRejectedEnterNetwork = "Enter Network.";

// --- radio database ---
inline constexpr std::string_view kInvalidFrequency = " is an invalid frequency";
inline constexpr std::string_view kTxFrequencyOutOfRange = " is out of range. TX frequency range is 1.6 to 30Mhz.";
inline constexpr std::string_view kRxFrequencyOutOfRange = " is out of range. RX frequency range is 0.1 to 30Mhz.";
inline constexpr std::string_view kBothFrequenciesZero = "Tx Frequency and Rx Frequency can't be both zero at the same time.";
inline constexpr std::string_view kDuplexFrequenciesEqual = "Transmit frequency should differ from Receive frequency.";

// --- channel plans as CSV ---
inline constexpr std::string_view kCsvGroupsColumn = "Groups";
inline constexpr std::string_view kCsvLine = "line %d: %s";
inline constexpr std::string_view kCsvNoHeader = "the file holds no header row";
inline constexpr std::string_view kCsvMissingColumn = "the column \"%s\" is missing";
inline constexpr std::string_view kCsvBadChannelNumber = "\"%s\" is no channel number (1 to 200)";
inline constexpr std::string_view kCsvDuplicateChannel = "channel %d is already on line %d";
inline constexpr std::string_view kCsvBadValue = "%s \"%s\" is none of %s";
inline constexpr std::string_view kCsvBadCcirNumber = "Ch. Num. \"%s\" is no number from 1 to 500";
inline constexpr std::string_view kCsvBadGroups = "Groups \"%s\" names a group other than A to E";
inline constexpr std::string_view kCsvNotImported = "%s was not imported; nothing has changed:";
inline constexpr std::string_view kCsvTooLong = "%s \"%s\" is longer than 8 characters";
inline constexpr std::string_view kRssConfigErrorUndefined = "Rss Config Error is not defined!";
inline constexpr std::string_view kChannelColorIncorrect = "Channel Color is not correct!";
inline constexpr std::string_view kUnknownMouseButton = "Unknown mouse button!";
inline constexpr std::string_view kRadioOptionsFault = "RadioOptions Programming fault!";
inline constexpr std::string_view kWideInformationFault = "WideInformation Programming fault!";
inline constexpr std::string_view kExternOptionFault = "ExternOption Programming fault!";
inline constexpr std::string_view kStopProgrammingFault = "StopRADIOProgramming fault!";
// Channel Configuration dialog
inline constexpr std::string_view kChannelConfigTitle = "Channel Configuration";
inline constexpr std::string_view kSimplexFrequency = "Simplex Frequency";
inline constexpr std::string_view kHalfDuplexFrequencies = "Half Duplex Frequencies";
inline constexpr std::string_view kTransmitOnlyFrequency = "Transmit Only Frequency";
inline constexpr std::string_view kReceiveOnlyFrequency = "Receive Only Frequency";
inline constexpr std::string_view kTxLabel = "Tx:";
inline constexpr std::string_view kRxLabel = "Rx:";
inline constexpr std::string_view kPowerLabel = "Power";
inline constexpr std::string_view kBandLabel = "Band";
inline constexpr std::string_view kModeLabel = "Mode";
inline constexpr std::string_view kAgcLabel = "A.G.C";
inline constexpr std::string_view kBwLabel = "BW";
inline constexpr std::string_view kChannelNumLabel = "Channel Num";
inline constexpr std::string_view kLengthDiagnostic = "iLength =";
// Computer Interface panel: channel and scan control
inline constexpr std::string_view kTabChannel = "                        Channel                        ";
inline constexpr std::string_view kTxFreqLabel = "Tx. Freq.";
inline constexpr std::string_view kRxFreqLabel = "Rx. Freq.";
inline constexpr std::string_view kChannelLabel = "Channel";
inline constexpr std::string_view kProgramChannel = "&Program Channel";
inline constexpr std::string_view kPriority = "&Priority";
inline constexpr std::string_view kStartScan = "St&art Scan";
inline constexpr std::string_view kStopScan = "St&op Scan";
inline constexpr std::string_view kSimplex = "Simplex";
inline constexpr std::string_view kDuplex = "Duplex";
inline constexpr std::string_view kScanGroupLabel = "Scan Group";
inline constexpr std::string_view kScanGroupsTitle = "Scan Groups";
inline constexpr std::string_view kScanAleTitle = "Scan ALE";
inline constexpr std::string_view kScanGroupHint = "The radio scans the channels of this group.";
inline constexpr std::string_view kScanNetHint = "The radio scans the channels of this ALE net and answers its calls.";
// Computer Interface panel: ALE calls
inline constexpr std::string_view kTabAle = "                         ALE                           ";
inline constexpr std::string_view kCallTypeLabel = "Call Type:";
inline constexpr std::string_view kAllCall = "All Call";
inline constexpr std::string_view kNetLabel = "Net:";
inline constexpr std::string_view kChannelColon = "Channel:";
inline constexpr std::string_view kToLabel = "To:";
inline constexpr std::string_view kAutoChannel = "Auto";
inline constexpr std::string_view kMhzSuffix = " MHz";
inline constexpr std::string_view kClearMessage = "Clr Msg:";
inline constexpr std::string_view kSend = "Send";
inline constexpr std::string_view kReplace = "Replace";
inline constexpr std::string_view kAbort = "Abort";
inline constexpr std::string_view kStackButton = "Stack";
inline constexpr std::string_view kLogButton = "Log";
inline constexpr std::string_view kDial = "Dial";
inline constexpr std::string_view kChannelValueLabel = "LQA:";
// incoming calls, the stack list and the call log
inline constexpr std::string_view kIncomingFrom = "From:";
inline constexpr std::string_view kIncomingMessage = "Message:";
inline constexpr std::string_view kStackListTitle = "Stack List";
inline constexpr std::string_view kCallLogTitle = "Call Log";
inline constexpr std::string_view kDelete = "Delete";
inline constexpr std::string_view kDeleteAll = "Delete All";
inline constexpr std::string_view kRefresh = "Refresh";
inline constexpr std::string_view kReply = "Reply";
inline constexpr std::string_view kHelp = "Help";
inline constexpr std::string_view kGridLineNotValid = "Grid line is not valid, line = %d";
// clarifier and notch filter
inline constexpr std::string_view kClarifier = "Clarifier";
inline constexpr std::string_view kNotchFilter = "Notch Filter";
inline constexpr std::string_view kDspOff = "OFF";
inline constexpr std::string_view kDspOn = "ON";
inline constexpr std::string_view kClarifierZero = "0";
inline constexpr std::string_view kClarifierScale[5] = {"-200", "-100", "0", "100", "200"};
inline constexpr std::string_view kNotchScale[5] = {"300", "900", "1500", "2100", "2700"};
inline constexpr std::string_view kViewClarifier = "View Clarifier On/Off";
inline constexpr std::string_view kViewNotchFilter = "View Notch Filter On/Off";
// Update Link Quality tab
inline constexpr std::string_view kTabLinkQuality = "Update Link Quality";
inline constexpr std::string_view kTypeLabel = "Type:";
inline constexpr std::string_view kBiDirectional = "BiDirectional";
inline constexpr std::string_view kSounding = "Sounding";
inline constexpr std::string_view kScanButtonDisabled = "Scan Button is disable!";
inline constexpr std::string_view kSoundingNeedsScan = "Sounding needs the radio scanning an ALE net: start the scan first.";
// the radio's state, always in view (our own wording)
inline constexpr std::string_view kStateChannel = "Channel: %d";
inline constexpr std::string_view kStateNoChannel = "Channel: -";
inline constexpr std::string_view kStateNotScanning = "Scan: off";
inline constexpr std::string_view kStateScanGroup = "Scan: group %c";
inline constexpr std::string_view kStateScanNet = "Scan: ALE net %d";
inline constexpr std::string_view kStateCallIdle = "Call: idle";
inline constexpr std::string_view kStateCalling = "Call: calling";
inline constexpr std::string_view kStateCallingNet = "Call: calling the net";
inline constexpr std::string_view kStateCallingAll = "Call: calling all stations";
inline constexpr std::string_view kStateReplacing = "Call: replacing the link channel";
inline constexpr std::string_view kStateLinkQualityStation = "Call: link quality with a station";
inline constexpr std::string_view kStateLinkQualityNet = "Call: link quality with the net";
inline constexpr std::string_view kStateSounding = "Call: sounding";
inline constexpr std::string_view kStateIncoming = "Call: incoming";
inline constexpr std::string_view kStateLinked = "Link: established";
inline constexpr std::string_view kStateNotLinked = "Link: none";
// RSS configuration check lines ("%s %d %s", "%s %d %s %c %s", "%s %d %s %d %s")
inline constexpr std::string_view kCheckPriorityChannel = "Priority channel";
inline constexpr std::string_view kCheckGuardChannel = "Guard channel";
inline constexpr std::string_view kCheckChannel = "Channel";
inline constexpr std::string_view kCheckIsNotProgrammed = "is not programmed.";
inline constexpr std::string_view kCheckForGroup = "for group";
inline constexpr std::string_view kCheckInGroup = "in group";
inline constexpr std::string_view kCheckSelectedNotProgrammed = "selected but not programmed.";
inline constexpr std::string_view kCheckAllCallChannel = "is All Call channel in net no.";
inline constexpr std::string_view kCheckScannedChannel = "is scanned channel in net no.";
inline constexpr std::string_view kCheckButNotProgrammed = "but not programmed.";
// configuration summary grid headers
inline constexpr std::string_view kSummaryHeaders[9] = {
    "No.", "Tx. Freq.", "Rx. Freq.", "Tx Power", "Band", "Mode", "A.G.C.", "B.W.", "Ch. Num."};

// --- groups, radio options and wide information dialogs ---
inline constexpr std::string_view kGroupsHint = "Click to select channel. Right Click to select guard channel.";
inline constexpr std::string_view kChannelNotProgrammedHint = "%s %d %s";
inline constexpr std::string_view kChannelNumber = "Channel number";
inline constexpr std::string_view kIsNotProgrammed = "is not programmed";
inline constexpr std::string_view kGuardEmpty = "Empty";
inline constexpr std::string_view kOptionSoftwareInvalid = "Invalid software version for option";
inline constexpr std::string_view kOptionHardwareInvalid = "Invalid hardware version for option";
inline constexpr std::string_view kOptionStatusInvalid = "Invalid 'status' member of option";

// --- desktop application ---
inline constexpr std::string_view kApplicationName = "KORAL Control Center";
inline constexpr std::string_view kUnsavedChanges = "The radio database has changes that were not saved. Save them first?";
inline constexpr std::string_view kFileNotReadable = "The file %s could not be read.";
inline constexpr std::string_view kFileNotWritten = "The file %s could not be written: %s";
inline constexpr std::string_view kPrintFailed = "The radio database could not be printed: %s";
inline constexpr std::string_view kNoRadioLink = "No radio is connected.";
inline constexpr std::string_view kRssFileFilter = "RSS files (*.rss);;All files (*)";
inline constexpr std::string_view kPdfFileFilter = "PDF files (*.pdf)";
inline constexpr std::string_view kBiteFileFilter = "BITE results (*.bit *.txt);;All files (*)";
// What Write Device sends, and the questions that keep an operator from erasing a radio.
inline constexpr std::string_view kRadioDatabaseName = "radio database";
inline constexpr std::string_view kAleDatabaseName = "ALE database";
inline constexpr std::string_view kGlobalMembersName = "ALE global members";
inline constexpr std::string_view kExtraOptionsName = "extra options";
inline constexpr std::string_view kCcirDatabaseName = "CCIR database";
inline constexpr std::string_view kCcirChannelNumbersName = "CCIR channel numbers";
inline constexpr std::string_view kNothing = "nothing";
inline constexpr std::string_view kRecordsNotWritten = "Written to the radio: %s.\nNot written, because they were neither read from this radio nor opened from a file: %s.";
inline constexpr std::string_view kWriteEmptyDatabase = "The radio database in the window is empty: it holds no channels, groups, serial number or code. Writing it erases those of the radio. Write it anyway?";
inline constexpr std::string_view kReadCancelled = "Read Device cancelled: nothing was changed.";
// Compare with Radio, the comparison before every write, and the backups kept before it.
inline constexpr std::string_view kCompareTitle = "Compare with Radio";
inline constexpr std::string_view kCompareCount = "%d differences between the radio and the window (radio -> window):";
inline constexpr std::string_view kCompareOne = "One difference between the radio and the window (radio -> window):";
inline constexpr std::string_view kCompareSame = "The radio holds what the window shows.";
inline constexpr std::string_view kCompareWriteQuestion = "Write what the window shows to the radio?";
inline constexpr std::string_view kCompareWrite = "&Write";
inline constexpr std::string_view kCompareCancelled = "Reading the radio was cancelled: nothing was written.";
inline constexpr std::string_view kCompareNotRead = "What the radio holds could not be read: nothing was written.";
inline constexpr std::string_view kBackupKept = "The radio's contents were kept in %s";
inline constexpr std::string_view kBackupFailed = "The radio's contents could not be kept as a backup: %s\nWrite anyway?";
inline constexpr std::string_view kBackupsTitle = "Restore Backup";
inline constexpr std::string_view kBackupsIntro = "The radio's contents are kept here before every write to it, newest first. Restore opens a backup in the panels; Write Device then compares it with the radio and asks before writing it.";
inline constexpr std::string_view kBackupsNone = "No backup yet.";
inline constexpr std::string_view kBackupsKeep = "Keep the newest";
inline constexpr std::string_view kBackupsKeepSuffix = " backups";
inline constexpr std::string_view kBackupsRestore = "&Restore";
inline constexpr std::string_view kBackupsOpenFolder = "Open &Folder";
inline constexpr std::string_view kNoPdfViewer = "No program to show PDF files was found on this computer. The user manual is %s: open it with any PDF viewer.";
inline constexpr std::string_view kNotRadioDatabaseFile = "%s does not look like a radio database file: it has none of the sections of one. Open it anyway?";
inline constexpr std::string_view kAleUnsavedChanges = "The ALE programme has changes that were not saved. Save them first?";
inline constexpr std::string_view kAleFileFilter = "ALE files (*.ale);;All files (*)";
inline constexpr std::string_view kNotAleFile = "%s does not look like an ALE programme file: it has none of the sections of one. Open it anyway?";
inline constexpr std::string_view kCcirUnsavedChanges = "The CCIR database has changes that were not saved. Save them first?";
inline constexpr std::string_view kCcirFileFilter = "CCIR files (*.ccr);;All files (*)";
inline constexpr std::string_view kNotCcirFile = "%s does not look like a CCIR database file: it has none of the sections of one. Open it anyway?";
inline constexpr std::string_view kDuplicateMember = "'%s' is member %d and member %d.";
inline constexpr std::string_view kCcirIdentityDigits = "'%s' is not an identity of %d digits (0 to 9, not all zeros).";
// The "CCIR Messages and Settings" dialog.
inline constexpr std::string_view kCcirMessagesTitle = "CCIR Messages and Settings";
inline constexpr std::string_view kCcirMessagesGroup = "Messages";
inline constexpr std::string_view kCcirSettingsGroup = "Settings";
inline constexpr std::string_view kCcirMessageLabel = "Message %d";
inline constexpr std::string_view kCcirPreamble = "Preamble";
inline constexpr std::string_view kCcirBeacon = "Beacon";
inline constexpr std::string_view kCcirAlarm = "Alarm";
inline constexpr std::string_view kCcirPreambleRange = "0 to 99";
inline constexpr std::string_view kCcirOffOn = "0 = off, 1 = on";
inline constexpr std::string_view kCcirMessageTooLong = "Message %d has %d characters: at most %d fit.";
inline constexpr std::string_view kCcirMessageCharacter = "Message %d holds %s, which the radio cannot send: use capitals, digits, the blank and punctuation.";
inline constexpr std::string_view kCharacterCode = "character code %d";
inline constexpr std::string_view kCcirSettingRange = "%s must be a number from %d to %d, not '%s'.";

// --- built-in test ---
inline constexpr std::string_view kConnectDummyLoad = "Connect a dummy load";
inline constexpr std::string_view kConnectDummyLoadOrAntenna = "Connect a dummy load or an antenna";
inline constexpr std::string_view kBiteSummary = "Summary: %d Passed, %d Failed, %d Not Performed";
inline constexpr std::string_view kWaitForReset = "Wait to perform RESET!!!";
inline constexpr std::string_view kBiteSection = "BITE";
inline constexpr std::string_view kBiteFullTest = "Full test";
inline constexpr std::string_view kBiteChannelTest = "Channel Test";
inline constexpr std::string_view kBiteLowRfTest = "Low RF Test";
inline constexpr std::string_view kBitePassed = "Passed";
inline constexpr std::string_view kBiteFailed = "Failed";
inline constexpr std::string_view kBiteIgnored = "Ignored";
inline constexpr std::string_view kBiteUnableToPerform = "Unable to perform";
// The 39 test items, item n at index n - 1 (spacing as the radio's manuals print it).
inline constexpr std::string_view kBiteItems[39] = {
    "DSP - Boot Checksum", "DSP - PLL Lock", "DSP - External RAM", "IMIC- RAM",
    "DSP - Internal RAM", "DSP - ABACUS", "DSP - DSM", "Main CPU -Flash Memory Checksum",
    "Main CPU - RAM", "16.8Mhz Clock", "Backup Battery", "Control Head - Wakeup",
    "Control Head - Response", "Radio Programmed", "Data Base", "VCO1 First Injection",
    "VCO2 First Injection", "VCO3 First Injection", "VCO Second Injection", "Synthesizer Lock",
    "Receiver", "Preselector - Range 1", "Preselector - Range 2", "Preselector - Range 3",
    "Preselector - Range 4", "Preselector - Range 5", "Preselector - Range 6",
    "Preselector - Range 7", "Preselector - Range 8", "Exciter", "Antenna Match",
    "Harmonic Filter - Range 1", "Harmonic Filter - Range 2", "Harmonic Filter - Range 3",
    "Harmonic Filter - Range 4", "Harmonic Filter - Range 5", "Harmonic Filter - Range 6",
    "Harmonic Filter - Range 7", "PA - Power Amplifier"};

// --- ALE database ---
inline constexpr std::string_view kAleConfigErrorUndefined = "Ale Config Error is not defined!";
inline constexpr std::string_view kScanRateIncorrect = "Scan Rate is not correct!";
inline constexpr std::string_view kSoundingIncorrect = "Sounding is not correct!";
inline constexpr std::string_view kSoundingValueIncorrect = "Sounding value is not correct!";
inline constexpr std::string_view kOccupancyCheckIncorrect = "Occupancy check is not correct!";
inline constexpr std::string_view kAllCallValueIncorrect = "All Call Value is not correct!";
inline constexpr std::string_view kInvalidAddress = "'%s' is an invalid address.";
inline constexpr std::string_view kIsNetName = "'%s' is net no. %d Net Name.";
inline constexpr std::string_view kIsSelfAddress = "'%s' is net no. %d Self Address.";
inline constexpr std::string_view kIsInDirectory = " is in the Directory.";
inline constexpr std::string_view kDirectoryFull = "The Directory is full; cannot add new address.";
inline constexpr std::string_view kMessageInvalid = "The message contains invalid characters";
inline constexpr std::string_view kEmptyAddress = "*EMPTY ADDRESS*";
inline constexpr std::string_view kEmptyMessage = "*EMPTY MESSAGE*";
// ALE configuration check lines (net numbers from 1)
inline constexpr std::string_view kAleNoNetName = "Net no. %d does not have Net Name.";
inline constexpr std::string_view kAleNoScannedChannels = "Net no. %d does not have Scanned Channels.";
inline constexpr std::string_view kAleNoSelfAddress = "Net no. %d does not have Self Address.";
inline constexpr std::string_view kAleNoNetsConfigured = "No Nets configured.";
inline constexpr std::string_view kAleSelfAddressIsNetName =
    "Net no. %d Self Address ('%s') defined as Net no. %d Net Name";
inline constexpr std::string_view kAleNetNameInDirectory =
    "Net no. %d Net Name ('%s') defined in the Directory";
inline constexpr std::string_view kAleSelfAddressInDirectory =
    "Net no. %d Self Address ('%s') defined in the Directory";
inline constexpr std::string_view kAleNoGlobalName = "Net no. %d no ALE global name";
// ALE dialogs' fixed labels
inline constexpr std::string_view kDirectoryMaximum = "Maximum Available:       100";
inline constexpr std::string_view kDirectoryOccupied = "Occupied Addresses:";
inline constexpr std::string_view kMessagesMaximum = "Maximum Available:         10";
inline constexpr std::string_view kMessagesOccupied = "Occupied Messages:";
inline constexpr std::string_view kDeleteAddressQuestion = "Delete the address '%s' from the Directory?";

// --- profile files ---
inline constexpr std::string_view kProfileCannotRead = "Cannot read the file %s: %s";
inline constexpr std::string_view kProfileCannotWrite = "Cannot write the file %s: %s";

// --- koralctl ---
inline constexpr std::string_view kCliOverview = "usage: koralctl COMMAND ARGUMENTS [--help]\n\ncommands:\n";
inline constexpr std::string_view kCliOverviewTrace = "\nThe commands that take --port also take --trace FILE: every frame of the link goes to FILE with its time in milliseconds, the decoded request or answer and its bytes; retries (RETRY), time-outs (TIMEOUT) and damaged frames (CRC-ERROR, BAD-FRAME) stand out.\n";
inline constexpr std::string_view kCliOverviewEnd = "\n'koralctl COMMAND --help' describes a command. Exit codes: 0 success, 1 problems found, 2 error.\n";
inline constexpr std::string_view kCliUnknownCommand = "unknown command '%s' (see 'koralctl --help')";
inline constexpr std::string_view kCliUnknownOption = "unknown option '%s' (see 'koralctl %s --help')";
inline constexpr std::string_view kCliWrongArguments = "wrong arguments; usage: koralctl %s %s";
inline constexpr std::string_view kCliUnknownKind = "%s: unknown file kind (expected %s)";
// --- koralctl: the radio commands (probe, read, write, bite) ---
inline constexpr std::string_view kCliMissingValue = "option '%s' needs a value";
inline constexpr std::string_view kCliPortMissing = "--port P is required (a port number, a device path or tcp:HOST:PORT)";
inline constexpr std::string_view kCliCannotOpenPort = "cannot open port %s: %s";
inline constexpr std::string_view kCliCannotWriteTrace = "cannot write the trace file %s: %s";
inline constexpr std::string_view kCliNoAnswer = "the radio on %s does not answer";
inline constexpr std::string_view kCliTransferFailed = "the transfer with the radio on %s failed";
inline constexpr std::string_view kCliOutputMissing = "-o BASE is required";
inline constexpr std::string_view kCliNoBaseName = "-o '%s' names no file: BASE needs a name, as in -o radio";
inline constexpr std::string_view kCliNotInCcirMode = "%s: the radio does not work in CCIR mode";
inline constexpr std::string_view kCliNoChannelNumbers = "%s holds no CCIR channel numbers, but the radio works in CCIR mode";
inline constexpr std::string_view kCliVerifyFailed = "the radio holds something else than was written: %s";
inline constexpr std::string_view kCliExtraOptions = "Extra Options";
inline constexpr std::string_view kCliBadKeep = "--keep-backups '%s' is not a number of backups (1 or more)";
inline constexpr std::string_view kCliDiffKinds = "%s and %s are not files of one kind";
inline constexpr std::string_view kCliWritten = "written to the radio on %s and verified\n";
inline constexpr std::string_view kCliBadTestType = "unknown test type '%s' (full, channel or lowrf)";
inline constexpr std::string_view kCliProbePort = "Port: %s at %d baud\n";
inline constexpr std::string_view kCliProbeProgramWord = "Program word: 0x%02X\n";
inline constexpr std::string_view kCliProbeVersion = "Software version: %s\n";
inline constexpr std::string_view kCliProbeRadioVersion = "Radio software version: %s\n";
inline constexpr std::string_view kCliProbeOperationMode = "Operation mode: %d\n";
inline constexpr std::string_view kCliProbeAle = "ALE: %s\n";
inline constexpr std::string_view kCliProbeCalling = "Selective calling: %s\n";
inline constexpr std::string_view kCliProbeSupport = "ALE global members and extra options: %s\n";
inline constexpr std::string_view kCliProbeIsb = "ISB: %s\n";

// --- network control (rig-control clients) ---
// the Link Trace window
inline constexpr std::string_view kLinkTraceSummary = "Rows: %d   Retries: %d   Time-outs: %d   Damaged frames: %d   Failed: %d";
inline constexpr std::string_view kNetworkPaneOff = "Network control off";
inline constexpr std::string_view kNetworkPaneOneClient = "Network control on: 1 client";
inline constexpr std::string_view kNetworkPaneClients = "Network control on: %d clients";
inline constexpr std::string_view kNetworkCannotListen = "Network control cannot listen on %s port %d: %s";
inline constexpr std::string_view kNetworkBadAddress = "'%s' is not an IP address.";
inline constexpr std::string_view kNetworkBadPort = "The port %d is not between 1 and 65535.";
inline constexpr std::string_view kNetworkBadScratch = "The scratch channel %d is not a channel number (1-200).";
inline constexpr std::string_view kNetworkOpenToOthers = "Other computers can control the radio through this address; the protocol has no password.";
inline constexpr std::string_view kCliBadListen = "'%s' is not ADDRESS:PORT (for example 127.0.0.1:4532)";
inline constexpr std::string_view kCliServing = "serving rig-control clients on %s port %d; the radio is on %s\n";
inline constexpr std::string_view kCliRadioNotReady = "the radio on %s did not answer or its databases could not be read";

// --- virtual radio (koral-radio-sim) ---
inline constexpr std::string_view kSimUsage =
    "Usage: koral-radio-sim [--pty | --tcp PORT] [options]\n"
    "\n"
    "A virtual KORAL radio: it holds the radio, ALE and CCIR databases, answers every request\n"
    "of the control program, sends the reports a radio sends, and plays events and faults\n"
    "typed on its console (standard input).\n"
    "\n"
    "Options:\n"
    "  --pty             serve a pseudo-terminal and print its path (the default)\n"
    "  --tcp PORT        listen on 127.0.0.1:PORT and print tcp:127.0.0.1:PORT\n"
    "  --baud RATE       the line's baud rate (default 9600)\n"
    "  --no-pacing       let bytes through as fast as they come (fast tests)\n"
    "  --rss FILE        start with the radio database of FILE\n"
    "  --ale FILE        start with the ALE database of FILE\n"
    "  --ccr FILE        start with the CCIR database of FILE\n"
    "  --ccir            start in CCIR selective-call mode instead of ALE\n"
    "  --verbose         log every request and report on standard error\n"
    "  --help            show this text\n"
    "\n"
    "Console commands:\n";
inline constexpr std::string_view kSimConsoleHelp =
    "  call station|net|all ADDRESS [\"MESSAGE\"] [channel N]\n"
    "      another station calls this radio (with a message when given)\n"
    "  link none|established|channel-busy|station-busy|silent|in-progress|failed|CODE\n"
    "      report the result of the current link attempt\n"
    "  lqa [STEPS]\n"
    "      play a bidirectional link-quality exchange\n"
    "  sound [STEPS]\n"
    "      play a sounding\n"
    "  bite run full|channel|lowrf\n"
    "      run the built-in test now\n"
    "  bite fail ITEM... | bite unable ITEM... | bite pass\n"
    "      choose the items (1-39) the next tests report as failed or unable\n"
    "  channel N\n"
    "      the operator selects channel N on the radio\n"
    "  scan group A-E | scan net N | scan stop\n"
    "      the operator starts or stops a scan\n"
    "  key 0-9|F1-F4|#|*|ESC|ENTER|GPS|MENU\n"
    "      the operator presses a key on the radio\n"
    "  remote\n"
    "      the radio asks for remote control\n"
    "  fault no-answer | answer-once | corrupt [FRAMES] | drop-after BYTES\n"
    "      inject a link fault\n"
    "  fault reject OPCODE | fault clear\n"
    "      refuse requests of an opcode (reply 60); clear all faults\n"
    "  baud RATE|off\n"
    "      pace bytes at RATE bits per second, or not at all\n"
    "  mode ale|ccir\n"
    "      switch between ALE and CCIR selective calling (the radio restarts)\n"
    "  version TEXT\n"
    "      the software version the radio reports\n"
    "  support on|off\n"
    "      whether global members and extra options are kept\n"
    "  status\n"
    "      show the radio's state\n"
    "  help\n"
    "      list these commands\n"
    "  quit\n"
    "      stop the virtual radio\n";
inline constexpr std::string_view kSimFailure = "koral-radio-sim: %s\n";
inline constexpr std::string_view kSimSeeHelp = "%s (see --help)";
inline constexpr std::string_view kSimUnexpectedArgument = "unexpected argument '%s' (see --help)";
inline constexpr std::string_view kSimOneLine = "a radio has one line: choose --pty or --tcp";
inline constexpr std::string_view kSimBadBaudOption = "--baud needs a rate in bits per second, e.g. 9600";
inline constexpr std::string_view kSimBadTcpPort = "--tcp needs a port number from 0 to 65535";
inline constexpr std::string_view kSimCannotListen = "cannot listen on port %u: %s";
inline constexpr std::string_view kSimNoPty = "cannot create a pseudo-terminal: %s";
inline constexpr std::string_view kSimFileMissing = "cannot find the file %s";
inline constexpr std::string_view kSimFileProblem = "%s: %s";
inline constexpr std::string_view kSimNotRssFile = "not a radio database file";
inline constexpr std::string_view kSimNotAleFile = "not an ALE database file";
inline constexpr std::string_view kSimNotCcrFile = "not a CCIR database file";
inline constexpr std::string_view kSimLineDropped = "line dropped (fault clear plugs it in again)\n";
inline constexpr std::string_view kSimConsoleError = "error: %s\n";
inline constexpr std::string_view kSimUnknownCommand = "unknown command '%s' (type help for the list)";
inline constexpr std::string_view kSimQuoteNotClosed = "a quoted text is not closed";
inline constexpr std::string_view kSimNoArguments = "this command takes no arguments";
inline constexpr std::string_view kSimCallNeedsKind = "call needs a kind (station, net, all) and the caller's address";
inline constexpr std::string_view kSimUnknownCallKind = "unknown call kind '%s' (station, net, all)";
inline constexpr std::string_view kSimBadAddress = "the address must be 1 to 15 letters and digits";
inline constexpr std::string_view kSimBadMessage = "the message must be at most 90 letters, digits and blanks";
inline constexpr std::string_view kSimUnexpectedWord = "unexpected '%s' (quote a message with blanks)";
inline constexpr std::string_view kSimBadChannel = "the channel must be a number from 1 to 200";
inline constexpr std::string_view kSimLinkNeedsResult = "link needs one result: none, established, channel-busy, station-busy, silent, in-progress, failed or a code 0-255";
inline constexpr std::string_view kSimUnknownLinkResult = "unknown link result '%s'";
inline constexpr std::string_view kSimBadSteps = "the number of steps must be one number from 1 to 100";
inline constexpr std::string_view kSimBiteNeedsAction = "bite needs run, fail, unable or pass";
inline constexpr std::string_view kSimBiteNeedsType = "bite run needs a test type: full, channel or lowrf";
inline constexpr std::string_view kSimBadTestItem = "list the test items, each a number from 1 to 39";
inline constexpr std::string_view kSimBadGroup = "the group is a letter from A to E";
inline constexpr std::string_view kSimBadNet = "the net must be a number from 1 to 20";
inline constexpr std::string_view kSimScanNeeds = "scan needs group A-E, net 1-20 or stop";
inline constexpr std::string_view kSimKeyNeeds = "key needs one key: 0-9, F1-F4, #, *, ESC, ENTER, GPS or MENU";
inline constexpr std::string_view kSimUnknownKey = "unknown key '%s'";
inline constexpr std::string_view kSimFaultNeeds = "fault needs no-answer, answer-once, corrupt, drop-after, reject or clear";
inline constexpr std::string_view kSimUnknownFault = "unknown fault '%s'";
inline constexpr std::string_view kSimBadCorruptCount = "the number of frames to corrupt must be a number from 1 to 1000";
inline constexpr std::string_view kSimBadDropCount = "the number of bytes before the drop must be a number from 0 to 100000000";
inline constexpr std::string_view kSimBadRejectOpcode = "the rejected request's opcode must be a number from 0 to 255";
inline constexpr std::string_view kSimBaudNeeds = "baud needs a rate in bits per second (e.g. 9600) or off";
inline constexpr std::string_view kSimModeNeeds = "mode needs ale or ccir";
inline constexpr std::string_view kSimVersionNeeds = "version needs a text of up to 8 digits and dots, e.g. 03.100";
inline constexpr std::string_view kSimSupportNeeds = "support needs on or off";
inline constexpr std::string_view kSimDone = "ok";
inline constexpr std::string_view kSimFaultSet = "fault set";
inline constexpr std::string_view kSimFaultsCleared = "faults cleared";
inline constexpr std::string_view kSimPacingOff = "pacing off";
inline constexpr std::string_view kSimPacingAt = "pacing at %u baud";
inline constexpr std::string_view kSimRestarted = "restarted in %s mode";
inline constexpr std::string_view kSimVersionSet = "software version %s (class %d)";
inline constexpr std::string_view kSimStatus = "%s mode, software %s, channel %u (%s), squelch %s, monitor %s, ALE %s, remote mode %u%s, line %u baud%s, faults %s";

// clang-format on
} // namespace koral::text
