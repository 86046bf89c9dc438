#include "aledb/AutoDialEditor.h"

#include "aledb/AleText.h"
#include "common/Texts.h"

#include <algorithm>

namespace koral {

namespace {

template <typename Entries>
void fillList(const Entries& entries, std::string_view emptyItem, std::vector<std::string>& items,
              std::vector<std::uint8_t>& indices)
{
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string_view text = fieldText(entries[i]);
        if (!text.empty()) {
            items.emplace_back(text);
            indices.push_back(static_cast<std::uint8_t>(i));
        }
    }
    items.emplace_back(emptyItem);
}

int selectionOf(const std::vector<std::uint8_t>& indices, std::uint8_t value)
{
    const auto it = std::find(indices.begin(), indices.end(), value);
    return static_cast<int>(it - indices.begin()); // the empty item when not found
}

std::uint8_t valueOf(const std::vector<std::uint8_t>& indices, int position)
{
    if (position < 0 || position >= static_cast<int>(indices.size()))
        return kSlotEmpty;
    return indices[static_cast<std::size_t>(position)];
}

bool validRow(int row)
{
    return row >= 0 && row < kAleAutoDialCount;
}

} // namespace

AutoDialEditor::AutoDialEditor(const ale_dbase& db) : m_db(db)
{
    fillList(m_db.directory, text::kEmptyAddress, m_addressItems, m_addressIndex);
    fillList(m_db.messages, text::kEmptyMessage, m_messageItems, m_messageIndex);
}

int AutoDialEditor::addressSelection(int row) const
{
    return validRow(row) ? selectionOf(m_addressIndex, m_db.autoDials[row].address) : -1;
}

int AutoDialEditor::messageSelection(int row) const
{
    return validRow(row) ? selectionOf(m_messageIndex, m_db.autoDials[row].message) : -1;
}

void AutoDialEditor::chooseAddress(int row, int position)
{
    if (validRow(row))
        m_db.autoDials[row].address = valueOf(m_addressIndex, position);
}

void AutoDialEditor::chooseMessage(int row, int position)
{
    if (validRow(row))
        m_db.autoDials[row].message = valueOf(m_messageIndex, position);
}

} // namespace koral
