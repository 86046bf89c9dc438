#pragma once

#include "session/BiteResults.h"

#include <filesystem>
#include <string>

namespace koral {

struct dbase;

// Saves the results of a built-in test: the test type, the radio's wide information (its
// identity, the first two option slots and the non-empty ECN and SP entries) and one line per
// listed result. The file is written anew; false (with `error` set) when it cannot be.
bool saveBiteFile(const std::filesystem::path& file, BiteTestType type, const dbase& radio,
                  const BiteSummary& results, std::string* error = nullptr);

} // namespace koral
