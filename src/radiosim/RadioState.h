#pragma once

#include <cstdint>

namespace koral::radiosim {

// Operation modes the radio reports (opcode 22).
enum class OperationMode : std::uint8_t
{
    FixedChannel = 0,
    GroupScan = 1,
    Ale = 2,
    SelectiveCall = 3,
};

// How the radio's ALE exchange stands.
enum class CallPhase : std::uint8_t
{
    Idle,
    Calling, // an outgoing call is being placed
    Linked,
    Sounding,
    LinkQuality,
};

// Everything the radio changes while it runs. A reset brings it back to the power-on values,
// apart from what the databases configure.
struct RadioState
{
    unsigned activeChannel = 1;
    bool squelch = false;
    bool monitor = false;
    std::uint8_t dspLevel = 0; // also the notch step, 0..10
    bool clipper = false;
    bool noiseBlanker = true;
    bool attenuator = false;
    std::uint8_t clarifierDirection = 0; // 0 off, 1 plus, 2 minus
    std::uint8_t clarifierMagnitude = 0;
    bool groupScanning = false;
    std::uint8_t scanGroup = 0; // 0..4
    bool aleOn = true;
    bool aleScanning = false;
    std::uint8_t scanNet = 0;
    std::uint8_t remoteMode = 0;
    bool specialReports = false; // unsolicited channel reports wanted
    bool displayReports = false; // the display's lines wanted whenever they change
    bool programming = false;
    bool isbMode = false;
    bool sounding = false;
    CallPhase call = CallPhase::Idle;
    std::uint8_t linkChannel = 0;
    bool selfTestRunning = false;

    OperationMode operationMode(bool ccirMode) const;
};

} // namespace koral::radiosim
