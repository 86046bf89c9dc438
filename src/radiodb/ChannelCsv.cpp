#include "radiodb/ChannelCsv.h"

#include "common/Texts.h"
#include "radiodb/ChannelConfigEditor.h"
#include "radiodb/Frequency.h"
#include "radiodb/RadioSummary.h"
#include "radiodb/RadioValueLists.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <map>

namespace koral {

namespace {

using List = ChannelConfigEditor::List;
using Edit = ChannelConfigEditor::Edit;
using Type = ChannelConfigEditor::FrequencyType;

constexpr std::string_view kBom = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
// Max, USB, no frequencies, Slow, SSB, 2700.
constexpr channel kEmptyChannel{5, 1, 0, {}, {}, 0, 0};

// The grid's columns, by their position in the summary's header.
enum Column : std::size_t
{
    kNumber,
    kTx,
    kRx,
    kPower,
    kBand,
    kMode,
    kAgc,
    kBandwidth,
    kCcir,
    kGroups, // not a grid column: the CSV's own
    kColumnCount
};

// The list columns: the grid's texts of the values and the dialog's list they select in.
struct ListColumn
{
    Column column;
    ValueList texts;
    List list;
};
constexpr std::array<ListColumn, 5> kListColumns{{
    {kPower, values::kSummaryPower, List::Power},
    {kBand, values::kSideband, List::Band},
    {kMode, values::kModulation, List::Mode},
    {kAgc, values::kAgc, List::Agc},
    {kBandwidth, values::kSummaryBandwidth, List::Bandwidth},
}};

std::string_view columnName(std::size_t column)
{
    return column == kGroups ? text::kCsvGroupsColumn : text::kSummaryHeaders[column];
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return std::string(text);
}

bool sameText(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::toupper(static_cast<unsigned char>(x)) ==
                      std::toupper(static_cast<unsigned char>(y));
           });
}

std::string quoted(std::string_view field, char separator)
{
    const bool plain = field.find_first_of(std::string{separator, '"'}) == std::string_view::npos &&
                       (field.empty() || (!isBlank(field.front()) && !isBlank(field.back())));
    if (plain)
        return std::string(field);
    std::string result = "\"";
    for (char c : field) {
        result += c;
        if (c == '"')
            result += '"';
    }
    return result + "\"";
}

// The fields of one line; a quoted field may hold the separator and doubled quotes.
std::vector<std::string> fieldsOf(std::string_view line, char separator)
{
    std::vector<std::string> fields(1);
    bool inQuotes = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (inQuotes) {
            if (c == '"' && i + 1 < line.size() && line[i + 1] == '"')
                fields.back() += line[++i];
            else if (c == '"')
                inQuotes = false;
            else
                fields.back() += c;
        } else if (c == '"') {
            inQuotes = true;
        } else if (c == separator) {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    for (std::string& field : fields)
        field = trimmed(field);
    return fields;
}

std::vector<std::string_view> linesOf(std::string_view csv)
{
    std::vector<std::string_view> lines;
    while (!csv.empty()) {
        const std::size_t end = std::min(csv.find('\n'), csv.size());
        std::string_view line = csv.substr(0, end);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        lines.push_back(line);
        csv.remove_prefix(std::min(end + 1, csv.size()));
    }
    return lines;
}

std::optional<int> numberOf(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

// One row checked by the Channel Configuration rules; the editor keeps what it accepted.
class RowReader
{
public:
    RowReader(ChannelConfigEditor& editor, const std::array<std::size_t, kColumnCount>& at,
              char separator)
        : m_editor(editor), m_at(at), m_separator(separator)
    {}

    // Empty when the row is good, else why not.
    std::string read(const std::vector<std::string>& fields, int number,
                     std::array<bool, kGroupCount>& groups)
    {
        m_fields = &fields;
        m_editor.setChannelNumber(number);
        if (std::string problem = frequencies(); !problem.empty())
            return problem;
        for (const ListColumn& column : kListColumns) {
            if (std::string problem = select(column); !problem.empty())
                return problem;
        }
        const std::string ccir = field(kCcir);
        if (!ccir.empty()) {
            const auto value = numberOf(ccir);
            if (!value || *value < ChannelConfigEditor::kMinCcirNumber ||
                *value > ChannelConfigEditor::kMaxCcirNumber)
                return text::format(text::kCsvBadCcirNumber.data(), ccir.c_str());
        }
        // A row without a number keeps the empty channel's 0 (the dialog's field cannot say 0).
        if (!ccir.empty())
            m_editor.setCcirNumber(*numberOf(ccir));
        groups.fill(false);
        for (char c : field(kGroups)) {
            const int group = std::toupper(static_cast<unsigned char>(c)) - 'A';
            if (group >= 0 && group < kGroupCount)
                groups[static_cast<std::size_t>(group)] = true;
            else if (!isBlank(c) && c != ',' && c != '+')
                return text::format(text::kCsvBadGroups.data(), field(kGroups).c_str());
        }
        return {};
    }

private:
    std::string field(Column column) const
    {
        const std::size_t index = m_at[column];
        return index < m_fields->size() ? (*m_fields)[index] : std::string();
    }

    // A frequency as the dialog's edit takes it; a decimal comma where commas cannot separate.
    std::string frequency(Column column) const
    {
        std::string text = field(column);
        if (m_separator != ',')
            std::replace(text.begin(), text.end(), ',', '.');
        return text;
    }

    std::string frequencies()
    {
        const std::string tx = frequency(kTx);
        const std::string rx = frequency(kRx);
        for (const auto& [column, text] : {std::pair{kTx, &tx}, std::pair{kRx, &rx}}) {
            if (text->size() > static_cast<std::size_t>(ChannelConfigEditor::kMaxTextLength))
                return text::format(text::kCsvTooLong.data(), columnName(column).data(),
                                    text->c_str());
        }
        // The frequency type the dialog would show for such a pair.
        const bool same =
            tx == rx || (isFrequencyText(tx) && isFrequencyText(rx) && hertzOf(tx) == hertzOf(rx));
        if (same) {
            set(Type::Simplex, {{Edit::Simplex, tx}});
        } else if (tx.empty()) {
            set(Type::ReceiveOnly, {{Edit::ReceiveOnly, rx}});
        } else if (rx.empty()) {
            set(Type::TransmitOnly, {{Edit::TransmitOnly, tx}});
        } else {
            set(Type::HalfDuplex, {{Edit::HalfDuplexTx, tx}, {Edit::HalfDuplexRx, rx}});
        }
        return m_editor.isOkEnabled() ? std::string() : m_editor.warning();
    }

    static std::uint32_t hertzOf(const std::string& text)
    {
        return hertzFromText(std::strtof(text.c_str(), nullptr), text);
    }

    void set(Type type, std::initializer_list<std::pair<Edit, std::string>> texts)
    {
        m_editor.setFrequencyType(type);
        for (const auto& [edit, text] : texts) {
            m_editor.setText(edit, text);
            if (!m_editor.isOkEnabled())
                return;
        }
    }

    std::string select(const ListColumn& column)
    {
        const std::string shown = field(column.column);
        const ValueList offered = m_editor.entries(column.list);
        for (const ValueText& entry : entriesOf(column.texts)) {
            if (!sameText(trimmed(entry.text), shown))
                continue;
            const auto at =
                std::find_if(offered.begin(), offered.end(),
                             [&entry](const ValueText& e) { return e.value == entry.value; });
            if (at == offered.end())
                break;
            m_editor.select(column.list, static_cast<int>(at - offered.begin()));
            return {};
        }
        std::string allowed;
        for (const ValueText& entry : entriesOf(column.texts)) {
            const bool isOffered =
                std::any_of(offered.begin(), offered.end(),
                            [&entry](const ValueText& e) { return e.value == entry.value; });
            if (isOffered)
                allowed += (allowed.empty() ? "" : ", ") + trimmed(entry.text);
        }
        return text::format(text::kCsvBadValue.data(), columnName(column.column).data(),
                            shown.c_str(), allowed.c_str());
    }

    ChannelConfigEditor& m_editor;
    const std::array<std::size_t, kColumnCount>& m_at;
    char m_separator;
    const std::vector<std::string>* m_fields = nullptr;
};

std::string lineError(int line, const std::string& reason)
{
    return text::format(text::kCsvLine.data(), line, reason.c_str());
}

} // namespace

std::string channelCsv(const ChannelPlan& plan)
{
    constexpr char kSeparator = ',';
    const RadioSummary summary =
        RadioSummary::of(plan.record.channels, plan.ccirNumbers.value_or(CcirChannelNumbers{}));
    std::string csv(kBom);
    for (std::size_t column = 0; column < kColumnCount; ++column)
        csv += (column == 0 ? "" : ",") + quoted(columnName(column), kSeparator);
    csv += kLineEnd;
    for (int number = 1; number <= kChannelCount; ++number) {
        std::string groups;
        for (std::size_t group = 0; group < kGroupCount; ++group) {
            if (plan.record.groups[group].isMember(number))
                groups += (groups.empty() ? "" : " ") + std::string(1, char('A' + group));
        }
        if (!plan.record.channelNo(number).isProgrammed() && groups.empty())
            continue;
        const std::vector<std::string>& row = summary.rows[std::size_t(channelIndex(number))];
        for (std::size_t column = 0; column < row.size(); ++column)
            csv += (column == 0 ? "" : ",") + quoted(row[column], kSeparator);
        csv += "," + quoted(groups, kSeparator) + std::string(kLineEnd);
    }
    return csv;
}

std::vector<std::string> importChannelCsv(std::string_view csv, ChannelPlan& plan, bool isbOffered)
{
    if (csv.starts_with(kBom))
        csv.remove_prefix(kBom.size());
    const std::vector<std::string_view> lines = linesOf(csv);
    const auto header = std::find_if(lines.begin(), lines.end(),
                                     [](std::string_view line) { return !trimmed(line).empty(); });
    if (header == lines.end())
        return {std::string(text::kCsvNoHeader)};
    const char separator = std::count(header->begin(), header->end(), ';') >
                                   std::count(header->begin(), header->end(), ',')
                               ? ';'
                               : ',';
    const int headerLine = static_cast<int>(header - lines.begin()) + 1;

    // Where each column is; the CCIR number and the groups may be left out.
    std::array<std::size_t, kColumnCount> at{};
    std::vector<std::string> errors;
    const std::vector<std::string> names = fieldsOf(*header, separator);
    for (std::size_t column = 0; column < kColumnCount; ++column) {
        const auto found = std::find_if(names.begin(), names.end(), [column](const std::string& n) {
            return sameText(n, columnName(column));
        });
        at[column] = static_cast<std::size_t>(found - names.begin());
        if (found == names.end() && column != kCcir && column != kGroups)
            errors.push_back(lineError(headerLine, text::format(text::kCsvMissingColumn.data(),
                                                                columnName(column).data())));
    }
    if (!errors.empty())
        return errors;

    ChannelConfigEditor::Setup setup;
    // A channel the file does not list is empty, as the .rss file loads a channel it lacks.
    setup.channels.fill(kEmptyChannel);
    setup.ccirNumbers = CcirChannelNumbers{};
    setup.isbOffered = isbOffered;
    ChannelConfigEditor editor(setup);
    RowReader reader(editor, at, separator);
    std::array<std::array<bool, kGroupCount>, kChannelCount> memberships{};
    std::map<int, int> lineOfChannel;
    bool anyCcirNumber = false;
    for (auto line = header + 1; line != lines.end(); ++line) {
        if (trimmed(*line).empty())
            continue;
        const int lineNumber = static_cast<int>(line - lines.begin()) + 1;
        const std::vector<std::string> fields = fieldsOf(*line, separator);
        const std::string numberText = at[kNumber] < fields.size() ? fields[at[kNumber]] : "";
        const auto number = numberOf(numberText);
        if (!number || *number < 1 || *number > kChannelCount) {
            errors.push_back(lineError(
                lineNumber, text::format(text::kCsvBadChannelNumber.data(), numberText.c_str())));
            continue;
        }
        if (const auto seen = lineOfChannel.find(*number); seen != lineOfChannel.end()) {
            errors.push_back(lineError(lineNumber, text::format(text::kCsvDuplicateChannel.data(),
                                                                *number, seen->second)));
            continue;
        }
        lineOfChannel[*number] = lineNumber;
        const std::string problem =
            reader.read(fields, *number, memberships[std::size_t(channelIndex(*number))]);
        if (!problem.empty())
            errors.push_back(lineError(lineNumber, problem));
        anyCcirNumber = anyCcirNumber || editor.ccirNumber() != 0;
    }
    if (!errors.empty() || !editor.accept())
        return errors;

    plan.record.channels = editor.channels();
    for (std::size_t group = 0; group < kGroupCount; ++group) {
        for (int number = 1; number <= kChannelCount; ++number)
            plan.record.groups[group].setMember(
                number, memberships[std::size_t(channelIndex(number))][group]);
    }
    if (plan.ccirNumbers || anyCcirNumber)
        plan.ccirNumbers = editor.ccirNumbers();
    return {};
}

} // namespace koral
