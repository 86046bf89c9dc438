// The CCIR panel's page, commands, menus and toolbar.

#include "gui/CcirPanel.h"
#include "gui/MainWindow.h"
#include "gui/RssPanel.h"

#include <QAction>
#include <QMenu>
#include <QStackedWidget>

namespace koral {

void MainWindow::createCcirPanel()
{
    const CommandSpec specs[] = {
        {"openCcir", "&Open CCIR File...", QKeySequence::Open},
        {"saveCcir", "&Save CCIR File", QKeySequence::Save},
        {"saveCcirAs", "Save CCIR File &As...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
        {"printCcir", "&Print CCIR File...", QKeySequence::Print},
        {"exportCcirPdf", "E&xport to PDF...", QKeySequence(Qt::CTRL | Qt::Key_E)},
        {"printCcirReport", "Print &Report...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)},
        {"exportCcirReport", "Export R&eport to PDF...",
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E)},
        {"ccirDirectory", "CCIR &Directory Configuration...", QKeySequence(Qt::CTRL | Qt::Key_D)},
        {"ccirSelfAddress", "&Self Address Configuration...", QKeySequence()},
        {"ccirMessages", "CCIR &Messages and Settings...", QKeySequence()},
    };
    addCommands(specs);

    m_ccir = new CcirPanel(m_notifier, m_pages);
    registerDocumentPanel(Panel::Ccir, m_ccir);
    const auto bind = [this](const char* name, auto slot) {
        connect(m_commands[name], &QAction::triggered, m_ccir, slot);
    };
    bind("openCcir", [this] { m_ccir->openFile(); });
    bind("saveCcir", [this] { m_ccir->saveFile(); });
    bind("saveCcirAs", [this] { m_ccir->saveFileAs(); });
    bind("printCcir", [this] { m_ccir->printFile(); });
    bind("exportCcirPdf", [this] { m_ccir->exportPdf(); });
    bind("printCcirReport", [this] { m_ccir->printReport(); });
    bind("exportCcirReport", [this] { m_ccir->exportReportPdf(); });
    bind("ccirDirectory", [this] { m_ccir->editDirectory(); });
    bind("ccirSelfAddress", [this] { m_ccir->editSelfAddress(); });
    bind("ccirMessages", [this] { m_ccir->editMessages(); });
    // The channel numbers belong to the radio database: the panel shows the RSS panel's.
    const auto showNumbers = [this] { m_ccir->setChannelNumbers(m_rss->document().ccirNumbers); };
    connect(m_rss, &DocumentPanel::documentChanged, m_ccir, showNumbers);
    showNumbers();

    const auto c = [this](const char* name) { return m_commands[name]; };
    auto* file = new QMenu(tr("&File"), this);
    file->addAction(c("openCcir"));
    file->addMenu(m_ccir->createRecentFilesMenu(file));
    file->addActions({c("saveCcir"), c("saveCcirAs")});
    file->addSeparator();
    file->addActions(
        {c("printCcir"), c("exportCcirPdf"), c("printCcirReport"), c("exportCcirReport")});
    file->addSeparator();
    file->addAction(c("fileInfo"));
    file->addSeparator();
    file->addAction(c("exit"));

    auto* configuration = new QMenu(tr("&Configuration"), this);
    configuration->addActions({c("ccirSelfAddress"), c("ccirDirectory"), c("ccirMessages")});

    m_menus[Panel::Ccir] = {file, createRadioMenu(), configuration, createViewMenu({}),
                            createHelpMenu()};
    m_toolBars[Panel::Ccir] = createToolBar(Panel::Ccir, toolBarActions());
}

} // namespace koral
