#include "gui/NetMembersDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace koral {

NetMembersDialog::NetMembersDialog(NetMembersEditor& editor, QWidget* parent)
    : HelpButtonDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("Net Members"));
    QStringList items;
    for (const std::string& item : editor.items())
        items << QString::fromStdString(item);
    auto* grid = new QGridLayout;
    constexpr int kRows = kAleMemberSlots / 2;
    for (int slot = 0; slot < kAleMemberSlots; ++slot) {
        auto* list = new QComboBox(this);
        list->addItems(items);
        list->setMinimumContentsLength(int(kAleAddressSize) - 1);
        list->setCurrentIndex(editor.selection(slot));
        connect(list, &QComboBox::activated, this, [this, slot](int position) {
            m_editor.choose(slot, position);
            showState();
        });
        const int column = slot / kRows * 2;
        grid->addWidget(new QLabel(tr("Member %1").arg(slot + 1), this), slot % kRows, column);
        grid->addWidget(list, slot % kRows, column + 1);
        m_slots[std::size_t(slot)] = list;
    }
    m_warning = new QLabel(this);
    m_warning->setStyleSheet(QStringLiteral("background-color: rgb(255, 255, 0);"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Net No. %1").arg(editor.net() + 1), this));
    layout->addLayout(grid);
    layout->addWidget(m_warning);
    layout->addWidget(createButtons());
    showState();
}

void NetMembersDialog::showState()
{
    m_warning->setText(QString::fromStdString(m_editor.warning()));
    m_warning->setVisible(!m_editor.warning().empty());
    buttons()->button(QDialogButtonBox::Ok)->setEnabled(m_editor.okEnabled());
}

} // namespace koral
