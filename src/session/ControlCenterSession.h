#pragma once

#include "session/ActiveChannel.h"
#include "session/AleCallController.h"
#include "session/BiteRunner.h"
#include "session/CallStore.h"
#include "session/ChannelController.h"
#include "session/CommPortEditor.h"
#include "session/DatabaseTransfer.h"
#include "session/DspSlider.h"
#include "session/LinkQualityController.h"
#include "session/MemoryProgramming.h"
#include "session/MessageDispatcher.h"
#include "session/RadioLink.h"
#include "session/SessionRecords.h"
#include "session/SessionState.h"
#include "session/TraceWriter.h"
#include "session/ViewCommands.h"

#include <QObject>

#include <filesystem>
#include <memory>
#include <optional>

namespace koral {

class Notifier;

// The main view without its windows: one per process. It owns the radio link, the records
// read from the radio, the call lists and the view's state, and wires the parts together. A
// window binds to the parts (link(), commands(), dispatcher(), transfer(), bite(), ...), reads
// their state and follows their signals; message boxes go through the notifier.
class ControlCenterSession : public QObject
{
    Q_OBJECT
public:
    // `dataDirectory` keeps msg.txt, stack.txt and log.txt.
    ControlCenterSession(Notifier& notifier, std::filesystem::path dataDirectory,
                         QObject* parent = nullptr);
    // Closes the link, writes CommPort.txt to the start-up directory and saves the calls.
    ~ControlCenterSession() override;

    // Reads CommPort.txt from `startDirectory`, creates the engine, loads the call lists, shows
    // the start-up notice (for 4 s) and queues the start-up exchange, which runs once the event
    // loop turns (so the window is on the screen before the first connection attempt).
    // A port or baud rate above 0 replaces CommPort.txt's for this run only.
    int initSession(const std::filesystem::path& startDirectory = std::filesystem::current_path(),
                    int port = 0, int baud = 0);
    // The start-up exchange: opens the link, takes remote control and reads the radio.
    void startUpExchange();

    // "Communication Port Setup": begin returns the dialog's rules; end with the dialog's
    // answer (Cancel restores the link the dialog started from).
    CommPortEditor& beginCommPortSetup();
    void endCommPortSetup(bool accepted);

    Notifier& notifier() { return m_notifier; }
    CapabilityFlags& flags() { return m_flags; }
    ViewState& view() { return m_view; }
    SessionRecords& records() { return *m_records; }
    TraceWriter& trace() { return m_trace; }
    RadioLink& link() { return m_link; }
    ViewCommands& commands() { return m_commands; }
    MessageDispatcher& dispatcher() { return m_dispatcher; }
    DatabaseTransfer& transfer() { return m_transfer; }
    CallStore& calls() { return m_calls; }
    MemoryProgramming& memory() { return m_memory; }
    BiteRunner& bite() { return m_bite; }
    ActiveChannel& activeChannel() { return m_activeChannel; }
    ChannelController& channels() { return m_channels; }
    AleCallController& aleCalls() { return m_aleCalls; }
    LinkQualityController& linkQuality() { return m_linkQuality; }
    DspSlider& clarifier() { return m_clarifier; }
    DspSlider& notch() { return m_notch; }

signals:
    // The start-up exchange ended (ready or not).
    void startUpFinished(bool radioReady);
    // The channel display and the two channel lists should be redrawn.
    void channelDisplayRefreshRequested();

private:
    Notifier& m_notifier;
    CapabilityFlags m_flags;
    ViewState m_view;
    std::unique_ptr<SessionRecords> m_records;
    TraceWriter m_trace;
    CallStore m_calls;
    RadioLink m_link;
    ViewCommands m_commands;
    MessageDispatcher m_dispatcher;
    DatabaseTransfer m_transfer;
    MemoryProgramming m_memory;
    BiteRunner m_bite;
    ActiveChannel m_activeChannel;
    ChannelController m_channels;
    AleCallController m_aleCalls;
    LinkQualityController m_linkQuality;
    DspSlider m_clarifier;
    DspSlider m_notch;
    std::optional<CommPortEditor> m_commPortEditor;
    int m_setupPort = 0;
    int m_setupBaud = 0;
};

} // namespace koral
