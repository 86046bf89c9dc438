#pragma once

// The rules of the "CCIR Directory Configuration" dialog: the 100 slots of called
// identities, the identity edit with its status text, ADD (into the first free slot) and
// DELETE (the slot becomes free; the others keep their places, as the radio numbers them).

#include "aledb/DirectoryListRules.h"
#include "aledb/ccir_dbase.h"

#include <string>
#include <string_view>
#include <vector>

namespace koral {

class CcirDirectoryEditor : public DirectoryListRules
{
public:
    explicit CcirDirectoryEditor(const ccir_dbase& record);

    struct Entry
    {
        int slot; // 0..99
        std::string identity;
    };
    // The occupied slots in slot order.
    std::vector<Entry> entries() const;
    // Each occupied slot with its number, as "07  402200".
    std::vector<std::string> listLines() const override;
    int occupiedCount() const override { return int(entries().size()); }

    const std::string& editText() const override { return m_text; }
    void setEditText(std::string_view text) override;
    void selectEntry(int line) override;

    const std::string& statusText() const override { return m_status; }
    bool addEnabled() const override { return m_addEnabled; }
    bool deleteEnabled() const override { return m_deleteEnabled; }

    // ADD: the typed identity into the first free slot; the edit is cleared.
    bool add() override;
    // DELETE: frees the slot of the typed identity; the edit is cleared.
    bool remove() override;

    const ccir_dbase& record() const { return m_record; }

private:
    int slotOf(std::uint32_t value) const;

    ccir_dbase m_record;
    std::string m_text;
    std::string m_status;
    bool m_addEnabled = false;
    bool m_deleteEnabled = false;
};

} // namespace koral
