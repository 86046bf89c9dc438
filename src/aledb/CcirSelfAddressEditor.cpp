#include "aledb/CcirSelfAddressEditor.h"

#include "aledb/CcirIdentity.h"
#include "common/Texts.h"

namespace koral {

CcirSelfAddressEditor::CcirSelfAddressEditor(const ccir_dbase& record)
    : m_record(record), m_text4(ccir::identityText(record.selfId4.get(), 4)),
      m_text6(ccir::identityText(record.selfId6.get(), 6))
{}

void CcirSelfAddressEditor::setText4(std::string_view text)
{
    m_text4 = text;
    if (const auto value = ccir::parseIdentity(text, 4))
        m_record.selfId4.set(std::uint16_t(*value));
    check();
}

void CcirSelfAddressEditor::setText6(std::string_view text)
{
    m_text6 = text;
    if (const auto value = ccir::parseIdentity(text, 6))
        m_record.selfId6.set(*value);
    check();
}

void CcirSelfAddressEditor::check()
{
    m_warning.clear();
    if (!ccir::parseIdentity(m_text4, 4))
        m_warning = text::format(text::kCcirIdentityDigits.data(), m_text4.c_str(), 4);
    else if (!ccir::parseIdentity(m_text6, 6))
        m_warning = text::format(text::kCcirIdentityDigits.data(), m_text6.c_str(), 6);
}

} // namespace koral
