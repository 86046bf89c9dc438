#pragma once

#include "koralapi/CRadioMessage.h"
#include "session/IncomingWorker.h"
#include "session/SessionState.h"

#include <QObject>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace koral {

class LinkTraceRecorder;
class MessageEngine;
class Notifier;
class TraceWriter;

enum class LinkState
{
    Closed, // no worker; the port may still be open after a failed ConnectSocket
    Open,   // port open, connected, worker running
    Closing // stop event set, waiting for the worker
};

// The one link to the radio: the engine, the port and the connection, the incoming worker,
// CommPort.txt, and the two wrappers every request goes through so that the "radio does not
// respond" message is shown, and silenced, in one place. Lives on the user-interface thread.
class RadioLink : public QObject
{
    Q_OBJECT
public:
    // Failures that a running system cannot be made to produce on demand: tests set them to
    // prove what the link does when they happen.
    struct FaultHooks
    {
        bool failStopEvent = false;
        bool failThread = false;
        bool failStopSignal = false;
    };

    RadioLink(Notifier& notifier, CapabilityFlags& flags, TraceWriter& trace,
              QObject* parent = nullptr);
    // Closes the link and writes CommPort.txt back to the start-up directory.
    ~RadioLink() override;

    // Reads CommPort.txt from `startDirectory` (which is kept for the save) and creates the
    // engine. Returns 1.
    int initSession(const std::filesystem::path& startDirectory = std::filesystem::current_path());
    // Opens the port, connects, and starts the incoming worker. 1 on success, 0 on failure
    // ("Can't open port." when the port cannot be opened; nothing when the radio does not
    // answer, and the port is then left open for the next close).
    int openRadioLink();
    // Stops the worker (waiting for it), disconnects and closes the port. Returns 1.
    int closeRadioLink();
    // Reopens the link with another port or baud rate; 1 without doing anything when both
    // are unchanged.
    int changeRadioLink(int port, int baudRate);

    // Opens the port of that name at that rate from now on (for front ends that name their
    // port on the command line); CommPort.txt keeps its own port.
    void usePortName(std::string name, int baudRate);

    int loadCommPortFile(const std::filesystem::path& directory);
    int saveCommPortFile();

    // 1 when the radio took the request; 0 after the no-response message (unless silenced).
    int sendToRadio(const CRadioMessage& message);
    // 1 with the radio's reply of that opcode; 0 after the no-response message (unless
    // silenced). Call lockGetMessage before sending the request.
    int waitForRadioReply(CRadioMessage& message, int opcode);
    void lockGetMessage();
    // A request prepared as the program prepares every request (bytes 0, 2 and 5).
    static CRadioMessage newRequest();
    // Builds a request that takes no arguments and sends it.
    int sendRequest(int (*build)(CRadioMessage*));
    // Locks the replies, sends the request and waits for its reply; 1 with the reply.
    int query(int (*build)(CRadioMessage*), int replyOpcode, CRadioMessage& reply);
    // 0 without an open port, else whether the radio answered the program-word query.
    int testCommunication();
    // `rounds` times: sleep 10 ms, then let the window handle what is pending.
    void waitPumping(int rounds);
    // The event handling used by waitPumping and by the library's pump callback;
    // QCoreApplication::processEvents unless replaced.
    void setPump(std::function<void()> pump) { m_pump = std::move(pump); }
    // The sleep of one waitPumping round (10 ms; tests shorten it).
    void setPumpRoundMilliseconds(int ms) { m_pumpRoundMs = ms; }
    void pump() const;

    bool isPortOpen() const;
    LinkState state() const { return m_state; }
    MessageEngine* engine() const { return m_engine.get(); }
    // The trace of the link's frames, kept for every engine this link creates.
    LinkTraceRecorder& linkTrace() const { return *m_linkTrace; }
    const LinkSettings& settings() const { return m_settings; }
    // A port or baud rate for this run only (given on the command line): CommPort.txt goes on
    // holding `remembered` until the operator chooses a port in the dialog.
    void keepRememberedSettings(const LinkSettings& remembered) { m_remembered = remembered; }
    void forgetRememberedSettings() { m_remembered.reset(); }
    bool reportNoResponse() const { return m_reportNoResponse; }
    void setReportNoResponse(bool report) { m_reportNoResponse = report; }
    bool waitCursor() const { return m_waitCursor; }
    FaultHooks& faultHooks() { return m_hooks; }

    // Shows the no-response message unless silenced; returns 0. For the library's calls that
    // do not go through the two wrappers.
    int reportFailure();

    // The message the worker handed over last (what the view's dispatch acts on).
    CRadioMessage latestIncoming() const { return m_latest.take(); }

signals:
    // Posted after every hand-over from the worker; the dispatch connects here.
    void incomingMessage();
    // A display line (opcode 27, kinds 0-2) with its own copy, so that none of the display's
    // lines is lost to a later message; incomingMessage follows as for every message.
    void displayLine(const koral::CRadioMessage& message);
    // The radio reported its ALE state on its own; the capability flags hold it.
    void aleStateReported();
    void waitCursorChanged(bool on);
    // The link was closed: the call dialog disables its call control.
    void linkClosed();

private:
    void setWaitCursor(bool on);
    void createEngine();
    // Called by the worker after each hand-over: queues the view's turn.
    void handOver();

    Notifier& m_notifier;
    CapabilityFlags& m_flags;
    TraceWriter& m_trace;
    LinkSettings m_settings;
    std::optional<LinkSettings> m_remembered;
    std::string m_portName; // a port named for this run; empty: the numbered port
    std::shared_ptr<LinkTraceRecorder> m_linkTrace;
    std::unique_ptr<MessageEngine> m_engine;
    std::shared_ptr<StopEvent> m_stopEvent;
    std::unique_ptr<IncomingWorker> m_worker;
    LatestMessage m_latest;
    LinkState m_state = LinkState::Closed;
    bool m_reportNoResponse = true;
    bool m_waitCursor = false;
    FaultHooks m_hooks;
    std::function<void()> m_pump;
    int m_pumpRoundMs = 10;
};

} // namespace koral
