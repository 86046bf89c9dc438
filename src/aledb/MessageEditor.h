#pragma once

// The rules of the "Message Configuration" dialog: ten short messages, one shown at a time.

#include "aledb/ale_dbase.h"

#include <string>
#include <string_view>

namespace koral {

class MessageEditor
{
public:
    explicit MessageEditor(const ale_dbase& db);

    int current() const { return m_current; }
    // The spin's value, clamped to 0..9; shows that message.
    void setCurrent(int number);

    // The text shown in the edit.
    const std::string& text() const { return m_text; }
    // A typed text: stored at once when valid; while it is not, OK and the spin are disabled
    // and the warning is shown, and the stored message keeps its last valid text.
    void setText(std::string_view text);

    // Every character from the blank to the underscore (32..95): upper case, digits and
    // punctuation. Lower case is refused here although files may carry it.
    static bool isValid(std::string_view text);

    bool okEnabled() const { return m_valid; }
    bool spinEnabled() const { return m_valid; }
    bool warningVisible() const { return !m_valid; }
    int occupiedCount() const;

    // The edited messages; the caller stores them on OK.
    const ale_dbase& database() const { return m_db; }

private:
    ale_dbase m_db;
    int m_current = 0;
    std::string m_text;
    bool m_valid = true;
};

} // namespace koral
