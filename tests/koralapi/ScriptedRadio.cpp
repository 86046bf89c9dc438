#include "ScriptedRadio.h"

#include "RunIn.h"

#include "koralapi/InProcessPipe.h"
#include "koralapi/Opcodes.h"
#include "koralapi/RadioRecords.h"

#include <cstring>

using namespace koral;

ScriptedRadio::ScriptedRadio()
{
    moveToThread(&m_thread);
    m_thread.start();
    runIn(this, [this] {
        m_link = new LinkLayer(this);
        m_link->setBaudRate(115200);
        connect(m_link, &LinkLayer::messageReceived, this, &ScriptedRadio::onMessage);
    });
    for (int target : {1, 2, 3, 4, 5, 6, 16})
        databases[target].assign(targetSize(target), 0);
}

ScriptedRadio::~ScriptedRadio()
{
    runIn(this, [this] {
        m_link->detach();
        m_ownedDevice.reset();
        delete m_link;
    });
    m_thread.quit();
    m_thread.wait();
}

std::unique_ptr<QIODevice> ScriptedRadio::pipeEnd()
{
    auto [program, radio] = InProcessPipe::create();
    QIODevice* raw = radio.release();
    raw->moveToThread(&m_thread);
    runIn(this, [this, raw] {
        m_ownedDevice.reset(raw);
        m_link->attach(raw);
    });
    return std::move(program);
}

void ScriptedRadio::report(int opcode, std::vector<std::uint8_t> payload)
{
    QMetaObject::invokeMethod(this, [this, opcode, payload] { answer(opcode, payload); });
}

void ScriptedRadio::noise(QByteArray bytes)
{
    QMetaObject::invokeMethod(this, [this, bytes] {
        if (m_ownedDevice)
            m_ownedDevice->write(bytes);
    });
}

void ScriptedRadio::send(const CRadioMessage& message)
{
    m_link->send(message.wireBytes());
}

void ScriptedRadio::answer(int opcode, std::vector<std::uint8_t> payload)
{
    CRadioMessage message;
    message.prepareReport();
    message.setOpcodeAndLength(opcode, payload.size());
    std::copy(payload.begin(), payload.end(), message.payload());
    send(message);
}

void ScriptedRadio::onMessage(const QByteArray& bytes)
{
    CRadioMessage request;
    if (!request.assign({reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                         static_cast<std::size_t>(bytes.size())}))
        return;
    const int opcode = request.GetOpcode();
    {
        std::lock_guard lock(mutex);
        requests.push_back(opcode);
    }
    if (mute)
        return;
    switch (opcode) {
    case op::QueryActiveChannel:
        answer(op::ActiveChannel, {0, 12});
        break;
    case op::QuerySquelch:
        answer(op::SquelchState, {2});
        break;
    case op::QueryProgramWord:
        answer(op::ProgramWord, {0x5A});
        break;
    case op::QuerySoftwareVersion:
        answer(op::SoftwareVersion, {'0', '3', '.', '1', '0', '0', 0, 0});
        break;
    case op::QueryRadioSoftwareVersion:
        answer(op::RadioSoftwareVersion, {'0', '3', '.', '8', '1', '9', '4', 0});
        break;
    case op::QueryCurrentChannel:
        // channel 7: settings 1, 2, 3; Tx 7 000 000 Hz, Rx 7 100 000 Hz; then 4, 5
        answer(op::CurrentChannel,
               {7, 1, 2, 3, 0x00, 0x6A, 0xCF, 0xC0, 0x00, 0x6C, 0x56, 0x60, 4, 5});
        break;
    case op::ProgramChannel: {
        std::lock_guard lock(mutex);
        auto& radio = databases[1];
        std::memcpy(radio.data() + 1688 + 13 * (request[6] - 1), request.bytes.data() + 7, 13);
        answer(op::CommandResult, {op::ProgramChannel, 0, 0});
        break;
    }
    case op::StartProgramming:
    case op::StopProgramming:
        answer(op::CommandResult, {static_cast<std::uint8_t>(opcode), 0, 0});
        break;
    case op::DatabaseRead:
        streamRead(request[6], request.get16(7), request.get16(9));
        break;
    case op::DatabaseWrite:
        m_write = {request[6], request.get16(7), request.get16(9), {}};
        break;
    case op::DataBlock:
        onBlock(request);
        break;
    case op::TransferAbort:
        m_link->cancelAll();
        m_write = {};
        break;
    default:
        break;
    }
}

void ScriptedRadio::streamRead(int target, int start, int length)
{
    std::vector<std::uint8_t> bytes;
    {
        std::lock_guard lock(mutex);
        const auto it = databases.find(target);
        if (it == databases.end() || target == 16) {
            answer(op::CommandResult, {op::DatabaseRead, static_cast<std::uint8_t>(target), 1});
            return;
        }
        bytes.assign(it->second.begin() + start, it->second.begin() + start + length);
    }
    for (std::size_t done = 0; done < bytes.size();) {
        const std::size_t n = std::min<std::size_t>(246, bytes.size() - done);
        CRadioMessage block;
        block.prepareReport();
        block.setOpcodeAndLength(op::DataBlock, 4 + n);
        block[6] = static_cast<std::uint8_t>(target);
        block.put16(7, static_cast<std::uint16_t>(start + done));
        block[9] = done + n == bytes.size() ? 1 : 0;
        std::memcpy(block.payload() + 4, bytes.data() + done, n);
        send(block);
        done += n;
    }
}

void ScriptedRadio::onBlock(const CRadioMessage& block)
{
    if (block[6] != m_write.target)
        return;
    const int length = block.GetLen() - 4;
    m_write.bytes.insert(m_write.bytes.end(), block.payload() + 4, block.payload() + 4 + length);
    if (!(block[9] & 1))
        return;
    const bool complete = static_cast<int>(m_write.bytes.size()) == m_write.length;
    if (complete) {
        std::lock_guard lock(mutex);
        std::copy(m_write.bytes.begin(), m_write.bytes.end(),
                  databases[m_write.target].begin() + m_write.start);
    }
    answer(op::CommandResult, {op::DatabaseWrite, static_cast<std::uint8_t>(m_write.target),
                               static_cast<std::uint8_t>(complete ? 0 : 2)});
    m_write = {};
}
