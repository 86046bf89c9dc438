#include "gui/CcirPanel.h"
#include "gui/QtText.h"

#include "aledb/CcirDirectoryEditor.h"
#include "aledb/CcirIdentity.h"
#include "aledb/CcirMessagesEditor.h"
#include "aledb/CcirSelfAddressEditor.h"
#include "common/Texts.h"
#include "gui/CcirFileIo.h"
#include "gui/CcirMessagesDialog.h"
#include "gui/CcirSelfAddressDialog.h"
#include "gui/DirectoryListDialog.h"
#include "gui/PanelGrids.h"
#include "gui/PanelRules.h"

#include <QDateTime>
#include <QGroupBox>

#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>
namespace koral {

namespace {

DocumentPanel::FileKind ccirFileKind()
{
    return {QStringLiteral("ccr"), QObject::tr("CCIR File"),  qs(text::kCcirFileFilter),
            QStringLiteral("ccr"), text::kCcirUnsavedChanges, text::kNotCcirFile};
}

std::string messageText(const CcirMessage& message)
{
    std::string text(message.data(), message.size());
    return text.substr(0, text.find('\0'));
}

} // namespace

CcirPanel::CcirPanel(Notifier& notifier, QWidget* parent)
    : DocumentPanel(notifier, ccirFileKind(), parent)
{
    m_identities = grids::create(this, "identities", 5, {tr("Value")});
    m_messages = grids::create(this, "messages", 2, {tr("Message")});
    m_directory = grids::create(this, "directory", kCcirDirectorySize, {tr("Identity")});
    m_channels = grids::create(this, "channelNumbers", kChannelCount, {tr("CCIR Channel")});

    auto* left = new QSplitter(Qt::Vertical, this);
    left->addWidget(grids::boxed(this, tr("Self Address and Settings"), m_identities));
    left->addWidget(grids::boxed(this, tr("Messages"), m_messages));
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(left);
    splitter->addWidget(grids::boxed(this, tr("Directory"), m_directory));
    splitter->addWidget(grids::boxed(this, tr("Channel Numbers"), m_channels));
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 1);
    splitter->setStretchFactor(2, 1);
    splitter->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(splitter);
    m_document.markClean();
    refresh();
    // The first two lines are the self identities, the others the settings.
    connect(m_identities, &QTableWidget::cellDoubleClicked, this, [this](int row) {
        if (row < 2)
            editSelfAddress();
        else
            editMessages();
    });
    connect(m_messages, &QTableWidget::cellDoubleClicked, this, [this] { editMessages(); });
    connect(m_directory, &QTableWidget::cellDoubleClicked, this, [this] { editDirectory(); });
}

void CcirPanel::refresh()
{
    const ccir_dbase& r = m_document.record;
    grids::fill(m_identities,
                {{ccir::identityText(r.selfId4.get(), 4)},
                 {ccir::identityText(r.selfId6.get(), 6)},
                 {std::to_string(r.preamble)},
                 {std::to_string(r.beacon)},
                 {std::to_string(r.alarm)}},
                0);
    m_identities->setVerticalHeaderLabels({tr("Self Address (4 digits)"),
                                           tr("Self Address (6 digits)"), tr("Preamble"),
                                           tr("Beacon"), tr("Alarm")});
    grids::fill(m_messages, {{messageText(r.message1)}, {messageText(r.message2)}}, 1);
    grids::Rows directory;
    for (const auto& entry : r.directory)
        directory.push_back({ccir::identityText(entry.get())});
    grids::fill(m_directory, directory, 0);
}

void CcirPanel::recordEdited(const ccir_dbase& record)
{
    m_document.record = record;
    refresh();
    emit documentChanged();
}

void CcirPanel::editDirectory()
{
    CcirDirectoryEditor editor(m_document.record);
    DirectoryListDialog dialog(editor,
                               {tr("CCIR Directory Configuration"), tr("Occupied Identities:"),
                                tr("Identity (4 or 6 digits)"), kCcirDirectorySize, 6},
                               window());
    if (execDialog(dialog) == QDialog::Accepted)
        recordEdited(editor.record());
}

void CcirPanel::editSelfAddress()
{
    CcirSelfAddressEditor editor(m_document.record);
    CcirSelfAddressDialog dialog(editor, window());
    if (execDialog(dialog) == QDialog::Accepted)
        recordEdited(editor.record());
}

void CcirPanel::editMessages()
{
    CcirMessagesEditor editor(m_document.record);
    CcirMessagesDialog dialog(editor, window());
    if (execDialog(dialog) == QDialog::Accepted)
        recordEdited(editor.record());
}

void CcirPanel::setChannelNumbers(const CcirChannelNumbers& numbers)
{
    grids::Rows rows;
    for (std::uint16_t number : numbers)
        rows.push_back({number ? std::to_string(number) : std::string()});
    grids::fill(m_channels, rows, 1);
}

void CcirPanel::replaceDocument(const CcirDocument& document)
{
    m_document = document;
    refresh();
    emit documentChanged();
    emit pathChanged(qs(m_document.path));
}

QString CcirPanel::currentPath() const
{
    return qs(m_document.path);
}

std::string CcirPanel::readFile(const std::string& path, bool& foreign)
{
    return ccirio::load(m_read, path, &foreign);
}

void CcirPanel::adoptReadFile(const std::string& path)
{
    m_read.path = path;
    m_read.markClean();
    m_document = m_read;
    refresh();
}

std::string CcirPanel::writeFile(const std::string& path)
{
    const std::string error = ccirio::save(m_document, path);
    if (!error.empty())
        return error;
    m_document.path = path;
    m_document.markClean();
    return {};
}

QString CcirPanel::printedText() const
{
    const std::string text = ccirio::printText(m_document);
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

QString CcirPanel::reportHtml() const
{
    const QString date = QLocale().toString(QDateTime::currentDateTime(), QLocale::LongFormat);
    return QStringLiteral("<h2>%1</h2><p>%2</p>")
               .arg(QString::fromStdString(PanelRules::title(Panel::Ccir)), date.toHtmlEscaped()) +
           grids::htmlTable(tr("Self Address and Settings"), m_identities) +
           grids::htmlTable(tr("Messages"), m_messages) +
           grids::htmlTable(tr("Directory"), m_directory) +
           grids::htmlTable(tr("Channel Numbers"), m_channels);
}

} // namespace koral
