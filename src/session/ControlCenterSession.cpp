#include "session/ControlCenterSession.h"

#include "common/Texts.h"

namespace koral {

ControlCenterSession::ControlCenterSession(Notifier& notifier, std::filesystem::path dataDirectory,
                                           QObject* parent)
    : QObject(parent), m_notifier(notifier), m_records(std::make_unique<SessionRecords>()),
      m_calls(std::move(dataDirectory)), m_link(notifier, m_flags, m_trace),
      m_commands(m_link, m_view, m_flags, notifier, m_trace),
      m_dispatcher(m_link, m_commands, m_view, m_flags, m_calls, notifier),
      m_transfer(m_link, m_commands, m_view, m_flags, *m_records, notifier, m_trace),
      m_memory(m_link, notifier), m_bite(m_link, notifier),
      m_activeChannel(m_link, *m_records, m_view),
      m_channels(m_link, m_view, m_flags, *m_records, m_transfer, notifier),
      m_aleCalls(m_link, m_view, *m_records, m_calls, m_dispatcher, m_channels, notifier),
      m_linkQuality(m_link, m_view, m_calls, m_dispatcher, m_channels, m_aleCalls, notifier),
      m_clarifier(DspSlider::Kind::Clarifier, m_link), m_notch(DspSlider::Kind::Notch, m_link)
{
    // A station's ALE call reached the radio, so the radio's ALE is on: the panel offers the
    // ALE tabs, from which the call is answered.
    connect(&m_dispatcher, &MessageDispatcher::incomingCall, &m_channels,
            [this] { m_channels.setScanMode(ChannelController::ScanMode::Ale); });
    connect(&m_link, &RadioLink::aleStateReported, &m_channels, &ChannelController::followAleState);
    // The notch slider shows the radio's DSP level in its own steps.
    m_commands.setDspLineSize(m_notch.step());
    connect(&m_commands, &ViewCommands::slidersChanged, this, [this] {
        m_clarifier.follow(m_commands.clarifierPosition());
        m_notch.follow(m_commands.dspSliderPosition());
    });
    connect(&m_dispatcher, &MessageDispatcher::channelReport, &m_channels,
            [this](const CRadioMessage& message, int) { m_channels.onChannelReport(message); });
    connect(&m_transfer, &DatabaseTransfer::channelListChanged, &m_channels,
            &ChannelController::takeRadioState);
    connect(&m_transfer, &DatabaseTransfer::channelListChanged, &m_aleCalls,
            &AleCallController::refresh);
    connect(&m_transfer, &DatabaseTransfer::channelListChanged, &m_linkQuality,
            &LinkQualityController::refresh);
    connect(&m_commands, &ViewCommands::radioCommandsEnabledChanged, &m_channels,
            &ChannelController::setEnabled);
    connect(&m_dispatcher, &MessageDispatcher::selfTestReport, &m_bite, &BiteRunner::onReport);
    connect(&m_dispatcher, &MessageDispatcher::selfTestRejected, &m_bite, &BiteRunner::close);
}

ControlCenterSession::~ControlCenterSession()
{
    m_link.closeRadioLink();
    m_calls.save();
}

int ControlCenterSession::initSession(const std::filesystem::path& startDirectory, int port,
                                      int baud)
{
    m_link.initSession(startDirectory);
    m_calls.load();
    if (port > 0 || baud > 0) {
        // Used like a port chosen in the dialog, but CommPort.txt keeps the operator's choice.
        const LinkSettings remembered = m_link.settings();
        m_link.keepRememberedSettings(remembered);
        if (!m_link.changeRadioLink(port > 0 ? port : remembered.commPort,
                                    baud > 0 ? baud : remembered.baudRate))
            return 0;
        m_link.closeRadioLink();
    }
    m_commands.showNotice(ViewCommands::Notice::Startup);
    QMetaObject::invokeMethod(this, &ControlCenterSession::startUpExchange, Qt::QueuedConnection);
    return 1;
}

void ControlCenterSession::startUpExchange()
{
    m_view.radioReady = false;
    m_commands.setRadioCommandsEnabled(false);
    m_commands.beginBusy();
    if (m_link.openRadioLink()) {
        const int remote = m_commands.remoteModeExchange();
        m_commands.setRadioCommandsEnabled(true);
        if (remote) {
            const int result = m_transfer.readDevice();
            m_commands.closeNotice(ViewCommands::Notice::PleaseWait);
            emit m_commands.panelsRefreshRequested();
            if (result > 0) {
                m_view.radioReady = true;
                m_commands.setRadioCommandsEnabled(true);
            }
        }
    }
    emit channelDisplayRefreshRequested();
    m_commands.endBusy();
    emit startUpFinished(m_view.radioReady);
}

CommPortEditor& ControlCenterSession::beginCommPortSetup()
{
    m_commands.setRadioCommandsEnabled(false);
    m_commands.beginBusy();
    m_setupPort = m_link.settings().commPort;
    m_setupBaud = m_link.settings().baudRate;
    return m_commPortEditor.emplace(m_link, m_notifier);
}

void ControlCenterSession::endCommPortSetup(bool accepted)
{
    if (!accepted) {
        m_commands.setStatusText(std::string(text::byId(text::id::CommandInProgress)));
        m_link.changeRadioLink(m_setupPort, m_setupBaud);
    } else {
        m_link.forgetRememberedSettings();
    }
    m_commands.endBusy();
    m_commPortEditor.reset();
    m_view.radioReady = m_link.testCommunication() != 0;
    if (m_view.radioReady && m_view.databaseRead)
        m_commands.setRadioCommandsEnabled(true);
}

} // namespace koral
