// The RSS ALE panel's page, commands, menus and toolbar.

#include "aledb/ConfigurationCheck.h"
#include "gui/AlePanel.h"
#include "gui/MainWindow.h"
#include "gui/RadioController.h"
#include "gui/RssPanel.h"

#include <QAction>
#include <QMenu>
#include <QStackedWidget>
#include <QTableWidget>

#include <algorithm>

namespace koral {

void MainWindow::createAlePanel()
{
    const CommandSpec specs[] = {
        {"openAle", "&Open ALE File...", QKeySequence::Open},
        {"saveAle", "&Save ALE File", QKeySequence::Save},
        {"saveAleAs", "Save ALE File &As...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
        {"printAle", "&Print ALE File...", QKeySequence::Print},
        {"exportAlePdf", "E&xport to PDF...", QKeySequence(Qt::CTRL | Qt::Key_E)},
        {"printAleReport", "Print &Report...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)},
        {"exportAleReport", "Export R&eport to PDF...",
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E)},
        {"aleCheck", "&Configuration Check", QKeySequence(Qt::CTRL | Qt::Key_K)},
        {"netConfig", "&Net Configuration...", QKeySequence(Qt::CTRL | Qt::Key_N)},
        {"netMembers", "Net &Members...", QKeySequence()},
        {"netGlobalMembers", "Net &Global Members...", QKeySequence()},
        {"aleDirectory", "ALE &Directory Configuration...", QKeySequence(Qt::CTRL | Qt::Key_D)},
        {"aleMessages", "&Message Configuration...", QKeySequence()},
        {"autoDials", "&Automatic Dial Configuration...", QKeySequence()},
    };
    addCommands(specs);

    m_ale = new AlePanel(m_notifier, m_pages);
    registerDocumentPanel(Panel::RssAle, m_ale);
    const auto bind = [this](const char* name, auto slot) {
        connect(m_commands[name], &QAction::triggered, m_ale, slot);
    };
    bind("openAle", [this] { m_ale->openFile(); });
    bind("saveAle", [this] { m_ale->saveFile(); });
    bind("saveAleAs", [this] { m_ale->saveFileAs(); });
    bind("printAle", [this] { m_ale->printFile(); });
    bind("exportAlePdf", [this] { m_ale->exportPdf(); });
    bind("printAleReport", [this] { m_ale->printReport(); });
    bind("exportAleReport", [this] { m_ale->exportReportPdf(); });
    bind("aleCheck", [this] { m_ale->showCheck(m_rss->document().record); });
    bind("netConfig", [this] { m_ale->editNets(); });
    bind("netMembers",
         [this] { m_ale->editMembers(std::max(0, m_ale->netsGrid()->currentRow())); });
    bind("netGlobalMembers",
         [this] { m_ale->editGlobalMembers(std::max(0, m_ale->netsGrid()->currentRow())); });
    bind("aleDirectory", [this] { m_ale->editDirectory(); });
    bind("aleMessages", [this] { m_ale->editMessages(); });
    bind("autoDials", [this] { m_ale->editAutoDials(); });
    // The radio database's check covers the nets of the programme this panel shows, as the
    // operator has it open; a radio in CCIR mode runs no ALE programme.
    m_rss->setAleNetsSource([this] {
        std::vector<AleNetChannels> nets;
        if (m_ale->document().known.database && !(m_radio && m_radio->ccirMode())) {
            const auto all = aleNetChannels(m_ale->document().programme.database);
            nets.assign(all.begin(), all.end());
        }
        return nets;
    });

    const auto c = [this](const char* name) { return m_commands[name]; };
    auto* file = new QMenu(tr("&File"), this);
    file->addAction(c("openAle"));
    file->addMenu(m_ale->createRecentFilesMenu(file));
    file->addActions({c("saveAle"), c("saveAleAs")});
    file->addSeparator();
    file->addActions({c("printAle"), c("exportAlePdf"), c("printAleReport"), c("exportAleReport")});
    file->addSeparator();
    file->addAction(c("fileInfo"));
    file->addSeparator();
    file->addAction(c("exit"));

    auto* configuration = new QMenu(tr("&Configuration"), this);
    configuration->addActions({c("netConfig"), c("netMembers"), c("netGlobalMembers"),
                               c("aleDirectory"), c("aleMessages"), c("autoDials")});

    m_menus[Panel::RssAle] = {file, createRadioMenu(), configuration,
                              createViewMenu({c("aleCheck")}), createHelpMenu()};
    m_toolBars[Panel::RssAle] = createToolBar(Panel::RssAle, toolBarActions());
}

} // namespace koral
