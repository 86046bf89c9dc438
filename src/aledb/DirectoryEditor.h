#pragma once

// The rules of the "ALE Directory Configuration" dialog: the list of up to 100 station
// addresses, the address edit with its status text, ADD and DELETE.
//
// Member slots, global member slots and automatic dials hold directory indices, so every
// change of the list renumbers them: each keeps referring to the same address, or to nothing
// once that address is gone.

#include "aledb/ale_dbase.h"

#include <string>
#include <string_view>
#include <vector>

namespace koral {

class Notifier;

class DirectoryEditor
{
public:
    DirectoryEditor(const AleProgramme& programme, Notifier& notifier);

    // The addresses in directory order; a position in this list is a directory index.
    const std::vector<std::string>& entries() const { return m_entries; }
    int occupiedCount() const { return static_cast<int>(m_entries.size()); }
    // The reference lists of every net's name and self address.
    std::vector<std::string> netNames() const;
    std::vector<std::string> selfAddresses() const;

    const std::string& addressText() const { return m_address; }
    // A change of the address edit: runs the rules and sets the status and the buttons.
    void setAddressText(std::string_view text);
    // Selecting a list entry puts its text into the edit.
    void selectEntry(int index);

    const std::string& statusText() const { return m_status; }
    bool statusVisible() const { return !m_status.empty(); }
    bool addEnabled() const { return m_addEnabled; }
    bool deleteEnabled() const { return m_deleteEnabled; }

    // ADD: appends the typed address and clears the edit. False when ADD is disabled.
    bool add();
    // DELETE: after the operator confirms, removes the typed address and renumbers every
    // reference to the directory. False when DELETE is disabled or the operator says no.
    bool remove();

    // The edited programme (directory and references); the caller stores it on OK.
    const AleProgramme& programme() const { return m_programme; }

private:
    // Writes the list into the directory and points every reference that `before` held at
    // the same address in the new list.
    void storeEntries(const ale_dbase& before);
    void removeMemberReference(ale_net& net, std::uint8_t index);
    void removeGlobalReference(ale_global_member_group& group, std::uint8_t index);
    std::uint8_t newIndexOf(const ale_dbase& before, std::uint8_t oldIndex) const;

    AleProgramme m_programme;
    Notifier& m_notifier;
    std::vector<std::string> m_entries;
    std::string m_address;
    std::string m_status;
    bool m_addEnabled = false;
    bool m_deleteEnabled = false;
};

} // namespace koral
