#pragma once

#include "session/FrontPanelDisplay.h"
#include "session/FrontPanelKeypad.h"

#include <QObject>

namespace koral {

class ControlCenterSession;
class FrontPanelPage;

// The two front-panel pages and what they share: one display of the radio, fed by the
// dispatch while either page shows, and one keypad exchange on the session's link. The
// "KORAL Panel" carries the full head, the "KORAL-2E Panel" the short one.
class FrontPanels : public QObject
{
    Q_OBJECT
public:
    FrontPanels(ControlCenterSession& session, QWidget* pageParent, QObject* parent = nullptr);

    FrontPanelPage* koralPage() const { return m_koral; }
    FrontPanelPage* koral2EPage() const { return m_koral2E; }
    const FrontPanelDisplay& display() const { return m_display; }

private:
    void updateDisplayOpen();

    ControlCenterSession& m_session;
    FrontPanelDisplay m_display;
    FrontPanelKeypad m_keypad;
    FrontPanelPage* m_koral;
    FrontPanelPage* m_koral2E;
};

} // namespace koral
