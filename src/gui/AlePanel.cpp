#include "gui/AlePanel.h"
#include "gui/QtText.h"

#include "aledb/AleOverview.h"
#include "aledb/AutoDialEditor.h"
#include "aledb/ConfigurationCheck.h"
#include "aledb/DirectoryEditor.h"
#include "aledb/MessageEditor.h"
#include "aledb/NetConfigEditor.h"
#include "aledb/NetGlobalMembersEditor.h"
#include "aledb/NetMembersEditor.h"
#include "common/Texts.h"
#include "gui/AleFileIo.h"
#include "gui/AutoDialDialog.h"
#include "gui/DirectoryDialog.h"
#include "gui/InformationDialogs.h"
#include "gui/MessageDialog.h"
#include "gui/NetConfigDialog.h"
#include "gui/NetGlobalMembersDialog.h"
#include "gui/NetMembersDialog.h"
#include "gui/PanelGrids.h"
#include "gui/PanelRules.h"

#include <QDateTime>
#include <QGroupBox>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

namespace koral {

namespace {

DocumentPanel::FileKind aleFileKind()
{
    return {QStringLiteral("ale"), QObject::tr("ALE File"),  qs(text::kAleFileFilter),
            QStringLiteral("ale"), text::kAleUnsavedChanges, text::kNotAleFile};
}

} // namespace

AlePanel::AlePanel(Notifier& notifier, QWidget* parent)
    : DocumentPanel(notifier, aleFileKind(), parent)
{
    m_document.markClean();
    m_nets =
        grids::create(this, "nets", kAleNetCount,
                      {tr("Net Name"), tr("Self Address"), tr("Members"), tr("Scanned Channels")});
    m_directory = grids::create(this, "directory", kAleDirectorySize, {tr("Address")});
    m_messages = grids::create(this, "messages", kAleMessageCount, {tr("Message")});
    m_autoDials =
        grids::create(this, "autoDials", kAleAutoDialCount, {tr("Address"), tr("Message")});
    const int column = fontMetrics().horizontalAdvance(QLatin1Char('M')) * 12;
    for (int c = 0; c < 3; ++c)
        m_nets->setColumnWidth(c, c == 2 ? column * 2 : column);
    m_autoDials->setColumnWidth(0, column);

    auto* left = new QSplitter(Qt::Vertical, this);
    left->addWidget(grids::boxed(this, tr("Nets"), m_nets));
    left->addWidget(grids::boxed(this, tr("Messages"), m_messages));
    left->setStretchFactor(0, 3);
    left->setStretchFactor(1, 2);
    auto* right = new QSplitter(Qt::Vertical, this);
    right->addWidget(grids::boxed(this, tr("Directory"), m_directory));
    right->addWidget(grids::boxed(this, tr("Automatic Dials"), m_autoDials));
    right->setStretchFactor(0, 3);
    right->setStretchFactor(1, 2);
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(left);
    splitter->addWidget(right);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(splitter);
    refresh();

    // The members column opens the net's members, the others the net's configuration.
    connect(m_nets, &QTableWidget::cellDoubleClicked, this, [this](int row, int column) {
        if (column == 2)
            editMembers(row);
        else
            editNets(row);
    });
    connect(m_directory, &QTableWidget::cellDoubleClicked, this, [this] { editDirectory(); });
    connect(m_messages, &QTableWidget::cellDoubleClicked, this,
            [this](int row) { editMessages(row); });
    connect(m_autoDials, &QTableWidget::cellDoubleClicked, this, [this] { editAutoDials(); });
}

void AlePanel::refresh()
{
    const ale_dbase& db = m_document.programme.database;
    grids::fill(m_nets, aleoverview::nets(db), 1);
    grids::fill(m_directory, aleoverview::directory(db), 1);
    grids::fill(m_messages, aleoverview::messages(db), 0);
    grids::fill(m_autoDials, aleoverview::autoDials(db), 0);
}

void AlePanel::replaceDocument(const AleDocument& document)
{
    m_document = document;
    refresh();
    emit documentChanged();
    emit pathChanged(qs(m_document.path));
}

QString AlePanel::currentPath() const
{
    return qs(m_document.path);
}

std::string AlePanel::readFile(const std::string& path, bool& foreign)
{
    return aleio::load(m_read, path, m_settings, &foreign);
}

void AlePanel::adoptReadFile(const std::string& path)
{
    m_read.path = path;
    m_read.markClean();
    m_document = m_read;
    refresh();
}

std::string AlePanel::writeFile(const std::string& path)
{
    const std::string error = aleio::save(m_document, path, m_settings);
    if (!error.empty())
        return error;
    m_document.path = path;
    m_document.markClean();
    return {};
}

QString AlePanel::printedText() const
{
    const std::string text = aleio::printText(m_document, m_settings);
    // The file's bytes are Windows-1252; Latin-1 shows them closely enough on paper.
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

QString AlePanel::reportHtml() const
{
    const QString date = QLocale().toString(QDateTime::currentDateTime(), QLocale::LongFormat);
    return QStringLiteral("<h2>%1</h2><p>%2</p>")
               .arg(QString::fromStdString(PanelRules::title(Panel::RssAle)),
                    date.toHtmlEscaped()) +
           grids::htmlTable(tr("Nets"), m_nets) + grids::htmlTable(tr("Directory"), m_directory) +
           grids::htmlTable(tr("Messages"), m_messages) +
           grids::htmlTable(tr("Automatic Dials"), m_autoDials);
}

QStringList AlePanel::checkLines(const dbase& radio) const
{
    QStringList lines;
    for (const std::string& line :
         runConfigurationCheck(radio, &m_document.programme, m_settings, notifier()).lines())
        lines << QString::fromStdString(line);
    return lines;
}

void AlePanel::programmeEdited(const AleProgramme& programme)
{
    m_document.programme = programme;
    refresh();
    emit documentChanged();
}

void AlePanel::editNets(int net)
{
    NetConfigEditor editor(m_document.programme, m_settings, notifier());
    editor.selectNet(net);
    NetConfigDialog dialog(editor, window());
    if (execDialog(dialog) == QDialog::Accepted)
        programmeEdited(editor.programme());
}

void AlePanel::editMembers(int net)
{
    NetMembersEditor editor(m_document.programme.database, net);
    NetMembersDialog dialog(editor, window());
    if (execDialog(dialog) != QDialog::Accepted)
        return;
    AleProgramme edited = m_document.programme;
    edited.database = editor.database();
    programmeEdited(edited);
}

void AlePanel::editGlobalMembers(int net)
{
    NetGlobalMembersEditor editor(m_document.programme.globalMembers, m_document.programme.database,
                                  net);
    NetGlobalMembersDialog dialog(editor, window());
    if (execDialog(dialog) != QDialog::Accepted)
        return;
    AleProgramme edited = m_document.programme;
    edited.globalMembers = editor.globals();
    programmeEdited(edited);
}

void AlePanel::editDirectory()
{
    DirectoryEditor editor(m_document.programme, notifier());
    DirectoryDialog dialog(editor, window());
    if (execDialog(dialog) == QDialog::Accepted)
        programmeEdited(editor.programme());
}

void AlePanel::editMessages(int message)
{
    MessageEditor editor(m_document.programme.database);
    editor.setCurrent(message);
    MessageDialog dialog(editor, window());
    if (execDialog(dialog) != QDialog::Accepted)
        return;
    AleProgramme edited = m_document.programme;
    edited.database.messages = editor.database().messages;
    programmeEdited(edited);
}

void AlePanel::editAutoDials()
{
    AutoDialEditor editor(m_document.programme.database);
    AutoDialDialog dialog(editor, window());
    if (execDialog(dialog) != QDialog::Accepted)
        return;
    AleProgramme edited = m_document.programme;
    edited.database.autoDials = editor.database().autoDials;
    programmeEdited(edited);
}

void AlePanel::showCheck(const dbase& radio)
{
    CheckDialog dialog(checkLines(radio), window());
    dialog.exec();
}

} // namespace koral
