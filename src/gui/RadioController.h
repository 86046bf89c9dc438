#pragma once

#include "gui/RssRadio.h"
#include "session/CallStore.h"
#include "session/DatabaseTransfer.h"
#include "session/MessageDispatcher.h"
#include "session/RadioLink.h"
#include "session/SessionRecords.h"
#include "session/SessionState.h"
#include "session/TraceWriter.h"
#include "session/ViewCommands.h"

#include <QObject>
#include <QString>
#include <memory>

namespace koral {

class BiteDialog;
class MainWindow;
class ProgressDialog;
struct MainWindowOptions;

// Binds the main window to the radio session: the start-up exchange, Read and Write Device
// under the progress dialog, the toolbar toggles with their images and enable rules, the
// status panes, the notices, the busy state, and the section writes of the RSS panel.
class RadioController : public QObject, public RssRadio
{
    Q_OBJECT
public:
    RadioController(MainWindow& window, const MainWindowOptions& options, QObject* parent);
    ~RadioController() override;

    // The start-up exchange: open the link, enter remote mode and read the radio.
    void startUp();
    // Closes the link and keeps CommPort.txt and the call files.
    void shutDown();
    // Brings every radio command's enabled and checked state up to date.
    void updateCommands();

    void readDevice();
    void writeDevice();
    // "Communication Port Setup" and the BITE dialog.
    void communicationPortSetup();
    void runBite();

    bool ccirMode() const { return m_flags.ccirMode; }
    int softwareClass() const { return m_flags.softwareClass; }
    bool isBusy() const { return m_view.busy; }
    QString serialPane() const;
    QString codePane() const;
    QString comPane() const;

    RadioLink& link() { return m_link; }
    ViewCommands& commands() { return m_commands; }
    DatabaseTransfer& transfer() { return m_transfer; }
    SessionRecords& records() { return m_records; }
    CapabilityFlags& flags() { return m_flags; }
    ViewState& view() { return m_view; }
    ProgressDialog* progressDialog() const { return m_progress.get(); }

    // RssRadio
    bool isConnected() const override;
    bool writeChannels(const dbase& record) override;
    bool writeGroups(const dbase& record) override;
    bool programOptions(const dbase& record, int baudRate) override;

signals:
    void stateChanged();
    void statusText(const QString& text);
    // The BITE dialog is about to run (tests drive it from here).
    void biteOpened(koral::BiteDialog* dialog);

private:
    void bindCommands();
    void takeRecordsIntoPanel();
    void storePanelIntoRecords();
    void showNotice(ViewCommands::Notice notice, bool shown);
    bool writeSection(const dbase& record, int offset, int length);

    MainWindow& m_window;
    CapabilityFlags m_flags;
    ViewState m_view;
    SessionRecords m_records;
    TraceWriter m_trace;
    RadioLink m_link;
    ViewCommands m_commands;
    DatabaseTransfer m_transfer;
    CallStore m_calls;
    MessageDispatcher m_dispatcher;
    std::unique_ptr<ProgressDialog> m_progress;
    BiteDialog* m_bite = nullptr;
};

} // namespace koral
