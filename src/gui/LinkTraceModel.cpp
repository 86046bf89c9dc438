#include "gui/LinkTraceModel.h"

#include <QColor>
#include <QFontDatabase>

namespace koral {

namespace {

QVariant background(LinkTraceRow::Mark mark)
{
    using Mark = LinkTraceRow::Mark;
    switch (mark) {
    case Mark::None:
        return {};
    case Mark::Retry:
        return QColor(0xFF, 0xE0, 0x99);
    case Mark::Timeout:
    case Mark::Failed:
        return QColor(0xFF, 0xB8, 0xB8);
    case Mark::ChecksumError:
    case Mark::BadFrame:
        return QColor(0xE8, 0xB8, 0xFF);
    }
    return {};
}

} // namespace

LinkTraceModel::LinkTraceModel(std::size_t capacity, QObject* parent)
    : QAbstractTableModel(parent), m_capacity(capacity > 0 ? capacity : 1)
{}

void LinkTraceModel::append(std::vector<LinkTraceRow> rows)
{
    if (rows.empty())
        return;
    for (const LinkTraceRow& row : rows)
        ++m_counts[static_cast<std::size_t>(row.mark)];
    if (rows.size() > m_capacity)
        rows.erase(rows.begin(), rows.end() - static_cast<std::ptrdiff_t>(m_capacity));
    const std::size_t overflow =
        m_rows.size() + rows.size() > m_capacity ? m_rows.size() + rows.size() - m_capacity : 0;
    if (overflow > 0) {
        beginRemoveRows({}, 0, static_cast<int>(overflow) - 1);
        m_rows.erase(m_rows.begin(), m_rows.begin() + static_cast<std::ptrdiff_t>(overflow));
        endRemoveRows();
    }
    const int first = static_cast<int>(m_rows.size());
    beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
    std::move(rows.begin(), rows.end(), std::back_inserter(m_rows));
    endInsertRows();
}

void LinkTraceModel::clear()
{
    beginResetModel();
    m_rows.clear();
    m_counts = {};
    endResetModel();
}

int LinkTraceModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LinkTraceModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant LinkTraceModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const LinkTraceRow& r = row(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        switch (index.column()) {
        case Time:
            return QString::number(r.timeMs);
        case Direction:
            return QString::fromStdString(r.direction);
        case Event:
            return QString::fromStdString(r.markText);
        case Frame:
            return QString::fromStdString(r.frame);
        case Message:
            return QString::fromStdString(r.fields.empty() || r.message.empty()
                                              ? r.message + r.fields
                                              : r.message + ' ' + r.fields);
        case Bytes:
            return QString::fromStdString(r.hex);
        }
        return {};
    case Qt::BackgroundRole:
        return background(r.mark);
    case Qt::ForegroundRole:
        if (index.column() == Direction && r.mark == LinkTraceRow::Mark::None)
            return r.direction == "->" ? QColor(0x00, 0x30, 0xA0) : QColor(0x00, 0x70, 0x20);
        return {};
    case Qt::FontRole:
        if (index.column() == Bytes)
            return QFontDatabase::systemFont(QFontDatabase::FixedFont);
        return {};
    case Qt::TextAlignmentRole:
        if (index.column() == Time)
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

QVariant LinkTraceModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Time:
        return tr("Time (ms)");
    case Direction:
        return tr("Dir.");
    case Event:
        return tr("Event");
    case Frame:
        return tr("Frame");
    case Message:
        return tr("Message");
    case Bytes:
        return tr("Bytes");
    }
    return {};
}

} // namespace koral
