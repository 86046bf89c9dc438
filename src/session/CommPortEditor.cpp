#include "session/CommPortEditor.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "session/BaudRate.h"
#include "session/RadioLink.h"

namespace koral {

CommPortEditor::CommPortEditor(RadioLink& link, Notifier& notifier)
    : m_link(link), m_notifier(notifier)
{
    m_portIndex = link.settings().commPort - 1;
    const int index = findBaudRateIndex(link.settings().baudRate);
    if (index >= 0)
        m_baudIndex = index;
}

std::int32_t CommPortEditor::selectedBaudRate() const
{
    const std::int32_t baud = baudRateOfIndex(m_baudIndex);
    if (baud == 0)
        m_notifier.show(text::kBaudRateIndexIncorrect);
    return baud;
}

bool CommPortEditor::setBaudRate(std::int32_t baudRate)
{
    const int index = findBaudRateIndex(baudRate);
    if (index < 0) {
        m_notifier.show(text::kBaudRateIncorrect);
        return false;
    }
    m_baudIndex = index;
    return true;
}

void CommPortEditor::setNoticeVisible(bool visible)
{
    m_noticeVisible = visible;
    if (m_onNoticeChanged)
        m_onNoticeChanged(visible);
}

int CommPortEditor::check()
{
    setNoticeVisible(true);
    m_link.changeRadioLink(selectedPort(), selectedBaudRate());
    m_link.setReportNoResponse(false);
    const int passed = m_link.testCommunication();
    setNoticeVisible(false);
    if (passed != 1)
        m_notifier.show(text::byId(text::id::CommunicationTestFailed), Icon::Critical);
    else
        m_notifier.show(text::byId(text::id::CommunicationTestPassed), Icon::Information);
    m_link.setReportNoResponse(true);
    return passed;
}

void CommPortEditor::accept()
{
    setNoticeVisible(true);
    m_link.changeRadioLink(selectedPort(), selectedBaudRate());
    setNoticeVisible(false);
}

} // namespace koral
