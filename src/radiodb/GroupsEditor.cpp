#include "radiodb/GroupsEditor.h"

#include "common/Texts.h"

#include <algorithm>

namespace koral {

namespace {

bool validChannel(int channel)
{
    return channel >= 1 && channel <= GroupsEditor::kChannels;
}

} // namespace

GroupsEditor::GroupsEditor(Notifier& notifier, const GroupSelections& groups,
                           const ProgrammedChannels& programmed, bool guardBlocked)
    : m_notifier(notifier), m_groups(groups), m_programmed(programmed), m_guardBlocked(guardBlocked)
{
    // A guard always counts as a marked cell, whatever the caller's flags say.
    for (auto& g : m_groups) {
        g.marked[0] = 0;
        if (validChannel(g.guard))
            g.marked[g.guard] = 1;
        else
            g.guard = GroupSelection::kNoGuard;
    }
}

void GroupsEditor::stepGroup(int step)
{
    m_current = std::clamp(m_current + step, 1, kGroups);
}

CellState GroupsEditor::cellState(int channel) const
{
    if (!validChannel(channel))
        return CellState::Free;
    if (group().guard == channel)
        return CellState::Guard;
    return group().marked[static_cast<std::size_t>(channel)] ? CellState::Member : CellState::Free;
}

bool GroupsEditor::isProgrammed(int channel) const
{
    return validChannel(channel) && m_programmed[static_cast<std::size_t>(channel)];
}

int GroupsEditor::markedCount() const
{
    return static_cast<int>(std::count(group().marked.begin() + 1, group().marked.end(), 1));
}

std::string GroupsEditor::guardText() const
{
    if (!validChannel(group().guard))
        return std::string(text::kGuardEmpty);
    return std::to_string(group().guard);
}

GroupsEditor::Hint GroupsEditor::hint(int channel) const
{
    if (validChannel(channel) && !isProgrammed(channel))
        return {text::format(text::kChannelNotProgrammedHint.data(), text::kChannelNumber.data(),
                             channel, text::kIsNotProgrammed.data()),
                true};
    return {std::string(text::kGroupsHint), false};
}

void GroupsEditor::setFree(int channel)
{
    group().marked[static_cast<std::size_t>(channel)] = 0;
    if (group().guard == channel)
        group().guard = GroupSelection::kNoGuard;
}

void GroupsEditor::click(int channel, MouseButton button)
{
    if (!validChannel(channel))
        return;
    if (!isProgrammed(channel)) {
        // A channel that lost its frequencies can only be taken out of the group.
        setFree(channel);
        return;
    }
    const CellState state = cellState(channel);
    switch (button) {
    case MouseButton::Left:
        if (state == CellState::Free)
            group().marked[static_cast<std::size_t>(channel)] = 1;
        else
            setFree(channel);
        break;
    case MouseButton::Right:
        if (m_guardBlocked)
            break;
        if (state == CellState::Guard) {
            setFree(channel);
        } else {
            // The previous guard stays in the group as an ordinary member.
            group().marked[static_cast<std::size_t>(channel)] = 1;
            group().guard = static_cast<std::uint16_t>(channel);
        }
        break;
    case MouseButton::Other:
        m_notifier.show(text::kUnknownMouseButton);
        break;
    }
}

void GroupsEditor::press(int channel, MouseButton button)
{
    m_pressedCell = channel;
    m_lastCell = channel;
    m_pressedButton = button;
    m_dragging = false;
}

void GroupsEditor::dragOnto(int channel)
{
    if (!isProgrammed(channel))
        return;
    if (m_pressedButton == MouseButton::Left) {
        if (cellState(channel) == CellState::Free)
            group().marked[static_cast<std::size_t>(channel)] = 1;
    } else if (m_pressedButton == MouseButton::Right) {
        if (cellState(channel) != CellState::Free)
            setFree(channel);
    }
}

void GroupsEditor::move(int channel)
{
    if (m_pressedCell == 0 || channel == m_lastCell || !validChannel(channel))
        return;
    if (!m_dragging) {
        // The sweep covers the cell it started on as well.
        m_dragging = true;
        dragOnto(m_pressedCell);
    }
    m_lastCell = channel;
    dragOnto(channel);
}

void GroupsEditor::release(int channel)
{
    const bool dragged = m_dragging;
    const MouseButton button = m_pressedButton;
    m_pressedCell = 0;
    m_lastCell = 0;
    m_dragging = false;
    if (!dragged)
        click(channel, button);
}

void GroupsEditor::deselect()
{
    group().marked.fill(0);
    group().guard = GroupSelection::kNoGuard;
}

GroupSelections GroupsEditor::fromRecord(const dbase& record)
{
    GroupSelections groups{};
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const Group& g = record.groups[i];
        for (int channel = 1; channel <= kChannels; ++channel)
            groups[i].marked[static_cast<std::size_t>(channel)] = g.isMember(channel) ? 1 : 0;
        const int guard = g.guardChannel.get();
        groups[i].guard =
            validChannel(guard) ? static_cast<std::uint16_t>(guard) : GroupSelection::kNoGuard;
    }
    return groups;
}

void GroupsEditor::toRecord(const GroupSelections& groups, dbase& record)
{
    for (std::size_t i = 0; i < groups.size(); ++i) {
        Group& g = record.groups[i];
        g.members.fill(0);
        for (int channel = 1; channel <= kChannels; ++channel)
            if (groups[i].marked[static_cast<std::size_t>(channel)] || groups[i].guard == channel)
                g.setMember(channel, true);
        g.guardChannel.set(validChannel(groups[i].guard) ? groups[i].guard : kNoChannel);
    }
}

ProgrammedChannels GroupsEditor::programmedOf(const dbase& record)
{
    ProgrammedChannels programmed{};
    for (int channel = 1; channel <= kChannels; ++channel)
        programmed[static_cast<std::size_t>(channel)] = record.channelNo(channel).isProgrammed();
    return programmed;
}

std::vector<GroupsEditor::OverviewRow> GroupsEditor::overview(const GroupSelections& groups)
{
    std::vector<OverviewRow> rows;
    for (int i = 0; i < kGroups; ++i) {
        const GroupSelection& g = groups[static_cast<std::size_t>(i)];
        OverviewRow row;
        row.letter = std::string(1, static_cast<char>('A' + i));
        if (validChannel(g.guard))
            row.guard = std::to_string(g.guard);
        for (int channel = 1; channel <= kChannels; ++channel) {
            if (!g.marked[static_cast<std::size_t>(channel)] || channel == g.guard)
                continue;
            if (!row.channels.empty())
                row.channels += ", ";
            row.channels += std::to_string(channel);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace koral
