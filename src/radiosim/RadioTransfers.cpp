#include "radiosim/RadioTransfers.h"

#include "koralapi/Opcodes.h"

#include <algorithm>

namespace koral::radiosim {

namespace {
constexpr std::uint8_t kLastBlock = 0x01;
} // namespace

std::optional<RadioTransfers::Result> RadioTransfers::startRead(const CRadioMessage& request)
{
    m_read.reset();
    const int target = request[6];
    const std::size_t offset = request.get16(7);
    const std::size_t length = request.get16(9);
    auto memory = m_access(target, false);
    if (const auto* refusal = std::get_if<std::uint8_t>(&memory)) {
        return Result{op::DatabaseRead, target, *refusal};
    }
    const auto bytes = std::get<std::span<std::uint8_t>>(memory);
    if (length == 0 || offset + length > bytes.size()) {
        return Result{op::DatabaseRead, target, op::status::BadRange};
    }
    m_read = Read{target, offset, offset + length,
                  std::vector<std::uint8_t>(bytes.begin(), bytes.end())};
    return std::nullopt;
}

CRadioMessage RadioTransfers::nextReadBlock()
{
    CRadioMessage message;
    message.prepareReport();
    if (!m_read) {
        return message;
    }
    const std::size_t count = std::min(kBlockData, m_read->end - m_read->offset);
    message.setOpcodeAndLength(op::DataBlock, 4 + count);
    message[6] = static_cast<std::uint8_t>(m_read->target);
    message.put16(7, static_cast<std::uint16_t>(m_read->offset));
    const bool last = m_read->offset + count == m_read->end;
    message[9] = last ? kLastBlock : 0;
    std::copy_n(m_read->data.begin() + static_cast<std::ptrdiff_t>(m_read->offset), count,
                message.payload() + 4);
    m_read->offset += count;
    if (last) {
        m_read.reset();
    }
    return message;
}

std::optional<RadioTransfers::Result> RadioTransfers::startWrite(const CRadioMessage& request)
{
    m_write.reset();
    Write write;
    write.target = request[6];
    write.offset = request.get16(7);
    write.length = request.get16(9);
    auto memory = m_access(write.target, true);
    if (const auto* refusal = std::get_if<std::uint8_t>(&memory)) {
        write.failure = *refusal;
    } else if (write.length == 0 ||
               write.offset + write.length > std::get<std::span<std::uint8_t>>(memory).size()) {
        write.failure = op::status::BadRange;
    }
    m_write = std::move(write);
    return std::nullopt;
}

std::optional<RadioTransfers::Result> RadioTransfers::block(const CRadioMessage& block)
{
    const int target = block[6];
    if (!m_write || m_write->target != target || block.GetLen() < 5) {
        return std::nullopt; // a stray block (an aborted or refused transfer): dropped
    }
    Write& write = *m_write;
    const std::size_t offset = block.get16(7);
    const std::size_t count = static_cast<std::size_t>(block.GetLen()) - 4;
    const bool last = (block[9] & kLastBlock) != 0;
    if (!write.failure &&
        (offset != write.offset + write.data.size() || write.data.size() + count > write.length)) {
        write.failure = op::status::BadRange;
    }
    if (!write.failure) {
        write.data.insert(write.data.end(), block.payload() + 4, block.payload() + 4 + count);
    }
    if (!last) {
        return std::nullopt;
    }
    Result result{op::DatabaseWrite, target, write.failure.value_or(op::status::Done)};
    if (!write.failure && write.data.size() != write.length) {
        result.status = op::status::BadRange;
    }
    if (result.status == op::status::Done) {
        auto memory = std::get<std::span<std::uint8_t>>(m_access(target, true));
        std::copy(write.data.begin(), write.data.end(),
                  memory.begin() + static_cast<std::ptrdiff_t>(write.offset));
    }
    m_write.reset();
    return result;
}

void RadioTransfers::abort(int target)
{
    if (m_read && m_read->target == target) {
        m_read.reset();
    }
    if (m_write && m_write->target == target) {
        m_write.reset();
    }
}

void RadioTransfers::clear()
{
    m_read.reset();
    m_write.reset();
}

} // namespace koral::radiosim
