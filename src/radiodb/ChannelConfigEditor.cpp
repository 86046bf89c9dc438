#include "radiodb/ChannelConfigEditor.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "radiodb/Frequency.h"
#include "radiodb/RadioValueLists.h"

#include <algorithm>
#include <cstdlib>

namespace koral {

namespace {

// The Mode list offers ISB, its fourth entry, only when the radio does.
constexpr std::size_t kModesWithoutIsb = 3;

// The record byte behind each list, in List order.
constexpr std::array<std::uint8_t channel::*, 5> kListBytes{
    &channel::power, &channel::sideband, &channel::modulation, &channel::agc, &channel::bandwidth};

} // namespace

ChannelConfigEditor::ChannelConfigEditor(Setup setup)
    : m_channels(setup.channels), m_ccirNumbers(setup.ccirNumbers), m_isbOffered(setup.isbOffered),
      m_notifier(setup.notifier), m_channelNumber(std::clamp(setup.firstChannel, 1, kChannelCount))
{
    load();
}

bool ChannelConfigEditor::isVisible(Edit edit) const
{
    switch (m_type) {
    case FrequencyType::Simplex:
        return edit == Edit::Simplex;
    case FrequencyType::HalfDuplex:
        return edit == Edit::HalfDuplexTx || edit == Edit::HalfDuplexRx;
    case FrequencyType::TransmitOnly:
        return edit == Edit::TransmitOnly;
    case FrequencyType::ReceiveOnly:
        return edit == Edit::ReceiveOnly;
    }
    return false;
}

ValueList ChannelConfigEditor::entries(List list) const
{
    switch (list) {
    case List::Power:
        return entriesOf(values::kPower);
    case List::Band:
        return entriesOf(values::kSideband);
    case List::Mode: {
        const ValueList modes = entriesOf(values::kModulation);
        return m_isbOffered ? modes : modes.first(kModesWithoutIsb);
    }
    case List::Agc:
        return entriesOf(values::kAgc);
    case List::Bandwidth:
        break;
    }
    return entriesOf(values::kBandwidth);
}

int ChannelConfigEditor::selectedIndex(List list) const
{
    const ValueList shown = entries(list);
    const int value = m_selection[static_cast<std::size_t>(list)];
    const auto found = std::find_if(shown.begin(), shown.end(), [value](const ValueText& entry) {
        return entry.value == value;
    });
    return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
}

float ChannelConfigEditor::mhz(Edit edit) const
{
    switch (edit) {
    case Edit::Simplex:
        return m_simplex;
    case Edit::HalfDuplexTx:
    case Edit::TransmitOnly:
        return m_tx;
    case Edit::HalfDuplexRx:
    case Edit::ReceiveOnly:
        break;
    }
    return m_rx;
}

void ChannelConfigEditor::setChannelNumber(int number)
{
    store();
    m_channelNumber = std::clamp(number, 1, kChannelCount);
    load();
    changed();
}

void ChannelConfigEditor::load()
{
    const channel& ch = m_channels[static_cast<std::size_t>(channelIndex(m_channelNumber))];
    for (std::size_t list = 0; list < kListBytes.size(); ++list)
        m_selection[list] = ch.*kListBytes[list];
    if (m_ccirNumbers)
        m_ccirNumber = (*m_ccirNumbers)[static_cast<std::size_t>(channelIndex(m_channelNumber))];

    m_tx = mhzOfHertz(ch.txFrequency.get());
    m_rx = mhzOfHertz(ch.rxFrequency.get());
    if (m_tx == m_rx) {
        m_type = FrequencyType::Simplex;
        m_simplex = m_tx;
    } else if (m_tx == 0) {
        m_type = FrequencyType::ReceiveOnly;
        m_simplex = m_rx;
    } else if (m_rx != 0) {
        m_type = FrequencyType::HalfDuplex;
        m_simplex = m_rx;
    } else {
        m_type = FrequencyType::TransmitOnly;
        m_simplex = m_tx;
    }
    showFrequencies();
    m_okEnabled = true;
    zeroCheck();
}

void ChannelConfigEditor::store()
{
    channel& ch = m_channels[static_cast<std::size_t>(channelIndex(m_channelNumber))];
    for (std::size_t list = 0; list < kListBytes.size(); ++list)
        ch.*kListBytes[list] = static_cast<std::uint8_t>(m_selection[list]);
    // The "Tx:" and "Rx:" texts always hold the current digits; they, not the floats, give
    // the decimals, so no rounding error reaches the record.
    ch.txFrequency.set(hertzFromText(m_tx, text(Edit::HalfDuplexTx)));
    ch.rxFrequency.set(hertzFromText(m_rx, text(Edit::HalfDuplexRx)));
    if (m_ccirNumbers)
        (*m_ccirNumbers)[static_cast<std::size_t>(channelIndex(m_channelNumber))] =
            static_cast<std::uint16_t>(m_ccirNumber);
}

void ChannelConfigEditor::showFrequencies()
{
    m_texts[index(Edit::Simplex)] = frequencyDisplayText(m_simplex);
    m_texts[index(Edit::HalfDuplexTx)] = frequencyDisplayText(m_tx);
    m_texts[index(Edit::HalfDuplexRx)] = frequencyDisplayText(m_rx);
    m_texts[index(Edit::TransmitOnly)] = frequencyDisplayText(m_tx);
    m_texts[index(Edit::ReceiveOnly)] = frequencyDisplayText(m_rx);
}

bool ChannelConfigEditor::zeroCheck()
{
    const bool bothZero = m_tx == 0 && m_rx == 0;
    m_warning = bothZero ? std::string(text::kBothFrequenciesZero) : std::string();
    return !bothZero;
}

void ChannelConfigEditor::duplexCheck()
{
    const bool equalPair = m_type == FrequencyType::HalfDuplex && m_tx == m_rx && m_rx != 0;
    m_warning = equalPair ? std::string(text::kDuplexFrequenciesEqual) : std::string();
    m_okEnabled = !equalPair;
}

bool ChannelConfigEditor::checkLimits(std::string_view shown, float value, bool transmit,
                                      bool receive)
{
    if (transmit && !inRange(value, FrequencyRange::Transmit)) {
        m_warning = std::string(shown) + std::string(text::kTxFrequencyOutOfRange);
        return false;
    }
    if (receive && !inRange(value, FrequencyRange::Receive)) {
        m_warning = std::string(shown) + std::string(text::kRxFrequencyOutOfRange);
        return false;
    }
    return true;
}

void ChannelConfigEditor::setFrequencyType(FrequencyType type)
{
    m_type = type;
    switch (type) {
    case FrequencyType::Simplex:
        if (!checkLimits(frequencyDisplayText(m_simplex), m_simplex, true, true)) {
            m_okEnabled = false;
            changed();
            return;
        }
        m_tx = m_rx = m_simplex;
        break;
    case FrequencyType::HalfDuplex:
        m_simplex = m_rx;
        break;
    case FrequencyType::TransmitOnly:
        m_simplex = m_tx;
        m_rx = 0;
        break;
    case FrequencyType::ReceiveOnly:
        m_simplex = m_rx;
        m_tx = 0;
        break;
    }
    showFrequencies();
    const bool notBothZero = zeroCheck();
    m_okEnabled = true;
    if (notBothZero)
        duplexCheck();
    changed();
}

void ChannelConfigEditor::setText(Edit edit, std::string_view typed)
{
    m_texts[index(edit)] = std::string(typed);
    m_okEnabled = false;
    const std::string value = typed.empty() ? std::string("0") : std::string(typed);
    if (value.size() > 9 && m_notifier != nullptr) {
        // The edits hold 8 characters, so only a programming error gets here.
        m_notifier->show(
            text::format("%s %d", text::kLengthDiagnostic.data(), static_cast<int>(value.size())));
    }
    if (!isFrequencyText(value)) {
        m_warning = value + std::string(text::kInvalidFrequency);
        changed();
        return;
    }
    const float mhz = std::strtof(value.c_str(), nullptr);
    const bool transmit = edit != Edit::HalfDuplexRx && edit != Edit::ReceiveOnly;
    const bool receive = edit != Edit::HalfDuplexTx && edit != Edit::TransmitOnly;
    if (!checkLimits(value, mhz, transmit, receive)) {
        changed();
        return;
    }
    if (transmit)
        m_tx = mhz;
    if (receive)
        m_rx = mhz;
    if (edit == Edit::Simplex)
        m_simplex = mhz;
    const bool notBothZero = zeroCheck();
    // The pair edits keep the current digits; the one being typed in keeps what was typed.
    if (edit != Edit::HalfDuplexTx)
        m_texts[index(Edit::HalfDuplexTx)] = frequencyDisplayText(m_tx);
    if (edit != Edit::HalfDuplexRx)
        m_texts[index(Edit::HalfDuplexRx)] = frequencyDisplayText(m_rx);
    m_okEnabled = true;
    // An equal half-duplex pair keeps OK disabled, however it was typed.
    if (notBothZero)
        duplexCheck();
    changed();
}

void ChannelConfigEditor::select(List list, int position)
{
    const ValueList shown = entries(list);
    if (position < 0 || position >= static_cast<int>(shown.size()))
        return;
    m_selection[static_cast<std::size_t>(list)] = shown[static_cast<std::size_t>(position)].value;
    changed();
}

void ChannelConfigEditor::setCcirNumber(int number)
{
    if (!m_ccirNumbers)
        return;
    m_ccirNumber = std::clamp(number, kMinCcirNumber, kMaxCcirNumber);
    changed();
}

bool ChannelConfigEditor::accept()
{
    if (!m_okEnabled)
        return false;
    store();
    return true;
}

void ChannelConfigEditor::changed()
{
    if (m_onChanged)
        m_onChanged();
}

} // namespace koral
