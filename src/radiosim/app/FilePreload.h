#pragma once

#include "radiosim/RadioDatabases.h"

#include <string>

namespace koral::radiosim {

// Data files to start the radio with; an empty path keeps the built-in contents.
struct FilePreload
{
    std::string rss;
    std::string ale;
    std::string ccr;
};

// Loads the files into the radio's memory (radio byte order). Returns an error message for
// the operator, or an empty text when everything loaded; on an error nothing is changed.
std::string preloadFiles(const FilePreload& files, RadioDatabases& db);

} // namespace koral::radiosim
