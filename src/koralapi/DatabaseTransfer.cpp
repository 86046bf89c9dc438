#include "koralapi/DatabaseTransfer.h"

#include "koralapi/Opcodes.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

namespace koral {

namespace {
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// Data bytes per block: the 256-byte payload less target, offset and flags.
constexpr std::size_t kBlockData = 246;
constexpr std::size_t kBlockHeader = 4;
// Blocks queued beyond the link's window, so the window never runs dry between two waits.
constexpr int kQueuedAhead = LinkLayer::kWindow + 2;
constexpr milliseconds kAbortBound{1000};

CRadioMessage request(int opcode, std::initializer_list<std::uint8_t> payload)
{
    CRadioMessage message;
    message.prepareRequest();
    message.setOpcodeAndLength(opcode, payload.size());
    std::copy(payload.begin(), payload.end(), message.payload());
    return message;
}

CRadioMessage transferRequest(int opcode, TransferTarget target, std::size_t start,
                              std::size_t length, std::uint8_t flags)
{
    CRadioMessage message = request(opcode, {static_cast<std::uint8_t>(target), 0, 0, 0, 0, flags});
    message.put16(7, static_cast<std::uint16_t>(start));
    message.put16(9, static_cast<std::uint16_t>(length));
    return message;
}

milliseconds patienceBound(int patience)
{
    return milliseconds(1000 * std::clamp(patience, 1, 60));
}

// The longest the blocks of a record may take once they flow: every block crossing the wire
// twice at the line's rate (room for resends and for the acknowledgements coming back), and
// two block gaps for the turn-arounds. A line much slower than its rate runs out of it.
milliseconds transferBound(const LinkTiming& timing, std::size_t bytes)
{
    const std::size_t blocks = (bytes + kBlockData - 1) / kBlockData;
    return milliseconds(2 * timing.wireMs(blocks * frame::kMaxFrame) + 2 * timing.blockGapMs());
}

// The time left until `deadline`, at most `bound`; zero once it has passed.
milliseconds leftUntil(Clock::time_point deadline, milliseconds bound)
{
    const auto left = std::chrono::duration_cast<milliseconds>(deadline - Clock::now());
    return std::clamp(left, milliseconds(0), bound);
}

bool isResultFor(const CRadioMessage& message, int requestOpcode, TransferTarget target)
{
    return message.GetOpcode() == op::CommandResult && message[6] == requestOpcode &&
           message[7] == static_cast<std::uint8_t>(target);
}

// Tells the radio to stop; bounded, and its outcome does not change the caller's failure.
void sendAbort(MessageEngine::Transfer& transfer, TransferTarget target)
{
    transfer.cancel();
    transfer.post(request(op::TransferAbort, {static_cast<std::uint8_t>(target)}));
    transfer.waitAcknowledged(0, kAbortBound);
}

// Waits for the radio's result of a request; 1 when it reports done.
int awaitResult(MessageEngine::Transfer& transfer, int requestOpcode, TransferTarget target,
                milliseconds bound)
{
    while (auto message = transfer.next(bound)) {
        if (isResultFor(*message, requestOpcode, target))
            return (*message)[8] == op::status::Done ? 1 : 0;
    }
    return 0;
}

bool validStart(TransferTarget target, int start, std::size_t length)
{
    const std::size_t size = targetSize(static_cast<int>(target));
    return start >= 0 && length > 0 && static_cast<std::size_t>(start) + length <= size;
}

template <class Record>
std::span<std::uint8_t> bytesOf(Record* record, std::size_t size, std::size_t start = 0)
{
    return {reinterpret_cast<std::uint8_t*>(record) + start, size - start};
}

template <class Record>
std::span<const std::uint8_t> bytesOf(const Record* record, std::size_t size, std::size_t start = 0)
{
    return {reinterpret_cast<const std::uint8_t*>(record) + start, size - start};
}

// Sends `bytes` as blocks of `target` from `start` on; the request has already been posted.
int streamBlocks(MessageEngine::Transfer& transfer, const LinkTiming& timing, TransferTarget target,
                 std::span<const std::uint8_t> bytes, std::size_t start,
                 const ProgressCallback& progress)
{
    const milliseconds ackBound{timing.sendBoundMs()};
    const auto deadline = Clock::now() + transferBound(timing, bytes.size());
    std::vector<int> blockSizes{0}; // the request itself moves no record bytes
    std::size_t reported = 0;
    const auto reportAcknowledged = [&] {
        const std::size_t acknowledged =
            blockSizes.size() - static_cast<std::size_t>(transfer.unacknowledged());
        for (; reported < acknowledged; ++reported) {
            if (blockSizes[reported] > 0 && progress && !progress(blockSizes[reported]))
                return false;
        }
        return true;
    };
    for (std::size_t done = 0; done < bytes.size();) {
        const std::size_t n = std::min(kBlockData, bytes.size() - done);
        CRadioMessage block;
        block.prepareRequest();
        block.setOpcodeAndLength(op::DataBlock, kBlockHeader + n);
        block[6] = static_cast<std::uint8_t>(target);
        block.put16(7, static_cast<std::uint16_t>(start + done));
        block[9] = done + n == bytes.size() ? 1 : 0;
        std::memcpy(block.payload() + kBlockHeader, bytes.data() + done, n);
        transfer.post(block);
        blockSizes.push_back(static_cast<int>(n));
        done += n;
        if (!transfer.waitAcknowledged(kQueuedAhead - 1, leftUntil(deadline, ackBound))) {
            sendAbort(transfer, target);
            return 0;
        }
        if (!reportAcknowledged()) {
            sendAbort(transfer, target);
            return 0;
        }
    }
    if (!transfer.waitAcknowledged(0, leftUntil(deadline, ackBound))) {
        sendAbort(transfer, target);
        return 0;
    }
    if (!reportAcknowledged()) {
        sendAbort(transfer, target);
        return 0;
    }
    return 1;
}

} // namespace

int readTarget(MessageEngine* engine, TransferTarget target, std::span<std::uint8_t> bytes,
               int start, const PumpCallback& pump, const ProgressCallback& progress, int patience)
{
    if (!engine || !validStart(target, start, bytes.size()) || !engine->IsPortOpen())
        return 0;
    const LinkTiming timing = engine->timing();
    auto transfer = engine->beginTransfer(pump);
    transfer->post(transferRequest(op::DatabaseRead, target, static_cast<std::size_t>(start),
                                   bytes.size(), 0));
    if (!transfer->waitAcknowledged(0, milliseconds(timing.sendBoundMs())))
        return 0;

    std::vector<std::uint8_t> received(bytes.size());
    std::size_t filled = 0;
    // The radio may take its time to start; from its first answer on, the record has a bound
    // of its own.
    milliseconds bound = patienceBound(patience);
    std::optional<Clock::time_point> deadline;
    while (filled < received.size()) {
        const auto message = transfer->next(bound);
        if (!message) {
            if (deadline)
                sendAbort(*transfer, target); // the radio may still be sending
            return 0;
        }
        if (!deadline)
            deadline = Clock::now() + transferBound(timing, bytes.size());
        bound = leftUntil(*deadline, milliseconds(timing.blockGapMs()));
        if (isResultFor(*message, op::DatabaseRead, target))
            return 0; // the radio refused (a done result before the data is a failure too)
        if (message->GetOpcode() != op::DataBlock || (*message)[6] != static_cast<int>(target))
            continue;
        const std::size_t offset = message->get16(7);
        if (filled == 0 && offset != static_cast<std::size_t>(start))
            continue; // a block of an earlier, stopped read that was still on its way
        const int length = message->GetLen() - static_cast<int>(kBlockHeader);
        const bool last = ((*message)[9] & 1) != 0;
        if (offset != static_cast<std::size_t>(start) + filled || length <= 0 ||
            filled + static_cast<std::size_t>(length) > received.size() ||
            (last && filled + static_cast<std::size_t>(length) != received.size())) {
            sendAbort(*transfer, target);
            return 0;
        }
        std::memcpy(received.data() + filled, message->payload() + kBlockHeader,
                    static_cast<std::size_t>(length));
        filled += static_cast<std::size_t>(length);
        if (progress && !progress(length)) {
            sendAbort(*transfer, target);
            return 0;
        }
    }
    convertByteOrder(target, received, static_cast<std::size_t>(start));
    std::copy(received.begin(), received.end(), bytes.begin());
    return 1;
}

int writeTarget(MessageEngine* engine, TransferTarget target, std::span<const std::uint8_t> bytes,
                int start, const PumpCallback& pump, const ProgressCallback& progress, int patience,
                std::uint8_t flags)
{
    if (!engine || !validStart(target, start, bytes.size()) || !engine->IsPortOpen())
        return 0;
    const LinkTiming timing = engine->timing();
    std::vector<std::uint8_t> radioOrder(bytes.begin(), bytes.end());
    convertByteOrder(target, radioOrder, static_cast<std::size_t>(start));

    auto transfer = engine->beginTransfer(pump);
    transfer->post(transferRequest(op::DatabaseWrite, target, static_cast<std::size_t>(start),
                                   bytes.size(), flags));
    if (!streamBlocks(*transfer, timing, target, radioOrder, static_cast<std::size_t>(start),
                      progress))
        return 0;
    const milliseconds bound = std::max(milliseconds(timing.blockGapMs()), patienceBound(patience));
    return awaitResult(*transfer, op::DatabaseWrite, target, bound);
}

int ReadRadioDataBase(MessageEngine* engine, dbase* record, int start, const PumpCallback& pump,
                      const ProgressCallback& progress, int patience)
{
    if (!record || start < 0 || static_cast<std::size_t>(start) >= record::kDbaseSize)
        return 0;
    return readTarget(engine, TransferTarget::Radio,
                      bytesOf(record, record::kDbaseSize, static_cast<std::size_t>(start)), start,
                      pump, progress, patience);
}

int ReadAleDataBase(MessageEngine* engine, ale_dbase* record, const PumpCallback& pump,
                    const ProgressCallback& progress, int patience)
{
    return record ? readTarget(engine, TransferTarget::Ale, bytesOf(record, record::kAleDbaseSize),
                               0, pump, progress, patience)
                  : 0;
}

int ReadGlobalMemberDataBase(MessageEngine* engine, ale_dbase_global_members* record,
                             const PumpCallback& pump, const ProgressCallback& progress,
                             int patience)
{
    return record ? readTarget(engine, TransferTarget::GlobalMembers,
                               bytesOf(record, record::kGlobalMembersSize), 0, pump, progress,
                               patience)
                  : 0;
}

int ReadCcirDataBase(MessageEngine* engine, ccir_dbase* record, const PumpCallback& pump,
                     const ProgressCallback& progress, int patience)
{
    return record ? readTarget(engine, TransferTarget::Ccir,
                               bytesOf(record, record::kCcirDbaseSize), 0, pump, progress, patience)
                  : 0;
}

int ReadChannelNameDataBase(MessageEngine* engine, channel_name* record, const PumpCallback& pump,
                            const ProgressCallback& progress, int patience)
{
    return record
               ? readTarget(engine, TransferTarget::ChannelName,
                            bytesOf(record, record::kChannelNameSize), 0, pump, progress, patience)
               : 0;
}

int ReadExtraOptionDataBase(MessageEngine* engine, tag_extra_options* record,
                            const PumpCallback& pump, const ProgressCallback& progress,
                            int patience)
{
    return record
               ? readTarget(engine, TransferTarget::ExtraOptions,
                            bytesOf(record, record::kExtraOptionsSize), 0, pump, progress, patience)
               : 0;
}

int WriteRadioDataBase(MessageEngine* engine, const dbase* record, int start,
                       const PumpCallback& pump, const ProgressCallback& progress, int patience)
{
    if (!record || start < 0 || static_cast<std::size_t>(start) >= record::kDbaseSize)
        return 0;
    return writeTarget(engine, TransferTarget::Radio,
                       bytesOf(record, record::kDbaseSize, static_cast<std::size_t>(start)), start,
                       pump, progress, patience, 0);
}

namespace {
std::uint8_t modeFlags(unsigned char ccirMode, unsigned char aleGlobal, unsigned char extra)
{
    return static_cast<std::uint8_t>((ccirMode ? 1 : 0) | (aleGlobal ? 2 : 0) | (extra ? 4 : 0));
}
} // namespace

int WriteAleDataBase(MessageEngine* engine, const ale_dbase* record, const PumpCallback& pump,
                     const ProgressCallback& progress, int patience, unsigned char ccirMode,
                     unsigned char aleGlobalSupported, unsigned char extraOptionsSupported)
{
    return record ? writeTarget(engine, TransferTarget::Ale, bytesOf(record, record::kAleDbaseSize),
                                0, pump, progress, patience,
                                modeFlags(ccirMode, aleGlobalSupported, extraOptionsSupported))
                  : 0;
}

int WriteCcirDataBase(MessageEngine* engine, const ccir_dbase* record, const PumpCallback& pump,
                      const ProgressCallback& progress, int patience)
{
    return record
               ? writeTarget(engine, TransferTarget::Ccir, bytesOf(record, record::kCcirDbaseSize),
                             0, pump, progress, patience, modeFlags(1, 0, 0))
               : 0;
}

int WriteChannelNameDataBase(MessageEngine* engine, const channel_name* record,
                             const PumpCallback& pump, const ProgressCallback& progress,
                             int patience, unsigned char extraOptionsSupported)
{
    return record ? writeTarget(engine, TransferTarget::ChannelName,
                                bytesOf(record, record::kChannelNameSize), 0, pump, progress,
                                patience, modeFlags(1, 0, extraOptionsSupported))
                  : 0;
}

int WriteGlobalMemberDataBase(MessageEngine* engine, const ale_dbase_global_members* record,
                              const PumpCallback& pump, const ProgressCallback& progress,
                              int patience, unsigned char extraOptionsSupported)
{
    return record ? writeTarget(engine, TransferTarget::GlobalMembers,
                                bytesOf(record, record::kGlobalMembersSize), 0, pump, progress,
                                patience, modeFlags(0, 1, extraOptionsSupported))
                  : 0;
}

int WriteExtraOptionDataBase(MessageEngine* engine, const tag_extra_options* record,
                             const PumpCallback& pump, const ProgressCallback& progress,
                             int patience)
{
    return record ? writeTarget(engine, TransferTarget::ExtraOptions,
                                bytesOf(record, record::kExtraOptionsSize), 0, pump, progress,
                                patience, modeFlags(0, 0, 1))
                  : 0;
}

namespace {
int programmingCommand(MessageEngine* engine, int opcode)
{
    if (!engine || !engine->IsPortOpen())
        return 0;
    const LinkTiming timing = engine->timing();
    auto transfer = engine->beginTransfer({});
    transfer->post(request(opcode, {}));
    if (!transfer->waitAcknowledged(0, milliseconds(timing.sendBoundMs())))
        return 0;
    while (auto message = transfer->next(milliseconds(timing.replyMs()))) {
        if (message->GetOpcode() == op::CommandResult && (*message)[6] == opcode)
            return (*message)[8] == op::status::Done ? 1 : 0;
    }
    return 0;
}
} // namespace

int StartRADIOProgramming(MessageEngine* engine)
{
    return programmingCommand(engine, op::StartProgramming);
}

int StopRADIOProgramming(MessageEngine* engine)
{
    return programmingCommand(engine, op::StopProgramming);
}

int WriteRADIOMemorySection(MessageEngine* engine, const unsigned char* data, int offset,
                            unsigned int length)
{
    if (!data)
        return 0;
    return writeTarget(engine, TransferTarget::RadioMemory, std::span(data, length), offset, {}, {},
                       10, 0);
}

} // namespace koral
