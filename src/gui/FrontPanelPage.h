#pragma once

#include "gui/FrontPanelCompanionPage.h"
#include "session/FrontPanelKeypad.h"

#include <QWidget>

#include <map>

class QPushButton;

namespace koral {

class FrontPanelDisplay;
class FrontPanelScreen;

// One front-panel page: the radio's display above the keypad of one layout, with the keypad's
// companion page (its switch keys) beside it. A key of the keypad pressed with the mouse
// or the computer's keyboard goes to the radio as the head's key and its release; nothing
// happens locally, the display follows what the radio reports.
class FrontPanelPage : public QWidget
{
    Q_OBJECT
public:
    FrontPanelPage(FrontPanelKeypad::Layout layout, const FrontPanelDisplay& display,
                   const FrontPanelKeypad& keypad, FrontPanelCompanionPage::CommandLookup commands,
                   QWidget* parent = nullptr);

    FrontPanelKeypad::Layout layout() const { return m_layout; }
    FrontPanelScreen* screen() const { return m_screen; }
    FrontPanelCompanionPage* companion() const { return m_companion; }
    // The button of the key labelled `label`, or nullptr when the layout has none.
    QPushButton* button(const QString& label) const;
    // The head's key a key of the computer's keyboard stands for (0: none).
    static int keyCode(FrontPanelKeypad::Layout layout, int qtKey);

signals:
    // The page was shown or hidden: the display takes the radio's lines only while it shows.
    void shownChanged(bool shown);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void press(int code);

    FrontPanelKeypad::Layout m_layout;
    const FrontPanelKeypad& m_keypad;
    FrontPanelScreen* m_screen;
    FrontPanelCompanionPage* m_companion;
    std::map<int, QPushButton*> m_buttons; // by key code
};

} // namespace koral
