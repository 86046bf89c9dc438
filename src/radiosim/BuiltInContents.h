#pragma once

#include "radiosim/RadioDatabases.h"

namespace koral::radiosim {

// The memory of a radio as a technician would find it in the field: about forty HF channels,
// five scan groups, a handful of options, ECN and SP entries, four ALE nets with their scanned
// channels and members, a directory, messages, automatic dials and a CCIR programme.
RadioDatabases builtInDatabases();

} // namespace koral::radiosim
