#include "koralapi/MessageEngine.h"

#include "koralapi/LinkTraceRecorder.h"
#include "koralapi/Opcodes.h"

#include <QAbstractSocket>
#include <QSerialPort>
#include <QTcpSocket>
#include <QThread>

#include <condition_variable>
#include <deque>
#include <future>
#include <map>
#include <mutex>

namespace koral {

namespace {
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kGetMessageWait{150};
constexpr milliseconds kPumpSlice{20};
constexpr milliseconds kOpenBound{5000};
constexpr int kTcpConnectMs = 3000;
constexpr std::size_t kMaxQueued = 512;

struct SendWait
{
    bool done = false;
    bool ok = false;
};

std::span<const std::uint8_t> asBytes(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
            static_cast<std::size_t>(bytes.size())};
}
} // namespace

// Lives on the I/O thread: owns the device and the link.
class IoWorker : public QObject
{
public:
    explicit IoWorker(MessageEngine::Impl* engine) : m_engine(engine) {}

    LinkLayer link{this}; // a child, so that it moves to the I/O thread with the worker
    std::unique_ptr<QIODevice> device;
    std::shared_ptr<std::promise<bool>> pendingReset;
    std::map<quint64, std::shared_ptr<SendWait>> sends;

    void setup();
    std::string open(const PortSpec& where, int baudRate);
    void close();
    void deviceLost();

private:
    MessageEngine::Impl* m_engine;
};

struct MessageEngine::Impl
{
    std::mutex mutex;
    std::condition_variable changed;
    bool portOpen = false;
    std::string lastError;
    LinkTiming timing;
    std::deque<CRadioMessage> unsolicited;
    std::deque<CRadioMessage> replies;
    std::deque<CRadioMessage> transferQueue;
    bool locked = false;
    Clock::time_point lockDeadline;
    bool transferActive = false;
    std::shared_ptr<LinkTraceRecorder> trace;

    QThread thread;
    IoWorker* worker = nullptr;

    Impl()
    {
        thread.setObjectName(QStringLiteral("koralapi-io"));
        worker = new IoWorker(this);
        worker->moveToThread(&thread);
        QObject::connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
        thread.start();
        QMetaObject::invokeMethod(
            worker, [w = worker] { w->setup(); }, Qt::QueuedConnection);
    }

    ~Impl()
    {
        thread.quit();
        thread.wait();
    }

    // Runs `f` on the I/O thread and waits for its result at most `bound`.
    template <class F>
    auto onIo(F f, milliseconds bound) -> std::optional<decltype(f())>
    {
        using R = decltype(f());
        auto promise = std::make_shared<std::promise<R>>();
        auto future = promise->get_future();
        QMetaObject::invokeMethod(
            worker, [promise, f = std::move(f)]() mutable { promise->set_value(f()); },
            Qt::QueuedConnection);
        if (future.wait_for(bound) != std::future_status::ready)
            return std::nullopt;
        return future.get();
    }

    // Under the mutex: an answer that did not come within its bound.
    void traceMissingAnswer(int opcode, milliseconds bound)
    {
        if (!trace || !portOpen)
            return;
        LinkEvent event;
        event.kind = LinkEvent::Kind::ReplyTimeout;
        event.opcode = opcode;
        event.boundMs = static_cast<int>(bound.count());
        trace->record(std::move(event));
    }

    // Both under the mutex.
    void flushReplies()
    {
        for (CRadioMessage& message : replies)
            pushUnsolicited(message);
        replies.clear();
        locked = false;
    }
    void expireLock()
    {
        if (locked && Clock::now() >= lockDeadline)
            flushReplies();
    }
    void pushUnsolicited(const CRadioMessage& message)
    {
        if (unsolicited.size() >= kMaxQueued)
            unsolicited.pop_front();
        unsolicited.push_back(message);
    }

    void route(const QByteArray& bytes)
    {
        CRadioMessage message;
        if (!message.assign(asBytes(bytes)))
            return;
        std::lock_guard lock(mutex);
        expireLock();
        const int opcode = message.GetOpcode();
        if (opcode == op::DataBlock || opcode == op::CommandResult) {
            if (transferActive && transferQueue.size() < kMaxQueued)
                transferQueue.push_back(message);
        } else if (locked) {
            replies.push_back(message);
        } else {
            pushUnsolicited(message);
        }
        changed.notify_all();
    }

    void setPortState(bool open, std::string error = {})
    {
        std::lock_guard lock(mutex);
        portOpen = open;
        if (!error.empty())
            lastError = std::move(error);
        if (!open) {
            unsolicited.clear();
            replies.clear();
            transferQueue.clear();
            locked = false;
        }
        changed.notify_all();
    }

    std::shared_ptr<SendWait> post(const CRadioMessage& message)
    {
        auto wait = std::make_shared<SendWait>();
        const QByteArray bytes(reinterpret_cast<const char*>(message.wireBytes().data()),
                               static_cast<qsizetype>(message.wireBytes().size()));
        QMetaObject::invokeMethod(
            worker, [w = worker, bytes, wait] { w->sends[w->link.send(asBytes(bytes))] = wait; },
            Qt::QueuedConnection);
        return wait;
    }

    // Waits on the condition until `done` holds or `deadline` passes, calling `pump` between
    // short slices (outside the lock).
    template <class Pred>
    bool waitPumping(std::unique_lock<std::mutex>& lock, Clock::time_point deadline,
                     const PumpCallback& pump, Pred done)
    {
        while (!done()) {
            const auto now = Clock::now();
            if (now >= deadline)
                return false;
            const auto until = pump ? std::min(deadline, now + kPumpSlice) : deadline;
            changed.wait_until(lock, until, done);
            if (pump && !done()) {
                lock.unlock();
                pump(0);
                lock.lock();
            }
        }
        return true;
    }
};

void IoWorker::setup()
{
    connect(&link, &LinkLayer::messageReceived, this,
            [this](const QByteArray& bytes) { m_engine->route(bytes); });
    connect(&link, &LinkLayer::sendFinished, this, [this](quint64 ticket, bool ok) {
        const auto it = sends.find(ticket);
        if (it == sends.end())
            return;
        {
            std::lock_guard lock(m_engine->mutex);
            it->second->done = true;
            it->second->ok = ok;
            m_engine->changed.notify_all();
        }
        sends.erase(it);
    });
    connect(&link, &LinkLayer::resetFinished, this, [this](bool answered) {
        if (pendingReset)
            pendingReset->set_value(answered);
        pendingReset.reset();
    });
}

std::string IoWorker::open(const PortSpec& where, int baudRate)
{
    close();
    switch (where.kind) {
    case PortSpec::Kind::Virtual:
        device = createVirtualRadio(baudRate);
        if (!device)
            return "no built-in virtual radio is installed";
        break;
    case PortSpec::Kind::Serial: {
        auto serial = std::make_unique<QSerialPort>(QString::fromStdString(where.device));
        serial->setBaudRate(baudRate);
        serial->setDataBits(QSerialPort::Data8);
        serial->setParity(QSerialPort::NoParity);
        serial->setStopBits(QSerialPort::OneStop);
        serial->setFlowControl(QSerialPort::NoFlowControl);
        if (!serial->open(QIODevice::ReadWrite))
            return where.device + ": " + serial->errorString().toStdString();
        connect(serial.get(), &QSerialPort::errorOccurred, this,
                [this](QSerialPort::SerialPortError error) {
                    if (error == QSerialPort::ResourceError)
                        deviceLost();
                });
        device = std::move(serial);
        break;
    }
    case PortSpec::Kind::Tcp: {
        auto socket = std::make_unique<QTcpSocket>();
        socket->connectToHost(QString::fromStdString(where.host), where.tcpPort);
        if (!socket->waitForConnected(kTcpConnectMs))
            return "tcp:" + where.host + ":" + std::to_string(where.tcpPort) + ": " +
                   socket->errorString().toStdString();
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        connect(socket.get(), &QTcpSocket::disconnected, this, [this] { deviceLost(); });
        device = std::move(socket);
        break;
    }
    }
    if (!device->isOpen())
        device->open(QIODevice::ReadWrite);
    link.setBaudRate(baudRate);
    link.attach(device.get());
    return {};
}

void IoWorker::close()
{
    link.detach();
    if (device) {
        disconnect(device.get(), nullptr, this, nullptr);
        device->close();
        device.reset();
    }
}

void IoWorker::deviceLost()
{
    link.detach();
    if (device) {
        disconnect(device.get(), nullptr, this, nullptr);
        device.release()->deleteLater(); // we are inside one of its signals
    }
    m_engine->setPortState(false, "the connection to the radio was lost");
}

MessageEngine::MessageEngine() : d(std::make_shared<Impl>()) {}

MessageEngine::~MessageEngine()
{
    CloseComPort();
}

int MessageEngine::OpenComPort(int port, int baudRate)
{
    const auto where = portByNumber(port);
    if (!where) {
        d->setPortState(false, "there is no port " + std::to_string(port));
        return 0;
    }
    return OpenPortByName(where->kind == PortSpec::Kind::Virtual ? std::string(kVirtualPortName)
                                                                 : where->device,
                          baudRate);
}

int MessageEngine::OpenPortByName(std::string_view name, int baudRate)
{
    const auto where = parsePort(name);
    if (!where) {
        d->setPortState(false, "not a port: " + std::string(name));
        return 0;
    }
    if (baudRate <= 0) {
        d->setPortState(false, "baud rate " + std::to_string(baudRate) + " is not usable");
        return 0;
    }
    {
        std::lock_guard lock(d->mutex);
        d->timing.baudRate = baudRate;
    }
    const auto error =
        d->onIo([w = d->worker, s = *where, baudRate] { return w->open(s, baudRate); }, kOpenBound);
    if (!error || !error->empty()) {
        d->setPortState(false, error ? *error : "opening the port took too long");
        return 0;
    }
    d->setPortState(true);
    return 1;
}

int MessageEngine::ConnectSocket(int baudRate, unsigned char announce)
{
    if (!IsPortOpen())
        return 0;
    if (baudRate > 0) {
        {
            std::lock_guard lock(d->mutex);
            d->timing.baudRate = baudRate;
        }
        d->onIo(
            [w = d->worker, baudRate] {
                w->link.setBaudRate(baudRate);
                if (auto* serial = qobject_cast<QSerialPort*>(w->device.get()))
                    serial->setBaudRate(baudRate);
                return true;
            },
            kOpenBound);
    }
    if (!announce)
        return 1;
    auto answered = d->onIo(
        [w = d->worker] {
            auto promise = std::make_shared<std::promise<bool>>();
            auto future = promise->get_future().share();
            if (w->pendingReset)
                w->pendingReset->set_value(false);
            w->pendingReset = promise;
            w->link.sendReset();
            return future;
        },
        kOpenBound);
    if (!answered)
        return 0;
    const milliseconds bound{2 * timing().sendBoundMs()};
    return answered->wait_for(bound) == std::future_status::ready && answered->get() ? 1 : 0;
}

int MessageEngine::DisconnectSocket(unsigned char announce)
{
    d->onIo(
        [w = d->worker, announce] {
            if (announce)
                w->link.sendClose();
            w->link.cancelAll();
            return true;
        },
        kOpenBound);
    std::lock_guard lock(d->mutex);
    d->unsolicited.clear();
    d->replies.clear();
    d->locked = false;
    return 1;
}

int MessageEngine::CloseComPort()
{
    d->onIo(
        [w = d->worker] {
            w->close();
            return true;
        },
        kOpenBound);
    d->setPortState(false);
    return 1;
}

int MessageEngine::IsPortOpen()
{
    std::lock_guard lock(d->mutex);
    return d->portOpen ? 1 : 0;
}

std::string MessageEngine::lastError() const
{
    std::lock_guard lock(d->mutex);
    return d->lastError;
}

void MessageEngine::setLinkTrace(std::shared_ptr<LinkTraceRecorder> trace)
{
    {
        std::lock_guard lock(d->mutex);
        d->trace = trace;
    }
    d->onIo(
        [w = d->worker, trace] {
            w->link.setTrace(trace);
            return true;
        },
        kOpenBound);
}

LinkTiming MessageEngine::timing() const
{
    std::lock_guard lock(d->mutex);
    return d->timing;
}

int MessageEngine::send(const CRadioMessage& message, const PumpCallback& pump)
{
    if (!IsPortOpen())
        return 0;
    auto wait = d->post(message);
    std::unique_lock lock(d->mutex);
    const auto deadline = Clock::now() + milliseconds(2 * d->timing.sendBoundMs());
    d->waitPumping(lock, deadline, pump, [&] { return wait->done || !d->portOpen; });
    return wait->done && wait->ok ? 1 : 0;
}

int MessageEngine::SendRadioMessage(const CRadioMessage* message)
{
    return message ? send(*message, {}) : 0;
}

int MessageEngine::GetMessage(CRadioMessage* message, unsigned char wait)
{
    if (!message)
        return -1;
    std::unique_lock lock(d->mutex);
    d->expireLock();
    if (wait && d->unsolicited.empty()) {
        const auto deadline = Clock::now() + kGetMessageWait;
        d->changed.wait_until(lock, deadline, [&] {
            d->expireLock();
            return !d->unsolicited.empty();
        });
    }
    if (!d->unsolicited.empty()) {
        *message = d->unsolicited.front();
        d->unsolicited.pop_front();
        return 1;
    }
    return d->portOpen ? 0 : -1;
}

int MessageEngine::LockGetMessage()
{
    std::lock_guard lock(d->mutex);
    d->expireLock();
    d->locked = true;
    d->lockDeadline = Clock::now() + milliseconds(d->timing.replyMs());
    return 1;
}

int MessageEngine::GetMessageWithOpcode(CRadioMessage* message, int opcode)
{
    std::unique_lock lock(d->mutex);
    const milliseconds bound{d->timing.replyMs()};
    const auto deadline = Clock::now() + bound;
    if (!d->locked) {
        d->locked = true;
        d->lockDeadline = deadline;
    }
    d->lockDeadline = std::max(d->lockDeadline, deadline);
    auto found = d->replies.end();
    d->changed.wait_until(lock, deadline, [&] {
        found = std::find_if(d->replies.begin(), d->replies.end(),
                             [opcode](const CRadioMessage& m) { return m.GetOpcode() == opcode; });
        return found != d->replies.end() || !d->portOpen;
    });
    int result = 0;
    if (found != d->replies.end()) {
        if (message)
            *message = *found;
        d->replies.erase(found);
        result = 1;
    } else {
        d->traceMissingAnswer(opcode, bound);
    }
    d->flushReplies();
    return result;
}

int MessageEngine::request(const CRadioMessage& message, int replyOpcode, CRadioMessage* reply)
{
    LockGetMessage();
    if (!send(message, {})) {
        std::lock_guard lock(d->mutex);
        d->flushReplies();
        return 0;
    }
    return GetMessageWithOpcode(reply, replyOpcode);
}

// --- Transfer ---

struct MessageEngine::Transfer::State
{
    std::deque<std::shared_ptr<SendWait>> posted;
};

std::unique_ptr<MessageEngine::Transfer> MessageEngine::beginTransfer(const PumpCallback& pump)
{
    {
        std::lock_guard lock(d->mutex);
        d->transferActive = true;
        d->transferQueue.clear();
    }
    return std::unique_ptr<Transfer>(new Transfer(d, pump));
}

MessageEngine::Transfer::Transfer(std::shared_ptr<MessageEngine::Impl> engine, PumpCallback pump)
    : m_engine(std::move(engine)), m_pump(std::move(pump)), m_state(std::make_shared<State>())
{}

MessageEngine::Transfer::~Transfer()
{
    std::lock_guard lock(m_engine->mutex);
    m_engine->transferActive = false;
    m_engine->transferQueue.clear();
}

void MessageEngine::Transfer::post(const CRadioMessage& message)
{
    auto wait = m_engine->post(message);
    std::lock_guard lock(m_engine->mutex);
    m_state->posted.push_back(std::move(wait));
}

int MessageEngine::Transfer::unacknowledged() const
{
    std::lock_guard lock(m_engine->mutex);
    return static_cast<int>(std::count_if(m_state->posted.begin(), m_state->posted.end(),
                                          [](const auto& wait) { return !wait->done; }));
}

int MessageEngine::Transfer::waitAcknowledged(int remaining, milliseconds bound)
{
    std::unique_lock lock(m_engine->mutex);
    bool failed = false;
    const auto settled = [&] {
        int open = 0;
        for (const auto& wait : m_state->posted) {
            failed = failed || (wait->done && !wait->ok);
            open += wait->done ? 0 : 1;
        }
        return failed || open <= remaining || !m_engine->portOpen;
    };
    const bool ok = m_engine->waitPumping(lock, Clock::now() + bound, m_pump, settled);
    if (!ok || failed || !m_engine->portOpen)
        return 0;
    std::erase_if(m_state->posted, [](const auto& wait) { return wait->done; });
    return 1;
}

std::optional<CRadioMessage> MessageEngine::Transfer::next(milliseconds bound)
{
    std::unique_lock lock(m_engine->mutex);
    const bool ok = m_engine->waitPumping(lock, Clock::now() + bound, m_pump, [&] {
        return !m_engine->transferQueue.empty() || !m_engine->portOpen;
    });
    if (!ok || m_engine->transferQueue.empty()) {
        m_engine->traceMissingAnswer(-1, bound); // neither a block nor a result
        return std::nullopt;
    }
    CRadioMessage message = m_engine->transferQueue.front();
    m_engine->transferQueue.pop_front();
    return message;
}

void MessageEngine::Transfer::cancel()
{
    m_engine->onIo(
        [w = m_engine->worker] {
            w->link.cancelAll();
            return true;
        },
        kOpenBound);
    std::lock_guard lock(m_engine->mutex);
    m_state->posted.clear();
}

} // namespace koral
