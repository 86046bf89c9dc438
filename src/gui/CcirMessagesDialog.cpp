#include "gui/CcirMessagesDialog.h"
#include "gui/QtText.h"

#include "common/Texts.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace koral {

CcirMessagesDialog::CcirMessagesDialog(CcirMessagesEditor& editor, QWidget* parent)
    : HelpButtonDialog(parent), m_editor(editor)
{
    using Setting = CcirMessagesEditor::Setting;
    setWindowTitle(qs(text::kCcirMessagesTitle));
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);

    // No length limit in the edits: a longer text (typed or pasted) is shown whole and
    // warned about rather than cut without a word.
    auto* messages = new QGroupBox(qs(text::kCcirMessagesGroup), this);
    auto* messageForm = new QFormLayout(messages);
    for (int number = 1; number <= CcirMessagesEditor::kMessageCount; ++number) {
        auto* edit = new QLineEdit(QString::fromStdString(editor.message(number)), messages);
        edit->setFont(fixed);
        edit->setMinimumWidth(QFontMetrics(fixed).horizontalAdvance(
                                  QString(CcirMessagesEditor::kMessageLength + 2, 'W')) +
                              12);
        messageForm->addRow(qs(text::format(text::kCcirMessageLabel.data(), number)), edit);
        connect(edit, &QLineEdit::textEdited, this, [this, number](const QString& text) {
            m_editor.setMessage(number, text.toStdString());
            showState();
        });
        m_messages[std::size_t(number - 1)] = edit;
    }

    auto* settings = new QGroupBox(qs(text::kCcirSettingsGroup), this);
    auto* settingForm = new QFormLayout(settings);
    for (Setting setting : {Setting::Preamble, Setting::Beacon, Setting::Alarm}) {
        auto* edit = new QLineEdit(QString::fromStdString(editor.settingText(setting)), settings);
        edit->setMaximumWidth(
            QFontMetrics(edit->font()).horizontalAdvance(QStringLiteral("00000")) + 12);
        const std::string_view hint =
            setting == Setting::Preamble ? text::kCcirPreambleRange : text::kCcirOffOn;
        auto* row = new QHBoxLayout;
        row->addWidget(edit);
        row->addWidget(new QLabel(qs(hint), settings));
        row->addStretch();
        settingForm->addRow(qs(CcirMessagesEditor::name(setting)), row);
        connect(edit, &QLineEdit::textEdited, this, [this, setting](const QString& text) {
            m_editor.setSettingText(setting, text.toStdString());
            showState();
        });
        m_settings[std::size_t(setting)] = edit;
    }

    m_warning = new QLabel(this);
    m_warning->setWordWrap(true);
    m_warning->setStyleSheet(QStringLiteral("background-color: rgb(255, 255, 0);"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(messages);
    layout->addWidget(settings);
    layout->addWidget(m_warning);
    layout->addWidget(createButtons());
    showState();
}

void CcirMessagesDialog::showState()
{
    m_warning->setText(QString::fromStdString(m_editor.warning()));
    m_warning->setVisible(!m_editor.warning().empty());
    buttons()->button(QDialogButtonBox::Ok)->setEnabled(m_editor.okEnabled());
}

} // namespace koral
