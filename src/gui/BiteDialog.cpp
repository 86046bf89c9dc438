#include "gui/BiteDialog.h"
#include "gui/QtText.h"

#include "common/Texts.h"
#include "gui/MessageBoxNotifier.h"
#include "session/BiteRunner.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace koral {

BiteDialog::BiteDialog(BiteRunner& runner, const dbase& radio, QWidget* parent)
    : QDialog(parent), m_runner(runner), m_radio(radio)
{
    setWindowTitle(tr("BITE"));

    auto* typeBox = new QGroupBox(tr("Test Type"), this);
    auto* typeLayout = new QHBoxLayout(typeBox);
    m_types = new QButtonGroup(this);
    const char* names[] = {"&Full test", "C&hannel Test", "&Low RF Test"};
    for (int i = 0; i < 3; ++i) {
        auto* button = new QRadioButton(tr(names[i]), typeBox);
        m_types->addButton(button, i);
        typeLayout->addWidget(button);
    }
    m_types->button(int(runner.testType()))->setChecked(true);
    m_hint = new QLabel(this);
    m_hint->setObjectName("hint");

    auto* resultsBox = new QGroupBox(tr("Test Results"), this);
    m_results = new QTreeWidget(resultsBox);
    m_results->setRootIsDecorated(false);
    m_results->setHeaderLabels({tr("Test"), tr("Result")});
    m_results->header()->setStretchLastSection(false);
    m_results->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_results->header()->resizeSection(1, 130);
    m_progress = new QProgressBar(resultsBox);
    m_progress->setRange(0, kBiteProgressMaximum);
    m_status = new QLabel(resultsBox);
    m_status->setObjectName("status");
    m_status->setAutoFillBackground(true);
    m_status->setFrameShape(QFrame::Panel);
    m_status->setFrameShadow(QFrame::Sunken);
    m_status->setMinimumHeight(fontMetrics().height() + 8);
    auto* resultsLayout = new QVBoxLayout(resultsBox);
    resultsLayout->addWidget(m_results);
    resultsLayout->addWidget(m_progress);
    resultsLayout->addWidget(m_status);

    m_run = new QPushButton(tr("&Run"), this);
    m_run->setDefault(true);
    m_save = new QPushButton(tr("&Save..."), this);
    m_close = new QPushButton(tr("&Close"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_run);
    buttons->addWidget(m_save);
    buttons->addWidget(m_close);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(typeBox);
    layout->addWidget(m_hint);
    layout->addWidget(resultsBox, 1);
    layout->addLayout(buttons);
    resize(480, 560);

    connect(m_types, &QButtonGroup::idClicked, this, [this](int id) {
        m_runner.setTestType(BiteTestType(id));
        refresh();
    });
    connect(m_run, &QPushButton::clicked, this, [this] {
        m_runner.run();
        refresh();
    });
    connect(m_save, &QPushButton::clicked, this, &BiteDialog::saveResults);
    connect(m_close, &QPushButton::clicked, this, &BiteDialog::reject);
    connect(&m_runner, &BiteRunner::changed, this, &BiteDialog::refresh);
    connect(&m_runner, &BiteRunner::closed, this, [this] {
        m_closing = true;
        QDialog::reject();
    });
    refresh();
}

void BiteDialog::refresh()
{
    m_hint->setText(qs(m_runner.hint()));
    const bool enabled = m_runner.controlsEnabled();
    for (QAbstractButton* button : m_types->buttons())
        button->setEnabled(enabled);
    m_run->setEnabled(enabled);
    m_save->setEnabled(enabled && !m_runner.results().rows.empty());
    m_progress->setValue(m_runner.progress());
    m_status->setText(QString::fromStdString(m_runner.status()));
    QPalette palette = m_status->palette();
    palette.setColor(QPalette::Window,
                     m_runner.statusHighlighted() ? QColor(255, 255, 0) : QColor(0xC0, 0xC0, 0xC0));
    palette.setColor(QPalette::WindowText, Qt::black);
    m_status->setPalette(palette);
    const auto& rows = m_runner.results().rows;
    if (m_results->topLevelItemCount() != int(rows.size())) {
        m_results->clear();
        for (const BiteRow& row : rows)
            new QTreeWidgetItem(m_results,
                                {qs(biteItemName(row.item)), qs(biteResultText(row.result))});
    }
}

void BiteDialog::reject()
{
    if (m_closing)
        return QDialog::reject();
    m_runner.close(); // emits closed(), which ends the dialog
}

bool BiteDialog::saveResults()
{
    const QString path = FileDialogs::saveFileName(
        this, tr("Save BITE Results"), qs(text::kBiteFileFilter), QStringLiteral("bit"));
    if (path.isEmpty())
        return false;
    std::string error;
    if (!m_runner.saveResults(path.toStdString(), m_radio, &error)) {
        MessageBoxNotifier(this).show(
            text::format(text::kFileNotWritten.data(), path.toStdString().c_str(), error.c_str()),
            Icon::Warning);
        return false;
    }
    return true;
}

} // namespace koral
