#include "aledb/NetGlobalMembersEditor.h"

#include "aledb/AleText.h"
#include "common/Texts.h"

#include <algorithm>

namespace koral {

NetGlobalMembersEditor::NetGlobalMembersEditor(const ale_dbase_global_members& globals,
                                               const ale_dbase& db, int net)
    : m_globals(globals), m_net(std::clamp(net, 0, kAleNetCount - 1)),
      m_name(fieldText(std::span<const char>(globals.nets[m_net].name)))
{
    m_items.emplace_back();
    for (int i = 0; i < kAleDirectorySize; ++i) {
        const std::string_view address = fieldText(std::span<const char>(db.directory[i]));
        if (address.empty())
            continue;
        m_items.emplace_back(address);
        m_indices.push_back(std::uint8_t(i));
    }
    check();
}

void NetGlobalMembersEditor::setGroupName(std::string_view text)
{
    m_name = text;
    if (text.size() < kAleAddressSize &&
        text.find_first_not_of(kAleAddressCharacters) == std::string_view::npos)
        setFieldText(m_globals.nets[m_net].name, text);
    check();
}

int NetGlobalMembersEditor::selection(int slot) const
{
    if (slot < 0 || slot >= kAleGlobalMemberSlots || slotValue(slot) == kSlotEmpty)
        return 0;
    const std::uint8_t index = slotValue(slot) & ~kGlobalPriorityBit;
    const auto found = std::find(m_indices.begin(), m_indices.end(), index);
    return found == m_indices.end() ? 0 : int(found - m_indices.begin()) + 1;
}

bool NetGlobalMembersEditor::priority(int slot) const
{
    return selection(slot) != 0 && (slotValue(slot) & kGlobalPriorityBit) != 0;
}

void NetGlobalMembersEditor::choose(int slot, int position)
{
    if (slot < 0 || slot >= kAleGlobalMemberSlots || position < 0 ||
        position >= int(m_items.size()))
        return;
    const bool mark = priority(slot);
    slotByte(slot) =
        position == 0
            ? kSlotEmpty
            : std::uint8_t(m_indices[std::size_t(position - 1)] | (mark ? kGlobalPriorityBit : 0));
    check();
}

void NetGlobalMembersEditor::setPriority(int slot, bool on)
{
    if (slot < 0 || slot >= kAleGlobalMemberSlots || selection(slot) == 0)
        return;
    slotByte(slot) = std::uint8_t(on ? slotValue(slot) | kGlobalPriorityBit
                                     : slotValue(slot) & ~kGlobalPriorityBit);
}

void NetGlobalMembersEditor::check()
{
    m_warning.clear();
    if (m_name.size() >= kAleAddressSize ||
        m_name.find_first_not_of(kAleAddressCharacters) != std::string::npos) {
        m_warning = text::format(text::kInvalidAddress.data(), m_name.c_str());
        return;
    }
    for (int a = 0; a < kAleGlobalMemberSlots; ++a) {
        const int position = selection(a);
        if (position == 0)
            continue;
        for (int b = a + 1; b < kAleGlobalMemberSlots; ++b)
            if (selection(b) == position) {
                m_warning = text::format(text::kDuplicateMember.data(),
                                         m_items[std::size_t(position)].c_str(), a + 1, b + 1);
                return;
            }
    }
}

} // namespace koral
