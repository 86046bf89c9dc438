#include "gui/MessageDialog.h"

#include "aledb/ale_dbase.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace koral {

MessageDialog::MessageDialog(MessageEditor& editor, QWidget* parent)
    : HelpButtonDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("Message Configuration"));
    m_spin = new QSpinBox(this);
    m_spin->setRange(0, kAleMessageCount - 1);
    m_spin->setValue(editor.current());
    m_edit = new QLineEdit(this);
    m_edit->setMaxLength(int(kAleMessageSize) - 1);
    m_edit->setMinimumWidth(m_edit->fontMetrics().horizontalAdvance(QLatin1Char('M')) * 40);
    m_occupied = new QLabel(this);
    m_warning = new QLabel(tr("The message contains invalid characters"), this);
    m_warning->setStyleSheet(QStringLiteral("background-color: rgb(255, 255, 0);"));

    auto* form = new QFormLayout;
    form->addRow(tr("Message No."), m_spin);
    form->addRow(tr("Message"), m_edit);
    form->addRow(tr("Maximum Available:"), new QLabel(QString::number(kAleMessageCount), this));
    form->addRow(tr("Occupied Messages:"), m_occupied);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_warning);
    layout->addWidget(createButtons());

    connect(m_spin, &QSpinBox::valueChanged, this, [this](int number) {
        m_editor.setCurrent(number);
        m_edit->setText(QString::fromStdString(m_editor.text()));
        showState();
    });
    connect(m_edit, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_editor.setText(text.toStdString());
        showState();
    });
    m_edit->setText(QString::fromStdString(editor.text()));
    showState();
}

void MessageDialog::showState()
{
    m_occupied->setText(QString::number(m_editor.occupiedCount()));
    m_warning->setVisible(m_editor.warningVisible());
    m_spin->setEnabled(m_editor.spinEnabled());
    buttons()->button(QDialogButtonBox::Ok)->setEnabled(m_editor.okEnabled());
}

} // namespace koral
