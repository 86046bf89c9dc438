#pragma once

#include "gui/MessageBoxNotifier.h"
#include "gui/PanelRules.h"

#include <QKeySequence>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <span>

class QLabel;
class QStackedWidget;
class QUrl;

namespace koral {

class ComputerInterfacePanel;
class AlePanel;
class CcirPanel;
class DocumentPanel;
class FrontPanels;
class LinkTraceWindow;
class RssPanel;
class RadioController;
class NetworkControlPane;
class Notice;

// Opens the user manual in the platform's viewer; tests replace the opener.
namespace HelpViewer {
bool open(const QUrl& url);
void setOpener(std::function<bool(const QUrl&)> function);
} // namespace HelpViewer

struct MainWindowOptions
{
    int port = 0; // 0: as CommPort.txt says
    int baud = 0; // 0: as CommPort.txt says
    QString dataDirectory;
    bool connectAtStart = true;
};

// The main frame: one panel at a time, each with its own toolbar and menu bar; switching
// panel changes the toolbar, the menus and the title together. The status bar carries the
// serial-number, radio-code and port panes.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(const MainWindowOptions& options, QWidget* parent = nullptr);
    ~MainWindow() override;

    void showPanel(Panel panel);
    Panel currentPanel() const { return m_current; }
    const PanelRules& rules() const { return m_rules; }

    RssPanel* rssPanel() const { return m_rss; }
    ComputerInterfacePanel* computerInterfacePanel() const { return m_computerInterface; }
    AlePanel* alePanel() const { return m_ale; }
    CcirPanel* ccirPanel() const { return m_ccir; }
    // Asks about the unsaved changes of every document in turn; false when the user cancelled.
    bool maybeSaveDocuments();
    FrontPanels* frontPanels() const { return m_frontPanels; }
    RadioController* radio() const { return m_radio; }
    NetworkControlPane* networkPane() const { return m_network; }
    MessageBoxNotifier& notifier() { return m_notifier; }
    QToolBar* panelToolBar(Panel panel) const;
    // The menus the menu bar carries while the panel is shown.
    QList<QMenu*> panelMenus(Panel panel) const;
    QAction* command(const QString& name) const;
    QLabel* statusPane(int id) const;

    // Shows the Link Trace window (made on first use); null until then.
    void showLinkTrace();
    LinkTraceWindow* linkTraceWindow() const;

    // Opens the user manual; the two not-found messages when it is missing.
    void openHelp();
    // The file the help commands open.
    static QString helpFile();

    // Shows a short-lived notice (0 ms: until replaced).
    void showNotice(const QString& text, int milliseconds, bool withPicture = false);
    QString noticeText() const;
    void closeNotice();

    // Title after a file of a panel was opened or saved.
    void setPanelPath(Panel panel, const QString& path);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    struct CommandSpec
    {
        const char* name;
        const char* text;
        QKeySequence shortcut;
        bool checkable = false;
    };
    void addCommands(std::span<const CommandSpec> specs);
    void createActions();
    void createComputerInterfacePanel();
    // Each panel's page, commands, menus and toolbar.
    void createRssPanel();
    void createAlePanel();
    void createCcirPanel();
    // The page's title, unsaved-changes mark and status messages follow its document.
    void registerDocumentPanel(Panel panel, DocumentPanel* page);
    // The menus and toolbar buttons every panel has.
    QMenu* createRadioMenu();
    QMenu* createViewMenu(const QList<QAction*>& panelCommands);
    QMenu* createHelpMenu();
    QList<QAction*> toolBarActions();
    // The KORAL and KORAL-2E pages with their menus and toolbars (MainWindowFrontPanels.cpp).
    void createFrontPanels();
    QToolBar* createToolBar(Panel panel, const QList<QAction*>& actions);
    void updateTitle();
    void updatePanelButtons();
    void updateStatusPanes();
    void updateCommands();

    MessageBoxNotifier m_notifier;
    PanelRules m_rules;
    Panel m_current;
    QStackedWidget* m_pages;
    RssPanel* m_rss = nullptr;
    ComputerInterfacePanel* m_computerInterface = nullptr;
    AlePanel* m_ale = nullptr;
    CcirPanel* m_ccir = nullptr;
    std::map<Panel, DocumentPanel*> m_documents;
    RadioController* m_radio = nullptr;
    NetworkControlPane* m_network = nullptr;
    FrontPanels* m_frontPanels = nullptr;
    std::map<Panel, QToolBar*> m_toolBars;
    std::map<Panel, QList<QMenu*>> m_menus;
    std::map<Panel, QWidget*> m_pagesByPanel;
    std::map<Panel, QString> m_paths;
    std::map<QString, QAction*> m_commands;
    std::map<Panel, QAction*> m_panelActions;
    std::map<int, QLabel*> m_panes;
    QPointer<Notice> m_notice;
    QPointer<LinkTraceWindow> m_linkTrace;
};

} // namespace koral
