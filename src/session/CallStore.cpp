#include "session/CallStore.h"

namespace koral {

namespace {

void append(std::vector<CallRecord>& list, const CallRecord& record, std::size_t capacity)
{
    if (list.size() >= capacity)
        list.erase(list.begin(), list.begin() + static_cast<long>(list.size() - capacity + 1));
    list.push_back(record);
}

} // namespace

CallStore::CallStore(std::filesystem::path dataDirectory)
    : m_dataDirectory(std::move(dataDirectory))
{}

void CallStore::recordFinishedCall(const std::tm& end)
{
    m_current.end = callTimeText(end);
    append(m_log, m_current, kLogLayout.capacity);
    append(m_stack, m_current, kStackLayout.capacity);
}

int CallStore::channelValue(int channel) const
{
    return channel >= 1 && channel <= 200 ? m_channelValues[std::size_t(channel)] : 0;
}

void CallStore::setChannelValue(int channel, int value)
{
    if (channel >= 1 && channel <= 200)
        m_channelValues[std::size_t(channel)] = value;
}

void CallStore::load()
{
    m_stack = loadCallList(m_dataDirectory / kStackLayout.fileName, kStackLayout);
    m_log = loadCallList(m_dataDirectory / kLogLayout.fileName, kLogLayout);
    m_messages = loadMessageList(m_dataDirectory / kMessageFileName);
}

bool CallStore::save(std::string* error) const
{
    std::error_code ignored;
    std::filesystem::create_directories(m_dataDirectory, ignored);
    bool ok = saveCallList(m_dataDirectory / kStackLayout.fileName, kStackLayout, m_stack, error);
    ok = saveCallList(m_dataDirectory / kLogLayout.fileName, kLogLayout, m_log, error) && ok;
    return saveMessageList(m_dataDirectory / kMessageFileName, m_messages, error) && ok;
}

} // namespace koral
