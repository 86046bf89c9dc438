#include "gui/CcirSelfAddressDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace koral {

CcirSelfAddressDialog::CcirSelfAddressDialog(CcirSelfAddressEditor& editor, QWidget* parent)
    : HelpButtonDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("Self Address Configuration"));
    m_edit4 = new QLineEdit(QString::fromStdString(editor.text4()), this);
    m_edit4->setMaxLength(4);
    m_edit6 = new QLineEdit(QString::fromStdString(editor.text6()), this);
    m_edit6->setMaxLength(6);
    m_warning = new QLabel(this);
    m_warning->setStyleSheet(QStringLiteral("background-color: rgb(255, 255, 0);"));
    auto* form = new QFormLayout;
    form->addRow(tr("Self Address (4 digits)"), m_edit4);
    form->addRow(tr("Self Address (6 digits)"), m_edit6);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_warning);
    layout->addWidget(createButtons());
    connect(m_edit4, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_editor.setText4(text.toStdString());
        showState();
    });
    connect(m_edit6, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_editor.setText6(text.toStdString());
        showState();
    });
    showState();
}

void CcirSelfAddressDialog::showState()
{
    m_warning->setText(QString::fromStdString(m_editor.warning()));
    m_warning->setVisible(!m_editor.warning().empty());
    buttons()->button(QDialogButtonBox::Ok)->setEnabled(m_editor.okEnabled());
}

} // namespace koral
