#pragma once

#include "radiodb/dbase.h"

#include <cstdint>
#include <string>

namespace koral {

// The rules of the Radio Options dialog: how each list index and check box maps to the radio
// options, the language and the accessory bytes, and the accessory/tuner exclusivity. The
// dialog works on this copy; apply() hands it back to the record on OK. A list index of -1
// means "no selection".
class RadioOptionsEditor
{
public:
    enum class Accessory
    {
        Amplifier = 1,
        Accessory1 = 2,
        Accessory2 = 3,
    };

    // isb: the ISB setting kept beside the record.
    RadioOptionsEditor(const dbase& record, bool isb);

    int priorityIndex() const { return m_options.priorityChannel.get() - 1; }
    void setPriorityIndex(int index);
    int scanRateIndex() const { return m_options.scanRate - 1; }
    void setScanRateIndex(int index) { m_options.scanRate = byte(index + 1); }
    int baudRateIndex() const { return m_options.baudRate; }
    void setBaudRateIndex(int index) { m_options.baudRate = byte(index); }
    int alertToneIndex() const;
    void setAlertToneIndex(int index) { m_options.alertTone = byte(index); }
    int cwPttHoldIndex() const;
    void setCwPttHoldIndex(int index) { m_options.cwPttHold = index == 0 ? 15 : 50; }
    int alternateDisplayIndex() const;
    void setAlternateDisplayIndex(int index);
    int dataPowerIndex() const;
    void setDataPowerIndex(int index);
    int languageIndex() const { return m_language; }
    void setLanguageIndex(int index) { m_language = byte(index); }

    bool beepAfterKeyboardPress() const { return m_options.beepAfterKeyboardPress == 1; }
    void setBeepAfterKeyboardPress(bool on) { m_options.beepAfterKeyboardPress = on; }
    bool beepAfterPttRelease() const { return m_options.beepAfterPttRelease == 1; }
    void setBeepAfterPttRelease(bool on) { m_options.beepAfterPttRelease = on; }
    bool accessorySideTone() const { return m_options.accessorySideTone == 1; }
    void setAccessorySideTone(bool on) { m_options.accessorySideTone = on; }
    bool microphoneSideTone() const { return m_options.microphoneSideTone == 1; }
    void setMicrophoneSideTone(bool on) { m_options.microphoneSideTone = on; }
    // "Hide frequency" is the inverse of the frequency-display byte.
    bool hideFrequency() const { return m_options.frequencyDisplay == 0; }
    void setHideFrequency(bool hide) { m_options.frequencyDisplay = hide ? 0 : 1; }
    bool noiseBlanker() const { return m_options.noiseBlanker == 1; }
    void setNoiseBlanker(bool on) { m_options.noiseBlanker = on; }
    bool isb() const { return m_isb; }
    void setIsb(bool on) { m_isb = on; }

    bool tuner() const { return m_tuner == 1; }
    // Checking the tuner clears the accessory choice.
    void setTuner(bool on);
    bool accessory(Accessory which) const { return m_accessory == static_cast<int>(which); }
    // The accessories exclude each other; the amplifier also excludes the tuner.
    void setAccessory(Accessory which, bool on);
    int accessoryInstalled() const { return m_accessory; }

    // Whether the priority channel was changed (the document then counts as modified).
    bool priorityChanged() const { return m_priorityChanged; }

    // Stored for "Alternate Display :" and "Data Power Level :" while they show no selection.
    static constexpr std::uint8_t kDefaultAlternateDisplay = 5;
    static constexpr std::uint8_t kDefaultDataPower = 2;

    // Stores the dialog's copy into the record, as the dialog shows it.
    void apply(dbase& record, bool& isb) const;

    // The option slot check: the last failing complaint, or an empty text for a valid slot.
    static std::string checkOptionSlot(const OptionRecord& slot);

private:
    static std::uint8_t byte(int value) { return static_cast<std::uint8_t>(value); }

    RadioOptions m_options;
    std::uint8_t m_language;
    int m_accessory;
    std::uint8_t m_tuner;
    bool m_isb;
    bool m_priorityChanged = false;
};

} // namespace koral
