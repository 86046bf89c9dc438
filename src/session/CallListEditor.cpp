#include "session/CallListEditor.h"

#include "common/Notifier.h"
#include "common/Texts.h"

namespace koral {

CallListEditor::CallListEditor(std::vector<CallRecord>& list, Notifier& notifier)
    : m_list(list), m_notifier(notifier)
{}

std::string CallListEditor::cell(int row, int column) const
{
    if (!isRecordRow(row))
        return {};
    const CallRecord& r = m_list[std::size_t(row - 1)];
    const std::string* fields[] = {&r.from, &r.to,       &r.date, &r.start,
                                   &r.end,  &r.callType, &r.net,  &r.channel};
    return column >= 0 && column < int(kColumns.size()) ? *fields[column] : std::string();
}

bool CallListEditor::deleteRow(int row)
{
    if (!isRecordRow(row))
        return false;
    m_list.erase(m_list.begin() + (row - 1));
    return true;
}

void CallListEditor::deleteAll()
{
    m_list.clear();
}

std::optional<CallRecord> CallListEditor::replyRecord(int row) const
{
    if (isRecordRow(row))
        return m_list[std::size_t(row - 1)];
    m_notifier.show(text::format(text::kGridLineNotValid.data(), row < 0 ? 0 : row));
    return std::nullopt;
}

} // namespace koral
