#include "gui/RssDocument.h"

#include "radiodb/RadioSanitiser.h"

namespace koral {

bool RssDocument::isModified() const
{
    return compare(record, m_cleanRecord) != 0 || ccirNumbers != m_cleanCcir || isb != m_cleanIsb ||
           info.comment != m_cleanComment || info.userName != m_cleanUserName;
}

void RssDocument::markClean()
{
    m_cleanRecord = record;
    m_cleanCcir = ccirNumbers;
    m_cleanIsb = isb;
    m_cleanComment = info.comment;
    m_cleanUserName = info.userName;
}

} // namespace koral
