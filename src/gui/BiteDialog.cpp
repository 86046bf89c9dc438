#include "gui/BiteDialog.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "gui/MessageBoxNotifier.h"
#include "koralapi/Builders.h"
#include "koralapi/CRadioMessage.h"
#include "session/BiteFile.h"
#include "session/RadioLink.h"

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

#include <cstring>

namespace koral {

namespace {

QString qs(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

constexpr std::uint8_t kProgressReport = 3;
constexpr std::uint8_t kResultReport = 4;

} // namespace

BiteDialog::BiteDialog(RadioLink& link, Notifier& notifier, const dbase& radio, QWidget* parent)
    : QDialog(parent), m_link(link), m_notifier(notifier), m_radio(radio)
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
    m_hint = new QLabel(this);
    m_hint->setObjectName("hint");

    auto* resultsBox = new QGroupBox(tr("Test Results"), this);
    m_results = new QTreeWidget(resultsBox);
    m_results->setRootIsDecorated(false);
    m_results->setHeaderLabels({tr("Test"), tr("Result")});
    m_results->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_results->header()->setStretchLastSection(false);
    m_results->header()->resizeSection(1, 130);
    m_progress = new QProgressBar(resultsBox);
    m_progress->setRange(0, kBiteProgressMaximum);
    m_progress->setValue(0);
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
    m_save->setEnabled(false);
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

    m_silence.setSingleShot(true);
    m_silence.setInterval(kSilenceMilliseconds);
    connect(&m_silence, &QTimer::timeout, this, &BiteDialog::radioSilent);
    connect(m_types, &QButtonGroup::idClicked, this,
            [this](int id) { m_hint->setText(qs(biteSetupHint(BiteTestType(id)))); });
    connect(m_run, &QPushButton::clicked, this, &BiteDialog::run);
    connect(m_save, &QPushButton::clicked, this, &BiteDialog::saveResults);
    connect(m_close, &QPushButton::clicked, this, &BiteDialog::reject);
    setTestType(BiteTestType::Full);
    setStatus({}, false);
}

BiteTestType BiteDialog::testType() const
{
    return BiteTestType(m_types->checkedId());
}

void BiteDialog::setTestType(BiteTestType type)
{
    m_types->button(int(type))->setChecked(true);
    m_hint->setText(qs(biteSetupHint(type)));
}

void BiteDialog::setControlsEnabled(bool enabled)
{
    for (QAbstractButton* button : m_types->buttons())
        button->setEnabled(enabled);
    m_run->setEnabled(enabled);
    m_save->setEnabled(enabled && !m_summary.rows.empty());
    m_close->setEnabled(true);
}

void BiteDialog::setStatus(const QString& text, bool waiting)
{
    m_status->setText(text);
    QPalette palette = m_status->palette();
    palette.setColor(QPalette::Window, waiting ? QColor(255, 255, 0) : QColor(0xC0, 0xC0, 0xC0));
    palette.setColor(QPalette::WindowText, Qt::black);
    m_status->setPalette(palette);
}

void BiteDialog::run()
{
    const BiteTestType type = testType();
    const std::string_view setup = biteSetupHint(type);
    if (!setup.empty() && m_notifier.ask(setup, Buttons::OkCancel, Icon::Warning) == Answer::Cancel)
        return;
    setControlsEnabled(false);
    m_results->clear();
    m_summary = {};
    m_progress->setValue(0);
    setStatus({}, false);

    CRadioMessage request;
    request.prepareRequest();
    PerformSelfTest(&request, int(type));
    if (m_link.sendToRadio(request)) {
        setStatus(qs(text::byId(text::id::CommandInProgress)), true);
    } else {
        setControlsEnabled(true);
        m_progress->setValue(0);
    }
    // A failed send ends in the no-response message too, when the silence runs out.
    m_ranType = type;
    m_running = true;
    m_silence.start();
}

void BiteDialog::onReport(const CRadioMessage& message)
{
    if (!m_running)
        return;
    const std::uint8_t* bytes = message.bytes.data();
    if (bytes[6] == kProgressReport) {
        const char* text = reinterpret_cast<const char*>(bytes + 7);
        const int position = biteProgressFromText(std::string_view(text, strnlen(text, 200)));
        if (position >= 0)
            m_progress->setValue(position);
        m_silence.start();
    } else if (bytes[6] == kResultReport) {
        m_running = false;
        m_silence.stop();
        m_summary = summarizeBite(std::span<const std::uint8_t>(bytes, CRadioMessage::kSize));
        for (const BiteRow& row : m_summary.rows)
            new QTreeWidgetItem(m_results,
                                {qs(biteItemName(row.item)), qs(biteResultText(row.result))});
        setControlsEnabled(true);
        m_progress->setValue(kBiteProgressMaximum);
        setStatus(QString::fromStdString(biteSummaryText(m_summary)), false);
    }
}

void BiteDialog::radioSilent()
{
    m_running = false;
    m_notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
    QDialog::reject();
}

void BiteDialog::reject()
{
    if (m_running) {
        // Stop the radio's test before leaving it.
        m_silence.stop();
        m_running = false;
        CRadioMessage request;
        request.prepareRequest();
        PerformReset(&request);
        m_link.sendToRadio(request);
        setStatus(qs(text::kWaitForReset), true);
        m_link.waitPumping(20);
    }
    QDialog::reject();
}

bool BiteDialog::saveResults()
{
    const QString path = FileDialogs::saveFileName(
        this, tr("Save BITE Results"), qs(text::kBiteFileFilter), QStringLiteral("bit"));
    if (path.isEmpty())
        return false;
    std::string error;
    if (!saveBiteFile(path.toStdString(), m_ranType, m_radio, m_summary, &error)) {
        m_notifier.show(
            text::format(text::kFileNotWritten.data(), path.toStdString().c_str(), error.c_str()),
            Icon::Warning);
        return false;
    }
    return true;
}

} // namespace koral
