#include "gui/ChannelTableModel.h"

#include "gui/GuiColours.h"
#include "gui/RssDocument.h"

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
        return {};
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

} // namespace koral
