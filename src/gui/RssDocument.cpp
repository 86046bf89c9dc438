#include "gui/RssDocument.h"

#include "radiodb/RadioSanitiser.h"

#include <algorithm>

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

bool RssDocument::isEmpty() const
{
    const auto programmed = [](const auto& item) { return item.isProgrammed(); };
    return std::none_of(record.channels.begin(), record.channels.end(), programmed) &&
           std::none_of(record.groups.begin(), record.groups.end(), programmed) &&
           fieldText(record.serialNumber).empty() && fieldText(record.radioCode).empty();
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
