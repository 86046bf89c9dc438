#include "session/AleCallController.h"

#include "aledb/AlePresence.h"
#include "aledb/AleText.h"
#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/Builders.h"
#include "koralapi/Opcodes.h"
#include "radiodb/Frequency.h"
#include "session/CallStore.h"
#include "session/ChannelController.h"
#include "session/MessageDispatcher.h"
#include "session/RadioLink.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace koral {

namespace {

constexpr int kCalling = 31;
constexpr int kCallingNet = 32;
constexpr int kCallingAll = 33;
constexpr int kCallingWhileLinked = 54;
constexpr int kReplacing = 39;
// The channel a call record names when the radio chose the channel.
constexpr std::string_view kAutomaticChannel = "255";

// A channel the radio can call on: programmed, and receiving inside the band.
bool usable(const channel& c)
{
    return c.isProgrammed() && c.rxFrequency.get() <= kMaxHz;
}

} // namespace

AleCallController::AleCallController(RadioLink& link, ViewState& view, SessionRecords& records,
                                     CallStore& calls, MessageDispatcher& dispatcher,
                                     ChannelController& channels, Notifier& notifier,
                                     QObject* parent)
    : QObject(parent), m_link(link), m_view(view), m_records(records), m_calls(calls),
      m_dispatcher(dispatcher), m_channels(channels), m_notifier(notifier)
{
    connect(&m_dispatcher, &MessageDispatcher::callControlsChanged, this, [this] {
        if (m_dispatcher.callControls().idle)
            m_callInProgress = false;
        emit changed();
    });
}

std::string AleCallController::netName() const
{
    return std::string(fieldText(m_records.ale.nets[std::size_t(m_net)].name));
}

void AleCallController::refresh()
{
    const AlePresenceFlags present = derivePresenceFlags(m_records.ale);
    // The net the radio scans, or the first net in use.
    m_net = m_channels.selectedNet();
    if (!present[std::size_t(presence::kNets + m_net)]) {
        for (m_net = 0; m_net < kAleNetCount - 1; ++m_net)
            if (present[std::size_t(presence::kNets + m_net)])
                break;
    }
    m_addresses.clear();
    for (const AleAddress& address : m_records.ale.directory)
        if (!fieldText(address).empty())
            m_addresses.emplace_back(fieldText(address));
    m_addresses.emplace_back(text::kAllCall);
    m_addresses.push_back(netName());

    m_channelChoices.assign(1, std::string(text::kAutoChannel));
    for (int number = 1; number <= kChannelCount; ++number)
        if (usable(m_records.radio.channelNo(number)))
            m_channelChoices.push_back(std::to_string(number));
    m_channelRow = std::clamp(m_channelRow, 0, int(m_channelChoices.size()) - 1);
    m_stationRow = 0;
    setCallType(CallType::Station);
}

void AleCallController::setCallType(CallType type)
{
    m_type = type;
    const int count = int(m_addresses.size());
    switch (type) {
    case CallType::Station:
        m_addressRow = count > 2 ? m_stationRow : -1;
        break;
    case CallType::Net:
        m_addressRow = count - 1;
        break;
    case CallType::All:
        m_addressRow = count - 2;
        m_channelRow = 0;
        break;
    }
    emit changed();
}

void AleCallController::selectAddress(int row)
{
    const int count = int(m_addresses.size());
    if (row < 0 || row >= count)
        return;
    if (row == count - 2) {
        setCallType(CallType::All);
    } else if (row == count - 1) {
        setCallType(CallType::Net);
    } else {
        m_stationRow = row;
        setCallType(CallType::Station);
    }
}

void AleCallController::selectChannel(int row)
{
    if (row >= 0 && row < int(m_channelChoices.size()) && channelEnabled())
        m_channelRow = row;
    emit changed();
}

int AleCallController::channelOfRow(int row) const
{
    if (row <= 0 || row >= int(m_channelChoices.size()))
        return 0;
    return std::atoi(m_channelChoices[std::size_t(row)].c_str());
}

std::string AleCallController::frequencyOfRow(int row) const
{
    const int number = channelOfRow(row);
    if (number == 0)
        return {};
    char text[32];
    std::snprintf(text, sizeof text, "%.5f",
                  double(mhzOfHertz(m_records.radio.channelNo(number).rxFrequency.get())));
    return text + std::string(text::kMhzSuffix);
}

std::string AleCallController::channelValueOfRow(int row) const
{
    const int number = channelOfRow(row);
    return number == 0 ? std::string(" ") : std::to_string(m_calls.channelValue(number));
}

std::string AleCallController::frequencyText() const
{
    return frequencyOfRow(m_channelRow);
}

std::string AleCallController::channelValueText() const
{
    return channelValueOfRow(m_channelRow);
}

bool AleCallController::stackAllowed()
{
    return databaseRead();
}

int AleCallController::reply(const CallRecord& record)
{
    if (!databaseRead())
        return 0;
    if (!sendEnabled()) {
        m_notifier.show(text::byId(text::id::CommandInProgress));
        return 0;
    }
    bool outgoing = false;
    for (const ale_net& net : m_records.ale.nets)
        outgoing = outgoing || (!record.from.empty() && fieldText(net.selfAddress) == record.from);
    const std::string& party = outgoing ? record.to : record.from;
    const std::string address = party.substr(0, kAleAddressSize - 1);
    // Stations: every row before "All Call" and the net's name.
    const auto stations = m_addresses.end() - 2;
    auto found = std::find(m_addresses.begin(), stations, address);
    if (found == stations)
        found = m_addresses.insert(stations, address);
    m_stationRow = int(found - m_addresses.begin());
    const auto channel =
        std::find(m_channelChoices.begin() + 1, m_channelChoices.end(), record.channel);
    m_channelRow = channel == m_channelChoices.end() ? 0 : int(channel - m_channelChoices.begin());
    setCallType(CallType::Station);
    return send();
}

bool AleCallController::sendEnabled() const
{
    return !m_callInProgress && !m_view.linked && !m_addresses.empty();
}

bool AleCallController::abortEnabled() const
{
    return m_callInProgress || m_view.linked;
}

bool AleCallController::databaseRead()
{
    if (m_view.databaseRead)
        return true;
    m_notifier.show(text::kNoDatabaseRead);
    return false;
}

int AleCallController::send()
{
    if (!databaseRead() || m_addressRow < 0)
        return 0;
    const bool automatic = m_channelRow == 0;
    const std::string channelText = m_channelChoices[std::size_t(m_channelRow)];
    // The call goes out on the channel the panel shows.
    if (!automatic)
        m_channels.selectChannelText(channelText);
    const std::array<signed char, 2> pair =
        automatic ? std::array<signed char, 2>{-1, -1}
                  : std::array<signed char, 2>{
                        0, static_cast<signed char>(std::atoi(channelText.c_str()))};

    std::array<char, kMessageBytes> message{};
    std::transform(m_message.begin(),
                   m_message.begin() + std::min(m_message.size(), kMessageBytes - 1),
                   message.begin(), [](char c) { return char(std::toupper((unsigned char)c)); });
    const int messageLength = int(std::strlen(message.data())) + 1;
    if (!m_message.empty() && std::find(m_calls.messages().begin(), m_calls.messages().end(),
                                        m_message) == m_calls.messages().end())
        m_calls.messages().push_back(m_message);

    const std::string& to = m_addresses[std::size_t(m_addressRow)];
    std::array<char, kAleAddressSize> address{};
    std::memcpy(address.data(), to.data(), std::min(to.size(), kAleAddressSize - 1));
    const int addressLength = int(std::strlen(address.data())) + 1;

    CRadioMessage request = RadioLink::newRequest();
    switch (m_type) {
    case CallType::Station:
        StationCall(&request, address.data(), addressLength, pair.data(), message.data(),
                    messageLength);
        m_view.lastOpcode = op::StationCall;
        m_view.callState = kCalling;
        break;
    case CallType::Net:
        NetCall(&request, address.data(), addressLength, pair.data(), message.data(),
                messageLength);
        m_view.lastOpcode = op::NetCall;
        m_view.callState = kCallingNet;
        break;
    case CallType::All:
        AllCall(&request, pair.data(), message.data(), messageLength);
        m_view.lastOpcode = op::AllCall;
        m_view.callState = kCallingAll;
        break;
    }
    if (m_view.linked)
        m_view.callState = kCallingWhileLinked;
    // A send that fails leaves the call in progress: Abort recovers.
    m_callInProgress = true;
    const int sent = m_link.sendToRadio(request);

    CallRecord& record = m_calls.currentCall();
    const std::tm now = localTimeNow();
    record = CallRecord{};
    record.to = to;
    record.net = netName();
    record.from = std::string(fieldText(m_records.ale.nets[std::size_t(m_net)].selfAddress));
    record.callType = std::string(text::kCallTypeStation);
    record.channel = automatic ? std::string(kAutomaticChannel) : channelText;
    record.message = m_message;
    record.date = callDateText(now);
    record.start = callTimeText(now);
    emit changed();
    return sent;
}

int AleCallController::replace()
{
    if (!databaseRead())
        return 0;
    m_callInProgress = true;
    CRadioMessage request = RadioLink::newRequest();
    ReplaceLinkChannel(&request, 1, 1, 0);
    m_view.callState = kReplacing;
    emit changed();
    return m_link.sendToRadio(request);
}

int AleCallController::abort()
{
    if (!databaseRead())
        return 0;
    const int sent = m_dispatcher.abortLink();
    // The radio confirms nothing: the operator's abort ends the call here and now.
    m_dispatcher.setCallControls(5);
    m_callInProgress = false;
    emit changed();
    return sent;
}

} // namespace koral
