#pragma once

// The rules of the "CCIR Messages and Settings" dialog: the two messages the radio sends by
// selective call and its three settings. A message takes at most 32 characters, each one the
// radio can send (the ALE message characters); a setting is a small number in its range. A
// text that breaks a rule shows the warning line and disables OK; the record keeps its last
// valid value, and nothing is changed behind the operator's back: a record that already
// breaks a rule (a file written elsewhere) shows its warning as soon as the dialog opens.

#include "aledb/ccir_dbase.h"

#include <array>
#include <string>
#include <string_view>

namespace koral {

class CcirMessagesEditor
{
public:
    enum class Setting
    {
        Preamble,
        Beacon,
        Alarm
    };
    static constexpr int kSettingCount = 3;
    static constexpr int kMessageCount = 2;
    static constexpr int kMessageLength = int(kCcirMessageSize) - 1;

    struct Range
    {
        int low;
        int high;
    };
    // Each setting is one byte of the record. The preamble's default is 6: two digits leave
    // room well above it and refuse the large values that are more likely a slip than a
    // setting. Beacon and alarm are switches, 0 off and 1 on.
    static constexpr Range range(Setting setting)
    {
        return setting == Setting::Preamble ? Range{0, 99} : Range{0, 1};
    }
    static std::string_view name(Setting setting);

    explicit CcirMessagesEditor(const ccir_dbase& record);

    // Messages are numbered 1 and 2, as the dialog shows them.
    const std::string& message(int number) const;
    void setMessage(int number, std::string_view text);

    const std::string& settingText(Setting setting) const;
    void setSettingText(Setting setting, std::string_view text);

    // Empty when the text is a message the radio can send; else the warning that says why not.
    static std::string messageWarning(int number, std::string_view text);

    const std::string& warning() const { return m_warning; }
    bool okEnabled() const { return m_warning.empty(); }

    const ccir_dbase& record() const { return m_record; }

private:
    static std::string settingWarning(Setting setting, std::string_view text);
    std::uint8_t& field(Setting setting);
    CcirMessage& messageField(int number);
    void check();

    ccir_dbase m_record;
    std::array<std::string, kMessageCount> m_messages;
    std::array<std::string, kSettingCount> m_settings;
    std::string m_warning;
};

} // namespace koral
