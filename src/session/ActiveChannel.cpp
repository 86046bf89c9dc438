#include "session/ActiveChannel.h"

#include "koralapi/Builders.h"
#include "koralapi/Opcodes.h"
#include "koralapi/RadioCalls.h"
#include "radiodb/ChannelNumbers.h"
#include "session/RadioLink.h"
#include "session/SessionRecords.h"
#include "session/SessionState.h"

namespace koral {

ActiveChannel::ActiveChannel(RadioLink& link, SessionRecords& records, ViewState& view,
                             QObject* parent)
    : QObject(parent), m_link(link), m_records(records), m_view(view)
{}

int ActiveChannel::select(int number)
{
    if (!isChannelNumber(number))
        return 0;
    CRadioMessage message = RadioLink::newRequest();
    SetActiveChannel(&message, 0, number);
    if (!m_link.sendToRadio(message))
        return 0;
    emit selected(number);
    return 1;
}

int ActiveChannel::query(int& number, bool& scanning)
{
    CRadioMessage reply;
    if (!m_link.query(&ReportActiveChannel, op::ActiveChannel, reply))
        return 0;
    scanning = reply[6] != 0;
    number = reply[7];
    return 1;
}

int ActiveChannel::readCurrent(channel& record)
{
    return ReadCurrentChannel(m_link.engine(), &record) ? 1 : m_link.reportFailure();
}

int ActiveChannel::program(int number, const channel& record)
{
    if (!isChannelNumber(number))
        return 0;
    if (!ProgramChannelNumberN(m_link.engine(), &record, number))
        return m_link.reportFailure();
    m_records.radio.channelNo(number) = record;
    m_records.reference.channelNo(number) = record;
    emit programmed(number);
    return 1;
}

bool ActiveChannel::tableKnown() const
{
    return m_view.databaseRead;
}

bool ActiveChannel::isProgrammed(int number) const
{
    return isChannelNumber(number) && m_records.radio.channelNo(number).isProgrammed();
}

std::vector<int> ActiveChannel::receiving(std::uint32_t hertz) const
{
    std::vector<int> numbers;
    for (int number = 1; number <= kChannelCount; ++number) {
        const channel& c = m_records.radio.channelNo(number);
        if (c.isProgrammed() && c.rxFrequency.get() == hertz)
            numbers.push_back(number);
    }
    return numbers;
}

} // namespace koral
