#include "gui/CallListDialog.h"
#include "gui/QtText.h"

#include "common/Texts.h"
#include "gui/GuiColours.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace koral {

namespace {

// The grid's widths are kept in twips for the small system font they were made for (15 twips
// a pixel, five pixels a character); they grow with the font shown here.
int pixelsOfTwips(int twips, const QFontMetrics& metrics)
{
    return twips * metrics.averageCharWidth() / (15 * 5);
}

// Net names run longer than the width this column was made for.
constexpr int kNetColumn = 6;
static_assert(CallListEditor::kColumns[kNetColumn].header == "Net");

} // namespace

CallListDialog::CallListDialog(Kind kind, std::vector<CallRecord>& list, Notifier& notifier,
                               QWidget* parent)
    : QDialog(parent), m_editor(list, notifier)
{
    setObjectName(kind == Kind::Stack ? "stackListDialog" : "callLogDialog");
    setWindowTitle(qs(kind == Kind::Stack ? text::kStackListTitle : text::kCallLogTitle));
    auto* layout = new QVBoxLayout(this);
    m_grid = new QTableWidget(this);
    m_grid->setColumnCount(int(CallListEditor::kColumns.size()));
    int width = 0;
    for (int c = 0; c < int(CallListEditor::kColumns.size()); ++c) {
        const auto& column = CallListEditor::kColumns[std::size_t(c)];
        m_grid->setHorizontalHeaderItem(c, new QTableWidgetItem(qs(column.header)));
        const int pixels = pixelsOfTwips(column.widthTwips, m_grid->fontMetrics());
        m_grid->setColumnWidth(c, pixels);
        width += pixels;
    }
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->verticalHeader()->setDefaultSectionSize(20);
    QPalette palette = m_grid->palette();
    palette.setColor(QPalette::Base, colours::fromBgr(0xFFC864));
    m_grid->setPalette(palette);
    m_grid->setMinimumSize(width + m_grid->verticalHeader()->sizeHint().width() + 24, 260);
    layout->addWidget(m_grid, 1);

    auto* row = new QHBoxLayout;
    const std::string_view labels[] = {text::kDelete, text::kDeleteAll,
                                       kind == Kind::Stack ? text::kReply : text::kRefresh,
                                       text::kHelp};
    for (std::string_view label : labels) {
        auto* b = new QPushButton(qs(label), this);
        m_buttons << b;
        row->addWidget(b);
    }
    layout->addLayout(row);

    connect(button(text::kDelete), &QPushButton::clicked, this, [this] {
        if (m_editor.deleteRow(selectedRow()))
            fill();
    });
    connect(button(text::kDeleteAll), &QPushButton::clicked, this, [this] {
        m_editor.deleteAll();
        fill();
    });
    if (kind == Kind::Stack) {
        connect(button(text::kReply), &QPushButton::clicked, this, [this] {
            if (const auto record = m_editor.replyRecord(selectedRow())) {
                accept();
                emit replyRequested(*record);
            }
        });
    } else {
        connect(button(text::kRefresh), &QPushButton::clicked, this, &CallListDialog::fill);
    }
    connect(button(text::kHelp), &QPushButton::clicked, this, &CallListDialog::helpRequested);
    fill();
}

QPushButton* CallListDialog::button(std::string_view label) const
{
    for (QPushButton* b : m_buttons)
        if (b->text() == qs(label))
            return b;
    return nullptr;
}

int CallListDialog::selectedRow() const
{
    const QList<QTableWidgetItem*> items = m_grid->selectedItems();
    return items.isEmpty() ? -1 : items.front()->row() + 1;
}

void CallListDialog::fill()
{
    m_grid->clearContents();
    m_grid->setRowCount(m_editor.recordCount());
    for (int r = 1; r <= m_editor.recordCount(); ++r)
        for (int c = 0; c < int(CallListEditor::kColumns.size()); ++c)
            m_grid->setItem(r - 1, c,
                            new QTableWidgetItem(QString::fromStdString(m_editor.cell(r, c))));
    // The net column shows its longest name whole, and is never narrower than it was made.
    const int made =
        pixelsOfTwips(CallListEditor::kColumns[kNetColumn].widthTwips, m_grid->fontMetrics());
    m_grid->resizeColumnToContents(kNetColumn);
    m_grid->setColumnWidth(kNetColumn, std::max(made, m_grid->columnWidth(kNetColumn)));
}

} // namespace koral
