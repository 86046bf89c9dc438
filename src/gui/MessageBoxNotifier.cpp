#include "gui/MessageBoxNotifier.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace koral {

namespace {

struct Hooks
{
    bool automatic = false;
    std::deque<Answer> answers;
    QStringList shown;
    std::deque<QString> fileNames;
    QString lastStart;
};

Hooks& hooks()
{
    static Hooks instance;
    return instance;
}

QMessageBox::Icon boxIcon(Icon icon)
{
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Warning:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QString caption()
{
    return QApplication::applicationDisplayName();
}

} // namespace

void MessageBoxNotifier::show(std::string_view text, Icon icon)
{
    const QString message = QString::fromUtf8(text.data(), qsizetype(text.size()));
    hooks().shown << message;
    if (hooks().automatic)
        return;
    QMessageBox box(boxIcon(icon), caption(), message, QMessageBox::Ok, m_parent);
    box.exec();
}

Answer MessageBoxNotifier::ask(std::string_view text, Buttons buttons, Icon icon)
{
    const QString message = QString::fromUtf8(text.data(), qsizetype(text.size()));
    hooks().shown << message;
    if (!hooks().answers.empty()) {
        const Answer answer = hooks().answers.front();
        hooks().answers.pop_front();
        return answer;
    }
    if (hooks().automatic) {
        // Unattended, a question about unsaved changes keeps them: nothing is lost and no
        // file dialog waits for a person.
        switch (buttons) {
        case Buttons::YesNo:
            return Answer::Yes;
        case Buttons::SaveDiscardCancel:
            return Answer::Cancel;
        case Buttons::Ok:
        case Buttons::OkCancel:
            break;
        }
        return Answer::Ok;
    }
    QMessageBox box(boxIcon(icon), caption(), message, QMessageBox::NoButton, m_parent);
    switch (buttons) {
    case Buttons::Ok:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    case Buttons::OkCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case Buttons::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    case Buttons::SaveDiscardCancel:
        box.setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Save);
        box.setEscapeButton(QMessageBox::Cancel);
        break;
    }
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Ok:
        return Answer::Ok;
    case QMessageBox::Save:
        return Answer::Save;
    case QMessageBox::Discard:
        return Answer::Discard;
    default:
        return Answer::Cancel;
    }
}

void MessageBoxNotifier::setAutomatic(bool automatic)
{
    hooks().automatic = automatic;
}

void MessageBoxNotifier::queueAnswer(Answer answer)
{
    hooks().answers.push_back(answer);
}

QStringList MessageBoxNotifier::shownTexts()
{
    return hooks().shown;
}

void MessageBoxNotifier::clearShownTexts()
{
    hooks().shown.clear();
}

namespace FileDialogs {

namespace {
std::optional<QString> queuedName()
{
    if (hooks().fileNames.empty())
        return std::nullopt;
    QString name = hooks().fileNames.front();
    hooks().fileNames.pop_front();
    return name;
}
} // namespace

QString openFileName(QWidget* parent, const QString& caption, const QString& filter,
                     const QString& directory)
{
    hooks().lastStart = directory;
    if (auto name = queuedName())
        return *name;
    return QFileDialog::getOpenFileName(parent, caption, directory, filter);
}

QString saveFileName(QWidget* parent, const QString& caption, const QString& filter,
                     const QString& suffix, const QString& suggested)
{
    hooks().lastStart = suggested;
    QString name;
    if (auto queued = queuedName())
        name = *queued;
    else
        name = QFileDialog::getSaveFileName(parent, caption, suggested, filter);
    if (!name.isEmpty() && QFileInfo(name).suffix().isEmpty())
        name += '.' + suffix;
    return name;
}

void queueFileName(const QString& name)
{
    hooks().fileNames.push_back(name);
}

QString lastStart()
{
    return hooks().lastStart;
}

} // namespace FileDialogs

} // namespace koral
