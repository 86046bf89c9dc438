#include "aledb/NetMembersEditor.h"

#include "aledb/AleText.h"
#include "common/Texts.h"

#include <algorithm>

namespace koral {

NetMembersEditor::NetMembersEditor(const ale_dbase& db, int net)
    : m_db(db), m_net(std::clamp(net, 0, kAleNetCount - 1))
{
    m_items.emplace_back();
    m_values.push_back(kSlotEmpty);
    const std::string_view self = fieldText(std::span<const char>(m_db.nets[m_net].selfAddress));
    if (!self.empty()) {
        m_items.emplace_back(self);
        m_values.push_back(kSlotSelfAddress);
    }
    for (int i = 0; i < kAleDirectorySize; ++i) {
        const std::string_view address = fieldText(std::span<const char>(m_db.directory[i]));
        if (address.empty())
            continue;
        m_items.emplace_back(address);
        m_values.push_back(std::uint8_t(i));
    }
    checkDuplicates();
}

int NetMembersEditor::selection(int slot) const
{
    if (slot < 0 || slot >= kAleMemberSlots)
        return 0;
    const auto found =
        std::find(m_values.begin(), m_values.end(), m_db.nets[m_net].members[std::size_t(slot)]);
    return found == m_values.end() ? 0 : int(found - m_values.begin());
}

void NetMembersEditor::choose(int slot, int position)
{
    if (slot < 0 || slot >= kAleMemberSlots || position < 0 || position >= int(m_values.size()))
        return;
    m_db.nets[m_net].members[std::size_t(slot)] = m_values[std::size_t(position)];
    checkDuplicates();
}

void NetMembersEditor::checkDuplicates()
{
    m_warning.clear();
    const auto& members = m_db.nets[m_net].members;
    for (int a = 0; a < kAleMemberSlots && m_warning.empty(); ++a) {
        const int position = selection(a);
        if (position == 0)
            continue;
        for (int b = a + 1; b < kAleMemberSlots; ++b)
            if (members[std::size_t(b)] == members[std::size_t(a)]) {
                m_warning = text::format(text::kDuplicateMember.data(),
                                         m_items[std::size_t(position)].c_str(), a + 1, b + 1);
                break;
            }
    }
}

} // namespace koral
