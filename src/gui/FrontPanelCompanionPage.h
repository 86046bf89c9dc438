#pragma once

#include "session/FrontPanelCompanion.h"

#include <QFrame>

#include <functional>
#include <vector>

class QAction;
class QPushButton;

namespace koral {

// The smaller page beside a keypad: the head's switch keys, which run the program's quick
// controls and light while their control is on. The short head's page adds MORE, which puts
// the next switches on its keys.
class FrontPanelCompanionPage : public QFrame
{
    Q_OBJECT
public:
    using CommandLookup = std::function<QAction*(std::string_view)>;

    FrontPanelCompanionPage(FrontPanelKeypad::Layout layout, CommandLookup commands,
                            QWidget* parent = nullptr);

    // The switch keys' labels as shown now (empty keys left out).
    QStringList shownSwitches() const;
    QPushButton* switchKey(const QString& label) const;
    QPushButton* moreKey() const { return m_more; }

private:
    void bindKeys();
    void syncKey(QPushButton* key);

    FrontPanelCompanion m_companion;
    CommandLookup m_commands;
    std::vector<QPushButton*> m_keys;
    QPushButton* m_more = nullptr;
};

} // namespace koral
