#pragma once

// A radio database file as the application's RSS panel holds it: the record, its file
// information, the ISB setting and, when the file has them, the CCIR channel numbers.

#include "profile/FileInfo.h"
#include "radiodb/ChannelTables.h"
#include "radiodb/dbase.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace koral::cli {

struct RadioDocument
{
    dbase record{};
    FileInfo info;
    bool isb = false;
    std::optional<CcirChannelNumbers> ccirNumbers;
};

// Loads an .rss file as the application's Open does (no version check). On an unreadable path
// or another file kind, prints why on `err` and answers nothing.
std::optional<RadioDocument> loadRadioDocument(const std::string& path, std::ostream& err);

// Saves as the application's Save does. False, after printing why on `err`, when it fails.
bool saveRadioDocument(RadioDocument& document, const std::string& path, std::ostream& err);

} // namespace koral::cli
