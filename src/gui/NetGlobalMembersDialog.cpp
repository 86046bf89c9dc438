#include "gui/NetGlobalMembersDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace koral {

NetGlobalMembersDialog::NetGlobalMembersDialog(NetGlobalMembersEditor& editor, QWidget* parent)
    : HelpButtonDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("Net Global Members"));
    m_name = new QLineEdit(QString::fromStdString(editor.groupName()), this);
    m_name->setMaxLength(int(kAleAddressSize) - 1);
    QStringList items;
    for (const std::string& item : editor.items())
        items << QString::fromStdString(item);
    auto* grid = new QGridLayout;
    constexpr int kRows = kAleGlobalMemberSlots / 2;
    for (int slot = 0; slot < kAleGlobalMemberSlots; ++slot) {
        auto* list = new QComboBox(this);
        list->addItems(items);
        list->setMinimumContentsLength(int(kAleAddressSize) - 1);
        list->setCurrentIndex(editor.selection(slot));
        auto* priority = new QCheckBox(tr("Priority"), this);
        priority->setChecked(editor.priority(slot));
        connect(list, &QComboBox::activated, this, [this, slot](int position) {
            m_editor.choose(slot, position);
            showState();
        });
        connect(priority, &QCheckBox::clicked, this, [this, slot](bool on) {
            m_editor.setPriority(slot, on);
            showState();
        });
        const int column = slot / kRows * 3;
        grid->addWidget(new QLabel(tr("Member %1").arg(slot + 1), this), slot % kRows, column);
        grid->addWidget(list, slot % kRows, column + 1);
        grid->addWidget(priority, slot % kRows, column + 2);
        m_slots[std::size_t(slot)] = list;
        m_priorities[std::size_t(slot)] = priority;
    }
    m_warning = new QLabel(this);
    m_warning->setStyleSheet(QStringLiteral("background-color: rgb(255, 255, 0);"));
    connect(m_name, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_editor.setGroupName(text.toStdString());
        showState();
    });
    auto* form = new QFormLayout;
    form->addRow(tr("Net No."), new QLabel(QString::number(editor.net() + 1), this));
    form->addRow(tr("Group Name"), m_name);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(grid);
    layout->addWidget(m_warning);
    layout->addWidget(createButtons());
    showState();
}

void NetGlobalMembersDialog::showState()
{
    for (int slot = 0; slot < kAleGlobalMemberSlots; ++slot) {
        m_priorities[std::size_t(slot)]->setEnabled(m_editor.selection(slot) != 0);
        m_priorities[std::size_t(slot)]->setChecked(m_editor.priority(slot));
    }
    m_warning->setText(QString::fromStdString(m_editor.warning()));
    m_warning->setVisible(!m_editor.warning().empty());
    buttons()->button(QDialogButtonBox::Ok)->setEnabled(m_editor.okEnabled());
}

} // namespace koral
