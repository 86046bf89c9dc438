#pragma once

// The rules of the "Net Global Members" dialog: the global member group of one net, its
// group name and its 20 slots, each a station picked by name from the directory with its
// priority mark. As for the net's members, a station named twice holds OK with a warning;
// so does a group name with characters an address may not hold.

#include "aledb/ale_dbase.h"

#include <string>
#include <string_view>
#include <vector>

namespace koral {

class NetGlobalMembersEditor
{
public:
    NetGlobalMembersEditor(const ale_dbase_global_members& globals, const ale_dbase& db, int net);

    int net() const { return m_net; }
    const std::string& groupName() const { return m_name; }
    void setGroupName(std::string_view text);

    // The items of every slot's list: the empty item, then the directory's addresses.
    const std::vector<std::string>& items() const { return m_items; }
    int selection(int slot) const;
    bool priority(int slot) const;
    void choose(int slot, int position);
    // The mark stays with an empty slot's choice only once a station is chosen.
    void setPriority(int slot, bool on);

    const std::string& warning() const { return m_warning; }
    bool okEnabled() const { return m_warning.empty(); }

    // The edited groups (only this net's differs); the caller stores them on OK.
    const ale_dbase_global_members& globals() const { return m_globals; }

private:
    std::uint8_t& slotByte(int slot) { return m_globals.nets[m_net].members[std::size_t(slot)]; }
    std::uint8_t slotValue(int slot) const
    {
        return m_globals.nets[m_net].members[std::size_t(slot)];
    }
    void check();

    ale_dbase_global_members m_globals;
    int m_net;
    std::string m_name;
    std::vector<std::string> m_items;
    std::vector<std::uint8_t> m_indices; // the directory index of each item but the first
    std::string m_warning;
};

} // namespace koral
