#pragma once

#include <QList>

#include <functional>

class QAction;
class QMenu;
class QWidget;

namespace koral {

// The menus and the toolbar actions a panel carries (nullptr in `tools` is a separator).
struct PanelChrome
{
    QList<QMenu*> menus;
    QList<QAction*> tools;
};

// The Computer Interface panel's menus and toolbar, made of the window's shared commands
// (looked up by name), its panel buttons and the clarifier and notch filter switches.
PanelChrome computerInterfaceMenus(QWidget* owner,
                                   const std::function<QAction*(const char*)>& command,
                                   const QList<QAction*>& panelActions,
                                   const QList<QAction*>& dspActions);

} // namespace koral
