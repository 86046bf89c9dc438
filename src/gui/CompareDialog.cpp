#include "gui/CompareDialog.h"

#include "common/Texts.h"
#include "gui/QtText.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace koral {

CompareDialog::CompareDialog(const std::vector<std::string>& differences, Purpose purpose,
                             QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this))
{
    setWindowTitle(purpose == Purpose::Write ? tr("Write Device") : qs(text::kCompareTitle));
    for (const std::string& line : differences)
        m_lines << QString::fromStdString(line);

    setMinimumWidth(460);
    auto* layout = new QVBoxLayout(this);
    QString count = qs(text::kCompareOne);
    if (differences.empty())
        count = qs(text::kCompareSame);
    else if (differences.size() > 1)
        count = QString::fromStdString(
            text::format(text::kCompareCount.data(), static_cast<int>(differences.size())));
    auto* summary = new QLabel(count, this);
    summary->setWordWrap(true);
    layout->addWidget(summary);
    m_list->addItems(m_lines);
    m_list->setAlternatingRowColors(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setMinimumSize(560, differences.empty() ? 60 : 280);
    m_list->setVisible(!differences.empty());
    layout->addWidget(m_list, 1);

    auto* buttons = new QDialogButtonBox(this);
    if (purpose == Purpose::Write) {
        auto* question = new QLabel(qs(text::kCompareWriteQuestion), this);
        layout->addWidget(question);
        m_confirm = buttons->addButton(qs(text::kCompareWrite), QDialogButtonBox::AcceptRole);
        buttons->addButton(QDialogButtonBox::Cancel)->setDefault(true);
    } else {
        m_confirm = buttons->addButton(QDialogButtonBox::Close);
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

} // namespace koral
