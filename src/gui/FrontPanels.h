#pragma once

#include "gui/FrontPanelCompanionPage.h"
#include "session/FrontPanelDisplay.h"
#include "session/FrontPanelKeypad.h"
#include "session/FrontPanelReports.h"

#include <QObject>

namespace koral {

class ControlCenterSession;
class FrontPanelPage;

// The two front-panel pages and what they share: one display of the radio, fed by the
// dispatch while either page shows, one keypad exchange on the session's link, and the
// request that keeps the radio reporting its display meanwhile. The "KORAL Panel" carries the
// full head, the "KORAL-2E Panel" the short one; their companion pages run the program's
// commands that `commands` names.
class FrontPanels : public QObject
{
    Q_OBJECT
public:
    FrontPanels(ControlCenterSession& session, FrontPanelCompanionPage::CommandLookup commands,
                QWidget* pageParent, QObject* parent = nullptr);

    FrontPanelPage* koralPage() const { return m_koral; }
    FrontPanelPage* koral2EPage() const { return m_koral2E; }
    const FrontPanelDisplay& display() const { return m_display; }
    const FrontPanelReports& reports() const { return m_reports; }

private:
    void updateDisplayOpen(bool pageShown);

    ControlCenterSession& m_session;
    FrontPanelDisplay m_display;
    FrontPanelKeypad m_keypad;
    FrontPanelReports m_reports;
    FrontPanelPage* m_koral;
    FrontPanelPage* m_koral2E;
};

} // namespace koral
