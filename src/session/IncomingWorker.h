#pragma once

#include "koralapi/CRadioMessage.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace koral {

class MessageEngine;
class TraceWriter;
struct CapabilityFlags;

// The stop signal of one incoming worker: set once, never reset, tested without waiting.
class StopEvent
{
public:
    void set() { m_set.store(true); }
    bool isSet() const { return m_set.load(); }

private:
    std::atomic<bool> m_set{false};
};

// The latest message the worker handed over. The worker stores into it (a short copy under a
// lock, never a wait for the user-interface thread, so closing the link cannot deadlock on
// it) and then posts a notice; the view's dispatch takes whatever is latest when it runs, so
// two messages that arrive before one dispatch are both acted on as the second.
class LatestMessage
{
public:
    void store(const CRadioMessage& message);
    CRadioMessage take() const;

private:
    mutable std::mutex m_mutex;
    CRadioMessage m_message;
};

// The incoming-message worker of one open link. It takes unsolicited messages from the
// engine, settles the capability reports (88, 96, 98) itself, and hands every message the
// view acts on to `latest` followed by a call of `notify`. It ends within one GetMessage wait
// after its stop event is set; a message taken after that is dropped.
class IncomingWorker
{
public:
    // Opcodes the worker hands over; every other opcode but 88, 96 and 98 is dropped.
    static bool isForwarded(int opcode);

    struct Context
    {
        MessageEngine* engine = nullptr;
        CapabilityFlags* flags = nullptr;
        TraceWriter* trace = nullptr;
        LatestMessage* latest = nullptr;
        std::function<void()> notify;
        // Called after the radio reported its ALE state (88, 96) and the flags hold it: the
        // operator may have switched ALE on or off at the radio itself.
        std::function<void()> aleStateReported;
    };

    // Starts the worker thread. A null stop event makes it end at once, as a link whose stop
    // event could not be made must not run a worker that can never be stopped.
    IncomingWorker(Context context, std::shared_ptr<StopEvent> stop);
    // Joins the thread; the owner sets the stop event first.
    ~IncomingWorker();
    IncomingWorker(const IncomingWorker&) = delete;
    IncomingWorker& operator=(const IncomingWorker&) = delete;

    void join();

    // What the worker does with one message it took (public so that the capability rules can
    // be checked message by message).
    static void handle(const CRadioMessage& message, const Context& context, const StopEvent* stop);

private:
    void run();

    Context m_context;
    std::shared_ptr<StopEvent> m_stop;
    std::thread m_thread;
};

} // namespace koral
