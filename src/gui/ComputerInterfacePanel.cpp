#include "gui/ComputerInterfacePanel.h"
#include "gui/QtText.h"

#include "common/Texts.h"
#include "gui/CallListDialog.h"
#include "gui/DspSliderDialog.h"
#include "gui/IncomingCallDialog.h"
#include "session/ControlCenterSession.h"
#include "session/ViewStatus.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace koral {

namespace {

using List = ChannelController::List;

struct SettingSpec
{
    List list;
    std::string_view label;
};
constexpr SettingSpec kSettings[] = {
    {List::Power, text::kPowerLabel},  {List::Band, text::kBandLabel},
    {List::Mode, text::kModeLabel},    {List::Agc, text::kAgcLabel},
    {List::Bandwidth, text::kBwLabel},
};

QLabel* stateLabel(QWidget* parent, const char* name)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setMinimumWidth(150);
    return label;
}

} // namespace

ComputerInterfacePanel::ComputerInterfacePanel(QWidget* parent) : QWidget(parent)
{
    setObjectName("computerInterfacePanel");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(createStatusBox());
    m_tabs = new QTabWidget(this);
    m_tabs->addTab(createChannelPage(), qs(text::kTabChannel).trimmed());
    m_tabs->addTab(createAlePage(), qs(text::kTabAle).trimmed());
    m_tabs->addTab(createLinkQualityPage(), qs(text::kTabLinkQuality));
    layout->addWidget(m_tabs, 1);
    m_tabs->setEnabled(false);
    m_clarifierAction = new QAction(qs(text::kViewClarifier), this);
    m_notchAction = new QAction(qs(text::kViewNotchFilter), this);
    for (QAction* action : {m_clarifierAction, m_notchAction}) {
        action->setCheckable(true);
        action->setEnabled(false);
    }
}

QWidget* ComputerInterfacePanel::createStatusBox()
{
    auto* box = new QGroupBox(this);
    auto* row = new QHBoxLayout(box);
    m_stateChannel = stateLabel(box, "stateChannel");
    m_stateScan = stateLabel(box, "stateScan");
    m_stateCall = stateLabel(box, "stateCall");
    m_stateLink = stateLabel(box, "stateLink");
    // The call's texts vary most in length: its pane fits the longest, so that the line does
    // not jump or cut as the call goes on.
    int widest = 0;
    for (int state : {31, 32, 33, 37, 38, 39, 55, 62})
        widest = std::max(widest, m_stateCall->fontMetrics().horizontalAdvance(
                                      qs(callStateText(state, false, true))));
    m_stateCall->setMinimumWidth(widest + 2 * m_stateCall->frameWidth() + 8);
    for (QLabel* label : {m_stateChannel, m_stateScan, m_stateCall, m_stateLink})
        row->addWidget(label);
    m_callStatus = new QLabel(box);
    m_callStatus->setObjectName("callStatus");
    row->addWidget(m_callStatus, 1);
    return box;
}

QWidget* ComputerInterfacePanel::createAlePage()
{
    using CallType = AleCallController::CallType;
    auto* page = new QWidget(this);
    auto* layout = new QHBoxLayout(page);
    auto* form = new QFormLayout;
    auto* types = new QHBoxLayout;
    const std::pair<CallType, std::string_view> typeSpecs[] = {
        {CallType::Station, text::kCallTypeStation},
        {CallType::Net, text::kCallTypeNet},
        {CallType::All, text::kAllCall}};
    for (const auto& [type, label] : typeSpecs) {
        auto* button = new QRadioButton(qs(label), page);
        button->setObjectName(QStringLiteral("callType%1").arg(int(type)));
        m_callTypes[type] = button;
        types->addWidget(button);
    }
    types->addStretch(1);
    form->addRow(qs(text::kCallTypeLabel), types);
    m_netName = new QLabel(page);
    form->addRow(qs(text::kNetLabel), m_netName);
    auto* channelRow = new QHBoxLayout;
    m_aleChannel = new QComboBox(page);
    m_aleChannel->setObjectName("aleChannel");
    m_aleChannel->setFixedWidth(110);
    m_frequency = new QLabel(page);
    m_frequency->setMinimumWidth(110);
    m_channelValue = new QLabel(page);
    m_channelValue->setObjectName("channelValue");
    channelRow->addWidget(m_aleChannel);
    channelRow->addWidget(m_frequency);
    channelRow->addWidget(new QLabel(qs(text::kChannelValueLabel), page));
    channelRow->addWidget(m_channelValue, 1);
    form->addRow(qs(text::kChannelColon), channelRow);
    m_to = new QComboBox(page);
    m_to->setObjectName("to");
    m_to->setMinimumWidth(200);
    form->addRow(qs(text::kToLabel), m_to);
    auto* messageRow = new QHBoxLayout;
    m_clearMessage = new QPushButton(qs(text::kClearMessage), page);
    m_message = new QComboBox(page);
    m_message->setObjectName("message");
    m_message->setEditable(true);
    m_message->setMinimumWidth(320);
    m_message->lineEdit()->setMaxLength(int(AleCallController::kMessageBytes) - 1);
    m_dial = new QPushButton(qs(text::kDial), page);
    m_dial->setObjectName("dial");
    messageRow->addWidget(m_clearMessage);
    messageRow->addWidget(m_dial);
    messageRow->addWidget(m_message, 1);
    form->addRow(messageRow);
    layout->addLayout(form, 1);

    auto* buttons = new QVBoxLayout;
    m_send = new QPushButton(qs(text::kSend), page);
    m_replace = new QPushButton(qs(text::kReplace), page);
    m_abort = new QPushButton(qs(text::kAbort), page);
    m_stack = new QPushButton(qs(text::kStackButton), page);
    m_log = new QPushButton(qs(text::kLogButton), page);
    m_send->setObjectName("send");
    m_abort->setObjectName("abort");
    m_stack->setObjectName("stack");
    m_log->setObjectName("log");
    for (QPushButton* button : {m_send, m_replace, m_abort})
        buttons->addWidget(button);
    buttons->addSpacing(12);
    buttons->addWidget(m_stack);
    buttons->addWidget(m_log);
    buttons->addStretch(1);
    layout->addLayout(buttons);
    return page;
}

QWidget* ComputerInterfacePanel::createLinkQualityPage()
{
    using Type = LinkQualityController::Type;
    auto* page = new QWidget(this);
    auto* layout = new QHBoxLayout(page);
    auto* form = new QFormLayout;
    auto* types = new QHBoxLayout;
    const std::pair<Type, std::string_view> typeSpecs[] = {
        {Type::BiDirectional, text::kBiDirectional}, {Type::Sounding, text::kSounding}};
    for (const auto& [type, label] : typeSpecs) {
        auto* button = new QRadioButton(qs(label), page);
        button->setObjectName(QStringLiteral("linkQualityType%1").arg(int(type)));
        m_lqTypes[type] = button;
        types->addWidget(button);
    }
    types->addStretch(1);
    form->addRow(qs(text::kTypeLabel), types);
    m_lqNet = new QLabel(page);
    form->addRow(qs(text::kNetLabel), m_lqNet);
    auto* channelRow = new QHBoxLayout;
    m_lqChannel = new QComboBox(page);
    m_lqChannel->setFixedWidth(110);
    m_lqFrequency = new QLabel(page);
    m_lqFrequency->setMinimumWidth(110);
    m_lqValue = new QLabel(page);
    channelRow->addWidget(m_lqChannel);
    channelRow->addWidget(m_lqFrequency);
    channelRow->addWidget(new QLabel(qs(text::kChannelValueLabel), page));
    channelRow->addWidget(m_lqValue, 1);
    form->addRow(qs(text::kChannelColon), channelRow);
    m_lqTo = new QComboBox(page);
    m_lqTo->setMinimumWidth(200);
    form->addRow(qs(text::kToLabel), m_lqTo);
    auto* messageRow = new QHBoxLayout;
    m_lqClear = new QPushButton(qs(text::kClearMessage), page);
    m_lqMessage = new QComboBox(page);
    m_lqMessage->setEditable(true);
    m_lqMessage->setMinimumWidth(320);
    m_lqMessage->lineEdit()->setMaxLength(int(AleCallController::kMessageBytes) - 1);
    messageRow->addWidget(m_lqClear);
    messageRow->addWidget(m_lqMessage, 1);
    form->addRow(messageRow);
    layout->addLayout(form, 1);

    auto* buttons = new QVBoxLayout;
    m_lqSend = new QPushButton(qs(text::kSend), page);
    m_lqAbort = new QPushButton(qs(text::kAbort), page);
    buttons->addWidget(m_lqSend);
    buttons->addWidget(m_lqAbort);
    buttons->addSpacing(12);
    m_biIndicator = new QPushButton(qs(text::kBiDirectional), page);
    m_soundIndicator = new QPushButton(qs(text::kSounding), page);
    for (QPushButton* indicator : {m_biIndicator, m_soundIndicator}) {
        indicator->setCheckable(true);
        indicator->setFocusPolicy(Qt::NoFocus);
        indicator->setAttribute(Qt::WA_TransparentForMouseEvents);
        buttons->addWidget(indicator);
    }
    buttons->addStretch(1);
    layout->addLayout(buttons);
    m_blink = new QTimer(this);
    m_blink->setInterval(500);
    connect(m_blink, &QTimer::timeout, this, &ComputerInterfacePanel::blink);
    return page;
}

void ComputerInterfacePanel::bindLinkQuality(LinkQualityController& lq)
{
    using Type = LinkQualityController::Type;
    m_lq = &lq;
    connect(&lq, &LinkQualityController::changed, this,
            &ComputerInterfacePanel::refreshLinkQuality);
    connect(m_ale, &AleCallController::changed, this, &ComputerInterfacePanel::refreshLinkQuality);
    for (const auto& [type, button] : m_lqTypes) {
        const Type which = type;
        connect(button, &QRadioButton::clicked, &lq, [&lq, which] { lq.setType(which); });
    }
    connect(m_lqTo, &QComboBox::activated, &lq, [&lq](int row) { lq.selectAddress(row); });
    connect(m_lqChannel, &QComboBox::activated, &lq, [&lq](int row) { lq.selectChannel(row); });
    connect(m_lqMessage, &QComboBox::editTextChanged, &lq,
            [&lq](const QString& text) { lq.setMessage(text.toStdString()); });
    connect(m_lqClear, &QPushButton::clicked, m_lqMessage, &QComboBox::clearEditText);
    connect(m_lqSend, &QPushButton::clicked, &lq, &LinkQualityController::send);
    connect(m_lqAbort, &QPushButton::clicked, &lq, &LinkQualityController::abort);
    refreshLinkQuality();
}

void ComputerInterfacePanel::refreshLinkQuality()
{
    if (!m_lq || !m_ale)
        return;
    const LinkQualityController& lq = *m_lq;
    for (const auto& [type, button] : m_lqTypes)
        button->setChecked(type == lq.type());
    m_lqNet->setText(QString::fromStdString(m_ale->netName()));
    {
        const QSignalBlocker blocker(m_lqChannel);
        m_lqChannel->clear();
        for (const std::string& choice : m_ale->channelChoices())
            m_lqChannel->addItem(QString::fromStdString(choice));
        m_lqChannel->setCurrentIndex(lq.channelRow());
    }
    m_lqChannel->setEnabled(lq.channelEnabled() && lq.sendEnabled());
    m_lqFrequency->setText(QString::fromStdString(lq.frequencyText()));
    m_lqValue->setText(QString::fromStdString(lq.channelValueText()));
    {
        const QSignalBlocker blocker(m_lqTo);
        m_lqTo->clear();
        for (const std::string& address : m_ale->addresses())
            m_lqTo->addItem(QString::fromStdString(address));
        m_lqTo->setCurrentIndex(lq.addressRow());
    }
    m_lqSend->setEnabled(lq.sendEnabled());
    m_lqAbort->setEnabled(lq.abortEnabled());
    const bool active = lq.bidirectionalActive() || lq.soundingActive();
    if (active && !m_blink->isActive())
        m_blink->start();
    else if (!active)
        m_blink->stop();
    blink();
}

void ComputerInterfacePanel::blink()
{
    // An indicator that runs blinks in its colour; an idle one stays plain.
    m_blinkPhase = !m_blinkPhase;
    const std::pair<QPushButton*, bool> indicators[] = {
        {m_biIndicator, m_lq && m_lq->bidirectionalActive()},
        {m_soundIndicator, m_lq && m_lq->soundingActive()}};
    for (const auto& [indicator, on] : indicators) {
        indicator->setChecked(on);
        const QString colour =
            indicator == m_biIndicator ? QStringLiteral("#40c040") : QStringLiteral("#f0a030");
        indicator->setStyleSheet(
            on && m_blinkPhase ? QStringLiteral("background-color: %1;").arg(colour) : QString());
    }
}

QWidget* ComputerInterfacePanel::createChannelPage()
{
    auto* page = new QWidget(this);
    auto* layout = new QHBoxLayout(page);

    m_channelControls = new QWidget(page);
    auto* grid = new QGridLayout(m_channelControls);
    m_channel = new QComboBox(m_channelControls);
    m_channel->setObjectName("channel");
    grid->addWidget(new QLabel(qs(text::kChannelLabel), m_channelControls), 0, 0);
    grid->addWidget(m_channel, 0, 1);

    m_tx = new QLineEdit(m_channelControls);
    m_tx->setObjectName("txFrequency");
    m_rx = new QLineEdit(m_channelControls);
    m_rx->setObjectName("rxFrequency");
    for (QLineEdit* edit : {m_tx, m_rx}) {
        edit->setMaxLength(ChannelConfigEditor::kMaxTextLength);
        edit->installEventFilter(this);
    }
    grid->addWidget(new QLabel(qs(text::kTxFreqLabel), m_channelControls), 1, 0);
    grid->addWidget(m_tx, 1, 1);
    grid->addWidget(new QLabel(qs(text::kRxFreqLabel), m_channelControls), 2, 0);
    grid->addWidget(m_rx, 2, 1);
    m_simplex = new QPushButton(qs(text::kSimplex), m_channelControls);
    m_duplex = new QPushButton(qs(text::kDuplex), m_channelControls);
    m_simplex->setCheckable(true);
    m_duplex->setCheckable(true);
    grid->addWidget(m_simplex, 1, 2);
    grid->addWidget(m_duplex, 2, 2);

    int row = 0;
    for (const SettingSpec& spec : kSettings) {
        auto* box = new QComboBox(m_channelControls);
        box->setObjectName(QStringLiteral("setting%1").arg(int(spec.list)));
        m_settings[spec.list] = box;
        grid->addWidget(new QLabel(qs(spec.label), m_channelControls), row, 3);
        grid->addWidget(box, row, 4);
        ++row;
    }
    for (QWidget* field : {static_cast<QWidget*>(m_channel), static_cast<QWidget*>(m_tx),
                           static_cast<QWidget*>(m_rx)})
        field->setFixedWidth(110);
    grid->setColumnMinimumWidth(2, 90);
    grid->setColumnStretch(5, 1);
    grid->setRowStretch(5, 1);
    layout->addWidget(m_channelControls, 1);

    m_scanPane = new QGroupBox(page);
    m_scanPane->setObjectName("scanListPane");
    auto* scanForm = new QFormLayout(m_scanPane);
    m_scanList = new QComboBox(m_scanPane);
    m_scanList->setObjectName("scanList");
    m_scanList->setFixedWidth(110);
    scanForm->addRow(qs(text::kScanGroupLabel), m_scanList);
    m_scanHint = new QLabel(m_scanPane);
    m_scanHint->setWordWrap(true);
    scanForm->addRow(m_scanHint);
    m_scanChannel = new QLabel(m_scanPane);
    m_scanChannel->setObjectName("scanChannel");
    scanForm->addRow(m_scanChannel);
    m_scanPane->hide();
    layout->addWidget(m_scanPane, 1);

    auto* buttons = new QVBoxLayout;
    m_program = new QPushButton(qs(text::kProgramChannel), page);
    m_priority = new QPushButton(qs(text::kPriority), page);
    m_startScan = new QPushButton(qs(text::kStartScan), page);
    m_stopScan = new QPushButton(qs(text::kStopScan), page);
    m_program->setObjectName("programChannel");
    m_priority->setObjectName("priority");
    m_startScan->setObjectName("startScan");
    m_stopScan->setObjectName("stopScan");
    for (QPushButton* button : {m_program, m_priority, m_startScan, m_stopScan})
        buttons->addWidget(button);
    buttons->addStretch(1);
    layout->addLayout(buttons);
    return page;
}

void ComputerInterfacePanel::bind(ControlCenterSession& session)
{
    m_session = &session;
    m_controller = &session.channels();
    ChannelController& c = *m_controller;
    for (const auto& [list, box] : m_settings)
        for (const ValueText& entry : c.entries(list))
            box->addItem(QString::fromLatin1(entry.text));

    connect(&c, &ChannelController::changed, this, &ComputerInterfacePanel::refresh);
    connect(&c, &ChannelController::busyChanged, this, [](bool busy) {
        if (busy)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    });
    connect(&session.commands(), &ViewCommands::callStatusChanged, this,
            &ComputerInterfacePanel::refresh);
    connect(&session.dispatcher(), &MessageDispatcher::callControlsChanged, this,
            &ComputerInterfacePanel::refresh);

    connect(m_channel, &QComboBox::activated, &c, [&c](int row) { c.selectRow(row); });
    connect(m_tx, &QLineEdit::textEdited, &c,
            [&c](const QString& text) { c.setTxText(text.toStdString()); });
    connect(m_rx, &QLineEdit::textEdited, &c,
            [&c](const QString& text) { c.setRxText(text.toStdString()); });
    connect(m_tx, &QLineEdit::editingFinished, &c, [&c] { c.commitTx(); });
    connect(m_rx, &QLineEdit::editingFinished, &c, [&c] { c.commitRx(); });
    connect(m_simplex, &QPushButton::clicked, &c, &ChannelController::simplex);
    connect(m_duplex, &QPushButton::clicked, &c, &ChannelController::duplex);
    for (const auto& [list, box] : m_settings) {
        const List which = list;
        connect(box, &QComboBox::activated, &c, [&c, which](int row) { c.select(which, row); });
    }
    connect(m_program, &QPushButton::clicked, &c, &ChannelController::programChannel);
    connect(m_priority, &QPushButton::clicked, &c, &ChannelController::priority);
    connect(m_startScan, &QPushButton::clicked, &c, &ChannelController::toggleScan);
    connect(m_stopScan, &QPushButton::clicked, &c, &ChannelController::toggleScan);
    connect(m_scanList, &QComboBox::activated, &c, [&c](int row) { c.selectScanRow(row); });
    bindAle(session.aleCalls());
    bindLinkQuality(session.linkQuality());
    bindDsp();
    connect(&session.dispatcher(), &MessageDispatcher::incomingCall, this,
            &ComputerInterfacePanel::showIncomingCall);
    connect(&session.dispatcher(), &MessageDispatcher::incomingCallClosed, this, [this] {
        if (m_incoming)
            m_incoming->reject();
    });
    // The call state moves with the radio's reports and with the calls placed from the tabs;
    // the dispatch of a report has run by the time this connection is called.
    connect(&session.link(), &RadioLink::incomingMessage, this,
            &ComputerInterfacePanel::refreshState);
    connect(m_ale, &AleCallController::changed, this, &ComputerInterfacePanel::refreshState);
    connect(m_lq, &LinkQualityController::changed, this, &ComputerInterfacePanel::refreshState);
    refresh();
}

void ComputerInterfacePanel::showIncomingCall(const IncomingCall& call)
{
    if (!m_incoming) {
        m_incoming = new IncomingCallDialog(this);
        m_incoming->setAttribute(Qt::WA_DeleteOnClose);
        // However it closes, the call ends once and goes to the log and the stack.
        connect(m_incoming, &QDialog::finished, this, [this] {
            m_session->dispatcher().closeIncomingCall();
            refresh();
        });
    }
    m_incoming->showCall(call);
    m_incoming->show();
    m_incoming->raise();
    refresh();
}

void ComputerInterfacePanel::openStackList()
{
    if (!m_ale->stackAllowed())
        return;
    auto* dialog = new CallListDialog(CallListDialog::Kind::Stack, m_session->calls().stack(),
                                      m_session->notifier(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &CallListDialog::helpRequested, this, &ComputerInterfacePanel::helpRequested);
    connect(dialog, &CallListDialog::replyRequested, this, [this](const CallRecord& record) {
        // The reply goes out from the ALE tab, which shows whom it calls and on which channel.
        m_tabs->setCurrentIndex(1);
        m_ale->reply(record);
    });
    m_callList = dialog;
    dialog->open();
}

void ComputerInterfacePanel::openCallLog()
{
    auto* dialog = new CallListDialog(CallListDialog::Kind::Log, m_session->calls().log(),
                                      m_session->notifier(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &CallListDialog::helpRequested, this, &ComputerInterfacePanel::helpRequested);
    m_callList = dialog;
    dialog->open();
}

IncomingCallDialog* ComputerInterfacePanel::incomingCallDialog() const
{
    return m_incoming;
}

CallListDialog* ComputerInterfacePanel::callListDialog() const
{
    return m_callList;
}

QList<QAction*> ComputerInterfacePanel::dspActions() const
{
    return {m_clarifierAction, m_notchAction};
}

void ComputerInterfacePanel::bindDsp()
{
    const std::pair<DspSlider*, QAction*> sliders[] = {{&m_session->clarifier(), m_clarifierAction},
                                                       {&m_session->notch(), m_notchAction}};
    for (const auto& [slider, action] : sliders) {
        DspSlider* model = slider;
        auto* dialog = new DspSliderDialog(*model, this);
        (model->kind() == DspSlider::Kind::Clarifier ? m_clarifier : m_notch) = dialog;
        // On shows the slider and lets it work; off puts it back to "off" without telling the
        // radio and hides it.
        connect(action, &QAction::toggled, model, [model](bool on) {
            model->setEnabled(on);
            model->setShown(on);
        });
        // Closing the window is the same as switching it off.
        connect(dialog, &QDialog::rejected, action, [a = action] { a->setChecked(false); });
        // The sliders talk to the radio: they are offered while the radio commands are.
        action->setEnabled(m_session->commands().radioCommandsEnabled());
        connect(&m_session->commands(), &ViewCommands::radioCommandsEnabledChanged, action,
                &QAction::setEnabled);
    }
}

void ComputerInterfacePanel::bindAle(AleCallController& ale)
{
    m_ale = &ale;
    connect(&ale, &AleCallController::changed, this, &ComputerInterfacePanel::refreshAle);
    for (const auto& [type, button] : m_callTypes) {
        const AleCallController::CallType which = type;
        connect(button, &QRadioButton::clicked, &ale, [&ale, which] { ale.setCallType(which); });
    }
    connect(m_to, &QComboBox::activated, &ale, [&ale](int row) { ale.selectAddress(row); });
    connect(m_aleChannel, &QComboBox::activated, &ale, [&ale](int row) { ale.selectChannel(row); });
    connect(m_message, &QComboBox::editTextChanged, &ale,
            [&ale](const QString& text) { ale.setMessage(text.toStdString()); });
    connect(m_clearMessage, &QPushButton::clicked, m_message, &QComboBox::clearEditText);
    connect(m_send, &QPushButton::clicked, &ale, &AleCallController::send);
    connect(m_replace, &QPushButton::clicked, &ale, &AleCallController::replace);
    connect(m_abort, &QPushButton::clicked, &ale, &AleCallController::abort);
    connect(m_dial, &QPushButton::clicked, this, [this] {
        m_ale->dial();
        m_message->setEditText(QString::fromStdString(m_ale->message()));
    });
    connect(m_stack, &QPushButton::clicked, this, &ComputerInterfacePanel::openStackList);
    connect(m_log, &QPushButton::clicked, this, &ComputerInterfacePanel::openCallLog);
    refreshAle();
}

void ComputerInterfacePanel::refreshAle()
{
    if (!m_ale)
        return;
    const AleCallController& ale = *m_ale;
    for (const auto& [type, button] : m_callTypes)
        button->setChecked(type == ale.callType());
    m_netName->setText(QString::number(ale.net() + 1));
    {
        const QSignalBlocker blocker(m_aleChannel);
        m_aleChannel->clear();
        for (const std::string& choice : ale.channelChoices())
            m_aleChannel->addItem(QString::fromStdString(choice));
        m_aleChannel->setCurrentIndex(ale.channelRow());
    }
    m_aleChannel->setEnabled(ale.channelEnabled() && ale.sendEnabled());
    m_frequency->setText(QString::fromStdString(ale.frequencyText()));
    m_channelValue->setText(QString::fromStdString(ale.channelValueText()));
    {
        const QSignalBlocker blocker(m_to);
        m_to->clear();
        for (const std::string& address : ale.addresses())
            m_to->addItem(QString::fromStdString(address));
        m_to->setCurrentIndex(ale.addressRow());
    }
    m_to->setEnabled(ale.sendEnabled());
    for (const auto& [type, button] : m_callTypes)
        button->setEnabled(ale.sendEnabled());
    const auto& messages = m_session->calls().messages();
    if (m_message->count() != int(messages.size())) {
        const QSignalBlocker blocker(m_message);
        const QString typed = m_message->currentText();
        m_message->clear();
        for (const std::string& text : messages)
            m_message->addItem(QString::fromStdString(text));
        m_message->setEditText(typed);
    }
    m_send->setEnabled(ale.sendEnabled());
    m_replace->setEnabled(ale.sendEnabled());
    m_abort->setEnabled(ale.abortEnabled());
}

bool ComputerInterfacePanel::eventFilter(QObject* watched, QEvent* event)
{
    if (m_controller && event->type() == QEvent::FocusIn) {
        if (watched == m_tx)
            m_controller->focusTx();
        else if (watched == m_rx)
            m_controller->focusRx();
    }
    return QWidget::eventFilter(watched, event);
}

void ComputerInterfacePanel::refresh()
{
    if (!m_controller)
        return;
    const ChannelController& c = *m_controller;
    // The radio's state stays readable while the controls wait for the radio.
    m_tabs->setEnabled(c.isEnabled() || c.isProgramming());

    {
        const QSignalBlocker blocker(m_channel);
        m_channel->clear();
        for (int number : c.channels())
            m_channel->addItem(QString::number(number));
        m_channel->setCurrentIndex(c.currentRow());
    }
    if (m_tx->text().toStdString() != c.txText())
        m_tx->setText(QString::fromStdString(c.txText()));
    if (m_rx->text().toStdString() != c.rxText())
        m_rx->setText(QString::fromStdString(c.rxText()));
    m_simplex->setChecked(!c.isDuplex());
    m_duplex->setChecked(c.isDuplex());
    for (const auto& [list, box] : m_settings) {
        const QSignalBlocker blocker(box);
        box->setCurrentIndex(c.selectedIndex(list));
    }

    const bool scanning = c.scanState() == ChannelController::kScanning;
    m_channelControls->setVisible(!scanning);
    m_scanPane->setVisible(scanning);
    m_program->setEnabled(c.programEnabled());
    m_priority->setEnabled(c.programEnabled());
    m_startScan->setVisible(!scanning);
    m_stopScan->setVisible(scanning);
    m_startScan->setEnabled(c.startScanEnabled());
    m_stopScan->setEnabled(c.startScanEnabled());

    // With the radio's ALE off there is nothing to call with: only the Channel tab remains.
    m_tabs->setTabVisible(1, c.scanMode() == ChannelController::ScanMode::Ale);
    m_tabs->setTabVisible(2, c.scanMode() == ChannelController::ScanMode::Ale);
    m_scanPane->setTitle(qs(c.scanListTitle()));
    {
        const QSignalBlocker blocker(m_scanList);
        m_scanList->clear();
        for (const std::string& label : c.scanList())
            m_scanList->addItem(QString::fromStdString(label));
        m_scanList->setCurrentIndex(c.scanListRow());
    }
    m_scanHint->setText(qs(c.scanMode() == ChannelController::ScanMode::Groups
                               ? text::kScanGroupHint
                               : text::kScanNetHint));
    m_scanChannel->setText(QString::fromStdString(c.channelStateText()));

    refreshAle();
    refreshState();
}

void ComputerInterfacePanel::refreshState()
{
    if (!m_controller)
        return;
    const ChannelController& c = *m_controller;
    const ViewState& view = m_session->view();
    m_stateChannel->setText(QString::fromStdString(c.channelStateText()));
    m_stateScan->setText(QString::fromStdString(c.scanStateText()));
    m_stateCall->setText(qs(callStateText(view.callState, view.linked, m_lq->soundingActive())));
    m_stateLink->setText(QString::fromStdString(c.linkStateText()));
    m_callStatus->setText(QString::fromStdString(m_session->commands().callStatus()));
    emit stateSummaryChanged(stateSummary());
}

QString ComputerInterfacePanel::stateSummary() const
{
    return QStringList{m_stateChannel->text(), m_stateScan->text(), m_stateCall->text(),
                       m_stateLink->text()}
        .join(QStringLiteral("  |  "));
}

} // namespace koral
