#pragma once

// What koralctl reads from a radio: every database it keeps, the way Read Device collects them.

#include "aledb/ale_dbase.h"
#include "aledb/ccir_dbase.h"
#include "koralapi/RadioRecords.h"
#include "radiodb/dbase.h"

#include <array>
#include <cstdint>
#include <optional>

namespace koral::cli {

struct Invocation;

// What the radio says about itself before a transfer.
struct Capabilities
{
    bool ccir = false;
    bool globalAndExtra = false;
};

// All databases as the radio holds them (host order).
struct RadioImage
{
    dbase radio{};
    AleProgramme ale{};
    ccir_dbase ccir{}; // radio order, as every CCIR record outside its file
    std::array<std::uint8_t, record::kChannelNameSize> channelNames{};
    bool isb = false;

    CcirChannelNumbers channelNumbers() const;
};

// Opens the radio named by --port (and --baud) and reads every database it keeps. Prints why
// not on the invocation's error stream and answers nothing when that fails.
std::optional<Capabilities> readRadioImage(const Invocation& invocation, RadioImage& image);

} // namespace koral::cli
