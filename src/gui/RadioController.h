#pragma once

#include "gui/RssRadio.h"
#include "session/ControlCenterSession.h"
#include "session/RadioComparison.h"

#include <QObject>
#include <QString>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace koral {

class BackupsDialog;
class BiteDialog;
class CompareDialog;
class MainWindow;
class ProgressDialog;
struct MainWindowOptions;

// Binds the main window to the radio session: the start-up exchange, Read and Write Device
// under the progress dialog, the toolbar toggles with their images and enable rules, the
// status panes, the notices, the busy state, the Communication Ports and BITE dialogs, and
// the section writes of the RSS panel.
class RadioController : public QObject, public RssRadio
{
    Q_OBJECT
public:
    RadioController(MainWindow& window, const MainWindowOptions& options, QObject* parent);
    ~RadioController() override;

    // Brings every radio command's enabled and checked state up to date.
    void updateCommands();

    void readDevice();
    // Reads what the radio holds, shows what the write would change and asks; on Write keeps
    // the radio's contents among the backups, then writes.
    void writeDevice();
    // Reads what the radio holds and shows how the window differs from it.
    void compareWithRadio();
    // Opens a kept set in the panels, then Write Device.
    void restoreBackup();
    void communicationPortSetup();
    void runBite();

    bool ccirMode() const { return m_session.flags().ccirMode; }
    int softwareClass() const { return m_session.flags().softwareClass; }
    bool isBusy() const { return m_session.view().busy; }
    QString serialPane() const;
    QString codePane() const;
    QString comPane() const;

    ControlCenterSession& session() { return m_session; }
    ProgressDialog* progressDialog() const { return m_progress.get(); }
    const std::filesystem::path& backupFolder() const { return m_backupFolder; }
    // How many sets of backups are kept (a user setting).
    static int backupsKept();
    static void setBackupsKept(int keep);

    // RssRadio
    bool isConnected() const override;
    int channelMode() const override;
    bool writeChannels(dbase& document, std::span<const channel, kChannelCount> channels) override;
    bool writeGroups(dbase& document, std::span<const Group, kGroupCount> groups) override;
    bool programOptions(dbase& document, const dbase& edited) override;

signals:
    void stateChanged();
    void statusText(const QString& text);
    // The BITE dialog is about to run (tests drive it from here).
    void biteOpened(koral::BiteDialog* dialog);
    // A comparison or the backup list is about to show (tests answer them from here).
    void compareOpened(koral::CompareDialog* dialog);
    void backupsOpened(koral::BackupsDialog* dialog);

private:
    void bindCommands();
    void takeRecordsIntoPanel();
    void takeAleAndCcirIntoPanels();
    void storePanelIntoRecords();
    // Reads what the radio holds into `radio`, then stores the panels into the session's
    // records as a write would send them: the differences, or nothing when the read failed.
    std::optional<std::vector<std::string>> differencesFromRadio(SessionRecords& radio);
    bool keepBackup(const SessionRecords& radio);
    // How the radio keeps its records, as it last said.
    RecordShape recordShape() const;
    void showNotice(ViewCommands::Notice notice, bool shown);
    // A section write between the start and the end of programming mode.
    bool programmed(const std::function<int()>& write);

    MainWindow& m_window;
    // mutable: the session hands out its parts only through non-const accessors.
    mutable ControlCenterSession m_session;
    std::unique_ptr<ProgressDialog> m_progress;
    std::filesystem::path m_backupFolder;
};

} // namespace koral
