#include "gui/RssPanel.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "gui/ChannelConfigDialog.h"
#include "gui/ChannelTableModel.h"
#include "gui/GroupsDialog.h"
#include "gui/GuiColours.h"
#include "gui/InformationDialogs.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/RadioOptionsDialog.h"
#include "gui/RssFileIo.h"
#include "gui/RssRadio.h"
#include "radiodb/RssCheck.h"

#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QSplitter>
#include <QTableView>
#include <QTableWidget>
#include <QTextDocument>
#include <QVBoxLayout>

namespace koral {

namespace {

QString qs(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

std::string path8(const QString& path)
{
    return path.toStdString();
}

void printTextTo(QPrinter& printer, const QString& text)
{
    QTextDocument document;
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setPointSize(9);
    document.setDefaultFont(font);
    document.setPlainText(text);
    document.print(&printer);
}

} // namespace

RssPanel::RssPanel(Notifier& notifier, QWidget* parent) : QWidget(parent), m_notifier(notifier)
{
    m_document.markClean();

    m_model = new ChannelTableModel(m_document, this);
    m_channels = new QTableView(this);
    m_channels->setObjectName("channels");
    m_channels->setModel(m_model);
    m_channels->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_channels->setSelectionMode(QAbstractItemView::SingleSelection);
    m_channels->verticalHeader()->hide();
    m_channels->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    m_channels->horizontalHeader()->setStyleSheet(
        QStringLiteral("QHeaderView::section { background-color: %1; }")
            .arg(colours::gridHeader().name()));
    connect(m_channels, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { editChannels(index.row() + 1); });

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

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(splitter);
    refresh();
}

RssPanel::~RssPanel() = default;

void RssPanel::setRadio(RssRadio* radio)
{
    m_radio = radio;
}

void RssPanel::refresh()
{
    m_model->refresh();
    const int dpi = logicalDpiX();
    for (int c = 0; c < m_model->columnCount(); ++c)
        m_channels->setColumnWidth(
            c, colours::twipsToPixels(ChannelTableModel::columnTwips(c), dpi) + 8);
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

void RssPanel::documentEdited()
{
    refresh();
    emit documentChanged();
}

bool RssPanel::maybeSave()
{
    if (!m_document.isModified())
        return true;
    switch (m_notifier.ask(text::kUnsavedChanges, Buttons::SaveDiscardCancel, Icon::Question)) {
    case Answer::Save:
        return saveFile();
    case Answer::Discard:
        return true;
    default:
        return false;
    }
}

void RssPanel::replaceDocument(const RssDocument& document)
{
    m_document = document;
    documentEdited();
    emit pathChanged(qs(m_document.path));
}

bool RssPanel::openFile()
{
    if (!maybeSave())
        return false;
    const QString path =
        FileDialogs::openFileName(this, tr("Open RSS File"), qs(text::kRssFileFilter));
    if (path.isEmpty())
        return false;
    return openPath(path);
}

bool RssPanel::openPath(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    RssDocument loaded = m_document;
    bool foreign = false;
    const std::string error = rssio::load(loaded, path8(absolute), &foreign);
    if (!error.empty()) {
        m_notifier.show(error, Icon::Warning);
        return false;
    }
    if (foreign && m_notifier.ask(text::format(text::kNotRadioDatabaseFile.data(),
                                               path8(QDir::toNativeSeparators(absolute)).c_str()),
                                  Buttons::YesNo, Icon::Warning) != Answer::Yes)
        return false;
    loaded.path = path8(absolute);
    loaded.markClean();
    m_document = loaded;
    documentEdited();
    emit pathChanged(absolute);
    return true;
}

bool RssPanel::saveFile()
{
    QString path = FileDialogs::saveFileName(this, tr("Save RSS file"), qs(text::kRssFileFilter),
                                             QStringLiteral("rss"));
    if (path.isEmpty())
        return false;
    return saveTo(QFileInfo(path).absoluteFilePath());
}

bool RssPanel::saveTo(const QString& path)
{
    const std::string error = rssio::save(m_document, path8(path));
    if (!error.empty()) {
        m_notifier.show(error, Icon::Warning);
        return false;
    }
    m_document.path = path8(path);
    m_document.markClean();
    documentEdited();
    emit pathChanged(path);
    return true;
}

QString RssPanel::printedText() const
{
    std::string error;
    const std::string text = rssio::printText(m_document, error);
    if (!error.empty()) {
        m_notifier.show(text::format(text::kPrintFailed.data(), error.c_str()), Icon::Warning);
        return {};
    }
    // The file's bytes are Windows-1252; Latin-1 shows them closely enough on paper.
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

bool RssPanel::printFile()
{
    const QString text = printedText();
    if (text.isEmpty())
        return false;
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(tr("Print RSS File"));
    if (dialog.exec() != QDialog::Accepted)
        return false;
    printTextTo(printer, text);
    return true;
}

bool RssPanel::exportPdf()
{
    const QString text = printedText();
    if (text.isEmpty())
        return false;
    const QString path = FileDialogs::saveFileName(this, tr("Export to PDF"),
                                                   qs(text::kPdfFileFilter), QStringLiteral("pdf"));
    if (path.isEmpty())
        return false;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setDocName(QFileInfo(qs(m_document.path)).fileName());
    printTextTo(printer, text);
    if (!QFileInfo(path).isFile()) {
        m_notifier.show(text::format(text::kFileNotWritten.data(), path8(path).c_str(),
                                     "the printer did not write it"),
                        Icon::Warning);
        return false;
    }
    return true;
}

void RssPanel::reportWrite(bool written)
{
    if (written)
        emit statusMessage(qs(text::kOperationCompleted));
    else
        m_notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
}

void RssPanel::editChannels(int channel)
{
    ChannelConfigEditor::Setup setup;
    setup.channels = m_document.record.channels;
    if (m_document.ccirPresent)
        setup.ccirNumbers = m_document.ccirNumbers;
    setup.firstChannel = channel >= 1 ? channel : std::max(1, selectedChannel());
    setup.isbOffered = m_isbOffered;
    setup.notifier = &m_notifier;
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
    GroupsEditor editor(m_notifier, GroupsEditor::fromRecord(m_document.record),
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
    for (const std::string& line : checkRadioConfiguration(m_document.record, m_aleNets).lines)
        lines << QString::fromStdString(line);
    return lines;
}

void RssPanel::showCheck()
{
    CheckDialog dialog(checkLines(), window());
    dialog.exec();
}

void RssPanel::editFileInformation()
{
    FileInformationDialog dialog(m_document.info, qs(m_document.path), window());
    if (dialog.exec() == QDialog::Accepted)
        emit documentChanged();
}

} // namespace koral
