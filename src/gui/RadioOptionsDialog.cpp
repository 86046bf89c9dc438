#include "gui/RadioOptionsDialog.h"

#include "radiodb/RadioValueLists.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

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

    auto* priority = new QComboBox(this);
    priority->setObjectName("priority");
    for (int channel = 1; channel <= kChannelCount; ++channel)
        priority->addItem(QString::number(channel));
    auto* scanRate = listOf(this, "scanRate", values::kScanRate);
    auto* baudRate = listOf(this, "baudRate", values::kBaudRate);
    auto* alertTone = listOf(this, "alertTone", values::kAlertTone);
    auto* cwPttHold = listOf(this, "cwPttHold", values::kCwPttHold);
    auto* alternate = listOf(this, "alternateDisplay", values::kAlternateDisplayTime);
    auto* dataPower = listOf(this, "dataPower", values::kPower);
    auto* language = listOf(this, "language", values::kLanguage);

    priority->setCurrentIndex(editor.priorityIndex());
    scanRate->setCurrentIndex(editor.scanRateIndex());
    baudRate->setCurrentIndex(editor.baudRateIndex());
    alertTone->setCurrentIndex(editor.alertToneIndex());
    cwPttHold->setCurrentIndex(editor.cwPttHoldIndex());
    alternate->setCurrentIndex(editor.alternateDisplayIndex());
    dataPower->setCurrentIndex(editor.dataPowerIndex());
    language->setCurrentIndex(editor.languageIndex());

    auto* lists = new QFormLayout;
    lists->addRow(tr("Priority Channel :"), priority);
    lists->addRow(tr("Scan Rate :"), scanRate);
    lists->addRow(tr("Baud Rate :"), baudRate);
    lists->addRow(tr("Alert tone :"), alertTone);
    lists->addRow(tr("CW PTT Hold :"), cwPttHold);
    lists->addRow(tr("Alternate Display :"), alternate);
    lists->addRow(tr("Data Power Level :"), dataPower);
    lists->addRow(tr("Language :"), language);

    connect(priority, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_editor.setPriorityIndex(i); });
    connect(scanRate, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_editor.setScanRateIndex(i); });
    connect(baudRate, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_editor.setBaudRateIndex(i); });
    connect(alertTone, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_editor.setAlertToneIndex(i); });
    connect(cwPttHold, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_editor.setCwPttHoldIndex(i); });
    connect(alternate, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_editor.setAlternateDisplayIndex(i); });
    connect(dataPower, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_editor.setDataPowerIndex(i); });
    connect(language, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_editor.setLanguageIndex(i); });

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
    columns->addLayout(lists);
    columns->addSpacing(16);
    columns->addLayout(checks);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    if (program) {
        m_program = buttons->addButton(tr("&Program Options"), QDialogButtonBox::ActionRole);
        connect(m_program, &QPushButton::clicked, this, [this, program] {
            setEnabled(false);
            QApplication::setOverrideCursor(Qt::WaitCursor);
            program(m_editor);
            QApplication::restoreOverrideCursor();
            setEnabled(true);
        });
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
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
