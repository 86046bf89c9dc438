#pragma once

// The rules of the Channel Configuration dialog: one channel of the radio database at a time,
// its frequencies with their limits, text form and warnings, its five lists, and the CCIR
// channel number when the database has them. The editor works on its own copy of the channels
// and numbers; the caller takes them back when accept() succeeds. A window only binds its
// controls to this state and calls the setters from its change handlers.

#include "profile/ValueList.h"
#include "radiodb/ChannelTables.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace koral {

class Notifier;

class ChannelConfigEditor
{
public:
    enum class FrequencyType
    {
        Simplex = 0,
        HalfDuplex = 1,
        TransmitOnly = 2,
        ReceiveOnly = 3,
    };
    // The five frequency edits; only those of the current type are visible.
    enum class Edit
    {
        Simplex,
        HalfDuplexTx, // labelled "Tx:"
        HalfDuplexRx, // labelled "Rx:"
        TransmitOnly,
        ReceiveOnly,
    };
    enum class List
    {
        Power,
        Band,
        Mode,
        Agc,
        Bandwidth,
    };

    static constexpr int kMaxTextLength = 8; // characters per frequency edit
    static constexpr int kMinCcirNumber = 1;
    static constexpr int kMaxCcirNumber = 500;
    static constexpr int kCcirExtraWidth = 70; // pixels the dialog widens by for the CCIR number

    struct Setup
    {
        ChannelTable channels{};
        // Present when the database carries CCIR channel numbers.
        std::optional<CcirChannelNumbers> ccirNumbers;
        int firstChannel = 1;
        // The connected radio offers independent sideband: the Mode list gets "ISB".
        bool isbOffered = false;
        // Receives the diagnostic of an over-long text; may be null.
        Notifier* notifier = nullptr;
    };

    explicit ChannelConfigEditor(Setup setup);

    // Called after every change of the state below, so a window can refresh its controls.
    void setOnChanged(std::function<void()> onChanged) { m_onChanged = std::move(onChanged); }

    // --- state for the window ---
    int channelNumber() const { return m_channelNumber; }
    FrequencyType frequencyType() const { return m_type; }
    const std::string& text(Edit edit) const { return m_texts[index(edit)]; }
    bool isVisible(Edit edit) const;
    const std::string& warning() const { return m_warning; }
    bool isWarningVisible() const { return !m_warning.empty(); }
    bool isOkEnabled() const { return m_okEnabled; }
    // The entries a list shows and the position selected in it (-1: none).
    ValueList entries(List list) const;
    int selectedIndex(List list) const;
    bool hasCcirNumbers() const { return m_ccirNumbers.has_value(); }
    // The current channel's CCIR number (0 when it has none yet).
    int ccirNumber() const { return m_ccirNumber; }
    float mhz(Edit edit) const;

    // --- changes from the window ---
    // Stores the current channel, then shows channel `number` (clamped to 1..200).
    void setChannelNumber(int number);
    void setFrequencyType(FrequencyType type);
    // The text of an edit changed (typed by the user).
    void setText(Edit edit, std::string_view text);
    void select(List list, int index);
    // Clamped to 1..500; ignored without CCIR numbers.
    void setCcirNumber(int number);

    // OK: stores the current channel. False, changing nothing, while OK is disabled.
    bool accept();
    const ChannelTable& channels() const { return m_channels; }
    const std::optional<CcirChannelNumbers>& ccirNumbers() const { return m_ccirNumbers; }

private:
    static std::size_t index(Edit edit) { return static_cast<std::size_t>(edit); }
    void load();
    void store();
    void showFrequencies();
    bool zeroCheck();
    void duplexCheck();
    bool checkLimits(std::string_view text, float value, bool transmit, bool receive);
    void changed();

    ChannelTable m_channels;
    std::optional<CcirChannelNumbers> m_ccirNumbers;
    bool m_isbOffered = false;
    Notifier* m_notifier = nullptr;
    std::function<void()> m_onChanged;

    int m_channelNumber = 1;
    int m_ccirNumber = 0;
    FrequencyType m_type = FrequencyType::Simplex;
    float m_tx = 0;
    float m_rx = 0;
    float m_simplex = 0;
    std::array<std::string, 5> m_texts;
    std::array<int, 5> m_selection{}; // record values of the five lists
    std::string m_warning;
    bool m_okEnabled = true;
};

} // namespace koral
