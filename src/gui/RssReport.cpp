#include "gui/RssReport.h"

#include "gui/RssDocument.h"
#include "radiodb/GroupsEditor.h"
#include "radiodb/RadioSummary.h"
#include "radiodb/RssFile.h"

#include <filesystem>
#include <optional>
#include <sstream>
#include <utility>
#include <vector>

namespace koral {

namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string escaped(const std::string& text)
{
    std::string out;
    for (char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '\r':
            out += "<br>";
            break;
        default:
            out += c;
        }
    }
    return out;
}

// The key=value lines of one section of the file's text.
std::vector<std::pair<std::string, std::string>> section(const std::string& content,
                                                         const std::string& name)
{
    std::vector<std::pair<std::string, std::string>> lines;
    std::istringstream in(content);
    std::string line;
    bool inside = false;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (!line.empty() && line.front() == '[') {
            inside = line == '[' + name + ']';
            continue;
        }
        const auto equals = line.find('=');
        if (inside && equals != std::string::npos) {
            std::string key = line.substr(0, equals);
            for (char& c : key)
                c = c == '_' ? ' ' : c;
            std::string value = line.substr(equals + 1);
            // The file keeps "no channel" as 65535; a reader wants the word.
            lines.emplace_back(key, value == "65535" ? "none" : value);
        }
    }
    return lines;
}

void table(std::ostringstream& out, const std::vector<std::string>& header, const Rows& rows)
{
    out << "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\"><tr>";
    for (const std::string& cell : header)
        out << "<th bgcolor=\"#64c8ff\">" << escaped(cell) << "</th>";
    out << "</tr>";
    for (const auto& row : rows) {
        out << "<tr>";
        for (const std::string& cell : row)
            out << "<td>" << escaped(cell) << "</td>";
        out << "</tr>";
    }
    out << "</table>";
}

void keyValueTable(std::ostringstream& out, const std::string& heading,
                   const std::vector<std::pair<std::string, std::string>>& lines)
{
    if (lines.empty())
        return;
    out << "<h2>" << escaped(heading) << "</h2>";
    Rows rows;
    for (const auto& [key, value] : lines)
        rows.push_back({key, value.empty() ? "-" : value});
    table(out, {"Setting", "Value"}, rows);
}

} // namespace

std::string rssReportHtml(const RssDocument& document, const std::string& date)
{
    const std::string content =
        RssFile::content(document.info, document.record, document.isb,
                         document.ccirPresent ? &document.ccirNumbers : nullptr);
    std::ostringstream out;
    const std::string file = document.path.empty()
                                 ? std::string("Radio database read from the radio")
                                 : std::filesystem::path(document.path).filename().string();
    out << "<h1>" << escaped(file) << "</h1>";
    out << "<p>Printed " << escaped(date);
    const std::string serial(fieldText(document.record.serialNumber));
    const std::string code(fieldText(document.record.radioCode));
    if (!serial.empty() || !code.empty())
        out << " &mdash; radio S/N " << escaped(serial.empty() ? "-" : serial) << ", code "
            << escaped(code.empty() ? "-" : code);
    out << "</p>";
    if (!document.info.comment.empty())
        out << "<p>" << escaped(document.info.comment) << "</p>";
    keyValueTable(out, "Radio identity", section(content, "Wide Information"));

    std::optional<CcirChannelNumbers> ccir;
    if (document.ccirPresent)
        ccir = document.ccirNumbers;
    const RadioSummary summary = RadioSummary::of(document.record.channels, ccir);
    Rows channels;
    for (int c = 1; c <= kChannelCount; ++c)
        if (document.record.channelNo(c).isProgrammed())
            channels.push_back(summary.rows[std::size_t(c - 1)]);
    out << "<h2>Channels (" << channels.size() << " programmed, frequencies in MHz)</h2>";
    table(out, summary.header, channels);

    out << "<h2>Scan groups</h2>";
    Rows groups;
    for (const auto& row : GroupsEditor::overview(GroupsEditor::fromRecord(document.record)))
        groups.push_back({row.letter, row.guard.empty() ? "none" : row.guard,
                          row.channels.empty() ? "-" : row.channels});
    table(out, {"Group", "Guard", "Scanned channels"}, groups);

    keyValueTable(out, "Radio options", section(content, "Radio Options"));
    keyValueTable(out, "Accessories", section(content, "Accessories"));
    keyValueTable(out, "Option slots (software, hardware, status)", section(content, "Options"));
    return out.str();
}

} // namespace koral
