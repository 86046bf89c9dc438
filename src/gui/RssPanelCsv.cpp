// The RSS panel's channel plans as CSV files: the two File menu commands.

#include "gui/MessageBoxNotifier.h"
#include "gui/RssPanel.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "radiodb/ChannelCsv.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace koral {

namespace {

const QString kCsvFilter = QStringLiteral("CSV Files (*.csv);;All Files (*)");

QString startFolder(const QString& documentPath)
{
    return documentPath.isEmpty() ? QString() : QFileInfo(documentPath).absolutePath();
}

} // namespace

bool RssPanel::exportChannelsCsv()
{
    const QString suggested =
        currentPath().isEmpty()
            ? QString()
            : QFileInfo(currentPath())
                  .dir()
                  .filePath(QFileInfo(currentPath()).completeBaseName() + QStringLiteral(".csv"));
    const QString path = FileDialogs::saveFileName(this, tr("Export Channels to CSV"), kCsvFilter,
                                                   QStringLiteral("csv"), suggested);
    if (path.isEmpty())
        return false;
    ChannelPlan plan{m_document.record, std::nullopt};
    if (m_document.ccirPresent)
        plan.ccirNumbers = m_document.ccirNumbers;
    const std::string csv = channelCsv(plan);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(csv.data(), qint64(csv.size())) != qint64(csv.size()) || !file.flush()) {
        notifier().show(text::format(text::kProfileCannotWrite.data(), path.toStdString().c_str(),
                                     file.errorString().toStdString().c_str()),
                        Icon::Warning);
        return false;
    }
    emit statusMessage(QString::fromUtf8(text::kOperationCompleted.data(),
                                         qsizetype(text::kOperationCompleted.size())));
    return true;
}

bool RssPanel::importChannelsCsv()
{
    const QString path = FileDialogs::openFileName(this, tr("Import Channels from CSV"), kCsvFilter,
                                                   startFolder(currentPath()));
    if (path.isEmpty())
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        notifier().show(text::format(text::kProfileCannotRead.data(), path.toStdString().c_str(),
                                     file.errorString().toStdString().c_str()),
                        Icon::Warning);
        return false;
    }
    const QByteArray bytes = file.readAll();
    ChannelPlan plan{m_document.record, std::nullopt};
    if (m_document.ccirPresent)
        plan.ccirNumbers = m_document.ccirNumbers;
    const std::vector<std::string> errors =
        importChannelCsv(std::string_view(bytes.constData(), std::size_t(bytes.size())), plan,
                         m_isbOffered || m_document.isb);
    if (!errors.empty()) {
        std::string message =
            text::format(text::kCsvNotImported.data(), path.toStdString().c_str());
        for (const std::string& error : errors)
            message += "\n" + error;
        notifier().show(message, Icon::Warning);
        return false;
    }
    m_document.record = plan.record;
    m_document.ccirPresent = plan.ccirNumbers.has_value();
    if (plan.ccirNumbers)
        m_document.ccirNumbers = *plan.ccirNumbers;
    documentEdited();
    return true;
}

} // namespace koral
