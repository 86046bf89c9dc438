#pragma once

#include <QDialog>

#include <cstdint>

class QLabel;
class QTableView;
class QTimer;

namespace koral {

class LinkTraceModel;
class LinkTraceRecorder;
class Notifier;

// The Link Trace window: the frames of the link as they pass, newest at the bottom, with
// retries, time-outs and damaged frames coloured. It never holds the link up: the link only
// records, and the window takes the new rows in batches a few times a second while it shows.
class LinkTraceWindow : public QDialog
{
    Q_OBJECT
public:
    static constexpr int kRefreshMs = 200;

    LinkTraceWindow(LinkTraceRecorder& recorder, Notifier& notifier, QWidget* parent = nullptr);

    LinkTraceModel* model() const { return m_model; }
    QTableView* view() const { return m_view; }

    // Takes the rows recorded since the last refresh.
    void refresh();
    // Forgets the rows shown and kept (a file named with --trace goes on).
    void clearTrace();
    // Saves the rows kept as a trace file, where the operator chooses.
    void saveAs();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void updateSummary();

    LinkTraceRecorder& m_recorder;
    Notifier& m_notifier;
    LinkTraceModel* m_model;
    QTableView* m_view;
    QLabel* m_summary;
    QTimer* m_timer;
    std::uint64_t m_next = 0;
};

} // namespace koral
