#include "session/ViewCommands.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/Builders.h"
#include "koralapi/Opcodes.h"
#include "session/RadioLink.h"
#include "session/TraceWriter.h"
#include "session/ViewStatus.h"

namespace koral {

namespace {

// SetDspMenuParameters leaves a value of 255 as the radio has it.
constexpr int kUnchanged = 255;

} // namespace

ViewCommands::ViewCommands(RadioLink& link, ViewState& view, CapabilityFlags& flags,
                           Notifier& notifier, TraceWriter& trace, QObject* parent)
    : QObject(parent), m_link(link), m_view(view), m_flags(flags), m_notifier(notifier),
      m_trace(trace)
{
    for (QTimer* timer : {&m_startupTimer, &m_completionTimer}) {
        timer->setSingleShot(true);
        timer->setInterval(kNoticeMilliseconds);
    }
    connect(&m_startupTimer, &QTimer::timeout, this, [this] { closeNotice(Notice::Startup); });
    connect(&m_completionTimer, &QTimer::timeout, this, [this] { closeNotice(Notice::Completed); });
}

bool& ViewCommands::flag(Toggle which)
{
    switch (which) {
    case Toggle::Squelch:
        return m_view.squelch;
    case Toggle::Monitor:
        return m_view.monitor;
    case Toggle::NoiseBlanker:
        return m_view.noiseBlanker;
    case Toggle::Attenuator:
        return m_view.attenuator;
    case Toggle::Clipper:
        break;
    }
    return m_view.clipper;
}

bool ViewCommands::state(Toggle which) const
{
    return const_cast<ViewCommands*>(this)->flag(which);
}

void ViewCommands::setToggle(Toggle which, bool on)
{
    flag(which) = on;
    m_images[index(which)] = imageIndexForState(m_images[index(which)], on);
    emit toggleChanged(which, on);
}

int ViewCommands::toggle(Toggle which)
{
    return setState(which, !state(which));
}

int ViewCommands::setState(Toggle which, bool on)
{
    const int value = on ? 1 : 0;
    CRadioMessage message = RadioLink::newRequest();
    switch (which) {
    case Toggle::Squelch:
        SetSquelchOnOff(&message, 0, value);
        break;
    case Toggle::Monitor:
        SetMonitorOnOff(&message, 0, value);
        break;
    case Toggle::NoiseBlanker:
        SetDspMenuParameters(&message, 0, kUnchanged, kUnchanged, value, kUnchanged);
        break;
    case Toggle::Attenuator:
        SetDspMenuParameters(&message, 0, kUnchanged, kUnchanged, kUnchanged, value);
        break;
    case Toggle::Clipper:
        SetDspMenuParameters(&message, 0, kUnchanged, value, kUnchanged, kUnchanged);
        break;
    }
    if (!m_link.sendToRadio(message))
        return 0;
    setToggle(which, on);
    return 1;
}

bool ViewCommands::isReady() const
{
    return m_link.isPortOpen() && m_view.radioReady && m_view.databaseRead;
}

bool ViewCommands::linkBlocksDsp() const
{
    return m_view.linkRequired && !m_view.linked;
}

bool ViewCommands::isEnabled(Command command) const
{
    switch (command) {
    case Command::Squelch:
        return isReady() && !m_view.busy;
    case Command::Monitor:
        return isReady() && !m_view.busy &&
               (!m_flags.aleOff || (m_flags.ccirMode && m_flags.aleState == 2));
    case Command::NoiseBlanker:
        return isReady() && !m_view.busy && !linkBlocksDsp() && m_view.noiseBlankerOption;
    case Command::Attenuator:
    case Command::Clipper:
        // These two were never locked by the busy state.
        return isReady() && !linkBlocksDsp();
    case Command::Reset:
    case Command::ReadDevice:
        return m_link.isPortOpen() && !m_view.busy;
    case Command::CommPortSetup:
        return !m_view.busy;
    case Command::RemoteControl:
        return true;
    }
    return false;
}

bool ViewCommands::isChecked(Command command) const
{
    switch (command) {
    case Command::Squelch:
        return m_view.squelch;
    case Command::Monitor:
        return m_view.monitor;
    case Command::NoiseBlanker:
        return m_view.noiseBlanker;
    case Command::Attenuator:
        return m_view.attenuator;
    case Command::Clipper:
        return m_view.clipper;
    case Command::RemoteControl:
        return m_view.remoteMode == 0;
    case Command::Reset:
    case Command::ReadDevice:
    case Command::CommPortSetup:
        break;
    }
    return false;
}

int ViewCommands::updateToolBarAndSliders()
{
    CRadioMessage reply;
    if (!m_link.query(&ReportSquelchState, op::SquelchState, reply))
        return 0;
    setToggle(Toggle::Squelch, (reply[6] & 2) != 0);

    // The monitor state comes back as a report through the incoming worker.
    m_link.sendRequest(&ReportMonitorState);

    if (!m_link.query(&ReportDspMenuParameters, op::DspParameters, reply))
        return 0;
    m_dspSliderPosition = reply[6] * m_dspLineSize + 300;
    setToggle(Toggle::Clipper, reply[7] != 0);
    setToggle(Toggle::NoiseBlanker, reply[8] != 0);
    setToggle(Toggle::Attenuator, reply[9] != 0);

    if (!m_link.query(&ReportClarifierPosition, op::ClarifierPosition, reply))
        return 0;
    m_clarifierOn = reply[6] == 1 || reply[6] == 2;
    m_clarifierPosition = reply[6] == 1 ? reply[7] : reply[6] == 2 ? -reply[7] : 0;
    emit slidersChanged();

    if (!m_link.query(&ReportRadioOperationMode, op::OperationMode, reply))
        return 0;
    m_view.operationMode = reply[6];
    if (!m_link.query(&ReportAleON_OFF, op::AleOnOff, reply))
        return 0;
    m_flags.aleState = reply[6];
    m_flags.aleOff = reply[6] != 1;
    if (m_view.operationMode == 1 || m_view.operationMode == 4)
        m_view.specialModeSeen = true;
    emit panelsRefreshRequested();
    return 1;
}

int ViewCommands::enableSpecialReport()
{
    CRadioMessage message = RadioLink::newRequest();
    EnableDisableSpecialReport(&message, 0, m_view.databaseRead ? 1 : 0, op::ChannelReport);
    return m_link.sendToRadio(message);
}

int ViewCommands::remoteModeExchange()
{
    CRadioMessage message = RadioLink::newRequest();
    EnterRemoteMode(&message, m_view.remoteMode);
    if (!m_link.sendToRadio(message))
        return 0;
    m_trace.traceLine("BEFORE EnableDisableSpecialReport()");
    return enableSpecialReport();
}

int ViewCommands::toggleRemoteMode()
{
    m_view.remoteMode = m_view.remoteMode > 0 ? 0 : 2;
    CRadioMessage message = RadioLink::newRequest();
    EnterRemoteMode(&message, m_view.remoteMode);
    return m_link.sendToRadio(message);
}

void ViewCommands::performReset()
{
    if (!m_link.isPortOpen()) {
        m_notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
        return;
    }
    setRadioCommandsEnabled(false);
    beginBusy();
    if (m_link.sendRequest(&PerformReset)) {
        showNotice(Notice::PleaseWait);
        m_link.waitPumping(400);
        closeNotice(Notice::PleaseWait);
        showNotice(Notice::Completed);
    }
    // A reset the radio did not take still ends the busy state, so the window is usable.
    endBusy();
    if (m_view.radioReady)
        setRadioCommandsEnabled(true);
}

void ViewCommands::beginBusy()
{
    m_view.busy = true;
    setStatusText(std::string(text::byId(text::id::CommandInProgress)));
    m_closeEnabled = false;
    emit busyChanged(true);
}

void ViewCommands::endBusy()
{
    setStatusText({});
    m_view.busy = false;
    m_closeEnabled = true;
    emit busyChanged(false);
}

void ViewCommands::setRadioCommandsEnabled(bool enabled)
{
    m_radioCommandsEnabled = enabled;
    emit radioCommandsEnabledChanged(enabled);
}

bool ViewCommands::aleCommandsEnabled() const
{
    return m_radioCommandsEnabled && !(m_flags.ccirMode && m_flags.aleOff);
}

void ViewCommands::showCallStatus(int code)
{
    m_callStatus = std::string(callStatusText(code));
    emit callStatusChanged(m_callStatus);
}

void ViewCommands::setStatusText(std::string text)
{
    m_statusText = std::move(text);
    emit statusTextChanged(m_statusText);
}

std::string ViewCommands::comPane() const
{
    return comPaneText(m_link.settings().commPort, m_link.settings().baudRate);
}

std::string ViewCommands::serialPane() const
{
    return serialPaneText(m_view.serialNumber);
}

std::string ViewCommands::codePane() const
{
    return codePaneText(m_view.radioCode);
}

void ViewCommands::showNotice(Notice notice)
{
    if (m_notices[std::size_t(notice)])
        return;
    m_notices[std::size_t(notice)] = true;
    if (notice == Notice::Startup)
        m_startupTimer.start();
    else if (notice == Notice::Completed)
        m_completionTimer.start();
    emit noticeChanged(notice, true);
}

void ViewCommands::closeNotice(Notice notice)
{
    if (notice == Notice::Startup)
        m_startupTimer.stop();
    else if (notice == Notice::Completed)
        m_completionTimer.stop();
    if (!m_notices[std::size_t(notice)])
        return;
    m_notices[std::size_t(notice)] = false;
    emit noticeChanged(notice, false);
}

void ViewCommands::setNoticeMilliseconds(int ms)
{
    m_startupTimer.setInterval(ms);
    m_completionTimer.setInterval(ms);
}

} // namespace koral
