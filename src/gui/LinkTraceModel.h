#pragma once

#include "koralapi/LinkTraceRow.h"

#include <QAbstractTableModel>

#include <array>
#include <deque>
#include <vector>

namespace koral {

// The rows of the Link Trace window: the newest `capacity` rows of the link, with the faults
// coloured (retries amber, time-outs and failures red, damaged frames violet) and counted.
class LinkTraceModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        Time,
        Direction,
        Event,
        Frame,
        Message,
        Bytes,
        ColumnCount
    };

    explicit LinkTraceModel(std::size_t capacity, QObject* parent = nullptr);

    // Adds a batch of rows at the end, dropping the oldest beyond the capacity.
    void append(std::vector<LinkTraceRow> rows);
    void clear();
    const LinkTraceRow& row(int index) const { return m_rows[static_cast<std::size_t>(index)]; }
    // Rows of that mark added since the last clear (also those dropped since).
    int count(LinkTraceRow::Mark mark) const { return m_counts[static_cast<std::size_t>(mark)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::size_t m_capacity;
    std::deque<LinkTraceRow> m_rows;
    std::array<int, 6> m_counts{};
};

} // namespace koral
