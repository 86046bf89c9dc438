#include "aledb/DirectoryEditor.h"

#include "aledb/AleText.h"
#include "common/Notifier.h"
#include "common/Texts.h"

#include <algorithm>
#include <cstring>

namespace koral {

namespace {

// The edit accepts upper case and digits only, stricter than what files may carry.
bool isTypedAddress(std::string_view text)
{
    return text.size() < kAleAddressSize && std::all_of(text.begin(), text.end(), [](char c) {
               return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
           });
}

// The bytes a member deletion moves: the 16 member slots and the three bytes after them.
constexpr std::size_t kMemberMoveSpan = 19;

} // namespace

DirectoryEditor::DirectoryEditor(const AleProgramme& programme, Notifier& notifier)
    : m_programme(programme), m_notifier(notifier)
{
    for (const auto& entry : m_programme.database.directory)
        if (!fieldText(entry).empty())
            m_entries.emplace_back(fieldText(entry));
}

std::vector<std::string> DirectoryEditor::netNames() const
{
    std::vector<std::string> names;
    for (const auto& net : m_programme.database.nets)
        names.emplace_back(fieldText(net.name));
    return names;
}

std::vector<std::string> DirectoryEditor::selfAddresses() const
{
    std::vector<std::string> addresses;
    for (const auto& net : m_programme.database.nets)
        addresses.emplace_back(fieldText(net.selfAddress));
    return addresses;
}

void DirectoryEditor::setEditText(std::string_view text)
{
    m_address = text;
    m_status.clear();
    m_addEnabled = false;
    m_deleteEnabled = false;
    if (text.empty())
        return;
    const std::string address(text);
    if (!isTypedAddress(text)) {
        m_status = text::format(text::kInvalidAddress.data(), address.c_str());
        return;
    }
    const auto& nets = m_programme.database.nets;
    for (int n = 0; n < kAleNetCount; ++n) {
        if (fieldText(nets[n].name) == text) {
            m_status = text::format(text::kIsNetName.data(), address.c_str(), n + 1);
            return;
        }
    }
    for (int n = 0; n < kAleNetCount; ++n) {
        if (fieldText(nets[n].selfAddress) == text) {
            m_status = text::format(text::kIsSelfAddress.data(), address.c_str(), n + 1);
            return;
        }
    }
    if (std::find(m_entries.begin(), m_entries.end(), text) != m_entries.end()) {
        m_status = address + std::string(text::kIsInDirectory);
        m_deleteEnabled = true;
    } else if (occupiedCount() >= kAleDirectorySize) {
        m_status = text::kDirectoryFull;
    } else {
        m_addEnabled = true;
    }
}

void DirectoryEditor::selectEntry(int index)
{
    if (index >= 0 && index < occupiedCount())
        setEditText(m_entries[static_cast<std::size_t>(index)]);
}

bool DirectoryEditor::add()
{
    if (!m_addEnabled)
        return false;
    const ale_dbase before = m_programme.database;
    m_entries.push_back(m_address);
    storeEntries(before);
    setEditText({});
    return true;
}

bool DirectoryEditor::remove()
{
    if (!m_deleteEnabled)
        return false;
    const std::string question =
        text::format(text::kDeleteAddressQuestion.data(), m_address.c_str());
    if (m_notifier.ask(question, Buttons::YesNo) != Answer::Yes)
        return false;

    const ale_dbase before = m_programme.database;
    m_entries.erase(std::find(m_entries.begin(), m_entries.end(), m_address));
    std::uint8_t deleted = kSlotEmpty;
    for (int i = 0; i < kAleDirectorySize; ++i) {
        if (fieldText(before.directory[i]) == m_address) {
            deleted = static_cast<std::uint8_t>(i);
            break;
        }
    }
    for (int n = 0; n < kAleNetCount; ++n) {
        removeMemberReference(m_programme.database.nets[n], deleted);
        removeGlobalReference(m_programme.globalMembers.nets[n], deleted);
    }
    storeEntries(before);
    setEditText({});
    return true;
}

void DirectoryEditor::removeMemberReference(ale_net& net, std::uint8_t index)
{
    const auto slot = std::find(net.members.begin(), net.members.end(), index);
    if (slot == net.members.end())
        return;
    // The radio's own tools move 19 bytes here, the member slots and the all-call bytes after
    // them, and radios programmed by them carry the result; the same move keeps the records
    // identical to theirs.
    auto* bytes = reinterpret_cast<std::uint8_t*>(&net) + offsetof(ale_net, members);
    const auto first = static_cast<std::size_t>(slot - net.members.begin());
    std::memmove(bytes + first, bytes + first + 1, kMemberMoveSpan - first);
    net.members[kAleMemberSlots - 1] = kSlotEmpty;
}

void DirectoryEditor::removeGlobalReference(ale_global_member_group& group, std::uint8_t index)
{
    auto& slots = group.members;
    const auto slot = std::find_if(slots.begin(), slots.end(), [index](std::uint8_t value) {
        return value != kSlotEmpty && (value & ~kGlobalPriorityBit) == index;
    });
    if (slot == slots.end())
        return;
    std::move(slot + 1, slots.end(), slot);
    slots.back() = kSlotEmpty;
}

std::uint8_t DirectoryEditor::newIndexOf(const ale_dbase& before, std::uint8_t oldIndex) const
{
    if (oldIndex >= kAleDirectorySize)
        return kSlotEmpty;
    const std::string_view text = fieldText(before.directory[oldIndex]);
    const auto it = std::find(m_entries.begin(), m_entries.end(), text);
    return it == m_entries.end() ? kSlotEmpty : static_cast<std::uint8_t>(it - m_entries.begin());
}

void DirectoryEditor::storeEntries(const ale_dbase& before)
{
    ale_dbase& db = m_programme.database;
    for (int i = 0; i < kAleDirectorySize; ++i)
        setFieldText(db.directory[i],
                     i < occupiedCount() ? m_entries[static_cast<std::size_t>(i)] : "");
    for (auto& net : db.nets)
        for (auto& slot : net.members)
            if (slot < kAleDirectorySize)
                slot = newIndexOf(before, slot);
    for (auto& group : m_programme.globalMembers.nets) {
        for (auto& slot : group.members) {
            if (slot == kSlotEmpty)
                continue;
            const std::uint8_t index = newIndexOf(before, slot & ~kGlobalPriorityBit);
            slot = index == kSlotEmpty
                       ? kSlotEmpty
                       : static_cast<std::uint8_t>(index | (slot & kGlobalPriorityBit));
        }
    }
    for (auto& dial : db.autoDials)
        if (dial.address < kAleDirectorySize)
            dial.address = newIndexOf(before, dial.address);
}

} // namespace koral
