#pragma once

#include "koralapi/CRadioMessage.h"

#include <functional>

namespace koral {

// Keeps the radio reporting its display on its own while a front-panel page shows, so that the
// page shows the radio's display as soon as it opens and follows every change the radio makes
// (a channel, a scan step, a call), not only the answers to its keys. The radio is asked with
// the special report of the display (opcode 27) when a page opens and whenever the link is
// ready again, and told to stop when no page shows.
class FrontPanelReports
{
public:
    // canSend tells whether a request may go now (link open, no long command running); send
    // sends one and returns 1 when the radio took it.
    FrontPanelReports(std::function<bool()> canSend, std::function<int(const CRadioMessage&)> send);

    // A front-panel page is shown (or none is any more).
    void setShown(bool shown);
    // The link opened, or a long command (a start-up, a reset, a write) ended: the radio may
    // have forgotten the request, and the display may have changed meanwhile.
    void linkReady();
    // The link closed: the radio reports nothing now.
    void linkClosed() { m_asked = false; }

    bool asked() const { return m_asked; }

private:
    void ask(bool on);

    std::function<bool()> m_canSend;
    std::function<int(const CRadioMessage&)> m_send;
    bool m_shown = false;
    bool m_asked = false; // the radio was asked to report and has not been told to stop
};

} // namespace koral
