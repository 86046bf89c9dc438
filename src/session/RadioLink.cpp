#include "session/RadioLink.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/LinkTraceRecorder.h"
#include "koralapi/MessageEngine.h"
#include "koralapi/Opcodes.h"
#include "koralapi/RadioCalls.h"
#include "session/CommPortFile.h"
#include "session/TraceWriter.h"

#include <QCoreApplication>
#include <QThread>

namespace koral {

RadioLink::RadioLink(Notifier& notifier, CapabilityFlags& flags, TraceWriter& trace,
                     QObject* parent)
    : QObject(parent), m_notifier(notifier), m_flags(flags), m_trace(trace),
      m_linkTrace(std::make_shared<LinkTraceRecorder>())
{}

void RadioLink::createEngine()
{
    m_engine = std::make_unique<MessageEngine>();
    m_engine->setLinkTrace(m_linkTrace);
}

RadioLink::~RadioLink()
{
    closeRadioLink();
    m_engine.reset();
    if (!m_settings.workDirectory.empty())
        saveCommPortFile();
}

int RadioLink::initSession(const std::filesystem::path& startDirectory)
{
    loadCommPortFile(startDirectory);
    m_stopEvent.reset();
    m_worker.reset();
    createEngine();
    return 1;
}

int RadioLink::loadCommPortFile(const std::filesystem::path& directory)
{
    koral::loadCommPortFile(directory, m_settings);
    return 1;
}

void RadioLink::usePortName(std::string name, int baudRate)
{
    m_portName = std::move(name);
    m_settings.baudRate = baudRate;
}

int RadioLink::saveCommPortFile()
{
    koral::saveCommPortFile(m_remembered.value_or(m_settings));
    return 1;
}

int RadioLink::openRadioLink()
{
    if (!m_engine)
        createEngine();
    const int opened = m_portName.empty()
                           ? m_engine->OpenComPort(m_settings.commPort, m_settings.baudRate)
                           : m_engine->OpenPortByName(m_portName, m_settings.baudRate);
    if (!opened) {
        m_notifier.show(text::byId(text::id::CannotOpenPort));
        return 0;
    }
    if (!m_engine->ConnectSocket(m_settings.baudRate, 1))
        return 0;
    setWaitCursor(true);
    m_stopEvent = m_hooks.failStopEvent ? nullptr : std::make_shared<StopEvent>();
    if (!m_stopEvent)
        closeRadioLink(); // the worker below then ends at once, and the open still succeeds
    if (m_hooks.failThread) {
        closeRadioLink();
        return 0; // the wait cursor stays up, as it always has after this failure
    }
    const auto notify = [this] { handOver(); };
    const auto aleReported = [this] {
        QMetaObject::invokeMethod(
            this, [this] { emit aleStateReported(); }, Qt::QueuedConnection);
    };
    IncomingWorker::Context context{m_engine.get(), &m_flags, &m_trace,
                                    &m_latest,      notify,   aleReported};
    m_worker = std::make_unique<IncomingWorker>(std::move(context), m_stopEvent);
    if (m_stopEvent)
        m_state = LinkState::Open;
    setWaitCursor(false);
    return 1;
}

void RadioLink::handOver()
{
    // The view acts on the latest message only, but the radio sends its display's lines back
    // to back: each line also travels with its own copy, or the display would lose all but the
    // last. The worker stores a message and then calls here, so the latest is the one just
    // stored.
    const CRadioMessage message = m_latest.take();
    if (message.GetOpcode() == op::DisplayReport && message[6] <= op::display::LastTextLine)
        QMetaObject::invokeMethod(
            this, [this, message] { emit displayLine(message); }, Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        this, [this] { emit incomingMessage(); }, Qt::QueuedConnection);
}

int RadioLink::closeRadioLink()
{
    if (m_stopEvent) {
        m_state = LinkState::Closing;
        if (m_hooks.failStopSignal)
            m_notifier.show(text::kStopEventNotSignaled);
        // A stop signal that failed still has to end the worker, or the close below would
        // wait for ever; the message above is all the operator needs to know.
        m_stopEvent->set();
    }
    if (m_worker) {
        m_worker->join();
        m_worker.reset();
    }
    m_stopEvent.reset();
    m_state = LinkState::Closed;
    if (m_engine) {
        m_engine->DisconnectSocket(1);
        m_engine->CloseComPort();
    }
    emit linkClosed();
    return 1;
}

int RadioLink::changeRadioLink(int port, int baudRate)
{
    if (port == m_settings.commPort && baudRate == m_settings.baudRate)
        return 1;
    closeRadioLink();
    m_settings.commPort = port;
    m_settings.baudRate = baudRate;
    return openRadioLink();
}

int RadioLink::reportFailure()
{
    if (m_reportNoResponse)
        m_notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
    return 0;
}

int RadioLink::sendToRadio(const CRadioMessage& message)
{
    return m_engine && m_engine->SendRadioMessage(&message) ? 1 : reportFailure();
}

int RadioLink::waitForRadioReply(CRadioMessage& message, int opcode)
{
    return m_engine && m_engine->GetMessageWithOpcode(&message, opcode) ? 1 : reportFailure();
}

void RadioLink::lockGetMessage()
{
    if (m_engine)
        m_engine->LockGetMessage();
}

CRadioMessage RadioLink::newRequest()
{
    CRadioMessage message;
    message.prepareRequest();
    return message;
}

int RadioLink::sendRequest(int (*build)(CRadioMessage*))
{
    CRadioMessage message = newRequest();
    build(&message);
    return sendToRadio(message);
}

int RadioLink::query(int (*build)(CRadioMessage*), int replyOpcode, CRadioMessage& reply)
{
    lockGetMessage();
    if (!sendRequest(build))
        return 0;
    reply = newRequest();
    return waitForRadioReply(reply, replyOpcode);
}

int RadioLink::testCommunication()
{
    if (!isPortOpen())
        return 0;
    unsigned char word = 0;
    return ReadProgramWord(m_engine.get(), &word) ? 1 : 0;
}

void RadioLink::waitPumping(int rounds)
{
    for (int i = 0; i < rounds; ++i) {
        QThread::msleep(static_cast<unsigned long>(m_pumpRoundMs));
        pump();
    }
}

void RadioLink::pump() const
{
    if (m_pump)
        m_pump();
    else
        QCoreApplication::processEvents();
}

bool RadioLink::isPortOpen() const
{
    return m_engine && m_engine->IsPortOpen();
}

void RadioLink::setWaitCursor(bool on)
{
    if (m_waitCursor == on)
        return;
    m_waitCursor = on;
    emit waitCursorChanged(on);
}

} // namespace koral
