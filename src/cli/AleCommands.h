#pragma once

// koralctl's ALE parts: normalising an .ale file and the combined configuration check.

#include "cli/Command.h"

#include <string_view>

namespace koral {
struct dbase;
}

namespace koral::cli {

// Saving without the global member groups, for radios that do not support them.
inline constexpr std::string_view kNoGlobalMembersFlag = "--no-global-members";

// normalize IN.ale OUT.ale [--no-global-members]: loads without a version check and saves
// with the application's Save; the radio identity read from IN is the one written.
int runAleNormalize(const Invocation& invocation);

// check RADIO.rss [PROGRAMME.ale], once the radio file is loaded: the radio lines, then the
// ALE lines. Exit 0 without a line, 1 with some.
int runCheckWithAle(const Invocation& invocation, const dbase& radio);

} // namespace koral::cli
