#pragma once

// The rules of the "Automatic Dial Configuration" dialog: ten rows, each choosing a directory
// address and a message from drop-down lists that end with "*EMPTY ADDRESS*" and
// "*EMPTY MESSAGE*".
//
// The lists show only the non-empty entries, so a list position is not always a directory or
// message index; the editor translates both ways, so a dial always refers to the entry that
// was chosen, whatever gaps the directory has.

#include "aledb/ale_dbase.h"

#include <string>
#include <vector>

namespace koral {

class AutoDialEditor
{
public:
    explicit AutoDialEditor(const ale_dbase& db);

    // The items of every row's lists, in order, the "empty" item last.
    const std::vector<std::string>& addressItems() const { return m_addressItems; }
    const std::vector<std::string>& messageItems() const { return m_messageItems; }

    // The list positions a row shows: the entry the dial refers to, or the last item when it
    // refers to nothing (or to an entry that is empty now).
    int addressSelection(int row) const;
    int messageSelection(int row) const;

    // A choice in a row's list; the last item stores 255.
    void chooseAddress(int row, int position);
    void chooseMessage(int row, int position);

    const ale_dbase& database() const { return m_db; }

private:
    ale_dbase m_db;
    std::vector<std::string> m_addressItems;
    std::vector<std::string> m_messageItems;
    std::vector<std::uint8_t> m_addressIndex; // directory index of each item but the last
    std::vector<std::uint8_t> m_messageIndex;
};

} // namespace koral
