#include "gui/RadioOptionsDialog.h"

#include "gui/ProgramResultLine.h"
#include "radiodb/RadioValueLists.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <string>
#include <vector>

namespace koral {

namespace {

QComboBox* listOf(QWidget* parent, const QString& name, ValueList list)
{
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    for (const ValueText& entry : entriesOf(list))
        combo->addItem(QString::fromUtf8(entry.text));
    return combo;
}

} // namespace

RadioOptionsDialog::RadioOptionsDialog(RadioOptionsEditor& editor, ProgramFunction program,
                                       QWidget* parent)
    : QDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("Radio Options"));

    // The priority list offers the channel numbers; the others come from their value lists.
    std::vector<ValueText> channels;
    std::vector<std::string> numbers;
    numbers.reserve(kChannelCount);
    for (int channel = 1; channel <= kChannelCount; ++channel)
        numbers.push_back(std::to_string(channel));
    for (int channel = 1; channel <= kChannelCount; ++channel)
        channels.push_back({channel, numbers[std::size_t(channel - 1)].c_str()});

    using Ed = RadioOptionsEditor;
    struct List
    {
        const char* name;
        const char* label;
        ValueList values;
        int (Ed::*get)() const;
        void (Ed::*set)(int);
    };
    const List lists[] = {
        {"priority", "Priority Channel :", channels, &Ed::priorityIndex, &Ed::setPriorityIndex},
        {"scanRate", "Scan Rate :", values::kScanRate, &Ed::scanRateIndex, &Ed::setScanRateIndex},
        {"baudRate", "Baud Rate :", values::kBaudRate, &Ed::baudRateIndex, &Ed::setBaudRateIndex},
        {"alertTone", "Alert tone :", values::kAlertTone, &Ed::alertToneIndex,
         &Ed::setAlertToneIndex},
        {"cwPttHold", "CW PTT Hold :", values::kCwPttHold, &Ed::cwPttHoldIndex,
         &Ed::setCwPttHoldIndex},
        {"alternateDisplay", "Alternate Display :", values::kAlternateDisplayTime,
         &Ed::alternateDisplayIndex, &Ed::setAlternateDisplayIndex},
        {"dataPower", "Data Power Level :", values::kPower, &Ed::dataPowerIndex,
         &Ed::setDataPowerIndex},
        {"language", "Language :", values::kLanguage, &Ed::languageIndex, &Ed::setLanguageIndex},
    };
    auto* form = new QFormLayout;
    for (const List& list : lists) {
        QComboBox* combo = listOf(this, list.name, list.values);
        combo->setCurrentIndex((editor.*list.get)());
        form->addRow(tr(list.label), combo);
        const auto set = list.set;
        connect(combo, &QComboBox::currentIndexChanged, this,
                [this, set](int index) { (m_editor.*set)(index); });
    }

    struct Box
    {
        const char* name;
        const char* text;
        bool (RadioOptionsEditor::*get)() const;
        void (RadioOptionsEditor::*set)(bool);
    };
    const Box boxes[] = {
        {"beepKeyboard", "Beep after keyboard press", &RadioOptionsEditor::beepAfterKeyboardPress,
         &RadioOptionsEditor::setBeepAfterKeyboardPress},
        {"beepPtt", "Beep after PTT release", &RadioOptionsEditor::beepAfterPttRelease,
         &RadioOptionsEditor::setBeepAfterPttRelease},
        {"accessorySideTone", "Accessory side tone", &RadioOptionsEditor::accessorySideTone,
         &RadioOptionsEditor::setAccessorySideTone},
        {"microphoneSideTone", "Microphone side tone", &RadioOptionsEditor::microphoneSideTone,
         &RadioOptionsEditor::setMicrophoneSideTone},
        {"hideFrequency", "Hide frequency", &RadioOptionsEditor::hideFrequency,
         &RadioOptionsEditor::setHideFrequency},
        {"noiseBlanker", "Noise Blanker", &RadioOptionsEditor::noiseBlanker,
         &RadioOptionsEditor::setNoiseBlanker},
        {"isb", "ISB", &RadioOptionsEditor::isb, &RadioOptionsEditor::setIsb},
    };
    auto* checks = new QVBoxLayout;
    for (const Box& box : boxes) {
        auto* check = new QCheckBox(tr(box.text), this);
        check->setObjectName(box.name);
        check->setChecked((editor.*box.get)());
        const auto set = box.set;
        connect(check, &QCheckBox::toggled, this, [this, set](bool on) { (m_editor.*set)(on); });
        checks->addWidget(check);
    }
    m_tuner = new QCheckBox(tr("Tuner"), this);
    m_tuner->setObjectName("tuner");
    checks->addWidget(m_tuner);
    checks->addStretch();

    auto* accessories = new QGroupBox(tr("Accessories"), this);
    m_amplifier = new QCheckBox(tr("Amplifier"), accessories);
    m_amplifier->setObjectName("amplifier");
    m_accessory1 = new QCheckBox(tr("Accessory 1"), accessories);
    m_accessory1->setObjectName("accessory1");
    m_accessory2 = new QCheckBox(tr("Accessory 2"), accessories);
    m_accessory2->setObjectName("accessory2");
    auto* accessoryLayout = new QVBoxLayout(accessories);
    accessoryLayout->addWidget(m_amplifier);
    accessoryLayout->addWidget(m_accessory1);
    accessoryLayout->addWidget(m_accessory2);
    checks->addWidget(accessories);
    showAccessories();

    using Acc = RadioOptionsEditor::Accessory;
    // clicked, not toggled: the boxes are set from the editor afterwards.
    connect(m_tuner, &QCheckBox::clicked, this, [this](bool on) {
        m_editor.setTuner(on);
        showAccessories();
    });
    const std::pair<QCheckBox*, Acc> accessoryBoxes[] = {{m_amplifier, Acc::Amplifier},
                                                         {m_accessory1, Acc::Accessory1},
                                                         {m_accessory2, Acc::Accessory2}};
    for (const auto& [box, which] : accessoryBoxes) {
        connect(box, &QCheckBox::clicked, this, [this, which = which](bool on) {
            m_editor.setAccessory(which, on);
            showAccessories();
        });
    }

    auto* columns = new QHBoxLayout;
    columns->addLayout(form);
    columns->addSpacing(16);
    columns->addLayout(checks);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    if (program) {
        m_program = buttons->addButton(tr("&Program Options"), QDialogButtonBox::ActionRole);
        connect(m_program, &QPushButton::clicked, this,
                [this, program] { m_programResult->run([&] { return program(m_editor); }); });
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    m_programResult = new ProgramResultLine(this);
    layout->addWidget(m_programResult);
    layout->addWidget(buttons);
}

void RadioOptionsDialog::showAccessories()
{
    using Acc = RadioOptionsEditor::Accessory;
    m_tuner->setChecked(m_editor.tuner());
    m_amplifier->setChecked(m_editor.accessory(Acc::Amplifier));
    m_accessory1->setChecked(m_editor.accessory(Acc::Accessory1));
    m_accessory2->setChecked(m_editor.accessory(Acc::Accessory2));
}

QComboBox* RadioOptionsDialog::combo(const QString& name) const
{
    return findChild<QComboBox*>(name);
}

QCheckBox* RadioOptionsDialog::check(const QString& name) const
{
    return findChild<QCheckBox*>(name);
}

} // namespace koral
