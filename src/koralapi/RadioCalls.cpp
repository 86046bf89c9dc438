#include "koralapi/RadioCalls.h"

#include "koralapi/Opcodes.h"

#include <cstring>

namespace koral {

namespace {
CRadioMessage query(int opcode)
{
    CRadioMessage message;
    message.prepareRequest();
    message.setOpcodeAndLength(opcode, 0);
    return message;
}

int readVersion(MessageEngine* engine, unsigned char* text, int queryOpcode, int replyOpcode)
{
    CRadioMessage reply;
    if (!engine || !text || !engine->request(query(queryOpcode), replyOpcode, &reply))
        return 0;
    std::memcpy(text, reply.payload(), 8);
    return 1;
}
} // namespace

int ReadProgramWord(MessageEngine* engine, unsigned char* word)
{
    CRadioMessage reply;
    if (!engine || !word || !engine->request(query(op::QueryProgramWord), op::ProgramWord, &reply))
        return 0;
    *word = reply[6];
    return 1;
}

int ReadCurrentChannel(MessageEngine* engine, channel* record)
{
    CRadioMessage reply;
    if (!engine || !record ||
        !engine->request(query(op::QueryCurrentChannel), op::CurrentChannel, &reply))
        return 0;
    std::array<std::uint8_t, record::kChannelSize> bytes{};
    std::memcpy(bytes.data(), reply.bytes.data() + 7, bytes.size());
    convertChannelByteOrder(bytes);
    std::memcpy(record, bytes.data(), bytes.size());
    return 1;
}

int ProgramChannelNumberN(MessageEngine* engine, const channel* record, int number)
{
    if (!engine || !record || number < 1 || number > 200 || !engine->IsPortOpen())
        return 0;
    CRadioMessage message;
    message.prepareRequest();
    message.setOpcodeAndLength(op::ProgramChannel, 1 + record::kChannelSize);
    message[6] = static_cast<std::uint8_t>(number);
    std::array<std::uint8_t, record::kChannelSize> bytes{};
    std::memcpy(bytes.data(), record, bytes.size());
    convertChannelByteOrder(bytes);
    std::memcpy(message.bytes.data() + 7, bytes.data(), bytes.size());

    const LinkTiming timing = engine->timing();
    auto transfer = engine->beginTransfer({});
    transfer->post(message);
    if (!transfer->waitAcknowledged(0, std::chrono::milliseconds(timing.sendBoundMs())))
        return 0;
    while (auto result = transfer->next(std::chrono::milliseconds(timing.replyMs()))) {
        if (result->GetOpcode() == op::CommandResult && (*result)[6] == op::ProgramChannel)
            return (*result)[8] == op::status::Done ? 1 : 0;
    }
    return 0;
}

int ReadSoftwareVersion(MessageEngine* engine, unsigned char* text)
{
    return readVersion(engine, text, op::QuerySoftwareVersion, op::SoftwareVersion);
}

int ReadRadioSoftwareVersion(MessageEngine* engine, unsigned char* text)
{
    return readVersion(engine, text, op::QueryRadioSoftwareVersion, op::RadioSoftwareVersion);
}

} // namespace koral
