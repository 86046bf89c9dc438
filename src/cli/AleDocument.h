#pragma once

// An ALE programme file as the application's ALE panel holds it: the three records, the
// radio identity the file carries and its file information.

#include "aledb/ale_dbase.h"
#include "profile/FileInfo.h"
#include "radiodb/dbase.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace koral::cli {

struct AleDocument
{
    AleProgramme programme;
    dbase identity{}; // only its wide-information fields are used
    FileInfo info;
};

// Loads an .ale file without a version check. On an unreadable path or another file kind,
// prints why on `err` and answers nothing.
std::optional<AleDocument> loadAleDocument(const std::string& path, const AleSettings& settings,
                                           std::ostream& err);

// Saves as the application's Save does, with the identity the document carries. False, after
// printing why on `err`, when it fails.
bool saveAleDocument(AleDocument& document, const std::string& path, const AleSettings& settings,
                     std::ostream& err);

} // namespace koral::cli
