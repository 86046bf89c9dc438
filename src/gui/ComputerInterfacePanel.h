#pragma once

#include "session/AleCallController.h"
#include "session/ChannelController.h"
#include "session/LinkQualityController.h"

#include <QPointer>
#include <QWidget>

#include <map>

class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTimer;

namespace koral {

class CallListDialog;
class ControlCenterSession;
class DspSliderDialog;
class IncomingCallDialog;
struct IncomingCall;

// Panel 0, where the operator works the radio: the channel controls (or, while the radio
// scans, the scan list) under the "Channel" tab, and the radio's state always in view. The
// rules live in ChannelController; this widget only binds its controls to it.
class ComputerInterfacePanel : public QWidget
{
    Q_OBJECT
public:
    explicit ComputerInterfacePanel(QWidget* parent = nullptr);

    // Binds the controls to the session's channel controller and view state.
    void bind(ControlCenterSession& session);

    // The radio's state in one line, as the status bar shows it.
    QString stateSummary() const;

    QComboBox* channelBox() const { return m_channel; }
    QLineEdit* txEdit() const { return m_tx; }
    QLineEdit* rxEdit() const { return m_rx; }
    QComboBox* settingBox(ChannelController::List list) const { return m_settings.at(list); }
    QPushButton* programButton() const { return m_program; }
    QPushButton* priorityButton() const { return m_priority; }
    QPushButton* startScanButton() const { return m_startScan; }
    QPushButton* stopScanButton() const { return m_stopScan; }
    QComboBox* scanListBox() const { return m_scanList; }
    QTabWidget* tabs() const { return m_tabs; }
    QComboBox* toBox() const { return m_to; }
    QComboBox* aleChannelBox() const { return m_aleChannel; }
    QComboBox* messageBox() const { return m_message; }
    QPushButton* sendButton() const { return m_send; }
    QPushButton* abortButton() const { return m_abort; }
    QLabel* callStatusLabel() const { return m_callStatus; }
    QGroupBox* scanListPane() const { return m_scanPane; }
    QPushButton* stackButton() const { return m_stack; }
    QPushButton* logButton() const { return m_log; }
    QPushButton* dialButton() const { return m_dial; }
    QLabel* channelValueLabel() const { return m_channelValue; }
    // The dialogs while they are open (null otherwise).
    IncomingCallDialog* incomingCallDialog() const;
    CallListDialog* callListDialog() const;
    DspSliderDialog* clarifierDialog() const { return m_clarifier; }
    DspSliderDialog* notchDialog() const { return m_notch; }
    // The "Update Link Quality" tab.
    QRadioButton* linkQualityTypeButton(LinkQualityController::Type type) const
    {
        return m_lqTypes.at(type);
    }
    QComboBox* linkQualityToBox() const { return m_lqTo; }
    QPushButton* linkQualitySendButton() const { return m_lqSend; }
    QPushButton* linkQualityAbortButton() const { return m_lqAbort; }
    // The two activity indicators: they blink while their exchange runs.
    QPushButton* bidirectionalIndicator() const { return m_biIndicator; }
    QPushButton* soundingIndicator() const { return m_soundIndicator; }
    // "View Clarifier On/Off" and "View Notch Filter On/Off", for the View menu.
    QList<QAction*> dspActions() const;

    // Opens the stack list (replies go out from the ALE tab) or the call log.
    void openStackList();
    void openCallLog();

signals:
    void stateSummaryChanged(const QString& summary);
    void helpRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* createChannelPage();
    QWidget* createStatusBox();
    QWidget* createAlePage();
    void bindAle(AleCallController& ale);
    void refresh();
    // The radio's state line: channel, scan, call, link and the call status.
    void refreshState();
    void refreshAle();
    void showIncomingCall(const IncomingCall& call);
    QWidget* createLinkQualityPage();
    void bindLinkQuality(LinkQualityController& lq);
    void refreshLinkQuality();
    void blink();
    void bindDsp();

    ControlCenterSession* m_session = nullptr;
    ChannelController* m_controller = nullptr;
    QTabWidget* m_tabs = nullptr;
    QWidget* m_channelControls = nullptr;
    QComboBox* m_channel = nullptr;
    QLineEdit* m_tx = nullptr;
    QLineEdit* m_rx = nullptr;
    QPushButton* m_simplex = nullptr;
    QPushButton* m_duplex = nullptr;
    std::map<ChannelController::List, QComboBox*> m_settings;
    QPushButton* m_program = nullptr;
    QPushButton* m_priority = nullptr;
    QPushButton* m_startScan = nullptr;
    QPushButton* m_stopScan = nullptr;
    QGroupBox* m_scanPane = nullptr;
    QComboBox* m_scanList = nullptr;
    QLabel* m_scanHint = nullptr;
    QLabel* m_scanChannel = nullptr;
    QLabel* m_stateChannel = nullptr;
    QLabel* m_stateScan = nullptr;
    QLabel* m_stateCall = nullptr;
    QLabel* m_stateLink = nullptr;
    QLabel* m_callStatus = nullptr;
    AleCallController* m_ale = nullptr;
    std::map<AleCallController::CallType, QRadioButton*> m_callTypes;
    QLabel* m_netName = nullptr;
    QComboBox* m_aleChannel = nullptr;
    QLabel* m_frequency = nullptr;
    QComboBox* m_to = nullptr;
    QComboBox* m_message = nullptr;
    QPushButton* m_clearMessage = nullptr;
    QPushButton* m_send = nullptr;
    QPushButton* m_replace = nullptr;
    QPushButton* m_abort = nullptr;
    QPushButton* m_stack = nullptr;
    QPushButton* m_log = nullptr;
    QPushButton* m_dial = nullptr;
    QLabel* m_channelValue = nullptr;
    QPointer<IncomingCallDialog> m_incoming;
    QPointer<CallListDialog> m_callList;
    DspSliderDialog* m_clarifier = nullptr;
    DspSliderDialog* m_notch = nullptr;
    QAction* m_clarifierAction = nullptr;
    QAction* m_notchAction = nullptr;
    LinkQualityController* m_lq = nullptr;
    std::map<LinkQualityController::Type, QRadioButton*> m_lqTypes;
    QLabel* m_lqNet = nullptr;
    QComboBox* m_lqChannel = nullptr;
    QLabel* m_lqFrequency = nullptr;
    QLabel* m_lqValue = nullptr;
    QComboBox* m_lqTo = nullptr;
    QPushButton* m_lqClear = nullptr;
    QComboBox* m_lqMessage = nullptr;
    QPushButton* m_lqSend = nullptr;
    QPushButton* m_lqAbort = nullptr;
    QPushButton* m_biIndicator = nullptr;
    QPushButton* m_soundIndicator = nullptr;
    QTimer* m_blink = nullptr;
    bool m_blinkPhase = false;
};

} // namespace koral
