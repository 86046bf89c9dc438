#include "radiodb/RadioOptionsEditor.h"

#include "common/Texts.h"

#include <algorithm>

namespace koral {

RadioOptionsEditor::RadioOptionsEditor(const dbase& record, bool isb)
    : m_options(record.radioOptions), m_language(record.language),
      m_accessory(record.accessoryInstalled), m_tuner(record.tuner), m_isb(isb)
{
    // Only the amplifier is ever shown as installed: the other accessories are chosen anew by
    // the user each time the dialog opens.
    if (m_accessory != 0 && m_accessory != 1)
        m_accessory = 0;
}

void RadioOptionsEditor::setPriorityIndex(int index)
{
    if (index + 1 == m_options.priorityChannel.get())
        return;
    m_options.priorityChannel.set(static_cast<std::uint16_t>(index + 1));
    m_priorityChanged = true;
}

int RadioOptionsEditor::alertToneIndex() const
{
    return m_options.alertTone <= 1 ? m_options.alertTone : -1;
}

int RadioOptionsEditor::cwPttHoldIndex() const
{
    switch (m_options.cwPttHold) {
    case 15:
        return 0;
    case 50:
        return 1;
    default:
        return -1;
    }
}

int RadioOptionsEditor::alternateDisplayIndex() const
{
    const int value = m_options.alternateDisplayTime;
    return value >= 1 && value <= 10 ? value - 1 : -1;
}

void RadioOptionsEditor::setAlternateDisplayIndex(int index)
{
    m_options.alternateDisplayTime = index < 0 ? kDefaultAlternateDisplay : byte(index + 1);
}

int RadioOptionsEditor::dataPowerIndex() const
{
    const int value = m_options.dataPowerLevel;
    return value >= 2 && value <= 5 ? value - 2 : -1;
}

void RadioOptionsEditor::setDataPowerIndex(int index)
{
    m_options.dataPowerLevel = index < 0 ? kDefaultDataPower : byte(index + 2);
}

void RadioOptionsEditor::setTuner(bool on)
{
    m_tuner = on ? 1 : 0;
    if (on)
        m_accessory = 0;
}

void RadioOptionsEditor::setAccessory(Accessory which, bool on)
{
    const int value = static_cast<int>(which);
    if (on) {
        m_accessory = value;
        if (which == Accessory::Amplifier)
            m_tuner = 0;
    } else if (m_accessory == value) {
        m_accessory = 0;
    }
}

void RadioOptionsEditor::apply(dbase& record, bool& isb) const
{
    record.radioOptions = m_options;
    // A list without a selection stores its default, whether or not the user touched it, so
    // a value the radio cannot show never goes back to it.
    if (alternateDisplayIndex() < 0)
        record.radioOptions.alternateDisplayTime = kDefaultAlternateDisplay;
    if (dataPowerIndex() < 0)
        record.radioOptions.dataPowerLevel = kDefaultDataPower;
    record.language = m_language;
    record.accessoryInstalled = byte(m_accessory);
    record.tuner = m_tuner;
    isb = m_isb;
}

std::string RadioOptionsEditor::checkOptionSlot(const OptionRecord& slot)
{
    const auto versionOk = [](const std::array<char, 8>& field) {
        return std::all_of(field.begin(), field.end(), [](char c) {
            return c == '\0' || kVersionChars.find(c) != std::string_view::npos;
        });
    };
    std::string_view complaint;
    if (!versionOk(slot.softwareVersion))
        complaint = text::kOptionSoftwareInvalid;
    if (!versionOk(slot.hardwareVersion))
        complaint = text::kOptionHardwareInvalid;
    if (slot.status > 1)
        complaint = text::kOptionStatusInvalid;
    return std::string(complaint);
}

} // namespace koral
