#include "gui/DocumentPanel.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "gui/HelpButtonDialog.h"
#include "gui/InformationDialogs.h"
#include "gui/MessageBoxNotifier.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>

#include <memory>

namespace koral {

namespace {

std::string path8(const QString& path)
{
    return QDir::toNativeSeparators(path).toStdString();
}

// The file's text as printed: a fixed-pitch face, so its columns line up.
std::unique_ptr<QTextDocument> textDocument(const QString& text)
{
    auto document = std::make_unique<QTextDocument>();
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setPointSize(9);
    document->setDefaultFont(font);
    document->setPlainText(text);
    return document;
}

std::unique_ptr<QTextDocument> htmlDocument(const QString& html)
{
    auto document = std::make_unique<QTextDocument>();
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(9);
    document->setDefaultFont(font);
    document->setHtml(html);
    return document;
}

} // namespace

DocumentPanel::DocumentPanel(Notifier& notifier, FileKind kind, QWidget* parent)
    : QWidget(parent), m_notifier(notifier), m_kind(std::move(kind)), m_recent(m_kind.key)
{}

bool DocumentPanel::maybeSave()
{
    if (!isModified())
        return true;
    switch (m_notifier.ask(m_kind.unsavedQuestion, Buttons::SaveDiscardCancel, Icon::Question)) {
    case Answer::Save:
        return saveFile();
    case Answer::Discard:
        return true;
    default:
        return false;
    }
}

bool DocumentPanel::openFile()
{
    if (!maybeSave())
        return false;
    const QString path = FileDialogs::openFileName(this, tr("Open %1").arg(m_kind.name),
                                                   m_kind.filter, m_recent.folder());
    return !path.isEmpty() && openPath(path);
}

bool DocumentPanel::openPath(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    bool foreign = false;
    const std::string error = readFile(absolute.toStdString(), foreign);
    if (!error.empty()) {
        m_notifier.show(error, Icon::Warning);
        if (!QFileInfo::exists(absolute)) {
            m_recent.remove(absolute);
            emit recentFilesChanged();
        }
        return false;
    }
    if (foreign &&
        m_notifier.ask(text::format(m_kind.foreignQuestion.data(), path8(absolute).c_str()),
                       Buttons::YesNo, Icon::Warning) != Answer::Yes)
        return false;
    adoptReadFile(absolute.toStdString());
    m_recent.add(absolute);
    emit recentFilesChanged();
    emit documentChanged();
    emit pathChanged(absolute);
    return true;
}

QString DocumentPanel::suggestedName(const QString& suffix) const
{
    const QString current = currentPath();
    const QString base = current.isEmpty() ? tr("untitled") : QFileInfo(current).completeBaseName();
    return QDir(m_recent.folder()).filePath(base + '.' + suffix);
}

bool DocumentPanel::saveFile()
{
    const QString current = currentPath();
    return current.isEmpty() ? saveFileAs() : saveTo(current);
}

bool DocumentPanel::saveFileAs()
{
    const QString path =
        FileDialogs::saveFileName(this, tr("Save %1 As").arg(m_kind.name), m_kind.filter,
                                  m_kind.suffix, suggestedName(m_kind.suffix));
    return !path.isEmpty() && saveTo(QFileInfo(path).absoluteFilePath());
}

bool DocumentPanel::saveTo(const QString& path)
{
    const std::string error = writeFile(path.toStdString());
    if (!error.empty()) {
        m_notifier.show(error, Icon::Warning);
        return false;
    }
    m_recent.add(path);
    emit recentFilesChanged();
    emit documentChanged();
    emit pathChanged(path);
    emit statusMessage(tr("Saved to %1").arg(QDir::toNativeSeparators(path)));
    return true;
}

QMenu* DocumentPanel::createRecentFilesMenu(QWidget* parent)
{
    auto* menu = new QMenu(tr("Recent &Files"), parent);
    const auto fill = [this, menu] {
        menu->clear();
        const QStringList files = m_recent.files();
        for (int i = 0; i < files.size(); ++i) {
            const QString file = files[i];
            QAction* action = menu->addAction(
                QStringLiteral("&%1 %2").arg(i + 1).arg(QDir::toNativeSeparators(file)));
            connect(action, &QAction::triggered, this, [this, file] {
                if (maybeSave())
                    openPath(file);
            });
        }
        menu->setEnabled(!files.isEmpty());
    };
    fill();
    connect(this, &DocumentPanel::recentFilesChanged, menu, fill);
    return menu;
}

bool DocumentPanel::printFile()
{
    const QString text = printedText();
    if (text.isEmpty())
        return false;
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(tr("Print %1").arg(m_kind.name));
    if (dialog.exec() != QDialog::Accepted)
        return false;
    textDocument(text)->print(&printer);
    return true;
}

bool DocumentPanel::printReport()
{
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(tr("Print Report"));
    if (dialog.exec() != QDialog::Accepted)
        return false;
    htmlDocument(reportHtml())->print(&printer);
    return true;
}

bool DocumentPanel::exportPdf()
{
    const QString text = printedText();
    return !text.isEmpty() && exportToPdf(tr("Export to PDF"), text);
}

bool DocumentPanel::exportReportPdf()
{
    return exportToPdf(tr("Export Report to PDF"), QString());
}

bool DocumentPanel::exportToPdf(const QString& caption, const QString& text)
{
    const QString path =
        FileDialogs::saveFileName(this, caption, QString::fromUtf8(text::kPdfFileFilter.data()),
                                  QStringLiteral("pdf"), suggestedName(QStringLiteral("pdf")));
    if (path.isEmpty())
        return false;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setDocName(QFileInfo(currentPath()).fileName());
    const auto document = text.isEmpty() ? htmlDocument(reportHtml()) : textDocument(text);
    document->print(&printer);
    if (!QFileInfo(path).isFile()) {
        m_notifier.show(text::format(text::kFileNotWritten.data(), path8(path).c_str(),
                                     "the printer did not write it"),
                        Icon::Warning);
        return false;
    }
    emit statusMessage(tr("Exported to %1").arg(QDir::toNativeSeparators(path)));
    return true;
}

void DocumentPanel::editFileInformation()
{
    FileInformationDialog dialog(fileInfo(), currentPath(), window());
    if (dialog.exec() == QDialog::Accepted)
        emit documentChanged();
}

int DocumentPanel::execDialog(HelpButtonDialog& dialog)
{
    connect(&dialog, &HelpButtonDialog::helpRequested, this, &DocumentPanel::helpRequested);
    return dialog.exec();
}

} // namespace koral
