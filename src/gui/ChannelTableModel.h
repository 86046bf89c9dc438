#pragma once

#include "radiodb/RadioSummary.h"

#include <QAbstractTableModel>

namespace koral {

struct RssDocument;

// The RSS panel's channel view and the configuration summary: one row per channel with the
// summary columns, programmed channels in blue. The "Ch. Num." column is there only while
// the document carries CCIR channel numbers.
class ChannelTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit ChannelTableModel(const RssDocument& document, QObject* parent = nullptr);

    // Call after the document changed.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    static int columnTwips(int column)
    {
        return RadioSummary::kColumnWidthsTwips[std::size_t(column)];
    }

private:
    const RssDocument& m_document;
    RadioSummary m_summary;
};

} // namespace koral
