#include "gui/RssPanel.h"
#include "gui/QtText.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "gui/ChannelConfigDialog.h"
#include "gui/ChannelTableModel.h"
#include "gui/GroupsDialog.h"
#include "gui/GuiColours.h"
#include "gui/InformationDialogs.h"
#include "gui/RadioOptionsDialog.h"
#include "gui/RssFileIo.h"
#include "gui/RssRadio.h"
#include "gui/RssReport.h"
#include "radiodb/RssCheck.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QSplitter>
#include <QTableView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace koral {

namespace {

DocumentPanel::FileKind rssFileKind()
{
    return {QStringLiteral("rss"), QObject::tr("RSS File"), qs(text::kRssFileFilter),
            QStringLiteral("rss"), text::kUnsavedChanges,   text::kNotRadioDatabaseFile};
}

} // namespace

RssPanel::RssPanel(Notifier& notifier, QWidget* parent)
    : DocumentPanel(notifier, rssFileKind(), parent)
{
    m_document.markClean();

    m_model = new ChannelTableModel(m_document, this);
    m_channels = new QTableView(this);
    m_channels->setObjectName("channels");
    m_channels->setModel(m_model);
    m_channels->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_channels->setSelectionMode(QAbstractItemView::SingleSelection);
    styleChannelView(m_channels);
    connect(m_channels, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { editChannels(index.row() + 1); });
    createChannelActions();

    auto* channelsBox = new QGroupBox(tr("Channels"), this);
    auto* channelsLayout = new QVBoxLayout(channelsBox);
    channelsLayout->addWidget(m_channels);

    m_groups = new QTableWidget(5, 3, this);
    m_groups->setObjectName("groups");
    m_groups->setHorizontalHeaderLabels({QString(), tr("Guard"), tr("Scanned Channels")});
    m_groups->horizontalHeader()->setStyleSheet(
        QStringLiteral("QHeaderView::section { background-color: %1; }")
            .arg(colours::gridHeader().name()));
    m_groups->verticalHeader()->hide();
    m_groups->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_groups->setSelectionMode(QAbstractItemView::NoSelection);
    const int dpi = logicalDpiX();
    m_groups->setColumnWidth(0, colours::twipsToPixels(400, dpi) + 8);
    m_groups->setColumnWidth(1, colours::twipsToPixels(600, dpi) + 12);
    m_groups->horizontalHeader()->setStretchLastSection(true);
    m_groups->setWordWrap(true);
    connect(m_groups, &QTableWidget::cellDoubleClicked, this, [this] { editGroups(); });

    auto* groupsBox = new QGroupBox(tr("Groups"), this);
    auto* groupsLayout = new QVBoxLayout(groupsBox);
    groupsLayout->addWidget(m_groups);

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(channelsBox);
    splitter->addWidget(groupsBox);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setChildrenCollapsible(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(splitter);
    refresh();
}

RssPanel::~RssPanel() = default;

void RssPanel::createChannelActions()
{
    struct Spec
    {
        const char* name;
        const char* text;
        QKeySequence keys;
        void (RssPanel::*slot)();
    };
    const Spec specs[] = {
        {"editChannel", "&Edit Channel...", QKeySequence(Qt::Key_Return), nullptr},
        {"clearChannel", "C&lear Channel", QKeySequence::Delete, &RssPanel::clearChannel},
        {"copyChannel", "&Copy Channel", QKeySequence::Copy, &RssPanel::copyChannel},
        {"pasteChannel", "&Paste Channel", QKeySequence::Paste, &RssPanel::pasteChannel},
    };
    for (const Spec& spec : specs) {
        auto* action = new QAction(tr(spec.text), m_channels);
        action->setObjectName(spec.name);
        action->setShortcut(spec.keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        if (spec.slot)
            connect(action, &QAction::triggered, this, spec.slot);
        else
            connect(action, &QAction::triggered, this, [this] { editChannels(); });
        m_channels->addAction(action);
    }
    // Enter on the keypad opens the channel as Return does.
    auto* enter = new QAction(m_channels);
    enter->setShortcut(QKeySequence(Qt::Key_Enter));
    enter->setShortcutContext(Qt::WidgetShortcut);
    connect(enter, &QAction::triggered, this, [this] { editChannels(); });
    m_channels->addAction(enter);
    m_channels->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void RssPanel::setRadio(RssRadio* radio)
{
    m_radio = radio;
}

void RssPanel::refresh()
{
    m_model->refresh();
    fitChannelColumns(m_channels);
    fillGroupsOverview();
}

void RssPanel::fillGroupsOverview()
{
    const auto rows = GroupsEditor::overview(GroupsEditor::fromRecord(m_document.record));
    for (int r = 0; r < int(rows.size()); ++r) {
        const auto& row = rows[std::size_t(r)];
        const std::string cells[] = {row.letter, row.guard, row.channels};
        for (int c = 0; c < 3; ++c) {
            auto* item = new QTableWidgetItem(QString::fromStdString(cells[c]));
            item->setTextAlignment(c == 2 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
            m_groups->setItem(r, c, item);
        }
    }
    m_groups->resizeRowsToContents();
}

int RssPanel::selectedChannel() const
{
    const QModelIndex index = m_channels->currentIndex();
    return index.isValid() ? index.row() + 1 : 0;
}

void RssPanel::selectChannel(int channel)
{
    m_channels->selectRow(channel - 1);
    m_channels->scrollTo(m_model->index(channel - 1, 0));
    m_channels->setFocus();
}

void RssPanel::documentEdited()
{
    refresh();
    emit documentChanged();
}

void RssPanel::clearChannel()
{
    const int number = selectedChannel();
    if (number < 1)
        return;
    m_document.record.channelNo(number) = RssDocument().record.channelNo(number);
    m_document.ccirNumbers[std::size_t(number - 1)] = 0;
    documentEdited();
    selectChannel(number);
}

void RssPanel::copyChannel()
{
    const int number = selectedChannel();
    if (number < 1)
        return;
    m_copied = CopiedChannel{m_document.record.channelNo(number),
                             m_document.ccirNumbers[std::size_t(number - 1)]};
    // Other programs get the row as the table shows it.
    QStringList cells;
    for (int c = 0; c < m_model->columnCount(); ++c)
        cells << m_model->index(number - 1, c).data().toString();
    QApplication::clipboard()->setText(cells.join('\t'));
}

void RssPanel::pasteChannel()
{
    const int number = selectedChannel();
    if (number < 1 || !m_copied)
        return;
    m_document.record.channelNo(number) = m_copied->record;
    m_document.ccirNumbers[std::size_t(number - 1)] = m_copied->ccirNumber;
    documentEdited();
    selectChannel(number);
}

void RssPanel::replaceDocument(const RssDocument& document)
{
    m_document = document;
    documentEdited();
    emit pathChanged(qs(m_document.path));
}

QString RssPanel::currentPath() const
{
    return qs(m_document.path);
}

std::string RssPanel::readFile(const std::string& path, bool& foreign)
{
    m_read = m_document;
    return rssio::load(m_read, path, &foreign);
}

void RssPanel::adoptReadFile(const std::string& path)
{
    m_read.path = path;
    m_read.markClean();
    m_document = m_read;
    refresh();
}

std::string RssPanel::writeFile(const std::string& path)
{
    const std::string error = rssio::save(m_document, path);
    if (!error.empty())
        return error;
    m_document.path = path;
    m_document.markClean();
    refresh();
    return {};
}

QString RssPanel::printedText() const
{
    std::string error;
    const std::string text = rssio::printText(m_document, error);
    if (!error.empty()) {
        notifier().show(text::format(text::kPrintFailed.data(), error.c_str()), Icon::Warning);
        return {};
    }
    // The file's bytes are Windows-1252; Latin-1 shows them closely enough on paper.
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

QString RssPanel::reportHtml() const
{
    const std::string date =
        QLocale().toString(QDateTime::currentDateTime(), QLocale::LongFormat).toStdString();
    return QString::fromStdString(rssReportHtml(m_document, date));
}

void RssPanel::reportWrite(bool written)
{
    if (written)
        emit statusMessage(qs(text::kOperationCompleted));
    else
        notifier().show(text::byId(text::id::NoResponse), Icon::Warning);
}

void RssPanel::editChannels(int channel)
{
    ChannelConfigEditor::Setup setup;
    setup.channels = m_document.record.channels;
    if (m_document.ccirPresent)
        setup.ccirNumbers = m_document.ccirNumbers;
    setup.firstChannel = channel >= 1 ? channel : std::max(1, selectedChannel());
    setup.isbOffered = m_isbOffered;
    setup.notifier = &notifier();
    ChannelConfigEditor editor(setup);

    ChannelConfigDialog::ProgramFunction program;
    if (m_radio && m_radio->isConnected()) {
        program = [this](const ChannelConfigEditor& e) {
            const bool written = m_radio->writeChannels(m_document.record, e.channels());
            if (e.ccirNumbers())
                m_document.ccirNumbers = *e.ccirNumbers();
            documentEdited();
            reportWrite(written);
            return written;
        };
    }
    ChannelConfigDialog dialog(editor, program, window());
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_document.record.channels = editor.channels();
    if (editor.ccirNumbers())
        m_document.ccirNumbers = *editor.ccirNumbers();
    documentEdited();
    m_channels->selectRow(editor.channelNumber() - 1);
}

void RssPanel::editGroups()
{
    const bool guardBlocked = m_document.ccirPresent && m_radio && m_radio->channelMode() == 2;
    GroupsEditor editor(notifier(), GroupsEditor::fromRecord(m_document.record),
                        GroupsEditor::programmedOf(m_document.record), guardBlocked);
    GroupsDialog::ProgramFunction program;
    if (m_radio && m_radio->isConnected()) {
        program = [this](const GroupSelections& groups) {
            dbase edited = m_document.record;
            GroupsEditor::toRecord(groups, edited);
            const bool written = m_radio->writeGroups(m_document.record, edited.groups);
            documentEdited();
            reportWrite(written);
            return written;
        };
    }
    GroupsDialog dialog(editor, program, window());
    if (dialog.exec() != QDialog::Accepted)
        return;
    GroupsEditor::toRecord(editor.groups(), m_document.record);
    documentEdited();
}

void RssPanel::editRadioOptions()
{
    RadioOptionsEditor editor(m_document.record, m_document.isb);
    RadioOptionsDialog::ProgramFunction program;
    if (m_radio && m_radio->isConnected()) {
        program = [this](const RadioOptionsEditor& e) {
            // ISB is kept beside the record, not in the radio: only OK takes it.
            dbase edited = m_document.record;
            bool isb = m_document.isb;
            e.apply(edited, isb);
            const bool written = m_radio->programOptions(m_document.record, edited);
            documentEdited();
            // "Program Options" asks nothing of the operator: its result goes to the status.
            emit statusMessage(
                qs(written ? text::kOperationCompleted : text::byId(text::id::LastCommandFailed)));
            return written;
        };
    }
    RadioOptionsDialog dialog(editor, program, window());
    if (dialog.exec() != QDialog::Accepted)
        return;
    editor.apply(m_document.record, m_document.isb);
    documentEdited();
}

void RssPanel::showWideInformation()
{
    WideInformationDialog dialog(m_document.record, window());
    dialog.exec();
}

void RssPanel::showSummary()
{
    SummaryDialog dialog(m_document, window());
    dialog.exec();
}

QStringList RssPanel::checkLines() const
{
    QStringList lines;
    const std::vector<AleNetChannels> nets =
        m_aleNets ? m_aleNets() : std::vector<AleNetChannels>{};
    for (const std::string& line : checkRadioConfiguration(m_document.record, nets).lines)
        lines << QString::fromStdString(line);
    return lines;
}

void RssPanel::showCheck()
{
    CheckDialog dialog(checkLines(), window());
    connect(&dialog, &CheckDialog::channelChosen, this, [this, &dialog](int channel) {
        dialog.accept();
        selectChannel(channel);
    });
    dialog.exec();
}

} // namespace koral
