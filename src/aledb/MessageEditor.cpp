#include "aledb/MessageEditor.h"

#include "aledb/AleText.h"

#include <algorithm>

namespace koral {

MessageEditor::MessageEditor(const ale_dbase& db) : m_db(db)
{
    setCurrent(0);
}

void MessageEditor::setCurrent(int number)
{
    m_current = std::clamp(number, 0, kAleMessageCount - 1);
    m_text = fieldText(m_db.messages[m_current]);
    m_valid = true;
}

bool MessageEditor::isValid(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) {
        const auto code = static_cast<unsigned char>(c);
        return code >= 32 && code <= 95;
    });
}

void MessageEditor::setText(std::string_view text)
{
    m_text = text;
    m_valid = isValid(text);
    if (m_valid)
        setFieldText(m_db.messages[m_current], text);
}

int MessageEditor::occupiedCount() const
{
    return static_cast<int>(std::count_if(m_db.messages.begin(), m_db.messages.end(),
                                          [](const AleMessage& m) { return m[0] != '\0'; }));
}

} // namespace koral
