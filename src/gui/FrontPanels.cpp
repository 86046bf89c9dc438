#include "gui/FrontPanels.h"

#include "gui/FrontPanelPage.h"
#include "session/ControlCenterSession.h"

namespace koral {

FrontPanels::FrontPanels(ControlCenterSession& session, QWidget* pageParent, QObject* parent)
    : QObject(parent), m_session(session),
      m_keypad(
          session.notifier(), [&session] { return session.link().isPortOpen(); },
          [&session](const CRadioMessage& message) { return session.link().sendToRadio(message); }),
      m_koral(new FrontPanelPage(FrontPanelKeypad::Layout::Full, m_display, m_keypad, pageParent)),
      m_koral2E(
          new FrontPanelPage(FrontPanelKeypad::Layout::Short, m_display, m_keypad, pageParent))
{
    MessageDispatcher& dispatcher = session.dispatcher();
    connect(&dispatcher, &MessageDispatcher::displayReport, this,
            [this](const CRadioMessage& message) { m_display.take(message); });
    // A display without a radio shows nothing rather than what an earlier radio said.
    connect(&session.link(), &RadioLink::linkClosed, &m_display, &FrontPanelDisplay::clear);
    for (FrontPanelPage* page : {m_koral, m_koral2E})
        connect(page, &FrontPanelPage::shownChanged, this, &FrontPanels::updateDisplayOpen);
}

void FrontPanels::updateDisplayOpen()
{
    m_session.dispatcher().setDisplayOpen(m_koral->isVisible() || m_koral2E->isVisible());
}

} // namespace koral
