#include "gui/InformationDialogs.h"

#include "radiodb/RssCheck.h"

#include "gui/ChannelTableModel.h"
#include "gui/GuiColours.h"
#include "gui/RssDocument.h"
#include "radiodb/WideInformationView.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace koral {

namespace {

QString qs(const std::string& text)
{
    return QString::fromStdString(text);
}

QLineEdit* readOnly(const std::string& text, QWidget* parent)
{
    auto* edit = new QLineEdit(qs(text), parent);
    edit->setReadOnly(true);
    return edit;
}

QDialogButtonBox* closeButtons(QDialog* dialog, QDialogButtonBox::StandardButtons which)
{
    auto* buttons = new QDialogButtonBox(which, dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

void styleHeader(QHeaderView* header)
{
    header->setStyleSheet(QStringLiteral("QHeaderView::section { background-color: %1; }")
                              .arg(colours::gridHeader().name()));
}

} // namespace

WideInformationDialog::WideInformationDialog(const dbase& record, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Radio Wide Information"));
    const WideInformationView view = WideInformationView::of(record);

    auto* identity = new QFormLayout;
    identity->addRow(tr("Serial No."), readOnly(view.serialNumber, this));
    identity->addRow(tr("Radio Code"), readOnly(view.radioCode, this));
    identity->addRow(tr("Software Ver."), readOnly(view.softwareVersion, this));
    identity->addRow(tr("Hardware Ver."), readOnly(view.hardwareVersion, this));
    identity->addRow(tr("C.H. S/W Ver."), readOnly(view.controlHeadSoftwareVersion, this));
    identity->addRow(tr("C.H. H/W Ver."), readOnly(view.controlHeadHardwareVersion, this));

    auto* optionsBox = new QGroupBox(tr("Radio Options List"), this);
    auto* options = new QTableWidget(int(view.options.size()), 4, optionsBox);
    options->setObjectName("options");
    options->setHorizontalHeaderLabels(
        {tr("Option"), tr("S/W Ver."), tr("H/W Ver."), tr("Status")});
    styleHeader(options->horizontalHeader());
    options->verticalHeader()->hide();
    options->setEditTriggers(QAbstractItemView::NoEditTriggers);
    const int twips[] = {2070, 1050, 1050, 1000};
    for (int c = 0; c < 4; ++c)
        options->setColumnWidth(c, colours::twipsToPixels(twips[c], logicalDpiX()) + 12);
    for (int r = 0; r < int(view.options.size()); ++r) {
        const auto& row = view.options[static_cast<std::size_t>(r)];
        const std::string cells[] = {row.name, row.softwareVersion, row.hardwareVersion,
                                     row.status};
        for (int c = 0; c < 4; ++c)
            options->setItem(r, c, new QTableWidgetItem(qs(cells[c])));
    }
    options->resizeRowsToContents();
    auto* optionsLayout = new QVBoxLayout(optionsBox);
    optionsLayout->addWidget(options);

    auto* lists = new QHBoxLayout;
    const std::pair<QString, const std::vector<std::string>*> entries[] = {
        {tr("E.C.N. List"), &view.ecn}, {tr("S.P. List"), &view.sp}};
    for (const auto& [title, items] : entries) {
        auto* box = new QGroupBox(title, this);
        auto* list = new QListWidget(box);
        for (const std::string& item : *items)
            list->addItem(qs(item));
        auto* boxLayout = new QVBoxLayout(box);
        boxLayout->addWidget(list);
        lists->addWidget(box);
    }

    auto* top = new QHBoxLayout;
    top->addLayout(identity);
    top->addLayout(lists, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(optionsBox, 1);
    layout->addWidget(closeButtons(this, QDialogButtonBox::Close));
    resize(620, 620);
}

FileInformationDialog::FileInformationDialog(FileInfo& info, const QString& path, QWidget* parent)
    : QDialog(parent), m_info(info)
{
    setWindowTitle(tr("File Information"));
    m_comment =
        new QPlainTextEdit(QString::fromStdString(info.comment).replace("\r\n", "\n"), this);
    m_userName = new QLineEdit(QString::fromStdString(info.userName), this);
    m_userName->setMaxLength(int(FileInfo::kUserNameSize) - 1);
    const QString when = info.modificationTime == 0
                             ? QString()
                             : QDateTime::fromSecsSinceEpoch(info.modificationTime)
                                   .toString(QStringLiteral("MM/dd/yy HH:mm:ss"));

    auto* form = new QFormLayout;
    form->addRow(tr("File:"), new QLabel(path, this));
    form->addRow(tr("Last modified:"), new QLabel(when, this));
    form->addRow(tr("&User Name:"), m_userName);
    form->addRow(tr("&Comment:"), m_comment);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(closeButtons(this, QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
    resize(480, 300);
}

void FileInformationDialog::accept()
{
    // The file keeps at most 199 characters of comment, line breaks as CR LF.
    QString comment = m_comment->toPlainText().replace("\n", "\r\n");
    comment.truncate(int(FileInfo::kCommentSize) - 1);
    m_info.comment = comment.toStdString();
    m_info.userName = m_userName->text().toStdString();
    QDialog::accept();
}

SummaryDialog::SummaryDialog(const RssDocument& document, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Radio Configuration Summary"));
    m_table = new QTableView(this);
    auto* model = new ChannelTableModel(document, m_table);
    m_table->setModel(model);
    styleChannelView(m_table);
    fitChannelColumns(m_table);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_table);
    layout->addWidget(closeButtons(this, QDialogButtonBox::Close));
    resize(640, 560);
}

CheckDialog::CheckDialog(const QStringList& lines, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Configuration Check Information"));
    m_list = new QListWidget(this);
    m_list->addItems(lines);
    const auto chosen = [this](const QListWidgetItem* item) {
        if (const int channel = checkLineTarget(item->text().toStdString()).channel; channel > 0)
            emit channelChosen(channel);
    };
    connect(m_list, &QListWidget::itemDoubleClicked, this, chosen);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QWidget::customContextMenuRequested, this, [this, chosen](QPoint at) {
        QListWidgetItem* item = m_list->itemAt(at);
        const int channel = item ? checkLineTarget(item->text().toStdString()).channel : 0;
        if (channel < 1)
            return;
        QMenu menu(m_list);
        menu.addAction(tr("&Go to Channel %1").arg(channel), this,
                       [item, chosen] { chosen(item); });
        menu.exec(m_list->viewport()->mapToGlobal(at));
    });
    auto* status =
        new QLabel(lines.isEmpty() ? tr("No configuration problem was found.")
                                   : tr("%n reference(s) to channels that are not programmed.",
                                        nullptr, int(lines.size())),
                   this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(status);
    layout->addWidget(m_list);
    layout->addWidget(closeButtons(this, QDialogButtonBox::Close));
    resize(520, 360);
}

} // namespace koral
