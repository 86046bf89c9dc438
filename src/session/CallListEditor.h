#pragma once

#include "session/CallRecord.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace koral {

class Notifier;

// The rules of the two call-list dialogs without a window: the "Stack List" (calls waiting
// for a reply) and the call log. Grid row 0 is the header; record k is row k.
class CallListEditor
{
public:
    struct Column
    {
        std::string_view header;
        int widthTwips;
    };
    static constexpr std::array<Column, 8> kColumns{{{"From", 1700},
                                                     {"To", 1700},
                                                     {"Date", 800},
                                                     {"Start", 800},
                                                     {"End", 800},
                                                     {"CallType", 850},
                                                     {"Net", 500},
                                                     {"Channel", 750}}};

    CallListEditor(std::vector<CallRecord>& list, Notifier& notifier);

    // Number of records (grid rows without the header).
    int recordCount() const { return int(m_list.size()); }
    // The text of grid row `row` (1-based) in column `column`.
    std::string cell(int row, int column) const;

    // "Delete": the record of a record row goes; the header row or no row changes nothing.
    bool deleteRow(int row);
    void deleteAll();
    // "Reply": the record of a record row, or the operator is told that the row is not one.
    std::optional<CallRecord> replyRecord(int row) const;

private:
    bool isRecordRow(int row) const { return row >= 1 && row <= recordCount(); }

    std::vector<CallRecord>& m_list;
    Notifier& m_notifier;
};

} // namespace koral
