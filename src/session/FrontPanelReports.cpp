#include "session/FrontPanelReports.h"

#include "koralapi/Builders.h"
#include "koralapi/Opcodes.h"

namespace koral {

FrontPanelReports::FrontPanelReports(std::function<bool()> canSend,
                                     std::function<int(const CRadioMessage&)> send)
    : m_canSend(std::move(canSend)), m_send(std::move(send))
{}

void FrontPanelReports::setShown(bool shown)
{
    m_shown = shown;
    // Every opening asks afresh, even when the radio was never told to stop (the link was busy
    // then): it then sends the whole display, not only what changes from now on.
    if (shown || m_asked)
        ask(shown);
}

void FrontPanelReports::linkReady()
{
    if (m_shown)
        ask(true);
}

void FrontPanelReports::ask(bool on)
{
    // Nothing goes out while a long command holds the link; linkReady asks again after it.
    if (!m_canSend())
        return;
    CRadioMessage message;
    message.prepareRequest();
    EnableDisableSpecialReport(&message, 0, on ? 1 : 0, op::DisplayReport);
    // A radio that did not take the stop is left to report: the display drops what it sends
    // while no page shows.
    if (m_send(message) || !on)
        m_asked = on;
}

} // namespace koral
