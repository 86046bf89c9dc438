#pragma once

// What differs between two ALE programmes and between two CCIR databases, one line per
// difference, named as the .ale and .ccr files and their dialogs name the fields: "Net 3 Self
// Address: BASE -> CAMP", "Net 1 Scanned Channels: +14 -15", "Directory Address No. 7: ...",
// "Ccir 4 Digits Id: 1234 -> 4321". The radio identity an .ale file carries belongs to the
// radio database and is compared there.

#include "aledb/ale_dbase.h"
#include "aledb/ccir_dbase.h"

#include <string>
#include <vector>

namespace koral {

// Empty when they are the same. Both are taken as the .ale file holds them (normalised).
std::vector<std::string> aleDifferences(const AleProgramme& before, const AleProgramme& after,
                                        const AleSettings& settings);

// Both records in radio order, as every CCIR record outside its file.
std::vector<std::string> ccirDifferences(const ccir_dbase& before, const ccir_dbase& after);

} // namespace koral
