#include "gui/AutoDialDialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace koral {

namespace {

QStringList itemsOf(const std::vector<std::string>& items)
{
    QStringList list;
    for (const std::string& item : items)
        list << QString::fromStdString(item);
    return list;
}

} // namespace

AutoDialDialog::AutoDialDialog(AutoDialEditor& editor, QWidget* parent)
    : HelpButtonDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("Automatic Dial Configuration"));
    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(tr("Call to address..."), this), 0, 1);
    grid->addWidget(new QLabel(tr("With message..."), this), 0, 2);
    const QStringList addresses = itemsOf(editor.addressItems());
    const QStringList messages = itemsOf(editor.messageItems());
    for (int row = 0; row < kAleAutoDialCount; ++row) {
        auto* address = new QComboBox(this);
        address->addItems(addresses);
        address->setCurrentIndex(editor.addressSelection(row));
        auto* message = new QComboBox(this);
        message->addItems(messages);
        message->setCurrentIndex(editor.messageSelection(row));
        message->setMinimumContentsLength(30);
        connect(address, &QComboBox::activated, this,
                [this, row](int position) { m_editor.chooseAddress(row, position); });
        connect(message, &QComboBox::activated, this,
                [this, row](int position) { m_editor.chooseMessage(row, position); });
        grid->addWidget(new QLabel(QString::number(row), this), row + 1, 0);
        grid->addWidget(address, row + 1, 1);
        grid->addWidget(message, row + 1, 2);
        m_addresses[std::size_t(row)] = address;
        m_messages[std::size_t(row)] = message;
    }
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(createButtons());
}

} // namespace koral
