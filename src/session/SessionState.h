#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>

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

} // namespace koral
