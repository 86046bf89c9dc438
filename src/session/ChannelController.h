#pragma once

#include "koralapi/CRadioMessage.h"
#include "radiodb/ChannelConfigEditor.h"
#include "radiodb/channel.h"
#include "session/SessionRecords.h"
#include "session/SessionState.h"

#include <QObject>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace koral {

class DatabaseTransfer;
class Notifier;
class RadioLink;

// The channel and scan controls of the Computer Interface panel without a window: the active
// channel list that follows the radio, the working copy of the active channel with its
// frequency texts and five settings, Simplex/Duplex, Program Channel, Priority, and the scan
// state machine with its scan list. Every change goes to the radio at once; only the
// frequency texts wait for Program Channel.
class ChannelController : public QObject
{
    Q_OBJECT
public:
    using List = ChannelConfigEditor::List;
    enum class ScanMode
    {
        Ale = 0,    // the radio's ALE is on: the ALE nets are scanned
        Groups = 1, // ALE off: the scan groups A-E are scanned
    };
    // The scan-button state.
    static constexpr int kNoScanControl = -1;
    static constexpr int kNotScanning = 0;
    static constexpr int kScanning = 1;
    // The wait after programming a channel, in pump rounds of 10 ms.
    static constexpr int kProgramSettleRounds = 600;

    ChannelController(RadioLink& link, ViewState& view, CapabilityFlags& flags,
                      SessionRecords& records, DatabaseTransfer& transfer, Notifier& notifier,
                      QObject* parent = nullptr);

    // --- the channel list ---
    const std::vector<int>& channels() const;
    int currentRow() const { return m_currentRow; }
    // The radio channel number of the current row (0 before the first read).
    int currentChannel() const;
    // Makes the row's channel the radio's active channel and reads it back: 1 on success.
    // The current row stays when the radio does not answer.
    int selectRow(int row);
    // The channel with this text ("%d"); a text not listed changes nothing.
    int selectChannelText(std::string_view text);
    // Reads the active channel from the radio into the working copy.
    int readCurrentChannel();
    // After a database read: the list, the active channel and the scan state as read.
    void takeRadioState();
    // The radio reported a channel or scan change (46): the panel follows it.
    void onChannelReport(const CRadioMessage& message);
    // The radio reported its ALE state: outside a scan the scan mode (and with it the ALE
    // tabs) follows it at once; a running scan keeps its mode until it stops.
    void followAleState();

    // --- the channel's frequencies and settings ---
    const std::string& txText() const { return m_txText; }
    const std::string& rxText() const { return m_rxText; }
    void setTxText(std::string_view text) { m_txText = text; }
    void setRxText(std::string_view text) { m_rxText = text; }
    // An edit gained focus: Simplex takes that edit's frequency.
    void focusTx() { m_lastFocused = mhzOf(m_txText); }
    void focusRx() { m_lastFocused = mhzOf(m_rxText); }
    // An edit lost focus: false (after the message) when its frequency is rejected.
    bool commitTx();
    bool commitRx();
    bool isDuplex() const { return m_duplex; }
    void simplex();
    void duplex();
    ValueList entries(List list) const;
    int selectedIndex(List list) const;
    // Stores the row's value in the working copy; nothing is sent.
    void select(List list, int row);
    const channel& working() const { return m_working; }

    // --- commands ---
    // "&Program Channel": 1 when the radio took the working copy.
    int programChannel();
    // "&Priority": the priority channel becomes the active channel.
    int priority();
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    bool isProgramming() const { return m_programming; }
    bool programEnabled() const { return m_enabled && m_scanState != kScanning; }
    bool channelControlsShown() const { return m_scanState != kScanning; }

    // --- scanning ---
    int scanState() const { return m_scanState; }
    ScanMode scanMode() const { return m_scanMode; }
    void setScanMode(ScanMode mode) { m_scanMode = mode; }
    // "St&art Scan" / "St&op Scan": 1 when the radio took the request.
    int toggleScan();
    bool startScanEnabled() const { return m_scanState != kNoScanControl; }
    // The scan list pane: its title, its rows and the selected row.
    std::string_view scanListTitle() const;
    const std::vector<std::string>& scanList() const { return m_scanList; }
    int scanListRow() const;
    // The operator picked a group or net; a running group scan moves to it.
    void selectScanRow(int row);
    int selectedGroup() const { return m_group; }
    int selectedNet() const { return m_net; }
    // The channel the scan last reported (0 while not known).
    int scanChannel() const { return m_scanChannel; }

    // The radio's state in a few words: channel, scan and link (the call's part is
    // callStateText of ViewStatus).
    std::string channelStateText() const;
    std::string scanStateText() const;
    std::string linkStateText() const;

signals:
    // Anything the panel shows changed.
    void changed();
    void busyChanged(bool busy);
    // A channel was programmed: the channel tables elsewhere follow it.
    void channelProgrammed(int number);

private:
    static float mhzOf(const std::string& text);
    void load(const channel& record);
    void rejectTail();
    int queryOperationMode();
    void loadScanList();
    int sendActiveChannel(int number);
    void followActiveChannel(int number);
    ScanMode reportedScanMode() const;
    int rowOf(int number) const;

    RadioLink& m_link;
    ViewState& m_view;
    CapabilityFlags& m_flags;
    SessionRecords& m_records;
    DatabaseTransfer& m_transfer;
    Notifier& m_notifier;

    int m_currentRow = -1;
    channel m_working{};
    channel m_read{};
    std::string m_txText;
    std::string m_rxText;
    std::string m_txAccepted;
    std::string m_rxAccepted;
    float m_lastFocused = 0;
    bool m_duplex = false;
    bool m_enabled = false;
    bool m_programming = false;

    int m_scanState = kNoScanControl;
    bool m_scanActive = false;
    ScanMode m_scanMode = ScanMode::Groups;
    int m_firstQuery = 0;
    int m_group = 0;
    int m_net = 0;
    int m_scanChannel = 0;
    std::vector<std::string> m_scanList;
};

} // namespace koral
