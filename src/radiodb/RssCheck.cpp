#include "radiodb/RssCheck.h"

#include "common/Texts.h"

namespace koral {

namespace {

bool isProgrammedChannel(const dbase& db, int number)
{
    return isChannelNumber(number) && db.channelNo(number).isProgrammed();
}

std::string groupLine(std::string_view first, int number, std::string_view middle, int group,
                      std::string_view last)
{
    return text::format("%s %d %s %c %s", first.data(), number, middle.data(), 'A' + group,
                        last.data());
}

std::string netLine(int number, std::string_view middle, int net)
{
    return text::format("%s %d %s %d %s", text::kCheckChannel.data(), number, middle.data(), net,
                        text::kCheckButNotProgrammed.data());
}

} // namespace

RssCheckResult checkRadioConfiguration(const dbase& db, std::span<const AleNetChannels> nets)
{
    RssCheckResult result;
    auto& lines = result.lines;

    const int priority = db.radioOptions.priorityChannel.get();
    if (!isProgrammedChannel(db, priority)) {
        lines.push_back(text::format("%s %d %s", text::kCheckPriorityChannel.data(), priority,
                                     text::kCheckIsNotProgrammed.data()));
    }

    for (int i = 0; i < kGroupCount; ++i) {
        const int guard = db.groups[static_cast<std::size_t>(i)].guardChannel.get();
        if (guard != kNoChannel && !isProgrammedChannel(db, guard)) {
            lines.push_back(groupLine(text::kCheckGuardChannel, guard, text::kCheckForGroup, i,
                                      text::kCheckIsNotProgrammed));
        }
    }

    // A group's guard is reported above, never a second time as a member.
    for (int i = 0; i < kGroupCount; ++i) {
        const Group& group = db.groups[static_cast<std::size_t>(i)];
        for (int number = 1; number <= kChannelCount; ++number) {
            if (group.isMember(number) && number != group.guardChannel.get() &&
                !isProgrammedChannel(db, number)) {
                lines.push_back(groupLine(text::kCheckChannel, number, text::kCheckInGroup, i,
                                          text::kCheckSelectedNotProgrammed));
            }
        }
    }

    for (std::size_t n = 0; n < nets.size(); ++n) {
        const int allCall = nets[n].allCallChannel;
        if (allCall != kNoChannel && !isProgrammedChannel(db, allCall))
            lines.push_back(netLine(allCall, text::kCheckAllCallChannel, static_cast<int>(n) + 1));
    }

    // Likewise a net's All Call channel is not reported again as scanned.
    for (std::size_t n = 0; n < nets.size(); ++n) {
        for (int number = 1; number <= kChannelCount; ++number) {
            if (nets[n].scanned[static_cast<std::size_t>(channelIndex(number))] != 0 &&
                number != nets[n].allCallChannel && !isProgrammedChannel(db, number)) {
                lines.push_back(
                    netLine(number, text::kCheckScannedChannel, static_cast<int>(n) + 1));
            }
        }
    }
    return result;
}

CheckLineTarget checkLineTarget(std::string_view line)
{
    CheckLineTarget target;
    const auto digit = line.find_first_of("0123456789");
    if (digit != std::string_view::npos)
        for (auto i = digit; i < line.size() && line[i] >= '0' && line[i] <= '9'; ++i)
            target.channel = target.channel * 10 + (line[i] - '0');
    constexpr std::string_view kGroup = " group ";
    if (const auto at = line.find(kGroup);
        at != std::string_view::npos && at + kGroup.size() < line.size())
        target.group = line[at + kGroup.size()];
    return target;
}

} // namespace koral
