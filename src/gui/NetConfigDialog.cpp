#include "gui/NetConfigDialog.h"

#include "aledb/AleValueLists.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>

namespace koral {

namespace {

using Option = NetConfigEditor::Option;

template <std::size_t N>
QComboBox* valueList(QWidget* parent, const std::array<ValueText, N>& values, int skipFirst = 0)
{
    auto* list = new QComboBox(parent);
    for (std::size_t i = std::size_t(skipFirst); i + 1 < N; ++i)
        list->addItem(QString::fromUtf8(values[i].text));
    return list;
}

QLineEdit* addressEdit(QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    edit->setMaxLength(int(kAleAddressSize) - 1);
    return edit;
}

// Puts the stored text back after the editor refused a typed one, all of it selected.
void restore(QLineEdit* edit, const std::string& text)
{
    edit->setText(QString::fromStdString(text));
    edit->selectAll();
}

} // namespace

NetConfigDialog::NetConfigDialog(NetConfigEditor& editor, QWidget* parent)
    : HelpButtonDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("Net Configuration"));
    m_net = new QSpinBox(this);
    m_net->setRange(1, kAleNetCount);
    m_name = addressEdit(this);
    m_self = addressEdit(this);
    m_scanRate = new QComboBox(this);
    m_scanRate->addItems({QString::fromUtf8(alevalues::kScanRate[1].text),
                          QString::fromUtf8(alevalues::kScanRate[4].text)});
    m_tuneTime = valueList(this, alevalues::kTuneTime);
    m_sounding = valueList(this, alevalues::kSounding);
    m_occupancy = valueList(this, alevalues::kOccupancyCheck);
    m_masterSlave = valueList(this, alevalues::kMasterSlave);
    m_silent = new QCheckBox(tr("Silent"), this);
    m_homeAck = new QCheckBox(tr("Home Ack."), this);
    m_monitorAck = new QCheckBox(tr("Mon Ack."), this);
    m_lqa = new QCheckBox(tr("LQA Request"), this);
    m_sendAllCall = new QCheckBox(tr("Send All Call"), this);
    m_receiveAllCall = new QCheckBox(tr("Receive All Call"), this);

    auto* netBox = new QGroupBox(tr("Net"), this);
    auto* netForm = new QFormLayout(netBox);
    netForm->addRow(tr("Net No."), m_net);
    netForm->addRow(tr("Net Name"), m_name);
    netForm->addRow(tr("Self Address"), m_self);
    netForm->addRow(tr("Scan Rate"), m_scanRate);
    netForm->addRow(tr("Tune Time"), m_tuneTime);
    netForm->addRow(tr("Sounding"), m_sounding);
    netForm->addRow(tr("Occupancy Check"), m_occupancy);
    netForm->addRow(tr("Master/Slave"), m_masterSlave);
    auto* boxes = new QGridLayout;
    QCheckBox* const netBoxes[] = {m_silent, m_homeAck,     m_monitorAck,
                                   m_lqa,    m_sendAllCall, m_receiveAllCall};
    for (int i = 0; i < 6; ++i)
        boxes->addWidget(netBoxes[i], i / 2, i % 2);
    netForm->addRow(boxes);

    auto* allBox = new QGroupBox(tr("Options for all nets"), this);
    auto* allGrid = new QGridLayout(allBox);
    const std::pair<Option, const char*> options[] = {
        {Option::Alert, "Alert"},
        {Option::ExternalAlarm, "Ext. Alarm"},
        {Option::QuickPttCall, "Quick PTT Call"},
        {Option::AutoAddress, "Auto Address"},
        {Option::Multinet, "MultiNet"},
        {Option::Anycall, "Anycall"},
        {Option::Vcds, "VCDS"},
        {Option::Wildcard, "Wildcard"},
        {Option::LinkAfterBidirectional, "LINK AFTER BDIR"},
        {Option::InLink, "In_LINK"},
        {Option::Amd, "AMD"}};
    int i = 0;
    for (const auto& [option, text] : options) {
        auto* box = new QCheckBox(tr(text), this);
        box->setChecked(editor.option(option));
        connect(box, &QCheckBox::toggled, this,
                [this, option](bool on) { m_editor.setOption(option, on); });
        allGrid->addWidget(box, i / 2, i % 2);
        m_options[option] = box;
        ++i;
    }
    auto* acceptLink = new QComboBox(this);
    acceptLink->addItems(
        {tr("Accept Link TOT no"), tr("Accept Link TOT Yes"), tr("Accept Link TOT 2")});
    acceptLink->setCurrentIndex(editor.acceptLinkTimeout());
    auto* ptt = valueList(this, alevalues::kPttTimeout);
    ptt->setCurrentIndex(editor.pttTimeout());
    auto* lqaScore = new QSpinBox(this);
    lqaScore->setRange(0, 100);
    lqaScore->setValue(editor.minLqaScore());
    auto* allForm = new QFormLayout;
    allForm->addRow(tr("Accept Link"), acceptLink);
    allForm->addRow(tr("PTT Timeout"), ptt);
    allForm->addRow(tr("Min. LQA Score"), lqaScore);
    allGrid->addLayout(allForm, (i + 1) / 2, 0, 1, 2);

    auto* body = new QHBoxLayout;
    body->addWidget(netBox);
    body->addWidget(allBox);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addWidget(createButtons());

    connect(m_net, &QSpinBox::valueChanged, this, [this](int number) {
        m_editor.selectNet(number - 1);
        showNet();
    });
    connect(m_name, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (!m_editor.setNameText(text.toStdString()))
            restore(m_name, m_editor.nameText());
    });
    connect(m_self, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (!m_editor.setSelfAddressText(text.toStdString()))
            restore(m_self, m_editor.selfAddressText());
    });
    connect(m_scanRate, &QComboBox::activated, this,
            [this](int position) { m_editor.chooseScanRate(position); });
    connect(m_tuneTime, &QComboBox::activated, this,
            [this](int position) { m_editor.chooseTuneTime(position); });
    connect(m_sounding, &QComboBox::activated, this,
            [this](int position) { m_editor.chooseSounding(position); });
    connect(m_occupancy, &QComboBox::activated, this,
            [this](int position) { m_editor.chooseOccupancy(position); });
    connect(m_masterSlave, &QComboBox::activated, this,
            [this](int position) { m_editor.setSlave(position == 1); });
    connect(m_silent, &QCheckBox::clicked, this, [this](bool on) { m_editor.setSilent(on); });
    connect(m_homeAck, &QCheckBox::clicked, this, [this](bool on) { m_editor.setHomeAck(on); });
    connect(m_monitorAck, &QCheckBox::clicked, this,
            [this](bool on) { m_editor.setMonitorAck(on); });
    connect(m_lqa, &QCheckBox::clicked, this, [this](bool on) { m_editor.setLqaRequest(on); });
    connect(m_sendAllCall, &QCheckBox::clicked, this,
            [this](bool on) { m_editor.setSendAllCall(on); });
    connect(m_receiveAllCall, &QCheckBox::clicked, this,
            [this](bool on) { m_editor.setReceiveAllCall(on); });
    connect(acceptLink, &QComboBox::activated, this,
            [this](int position) { m_editor.setAcceptLinkTimeout(position); });
    connect(ptt, &QComboBox::activated, this,
            [this](int position) { m_editor.setPttTimeout(position); });
    connect(lqaScore, &QSpinBox::valueChanged, this,
            [this](int score) { m_editor.setMinLqaScore(score); });

    {
        const QSignalBlocker blocker(m_net);
        m_net->setValue(editor.currentNet() + 1);
    }
    showNet();
}

void NetConfigDialog::showNet()
{
    m_name->setText(QString::fromStdString(m_editor.nameText()));
    m_self->setText(QString::fromStdString(m_editor.selfAddressText()));
    m_scanRate->setCurrentIndex(m_editor.scanRatePosition());
    m_tuneTime->setCurrentIndex(m_editor.tuneTimePosition());
    m_sounding->setCurrentIndex(m_editor.soundingPosition());
    m_occupancy->setCurrentIndex(m_editor.occupancyPosition());
    m_masterSlave->setCurrentIndex(m_editor.slave() ? 1 : 0);
    m_silent->setChecked(m_editor.silent());
    m_homeAck->setChecked(m_editor.homeAck());
    m_monitorAck->setChecked(m_editor.monitorAck());
    m_lqa->setChecked(m_editor.lqaRequest());
    m_sendAllCall->setChecked(m_editor.sendAllCall());
    m_receiveAllCall->setChecked(m_editor.receiveAllCall());
}

} // namespace koral
