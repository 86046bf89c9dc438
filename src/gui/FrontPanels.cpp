#include "gui/FrontPanels.h"

#include "gui/FrontPanelPage.h"
#include "session/ControlCenterSession.h"

namespace koral {

FrontPanels::FrontPanels(ControlCenterSession& session,
                         FrontPanelCompanionPage::CommandLookup commands, QWidget* pageParent,
                         QObject* parent)
    : QObject(parent), m_session(session),
      m_keypad(
          session.notifier(), [&session] { return session.link().isPortOpen(); },
          [&session](const CRadioMessage& message) { return session.link().sendToRadio(message); }),
      m_reports([&session] { return session.link().isPortOpen() && !session.view().busy; },
                [&session](const CRadioMessage& message) {
                    // Opening a page is not a command: a radio that does not answer shows
                    // nothing here, its keys will say so.
                    RadioLink& link = session.link();
                    const bool report = link.reportNoResponse();
                    link.setReportNoResponse(false);
                    const int sent = link.sendToRadio(message);
                    link.setReportNoResponse(report);
                    return sent;
                }),
      m_koral(new FrontPanelPage(FrontPanelKeypad::Layout::Full, m_display, m_keypad, commands,
                                 pageParent)),
      m_koral2E(new FrontPanelPage(FrontPanelKeypad::Layout::Short, m_display, m_keypad, commands,
                                   pageParent))
{
    MessageDispatcher& dispatcher = session.dispatcher();
    connect(&dispatcher, &MessageDispatcher::displayReport, this,
            [this](const CRadioMessage& message) { m_display.take(message); });
    // A display without a radio shows nothing rather than what an earlier radio said.
    connect(&session.link(), &RadioLink::linkClosed, this, [this] {
        m_reports.linkClosed();
        m_display.clear();
    });
    // After a start-up, a reset, a port change or a write the radio is asked again.
    connect(&session.commands(), &ViewCommands::busyChanged, this, [this](bool busy) {
        if (!busy)
            m_reports.linkReady();
    });
    for (FrontPanelPage* page : {m_koral, m_koral2E})
        connect(page, &FrontPanelPage::shownChanged, this, &FrontPanels::updateDisplayOpen);
}

void FrontPanels::updateDisplayOpen(bool pageShown)
{
    const bool anyShown = m_koral->isVisible() || m_koral2E->isVisible();
    m_session.dispatcher().setDisplayOpen(anyShown);
    // A page that opens asks the radio for its display; the radio is told to stop only when
    // no page shows (switching from one page to the other hides one and shows the other).
    if (pageShown || !anyShown)
        m_reports.setShown(anyShown);
}

} // namespace koral
