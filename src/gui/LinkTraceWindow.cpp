#include "gui/LinkTraceWindow.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "gui/LinkTraceModel.h"
#include "gui/MessageBoxNotifier.h"
#include "koralapi/LinkTraceRecorder.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace koral {

LinkTraceWindow::LinkTraceWindow(LinkTraceRecorder& recorder, Notifier& notifier, QWidget* parent)
    : QDialog(parent), m_recorder(recorder), m_notifier(notifier),
      m_model(new LinkTraceModel(LinkTraceRecorder::kDefaultCapacity, this)),
      m_view(new QTableView(this)), m_summary(new QLabel(this)), m_timer(new QTimer(this))
{
    setObjectName(QStringLiteral("linkTraceWindow"));
    setWindowTitle(tr("Link Trace"));
    setSizeGripEnabled(true);

    m_view->setObjectName(QStringLiteral("frames"));
    m_view->setModel(m_model);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    QHeaderView* header = m_view->horizontalHeader();
    header->setStretchLastSection(true);
    const int widths[] = {70, 36, 80, 100, 440};
    for (int column = 0; column < LinkTraceModel::Bytes; ++column)
        header->resizeSection(column, widths[column]);

    m_summary->setObjectName(QStringLiteral("summary"));
    auto* clear = new QPushButton(tr("C&lear"), this);
    clear->setObjectName(QStringLiteral("clear"));
    auto* save = new QPushButton(tr("&Save As..."), this);
    save->setObjectName(QStringLiteral("saveAs"));
    auto* close = new QPushButton(tr("&Close"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_summary, 1);
    buttons->addWidget(clear);
    buttons->addWidget(save);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_view, 1);
    layout->addLayout(buttons);
    resize(1120, 480);

    connect(clear, &QPushButton::clicked, this, &LinkTraceWindow::clearTrace);
    connect(save, &QPushButton::clicked, this, &LinkTraceWindow::saveAs);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    m_timer->setInterval(kRefreshMs);
    connect(m_timer, &QTimer::timeout, this, &LinkTraceWindow::refresh);
    updateSummary();
}

void LinkTraceWindow::refresh()
{
    std::vector<LinkTraceRow> rows = m_recorder.rowsSince(m_next);
    if (rows.empty())
        return;
    // Follow the newest frames unless the operator scrolled up to read older ones.
    const QScrollBar* bar = m_view->verticalScrollBar();
    const bool atEnd = bar->value() >= bar->maximum();
    m_model->append(std::move(rows));
    if (atEnd)
        m_view->scrollToBottom();
    updateSummary();
}

void LinkTraceWindow::clearTrace()
{
    m_recorder.clear();
    m_recorder.rowsSince(m_next); // nothing before this moment comes back
    m_model->clear();
    updateSummary();
}

void LinkTraceWindow::saveAs()
{
    refresh();
    const QString path = FileDialogs::saveFileName(
        this, tr("Save Link Trace"), tr("Trace files (*.txt);;All files (*)"),
        QStringLiteral("txt"), QStringLiteral("link-trace.txt"));
    if (path.isEmpty())
        return;
    std::string error;
    if (!m_recorder.save(path.toStdString(), &error))
        m_notifier.show(text::format(text::kProfileCannotWrite.data(), path.toStdString().c_str(),
                                     error.c_str()),
                        Icon::Warning);
}

void LinkTraceWindow::updateSummary()
{
    using Mark = LinkTraceRow::Mark;
    m_summary->setText(QString::fromStdString(
        text::format(text::kLinkTraceSummary.data(), m_model->rowCount(),
                     m_model->count(Mark::Retry), m_model->count(Mark::Timeout),
                     m_model->count(Mark::ChecksumError) + m_model->count(Mark::BadFrame),
                     m_model->count(Mark::Failed))));
}

void LinkTraceWindow::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    refresh();
    m_timer->start();
}

void LinkTraceWindow::hideEvent(QHideEvent* event)
{
    m_timer->stop();
    QDialog::hideEvent(event);
}

} // namespace koral
