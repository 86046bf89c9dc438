#include "gui/DirectoryDialog.h"

#include "aledb/DirectoryEditor.h"

#include <QComboBox>
#include <QFormLayout>
#include <QVBoxLayout>

namespace koral {

namespace {

QComboBox* referenceList(QWidget* parent, const std::vector<std::string>& texts)
{
    auto* list = new QComboBox(parent);
    for (const std::string& text : texts)
        if (!text.empty())
            list->addItem(QString::fromStdString(text));
    return list;
}

} // namespace

DirectoryDialog::DirectoryDialog(DirectoryEditor& editor, QWidget* parent)
    : DirectoryListDialog(editor,
                          {tr("ALE Directory Configuration"), tr("Occupied Addresses:"),
                           tr("Address"), kAleDirectorySize, int(kAleAddressSize) - 1},
                          parent)
{
    auto* references = new QFormLayout;
    references->addRow(tr("Net Names"), referenceList(this, editor.netNames()));
    references->addRow(tr("Self Addresses"), referenceList(this, editor.selfAddresses()));
    sideColumn()->addLayout(references);
}

} // namespace koral
