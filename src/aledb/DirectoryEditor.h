#pragma once

// The rules of the "ALE Directory Configuration" dialog: the list of up to 100 station
// addresses, the address edit with its status text, ADD and DELETE.
//
// Member slots, global member slots and automatic dials hold directory indices, so every
// change of the list renumbers them: each keeps referring to the same address, or to nothing
// once that address is gone.

#include "aledb/DirectoryListRules.h"
#include "aledb/ale_dbase.h"

#include <string>
#include <string_view>
#include <vector>

namespace koral {

class Notifier;

class DirectoryEditor : public DirectoryListRules
{
public:
    DirectoryEditor(const AleProgramme& programme, Notifier& notifier);

    // The addresses in directory order; a position in this list is a directory index.
    const std::vector<std::string>& entries() const { return m_entries; }
    std::vector<std::string> listLines() const override { return m_entries; }
    int occupiedCount() const override { return static_cast<int>(m_entries.size()); }
    // The reference lists of every net's name and self address.
    std::vector<std::string> netNames() const;
    std::vector<std::string> selfAddresses() const;

    const std::string& editText() const override { return m_address; }
    void setEditText(std::string_view text) override;
    void selectEntry(int index) override;

    const std::string& statusText() const override { return m_status; }
    bool addEnabled() const override { return m_addEnabled; }
    bool deleteEnabled() const override { return m_deleteEnabled; }

    // ADD: appends the typed address and clears the edit. False when ADD is disabled.
    bool add() override;
    // DELETE: after the operator confirms, removes the typed address and renumbers every
    // reference to the directory. False when DELETE is disabled or the operator says no.
    bool remove() override;

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
