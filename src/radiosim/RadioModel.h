#pragma once

#include <cstdint>
#include <string>

namespace koral::radiosim {

// What kind of radio this is: fixed for a power cycle, changed only from the console.
struct RadioModel
{
    bool ccirMode = false; // selective calling instead of ALE
    // Whether the radio keeps the ALE global-members and extra-options databases.
    bool extendedDatabases = true;
    std::string softwareVersion = "03.100";
    std::string radioSoftwareVersion = "03.8200";
    std::uint8_t programWord = 0x5A;
    unsigned channelCount = 200;

    // The class the control program derives from the version: "01.000".."03.000" are 1.
    int softwareClass() const;
};

} // namespace koral::radiosim
