#pragma once

// The rules of the net configuration dialog: one net at a time (chosen with a spin), its
// name, self address and link options, and the ALE options that apply to all nets. The
// controls show the stored values through list positions; a value that has no position is
// reported and leaves its control as it was. Every change of a name or an address re-runs
// the configuration check.

#include "aledb/AleCheck.h"
#include "aledb/ale_dbase.h"

#include <functional>
#include <string>
#include <string_view>

namespace koral {

class Notifier;

class NetConfigEditor
{
public:
    // Runs the panel's configuration check over the edited programme; by default only the ALE
    // check runs (see check()).
    using CheckRunner = std::function<void(const AleProgramme&)>;

    NetConfigEditor(const AleProgramme& programme, const AleSettings& settings, Notifier& notifier,
                    CheckRunner runner = {});

    // The current net, 0..19 (shown as 1..20).
    int currentNet() const { return m_net; }
    // The spin's value (a net index), clamped to 0..19; the controls are filled from that net.
    void selectNet(int index);

    // --- the current net's controls ---
    const std::string& nameText() const { return m_name; }
    const std::string& selfAddressText() const { return m_selfAddress; }
    // A change of the name edit. A name that is some net's self address is refused with a
    // message and the stored name comes back into the edit (false: the edit should show
    // nameText() with the whole text selected).
    bool setNameText(std::string_view text);
    // The same for the self address, against the nets' names.
    bool setSelfAddressText(std::string_view text);

    // List positions (-1 while nothing is selected).
    int scanRatePosition() const { return m_scanRate; }   // 0 = 2 ch/s, 1 = 5 ch/s
    int soundingPosition() const { return m_sounding; }   // 0 manual, 1..4 = 30..120 min
    int occupancyPosition() const { return m_occupancy; } // 0 off, p = (p + 2) x 100 ms
    int tuneTimePosition() const { return m_tuneTime; }   // seconds
    void chooseScanRate(int position);
    void chooseSounding(int position);
    void chooseOccupancy(int position);
    void chooseTuneTime(int position);

    bool sendAllCall() const { return m_sendAllCall; }
    bool receiveAllCall() const { return m_receiveAllCall; }
    void setSendAllCall(bool on);
    void setReceiveAllCall(bool on);

    bool silent() const { return currentRecord().silent == 0; }
    void setSilent(bool on) { current().silent = on ? 0 : 1; }
    bool homeAck() const { return currentRecord().homeAck == 1; }
    void setHomeAck(bool on) { current().homeAck = on; }
    bool monitorAck() const { return currentRecord().monitorAck == 1; }
    void setMonitorAck(bool on) { current().monitorAck = on; }
    bool lqaRequest() const { return currentRecord().lqaRequest == 1; }
    void setLqaRequest(bool on) { current().lqaRequest = on; }
    bool slave() const { return currentRecord().masterSlave == 1; }
    void setSlave(bool on) { current().masterSlave = on; }

    // --- options for all nets ---
    enum class Option
    {
        Alert,
        ExternalAlarm,
        QuickPttCall,
        AutoAddress,
        Multinet,
        Anycall,
        Vcds,
        Wildcard,
        LinkAfterBidirectional,
        InLink,
        Amd,
    };
    bool option(Option which) const;
    void setOption(Option which, bool on);
    int acceptLinkTimeout() const { return m_programme.database.options.acceptLinkTimeout; }
    void setAcceptLinkTimeout(int value); // 0..2
    int pttTimeout() const { return m_programme.database.options.pttTimeout; }
    void setPttTimeout(int minutes); // 0..10, 0 = no timeout
    int minLqaScore() const { return m_programme.database.options.minLqaScore; }
    void setMinLqaScore(int score); // 0..100

    // The outcome of the last configuration check run by this editor.
    const AleCheckResult& check() const { return m_check; }

    // The edited programme; the caller stores it on OK.
    const AleProgramme& programme() const { return m_programme; }

private:
    ale_net& current() { return m_programme.database.nets[m_net]; }
    const ale_net& currentRecord() const { return m_programme.database.nets[m_net]; }
    static std::uint8_t& optionByte(AleProgramme& programme, Option which);
    void fillControls();
    void storeAllCall();
    void runCheck();

    AleProgramme m_programme;
    AleSettings m_settings;
    Notifier& m_notifier;
    CheckRunner m_runner;
    AleCheckResult m_check;
    int m_net = 0;
    std::string m_name;
    std::string m_selfAddress;
    int m_scanRate = -1;
    int m_sounding = -1;
    int m_occupancy = -1;
    int m_tuneTime = -1;
    bool m_sendAllCall = false;
    bool m_receiveAllCall = false;
};

} // namespace koral
