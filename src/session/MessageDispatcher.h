#pragma once

#include "koralapi/CRadioMessage.h"
#include "session/IncomingCall.h"
#include "session/SessionState.h"

#include <QObject>

#include <string>

namespace koral {

class CallStore;
class Notifier;
class RadioLink;
class ViewCommands;

// What the Computer Interface panel's call controls show, step by step of a call exchange.
struct CallControls
{
    bool callButtons = true;
    bool abortControls = false;
    bool linkProgress = false;
    bool idle = true;
    bool operator==(const CallControls&) const = default;
};

// The view's side of the incoming messages: takes the latest message the worker handed over
// and acts on it by opcode, then on the call state (the common tail). Effects that belong to
// the panels leave as signals; the call state, the call controls and the ISB flag are kept
// here for the panels to read.
class MessageDispatcher : public QObject
{
    Q_OBJECT
public:
    MessageDispatcher(RadioLink& link, ViewCommands& commands, ViewState& view,
                      CapabilityFlags& flags, CallStore& calls, Notifier& notifier,
                      QObject* parent = nullptr);

    // Takes the latest hand-over and dispatches it (connected to RadioLink::incomingMessage).
    void onIncomingMessage();
    // Takes `message` as the latest and acts on it.
    void dispatchMessage(const CRadioMessage& message);
    // Acts on `lastIncoming` by `view.lastOpcode`, then runs the common tail.
    void dispatch();

    const CRadioMessage& lastIncoming() const { return m_lastIncoming; }
    const CallControls& callControls() const { return m_callControls; }
    void setCallControls(int step);

    // The operator closed the announced incoming call's dialog: the call goes to the log and
    // the stack once, stamped with the end time. The radio stays linked with the caller, so
    // the panel shows that link as it shows the link of a call of its own, and Abort ends it.
    void closeIncomingCall();

    // The session's operations on a call: both send at once.
    int acceptLink();
    int abortLink();

    // The front-panel display is open (opcode 27 display lines go to it only then).
    void setDisplayOpen(bool open) { m_displayOpen = open; }
    // The link pane shows that the link ended ("NO LINK" or "END CALLING").
    void setLinkEnded(bool ended) { m_linkEnded = ended; }
    int isbMode() const { return m_isbMode; }

signals:
    void displayReport(const koral::CRadioMessage& message);
    void selfTestReport(const koral::CRadioMessage& message);
    // Channel or scan report (46) in the layout of the radio's software class: 1 or 2.
    void channelReport(const koral::CRadioMessage& message, int layout);
    // The ISB mode the radio reported; `flagChanged` is false for opcode 30.
    void isbModeReported(int isb, bool flagChanged);
    // The Computer Interface panel's status value (65, kind 1).
    void channelPaneStatus(const std::string& text);
    // Link-quality indicators 1 and 2 of the link-quality pane.
    void linkIndicator(int indicator, bool on);
    void bidirectionalIndicatorOff();
    // The channel window should reread its channel (the refresh message 0x130C).
    void channelRefreshRequested();
    void incomingCall(const koral::IncomingCall& call);
    void incomingCallClosed();
    void callControlsChanged();
    // A call in progress reports (state 31); the link pane follows it.
    void callProgress(int opcode);
    void selfTestRejected();

private:
    void linkResult();
    void commandRejected();
    void commonTail();
    void receiveCall();
    // Records the announced incoming call and ends it; false when none was announced.
    bool recordIncomingCall();
    void establishedLink();

    RadioLink& m_link;
    ViewCommands& m_commands;
    ViewState& m_view;
    CapabilityFlags& m_flags;
    CallStore& m_calls;
    Notifier& m_notifier;
    CRadioMessage m_lastIncoming;
    CallControls m_callControls;
    bool m_displayOpen = false;
    bool m_linkEnded = false;
    int m_isbMode = 0;
};

} // namespace koral
