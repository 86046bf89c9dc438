#include "netcontrol/ClientCommands.h"

#include "koralapi/Builders.h"
#include "koralapi/Opcodes.h"
#include "radiodb/ChannelNumbers.h"
#include "session/ControlCenterSession.h"

#include <algorithm>
#include <cmath>

namespace koral {

namespace {

using Toggle = ViewCommands::Toggle;

// A client's failed request must not put a message box in front of the operator.
class Silence
{
public:
    explicit Silence(RadioLink& link) : m_link(link), m_was(link.reportNoResponse())
    {
        m_link.setReportNoResponse(false);
    }
    ~Silence() { m_link.setReportNoResponse(m_was); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    RadioLink& m_link;
    bool m_was;
};

// The radio's channel settings in the protocol's words: the mode and the passband in hertz
// (0 where the radio's filter has no width in hertz).
struct ModeName
{
    std::string mode;
    int passband;
};

ModeName modeOf(const channel& record)
{
    constexpr int kPassbands[] = {2700, 3300, 0, 0, 3000, 2100};
    constexpr std::uint8_t kCwFilter = 3;
    constexpr std::uint8_t kAmplitude = 2;
    const int passband =
        record.bandwidth < std::size(kPassbands) ? kPassbands[record.bandwidth] : 0;
    if (record.modulation == kAmplitude)
        return {"AM", passband};
    if (record.bandwidth == kCwFilter)
        return {"CW", passband};
    return {record.sideband == 0 ? "LSB" : "USB", passband};
}

} // namespace

ClientCommands::ClientCommands(ControlCenterSession& session) : m_session(session) {}

bool ClientCommands::radioBusy() const
{
    return m_session.view().busy || m_session.transfer().isRunning();
}

int ClientCommands::unavailable() const
{
    return m_session.link().isPortOpen() ? rigctl::kOk : rigctl::kIoError;
}

int ClientCommands::frequency(std::uint32_t& hertz)
{
    if (const int code = unavailable())
        return code;
    Silence silence(m_session.link());
    channel record{};
    if (!m_session.activeChannel().readCurrent(record))
        return rigctl::kTimeout;
    hertz = record.rxFrequency.get();
    return rigctl::kOk;
}

int ClientCommands::setFrequency(double requested)
{
    if (!std::isfinite(requested) || requested < kMinRxHz || requested > kMaxHz)
        return rigctl::kInvalidArgument;
    if (const int code = unavailable())
        return code;
    Silence silence(m_session.link());
    ActiveChannel& active = m_session.activeChannel();
    const auto hertz = static_cast<std::uint32_t>(std::lround(requested));
    const std::vector<int> candidates = active.receiving(hertz);
    if (!candidates.empty()) {
        int current = 0;
        bool scanning = false;
        if (candidates.size() > 1 && !active.query(current, scanning))
            return rigctl::kTimeout;
        if (std::find(candidates.begin(), candidates.end(), current) != candidates.end())
            return rigctl::kOk;
        return active.select(candidates.front()) ? rigctl::kOk : rigctl::kTimeout;
    }
    if (!isChannelNumber(m_scratchChannel))
        return rigctl::kRejected;
    // The scratch channel keeps the active channel's settings with the new frequency; it
    // transmits there too where a transmitter may.
    channel record{};
    if (!active.readCurrent(record))
        return rigctl::kTimeout;
    record.rxFrequency.set(hertz);
    record.txFrequency.set(hertz >= kMinTxHz ? hertz : 0);
    if (!active.program(m_scratchChannel, record) || !active.select(m_scratchChannel))
        return rigctl::kTimeout;
    return rigctl::kOk;
}

int ClientCommands::mode(std::string& mode, int& passband)
{
    if (const int code = unavailable())
        return code;
    Silence silence(m_session.link());
    channel record{};
    if (!m_session.activeChannel().readCurrent(record))
        return rigctl::kTimeout;
    const ModeName name = modeOf(record);
    mode = name.mode;
    passband = name.passband;
    return rigctl::kOk;
}

int ClientCommands::setMode(const std::string& wanted, int passband)
{
    std::string current;
    int currentPassband = 0;
    if (const int code = mode(current, currentPassband))
        return code;
    const bool samePassband = passband <= 0 || passband == currentPassband;
    return wanted == current && samePassband ? rigctl::kOk : rigctl::kNotImplemented;
}

int ClientCommands::memory(int& number)
{
    if (const int code = unavailable())
        return code;
    Silence silence(m_session.link());
    bool scanning = false;
    return m_session.activeChannel().query(number, scanning) ? rigctl::kOk : rigctl::kTimeout;
}

int ClientCommands::setMemory(int number)
{
    ActiveChannel& active = m_session.activeChannel();
    if (!isChannelNumber(number))
        return rigctl::kInvalidArgument;
    if (active.tableKnown() && !active.isProgrammed(number))
        return rigctl::kRejected;
    if (const int code = unavailable())
        return code;
    Silence silence(m_session.link());
    return active.select(number) ? rigctl::kOk : rigctl::kTimeout;
}

int ClientCommands::setting(Toggle which, bool& on)
{
    if (const int code = unavailable())
        return code;
    Silence silence(m_session.link());
    RadioLink& link = m_session.link();
    CRadioMessage reply;
    if (which == Toggle::Squelch) {
        if (!link.query(&ReportSquelchState, op::SquelchState, reply))
            return rigctl::kTimeout;
        on = (reply[6] & 0x02) != 0;
    } else {
        if (!link.query(&ReportDspMenuParameters, op::DspParameters, reply))
            return rigctl::kTimeout;
        on = reply[which == Toggle::NoiseBlanker ? 8 : 9] != 0;
    }
    // What the radio says is what the toolbar shows from now on.
    m_session.commands().showToggleState(which, on);
    return rigctl::kOk;
}

int ClientCommands::setSetting(Toggle which, bool on)
{
    if (const int code = unavailable())
        return code;
    Silence silence(m_session.link());
    return m_session.commands().setState(which, on) ? rigctl::kOk : rigctl::kTimeout;
}

} // namespace koral
