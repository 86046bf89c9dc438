#include "aledb/NetConfigEditor.h"

#include "aledb/AleText.h"
#include "common/Notifier.h"
#include "common/Texts.h"

#include <algorithm>
#include <array>

namespace koral {

namespace {

constexpr std::array<int, 2> kScanRates{2, 5};
constexpr std::array<int, 5> kSoundings{0, 30, 60, 90, 120};
constexpr int kOccupancyPositions = 29; // "Off", then 300 to 3000 ms
constexpr int kMaxTuneTime = 20;

template <std::size_t N>
int positionOf(const std::array<int, N>& values, int value)
{
    const auto it = std::find(values.begin(), values.end(), value);
    return it == values.end() ? -1 : static_cast<int>(it - values.begin());
}

std::uint8_t byte(int value)
{
    return static_cast<std::uint8_t>(value);
}

} // namespace

NetConfigEditor::NetConfigEditor(const AleProgramme& programme, const AleSettings& settings,
                                 Notifier& notifier, CheckRunner runner)
    : m_programme(programme), m_settings(settings), m_notifier(notifier),
      m_runner(std::move(runner))
{
    selectNet(0);
}

void NetConfigEditor::selectNet(int index)
{
    m_net = std::clamp(index, 0, kAleNetCount - 1);
    fillControls();
}

void NetConfigEditor::fillControls()
{
    const ale_net& net = currentRecord();
    m_name = fieldText(net.name);
    m_selfAddress = fieldText(net.selfAddress);

    if (const int p = positionOf(kScanRates, net.scanRate); p >= 0)
        m_scanRate = p;
    else
        m_notifier.show(text::kScanRateIncorrect, Icon::Warning);

    if (const int p = positionOf(kSoundings, net.sounding); p >= 0)
        m_sounding = p;
    else
        m_notifier.show(text::kSoundingIncorrect, Icon::Warning);

    // 1 is taken as "Off" as well: older radios store it so.
    if (net.occupancyCheck <= 1)
        m_occupancy = 0;
    else if (net.occupancyCheck >= 3 && net.occupancyCheck <= 30)
        m_occupancy = net.occupancyCheck - 2;
    else
        m_notifier.show(text::kOccupancyCheckIncorrect, Icon::Warning);

    if (net.tuneTime <= kMaxTuneTime)
        m_tuneTime = net.tuneTime;

    if (net.allCall <= 3) {
        m_sendAllCall = net.allCall & 1;
        m_receiveAllCall = net.allCall & 2;
    } else {
        m_notifier.show(text::kAllCallValueIncorrect, Icon::Warning);
    }
}

bool NetConfigEditor::setNameText(std::string_view text)
{
    const auto& nets = m_programme.database.nets;
    bool accepted = true;
    m_name = text;
    if (!text.empty()) {
        for (int n = 0; n < kAleNetCount; ++n) {
            if (fieldText(nets[n].selfAddress) == text) {
                m_notifier.show(text::format(text::kIsSelfAddress.data(), m_name.c_str(), n + 1),
                                Icon::Warning);
                m_name = fieldText(current().name);
                accepted = false;
                break;
            }
        }
    }
    setFieldText(current().name, m_name);
    runCheck();
    return accepted;
}

bool NetConfigEditor::setSelfAddressText(std::string_view text)
{
    const auto& nets = m_programme.database.nets;
    bool accepted = true;
    m_selfAddress = text;
    if (!text.empty()) {
        for (int n = 0; n < kAleNetCount; ++n) {
            if (fieldText(nets[n].name) == text) {
                m_notifier.show(text::format(text::kIsNetName.data(), m_selfAddress.c_str(), n + 1),
                                Icon::Warning);
                m_selfAddress = fieldText(current().selfAddress);
                accepted = false;
                break;
            }
        }
    }
    setFieldText(current().selfAddress, m_selfAddress);
    runCheck();
    return accepted;
}

void NetConfigEditor::chooseScanRate(int position)
{
    if (position < 0 || position >= static_cast<int>(kScanRates.size())) {
        m_notifier.show(text::kScanRateIncorrect, Icon::Warning);
        return;
    }
    m_scanRate = position;
    current().scanRate = byte(kScanRates[static_cast<std::size_t>(position)]);
}

void NetConfigEditor::chooseSounding(int position)
{
    if (position < 0 || position >= static_cast<int>(kSoundings.size())) {
        m_notifier.show(text::kSoundingValueIncorrect, Icon::Warning);
        return;
    }
    m_sounding = position;
    current().sounding = byte(kSoundings[static_cast<std::size_t>(position)]);
}

void NetConfigEditor::chooseOccupancy(int position)
{
    // The occupancy list reports with the sounding list's message.
    if (position < 0 || position >= kOccupancyPositions) {
        m_notifier.show(text::kSoundingValueIncorrect, Icon::Warning);
        return;
    }
    m_occupancy = position;
    current().occupancyCheck = byte(position == 0 ? 0 : position + 2);
}

void NetConfigEditor::chooseTuneTime(int position)
{
    if (position < 0 || position > kMaxTuneTime)
        return;
    m_tuneTime = position;
    current().tuneTime = byte(position);
}

void NetConfigEditor::setSendAllCall(bool on)
{
    m_sendAllCall = on;
    storeAllCall();
}

void NetConfigEditor::setReceiveAllCall(bool on)
{
    m_receiveAllCall = on;
    storeAllCall();
}

void NetConfigEditor::storeAllCall()
{
    current().allCall = byte((m_sendAllCall ? 1 : 0) | (m_receiveAllCall ? 2 : 0));
}

std::uint8_t& NetConfigEditor::optionByte(AleProgramme& programme, Option which)
{
    ale_options& o = programme.database.options;
    AleExtraOptions& x = programme.extraOptions;
    switch (which) {
    case Option::Alert:
        return o.alert;
    case Option::ExternalAlarm:
        return o.externalAlarm;
    case Option::QuickPttCall:
        return o.quickPttCall;
    case Option::AutoAddress:
        return o.autoAddress;
    case Option::Multinet:
        return x.multinet;
    case Option::Anycall:
        return o.anycall;
    case Option::Vcds:
        return x.vcds;
    case Option::Wildcard:
        return o.wildcard;
    case Option::LinkAfterBidirectional:
        return x.linkAfterBidr;
    case Option::InLink:
        return o.inLink;
    case Option::Amd:
        break;
    }
    return o.amdMessage;
}

bool NetConfigEditor::option(Option which) const
{
    return optionByte(const_cast<AleProgramme&>(m_programme), which) == 1;
}

void NetConfigEditor::setOption(Option which, bool on)
{
    optionByte(m_programme, which) = on ? 1 : 0;
    // Both records carry the multinet setting; the file keeps one value for the two.
    if (which == Option::Multinet)
        m_programme.database.options.multinet = on ? 1 : 0;
}

void NetConfigEditor::setAcceptLinkTimeout(int value)
{
    m_programme.database.options.acceptLinkTimeout = byte(std::clamp(value, 0, 2));
}

void NetConfigEditor::setPttTimeout(int minutes)
{
    m_programme.database.options.pttTimeout = byte(std::clamp(minutes, 0, 10));
}

void NetConfigEditor::setMinLqaScore(int score)
{
    m_programme.database.options.minLqaScore = byte(std::clamp(score, 0, 100));
}

void NetConfigEditor::runCheck()
{
    if (m_runner) {
        m_runner(m_programme);
        return;
    }
    m_check = checkAleConfiguration(m_programme.database, m_programme.globalMembers,
                                    m_settings.globalMembers, m_notifier);
}

} // namespace koral
