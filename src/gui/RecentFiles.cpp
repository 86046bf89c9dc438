#include "gui/RecentFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace koral {

namespace {
QString filesKey(const QString& key)
{
    return QStringLiteral("recent/%1/files").arg(key);
}
QString folderKey(const QString& key)
{
    return QStringLiteral("recent/%1/folder").arg(key);
}
} // namespace

RecentFiles::RecentFiles(QString key) : m_key(std::move(key))
{
    m_files = QSettings().value(filesKey(m_key)).toStringList().mid(0, kMaxFiles);
}

QString RecentFiles::folder() const
{
    const QString folder = QSettings().value(folderKey(m_key)).toString();
    return !folder.isEmpty() && QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

void RecentFiles::add(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    m_files.removeAll(absolute);
    m_files.prepend(absolute);
    m_files = m_files.mid(0, kMaxFiles);
    QSettings().setValue(folderKey(m_key), QFileInfo(absolute).absolutePath());
    store();
}

void RecentFiles::remove(const QString& path)
{
    m_files.removeAll(QFileInfo(path).absoluteFilePath());
    store();
}

void RecentFiles::store() const
{
    QSettings().setValue(filesKey(m_key), m_files);
}

} // namespace koral
