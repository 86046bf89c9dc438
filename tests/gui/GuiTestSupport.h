#pragma once

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QTimer>
#include <QWidget>
#include <QtTest>

#include <functional>

namespace koral::test {

// Runs `act` on the modal dialog that the next exec() opens, then makes sure it is gone, so
// that a failed check never leaves a test waiting on an open dialog.
template <typename Dialog>
void onNextDialog(std::function<void(Dialog*)> act)
{
    QTimer::singleShot(0, [act] {
        QWidget* modal = QApplication::activeModalWidget();
        auto* dialog = qobject_cast<Dialog*>(modal);
        if (dialog)
            act(dialog);
        else
            qWarning("expected dialog not shown (found %s)",
                     modal ? modal->metaObject()->className() : "none");
        if (auto* still = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            if (still == modal && still->isVisible())
                still->reject();
    });
}

// The title as the platform shows it: "[*]" marks unsaved changes.
inline QString shownTitle(const QWidget* window)
{
    QString title = window->windowTitle();
    return title.replace(QStringLiteral("[*]"),
                         window->isWindowModified() ? QStringLiteral("*") : QString());
}

// Saves a picture of a window for the manual when KORAL_SCREENSHOT_DIR is set.
inline void screenshot(QWidget* widget, const QString& name)
{
    const QString dir = qEnvironmentVariable("KORAL_SCREENSHOT_DIR");
    if (dir.isEmpty())
        return;
    widget->grab().save(QDir(dir).filePath(name + QStringLiteral(".png")));
}

inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(bytes) == bytes.size();
}

} // namespace koral::test
