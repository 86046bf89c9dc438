#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>

namespace koral {

// What the radio told us about itself. The incoming worker writes these while the UI thread
// reads them, with no lock around them: each flag is one value and the last writer wins.
struct CapabilityFlags
{
    std::atomic<bool> ccirMode{false};
    std::atomic<bool> ccirFileLoaded{false};
    std::atomic<std::uint8_t> aleState{0};
    std::atomic<bool> aleOff{false};
    std::atomic<bool> supportModeAnswered{false};
    std::atomic<bool> aleGlobalSupported{false};
    std::atomic<bool> extraOptionsSupported{false};
    // Counts of the CCIR-mode (96) and support-mode (98) answers the worker has settled, so
    // that a query can wait for its answer to arrive.
    std::atomic<int> ccirAnswers{0};
    std::atomic<int> supportAnswers{0};
    // 1 or 2 from the software-version gate, 0 while unknown.
    std::atomic<std::uint8_t> softwareClass{0};
};

// The link settings kept between runs, and the directory they are kept in.
struct LinkSettings
{
    std::int32_t commPort = 1;
    std::int32_t baudRate = 9600;
    std::filesystem::path workDirectory;
};

// The main view's own state that the commands, the dispatch and the transfers share. It
// lives on the user-interface thread.
struct ViewState
{
    bool radioReady = false;   // the radio answered and its databases were read
    bool busy = false;         // a long command runs
    bool databaseRead = false; // the databases were read from the radio at least once
    bool quiet = false;        // a failed read reports nothing
    bool remoteRequested = false;
    int remoteMode = 2; // the value sent with the next remote-mode exchange: 0 or 2
    int operationMode = 0;
    bool specialModeSeen = false;
    bool noiseBlankerOption = false;
    bool squelch = false;
    bool monitor = false;
    bool noiseBlanker = false;
    bool attenuator = false;
    bool clipper = false;
    bool linkRequired = false;
    bool linked = false;
    int callState = 1; // 1 = idle
    int lastOpcode = 0;
    int radioBaudIndex = 3;
    std::string serialNumber;
    std::string radioCode;
};

} // namespace koral
