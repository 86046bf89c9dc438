#include "gui/DirectoryListDialog.h"

#include "aledb/DirectoryListRules.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace koral {

DirectoryListDialog::DirectoryListDialog(DirectoryListRules& rules, const Labels& labels,
                                         QWidget* parent)
    : HelpButtonDialog(parent), m_rules(rules)
{
    setWindowTitle(labels.title);
    m_list = new QListWidget(this);
    m_list->setObjectName("directoryList");
    m_edit = new QLineEdit(this);
    // The rules judge every character and say why; the edit only keeps to the field size.
    m_edit->setMaxLength(labels.maxLength);
    m_occupied = new QLabel(this);
    m_status = new QLabel(this);
    m_status->setStyleSheet(QStringLiteral("color: rgb(192, 0, 0);"));
    m_add = new QPushButton(tr("ADD"), this);
    m_delete = new QPushButton(tr("DELETE"), this);

    auto* listBox = new QGroupBox(tr("Directory List"), this);
    (new QVBoxLayout(listBox))->addWidget(m_list);

    auto* status = new QGroupBox(tr("Directory Status"), this);
    auto* statusForm = new QFormLayout(status);
    statusForm->addRow(tr("Maximum Available:"), new QLabel(QString::number(labels.maximum), this));
    statusForm->addRow(labels.occupied, m_occupied);

    auto* editRow = new QHBoxLayout;
    editRow->addWidget(m_edit, 1);
    editRow->addWidget(m_add);
    editRow->addWidget(m_delete);

    m_side = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    right->addLayout(m_side);
    right->addWidget(status);
    right->addWidget(new QLabel(labels.editLabel, this));
    right->addLayout(editRow);
    right->addWidget(m_status);
    right->addStretch();

    auto* body = new QHBoxLayout;
    body->addWidget(listBox, 1);
    body->addLayout(right, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addWidget(createButtons());

    connect(m_edit, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_rules.setEditText(text.toStdString());
        showState();
    });
    connect(m_list, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row < 0)
            return;
        m_rules.selectEntry(row);
        m_edit->setText(QString::fromStdString(m_rules.editText()));
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
    connect(m_add, &QPushButton::clicked, this, [this, changed] { changed(m_rules.add()); });
    connect(m_delete, &QPushButton::clicked, this, [this, changed] { changed(m_rules.remove()); });
    fillList();
    showState();
}

void DirectoryListDialog::fillList()
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const std::string& line : m_rules.listLines())
        m_list->addItem(QString::fromStdString(line));
}

void DirectoryListDialog::showState()
{
    m_occupied->setText(QString::number(m_rules.occupiedCount()));
    m_status->setText(QString::fromStdString(m_rules.statusText()));
    m_status->setVisible(!m_rules.statusText().empty());
    m_add->setEnabled(m_rules.addEnabled());
    m_delete->setEnabled(m_rules.deleteEnabled());
}

} // namespace koral
