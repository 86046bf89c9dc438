#include "session/RadioComparison.h"

#include "aledb/AleDiff.h"
#include "radiodb/RadioDiff.h"

namespace koral {

namespace {

RadioContents radioContents(const SessionRecords& records, const RecordShape& shape)
{
    RadioContents contents{records.radio, shape.isb, std::nullopt};
    if (shape.ccir && records.known.channelNames)
        contents.ccirNumbers = fromChannelName(records.channelNames);
    return contents;
}

AleProgramme programme(const SessionRecords& records)
{
    return {records.ale, records.globalMembers, records.extraOptions};
}

// The programme a write leaves in the radio: the parts it sends, the radio's own elsewhere.
AleProgramme programmeAfter(const SessionRecords& radio, const SessionRecords& sent)
{
    AleProgramme after = programme(radio);
    if (sent.known.ale)
        after.database = sent.ale;
    if (sent.known.globalMembers)
        after.globalMembers = sent.globalMembers;
    if (sent.known.extraOptions)
        after.extraOptions = sent.extraOptions;
    return after;
}

} // namespace

std::vector<std::string> writeDifferences(const SessionRecords& radio, const SessionRecords& sent,
                                          const RecordShape& shape)
{
    std::vector<std::string> lines;
    const auto append = [&lines](std::vector<std::string> more) {
        lines.insert(lines.end(), std::make_move_iterator(more.begin()),
                     std::make_move_iterator(more.end()));
    };
    if (sent.known.radio) {
        const RadioContents before = radioContents(radio, shape);
        RadioContents after = radioContents(sent, shape);
        if (!sent.known.channelNames)
            after.ccirNumbers = before.ccirNumbers;
        append(radioDifferences(before, after));
    }
    if (sent.known.ale || sent.known.globalMembers || sent.known.extraOptions)
        append(aleDifferences(programme(radio), programmeAfter(radio, sent),
                              {shape.aleGlobal, kChannelCount}));
    if (shape.ccir && sent.known.ccir)
        append(ccirDifferences(radio.ccir, sent.ccir));
    return lines;
}

std::optional<std::filesystem::path> backUp(RadioBackups& backups, const SessionRecords& radio,
                                            const RecordShape& shape,
                                            std::chrono::system_clock::time_point when,
                                            std::string& error)
{
    const AleProgramme ale = programme(radio);
    const RadioContents contents = radioContents(radio, shape);
    RadioBackups::Contents set{.radio = &radio.radio, .isb = shape.isb};
    if (contents.ccirNumbers)
        set.ccirNumbers = &*contents.ccirNumbers;
    if (radio.known.ale) {
        set.ale = &ale;
        set.aleSettings = {shape.aleGlobal, kChannelCount};
    }
    if (shape.ccir && radio.known.ccir)
        set.ccir = &radio.ccir;
    return backups.save(set, when, error);
}

} // namespace koral
