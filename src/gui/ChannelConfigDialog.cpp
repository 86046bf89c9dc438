#include "gui/ChannelConfigDialog.h"

#include "gui/ProgramResultLine.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QVBoxLayout>

namespace koral {

namespace {
using Edit = ChannelConfigEditor::Edit;
using Type = ChannelConfigEditor::FrequencyType;
using List = ChannelConfigEditor::List;
} // namespace

ChannelConfigDialog::ChannelConfigDialog(ChannelConfigEditor& editor, ProgramFunction program,
                                         QWidget* parent)
    : QDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("Channel Configuration"));

    m_channel = new QSpinBox(this);
    m_channel->setRange(1, kChannelCount);
    auto* channelLabel = new QLabel(tr("C&hannel"), this);
    channelLabel->setBuddy(m_channel);

    auto* typeBox = new QGroupBox(tr("Frequency"), this);
    auto* typeLayout = new QGridLayout(typeBox);
    auto* typeGroup = new QButtonGroup(this);
    const char* typeTexts[] = {"&Simplex Frequency", "&Half Duplex Frequencies",
                               "&Transmit Only Frequency", "&Receive Only Frequency"};
    for (int i = 0; i < 4; ++i) {
        m_types[std::size_t(i)] = new QRadioButton(tr(typeTexts[i]), typeBox);
        typeGroup->addButton(m_types[std::size_t(i)], i);
    }
    for (std::size_t i = 0; i < m_edits.size(); ++i) {
        m_edits[i] = new QLineEdit(typeBox);
        m_edits[i]->setMaxLength(ChannelConfigEditor::kMaxTextLength);
        // Wide enough for the longest frequency ("14.34567") in every layout.
        m_edits[i]->setMinimumWidth(
            m_edits[i]->fontMetrics().horizontalAdvance(QStringLiteral("00.000000")) + 16);
        m_edits[i]->setPlaceholderText(tr("MHz"));
    }
    m_duplexLabels = {new QLabel(tr("Tx:"), typeBox), new QLabel(tr("Rx:"), typeBox)};
    auto* duplex = new QHBoxLayout;
    duplex->addWidget(m_duplexLabels[0]);
    duplex->addWidget(m_edits[std::size_t(Edit::HalfDuplexTx)]);
    duplex->addWidget(m_duplexLabels[1]);
    duplex->addWidget(m_edits[std::size_t(Edit::HalfDuplexRx)]);
    duplex->addStretch();
    typeLayout->addWidget(m_types[0], 0, 0);
    typeLayout->addWidget(m_edits[std::size_t(Edit::Simplex)], 0, 1);
    typeLayout->addWidget(m_types[1], 1, 0);
    typeLayout->addLayout(duplex, 1, 1);
    typeLayout->addWidget(m_types[2], 2, 0);
    typeLayout->addWidget(m_edits[std::size_t(Edit::TransmitOnly)], 2, 1);
    typeLayout->addWidget(m_types[3], 3, 0);
    typeLayout->addWidget(m_edits[std::size_t(Edit::ReceiveOnly)], 3, 1);
    typeLayout->setColumnStretch(1, 1);

    auto* lists = new QHBoxLayout;
    const char* listTexts[] = {"Power", "Band", "Mode", "A.G.C", "BW"};
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        auto* column = new QVBoxLayout;
        m_lists[i] = new QComboBox(this);
        for (const ValueText& entry : editor.entries(List(i)))
            m_lists[i]->addItem(QString::fromUtf8(entry.text));
        auto* label = new QLabel(tr(listTexts[i]), this);
        label->setBuddy(m_lists[i]);
        column->addWidget(label);
        column->addWidget(m_lists[i]);
        lists->addLayout(column);
        connect(m_lists[i], &QComboBox::activated, this,
                [this, i](int index) { m_editor.select(List(i), index); });
    }
    if (editor.hasCcirNumbers()) {
        auto* column = new QVBoxLayout;
        m_ccirLabel = new QLabel(tr("Channel Num"), this);
        m_ccir = new QSpinBox(this);
        m_ccir->setRange(ChannelConfigEditor::kMinCcirNumber, ChannelConfigEditor::kMaxCcirNumber);
        m_ccirLabel->setBuddy(m_ccir);
        column->addWidget(m_ccirLabel);
        column->addWidget(m_ccir);
        lists->addLayout(column);
        connect(m_ccir, &QSpinBox::valueChanged, this, [this](int value) {
            if (!m_refreshing)
                m_editor.setCcirNumber(value);
        });
    }

    m_warning = new QLabel(this);
    m_warning->setObjectName("warning");
    m_warning->setWordWrap(true);
    QSizePolicy policy = m_warning->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_warning->setSizePolicy(policy);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    if (program) {
        m_program = buttons->addButton(tr("&Program Channels"), QDialogButtonBox::ActionRole);
        // The channel on screen is stored first: the radio gets exactly what the dialog shows.
        connect(m_program, &QPushButton::clicked, this, [this, program] {
            if (m_editor.accept())
                m_programResult->run([&] { return program(m_editor); });
        });
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &ChannelConfigDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* top = new QHBoxLayout;
    top->addWidget(channelLabel);
    top->addWidget(m_channel);
    top->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(typeBox);
    layout->addLayout(lists);
    layout->addWidget(m_warning);
    m_programResult = new ProgramResultLine(this);
    layout->addWidget(m_programResult);
    layout->addStretch();
    layout->addWidget(buttons);

    connect(m_channel, &QSpinBox::valueChanged, this, [this](int value) {
        if (!m_refreshing)
            m_editor.setChannelNumber(value);
    });
    connect(typeGroup, &QButtonGroup::idClicked, this,
            [this](int id) { m_editor.setFrequencyType(Type(id)); });
    for (std::size_t i = 0; i < m_edits.size(); ++i) {
        connect(m_edits[i], &QLineEdit::textEdited, this,
                [this, i](const QString& text) { m_editor.setText(Edit(i), text.toStdString()); });
    }
    m_editor.setOnChanged([this] { refresh(); });
    refresh();
}

void ChannelConfigDialog::refresh()
{
    m_refreshing = true;
    m_channel->setValue(m_editor.channelNumber());
    m_types[std::size_t(m_editor.frequencyType())]->setChecked(true);
    for (std::size_t i = 0; i < m_edits.size(); ++i) {
        QLineEdit* edit = m_edits[i];
        const QString text = QString::fromStdString(m_editor.text(Edit(i)));
        // Leave the text being typed alone: replacing it would move the cursor.
        if (!edit->hasFocus() && edit->text() != text)
            edit->setText(text);
        edit->setVisible(m_editor.isVisible(Edit(i)));
    }
    const bool duplex = m_editor.isVisible(Edit::HalfDuplexTx);
    m_duplexLabels[0]->setVisible(duplex);
    m_duplexLabels[1]->setVisible(duplex);
    for (std::size_t i = 0; i < m_lists.size(); ++i)
        m_lists[i]->setCurrentIndex(m_editor.selectedIndex(List(i)));
    if (m_ccir) {
        // A channel without a number shows so at the value 0, below the numbers it can store;
        // once it has one, every choice the spin offers is a number.
        const int number = m_editor.ccirNumber();
        const bool none = number < ChannelConfigEditor::kMinCcirNumber;
        m_ccir->setSpecialValueText(none ? tr("None") : QString());
        m_ccir->setMinimum(none ? 0 : ChannelConfigEditor::kMinCcirNumber);
        m_ccir->setValue(number);
    }
    m_warning->setText(QString::fromStdString(m_editor.warning()));
    m_warning->setVisible(m_editor.isWarningVisible());
    // Red only for what stops OK; a remark that lets OK through (an empty channel) is a note.
    m_warning->setStyleSheet(m_editor.isOkEnabled()
                                 ? QStringLiteral("color: #505050;")
                                 : QStringLiteral("color: #c00000; font-weight: bold;"));
    m_ok->setEnabled(m_editor.isOkEnabled());
    if (m_program)
        m_program->setEnabled(m_editor.isOkEnabled());
    m_refreshing = false;
}

void ChannelConfigDialog::accept()
{
    if (m_editor.accept())
        QDialog::accept();
}

QLineEdit* ChannelConfigDialog::edit(ChannelConfigEditor::Edit which) const
{
    return m_edits[std::size_t(which)];
}

QRadioButton* ChannelConfigDialog::typeButton(ChannelConfigEditor::FrequencyType type) const
{
    return m_types[std::size_t(type)];
}

QComboBox* ChannelConfigDialog::list(ChannelConfigEditor::List which) const
{
    return m_lists[std::size_t(which)];
}

} // namespace koral
