#include "koralapi/LinkLayer.h"

#include "koralapi/CRadioMessage.h"
#include "koralapi/LinkTraceRecorder.h"

#include <QIODevice>

#include <algorithm>
#include <cmath>

namespace koral {

int LinkTiming::wireMs(std::size_t bytes) const
{
    return static_cast<int>(std::ceil(static_cast<double>(bytes) * byteMs()));
}

int LinkTiming::interByteMs() const
{
    return std::max(200, wireMs(40));
}

int LinkTiming::ackMs(std::size_t bytesInFlight) const
{
    return 300 + wireMs(bytesInFlight) + wireMs(frame::kMaxFrame) + wireMs(frame::kOverhead);
}

int LinkTiming::replyMs() const
{
    // The answer may queue behind a window of frames the radio had already started (the tail of
    // an aborted transfer), then cross the wire itself.
    return 1500 + wireMs((LinkLayer::kWindow + 2) * frame::kMaxFrame);
}

int LinkTiming::blockGapMs() const
{
    return 2000 + wireMs(4 * frame::kMaxFrame);
}

int LinkTiming::sendBoundMs() const
{
    return LinkLayer::kMaxTransmissions *
               ackMs(static_cast<std::size_t>(LinkLayer::kWindow) * frame::kMaxFrame) +
           500;
}

LinkLayer::LinkLayer(QObject* parent) : QObject(parent)
{
    m_clock.start();
    for (QTimer* timer : {&m_ackTimer, &m_byteTimer, &m_paceTimer}) {
        timer->setParent(this); // so that they follow the link into its thread
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
    }
    connect(&m_ackTimer, &QTimer::timeout, this, &LinkLayer::onAckTimeout);
    connect(&m_paceTimer, &QTimer::timeout, this, &LinkLayer::pump);
    connect(&m_byteTimer, &QTimer::timeout, this, [this] {
        m_decoder.discardPartial();
        onReadyRead();
    });
}

LinkLayer::~LinkLayer()
{
    detach();
}

void LinkLayer::attach(QIODevice* device)
{
    detach();
    m_device = device;
    m_decoder = FrameDecoder{};
    m_decoder.setKeepRejections(m_trace != nullptr);
    m_synced = false;
    m_backlogBytes = 0;
    connect(device, &QIODevice::readyRead, this, &LinkLayer::onReadyRead);
    if (device->bytesAvailable() > 0)
        QMetaObject::invokeMethod(this, &LinkLayer::onReadyRead, Qt::QueuedConnection);
}

void LinkLayer::detach()
{
    if (m_device)
        disconnect(m_device, nullptr, this, nullptr);
    m_device = nullptr;
    const bool resetWasWaiting = m_resetWaiting;
    m_resetWaiting = false;
    m_byteTimer.stop();
    m_paceTimer.stop();
    cancelAll();
    if (resetWasWaiting)
        emit resetFinished(false);
}

void LinkLayer::setTrace(std::shared_ptr<LinkTraceRecorder> trace)
{
    m_trace = std::move(trace);
    m_decoder.setKeepRejections(m_trace != nullptr);
}

void LinkLayer::trace(LinkEvent event)
{
    if (m_trace)
        m_trace->record(std::move(event));
}

void LinkLayer::traceRejections()
{
    for (RejectedFrame& rejected : m_decoder.takeRejections()) {
        LinkEvent event;
        event.kind = rejected.fault == FrameFault::Checksum ? LinkEvent::Kind::ChecksumError
                     : rejected.fault == FrameFault::Header ? LinkEvent::Kind::BadHeader
                                                            : LinkEvent::Kind::Truncated;
        event.bytes = std::move(rejected.bytes);
        trace(std::move(event));
    }
}

void LinkLayer::setBaudRate(int baudRate)
{
    m_timing.baudRate = baudRate > 0 ? baudRate : 9600;
}

quint64 LinkLayer::send(std::span<const std::uint8_t> message)
{
    Outgoing out;
    out.ticket = m_nextTicket++;
    out.frame.assign(message.begin(), message.end()); // the body until it gets its number
    m_pending.push_back(std::move(out));
    const quint64 ticket = m_pending.back().ticket;
    if (!m_device) {
        // Reported later, never from inside send(), so a caller can file the ticket first.
        QMetaObject::invokeMethod(this, &LinkLayer::cancelAll, Qt::QueuedConnection);
        return ticket;
    }
    pump();
    return ticket;
}

void LinkLayer::cancelAll()
{
    std::vector<quint64> failed;
    for (const Outgoing& out : m_inFlight)
        failed.push_back(out.ticket);
    for (const Outgoing& out : m_pending)
        failed.push_back(out.ticket);
    if (!m_inFlight.empty())
        m_needReset = true; // the peer may expect a number that will never come again
    m_inFlight.clear();
    m_pending.clear();
    scheduleAckTimer();
    for (quint64 ticket : failed)
        emit sendFinished(ticket, false);
}

void LinkLayer::failInFlightAndPending()
{
    cancelAll();
}

void LinkLayer::sendReset()
{
    if (!m_device) {
        emit resetFinished(false);
        return;
    }
    // Frames in flight belong to the old numbering; they cannot be delivered any more.
    std::vector<quint64> failed;
    for (const Outgoing& out : m_inFlight)
        failed.push_back(out.ticket);
    m_inFlight.clear();
    m_nextSeq = 0;
    m_needReset = false;
    m_resetWaiting = true;
    m_resetTransmissions = 1;
    writeRaw(encodeFrame(FrameKind::Reset, 0));
    m_resetBoundMs = m_timing.ackMs(wireBacklog());
    m_resetDeadline = now() + m_resetBoundMs;
    scheduleAckTimer();
    for (quint64 ticket : failed)
        emit sendFinished(ticket, false);
}

void LinkLayer::sendClose()
{
    if (m_device)
        writeRaw(encodeFrame(FrameKind::Close, 0));
}

std::size_t LinkLayer::wireBacklog() const
{
    const double drained = static_cast<double>(now() - m_backlogStamp) / m_timing.byteMs();
    return static_cast<std::size_t>(std::max(0.0, m_backlogBytes - drained));
}

void LinkLayer::writeRaw(const std::vector<std::uint8_t>& bytes, int transmission)
{
    if (!m_device)
        return;
    if (m_trace) {
        LinkEvent event;
        event.kind = transmission > 1 ? LinkEvent::Kind::Resent : LinkEvent::Kind::Sent;
        event.bytes = bytes;
        event.transmission = transmission;
        event.count = kMaxTransmissions;
        trace(std::move(event));
    }
    m_backlogBytes = static_cast<double>(wireBacklog() + bytes.size());
    m_backlogStamp = now();
    m_device->write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
}

void LinkLayer::pump()
{
    if (!m_device || m_resetWaiting)
        return;
    if (m_needReset && !m_pending.empty() && m_inFlight.empty()) {
        sendReset();
        return;
    }
    while (!m_pending.empty() && m_inFlight.size() < static_cast<std::size_t>(kWindow)) {
        // Keep at most one frame waiting behind the one on the wire, so that an
        // acknowledgement this side owes never queues behind a whole window of data.
        const std::size_t backlog = wireBacklog();
        if (m_paced && backlog > frame::kMaxFrame) {
            const int waitMs = m_timing.wireMs(backlog - frame::kMaxFrame);
            m_paceTimer.start(std::max(1, waitMs));
            return;
        }
        Outgoing out = std::move(m_pending.front());
        m_pending.pop_front();
        out.seq = m_nextSeq++;
        out.frame = encodeFrame(FrameKind::Data, out.seq, out.frame);
        m_inFlight.push_back(std::move(out));
        transmit(m_inFlight.back());
    }
}

void LinkLayer::transmit(Outgoing& out)
{
    ++out.transmissions;
    writeRaw(out.frame, out.transmissions);
    out.boundMs = m_timing.ackMs(wireBacklog());
    out.deadline = now() + out.boundMs;
    scheduleAckTimer();
}

void LinkLayer::retransmitFrom(std::size_t index)
{
    for (std::size_t i = index; i < m_inFlight.size(); ++i) {
        if (m_inFlight[i].transmissions >= kMaxTransmissions) {
            giveUp(m_inFlight[i]);
            return;
        }
    }
    for (std::size_t i = index; i < m_inFlight.size(); ++i)
        transmit(m_inFlight[i]);
}

void LinkLayer::giveUp(const Outgoing& out)
{
    if (m_trace) {
        LinkEvent event;
        event.kind = LinkEvent::Kind::GivenUp;
        event.bytes = out.frame;
        event.transmission = out.transmissions;
        event.count = outstanding();
        trace(std::move(event));
    }
    failInFlightAndPending();
}

void LinkLayer::scheduleAckTimer()
{
    qint64 earliest = -1;
    if (m_resetWaiting)
        earliest = m_resetDeadline;
    if (!m_inFlight.empty()) {
        const qint64 deadline = m_inFlight.front().deadline;
        earliest = earliest < 0 ? deadline : std::min(earliest, deadline);
    }
    if (earliest < 0) {
        m_ackTimer.stop();
        return;
    }
    m_ackTimer.start(static_cast<int>(std::max<qint64>(1, earliest - now())));
}

void LinkLayer::onAckTimeout()
{
    const qint64 t = now();
    if (m_resetWaiting && t >= m_resetDeadline) {
        const auto reset = encodeFrame(FrameKind::Reset, 0);
        if (m_trace) {
            LinkEvent event;
            event.kind = LinkEvent::Kind::AckTimeout;
            event.bytes = reset;
            event.boundMs = m_resetBoundMs;
            event.transmission = m_resetTransmissions;
            event.count = outstanding();
            trace(event);
            if (m_resetTransmissions >= kMaxTransmissions) {
                event.kind = LinkEvent::Kind::GivenUp;
                trace(std::move(event));
            }
        }
        if (m_resetTransmissions >= kMaxTransmissions) {
            m_resetWaiting = false;
            m_needReset = true;
            cancelAll();
            emit resetFinished(false);
            return;
        }
        ++m_resetTransmissions;
        writeRaw(reset, m_resetTransmissions);
        m_resetBoundMs = m_timing.ackMs(wireBacklog());
        m_resetDeadline = now() + m_resetBoundMs;
    }
    if (!m_inFlight.empty() && t >= m_inFlight.front().deadline) {
        const Outgoing& oldest = m_inFlight.front();
        if (m_trace) {
            LinkEvent event;
            event.kind = LinkEvent::Kind::AckTimeout;
            event.bytes = oldest.frame;
            event.boundMs = oldest.boundMs;
            trace(std::move(event));
        }
        if (oldest.transmissions >= kMaxTransmissions) {
            giveUp(oldest);
            return;
        }
        retransmitFrom(0);
    }
    scheduleAckTimer();
}

void LinkLayer::onReadyRead()
{
    if (!m_device)
        return;
    const QByteArray bytes = m_device->readAll();
    m_decoder.feed(std::span(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                             static_cast<std::size_t>(bytes.size())));
    while (auto frame = m_decoder.next()) {
        if (m_trace) {
            traceRejections(); // the damaged frames came before this one
            LinkEvent event;
            event.kind = LinkEvent::Kind::Received;
            event.bytes = encodeFrame(frame->kind, frame->seq, frame->body); // as it arrived
            trace(std::move(event));
        }
        handleFrame(*frame);
        if (!m_device)
            return; // a handler detached the link
    }
    traceRejections();
    if (m_decoder.inFrame())
        m_byteTimer.start(m_timing.interByteMs());
    else
        m_byteTimer.stop();
}

void LinkLayer::handleFrame(const Frame& frame)
{
    switch (frame.kind) {
    case FrameKind::Data:
        handleData(frame);
        break;
    case FrameKind::Ack:
        handleAck(frame.seq);
        break;
    case FrameKind::Nak:
        handleNak(frame.seq);
        break;
    case FrameKind::Reset: {
        m_expected = 0;
        m_nakSent = false;
        m_synced = true;
        const std::uint8_t next = m_inFlight.empty() ? m_nextSeq : m_inFlight.front().seq;
        writeRaw(encodeFrame(FrameKind::ResetAck, next));
        emit peerReset();
        break;
    }
    case FrameKind::ResetAck:
        if (m_resetWaiting) {
            m_resetWaiting = false;
            m_expected = frame.seq;
            m_synced = true;
            scheduleAckTimer();
            emit resetFinished(true);
            pump();
        }
        break;
    case FrameKind::Close:
        m_synced = false;
        emit peerClosed();
        break;
    }
}

void LinkLayer::handleData(const Frame& frame)
{
    if (frame.body.size() < CRadioMessage::kHeaderSize)
        return; // cannot be a message: never acknowledged, the sender gives up
    const auto behind = static_cast<std::uint8_t>(m_expected - frame.seq);
    if (m_synced && frame.seq != m_expected) {
        if (behind >= 1 && behind <= 128)
            writeRaw(encodeFrame(FrameKind::Ack, frame.seq)); // a duplicate: our ACK was lost
        else if (!m_nakSent) { // one NAK per gap; a lost NAK is covered by the sender's bound
            writeRaw(encodeFrame(FrameKind::Nak, m_expected));
            m_nakSent = true;
        }
        return;
    }
    m_nakSent = false;
    m_synced = true;
    m_expected = static_cast<std::uint8_t>(frame.seq + 1);
    writeRaw(encodeFrame(FrameKind::Ack, frame.seq));
    emit messageReceived(QByteArray(reinterpret_cast<const char*>(frame.body.data()),
                                    static_cast<qsizetype>(frame.body.size())));
}

void LinkLayer::handleAck(std::uint8_t seq)
{
    const auto it = std::find_if(m_inFlight.begin(), m_inFlight.end(),
                                 [seq](const Outgoing& out) { return out.seq == seq; });
    if (it == m_inFlight.end())
        return;
    std::vector<quint64> done;
    for (auto i = m_inFlight.begin(); i != it + 1; ++i)
        done.push_back(i->ticket);
    m_inFlight.erase(m_inFlight.begin(), it + 1);
    scheduleAckTimer();
    for (quint64 ticket : done)
        emit sendFinished(ticket, true);
    pump();
}

void LinkLayer::handleNak(std::uint8_t seq)
{
    if (m_inFlight.empty())
        return;
    if (seq == m_nextSeq) {
        handleAck(m_inFlight.back().seq); // everything arrived; only our ACKs were lost
        return;
    }
    const auto it = std::find_if(m_inFlight.begin(), m_inFlight.end(),
                                 [seq](const Outgoing& out) { return out.seq == seq; });
    if (it == m_inFlight.end())
        return;
    if (it != m_inFlight.begin()) {
        handleAck(std::prev(it)->seq);
        if (m_inFlight.empty() || m_inFlight.front().seq != seq)
            return;
    }
    retransmitFrom(0);
}

} // namespace koral
