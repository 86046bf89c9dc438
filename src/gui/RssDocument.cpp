#include "gui/RssDocument.h"

#include "radiodb/RadioSanitiser.h"

namespace koral {

RssDocument::RssDocument()
{
    for (channel& ch : record.channels) {
        ch.power = 5;
        ch.sideband = 1;
    }
    record.groups.fill({});
    for (Group& group : record.groups)
        group.guardChannel.set(kNoChannel);
    sanitise(record);
    markClean();
}

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
