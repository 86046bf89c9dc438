#pragma once

// A main window without a radio, as the document panel tests use it: the user settings
// (recent files, the last folder) kept in the test's own folder, message boxes answered
// automatically, one panel shown; and the file commands with the name the file dialog would
// have given.

#include "GuiTestSupport.h"

#include "gui/AlePanel.h"
#include "gui/CcirPanel.h"
#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/RssPanel.h"

#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace koral::test {

class PanelWindow
{
public:
    PanelWindow()
    {
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_dir.path());
    }
    ~PanelWindow() { close(); }

    // A new window on `panel`, shown; no message box is remembered from before.
    bool open(Panel panel)
    {
        MessageBoxNotifier::setAutomatic(true);
        MessageBoxNotifier::clearShownTexts();
        MainWindowOptions options;
        options.connectAtStart = false;
        m_window = std::make_unique<MainWindow>(options);
        m_window->showPanel(panel);
        m_window->show();
        return QTest::qWaitForWindowExposed(m_window.get());
    }
    // Closes the window without a question: every document counts as saved.
    void close()
    {
        if (!m_window)
            return;
        m_window->rssPanel()->document().markClean();
        m_window->alePanel()->document().markClean();
        m_window->ccirPanel()->document().markClean();
        m_window.reset();
    }

    MainWindow* get() const { return m_window.get(); }
    DocumentPanel* document(Panel panel) const
    {
        if (panel == Panel::RssAle)
            return m_window->alePanel();
        if (panel == Panel::Ccir)
            return m_window->ccirPanel();
        return m_window->rssPanel();
    }
    MainWindow* operator->() const { return m_window.get(); }
    QString path(const char* name) const { return m_dir.filePath(QString::fromUtf8(name)); }

private:
    QTemporaryDir m_dir;
    std::unique_ptr<MainWindow> m_window;
};

inline bool openFile(DocumentPanel* panel, const QString& file)
{
    FileDialogs::queueFileName(file);
    return panel->openFile();
}

inline bool saveFileAs(DocumentPanel* panel, const QString& file)
{
    FileDialogs::queueFileName(file);
    return panel->saveFileAs();
}

} // namespace koral::test
