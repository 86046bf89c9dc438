#include "gui/RadioController.h"

#include "common/Texts.h"
#include "gui/BiteDialog.h"
#include "gui/CommPortDialog.h"
#include "gui/MainWindow.h"
#include "gui/ProgressDialog.h"
#include "gui/RssPanel.h"
#include "gui/ToolbarImages.h"
#include "koralapi/DatabaseTransfer.h"
#include "koralapi/RadioRecords.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QThread>

#include <cstring>
#include <filesystem>

namespace koral {

namespace {

QString qs(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

std::filesystem::path dataDirectory(const MainWindowOptions& options)
{
    QString dir = options.dataDirectory;
    if (dir.isEmpty())
        dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(dir);
    return std::filesystem::path(dir.toStdString());
}

using Toggle = ViewCommands::Toggle;
using Command = ViewCommands::Command;

struct ToggleBinding
{
    const char* action;
    Toggle toggle;
    Command command;
};
constexpr ToggleBinding kToggles[] = {
    {"squelch", Toggle::Squelch, Command::Squelch},
    {"monitor", Toggle::Monitor, Command::Monitor},
    {"noiseBlanker", Toggle::NoiseBlanker, Command::NoiseBlanker},
    {"attenuator", Toggle::Attenuator, Command::Attenuator},
    {"clipper", Toggle::Clipper, Command::Clipper},
};

} // namespace

RadioController::RadioController(MainWindow& window, const MainWindowOptions& options,
                                 QObject* parent)
    : QObject(parent), m_window(window), m_link(window.notifier(), m_flags, m_trace),
      m_commands(m_link, m_view, m_flags, window.notifier(), m_trace),
      m_transfer(m_link, m_commands, m_view, m_flags, m_records, window.notifier(), m_trace),
      m_calls(dataDirectory(options)),
      m_dispatcher(m_link, m_commands, m_view, m_flags, m_calls, window.notifier())
{
    m_link.initSession();
    if (options.port > 0 || options.baud > 0)
        m_link.changeRadioLink(options.port > 0 ? options.port : m_link.settings().commPort,
                               options.baud > 0 ? options.baud : m_link.settings().baudRate);
    m_progress = std::make_unique<ProgressDialog>([this] { m_transfer.cancel(); }, &window);
    m_transfer.setProgressView(m_progress.get());
    connect(&m_link, &RadioLink::incomingMessage, &m_dispatcher,
            &MessageDispatcher::onIncomingMessage);
    connect(&m_link, &RadioLink::waitCursorChanged, this, [](bool on) {
        if (on)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    });
    connect(&m_commands, &ViewCommands::statusTextChanged, this,
            [this](const std::string& text) { emit statusText(QString::fromStdString(text)); });
    connect(&m_commands, &ViewCommands::noticeChanged, this, &RadioController::showNotice);
    connect(&m_commands, &ViewCommands::busyChanged, this, &RadioController::stateChanged);
    connect(&m_commands, &ViewCommands::radioCommandsEnabledChanged, this,
            &RadioController::stateChanged);
    connect(&m_commands, &ViewCommands::toggleChanged, this, &RadioController::stateChanged);
    connect(&m_transfer, &DatabaseTransfer::softwareClassChanged, this,
            &RadioController::stateChanged);
    connect(&m_transfer, &DatabaseTransfer::storeEditsRequested, this,
            &RadioController::storePanelIntoRecords);
    bindCommands();
}

RadioController::~RadioController()
{
    m_link.closeRadioLink();
}

void RadioController::bindCommands()
{
    for (const ToggleBinding& binding : kToggles) {
        QAction* action = m_window.command(binding.action);
        const Toggle toggle = binding.toggle;
        connect(action, &QAction::triggered, this, [this, toggle] {
            m_commands.toggle(toggle);
            updateCommands();
        });
    }
    connect(m_window.command("readDevice"), &QAction::triggered, this,
            &RadioController::readDevice);
    connect(m_window.command("writeDevice"), &QAction::triggered, this,
            &RadioController::writeDevice);
    connect(m_window.command("reset"), &QAction::triggered, this, [this] {
        m_commands.performReset();
        updateCommands();
    });
    connect(m_window.command("remote"), &QAction::triggered, this, [this] {
        m_commands.toggleRemoteMode();
        updateCommands();
    });
}

void RadioController::showNotice(ViewCommands::Notice notice, bool shown)
{
    if (!shown) {
        if (notice != ViewCommands::Notice::Startup)
            m_window.closeNotice();
        return;
    }
    switch (notice) {
    case ViewCommands::Notice::Startup:
        break; // the window shows its own start-up notice
    case ViewCommands::Notice::PleaseWait:
        m_window.showNotice(qs(text::kPleaseWait), 0);
        break;
    case ViewCommands::Notice::Completed:
        m_window.showNotice(qs(text::kOperationCompleted), ViewCommands::kNoticeMilliseconds);
        break;
    }
}

void RadioController::communicationPortSetup()
{
    m_commands.setRadioCommandsEnabled(false);
    m_commands.beginBusy();
    const int port = m_link.settings().commPort;
    const int baud = m_link.settings().baudRate;
    CommPortDialog dialog(m_link, m_window.notifier(), &m_window);
    connect(&dialog, &CommPortDialog::helpRequested, &m_window, &MainWindow::openHelp);
    if (dialog.exec() != QDialog::Accepted) {
        // A "Check" with other settings is undone.
        m_commands.setStatusText(std::string(text::byId(text::id::CommandInProgress)));
        m_link.changeRadioLink(port, baud);
    }
    m_commands.endBusy();
    m_commands.setStatusText({});
    m_view.radioReady = m_link.testCommunication() != 0;
    if (m_view.radioReady && m_view.databaseRead)
        m_commands.setRadioCommandsEnabled(true);
    updateCommands();
    emit stateChanged();
}

void RadioController::runBite()
{
    BiteDialog dialog(m_link, m_window.notifier(), m_records.radio, &m_window);
    m_bite = &dialog;
    const auto connection =
        connect(&m_dispatcher, &MessageDispatcher::selfTestReport, &dialog, &BiteDialog::onReport);
    emit biteOpened(&dialog);
    dialog.exec();
    disconnect(connection);
    m_bite = nullptr;
}

void RadioController::startUp()
{
    m_view.radioReady = false;
    m_commands.setRadioCommandsEnabled(false);
    m_commands.beginBusy();
    if (m_link.openRadioLink()) {
        const int exchanged = m_commands.remoteModeExchange();
        m_commands.setRadioCommandsEnabled(true);
        if (exchanged) {
            const int result = m_transfer.readDevice();
            if (result > 0) {
                m_view.radioReady = true;
                m_commands.setRadioCommandsEnabled(true);
                takeRecordsIntoPanel();
            }
        }
    }
    m_commands.endBusy();
    updateCommands();
    emit stateChanged();
}

void RadioController::shutDown()
{
    m_link.closeRadioLink();
    m_link.saveCommPortFile();
}

void RadioController::readDevice()
{
    if (m_view.busy || !m_window.rssPanel()->maybeSave())
        return;
    m_transfer.readDeviceCommand();
    if (m_view.radioReady)
        takeRecordsIntoPanel();
    updateCommands();
    emit stateChanged();
}

void RadioController::writeDevice()
{
    if (m_view.busy)
        return;
    m_transfer.writeDeviceCommand();
    updateCommands();
    emit stateChanged();
}

void RadioController::takeRecordsIntoPanel()
{
    RssPanel* panel = m_window.rssPanel();
    RssDocument& document = panel->document();
    document.record = m_records.radio;
    document.ccirPresent = m_flags.ccirMode;
    if (document.ccirPresent) {
        // The radio keeps the numbers most significant byte first.
        for (std::size_t i = 0; i < document.ccirNumbers.size(); ++i)
            document.ccirNumbers[i] = std::uint16_t(m_records.channelNames[2 * i] << 8 |
                                                    m_records.channelNames[2 * i + 1]);
    }
    document.isb = m_dispatcher.isbMode() == 1;
    document.markClean();
    panel->setIsbOffered(m_dispatcher.isbMode() == 1);
    panel->refresh();
}

void RadioController::storePanelIntoRecords()
{
    const RssDocument& document = m_window.rssPanel()->document();
    m_records.radio = document.record;
    if (document.ccirPresent) {
        for (std::size_t i = 0; i < document.ccirNumbers.size(); ++i) {
            m_records.channelNames[2 * i] = std::uint8_t(document.ccirNumbers[i] >> 8);
            m_records.channelNames[2 * i + 1] = std::uint8_t(document.ccirNumbers[i] & 0xFF);
        }
    }
}

void RadioController::updateCommands()
{
    for (const ToggleBinding& binding : kToggles) {
        QAction* action = m_window.command(binding.action);
        action->setEnabled(m_commands.isEnabled(binding.command) && m_commands.toolbarEnabled());
        action->setChecked(m_commands.isChecked(binding.command));
        action->setIcon(ToolbarImages::icon(m_commands.imageIndex(binding.toggle)));
    }
    const bool idle = !m_view.busy;
    m_window.command("readDevice")->setEnabled(m_commands.isEnabled(Command::ReadDevice));
    m_window.command("writeDevice")->setEnabled(idle && m_link.isPortOpen());
    m_window.command("reset")->setEnabled(m_commands.isEnabled(Command::Reset));
    m_window.command("commPort")->setEnabled(m_commands.isEnabled(Command::CommPortSetup));
    m_window.command("remote")->setChecked(m_commands.isChecked(Command::RemoteControl));
    m_window.command("bite")->setEnabled(idle && m_commands.isReady());
    m_window.command("exit")->setEnabled(m_commands.closeEnabled());
}

QString RadioController::serialPane() const
{
    return QString::fromStdString(m_commands.serialPane());
}

QString RadioController::codePane() const
{
    return QString::fromStdString(m_commands.codePane());
}

QString RadioController::comPane() const
{
    return QString::fromStdString(m_commands.comPane());
}

bool RadioController::isConnected() const
{
    return m_link.isPortOpen() && m_view.radioReady;
}

bool RadioController::writeSection(const dbase& record, int offset, int length)
{
    // The radio keeps its numbers big-endian: convert a copy of the section for the write.
    std::array<std::uint8_t, sizeof(dbase)> bytes{};
    std::memcpy(bytes.data(), &record, sizeof(dbase));
    std::span<std::uint8_t> section(bytes.data() + offset, std::size_t(length));
    convertByteOrder(TransferTarget::Radio, section, std::size_t(offset));
    return WriteRADIOMemorySection(m_link.engine(), section.data(), offset, unsigned(length)) != 0;
}

bool RadioController::writeChannels(const dbase& record)
{
    m_commands.beginBusy();
    const bool written =
        StartRADIOProgramming(m_link.engine()) &&
        writeSection(record, int(offsetof(dbase, channels)), int(sizeof record.channels)) &&
        StopRADIOProgramming(m_link.engine());
    m_commands.endBusy();
    if (written)
        m_records.radio.channels = record.channels;
    return written;
}

bool RadioController::writeGroups(const dbase& record)
{
    m_commands.beginBusy();
    const bool written =
        StartRADIOProgramming(m_link.engine()) &&
        writeSection(record, int(offsetof(dbase, groups)), int(sizeof record.groups)) &&
        StopRADIOProgramming(m_link.engine());
    m_commands.endBusy();
    if (written)
        m_records.radio.groups = record.groups;
    return written;
}

bool RadioController::programOptions(const dbase& record, int baudRate)
{
    m_commands.beginBusy();
    bool written =
        StartRADIOProgramming(m_link.engine()) &&
        writeSection(record, int(offsetof(dbase, radioOptions)), int(sizeof record.radioOptions)) &&
        writeSection(record, 0, int(offsetof(dbase, parameters))) &&
        writeSection(record, int(offsetof(dbase, accessoryInstalled)), 2) &&
        StopRADIOProgramming(m_link.engine());
    if (written) {
        // The radio may have changed its baud rate: follow it.
        QThread::msleep(100);
        written = baudRate > 0 && m_link.changeRadioLink(m_link.settings().commPort, baudRate);
    }
    m_commands.endBusy();
    if (written) {
        std::memcpy(reinterpret_cast<unsigned char*>(&m_records.radio), &record,
                    offsetof(dbase, parameters));
        m_records.radio.radioOptions = record.radioOptions;
        m_records.radio.accessoryInstalled = record.accessoryInstalled;
        m_records.radio.tuner = record.tuner;
    }
    emit stateChanged();
    return written;
}

} // namespace koral
