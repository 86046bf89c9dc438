#include "gui/MainWindow.h"
#include "gui/QtText.h"

#include "common/Texts.h"
#include "gui/AlePanel.h"
#include "gui/ComputerInterfaceMenus.h"
#include "gui/ComputerInterfacePanel.h"
#include "gui/LinkTraceWindow.h"
#include "gui/NetworkControlPane.h"
#include "gui/Notices.h"
#include "gui/ProgressDialog.h"
#include "gui/RadioController.h"
#include "gui/RssPanel.h"
#include "gui/ToolbarImages.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

namespace koral {

namespace {

// Panels this build has; the others come with their own pages.
const std::vector<Panel> kBuiltPanels{
    Panel::ComputerInterface, Panel::Rss, Panel::RssAle, Panel::Koral, Panel::Ccir, Panel::Koral2E};

} // namespace

MainWindow::MainWindow(const MainWindowOptions& options, QWidget* parent)
    : QMainWindow(parent), m_notifier(this), m_rules(kBuiltPanels), m_current(m_rules.startPanel())
{
    setObjectName("mainWindow");
    m_pages = new QStackedWidget(this);
    setCentralWidget(m_pages);
    createActions();
    createComputerInterfacePanel();
    createRssPanel();
    createAlePanel();
    createCcirPanel();

    m_radio = new RadioController(*this, options, this);
    m_rss->setRadio(m_radio);
    m_computerInterface->bind(m_radio->session());
    connect(m_computerInterface, &ComputerInterfacePanel::helpRequested, this,
            &MainWindow::openHelp);
    createFrontPanels();

    for (int id : {13, 10, 11, 12}) {
        auto* pane = new QLabel(this);
        pane->setObjectName(QStringLiteral("pane%1").arg(id));
        pane->setMinimumWidth(140);
        pane->setFrameShape(QFrame::Panel);
        pane->setFrameShadow(QFrame::Sunken);
        statusBar()->addPermanentWidget(pane);
        m_panes[id] = pane;
    }
    m_network = new NetworkControlPane(m_radio->session(), m_notifier, this);
    statusBar()->addPermanentWidget(m_network);
    connect(m_commands["networkControl"], &QAction::triggered, m_network,
            &NetworkControlPane::configure);
    // The radio's state stays in view whichever panel is shown.
    connect(m_computerInterface, &ComputerInterfacePanel::stateSummaryChanged, m_panes[13],
            &QLabel::setText);
    m_panes[13]->setText(m_computerInterface->stateSummary());
    connect(m_radio, &RadioController::stateChanged, this, [this] {
        updateStatusPanes();
        updateCommands();
        updatePanelButtons();
    });
    connect(m_radio, &RadioController::statusText, this, [this](const QString& text) {
        if (text.isEmpty())
            statusBar()->clearMessage();
        else
            statusBar()->showMessage(text);
    });

    showPanel(m_current);
    updateStatusPanes();
    updateCommands();
    resize(980, 680);

    // The start-up notice, then the first connection once the window is on the screen. A
    // transfer that starts while the notice shows carries it on in its own window, so the
    // notice never hides behind the progress.
    showNotice(tr("%1  27/10/2003").arg(qs(text::kApplicationName)), 4000, true);
    ProgressDialog* progress = m_radio->progressDialog();
    connect(progress, &ProgressDialog::opened, this, [this, progress] {
        if (m_notice && m_notice->isVisible()) {
            progress->setBanner(m_notice->text());
            m_notice->close();
        }
    });
}

MainWindow::~MainWindow() = default;

void MainWindow::addCommands(std::span<const CommandSpec> specs)
{
    for (const CommandSpec& spec : specs) {
        auto* action = new QAction(tr(spec.text), this);
        action->setObjectName(spec.name);
        action->setShortcut(spec.shortcut);
        action->setCheckable(spec.checkable);
        m_commands[spec.name] = action;
    }
}

void MainWindow::createActions()
{
    const CommandSpec specs[] = {
        {"openRss", "&Open RSS File...", QKeySequence::Open},
        {"saveRss", "&Save RSS File", QKeySequence::Save},
        {"saveRssAs", "Save RSS File &As...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
        {"printRss", "&Print RSS File...", QKeySequence::Print},
        {"exportPdf", "E&xport to PDF...", QKeySequence(Qt::CTRL | Qt::Key_E)},
        {"printReport", "Print &Report...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)},
        {"exportReport", "Export R&eport to PDF...",
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E)},
        {"fileInfo", "File &Information...", QKeySequence()},
        {"exportCsv", "Export Channels to &CSV...", QKeySequence()},
        {"importCsv", "I&mport Channels from CSV...", QKeySequence()},
        {"exit", "E&xit", QKeySequence::Quit},
        {"readDevice", "&Read Device", QKeySequence(Qt::Key_F5)},
        {"writeDevice", "&Write Device", QKeySequence(Qt::Key_F6)},
        {"compareRadio", "Co&mpare with Radio", QKeySequence(Qt::SHIFT | Qt::Key_F6)},
        {"restoreBackup", "Restore Backu&p...", QKeySequence()},
        {"commPort", "&Communication Port Setup...", QKeySequence()},
        {"networkControl", "&Network Control...", QKeySequence()},
        {"linkTrace", "Lin&k Trace...", QKeySequence(Qt::CTRL | Qt::Key_T)},
        {"reset", "Perform Rese&t", QKeySequence()},
        {"remote", "Remote Control &On/Off", QKeySequence(), true},
        {"squelch", "Set &Squelch On/Off", QKeySequence(Qt::CTRL | Qt::Key_1), true},
        {"monitor", "Set &Monitor On/Off", QKeySequence(Qt::CTRL | Qt::Key_2), true},
        {"noiseBlanker", "Set &Noise Blanker On/Off", QKeySequence(Qt::CTRL | Qt::Key_3), true},
        {"attenuator", "Set &Attenuator On/Off", QKeySequence(Qt::CTRL | Qt::Key_4), true},
        {"clipper", "Set C&lipper On/Off", QKeySequence(Qt::CTRL | Qt::Key_5), true},
        {"bite", "&BITE...", QKeySequence(Qt::Key_F7)},
        {"channelConfig", "&Channel Configuration...", QKeySequence(Qt::CTRL | Qt::Key_H)},
        {"groups", "&Groups...", QKeySequence(Qt::CTRL | Qt::Key_G)},
        {"radioOptions", "Radio &Options...", QKeySequence(Qt::CTRL | Qt::Key_R)},
        {"wideInfo", "Radio &Wide Information...", QKeySequence(Qt::CTRL | Qt::Key_W)},
        {"summary", "View Radio Configuration &Summary", QKeySequence(Qt::CTRL | Qt::Key_M)},
        {"check", "View Configuration Check &Information", QKeySequence(Qt::CTRL | Qt::Key_K)},
        {"help", "&Display Help Window", QKeySequence::HelpContents},
        {"about", "&About KORAL Control Center", QKeySequence()},
    };
    addCommands(specs);
    const std::pair<const char*, int> toggles[] = {{"squelch", ToolbarImages::kSquelch},
                                                   {"monitor", ToolbarImages::kMonitor},
                                                   {"noiseBlanker", ToolbarImages::kNoiseBlanker},
                                                   {"attenuator", ToolbarImages::kAttenuator},
                                                   {"clipper", ToolbarImages::kClipper}};
    for (const auto& [name, image] : toggles)
        m_commands[name]->setIcon(ToolbarImages::icon(image + ToolbarImages::kPairDistance));
    m_commands["readDevice"]->setIcon(ToolbarImages::commandIcon("READ", QColor(0xB0, 0xD8, 0xFF)));
    m_commands["writeDevice"]->setIcon(
        ToolbarImages::commandIcon("WRITE", QColor(0xFF, 0xC0, 0xA0)));
    m_commands["bite"]->setIcon(ToolbarImages::commandIcon("TEST", QColor(0xD0, 0xF0, 0xC0)));
    m_commands["exit"]->setIcon(ToolbarImages::commandIcon("EXIT", QColor(0xE0, 0xE0, 0xE0)));
    m_commands["help"]->setIcon(ToolbarImages::commandIcon("?", QColor(0xFF, 0xF0, 0xA0)));

    for (const PanelInfo& info : PanelRules::all()) {
        if (!m_rules.isOffered(info.panel))
            continue;
        auto* action = new QAction(qs(info.menuText), this);
        action->setObjectName(QStringLiteral("panel%1").arg(int(info.panel)));
        action->setCheckable(true);
        const QString label = info.panel == Panel::Rss                 ? QStringLiteral("RSS")
                              : info.panel == Panel::RssAle            ? QStringLiteral("ALE")
                              : info.panel == Panel::Ccir              ? QStringLiteral("CCIR")
                              : info.panel == Panel::ComputerInterface ? QStringLiteral("CI")
                              : info.panel == Panel::Koral             ? QStringLiteral("HEAD")
                                                                       : QStringLiteral("2E");
        action->setIcon(ToolbarImages::commandIcon(label, QColor(0xFF, 0xC8, 0x64)));
        const Panel panel = info.panel;
        connect(action, &QAction::triggered, this, [this, panel] { showPanel(panel); });
        m_panelActions[panel] = action;
    }

    connect(m_commands["exit"], &QAction::triggered, this, &QWidget::close);
    connect(m_commands["commPort"], &QAction::triggered, this,
            [this] { m_radio->communicationPortSetup(); });
    connect(m_commands["bite"], &QAction::triggered, this, [this] { m_radio->runBite(); });
    connect(m_commands["compareRadio"], &QAction::triggered, this,
            [this] { m_radio->compareWithRadio(); });
    connect(m_commands["restoreBackup"], &QAction::triggered, this,
            [this] { m_radio->restoreBackup(); });
    connect(m_commands["linkTrace"], &QAction::triggered, this, &MainWindow::showLinkTrace);
    connect(m_commands["help"], &QAction::triggered, this, &MainWindow::openHelp);
    // One command for the three documents: the file information of the panel shown.
    connect(m_commands["fileInfo"], &QAction::triggered, this, [this] {
        if (const auto document = m_documents.find(currentPanel()); document != m_documents.end())
            document->second->editFileInformation();
    });
    connect(m_commands["about"], &QAction::triggered, this, [this] {
        QMessageBox::about(
            this, tr("About"),
            tr("<b>%1</b><p>Version %2</p><p>Operates and programmes KORAL HF radios.</p>")
                .arg(qs(text::kApplicationName), QCoreApplication::applicationVersion()));
    });
}

void MainWindow::createComputerInterfacePanel()
{
    m_computerInterface = new ComputerInterfacePanel(m_pages);
    m_pages->addWidget(m_computerInterface);
    m_pagesByPanel[Panel::ComputerInterface] = m_computerInterface;
    QList<QAction*> panelButtons;
    for (const auto& [panel, action] : m_panelActions)
        panelButtons << action;
    const PanelChrome chrome = computerInterfaceMenus(
        this, [this](const char* name) { return m_commands.at(name); }, panelButtons,
        m_computerInterface->dspActions());
    m_menus[Panel::ComputerInterface] = chrome.menus;
    m_toolBars[Panel::ComputerInterface] = createToolBar(Panel::ComputerInterface, chrome.tools);
}

void MainWindow::createRssPanel()
{
    m_rss = new RssPanel(m_notifier, m_pages);
    registerDocumentPanel(Panel::Rss, m_rss);

    const auto bind = [this](const char* name, auto slot) {
        connect(m_commands[name], &QAction::triggered, m_rss, slot);
    };
    bind("openRss", [this] { m_rss->openFile(); });
    bind("saveRss", [this] { m_rss->saveFile(); });
    bind("saveRssAs", [this] { m_rss->saveFileAs(); });
    bind("printRss", [this] { m_rss->printFile(); });
    bind("exportPdf", [this] { m_rss->exportPdf(); });
    bind("printReport", [this] { m_rss->printReport(); });
    bind("exportReport", [this] { m_rss->exportReportPdf(); });
    bind("exportCsv", [this] { m_rss->exportChannelsCsv(); });
    bind("importCsv", [this] { m_rss->importChannelsCsv(); });
    bind("channelConfig", [this] { m_rss->editChannels(); });
    bind("groups", [this] { m_rss->editGroups(); });
    bind("radioOptions", [this] { m_rss->editRadioOptions(); });
    bind("wideInfo", [this] { m_rss->showWideInformation(); });
    bind("summary", [this] { m_rss->showSummary(); });
    bind("check", [this] { m_rss->showCheck(); });

    const auto c = [this](const char* name) { return m_commands[name]; };
    auto* file = new QMenu(tr("&File"), this);
    file->addAction(c("openRss"));
    file->addMenu(m_rss->createRecentFilesMenu(file));
    file->addActions({c("saveRss"), c("saveRssAs")});
    file->addSeparator();
    file->addActions({c("printRss"), c("exportPdf"), c("printReport"), c("exportReport")});
    file->addSeparator();
    file->addActions({c("exportCsv"), c("importCsv")});
    file->addSeparator();
    file->addAction(c("fileInfo"));
    file->addSeparator();
    file->addAction(c("exit"));

    auto* configuration = new QMenu(tr("&Configuration"), this);
    configuration->addActions({c("channelConfig"), c("groups"), c("radioOptions"), c("wideInfo")});

    m_menus[Panel::Rss] = {file, createRadioMenu(), configuration,
                           createViewMenu({c("summary"), c("check")}), createHelpMenu()};
    m_toolBars[Panel::Rss] = createToolBar(Panel::Rss, toolBarActions());
}

void MainWindow::registerDocumentPanel(Panel panel, DocumentPanel* page)
{
    m_pages->addWidget(page);
    m_pagesByPanel[panel] = page;
    m_documents[panel] = page;
    connect(page, &DocumentPanel::pathChanged, this,
            [this, panel](const QString& path) { setPanelPath(panel, path); });
    connect(page, &DocumentPanel::documentChanged, this, &MainWindow::updateTitle);
    connect(page, &DocumentPanel::statusMessage, this,
            [this](const QString& text) { statusBar()->showMessage(text, 4000); });
    connect(page, &DocumentPanel::helpRequested, this, &MainWindow::openHelp);
}

bool MainWindow::maybeSaveDocuments()
{
    return std::all_of(m_documents.begin(), m_documents.end(),
                       [](const auto& entry) { return entry.second->maybeSave(); });
}

QMenu* MainWindow::createRadioMenu()
{
    const auto c = [this](const char* name) { return m_commands[name]; };
    auto* radio = new QMenu(tr("&Radio"), this);
    radio->addActions({c("readDevice"), c("writeDevice"), c("compareRadio"), c("restoreBackup")});
    radio->addSeparator();
    radio->addActions(
        {c("squelch"), c("monitor"), c("noiseBlanker"), c("attenuator"), c("clipper")});
    radio->addSeparator();
    radio->addActions({c("remote"), c("reset"), c("bite")});
    radio->addSeparator();
    radio->addActions({c("commPort"), c("networkControl"), c("linkTrace")});
    return radio;
}

QMenu* MainWindow::createViewMenu(const QList<QAction*>& panelCommands)
{
    auto* view = new QMenu(tr("&View"), this);
    for (const auto& [panel, action] : m_panelActions)
        view->addAction(action);
    view->addSeparator();
    view->addActions(panelCommands);
    return view;
}

QMenu* MainWindow::createHelpMenu()
{
    auto* help = new QMenu(tr("&Help"), this);
    help->addActions({m_commands["help"], m_commands["about"]});
    return help;
}

QList<QAction*> MainWindow::toolBarActions()
{
    const auto c = [this](const char* name) { return m_commands[name]; };
    QList<QAction*> tools{c("readDevice"), c("writeDevice"),  nullptr,         c("squelch"),
                          c("monitor"),    c("noiseBlanker"), c("attenuator"), c("clipper"),
                          nullptr,         c("bite"),         nullptr};
    for (const auto& [panel, action] : m_panelActions)
        tools << action;
    tools << nullptr << c("help") << c("exit");
    return tools;
}

QToolBar* MainWindow::createToolBar(Panel panel, const QList<QAction*>& actions)
{
    auto* bar = new QToolBar(qs(PanelRules::info(panel).title), this);
    bar->setObjectName(QStringLiteral("toolBar%1").arg(int(panel)));
    bar->setIconSize(QSize(32, 32));
    bar->setMovable(false);
    for (QAction* action : actions) {
        if (action)
            bar->addAction(action);
        else
            bar->addSeparator();
    }
    addToolBar(Qt::TopToolBarArea, bar);
    return bar;
}

void MainWindow::showPanel(Panel panel)
{
    if (!m_rules.isOffered(panel))
        return;
    for (const auto& [p, bar] : m_toolBars)
        bar->setVisible(p == panel);
    // The menus are detached, not destroyed: each panel keeps its own.
    menuBar()->clear();
    for (QMenu* menu : m_menus[panel])
        menuBar()->addMenu(menu);
    m_current = panel;
    updatePanelButtons();
    m_pages->setCurrentWidget(m_pagesByPanel[panel]);
    for (const auto& [p, action] : m_panelActions)
        action->setChecked(p == panel);
    updateTitle();
}

void MainWindow::updatePanelButtons()
{
    const auto buttons = m_rules.panelButtons(m_radio && m_radio->ccirMode(),
                                              m_radio ? m_radio->softwareClass() : 0);
    for (const auto& [panel, action] : m_panelActions) {
        const bool shown = std::find(buttons.begin(), buttons.end(), panel) != buttons.end();
        action->setVisible(shown);
        action->setEnabled(shown);
    }
}

void MainWindow::setPanelPath(Panel panel, const QString& path)
{
    m_paths[panel] = path;
    updateTitle();
}

void MainWindow::updateTitle()
{
    // "[*]" is where the platform marks a window whose document has unsaved changes.
    setWindowTitle(
        QString::fromStdString(PanelRules::title(m_current, m_paths[m_current].toStdString())) +
        QStringLiteral("[*]"));
    const auto document = m_documents.find(m_current);
    setWindowModified(document != m_documents.end() && document->second->isModified());
}

void MainWindow::updateStatusPanes()
{
    if (!m_radio)
        return;
    m_panes[10]->setText(m_radio->serialPane());
    m_panes[11]->setText(m_radio->codePane());
    m_panes[12]->setText(m_radio->comPane());
}

void MainWindow::updateCommands()
{
    if (m_radio)
        m_radio->updateCommands();
}

QToolBar* MainWindow::panelToolBar(Panel panel) const
{
    const auto it = m_toolBars.find(panel);
    return it == m_toolBars.end() ? nullptr : it->second;
}

QList<QMenu*> MainWindow::panelMenus(Panel panel) const
{
    const auto it = m_menus.find(panel);
    return it == m_menus.end() ? QList<QMenu*>{} : it->second;
}

QAction* MainWindow::command(const QString& name) const
{
    const auto it = m_commands.find(name);
    return it == m_commands.end() ? nullptr : it->second;
}

QLabel* MainWindow::statusPane(int id) const
{
    const auto it = m_panes.find(id);
    return it == m_panes.end() ? nullptr : it->second;
}

QString MainWindow::helpFile()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("ZovHelp.pdf"));
}

void MainWindow::openHelp()
{
    const QString file = QDir::toNativeSeparators(helpFile());
    const std::string name = file.toStdString();
    if (!QFileInfo(helpFile()).dir().exists()) {
        m_notifier.show(text::format(text::kHelpPathNotFound.data(), name.c_str()), Icon::Warning);
        return;
    }
    if (!QFileInfo::exists(helpFile())) {
        m_notifier.show(text::format(text::kHelpFileNotFound.data(), name.c_str()), Icon::Warning);
        return;
    }
    // The manual is there: what is missing is a program that shows PDF files.
    if (!HelpViewer::open(QUrl::fromLocalFile(helpFile())))
        m_notifier.show(text::format(text::kNoPdfViewer.data(), name.c_str()), Icon::Information);
}

void MainWindow::showLinkTrace()
{
    if (!m_linkTrace)
        m_linkTrace = new LinkTraceWindow(m_radio->session().link().linkTrace(), m_notifier, this);
    m_linkTrace->show();
    m_linkTrace->raise();
    m_linkTrace->activateWindow();
}

LinkTraceWindow* MainWindow::linkTraceWindow() const
{
    return m_linkTrace;
}

void MainWindow::showNotice(const QString& text, int milliseconds, bool withPicture)
{
    if (m_notice)
        m_notice->close();
    m_notice = new Notice(this, text, milliseconds, withPicture);
    m_notice->show();
    m_notice->move(geometry().center() - m_notice->rect().center());
}

void MainWindow::closeNotice()
{
    if (m_notice)
        m_notice->close();
}

QString MainWindow::noticeText() const
{
    return m_notice ? m_notice->text() : QString();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if ((m_radio && m_radio->isBusy()) || !maybeSaveDocuments()) {
        event->ignore();
        return;
    }
    event->accept();
}

namespace HelpViewer {

namespace {
std::function<bool(const QUrl&)>& opener()
{
    static std::function<bool(const QUrl&)> function;
    return function;
}
} // namespace

bool open(const QUrl& url)
{
    if (opener())
        return opener()(url);
    return QDesktopServices::openUrl(url);
}

void setOpener(std::function<bool(const QUrl&)> function)
{
    opener() = std::move(function);
}

} // namespace HelpViewer

} // namespace koral
