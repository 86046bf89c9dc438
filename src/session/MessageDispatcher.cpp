#include "session/MessageDispatcher.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/Builders.h"
#include "koralapi/Opcodes.h"
#include "session/CallStore.h"
#include "session/RadioLink.h"
#include "session/ViewCommands.h"

#include <cstdio>

namespace koral {

namespace {

// The requests a radio may refuse, with the name the operator is shown.
struct RejectedRequest
{
    int opcode;
    std::string_view name;
};

constexpr RejectedRequest kRejectedRequests[] = {
    {op::SelfTest, text::kRejectedSelfTest},
    {op::BiDirectionalStation, text::kRejectedBiDirectionalStation},
    {op::BiDirectionalNet, text::kRejectedBiDirectionalNet},
    {op::StationCall, text::kRejectedStationCall},
    {op::NetCall, text::kRejectedNetCall},
    // 71 is the all call; this box has always called it a priority call.
    {op::AllCall, text::kRejectedPriorityCall},
    {op::Sounding, text::kRejectedSounding},
    {op::EnterNetwork, text::kRejectedEnterNetwork},
};

// Call states of the exchange.
constexpr int kIdle = 1;
constexpr int kCalling = 31;
constexpr int kReplacing = 39;
constexpr int kIncoming = 55;
constexpr int kAborted = 58;
// Opcodes the view remembers for its own actions.
constexpr int kAcceptedOpcode = 80;
constexpr int kAbortedOpcode = 91;

} // namespace

MessageDispatcher::MessageDispatcher(RadioLink& link, ViewCommands& commands, ViewState& view,
                                     CapabilityFlags& flags, CallStore& calls, Notifier& notifier,
                                     QObject* parent)
    : QObject(parent), m_link(link), m_commands(commands), m_view(view), m_flags(flags),
      m_calls(calls), m_notifier(notifier)
{
    connect(&m_link, &RadioLink::incomingMessage, this, &MessageDispatcher::onIncomingMessage);
    // The display's lines come with their own copies (the latest message may already be the
    // next line); dispatching the latest one again below only repeats a line already shown.
    connect(&m_link, &RadioLink::displayLine, this, [this](const CRadioMessage& message) {
        if (m_displayOpen)
            emit displayReport(message);
    });
}

void MessageDispatcher::onIncomingMessage()
{
    dispatchMessage(m_link.latestIncoming());
}

void MessageDispatcher::dispatchMessage(const CRadioMessage& message)
{
    m_lastIncoming = message;
    m_view.lastOpcode = m_lastIncoming.GetOpcode();
    dispatch();
}

void MessageDispatcher::dispatch()
{
    const CRadioMessage& message = m_lastIncoming;
    switch (m_view.lastOpcode) {
    case op::DisplayReport:
        if (message[6] <= op::display::LastTextLine) {
            if (m_displayOpen)
                emit displayReport(message);
        } else {
            emit selfTestReport(message);
        }
        break;
    case op::RemoteRequested:
        m_view.remoteRequested = true;
        if (m_view.radioReady)
            m_commands.remoteModeExchange();
        break;
    case op::IsbModeChanged:
        emit isbModeReported(message[6], false);
        break;
    case op::ChannelReport:
        emit channelReport(message, m_flags.softwareClass == 1 ? 2 : 1);
        break;
    case op::IsbMode:
        if (message[6] <= 1) {
            m_isbMode = message[6];
            emit isbModeReported(m_isbMode, true);
        }
        break;
    case op::CommandRejected:
        commandRejected();
        break;
    case op::LinkStatusValue:
        if (message[6] == 1)
            emit channelPaneStatus(std::to_string(message[9]));
        else if (message[6] == 4)
            emit linkIndicator(1, true);
        break;
    case op::StationCallProgress:
    case op::NetCallProgress:
    case op::AllCallProgress:
        m_view.callState = kCalling;
        break;
    case op::IncomingStationCall:
    case op::IncomingNetCall:
    case op::IncomingPriorityCall:
    case op::IncomingSilentNetCall:
        receiveCall();
        break;
    case op::LinkResult:
        linkResult();
        break;
    case op::MonitorState:
        m_commands.showToggleState(ViewCommands::Toggle::Monitor, message[6] == 1);
        m_view.callState = kIdle;
        break;
    default:
        // 45, 67, 78, 81, 83, 84: nothing beyond the common tail.
        break;
    }
    commonTail();
}

void MessageDispatcher::receiveCall()
{
    const IncomingCall call = decodeIncomingCall(m_view.lastOpcode, m_lastIncoming.bytes);
    m_calls.setChannelValue(call.channel, call.channelValue);
    CallRecord& current = m_calls.currentCall();
    const bool repeated = m_view.callState == kIncoming && current.from == call.address &&
                          current.channel == std::to_string(call.channel) &&
                          current.message == call.message.value_or(std::string());
    // The latest message may be dispatched twice: the same call is shown again but recorded
    // once. A new call while one is still announced keeps the earlier one in the stack and the
    // log.
    if (repeated) {
        emit incomingCall(call);
        return;
    }
    if (m_view.callState == kIncoming)
        m_calls.recordFinishedCall(localTimeNow());
    m_view.callState = kIncoming;
    const std::tm now = localTimeNow();
    current = CallRecord{};
    current.from = call.address;
    current.date = callDateText(now);
    current.start = callTimeText(now);
    current.callType = std::string(call.callType);
    current.channel = std::to_string(call.channel);
    current.message = call.message.value_or(std::string());
    emit incomingCall(call);
}

void MessageDispatcher::linkResult()
{
    const int code = m_lastIncoming[6];
    // A call that reached its station is an established link: the common tail takes it up.
    const bool callLinked = code == 1 && m_view.callState == kCalling;
    if (m_view.callState == kReplacing || code >= 4 || callLinked)
        return;
    m_commands.showCallStatus(code);
    if (code == 0 || code == 1) {
        m_view.callState = kIdle;
        emit linkIndicator(code + 1, false);
        emit channelRefreshRequested();
        setCallControls(5);
        return;
    }
    // Channel or station busy: an incoming call that was waiting ends here.
    if (recordIncomingCall())
        emit incomingCallClosed();
    setCallControls(5);
    m_view.callState = kIdle;
}

void MessageDispatcher::commandRejected()
{
    const auto rejected = static_cast<std::int16_t>(m_lastIncoming.get16(6));
    for (const RejectedRequest& request : kRejectedRequests) {
        if (request.opcode != rejected)
            continue;
        m_notifier.show(std::string(text::kCanNotPerform).append(request.name), Icon::Warning);
        if (rejected == op::SelfTest) {
            emit selfTestRejected();
            return;
        }
        if (rejected == op::BiDirectionalStation || rejected == op::BiDirectionalNet)
            emit bidirectionalIndicatorOff();
        abortLink();
        return;
    }
}

void MessageDispatcher::establishedLink()
{
    // The dispatch acts on the latest message, so the same result may come round again: the
    // link is accepted and logged once.
    if (m_view.linked)
        return;
    setCallControls(7);
    acceptLink();
    m_calls.recordFinishedCall(localTimeNow());
    emit channelRefreshRequested();
}

void MessageDispatcher::commonTail()
{
    switch (m_view.callState) {
    case kCalling:
        if (m_view.lastOpcode == op::LinkResult) {
            const int code = m_lastIncoming[6];
            m_commands.showCallStatus(code);
            // A link on a silent net is a link all the same.
            if (code == 1 || code == 4)
                establishedLink();
        }
        emit callProgress(m_view.lastOpcode);
        break;
    case 34:
    case 53:
        emit linkIndicator(1, false);
        emit linkIndicator(2, false);
        m_view.callState = kIdle;
        break;
    case 36:
        if (m_view.lastOpcode != op::LinkStatusValue && !m_linkEnded) {
            setCallControls(5);
            m_view.callState = kIdle;
        }
        break;
    case 40:
        m_view.callState = 36;
        break;
    case 54:
        m_view.callState = kIdle;
        break;
    case 57:
        setCallControls(7);
        m_view.callState = kIdle;
        break;
    case kAborted:
        setCallControls(5);
        m_view.callState = kIdle;
        break;
    default:
        break;
    }
}

void MessageDispatcher::setCallControls(int step)
{
    switch (step) {
    case 4:
    case 6:
        m_callControls.callButtons = !m_view.linked;
        m_callControls.idle = true;
        break;
    case 5:
        m_callControls.linkProgress = false;
        m_callControls.abortControls = false;
        m_callControls.callButtons = true;
        m_view.linked = false;
        m_callControls.idle = true;
        break;
    case 7:
        m_callControls.linkProgress = true;
        m_callControls.abortControls = true;
        m_view.linked = true;
        m_callControls.idle = false;
        break;
    case 12:
        m_callControls.callButtons = false;
        m_callControls.abortControls = false;
        break;
    default:
        return;
    }
    emit callControlsChanged();
}

bool MessageDispatcher::recordIncomingCall()
{
    if (m_view.callState != kIncoming)
        return false;
    m_calls.recordFinishedCall(localTimeNow());
    m_view.callState = kIdle;
    return true;
}

void MessageDispatcher::closeIncomingCall()
{
    // A call the radio ended (busy) was recorded then and left no link.
    if (recordIncomingCall())
        setCallControls(7);
}

int MessageDispatcher::acceptLink()
{
    m_view.lastOpcode = kAcceptedOpcode;
    return m_link.sendRequest(&AcceptLink);
}

int MessageDispatcher::abortLink()
{
    const int sent = m_link.sendRequest(&AbortLink);
    m_view.lastOpcode = kAbortedOpcode;
    m_view.callState = kAborted;
    m_commands.showCallStatus(-1);
    return sent;
}

} // namespace koral
