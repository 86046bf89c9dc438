#pragma once

#include <string>

namespace koral {

struct RssDocument;

// The formatted print-out of a radio database, as HTML: a title with the file name, the date
// and the radio's identity, then the programmed channels in MHz with their settings, the scan
// groups, the radio options and the option slots. "No channel" is written as a word, never as
// the number the file keeps for it.
std::string rssReportHtml(const RssDocument& document, const std::string& date);

} // namespace koral
