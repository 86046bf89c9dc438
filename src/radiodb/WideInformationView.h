#pragma once

#include "radiodb/dbase.h"

#include <array>
#include <string>
#include <vector>

namespace koral {

// What the read-only Radio Wide Information dialog shows of a record: the identity texts,
// one row per option slot and the non-empty ECN and SP entries.
struct WideInformationView
{
    struct OptionRow
    {
        std::string name;
        std::string softwareVersion;
        std::string hardwareVersion;
        std::string status; // "Enabled" or "Disabled"
    };

    std::string serialNumber;
    std::string radioCode;
    std::string softwareVersion;
    std::string hardwareVersion;
    std::string controlHeadSoftwareVersion;
    std::string controlHeadHardwareVersion;
    std::vector<OptionRow> options;
    std::vector<std::string> ecn;
    std::vector<std::string> sp;

    // The label of an option slot in the options list: the .rss key, except for the eleventh
    // slot.
    static const char* optionLabel(std::size_t slot);

    static WideInformationView of(const dbase& record);
};

} // namespace koral
