#include "gui/ComputerInterfaceMenus.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

namespace koral {

PanelChrome computerInterfaceMenus(QWidget* owner,
                                   const std::function<QAction*(const char*)>& command,
                                   const QList<QAction*>& panelActions,
                                   const QList<QAction*>& dspActions)
{
    const auto c = command;
    auto* file = new QMenu(QObject::tr("&File"), owner);
    file->addAction(c("exit"));

    auto* radio = new QMenu(QObject::tr("&Radio"), owner);
    radio->addAction(c("readDevice"));
    radio->addSeparator();
    radio->addActions(
        {c("squelch"), c("monitor"), c("noiseBlanker"), c("attenuator"), c("clipper")});
    radio->addSeparator();
    radio->addActions({c("remote"), c("reset"), c("bite")});
    radio->addSeparator();
    radio->addActions({c("commPort"), c("linkTrace")});

    auto* view = new QMenu(QObject::tr("&View"), owner);
    view->addActions(panelActions);
    view->addSeparator();
    view->addActions(dspActions);

    auto* help = new QMenu(QObject::tr("&Help"), owner);
    help->addActions({c("help"), c("about")});

    QList<QAction*> tools{c("readDevice"),   nullptr,         c("squelch"), c("monitor"),
                          c("noiseBlanker"), c("attenuator"), c("clipper"), nullptr,
                          c("bite"),         nullptr};
    tools << panelActions << nullptr << c("help") << c("exit");
    return {{file, radio, view, help}, tools};
}

} // namespace koral
