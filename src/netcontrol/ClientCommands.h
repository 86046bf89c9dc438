#pragma once

#include "session/ViewCommands.h"

#include <cstdint>
#include <string>

namespace koral {

class ControlCenterSession;

// The result codes of the rig-control protocol (the value after "RPRT"), as this server uses
// them.
namespace rigctl {
inline constexpr int kOk = 0;
inline constexpr int kInvalidArgument = -1;
inline constexpr int kNotImplemented = -4;
inline constexpr int kTimeout = -5;
inline constexpr int kIoError = -6;
inline constexpr int kProtocolError = -8;
inline constexpr int kRejected = -9;
} // namespace rigctl

// What a network client may ask of the radio, on top of the session's own operations, each
// answered with a protocol result code. Everything runs on the session's thread through the
// one radio link; a request that fails says so in its code and never shows a message box to
// the operator. Settings a client changes go through the session, so the panels follow them.
class ClientCommands
{
public:
    explicit ClientCommands(ControlCenterSession& session);

    // The channel that `setFrequency` may reprogram when no channel receives on the asked
    // frequency; 0 (the default) never reprograms anything.
    void setScratchChannel(int number) { m_scratchChannel = number; }
    int scratchChannel() const { return m_scratchChannel; }

    // A long command of the operator (a database transfer, a reset, port setup) holds the
    // radio: clients wait for it to end.
    bool radioBusy() const;

    int frequency(std::uint32_t& hertz);
    // Selects the programmed channel that receives on `hertz` (the active one when it does),
    // else programs the scratch channel, else kRejected.
    int setFrequency(double hertz);
    int mode(std::string& mode, int& passband);
    // Only the mode the active channel already has is accepted: a mode belongs to a channel's
    // programming.
    int setMode(const std::string& mode, int passband);
    int memory(int& number);
    int setMemory(int number);
    int setting(ViewCommands::Toggle which, bool& on);
    int setSetting(ViewCommands::Toggle which, bool on);

private:
    int unavailable() const;

    ControlCenterSession& m_session;
    int m_scratchChannel = 0;
};

} // namespace koral
