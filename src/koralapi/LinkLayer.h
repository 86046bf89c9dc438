#pragma once

#include "koralapi/FrameCodec.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <cstdint>
#include <deque>
#include <memory>
#include <span>

class QIODevice;

namespace koral {

class LinkTraceRecorder;
struct LinkEvent;

// Time bounds of the link, all derived from the baud rate (10 bits per byte).
struct LinkTiming
{
    int baudRate = 9600;

    double byteMs() const { return 10000.0 / (baudRate > 0 ? baudRate : 9600); }
    int wireMs(std::size_t bytes) const;
    int interByteMs() const;
    // Bound for the acknowledgement of a frame written with `bytesInFlight` bytes (itself
    // included) still to cross the wire.
    int ackMs(std::size_t bytesInFlight) const;
    // Bound for the answer to a query.
    int replyMs() const;
    // Bound for the gap between two blocks of a transfer, and for a write's end result.
    int blockGapMs() const;
    // The longest a single message can take to be acknowledged or given up.
    int sendBoundMs() const;
};

// The acknowledged, windowed link over one byte stream, shared by the library and the virtual
// radio: DATA frames numbered per direction, at most kWindow in flight, go-back-N on a NAK or
// a missed acknowledgement, kMaxTransmissions per frame, then failure. Lives in one thread and
// never blocks; results come back as signals.
class LinkLayer : public QObject
{
    Q_OBJECT
public:
    static constexpr int kWindow = 4;
    static constexpr int kMaxTransmissions = 3;

    explicit LinkLayer(QObject* parent = nullptr);
    ~LinkLayer() override;

    // Starts working on `device` (not owned; it must outlive attach/detach).
    void attach(QIODevice* device);
    // Stops using the device; every queued message fails.
    void detach();
    void setBaudRate(int baudRate);
    const LinkTiming& timing() const { return m_timing; }
    // Whether frames wait for the wire to drain (on by default). A line that moves bytes at
    // once (an unpaced virtual radio) has no wire to wait for; the time bounds stay.
    void setPaced(bool paced) { m_paced = paced; }

    // Queues one message (the wire bytes of a CRadioMessage); the result comes with
    // sendFinished(ticket, acknowledged). Returns the ticket (never 0).
    quint64 send(std::span<const std::uint8_t> message);
    // Fails every message not yet acknowledged (sendFinished(ticket, false) for each).
    void cancelAll();
    // Restarts this side's numbering; resetFinished tells whether the peer answered.
    void sendReset();
    // Tells the peer this side is going away (not acknowledged).
    void sendClose();
    // Messages queued or in flight.
    int outstanding() const { return int(m_pending.size() + m_inFlight.size()); }
    // Records every frame written and read, and every fault, from now on (null: none).
    void setTrace(std::shared_ptr<LinkTraceRecorder> trace);

signals:
    void messageReceived(const QByteArray& message);
    void sendFinished(quint64 ticket, bool acknowledged);
    void resetFinished(bool answered);
    void peerReset();
    void peerClosed();

private:
    struct Outgoing
    {
        quint64 ticket = 0;
        std::uint8_t seq = 0;
        std::vector<std::uint8_t> frame;
        int transmissions = 0;
        qint64 deadline = 0;
        int boundMs = 0;
    };

    void onReadyRead();
    void handleFrame(const Frame& frame);
    void handleData(const Frame& frame);
    void handleAck(std::uint8_t seq);
    void handleNak(std::uint8_t seq);
    // Writes a frame; `transmission` counts how often this frame was written, this time included.
    void writeRaw(const std::vector<std::uint8_t>& bytes, int transmission = 1);
    void trace(LinkEvent event);
    void traceRejections();
    // Fails everything outstanding because `out` ran out of transmissions.
    void giveUp(const Outgoing& out);
    void pump();
    void transmit(Outgoing& out);
    void retransmitFrom(std::size_t index);
    void onAckTimeout();
    void failInFlightAndPending();
    void scheduleAckTimer();
    std::size_t wireBacklog() const;
    qint64 now() const { return m_clock.elapsed(); }

    QPointer<QIODevice> m_device;
    LinkTiming m_timing;
    bool m_paced = true;
    FrameDecoder m_decoder;
    QElapsedTimer m_clock;
    QTimer m_ackTimer;
    QTimer m_byteTimer;
    QTimer m_paceTimer;

    // Sending side.
    std::deque<Outgoing> m_pending;
    std::deque<Outgoing> m_inFlight;
    std::uint8_t m_nextSeq = 0;
    quint64 m_nextTicket = 1;
    bool m_needReset = false;
    bool m_resetWaiting = false;
    int m_resetTransmissions = 0;
    qint64 m_resetDeadline = 0;
    int m_resetBoundMs = 0;

    // Receiving side.
    bool m_synced = false;
    std::uint8_t m_expected = 0;
    bool m_nakSent = false;

    // Estimate of the bytes this side has written that have not crossed the wire yet.
    double m_backlogBytes = 0;
    qint64 m_backlogStamp = 0;

    std::shared_ptr<LinkTraceRecorder> m_trace;
};

} // namespace koral
