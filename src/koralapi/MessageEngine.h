#pragma once

#include "koralapi/CRadioMessage.h"
#include "koralapi/LinkLayer.h"
#include "koralapi/Ports.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace koral {

class IoWorker;
class LinkTraceRecorder;

// Called regularly (at least every 50 ms) while a library call waits on the caller's thread,
// so that a window keeps painting; the argument is 0 and the result is ignored.
using PumpCallback = std::function<int(int)>;
// Called with the number of record bytes moved since the previous call; returning 0 stops
// the transfer, which then fails.
using ProgressCallback = std::function<int(int)>;

// The one link to the radio. Every call blocks for a bounded time and may be made from any
// thread (the user-interface thread and the incoming-message worker use it at once); the
// engine does its I/O on a thread of its own, so callers need no event loop.
//
// Incoming messages are sorted by one reader: after LockGetMessage every message goes aside
// for the next GetMessageWithOpcode, which takes the one it waits for and hands the others,
// in their order, to GetMessage; without a lock, messages go to GetMessage. Database blocks
// and command results go only to the library's own calls.
class MessageEngine
{
public:
    MessageEngine();
    ~MessageEngine();
    MessageEngine(const MessageEngine&) = delete;
    MessageEngine& operator=(const MessageEngine&) = delete;

    // Opens port `port` (1 = the built-in virtual radio, 2.. the system's serial ports, see
    // portList) at `baudRate`. Non-zero on success, 0 on failure (lastError says why).
    int OpenComPort(int port, int baudRate);
    // Opens a port by name: a device path, "tcp:HOST:PORT", "virtual" or a port number.
    int OpenPortByName(std::string_view name, int baudRate);
    // Starts the link with the radio: restarts the frame numbering and waits for the radio to
    // answer. `baudRate` sets the time bounds (and the serial port's rate when it differs);
    // with `announce` 0 nothing is sent. Non-zero when the radio answered.
    int ConnectSocket(int baudRate, unsigned char announce);
    // Tells the radio the program is going (announce 1) and drops what was not taken yet.
    // Harmless when nothing is connected.
    int DisconnectSocket(unsigned char announce);
    // Closes the port; harmless when it is closed.
    int CloseComPort();
    int IsPortOpen();

    // Sends one request; non-zero when the radio acknowledged it, 0 otherwise.
    int SendRadioMessage(const CRadioMessage* message);
    // Takes the next unsolicited message. With `wait` non-zero waits up to 150 ms. Returns 1
    // with the message, 0 when none came, -1 when the port is closed or the buffer is null.
    int GetMessage(CRadioMessage* message, unsigned char wait);
    // Waits (up to the reply bound) for a message of that opcode that arrived since the last
    // LockGetMessage. Non-zero with the message, 0 on time-out or failure.
    int GetMessageWithOpcode(CRadioMessage* message, int opcode);
    // Keeps the messages that arrive from now on for the next GetMessageWithOpcode. The lock
    // ends with that call, or by itself after the reply bound.
    int LockGetMessage();

    // Records every frame, retry, time-out and damaged frame of the link from now on (null:
    // none); the recorder is shared with whoever shows or saves the trace.
    void setLinkTrace(std::shared_ptr<LinkTraceRecorder> trace);

    static std::vector<PortInfo> portList() { return availablePorts(); }
    std::string lastError() const;
    LinkTiming timing() const;

    // --- for the library's own calls (program word, versions, transfers, programming) ---

    // Sends, calling `pump` while waiting; 1 when acknowledged.
    int send(const CRadioMessage& message, const PumpCallback& pump);
    // LockGetMessage, send, wait for `replyOpcode`; 1 with the reply.
    int request(const CRadioMessage& message, int replyOpcode, CRadioMessage* reply);

    class Transfer;
    // Starts a block transfer: from now on data blocks and command results are kept for it.
    std::unique_ptr<Transfer> beginTransfer(const PumpCallback& pump);

private:
    friend class IoWorker;
    struct Impl;
    std::shared_ptr<Impl> d;
};

// One exchange of data blocks or command results, owned by the calling thread.
class MessageEngine::Transfer
{
public:
    ~Transfer();
    // Queues a message without waiting; its acknowledgement is followed by waitAcknowledged.
    void post(const CRadioMessage& message);
    // Messages posted and not acknowledged yet.
    int unacknowledged() const;
    // Waits until at most `remaining` posted messages are unacknowledged. 0 when one failed or
    // the bound passed; 1 otherwise.
    int waitAcknowledged(int remaining, std::chrono::milliseconds bound);
    // The next block or command result, waiting up to `bound`.
    std::optional<CRadioMessage> next(std::chrono::milliseconds bound);
    // Drops every message not yet sent or acknowledged.
    void cancel();

private:
    friend class MessageEngine;
    struct State;
    Transfer(std::shared_ptr<MessageEngine::Impl> engine, PumpCallback pump);
    std::shared_ptr<MessageEngine::Impl> m_engine;
    PumpCallback m_pump;
    std::shared_ptr<State> m_state;
};

} // namespace koral
