#pragma once

#include "koralapi/CRadioMessage.h"
#include "session/SessionState.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <string>

namespace koral {

class Notifier;
class RadioLink;
class TraceWriter;

// The main view's quick controls and status without a window: the five on/off settings, the
// remote-control switch, the reset, the state queries after a database read, the busy
// bracket, the status texts and the two short-lived notices. A window reads the state and
// the enable and checked rules, and follows the signals.
class ViewCommands : public QObject
{
    Q_OBJECT
public:
    enum class Toggle
    {
        Squelch,
        Monitor,
        NoiseBlanker,
        Attenuator,
        Clipper,
    };
    enum class Command
    {
        Squelch,
        Monitor,
        NoiseBlanker,
        Attenuator,
        Clipper,
        Reset,
        ReadDevice,
        CommPortSetup,
        RemoteControl,
    };
    enum class Notice
    {
        Startup,    // the program's start-up notice
        PleaseWait, // "Please wait !  "
        Completed,  // "The Operation Completed Successful"
    };
    static constexpr int kNoticeMilliseconds = 4000;

    ViewCommands(RadioLink& link, ViewState& view, CapabilityFlags& flags, Notifier& notifier,
                 TraceWriter& trace, QObject* parent = nullptr);

    // Flips the setting and sends it; on failure the setting flips back (the no-response
    // message has been shown). 1 when the radio took it.
    int toggle(Toggle which);
    // Sends the setting as `on` whatever it was; on success the flag and its image follow, on
    // failure nothing changes (the no-response message has been shown). 1 when taken.
    int setState(Toggle which, bool on);
    bool state(Toggle which) const;
    // Shows a state the radio reported (the flag and its toolbar image follow it).
    void showToggleState(Toggle which, bool on) { setToggle(which, on); }
    // The toolbar image shown for the setting (pairs 12 apart, "on" first).
    int imageIndex(Toggle which) const { return m_images[index(which)]; }
    void setImageIndex(Toggle which, int image) { m_images[index(which)] = image; }

    bool isEnabled(Command command) const;
    bool isChecked(Command command) const;
    // Port open, radio ready and databases read.
    bool isReady() const;

    // The state queries after a database read; 1 when all answered.
    int updateToolBarAndSliders();
    // EnterRemoteMode with the held value, then the special-report setting; 1 when both
    // were taken.
    int remoteModeExchange();
    // The special-report setting alone (also run by the database read).
    int enableSpecialReport();
    // "Remote Control On/Off": alternates the value sent between 2 and 0.
    int toggleRemoteMode();
    // "Perform Reset".
    void performReset();

    void beginBusy();
    void endBusy();

    // Radio commands of the panels (and of the ALE controls, which stay off in CCIR mode
    // while the radio's ALE is off).
    void setRadioCommandsEnabled(bool enabled);
    bool radioCommandsEnabled() const { return m_radioCommandsEnabled; }
    bool aleCommandsEnabled() const;
    // The window's Close item, off while busy. (The toolbar's buttons follow isEnabled().)
    bool closeEnabled() const { return m_closeEnabled; }

    // The Computer Interface panel's status line for a call status code.
    void showCallStatus(int code);
    const std::string& callStatus() const { return m_callStatus; }
    // The status bar's message text (string 1 while busy).
    const std::string& statusText() const { return m_statusText; }
    void setStatusText(std::string text);

    std::string comPane() const;
    std::string serialPane() const;
    std::string codePane() const;

    // Sliders as the last queries left them.
    void setDspLineSize(int lineSize) { m_dspLineSize = lineSize; }
    int dspSliderPosition() const { return m_dspSliderPosition; }
    int clarifierPosition() const { return m_clarifierPosition; }
    bool clarifierOn() const { return m_clarifierOn; }

    // The notices: the start-up and completion notices close themselves after 4 s.
    void showNotice(Notice notice);
    void closeNotice(Notice notice);
    bool isNoticeShown(Notice notice) const { return m_notices[std::size_t(notice)]; }
    // Shortens the notice time (tests).
    void setNoticeMilliseconds(int ms);

signals:
    void toggleChanged(koral::ViewCommands::Toggle which, bool on);
    void busyChanged(bool busy);
    void radioCommandsEnabledChanged(bool enabled);
    void statusTextChanged(const std::string& text);
    void callStatusChanged(const std::string& text);
    void noticeChanged(koral::ViewCommands::Notice notice, bool shown);
    void slidersChanged();
    // The remaining panel controls should follow the radio's state.
    void panelsRefreshRequested();

private:
    static std::size_t index(Toggle which) { return static_cast<std::size_t>(which); }
    bool& flag(Toggle which);
    void setToggle(Toggle which, bool on);
    bool linkBlocksDsp() const;

    RadioLink& m_link;
    ViewState& m_view;
    CapabilityFlags& m_flags;
    Notifier& m_notifier;
    TraceWriter& m_trace;
    std::array<int, 5> m_images{15, 16, 17, 18, 19};
    bool m_radioCommandsEnabled = false;
    bool m_closeEnabled = true;
    std::string m_callStatus;
    std::string m_statusText;
    int m_dspLineSize = 1;
    int m_dspSliderPosition = 0;
    int m_clarifierPosition = 0;
    bool m_clarifierOn = false;
    std::array<bool, 3> m_notices{};
    QTimer m_startupTimer;
    QTimer m_completionTimer;
};

} // namespace koral
