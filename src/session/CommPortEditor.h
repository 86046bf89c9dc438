#pragma once

#include <functional>

#include <cstdint>

namespace koral {

class Notifier;
class RadioLink;

// The Communication Ports dialog's rules: the port list's selection and the four baud-rate
// buttons, "Check" (reconnect and test, silently) and "OK" (reconnect). Cancel is the
// session's: it restores the link the dialog started from.
class CommPortEditor
{
public:
    CommPortEditor(RadioLink& link, Notifier& notifier);

    // The port list's selection (port = index + 1) and the baud-rate buttons' index.
    int portIndex() const { return m_portIndex; }
    void setPortIndex(int index) { m_portIndex = index; }
    int baudIndex() const { return m_baudIndex; }
    void setBaudIndex(int index) { m_baudIndex = index; }

    int selectedPort() const { return m_portIndex + 1; }
    // The baud rate of the selected button; an index outside 0..3 is reported and gives 0.
    std::int32_t selectedBaudRate() const;
    // Selects the button of a baud rate; a rate the radio does not know is reported and
    // changes nothing.
    bool setBaudRate(std::int32_t baudRate);

    // The notice shown while a connection attempt runs.
    bool noticeVisible() const { return m_noticeVisible; }
    // Called whenever the "connecting" notice comes or goes, so a window can follow it (it is
    // gone before the test's result is shown).
    void setOnNoticeChanged(std::function<void(bool)> onChanged)
    {
        m_onNoticeChanged = std::move(onChanged);
    }

    // "Check": reconnects with the selection and tests the link; 1 when the radio answered.
    int check();
    // "OK": reconnects with the selection.
    void accept();

private:
    RadioLink& m_link;
    Notifier& m_notifier;
    int m_portIndex = 0;
    int m_baudIndex = 3;
    void setNoticeVisible(bool visible);

    bool m_noticeVisible = false;
    std::function<void(bool)> m_onNoticeChanged;
};

} // namespace koral
