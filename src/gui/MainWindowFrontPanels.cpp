// The main window's front-panel pages: registered as panels with their menus and toolbars.
// Kept apart from MainWindow.cpp so that each panel's frame wiring sits in its own file.

#include "gui/FrontPanelPage.h"
#include "gui/FrontPanels.h"
#include "gui/MainWindow.h"
#include "gui/RadioController.h"

#include <QMenu>
#include <QStackedWidget>
#include <QToolBar>

namespace koral {

void MainWindow::createFrontPanels()
{
    m_frontPanels = new FrontPanels(
        m_radio->session(),
        [this](std::string_view name) {
            const auto it = m_commands.find(QString::fromUtf8(name.data(), qsizetype(name.size())));
            return it == m_commands.end() ? nullptr : it->second;
        },
        m_pages, this);
    const auto c = [this](const char* name) { return m_commands[name]; };
    const std::pair<Panel, FrontPanelPage*> pages[] = {
        {Panel::Koral, m_frontPanels->koralPage()},
        {Panel::Koral2E, m_frontPanels->koral2EPage()},
    };
    for (const auto& [panel, page] : pages) {
        m_pages->addWidget(page);
        m_pagesByPanel[panel] = page;

        // The head needs the link and the radio's quick controls, not the files of the
        // database panels.
        auto* file = new QMenu(tr("&File"), this);
        file->addAction(c("exit"));
        auto* radio = new QMenu(tr("&Radio"), this);
        radio->addActions(
            {c("squelch"), c("monitor"), c("noiseBlanker"), c("attenuator"), c("clipper")});
        radio->addSeparator();
        radio->addActions({c("remote"), c("reset")});
        radio->addSeparator();
        radio->addActions({c("commPort"), c("linkTrace")});
        auto* view = new QMenu(tr("&View"), this);
        for (const auto& [p, action] : m_panelActions)
            view->addAction(action);
        auto* help = new QMenu(tr("&Help"), this);
        help->addActions({c("help"), c("about")});
        m_menus[panel] = {file, radio, view, help};

        QList<QAction*> tools{c("squelch"),    c("monitor"), c("noiseBlanker"),
                              c("attenuator"), c("clipper"), nullptr};
        for (const auto& [p, action] : m_panelActions)
            tools << action;
        tools << nullptr << c("help") << c("exit");
        m_toolBars[panel] = createToolBar(panel, tools);
    }
}

} // namespace koral
