#include "gui/PanelGrids.h"

#include "gui/GuiColours.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace koral::grids {

QTableWidget* create(QWidget* parent, const char* name, int rows, const QStringList& headers)
{
    auto* table = new QTableWidget(rows, int(headers.size()), parent);
    table->setObjectName(name);
    table->setHorizontalHeaderLabels(headers);
    table->horizontalHeader()->setStyleSheet(
        QStringLiteral("QHeaderView::section { background-color: %1; }")
            .arg(colours::gridHeader().name()));
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setWordWrap(false);
    return table;
}

void fill(QTableWidget* table, const Rows& rows, int firstNumber)
{
    QStringList numbers;
    for (int r = 0; r < int(rows.size()); ++r) {
        numbers << QString::number(r + firstNumber);
        const auto& row = rows[std::size_t(r)];
        for (int c = 0; c < int(row.size()); ++c)
            table->setItem(r, c, new QTableWidgetItem(QString::fromStdString(row[std::size_t(c)])));
    }
    table->setVerticalHeaderLabels(numbers);
}

QGroupBox* boxed(QWidget* parent, const QString& title, QWidget* content)
{
    auto* box = new QGroupBox(title, parent);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(content);
    return box;
}

QString htmlTable(const QString& title, const QTableWidget* table)
{
    QString html = QStringLiteral("<h3>%1</h3><table border=1 cellspacing=0 cellpadding=2><tr><th>"
                                  "</th>")
                       .arg(title.toHtmlEscaped());
    for (int c = 0; c < table->columnCount(); ++c)
        html += QStringLiteral("<th>%1</th>")
                    .arg(table->horizontalHeaderItem(c)->text().toHtmlEscaped());
    html += QStringLiteral("</tr>");
    for (int r = 0; r < table->rowCount(); ++r) {
        html += QStringLiteral("<tr><td>%1</td>").arg(table->verticalHeaderItem(r)->text());
        for (int c = 0; c < table->columnCount(); ++c) {
            const QTableWidgetItem* item = table->item(r, c);
            html +=
                QStringLiteral("<td>%1</td>").arg(item ? item->text().toHtmlEscaped() : QString());
        }
        html += QStringLiteral("</tr>");
    }
    return html + QStringLiteral("</table>");
}

} // namespace koral::grids
