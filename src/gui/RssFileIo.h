#pragma once

#include <string>

namespace koral {

struct RssDocument;

// The RSS panel's file operations on a document. Each returns an empty text on success and
// the operator's message otherwise.
namespace rssio {

// Loads a .rss file of any version: the record, the file information and, when the file has
// them, the CCIR channel numbers. `foreign` tells whether the file has none of the sections
// of a radio database (it then loads as an empty database).
std::string load(RssDocument& document, const std::string& path, bool* foreign = nullptr);
// Writes the document to path (the file is replaced whole) and refreshes the file information.
std::string save(RssDocument& document, const std::string& path);
// The text a print-out shows: the file as saving writes it, the CCIR channel numbers first.
std::string printText(const RssDocument& document, std::string& error);

} // namespace rssio
} // namespace koral
