#include "session/IncomingWorker.h"

#include "koralapi/MessageEngine.h"
#include "koralapi/Opcodes.h"
#include "session/SessionState.h"
#include "session/TraceWriter.h"

#include <chrono>

namespace koral {

void LatestMessage::store(const CRadioMessage& message)
{
    const std::lock_guard lock(m_mutex);
    m_message = message;
}

CRadioMessage LatestMessage::take() const
{
    const std::lock_guard lock(m_mutex);
    return m_message;
}

bool IncomingWorker::isForwarded(int opcode)
{
    switch (opcode) {
    case 27:
    case 28:
    case 45:
    case 46:
    case 48:
    case 60:
    case 65:
    case 67:
    case 69:
    case 70:
    case 71:
    case 78:
    case 79:
    case 80:
    case 81:
    case 82:
    case 83:
    case 84:
    case 85:
    case 89:
    case 90:
        return true;
    default:
        return false;
    }
}

IncomingWorker::IncomingWorker(Context context, std::shared_ptr<StopEvent> stop)
    : m_context(std::move(context)), m_stop(std::move(stop)), m_thread([this] { run(); })
{}

IncomingWorker::~IncomingWorker()
{
    join();
}

void IncomingWorker::join()
{
    if (m_thread.joinable())
        m_thread.join();
}

namespace {

void reportAleState(const IncomingWorker::Context& context, const StopEvent* stop)
{
    if (context.aleStateReported && stop && !stop->isSet())
        context.aleStateReported();
}

} // namespace

void IncomingWorker::handle(const CRadioMessage& message, const Context& context,
                            const StopEvent* stop)
{
    CapabilityFlags& flags = *context.flags;
    const int opcode = message.GetOpcode();
    if (isForwarded(opcode)) {
        // Tested again right before the hand-over: a close that is waiting for this thread
        // must not find it still delivering.
        if (stop && !stop->isSet()) {
            context.latest->store(message);
            if (context.notify)
                context.notify();
        }
        return;
    }
    switch (opcode) {
    case op::AleOnOff:
        flags.aleState = message[6];
        flags.aleOff = message[6] != 1;
        reportAleState(context, stop);
        break;
    case op::CcirMode:
        if (message[6] == 1) {
            flags.ccirMode = true;
        } else {
            flags.ccirMode = false;
            flags.ccirFileLoaded = false;
        }
        flags.aleState = message[7];
        flags.aleOff = message[7] != 1;
        ++flags.ccirAnswers;
        reportAleState(context, stop);
        break;
    case op::SupportMode:
        // Only an answer to our own query counts; a set bit turns both on, a clear bit
        // leaves them as they are.
        if (flags.supportModeAnswered && (message[6] & 1)) {
            flags.aleGlobalSupported = true;
            flags.extraOptionsSupported = true;
        }
        ++flags.supportAnswers;
        break;
    default:
        break;
    }
}

void IncomingWorker::run()
{
    CRadioMessage buffer;
    buffer.prepareRequest();
    TraceWriter* trace = m_context.trace;
    if (trace)
        trace->traceLine("\nSTART OF INCOMING THREAD\n");
    const StopEvent* stop = m_stop.get();
    while (stop && !stop->isSet()) {
        const int got = m_context.engine->GetMessage(&buffer, 1);
        if (got == -1) {
            // A port that went away answers at once; don't spin on it until the close comes.
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            continue;
        }
        if (got != 0) {
            if (trace)
                trace->traceLine("BEFORE switch(opcode)");
            handle(buffer, m_context, stop);
            if (trace)
                trace->traceLine("AFTER switch(opcode)");
        }
    }
    if (trace)
        trace->traceLine("\nEND OF INCOMING THREAD\n");
}

} // namespace koral
