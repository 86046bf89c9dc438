#include "radiodb/RadioDiff.h"

#include "common/Texts.h"
#include "profile/FileInfo.h"
#include "profile/ProfileDiff.h"
#include "radiodb/Frequency.h"
#include "radiodb/RadioSanitiser.h"
#include "radiodb/RadioSummary.h"
#include "radiodb/RssFile.h"

#include <algorithm>

#include <cstdio>

namespace koral {

namespace {

// The summary's frequency columns; they are shown with all five decimals, so that a change
// in the last one reads as such.
constexpr std::size_t kTxColumn = 1;
constexpr std::size_t kRxColumn = 2;

std::string fixedMhz(std::uint32_t hertz)
{
    if (hertz == 0)
        return {};
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.5f", static_cast<double>(mhzOfHertz(hertz)));
    return buffer;
}

void compareChannels(const RadioContents& before, const RadioContents& after,
                     std::vector<std::string>& lines)
{
    // Both sides get the CCIR column when either has it, so a side without numbers shows none.
    const bool ccir = before.ccirNumbers || after.ccirNumbers;
    const auto numbersOf = [ccir](const RadioContents& contents) {
        std::optional<CcirChannelNumbers> numbers;
        if (ccir)
            numbers = contents.ccirNumbers.value_or(CcirChannelNumbers{});
        return numbers;
    };
    const RadioSummary was = RadioSummary::of(before.record.channels, numbersOf(before));
    const RadioSummary is = RadioSummary::of(after.record.channels, numbersOf(after));
    for (std::size_t row = 0; row < was.rows.size(); ++row) {
        const std::string name = "Channel " + was.rows[row][0];
        for (std::size_t column = 1; column < was.header.size(); ++column) {
            if (was.rows[row][column] == is.rows[row][column])
                continue;
            const std::string field = name + " " + was.header[column];
            if (column == kTxColumn || column == kRxColumn) {
                const auto hertz = [column, row](const RadioContents& contents) {
                    const channel& ch = contents.record.channels[row];
                    return column == kTxColumn ? ch.txFrequency.get() : ch.rxFrequency.get();
                };
                lines.push_back(
                    difftext::changed(field, fixedMhz(hertz(before)), fixedMhz(hertz(after))));
            } else {
                lines.push_back(
                    difftext::changed(field, was.rows[row][column], is.rows[row][column]));
            }
        }
    }
}

std::vector<int> membersOf(const Group& group)
{
    std::vector<int> members;
    for (int number = 1; number <= kChannelCount; ++number) {
        if (group.isMember(number))
            members.push_back(number);
    }
    return members;
}

std::string guardText(const Group& group)
{
    const int guard = group.guardChannel.get();
    return guard >= 1 && guard <= kChannelCount ? std::to_string(guard) : std::string();
}

void compareGroups(const dbase& before, const dbase& after, std::vector<std::string>& lines)
{
    for (std::size_t index = 0; index < kGroupCount; ++index) {
        const std::string name = std::string("Group ") + static_cast<char>('A' + index);
        const Group& was = before.groups[index];
        const Group& is = after.groups[index];
        const std::string members = difftext::membership(name, membersOf(was), membersOf(is));
        if (!members.empty())
            lines.push_back(members);
        if (guardText(was) != guardText(is))
            lines.push_back(
                difftext::changed(name + " Guard Channel", guardText(was), guardText(is)));
    }
}

ProfileFile fileOf(const RadioContents& contents)
{
    ProfileFile file;
    file.setContent(RssFile::content(FileInfo{}, contents.record, contents.isb, nullptr));
    return file;
}

} // namespace

std::vector<std::string> radioDifferences(const RadioContents& before, const RadioContents& after)
{
    std::vector<std::string> lines;
    compareChannels(before, after, lines);
    compareGroups(before.record, after.record, lines);
    // Channels and groups are told above; the file information is the file's, not the radio's.
    const auto toldElsewhere = [](std::string_view section) {
        return section == "Channels" || section == "Groups Guard Channels" ||
               section == fileinfo::kSection;
    };
    for (const ProfileChange& change : profileChanges(fileOf(before), fileOf(after), toldElsewhere))
        lines.push_back(difftext::changed(difftext::spaced(change.section + " " + change.key),
                                          change.before, change.after));
    return lines;
}

void keepRadioParameters(dbase& sent, const dbase& radio)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(&sent.parameters);
    if (std::all_of(bytes, bytes + sizeof sent.parameters, [](unsigned char b) { return b == 0; }))
        sent.parameters = radio.parameters;
}

} // namespace koral
