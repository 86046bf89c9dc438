#pragma once

// The rules of the "Net Members" dialog: the 16 member slots of one net, each picked by name
// from a list that offers nothing (an empty slot), the net's own self address and every
// address of the directory. A station may be a member once: while two slots name the same
// one, the warning says which and OK is disabled, so nothing is changed behind the
// operator's back.

#include "aledb/ale_dbase.h"

#include <string>
#include <vector>

namespace koral {

class NetMembersEditor
{
public:
    NetMembersEditor(const ale_dbase& db, int net);

    int net() const { return m_net; }
    // The items of every slot's list: the empty item, the self address (while the net has
    // one), then the directory's addresses in directory order.
    const std::vector<std::string>& items() const { return m_items; }
    // The position a slot shows; a slot that refers to an empty directory entry shows empty.
    int selection(int slot) const;
    void choose(int slot, int position);

    const std::string& warning() const { return m_warning; }
    bool okEnabled() const { return m_warning.empty(); }

    // The edited database (only the net's member slots differ); the caller stores it on OK.
    const ale_dbase& database() const { return m_db; }

private:
    void checkDuplicates();

    ale_dbase m_db;
    int m_net;
    std::vector<std::string> m_items;
    std::vector<std::uint8_t> m_values; // the slot value of each item
    std::string m_warning;
};

} // namespace koral
