#include "session/LinkQualityController.h"

#include "aledb/ale_dbase.h"
#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/Builders.h"
#include "session/AleCallController.h"
#include "session/CallStore.h"
#include "session/ChannelController.h"
#include "session/MessageDispatcher.h"
#include "session/RadioLink.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>

namespace koral {

namespace {

constexpr int kBiDirectionalStation = 37;
constexpr int kBiDirectionalNet = 38;
constexpr int kSoundingOrAborted = 62;

} // namespace

LinkQualityController::LinkQualityController(RadioLink& link, ViewState& view, CallStore& calls,
                                             MessageDispatcher& dispatcher,
                                             ChannelController& channels, AleCallController& ale,
                                             Notifier& notifier, QObject* parent)
    : QObject(parent), m_link(link), m_view(view), m_calls(calls), m_dispatcher(dispatcher),
      m_channels(channels), m_ale(ale), m_notifier(notifier)
{
    // The radio reports when an exchange starts and ends (or refuses it).
    connect(&m_dispatcher, &MessageDispatcher::linkIndicator, this, [this](int which, bool on) {
        if (which == 1)
            setIndicator(m_bidirectional, on);
        else if (which == 2)
            setIndicator(m_sounding, on);
        if (!m_bidirectional)
            m_callInProgress = false;
    });
    connect(&m_dispatcher, &MessageDispatcher::bidirectionalIndicatorOff, this, [this] {
        setIndicator(m_bidirectional, false);
        m_callInProgress = false;
    });
}

void LinkQualityController::refresh()
{
    m_addressRow = 0;
    setType(m_type);
}

void LinkQualityController::setType(Type type)
{
    m_type = type;
    // A bidirectional exchange starts on the first channel; sounding on all of them.
    const int channels = int(m_ale.channelChoices().size());
    m_channelRow = type == Type::BiDirectional && channels > 1 ? 1 : 0;
    emit changed();
}

void LinkQualityController::selectAddress(int row)
{
    if (row >= 0 && row < int(m_ale.addresses().size()))
        m_addressRow = row;
    emit changed();
}

void LinkQualityController::selectChannel(int row)
{
    if (channelEnabled() && row >= 0 && row < int(m_ale.channelChoices().size()))
        m_channelRow = row;
    emit changed();
}

std::string LinkQualityController::frequencyText() const
{
    return m_ale.frequencyOfRow(m_channelRow);
}

std::string LinkQualityController::channelValueText() const
{
    return m_ale.channelValueOfRow(m_channelRow);
}

bool LinkQualityController::sendEnabled() const
{
    if (m_callInProgress || m_ale.addresses().empty())
        return false;
    return m_type == Type::BiDirectional ? !m_bidirectional : !m_bidirectional && !m_sounding;
}

bool LinkQualityController::abortEnabled() const
{
    return m_type == Type::BiDirectional ? m_bidirectional : m_sounding;
}

void LinkQualityController::setIndicator(bool& indicator, bool on)
{
    indicator = on;
    emit changed();
}

int LinkQualityController::send()
{
    if (m_channels.scanState() == ChannelController::kNoScanControl) {
        m_notifier.show(text::kScanButtonDisabled);
        return 0;
    }
    if (!m_ale.databaseRead())
        return 0;
    const bool scanning = m_channels.scanState() == ChannelController::kScanning;
    if (m_type == Type::Sounding && !scanning) {
        // The radio sounds the channels of the net it scans: with no scan there is nothing to
        // sound on.
        m_notifier.show(text::kSoundingNeedsScan);
        return 0;
    }

    CRadioMessage request = RadioLink::newRequest();
    if (m_type == Type::BiDirectional) {
        const int channel = m_ale.channelOfRow(m_channelRow);
        const std::array<signed char, 2> pair =
            channel == 0 ? std::array<signed char, 2>{-1, -1}
                         : std::array<signed char, 2>{0, static_cast<signed char>(channel)};
        std::array<char, AleCallController::kMessageBytes> message{};
        std::transform(
            m_message.begin(),
            m_message.begin() + std::min(m_message.size(), AleCallController::kMessageBytes - 1),
            message.begin(), [](char c) { return char(std::toupper((unsigned char)c)); });
        if (!m_message.empty() && std::find(m_calls.messages().begin(), m_calls.messages().end(),
                                            m_message) == m_calls.messages().end())
            m_calls.messages().push_back(m_message);
        const std::string& to = m_ale.addresses()[std::size_t(m_addressRow)];
        std::array<char, kAleAddressSize> address{};
        std::memcpy(address.data(), to.data(), std::min(to.size(), kAleAddressSize - 1));
        const int addressLength = int(std::strlen(address.data())) + 1;
        const int messageLength = int(std::strlen(message.data())) + 1;
        if (to != m_ale.netName()) {
            BiDirectionalStation(&request, address.data(), addressLength, pair.data(),
                                 message.data(), messageLength);
            m_view.callState = kBiDirectionalStation;
        } else {
            BiDirectionalNet(&request, address.data(), addressLength, pair.data(), message.data(),
                             messageLength);
            m_view.callState = kBiDirectionalNet;
        }
        m_bidirectional = true;
        m_callInProgress = true;
    } else {
        SetSoundOnOff(&request, 0, 1);
        m_sounding = true;
        m_view.callState = kSoundingOrAborted;
    }
    // A send that fails leaves the indicator on: Abort recovers.
    const int sent = m_link.sendToRadio(request);
    emit changed();
    return sent;
}

int LinkQualityController::abort()
{
    if (!m_ale.databaseRead())
        return 0;
    int sent = 0;
    if (m_type == Type::BiDirectional) {
        if (!m_bidirectional)
            return 0;
        m_bidirectional = false;
        sent = m_dispatcher.abortLink();
        m_view.callState = kSoundingOrAborted;
        m_callInProgress = false;
    } else {
        if (!m_sounding)
            return 0;
        m_sounding = false;
        CRadioMessage request = RadioLink::newRequest();
        SetSoundOnOff(&request, 0, 0);
        sent = m_link.sendToRadio(request);
    }
    emit changed();
    return sent;
}

} // namespace koral
