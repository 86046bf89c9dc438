#pragma once

#include "koralapi/MessageEngine.h"
#include "session/ProgressCaption.h"
#include "session/SessionRecords.h"
#include "session/SessionState.h"

#include <QObject>

#include <string>
#include <vector>

namespace koral {

class Notifier;
class ProgressView;
class RadioLink;
class TraceWriter;
class ViewCommands;

// Reading the radio's databases into the session and writing them back, under the progress
// dialog: the capability queries, the software-version gate, the transfers in their fixed
// order, and the "Read Device" and "Write Device" commands around them.
class DatabaseTransfer : public QObject
{
    Q_OBJECT
public:
    DatabaseTransfer(RadioLink& link, ViewCommands& commands, ViewState& view,
                     CapabilityFlags& flags, SessionRecords& records, Notifier& notifier,
                     TraceWriter& trace, QObject* parent = nullptr);

    // The window that shows the progress; without one the work runs unseen.
    void setProgressView(ProgressView* view) { m_progressView = view; }

    // Runs the progress dialog for the current mode: 1 when it ended with OK, 0 otherwise
    // (also when one is already running: "LoadProgressDlg(): ProgressDlg problem!").
    int loadProgressDlg();
    TransferMode readWriteMode() const { return m_mode; }
    void setReadWriteMode(TransferMode mode) { m_mode = mode; }

    // The progress dialog's Cancel: the next progress callback stops the transfer.
    void cancel() { m_abort = true; }
    bool isRunning() const { return m_running; }
    // The library's callbacks while a dialog runs.
    int pumpCallback(int);
    int progressCallback(int value);
    int steps() const { return m_steps; }
    const std::string& caption() const { return m_caption; }

    // The read and write sequences the dialog runs (1 success, 0 failure).
    int readDataBases();
    int writeDataBases();
    // Reads the databases and brings the view up to date: the number of programmed channels
    // plus 1, or 0 on failure.
    int readDevice();
    // The commands of the panels' menus. Read answers whether the records now hold a whole
    // new read of the radio (also when the read as a command failed, with all 200 channels
    // programmed), Write whether the databases reached the radio.
    bool readDeviceCommand();
    bool writeDeviceCommand();
    // Reads what the radio holds into the records under the progress dialog, nothing more:
    // the view and the panels stay as they are. False when the read failed or was cancelled.
    bool readForComparison();
    // The operator cancelled the last transfer.
    bool wasCancelled() const { return m_abort; }
    // What the last write sent and what it passed over, as the operator names them.
    const std::vector<std::string>& written() const { return m_written; }
    const std::vector<std::string>& notWritten() const { return m_notWritten; }

    // The channel list of the Computer Interface panel: the programmed channels, rising, and
    // the radio's active channel.
    const std::vector<int>& programmedChannels() const { return m_programmedChannels; }
    int activeChannel() const { return m_activeChannel; }

    // How long the capability answers (which come through the incoming worker) are waited
    // for, in milliseconds.
    void setAnswerWaitMilliseconds(int ms) { m_answerWaitMs = ms; }

signals:
    void softwareClassChanged(int softwareClass);
    void globalMembersCleared();
    void ccirSelectionReset();
    void channelListChanged();
    void channelRefreshRequested();
    void panelsRefreshRequested();
    // The panels should store their edits into the records before a write.
    void storeEditsRequested();

private:
    int readWork();
    int writeWork();
    int capabilityQueries(bool readMode);
    void awaitAnswer(const std::atomic<int>& answers, int before);
    int queryByte(int (*build)(CRadioMessage*), int replyOpcode, int byteIndex, int& value);
    int fillChannelList();
    void updateCaption();
    PumpCallback pump();
    ProgressCallback progress();

    RadioLink& m_link;
    ViewCommands& m_commands;
    ViewState& m_view;
    CapabilityFlags& m_flags;
    SessionRecords& m_records;
    Notifier& m_notifier;
    TraceWriter& m_trace;
    ProgressView* m_progressView = nullptr;
    TransferMode m_mode = TransferMode::None;
    bool m_running = false;
    bool m_abort = false;
    int m_steps = 0;
    std::string m_caption;
    std::vector<int> m_programmedChannels;
    int m_activeChannel = 0;
    int m_answerWaitMs = 3000;
    std::vector<std::string> m_written;
    std::vector<std::string> m_notWritten;
};

} // namespace koral
