#include "gui/RadioController.h"
#include "gui/QtText.h"

#include "aledb/ccir_dbase.h"
#include "common/Texts.h"
#include "gui/AlePanel.h"
#include "gui/BackupsDialog.h"
#include "gui/BiteDialog.h"
#include "gui/CcirPanel.h"
#include "gui/CommPortDialog.h"
#include "gui/CompareDialog.h"
#include "gui/MainWindow.h"
#include "gui/ProgressDialog.h"
#include "gui/RssPanel.h"
#include "gui/ToolbarImages.h"
#include "gui/WaitCursor.h"
#include "koralapi/DatabaseTransfer.h"
#include "radiodb/RadioDiff.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>

#include <cstring>
#include <filesystem>

namespace koral {

namespace {

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
    : QObject(parent), m_window(window), m_session(window.notifier(), dataDirectory(options)),
      m_backupFolder(dataDirectory(options) / "backups")
{
    m_progress =
        std::make_unique<ProgressDialog>([this] { m_session.transfer().cancel(); }, &window);
    m_session.transfer().setProgressView(m_progress.get());

    ViewCommands& commands = m_session.commands();
    connect(&m_session.link(), &RadioLink::waitCursorChanged, this, [](bool on) {
        if (on)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    });
    connect(&commands, &ViewCommands::statusTextChanged, this,
            [this](const std::string& text) { emit statusText(QString::fromStdString(text)); });
    connect(&commands, &ViewCommands::noticeChanged, this, &RadioController::showNotice);
    connect(&commands, &ViewCommands::busyChanged, this, &RadioController::stateChanged);
    connect(&commands, &ViewCommands::radioCommandsEnabledChanged, this,
            &RadioController::stateChanged);
    connect(&commands, &ViewCommands::toggleChanged, this, &RadioController::stateChanged);
    connect(&m_session.transfer(), &DatabaseTransfer::softwareClassChanged, this,
            &RadioController::stateChanged);
    connect(&m_session.transfer(), &DatabaseTransfer::storeEditsRequested, this,
            &RadioController::storePanelIntoRecords);
    connect(&m_session, &ControlCenterSession::startUpFinished, this, [this] {
        if (m_session.view().databaseRead)
            takeRecordsIntoPanel();
        emit stateChanged();
    });
    connect(this, &RadioController::stateChanged, this, &RadioController::updateCommands);
    bindCommands();

    if (options.connectAtStart)
        m_session.initSession(std::filesystem::current_path(), options.port, options.baud);
}

RadioController::~RadioController() = default;

void RadioController::bindCommands()
{
    ViewCommands& commands = m_session.commands();
    for (const ToggleBinding& binding : kToggles) {
        const Toggle toggle = binding.toggle;
        connect(m_window.command(binding.action), &QAction::triggered, this,
                [this, &commands, toggle] {
                    commands.toggle(toggle);
                    updateCommands();
                });
    }
    connect(m_window.command("readDevice"), &QAction::triggered, this,
            &RadioController::readDevice);
    connect(m_window.command("writeDevice"), &QAction::triggered, this,
            &RadioController::writeDevice);
    connect(m_window.command("reset"), &QAction::triggered, this, [this, &commands] {
        commands.performReset();
        updateCommands();
    });
    connect(m_window.command("remote"), &QAction::triggered, this, [this, &commands] {
        commands.toggleRemoteMode();
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

void RadioController::readDevice()
{
    if (isBusy() || !m_window.maybeSaveDocuments())
        return;
    const WaitCursor wait;
    if (m_session.transfer().readDeviceCommand())
        takeRecordsIntoPanel();
    emit stateChanged();
}

void RadioController::writeDevice()
{
    if (isBusy())
        return;
    RssPanel* panel = m_window.rssPanel();
    if (panel->document().isEmpty() &&
        m_window.notifier().ask(text::kWriteEmptyDatabase, Buttons::YesNo, Icon::Warning) !=
            Answer::Yes)
        return;
    auto radio = std::make_unique<SessionRecords>();
    const auto differences = differencesFromRadio(*radio);
    if (!differences) {
        emit stateChanged();
        return;
    }
    CompareDialog dialog(*differences, CompareDialog::Purpose::Write, &m_window);
    emit compareOpened(&dialog);
    if (dialog.exec() != QDialog::Accepted || !keepBackup(*radio)) {
        // Nothing was written: the records hold what the radio holds.
        m_session.records() = *radio;
        emit stateChanged();
        return;
    }
    if (m_session.transfer().writeDeviceCommand()) {
        // The radio now holds what the window shows.
        panel->document().markClean();
        emit panel->documentChanged();
        AlePanel* ale = m_window.alePanel();
        if (ale->document().known.database) {
            ale->document().markClean();
            emit ale->documentChanged();
        }
        CcirPanel* ccir = m_window.ccirPanel();
        if (ccir->document().known && ccirMode()) {
            ccir->document().markClean();
            emit ccir->documentChanged();
        }
    }
    emit stateChanged();
}

void RadioController::compareWithRadio()
{
    if (isBusy())
        return;
    auto radio = std::make_unique<SessionRecords>();
    const auto differences = differencesFromRadio(*radio);
    if (differences) {
        m_session.records() = *radio;
        CompareDialog dialog(*differences, CompareDialog::Purpose::Show, &m_window);
        emit compareOpened(&dialog);
        dialog.exec();
    }
    emit stateChanged();
}

std::optional<std::vector<std::string>> RadioController::differencesFromRadio(SessionRecords& radio)
{
    DatabaseTransfer& transfer = m_session.transfer();
    if (!transfer.readForComparison()) {
        m_session.commands().setStatusText(
            std::string(transfer.wasCancelled() ? text::kCompareCancelled : text::kCompareNotRead));
        return std::nullopt;
    }
    radio = m_session.records();
    storePanelIntoRecords();
    return writeDifferences(radio, m_session.records(), recordShape());
}

RecordShape RadioController::recordShape() const
{
    return {m_session.dispatcher().isbMode() == 1, ccirMode(),
            m_session.flags().aleGlobalSupported};
}

bool RadioController::keepBackup(const SessionRecords& radio)
{
    RadioBackups backups(m_backupFolder, backupsKept());
    std::string error;
    if (const auto kept =
            backUp(backups, radio, recordShape(), std::chrono::system_clock::now(), error)) {
        m_session.commands().setStatusText(
            text::format(text::kBackupKept.data(), kept->string().c_str()));
        return true;
    }
    return m_window.notifier().ask(text::format(text::kBackupFailed.data(), error.c_str()),
                                   Buttons::YesNo, Icon::Warning) == Answer::Yes;
}

void RadioController::restoreBackup()
{
    if (isBusy())
        return;
    RadioBackups backups(m_backupFolder, backupsKept());
    BackupsDialog dialog(backups.folder(), backups.list(), backups.keep(), &m_window);
    emit backupsOpened(&dialog);
    const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.chosenSet().empty();
    setBackupsKept(dialog.keep());
    if (!chosen || !m_window.maybeSaveDocuments())
        return;
    // The window shows the backup, so what Write Device compares and sends is what it shows.
    std::filesystem::path set = dialog.chosenSet();
    if (!m_window.rssPanel()->openPath(QString::fromStdString(set.string())))
        return;
    for (auto [extension, document] :
         {std::pair<const char*, DocumentPanel*>{".ale", m_window.alePanel()},
          std::pair<const char*, DocumentPanel*>{".ccr", m_window.ccirPanel()}}) {
        set.replace_extension(extension);
        if (std::filesystem::exists(set) &&
            !document->openPath(QString::fromStdString(set.string())))
            return;
    }
    writeDevice();
}

int RadioController::backupsKept()
{
    return std::max(1, QSettings().value("backups/keep", RadioBackups::kDefaultKeep).toInt());
}

void RadioController::setBackupsKept(int keep)
{
    QSettings().setValue("backups/keep", std::max(1, keep));
}

void RadioController::takeRecordsIntoPanel()
{
    RssPanel* panel = m_window.rssPanel();
    // The document is the radio's now, no longer the file's.
    RssDocument document;
    const SessionRecords& records = m_session.records();
    document.record = records.radio;
    document.ccirPresent = ccirMode();
    if (document.ccirPresent)
        document.ccirNumbers = fromChannelName(records.channelNames);
    document.isb = m_session.dispatcher().isbMode() == 1;
    document.markClean();
    panel->replaceDocument(document);
    panel->setIsbOffered(m_session.dispatcher().isbMode() == 1);
    panel->refresh();
    takeAleAndCcirIntoPanels();
}

void RadioController::takeAleAndCcirIntoPanels()
{
    const SessionRecords& records = m_session.records();
    AleDocument document;
    document.programme = {records.ale, records.globalMembers, records.extraOptions};
    document.identity = records.radio;
    document.known = {records.known.ale, records.known.globalMembers, records.known.extraOptions};
    document.markClean();
    AlePanel* panel = m_window.alePanel();
    panel->setSettings({m_session.flags().aleGlobalSupported, kChannelCount});
    panel->replaceDocument(document);

    CcirDocument ccir;
    ccir.record = records.ccir;
    ccir.known = records.known.ccir;
    ccir.markClean();
    m_window.ccirPanel()->replaceDocument(ccir);
}

void RadioController::storePanelIntoRecords()
{
    const RssDocument& document = m_window.rssPanel()->document();
    SessionRecords& records = m_session.records();
    const dbase radio = records.radio;
    records.radio = document.record;
    if (records.known.radio)
        keepRadioParameters(records.radio, radio);
    records.known.radio = true;
    if (document.ccirPresent) {
        records.known.channelNames = true;
        records.channelNames = toChannelName(document.ccirNumbers);
    }
    // The ALE programme goes as the panel shows it, and only the records that were read or
    // opened: the others stay unknown, so Write Device passes them over and says so.
    const AleDocument& ale = m_window.alePanel()->document();
    records.known.ale = ale.known.database;
    records.known.globalMembers = ale.known.globalMembers;
    records.known.extraOptions = ale.known.extraOptions;
    if (ale.known.database)
        records.ale = ale.programme.database;
    if (ale.known.globalMembers)
        records.globalMembers = ale.programme.globalMembers;
    if (ale.known.extraOptions)
        records.extraOptions = ale.programme.extraOptions;
    const CcirDocument& ccir = m_window.ccirPanel()->document();
    records.known.ccir = ccir.known;
    if (ccir.known)
        records.ccir = ccir.record;
}

void RadioController::communicationPortSetup()
{
    CommPortEditor& editor = m_session.beginCommPortSetup();
    CommPortDialog dialog(editor, &m_window);
    connect(&dialog, &CommPortDialog::helpRequested, &m_window, &MainWindow::openHelp);
    m_session.endCommPortSetup(dialog.exec() == QDialog::Accepted);
    emit stateChanged();
}

void RadioController::runBite()
{
    BiteRunner& runner = m_session.bite();
    BiteDialog dialog(runner, m_session.records().radio, &m_window);
    emit biteOpened(&dialog);
    dialog.exec();
    emit stateChanged();
}

void RadioController::updateCommands()
{
    const ViewCommands& commands = m_session.commands();
    for (const ToggleBinding& binding : kToggles) {
        QAction* action = m_window.command(binding.action);
        action->setEnabled(commands.isEnabled(binding.command));
        action->setChecked(commands.isChecked(binding.command));
        action->setIcon(ToolbarImages::icon(commands.imageIndex(binding.toggle)));
    }
    const bool idle = !isBusy();
    m_window.command("readDevice")->setEnabled(commands.isEnabled(Command::ReadDevice));
    for (const char* name : {"writeDevice", "compareRadio", "restoreBackup"})
        m_window.command(name)->setEnabled(idle && m_session.link().isPortOpen());
    m_window.command("reset")->setEnabled(commands.isEnabled(Command::Reset));
    m_window.command("commPort")->setEnabled(commands.isEnabled(Command::CommPortSetup));
    m_window.command("remote")->setChecked(commands.isChecked(Command::RemoteControl));
    m_window.command("bite")->setEnabled(idle && commands.isReady());
    m_window.command("exit")->setEnabled(commands.closeEnabled());
}

QString RadioController::serialPane() const
{
    return QString::fromStdString(m_session.commands().serialPane());
}

QString RadioController::codePane() const
{
    return QString::fromStdString(m_session.commands().codePane());
}

QString RadioController::comPane() const
{
    return QString::fromStdString(m_session.commands().comPane());
}

bool RadioController::isConnected() const
{
    return m_session.link().isPortOpen() && m_session.view().radioReady;
}

int RadioController::channelMode() const
{
    return m_session.view().operationMode;
}

bool RadioController::programmed(const std::function<int()>& write)
{
    // The radio takes memory writes only in programming mode.
    RadioLink& link = m_session.link();
    m_session.commands().beginBusy();
    const bool written =
        StartRADIOProgramming(link.engine()) && write() && StopRADIOProgramming(link.engine());
    m_session.commands().endBusy();
    emit stateChanged();
    return written;
}

bool RadioController::writeChannels(dbase& document,
                                    std::span<const channel, kChannelCount> channels)
{
    return programmed([&] { return m_session.memory().writeChannels(document, channels); });
}

bool RadioController::writeGroups(dbase& document, std::span<const Group, kGroupCount> groups)
{
    return programmed([&] { return m_session.memory().writeGroups(document, groups); });
}

bool RadioController::programOptions(dbase& document, const dbase& edited)
{
    MemoryProgramming::Options options;
    options.options = edited.radioOptions;
    std::memcpy(options.head.data(), reinterpret_cast<const unsigned char*>(&edited),
                options.head.size());
    options.accessoryInstalled = edited.accessoryInstalled;
    options.tuner = edited.tuner;
    options.baudIndex = edited.radioOptions.baudRate;
    m_session.commands().beginBusy();
    const bool written = m_session.memory().programOptions(document, options) == 1;
    m_session.commands().endBusy();
    emit stateChanged();
    return written;
}

} // namespace koral
