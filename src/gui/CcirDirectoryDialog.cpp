#include "gui/CcirDirectoryDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace koral {

CcirDirectoryDialog::CcirDirectoryDialog(CcirDirectoryEditor& editor, QWidget* parent)
    : QDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("CCIR Directory Configuration"));
    m_list = new QListWidget(this);
    m_edit = new QLineEdit(this);
    m_edit->setMaxLength(6);
    m_occupied = new QLabel(this);
    m_status = new QLabel(this);
    m_status->setStyleSheet(QStringLiteral("color: rgb(192, 0, 0);"));
    m_add = new QPushButton(tr("ADD"), this);
    m_delete = new QPushButton(tr("DELETE"), this);

    auto* status = new QFormLayout;
    status->addRow(tr("Maximum Available:"), new QLabel(QString::number(kCcirDirectorySize), this));
    status->addRow(tr("Occupied Identities:"), m_occupied);
    auto* editRow = new QHBoxLayout;
    editRow->addWidget(m_edit, 1);
    editRow->addWidget(m_add);
    editRow->addWidget(m_delete);
    auto* right = new QVBoxLayout;
    right->addLayout(status);
    right->addWidget(new QLabel(tr("Identity (4 or 6 digits)"), this));
    right->addLayout(editRow);
    right->addWidget(m_status);
    right->addStretch();
    auto* body = new QHBoxLayout;
    body->addWidget(m_list, 1);
    body->addLayout(right, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addWidget(buttons);

    connect(m_edit, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_editor.setIdentityText(text.toStdString());
        showState();
    });
    connect(m_list, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row < 0)
            return;
        const auto entries = m_editor.entries();
        m_editor.setIdentityText(entries[std::size_t(row)].identity);
        m_edit->setText(QString::fromStdString(m_editor.identityText()));
        showState();
    });
    const auto changed = [this](bool done) {
        if (done) {
            fillList();
            m_edit->clear();
            m_edit->setFocus();
        }
        showState();
    };
    connect(m_add, &QPushButton::clicked, this, [this, changed] { changed(m_editor.add()); });
    connect(m_delete, &QPushButton::clicked, this, [this, changed] { changed(m_editor.remove()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    fillList();
    showState();
}

void CcirDirectoryDialog::fillList()
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const auto& entry : m_editor.entries())
        m_list->addItem(QStringLiteral("%1  %2")
                            .arg(entry.slot, 2, 10, QLatin1Char('0'))
                            .arg(QString::fromStdString(entry.identity)));
}

void CcirDirectoryDialog::showState()
{
    m_occupied->setText(QString::number(m_editor.occupiedCount()));
    m_status->setText(QString::fromStdString(m_editor.statusText()));
    m_status->setVisible(!m_editor.statusText().empty());
    m_add->setEnabled(m_editor.addEnabled());
    m_delete->setEnabled(m_editor.deleteEnabled());
}

} // namespace koral
