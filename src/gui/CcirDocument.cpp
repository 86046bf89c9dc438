#include "gui/CcirDocument.h"

#include <cstring>

namespace koral {

CcirDocument::CcirDocument()
{
    record.preamble = 6; // as a .ccr file without the key loads
    markClean();
}

bool CcirDocument::isModified() const
{
    return std::memcmp(&record, &m_clean, sizeof record) != 0 || info.comment != m_cleanComment ||
           info.userName != m_cleanUserName;
}

void CcirDocument::markClean()
{
    m_clean = record;
    m_cleanComment = info.comment;
    m_cleanUserName = info.userName;
}

} // namespace koral
