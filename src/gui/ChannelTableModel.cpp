#include "gui/ChannelTableModel.h"

#include "gui/GuiColours.h"
#include "gui/RssDocument.h"

#include <QEvent>
#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <vector>

namespace koral {

ChannelTableModel::ChannelTableModel(const RssDocument& document, QObject* parent)
    : QAbstractTableModel(parent), m_document(document)
{
    refresh();
}

void ChannelTableModel::refresh()
{
    beginResetModel();
    std::optional<CcirChannelNumbers> ccir;
    if (m_document.ccirPresent)
        ccir = m_document.ccirNumbers;
    m_summary = RadioSummary::of(m_document.record.channels, ccir);
    endResetModel();
}

int ChannelTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_summary.rows.size());
}

int ChannelTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_summary.header.size());
}

QVariant ChannelTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(
            m_summary.rows[std::size_t(index.row())][std::size_t(index.column())]);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignCenter);
    case Qt::ForegroundRole:
        if (m_document.record.channelNo(index.row() + 1).isProgrammed())
            return colours::programmedText();
        return colours::unprogrammedText();
    default:
        return {};
    }
}

QVariant ChannelTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::DisplayRole)
        return QString::fromStdString(m_summary.header[std::size_t(section)]);
    if (role == Qt::BackgroundRole)
        return colours::fromBgr(RadioSummary::kHeaderColourBgr);
    return {};
}

void styleChannelView(QTableView* view)
{
    view->verticalHeader()->hide();
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 4);
    view->horizontalHeader()->setStyleSheet(
        QStringLiteral("QHeaderView::section { background-color: %1; }")
            .arg(colours::gridHeader().name()));
}

namespace {

// Keeps a view's columns at their text's width at least, and shares the room left over
// among them whenever the view is resized.
class ColumnFitter : public QObject
{
public:
    static constexpr const char* kName = "columnFitter";

    explicit ColumnFitter(QTableView* view) : QObject(view), m_view(view)
    {
        setObjectName(kName);
        view->viewport()->installEventFilter(this);
    }

    void fit()
    {
        QHeaderView* header = m_view->horizontalHeader();
        const int count = header->count();
        if (count == 0)
            return;
        std::vector<int> widths(std::size_t(count), 0);
        int total = 0;
        for (int c = 0; c < count; ++c) {
            widths[std::size_t(c)] =
                std::max(static_cast<QAbstractItemView*>(m_view)->sizeHintForColumn(c),
                         header->sectionSizeHint(c));
            total += widths[std::size_t(c)];
        }
        const int room = std::max(0, m_view->viewport()->width() - total);
        for (int c = 0; c < count; ++c)
            header->resizeSection(c, widths[std::size_t(c)] + room / count +
                                         (c < room % count ? 1 : 0));
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Resize)
            fit();
        return false;
    }

private:
    QTableView* m_view;
};

} // namespace

void fitChannelColumns(QTableView* view)
{
    auto* fitter = static_cast<ColumnFitter*>(view->findChild<QObject*>(
        QString::fromLatin1(ColumnFitter::kName), Qt::FindDirectChildrenOnly));
    if (!fitter) {
        fitter = new ColumnFitter(view);
        view->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    }
    fitter->fit();
}

} // namespace koral
