#pragma once

#include "radiodb/RadioSummary.h"

#include <QAbstractTableModel>

class QTableView;

namespace koral {

struct RssDocument;

// The RSS panel's channel view and the configuration summary: one row per channel with the
// summary columns, programmed channels in blue and the others quieter. The "Ch. Num." column
// is there only while the document carries CCIR channel numbers.
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

private:
    const RssDocument& m_document;
    RadioSummary m_summary;
};

// The look the channel grids share: the coloured header, compact rows, no row numbers.
void styleChannelView(QTableView* view);
// Spreads the columns over the view's width, none narrower than its widest text, so no value
// is cut while there is room (the view scrolls when there is none).
void fitChannelColumns(QTableView* view);

} // namespace koral
