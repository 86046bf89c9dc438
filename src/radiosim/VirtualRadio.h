#pragma once

#include "koralapi/CRadioMessage.h"
#include "koralapi/LinkLayer.h"
#include "radiosim/ConsoleCommand.h"
#include "radiosim/FaultPlan.h"
#include "radiosim/FrontPanel.h"
#include "radiosim/LineDevice.h"
#include "radiosim/RadioDatabases.h"
#include "radiosim/RadioModel.h"
#include "radiosim/RadioState.h"
#include "radiosim/RadioTransfers.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <array>
#include <chrono>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string_view>

namespace koral::radiosim {

class RadioLine;

// What a radio keeps while it is switched off or its cable is unplugged.
struct RadioMemory
{
    RadioDatabases databases;
    RadioModel model;
    unsigned activeChannel = 1;
};

// A KORAL radio without the radio: it holds the databases, its model and its live state,
// answers every request of the link protocol through a table of handlers, sends the reports a
// radio sends on its own, plays events and faults on command, and paces its bytes at the baud
// rate. It lives in one thread and never blocks.
class VirtualRadio : public QObject
{
    Q_OBJECT
public:
    // `line` is not owned and must outlive the radio (or be its parent).
    explicit VirtualRadio(RadioLine* line, QObject* parent = nullptr);
    ~VirtualRadio() override;

    // The line's baud rate: the link's time bounds follow it, and so, when `paced`, does the
    // pace of the bytes in both directions (otherwise they pass as fast as they come).
    void setBaud(unsigned baud, bool paced = true);
    unsigned baud() const { return m_baud; }
    bool paced() const { return m_device.baud() != 0; }
    // Time between the steps of a played sequence (call progress, test progress, scanning).
    void setStepInterval(std::chrono::milliseconds interval) { m_stepMs = int(interval.count()); }

    RadioDatabases& databases() { return m_db; }
    const RadioDatabases& databases() const { return m_db; }
    RadioModel& model() { return m_model; }
    const RadioState& state() const { return m_state; }
    const FaultPlan& faults() const { return m_faults; }

    RadioMemory memory() const { return {m_db, m_model, m_state.activeChannel}; }
    // Takes over what another radio kept, and comes up on it as after switching it on.
    void restore(const RadioMemory& memory);
    // Called from the destructor, while the radio is still whole (e.g. to keep its memory).
    void setOnClose(std::function<void(const VirtualRadio&)> onClose)
    {
        m_onClose = std::move(onClose);
    }

    // Brings the radio up as after switching it on: live state from the databases, nothing
    // in progress. Databases and model stay.
    void powerCycle();
    // A reset by command: as a power cycle, but the program stays in remote control.
    void restart();

    void play(const RadioEvent& event);
    void inject(const FaultCommand& fault) { m_faults.apply(fault); }
    void clearFaults();
    void setSelfTestOutcome(const SelfTestOutcome& outcome);

    // Carries out a console command and returns what to tell the operator. Quit is the
    // caller's to act on.
    QString execute(const ConsoleCommand& command);
    // The same from any thread: runs in the radio's thread and waits for it there (never call
    // it from a thread the radio's thread waits for).
    QString executeFromAnyThread(const ConsoleCommand& command);
    QString statusText() const;

signals:
    void requestHandled(int opcode);
    void reported(int opcode);
    void lineDropped();

private:
    using Handler = void (VirtualRadio::*)(const CRadioMessage&);
    struct Route
    {
        int opcode;
        Handler handler;
    };
    static const std::array<Handler, 256>& routes();

    enum class Activity
    {
        Call,
        LinkQuality,
        SelfTest,
        Count,
    };

    // After a database write or memory programming: the radio restarts on its new memory,
    // and a paced line moves to a baud rate the write changed.
    void takeNewMemoryIntoUse(std::uint8_t previousBaudIndex);
    std::uint8_t configuredBaudIndex() const;

    // Incoming messages and outgoing reports.
    void onMessage(const QByteArray& wire);
    void send(const CRadioMessage& message);
    void report(int opcode, std::initializer_list<std::uint8_t> payload);
    void reportText(int opcode, std::uint8_t kind, std::string_view text);
    void reportVersion(int opcode, std::string_view version);
    void reject(int opcode);
    void commandResult(int request, int target, std::uint8_t status);
    void schedule(Activity activity, int steps, std::function<void()> action);
    void cancel(Activity activity);
    void feedReadBlocks();

    // State changes shared by requests, front-panel keys and console events.
    bool selectChannel(unsigned channel);
    void startGroupScan(unsigned group);
    void startAleScan(unsigned net);
    // Switches the ALE on or off and, when that changes it, tells the program (88).
    void setAleOn(bool on);
    void stopScan();
    void scanStep();
    bool scanMember(unsigned channel) const;
    void moveToNextScanChannel();
    void reportChannel(std::uint8_t kind);
    void reportScanList();
    void setMonitor(bool on);
    void pressKey(int key);
    // Sends the display's lines: all of them, or those that changed since the last report.
    void reportDisplay(bool whole);
    // After anything that may change the display: the changed lines, when the program asked.
    void refreshDisplay();
    void placeCall(int opcode, const CRadioMessage& request);
    void runLinkQuality(bool sounding, unsigned steps, std::vector<unsigned> channels);
    void runSelfTest(SelfTestType type);
    void incomingCall(const IncomingCall& call);
    void linkResult(std::uint8_t code);
    std::vector<unsigned> callChannels(const CRadioMessage& request) const;
    std::uint8_t channelScore(unsigned channel) const;
    bool knownAddress(std::string_view address) const;
    RadioTransfers::Memory transferMemory(int target, bool write);

    bool refuseInCcirMode(const CRadioMessage& request);

    // Request handlers, one per opcode (see routes()).
    void onSelfTest(const CRadioMessage& request);
    void onBiDirectional(const CRadioMessage& request);
    void onCall(const CRadioMessage& request);
    void onSounding(const CRadioMessage& request);
    void onAleMode(const CRadioMessage& request);
    void onSetActiveChannel(const CRadioMessage& request);
    void onSetSquelch(const CRadioMessage& request);
    void onSetMonitor(const CRadioMessage& request);
    void onSetDspParameters(const CRadioMessage& request);
    void onSetClarifier(const CRadioMessage& request);
    void onReset(const CRadioMessage& request);
    void onEnterRemoteMode(const CRadioMessage& request);
    void onSpecialReport(const CRadioMessage& request);
    void onQuerySquelch(const CRadioMessage& request);
    void onQueryMonitor(const CRadioMessage& request);
    void onQueryDspParameters(const CRadioMessage& request);
    void onQueryClarifier(const CRadioMessage& request);
    void onQueryOperationMode(const CRadioMessage& request);
    void onQueryAleOnOff(const CRadioMessage& request);
    void onQuerySupportMode(const CRadioMessage& request);
    void onQueryCcirMode(const CRadioMessage& request);
    void onQueryIsbMode(const CRadioMessage& request);
    void onQueryActiveChannel(const CRadioMessage& request);
    void onSetScanMode(const CRadioMessage& request);
    void onReplaceLinkChannel(const CRadioMessage& request);
    void onAbortLink(const CRadioMessage& request);
    void onAcceptLink(const CRadioMessage& request);
    void onControlHeadKey(const CRadioMessage& request);
    void onQueryProgramWord(const CRadioMessage& request);
    void onQueryCurrentChannel(const CRadioMessage& request);
    void onProgramChannel(const CRadioMessage& request);
    void onQuerySoftwareVersion(const CRadioMessage& request);
    void onQueryRadioSoftwareVersion(const CRadioMessage& request);
    void onDatabaseRead(const CRadioMessage& request);
    void onDatabaseWrite(const CRadioMessage& request);
    void onTransferAbort(const CRadioMessage& request);
    void onDataBlock(const CRadioMessage& request);
    void onStartProgramming(const CRadioMessage& request);
    void onStopProgramming(const CRadioMessage& request);

    RadioDatabases m_db;
    RadioModel m_model;
    RadioState m_state;
    FaultPlan m_faults;
    SelfTestPlan m_selfTestPlan;
    FrontPanel m_panel;
    FrontPanel::Lines m_reportedLines;
    RadioTransfers m_transfers;
    // The memory being programmed; taken into use when programming stops.
    std::optional<std::array<std::uint8_t, RadioDatabases::kRadioSize>> m_programmedMemory;

    LineDevice m_device;
    LinkLayer m_link;
    QTimer m_scanTimer;
    int m_stepMs = 400;
    unsigned m_baud = 9600;
    std::function<void(const VirtualRadio&)> m_onClose;
    std::array<unsigned, std::size_t(Activity::Count)> m_generation{};
};

} // namespace koral::radiosim
