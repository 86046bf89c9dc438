#pragma once

// The rules of the "Self Address Configuration" dialog: the station's own CCIR identity in
// its 4-digit and its 6-digit form. A text that is not an identity of its form shows the
// warning line and disables OK; the record keeps its last valid value.

#include "aledb/ccir_dbase.h"

#include <string>
#include <string_view>

namespace koral {

class CcirSelfAddressEditor
{
public:
    explicit CcirSelfAddressEditor(const ccir_dbase& record);

    const std::string& text4() const { return m_text4; }
    const std::string& text6() const { return m_text6; }
    void setText4(std::string_view text);
    void setText6(std::string_view text);

    const std::string& warning() const { return m_warning; }
    bool okEnabled() const { return m_warning.empty(); }

    const ccir_dbase& record() const { return m_record; }

private:
    void check();

    ccir_dbase m_record;
    std::string m_text4;
    std::string m_text6;
    std::string m_warning;
};

} // namespace koral
