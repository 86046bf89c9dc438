#include "koralapi/LinkTraceRow.h"

#include "koralapi/FrameCodec.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace koral {

namespace {

// How a field of a message is shown.
enum class Show : std::uint8_t
{
    Byte,      // decimal
    Signed,    // a signed byte (-1 = automatic channel)
    HexByte,   // flags and words
    Word,      // 16 bits, big-endian
    Hertz,     // 32 bits, big-endian, shown in MHz
    Text,      // zero-terminated characters, at most `size`
    Target,    // the database of a transfer
    Status,    // the status of a command result
    Request,   // the opcode of a request
    Rejected,  // the opcode of a rejected request, signed 16 bits
    BlockSize, // the data bytes of a block: the payload after its 4 header bytes
};

struct Field
{
    const char* label = nullptr;
    std::uint8_t at = 0; // counts from byte 0 of the message
    Show show = Show::Byte;
    std::uint8_t size = 1;
};

enum class Way : std::uint8_t
{
    ToRadio,
    FromRadio,
    Both,
};

struct MessageSpec
{
    int opcode;
    Way way;
    const char* name;
    std::array<Field, 5> fields{};
};

constexpr Field kCallChannel{"channel", 7, Show::Signed};
constexpr Field kCallAddress{"address", 9, Show::Text, 16};

// The messages of the link with the fields a technician looks at first; the payloads are those
// of docs/link-protocol.md.
constexpr MessageSpec kMessages[] = {
    // requests
    {27, Way::ToRadio, "PerformSelfTest", {{{"type", 6}}}},
    {67, Way::ToRadio, "BiDirectionalStation", {{kCallChannel, kCallAddress}}},
    {68, Way::ToRadio, "BiDirectionalNet", {{kCallChannel, kCallAddress}}},
    {69, Way::ToRadio, "StationCall", {{kCallChannel, kCallAddress}}},
    {70, Way::ToRadio, "NetCall", {{kCallChannel, kCallAddress}}},
    {71, Way::ToRadio, "AllCall", {{kCallChannel}}},
    {78, Way::ToRadio, "SetSoundOnOff", {{{"unit", 6}, {"on", 7}}}},
    {79, Way::ToRadio, "SetAleMode", {{{"unit", 6}, {"on", 7}}}},
    {100, Way::ToRadio, "SetActiveChannel", {{{"unit", 6}, {"channel", 7}}}},
    {101, Way::ToRadio, "SetSquelchOnOff", {{{"unit", 6}, {"on", 7}}}},
    {102, Way::ToRadio, "SetMonitorOnOff", {{{"unit", 6}, {"on", 7}}}},
    {103,
     Way::ToRadio,
     "SetDspMenuParameters",
     {{{"unit", 6}, {"level", 7}, {"clipper", 8}, {"blanker", 9}, {"attenuator", 10}}}},
    {104, Way::ToRadio, "SetClarifier", {{{"unit", 6}, {"direction", 7}, {"magnitude", 8}}}},
    {105, Way::ToRadio, "PerformReset"},
    {106, Way::ToRadio, "EnterRemoteMode", {{{"mode", 6}}}},
    {107, Way::ToRadio, "EnableDisableSpecialReport", {{{"unit", 6}, {"on", 7}, {"report", 8}}}},
    {108, Way::ToRadio, "ReportSquelchState"},
    {109, Way::ToRadio, "ReportMonitorState"},
    {110, Way::ToRadio, "ReportDspMenuParameters"},
    {111, Way::ToRadio, "ReportClarifierPosition"},
    {112, Way::ToRadio, "ReportRadioOperationMode"},
    {113, Way::ToRadio, "ReportAleON_OFF"},
    {114, Way::ToRadio, "ReportRadioSupportMode"},
    {115, Way::ToRadio, "ReportCcirMode"},
    {116, Way::ToRadio, "ReportIsbMode"},
    {117, Way::ToRadio, "ReportActiveChannel"},
    {118, Way::ToRadio, "SetRadioScanMode", {{{"kind", 6}, {"on", 7}, {"group", 8}}}},
    {119, Way::ToRadio, "ReplaceLinkChannel", {{{"unit", 6}, {"automatic", 7}, {"channel", 8}}}},
    {120, Way::ToRadio, "AbortLink"},
    {121, Way::ToRadio, "AcceptLink"},
    {122, Way::ToRadio, "ReportControlHeadKeyboard", {{{"key", 6}}}},
    {123, Way::ToRadio, "ReadProgramWord"},
    {125, Way::ToRadio, "ReadCurrentChannel"},
    {127,
     Way::ToRadio,
     "ProgramChannelNumberN",
     {{{"channel", 6}, {"tx", 10, Show::Hertz, 4}, {"rx", 14, Show::Hertz, 4}}}},
    {128, Way::ToRadio, "ReadSoftwareVersion"},
    {130, Way::ToRadio, "ReadRadioSoftwareVersion"},
    {132,
     Way::ToRadio,
     "DatabaseRead",
     {{{"target", 6, Show::Target}, {"offset", 7, Show::Word, 2}, {"length", 9, Show::Word, 2}}}},
    {133,
     Way::ToRadio,
     "DatabaseWrite",
     {{{"target", 6, Show::Target},
       {"offset", 7, Show::Word, 2},
       {"length", 9, Show::Word, 2},
       {"flags", 11, Show::HexByte}}}},
    {134, Way::ToRadio, "TransferAbort", {{{"target", 6, Show::Target}}}},
    {136, Way::ToRadio, "StartRADIOProgramming"},
    {137, Way::ToRadio, "StopRADIOProgramming"},
    // both directions
    {135,
     Way::Both,
     "DataBlock",
     {{{"target", 6, Show::Target},
       {"offset", 7, Show::Word, 2},
       {"bytes", 0, Show::BlockSize},
       {"last", 9, Show::Byte}}}},
    // answers and reports
    {1, Way::FromRadio, "ActiveChannel", {{{"scanning", 6}, {"channel", 7}}}},
    {9, Way::FromRadio, "SquelchState", {{{"state", 6, Show::HexByte}}}},
    {15, Way::FromRadio, "ClarifierPosition", {{{"direction", 6}, {"magnitude", 7}}}},
    {21,
     Way::FromRadio,
     "DspParameters",
     {{{"level", 6}, {"clipper", 7}, {"blanker", 8}, {"attenuator", 9}}}},
    {22, Way::FromRadio, "OperationMode", {{{"mode", 6}}}},
    {27, Way::FromRadio, "DisplayReport", {{{"kind", 6}, {"text", 7, Show::Text, 40}}}},
    {28, Way::FromRadio, "RemoteRequested"},
    {30, Way::FromRadio, "IsbModeChanged", {{{"isb", 6}}}},
    {45, Way::FromRadio, "ScanListReport", {{{"scanning", 6}, {"kind", 7}, {"group", 8}}}},
    {46,
     Way::FromRadio,
     "ChannelReport",
     {{{"kind", 6},
       {"channel", 7},
       {"group", 8},
       {"rx", 9, Show::Hertz, 4},
       {"tx", 13, Show::Hertz, 4}}}},
    {48, Way::FromRadio, "IsbMode", {{{"isb", 6}}}},
    {60, Way::FromRadio, "CommandRejected", {{{"request", 6, Show::Rejected, 2}}}},
    {65, Way::FromRadio, "LinkStatusValue", {{{"kind", 6}, {"value", 9}}}},
    {67, Way::FromRadio, "BiDirectionalProgress", {{{"channel", 6}, {"score", 9}}}},
    {69, Way::FromRadio, "StationCallProgress", {{{"channel", 6}}}},
    {70, Way::FromRadio, "NetCallProgress", {{{"channel", 6}}}},
    {71, Way::FromRadio, "AllCallProgress", {{{"channel", 6}}}},
    {78, Way::FromRadio, "SoundingProgress", {{{"channel", 6}, {"sounded", 9}}}},
    {79, Way::FromRadio, "IncomingStationCall", {{{"from", 10, Show::Text, 16}}}},
    {80, Way::FromRadio, "IncomingNetCall", {{{"from", 10, Show::Text, 16}}}},
    {81, Way::FromRadio, "LinkQualityUpdate", {{{"channel", 6}, {"score", 8}}}},
    {82, Way::FromRadio, "IncomingPriorityCall", {{{"from", 10, Show::Text, 16}}}},
    {83, Way::FromRadio, "LinkChannelReport", {{{"channel", 6}}}},
    {84, Way::FromRadio, "LinkEndedByPeer"},
    {85, Way::FromRadio, "LinkResult", {{{"code", 6}}}},
    {88, Way::FromRadio, "AleOnOff", {{{"on", 6}}}},
    {89, Way::FromRadio, "MonitorState", {{{"on", 6}}}},
    {90, Way::FromRadio, "IncomingSilentNetCall", {{{"from", 10, Show::Text, 16}}}},
    {96, Way::FromRadio, "CcirMode", {{{"ccir", 6}, {"ale", 7}}}},
    {98, Way::FromRadio, "SupportMode", {{{"flags", 6, Show::HexByte}}}},
    {124, Way::FromRadio, "ProgramWord", {{{"word", 6, Show::HexByte}}}},
    {126,
     Way::FromRadio,
     "CurrentChannel",
     {{{"channel", 6}, {"tx", 10, Show::Hertz, 4}, {"rx", 14, Show::Hertz, 4}}}},
    {129, Way::FromRadio, "SoftwareVersion", {{{"version", 6, Show::Text, 8}}}},
    {131, Way::FromRadio, "RadioSoftwareVersion", {{{"version", 6, Show::Text, 8}}}},
    {140,
     Way::FromRadio,
     "CommandResult",
     {{{"request", 6, Show::Request}, {"target", 7, Show::Target}, {"status", 8, Show::Status}}}},
};

const MessageSpec* findMessage(int opcode, bool fromRadio)
{
    const Way way = fromRadio ? Way::FromRadio : Way::ToRadio;
    for (const MessageSpec& spec : kMessages) {
        if (spec.opcode == opcode && (spec.way == way || spec.way == Way::Both))
            return &spec;
    }
    return nullptr;
}

std::string targetName(int target)
{
    switch (target) {
    case 1:
        return "dbase";
    case 2:
        return "ale_dbase";
    case 3:
        return "global_members";
    case 4:
        return "ccir_dbase";
    case 5:
        return "channel_name";
    case 6:
        return "extra_options";
    case 16:
        return "radio_memory";
    default:
        return std::to_string(target);
    }
}

std::string statusName(int status)
{
    constexpr const char* kNames[] = {"done",    "refused",      "bad-range", "not-in-programming",
                                      "aborted", "data-rejected"};
    if (status >= 0 && status < static_cast<int>(std::size(kNames)))
        return kNames[status];
    return std::to_string(status);
}

std::string megahertz(std::uint32_t hertz)
{
    char text[32];
    std::snprintf(text, sizeof text, "%u.%06u", hertz / 1000000, hertz % 1000000);
    return text;
}

// The value of one field of `message` (header and payload as they arrived), or nothing when
// the message is too short to hold it.
std::string fieldValue(const Field& field, std::span<const std::uint8_t> message)
{
    const std::size_t end = std::size_t{field.at} + field.size;
    if (field.show != Show::Text && end > message.size())
        return {};
    if (field.at >= message.size())
        return {};
    const auto byte = [&](std::size_t i) { return unsigned{message[field.at + i]}; };
    char text[32];
    switch (field.show) {
    case Show::Byte:
        return std::to_string(byte(0));
    case Show::Signed:
        return std::to_string(static_cast<std::int8_t>(byte(0)));
    case Show::HexByte:
        std::snprintf(text, sizeof text, "0x%02X", byte(0));
        return text;
    case Show::Word:
        return std::to_string((byte(0) << 8) | byte(1));
    case Show::Hertz:
        return megahertz((byte(0) << 24) | (byte(1) << 16) | (byte(2) << 8) | byte(3));
    case Show::Text: {
        std::string value = "\"";
        for (std::size_t i = field.at; i < std::min(end, message.size()) && message[i] != 0; ++i)
            value += message[i] >= 0x20 && message[i] < 0x7F ? static_cast<char>(message[i]) : '?';
        return value + '"';
    }
    case Show::Target:
        return targetName(static_cast<int>(byte(0)));
    case Show::Status:
        return statusName(static_cast<int>(byte(0)));
    case Show::Request:
        return LinkTraceRow::messageName(static_cast<int>(byte(0)), false);
    case Show::Rejected: {
        const auto opcode = static_cast<std::int16_t>((byte(0) << 8) | byte(1));
        return LinkTraceRow::messageName(opcode, false);
    }
    case Show::BlockSize:
        return message.size() > 10 ? std::to_string(message.size() - 10) : std::string("0");
    }
    return {};
}

std::string frameKindName(std::uint8_t kind)
{
    switch (static_cast<FrameKind>(kind)) {
    case FrameKind::Data:
        return "DATA";
    case FrameKind::Ack:
        return "ACK";
    case FrameKind::Nak:
        return "NAK";
    case FrameKind::Reset:
        return "RESET";
    case FrameKind::ResetAck:
        return "RESET-ACK";
    case FrameKind::Close:
        return "CLOSE";
    }
    return "kind " + std::to_string(kind);
}

// Fills the frame, message and fields of `row` from the bytes of a frame (complete or not).
void describeFrame(std::span<const std::uint8_t> bytes, bool fromRadio, bool withFields,
                   LinkTraceRow& row)
{
    if (bytes.size() < 3)
        return;
    row.frame = frameKindName(bytes[1]) + " #" + std::to_string(bytes[2]);
    if (bytes[1] != static_cast<std::uint8_t>(FrameKind::Data) || bytes.size() < 7)
        return;
    // The message inside: as much of it as arrived, never the checksum.
    const std::size_t declared =
        bytes.size() >= frame::kHeaderSize ? (std::size_t{bytes[3]} << 8 | bytes[4]) : 0;
    auto message = bytes.subspan(frame::kHeaderSize);
    message = message.first(std::min(message.size(), declared));
    if (message.size() < 2)
        return;
    row.message = LinkTraceRow::messageName(message[1], fromRadio);
    const MessageSpec* spec = findMessage(message[1], fromRadio);
    if (!spec || !withFields)
        return;
    for (const Field& field : spec->fields) {
        if (!field.label)
            break;
        const std::string value = fieldValue(field, message);
        if (value.empty())
            continue;
        if (!row.fields.empty())
            row.fields += ' ';
        row.fields += std::string(field.label) + '=' + value;
    }
}

std::string checksumText(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < frame::kOverhead)
        return "checksum error";
    const auto received =
        static_cast<unsigned>((bytes[bytes.size() - 2] << 8) | bytes[bytes.size() - 1]);
    const unsigned computed = crc16(bytes.subspan(1, bytes.size() - 1 - frame::kCrcSize));
    char text[64];
    std::snprintf(text, sizeof text, "checksum %04X, computed %04X", received, computed);
    return text;
}

std::string badHeaderText(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < frame::kHeaderSize)
        return "bad frame header";
    const unsigned kind = bytes[1];
    const std::size_t length = std::size_t{bytes[3]} << 8 | bytes[4];
    if (kind < static_cast<unsigned>(FrameKind::Data) ||
        kind > static_cast<unsigned>(FrameKind::Close))
        return "unknown frame kind " + std::to_string(kind);
    if (length > frame::kMaxBody)
        return "length " + std::to_string(length) + " above " + std::to_string(frame::kMaxBody);
    return frameKindName(bytes[1]) + " with a body of " + std::to_string(length) + " bytes";
}

std::string truncatedText(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < frame::kHeaderSize)
        return "frame header cut after " + std::to_string(bytes.size()) + " bytes";
    const std::size_t total = (std::size_t{bytes[3]} << 8 | bytes[4]) + frame::kOverhead;
    return "frame cut after " + std::to_string(bytes.size()) + " of " + std::to_string(total) +
           " bytes";
}

} // namespace

std::string LinkTraceRow::messageName(int opcode, bool fromRadio)
{
    const MessageSpec* spec = findMessage(opcode, fromRadio);
    const std::string number = "(" + std::to_string(opcode) + ")";
    return spec ? std::string(spec->name) + ' ' + number : "message " + number;
}

std::string LinkTraceRow::hexBytes(std::span<const std::uint8_t> bytes)
{
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 3);
    for (std::uint8_t byte : bytes) {
        if (!text.empty())
            text += ' ';
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0x0F];
    }
    return text;
}

LinkTraceRow LinkTraceRow::describe(const LinkEvent& event)
{
    using Kind = LinkEvent::Kind;
    LinkTraceRow row;
    row.timeMs = event.timeMs;
    const std::span<const std::uint8_t> bytes(event.bytes);
    const bool received = event.kind == Kind::Received || event.kind == Kind::ChecksumError ||
                          event.kind == Kind::BadHeader || event.kind == Kind::Truncated;
    const bool sent = event.kind == Kind::Sent || event.kind == Kind::Resent;
    row.direction = received ? "<-" : sent ? "->" : "";
    if (received || sent)
        row.hex = hexBytes(bytes);
    describeFrame(bytes, received,
                  event.kind == Kind::Sent || event.kind == Kind::Resent ||
                      event.kind == Kind::Received,
                  row);
    const auto mark = [&row](Mark mark, std::string word) {
        row.mark = mark;
        row.markText = std::move(word);
    };
    switch (event.kind) {
    case Kind::Sent:
    case Kind::Received:
        break;
    case Kind::Resent:
        mark(Mark::Retry, "RETRY " + std::to_string(event.transmission) +
                              (event.count > 0 ? "/" + std::to_string(event.count) : ""));
        break;
    case Kind::AckTimeout:
        mark(Mark::Timeout, "TIMEOUT");
        row.fields = "no acknowledgement within " + std::to_string(event.boundMs) + " ms";
        break;
    case Kind::GivenUp:
        mark(Mark::Failed, "FAILED");
        row.fields =
            "not acknowledged after " + std::to_string(event.transmission) + " transmissions";
        if (event.count > 0)
            row.fields += "; " + std::to_string(event.count) +
                          (event.count == 1 ? " message fails" : " messages fail");
        break;
    case Kind::ChecksumError:
        mark(Mark::ChecksumError, "CRC-ERROR");
        row.fields = checksumText(bytes);
        break;
    case Kind::BadHeader:
        mark(Mark::BadFrame, "BAD-FRAME");
        row.fields = badHeaderText(bytes);
        break;
    case Kind::Truncated:
        mark(Mark::Timeout, "TIMEOUT");
        row.fields = truncatedText(bytes);
        break;
    case Kind::ReplyTimeout:
        mark(Mark::Timeout, "TIMEOUT");
        if (event.opcode >= 0)
            row.message = messageName(event.opcode, true);
        row.fields = (event.opcode >= 0 ? "no answer within " : "no data block or result within ") +
                     std::to_string(event.boundMs) + " ms";
        break;
    }
    return row;
}

std::string LinkTraceRow::line() const
{
    char head[96];
    std::snprintf(head, sizeof head, "%9lld ms  %-2s  %-9s  %-12s  ",
                  static_cast<long long>(timeMs), direction.c_str(), markText.c_str(),
                  frame.c_str());
    std::string text = head;
    text += message;
    if (!fields.empty())
        text += (message.empty() ? "" : " ") + fields;
    if (!hex.empty()) {
        // The bytes line up in a column as long as the contents leave room.
        constexpr std::size_t kHexColumn = 110;
        text.resize(std::max(text.size() + 1, kHexColumn), ' ');
        text += "| " + hex;
    }
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    return text;
}

} // namespace koral
