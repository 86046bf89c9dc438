#include "gui/DirectoryDialog.h"

#include "aledb/ale_dbase.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
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
    : QDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("ALE Directory Configuration"));
    m_list = new QListWidget(this);
    m_list->setObjectName("directoryList");
    m_edit = new QLineEdit(this);
    m_edit->setMaxLength(int(kAleAddressSize) - 1);
    // The editor judges every character and says why; the edit only keeps to the field size.
    m_occupied = new QLabel(this);
    m_status = new QLabel(this);
    m_status->setStyleSheet(QStringLiteral("color: rgb(192, 0, 0);"));
    m_add = new QPushButton(tr("ADD"), this);
    m_delete = new QPushButton(tr("DELETE"), this);

    auto* listBox = new QGroupBox(tr("Directory List"), this);
    (new QVBoxLayout(listBox))->addWidget(m_list);

    auto* status = new QGroupBox(tr("Directory Status"), this);
    auto* statusForm = new QFormLayout(status);
    statusForm->addRow(tr("Maximum Available:"),
                       new QLabel(QString::number(kAleDirectorySize), this));
    statusForm->addRow(tr("Occupied Addresses:"), m_occupied);

    auto* references = new QFormLayout;
    references->addRow(tr("Net Names"), referenceList(this, editor.netNames()));
    references->addRow(tr("Self Addresses"), referenceList(this, editor.selfAddresses()));

    auto* editRow = new QHBoxLayout;
    editRow->addWidget(m_edit, 1);
    editRow->addWidget(m_add);
    editRow->addWidget(m_delete);

    auto* right = new QVBoxLayout;
    right->addLayout(references);
    right->addWidget(status);
    right->addWidget(new QLabel(tr("Address"), this));
    right->addLayout(editRow);
    right->addWidget(m_status);
    right->addStretch();

    auto* body = new QHBoxLayout;
    body->addWidget(listBox, 1);
    body->addLayout(right, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addWidget(buttons);

    connect(m_edit, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_editor.setAddressText(text.toStdString());
        showState();
    });
    connect(m_list, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row < 0)
            return;
        m_editor.selectEntry(row);
        m_edit->setText(QString::fromStdString(m_editor.addressText()));
        showState();
    });
    connect(m_add, &QPushButton::clicked, this, [this] {
        if (m_editor.add()) {
            fillList();
            m_edit->clear();
            m_edit->setFocus();
        }
        showState();
    });
    connect(m_delete, &QPushButton::clicked, this, [this] {
        if (m_editor.remove()) {
            fillList();
            m_edit->clear();
        }
        showState();
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    fillList();
    showState();
}

void DirectoryDialog::fillList()
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const std::string& entry : m_editor.entries())
        m_list->addItem(QString::fromStdString(entry));
}

void DirectoryDialog::showState()
{
    m_occupied->setText(QString::number(m_editor.occupiedCount()));
    m_status->setText(QString::fromStdString(m_editor.statusText()));
    m_status->setVisible(m_editor.statusVisible());
    m_add->setEnabled(m_editor.addEnabled());
    m_delete->setEnabled(m_editor.deleteEnabled());
}

} // namespace koral
