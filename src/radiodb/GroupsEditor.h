#pragma once

#include "common/Notifier.h"
#include "radiodb/dbase.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace koral {

// One scan group as the Groups dialog edits it: a flag per channel number (index 1..200,
// index 0 unused) for every marked channel, the guard included, and the guard channel.
struct GroupSelection
{
    static constexpr std::uint16_t kNoGuard = 65535;
    std::array<std::uint8_t, 201> marked{};
    std::uint16_t guard = kNoGuard;
    bool operator==(const GroupSelection&) const = default;
};

using GroupSelections = std::array<GroupSelection, 5>;
// Whether each channel number 1..200 is programmed (index 0 unused).
using ProgrammedChannels = std::array<bool, 201>;

enum class CellState : std::uint8_t
{
    Free = 0,
    Member = 1,
    Guard = 2,
};

enum class MouseButton
{
    Left,
    Right,
    Other,
};

// The rules of the Groups dialog: the state of each cell of the 20 x 10 channel grid, what a
// click or a drag does to it, the hint line, the group spin, "Deselect" and the guard text.
// The dialog's widgets only draw what this class says and forward the mouse to it.
class GroupsEditor
{
public:
    static constexpr int kGroups = 5;
    static constexpr int kChannels = 200;
    static constexpr int kRows = 20;
    static constexpr int kColumns = 10;

    // guardBlocked: the right button does nothing (CCIR channel numbers present and the
    // radio's channel mode is 2).
    GroupsEditor(Notifier& notifier, const GroupSelections& groups,
                 const ProgrammedChannels& programmed, bool guardBlocked = false);

    static int channelAt(int row, int column) { return row * kColumns + column + 1; }

    int currentGroup() const { return m_current; }
    char groupLetter() const { return static_cast<char>('A' - 1 + m_current); }
    // Moves by step and clamps to A..E.
    void stepGroup(int step);

    CellState cellState(int channel) const;
    bool isProgrammed(int channel) const;
    int markedCount() const;
    bool deselectEnabled() const { return markedCount() >= 1; }
    // The "Guard Channel" text: the guard's number, or "Empty".
    std::string guardText() const;

    struct Hint
    {
        std::string text;
        bool warning = false; // shown on yellow instead of grey
    };
    // The hint for the cell under the mouse; channel 0 means no cell.
    Hint hint(int channel) const;

    // A button released on a cell without a drag.
    void click(int channel, MouseButton button);
    // A button pressed on a cell; a later move() onto another cell starts a drag.
    void press(int channel, MouseButton button);
    // The mouse moved with the button of the last press held.
    void move(int channel);
    // The button was released; a click unless the press became a drag.
    void release(int channel);

    void deselect();

    const GroupSelections& groups() const { return m_groups; }

    // The dialog's working form of the record's groups, and back. Writing back keeps each
    // group's reserved bytes and sets the guard's own member bit.
    static GroupSelections fromRecord(const dbase& record);
    static void toRecord(const GroupSelections& groups, dbase& record);
    static ProgrammedChannels programmedOf(const dbase& record);

    // The groups overview rows: the letter, the guard and the scanned channels of one group.
    struct OverviewRow
    {
        std::string letter;
        std::string guard;
        std::string channels;
    };
    static std::vector<OverviewRow> overview(const GroupSelections& groups);

private:
    GroupSelection& group() { return m_groups[static_cast<std::size_t>(m_current - 1)]; }
    const GroupSelection& group() const
    {
        return m_groups[static_cast<std::size_t>(m_current - 1)];
    }
    void setFree(int channel);
    void dragOnto(int channel);

    Notifier& m_notifier;
    GroupSelections m_groups;
    ProgrammedChannels m_programmed;
    bool m_guardBlocked;
    int m_current = 1;

    int m_pressedCell = 0;
    int m_lastCell = 0;
    MouseButton m_pressedButton = MouseButton::Left;
    bool m_dragging = false;
};

} // namespace koral
