#include "aledb/CcirDirectoryEditor.h"

#include "aledb/CcirIdentity.h"
#include "common/Texts.h"

namespace koral {

CcirDirectoryEditor::CcirDirectoryEditor(const ccir_dbase& record) : m_record(record) {}

std::vector<CcirDirectoryEditor::Entry> CcirDirectoryEditor::entries() const
{
    std::vector<Entry> list;
    for (int slot = 0; slot < kCcirDirectorySize; ++slot)
        if (const std::uint32_t value = m_record.directory[std::size_t(slot)].get())
            list.push_back({slot, ccir::identityText(value)});
    return list;
}

std::vector<std::string> CcirDirectoryEditor::listLines() const
{
    std::vector<std::string> lines;
    for (const Entry& entry : entries())
        lines.push_back(text::format("%02d  %s", entry.slot, entry.identity.c_str()));
    return lines;
}

void CcirDirectoryEditor::selectEntry(int line)
{
    const auto list = entries();
    if (line >= 0 && line < int(list.size()))
        setEditText(list[std::size_t(line)].identity);
}

int CcirDirectoryEditor::slotOf(std::uint32_t value) const
{
    for (int slot = 0; slot < kCcirDirectorySize; ++slot)
        if (m_record.directory[std::size_t(slot)].get() == value)
            return slot;
    return -1;
}

void CcirDirectoryEditor::setEditText(std::string_view text)
{
    m_text = text;
    m_status.clear();
    m_addEnabled = m_deleteEnabled = false;
    if (text.empty())
        return;
    const auto value = ccir::parseIdentity(text);
    if (!value) {
        m_status = text::format(text::kInvalidAddress.data(), m_text.c_str());
    } else if (slotOf(*value) >= 0) {
        m_status = m_text + std::string(text::kIsInDirectory);
        m_deleteEnabled = true;
    } else if (slotOf(0) < 0) {
        m_status = text::kDirectoryFull;
    } else {
        m_addEnabled = true;
    }
}

bool CcirDirectoryEditor::add()
{
    if (!m_addEnabled)
        return false;
    m_record.directory[std::size_t(slotOf(0))].set(*ccir::parseIdentity(m_text));
    setEditText({});
    return true;
}

bool CcirDirectoryEditor::remove()
{
    if (!m_deleteEnabled)
        return false;
    m_record.directory[std::size_t(slotOf(*ccir::parseIdentity(m_text)))].set(0);
    setEditText({});
    return true;
}

} // namespace koral
