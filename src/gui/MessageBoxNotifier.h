#pragma once

#include "common/Notifier.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <optional>

class QWidget;

namespace koral {

// The desktop application's notifier: a modal message box per message. Tests script it the
// way a person would answer: they queue the next answers, and every text shown is kept so
// that a test can assert exactly what the operator saw. While answers are queued (or after
// setAutomatic) no box is shown at all.
class MessageBoxNotifier : public Notifier
{
public:
    explicit MessageBoxNotifier(QWidget* parent = nullptr) : m_parent(parent) {}

    void setParent(QWidget* parent) { m_parent = parent; }

    void show(std::string_view text, Icon icon = Icon::None) override;
    Answer ask(std::string_view text, Buttons buttons, Icon icon = Icon::Question) override;

    // Test hooks.
    static void setAutomatic(bool automatic);
    static void queueAnswer(Answer answer);
    static QStringList shownTexts();
    static void clearShownTexts();

private:
    QWidget* m_parent;
};

// The file dialogs of the application, with the test hook of a queued next file name (an
// empty name answers like Cancel).
namespace FileDialogs {
// `directory` is where the dialog starts.
QString openFileName(QWidget* parent, const QString& caption, const QString& filter,
                     const QString& directory = {});
// `suggested` is the name (with its folder) the dialog offers.
QString saveFileName(QWidget* parent, const QString& caption, const QString& filter,
                     const QString& suffix, const QString& suggested = {});
void queueFileName(const QString& name);
// Where the last file dialog started: its folder, or the name it offered.
QString lastStart();
} // namespace FileDialogs

} // namespace koral
