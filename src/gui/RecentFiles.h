#pragma once

#include <QString>
#include <QStringList>

namespace koral {

// The files a document kind was last opened from or saved to, newest first, and the folder
// its file dialogs start in. Kept in the user's settings under the kind's key, so each
// panel has its own list.
class RecentFiles
{
public:
    static constexpr int kMaxFiles = 8;

    explicit RecentFiles(QString key);

    QStringList files() const { return m_files; }
    // The folder the last file was chosen in (the user's home folder at first).
    QString folder() const;
    // `path` was opened or saved: it moves to the front, and its folder becomes the start.
    void add(const QString& path);
    void remove(const QString& path);

private:
    void store() const;

    QString m_key;
    QStringList m_files;
};

} // namespace koral
