#include "aledb/CcirMessagesEditor.h"

#include "aledb/MessageEditor.h"
#include "common/Texts.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace koral {

namespace {

std::string textOf(const CcirMessage& message)
{
    const auto end = std::find(message.begin(), message.end(), '\0');
    return std::string(message.begin(), end);
}

std::size_t index(CcirMessagesEditor::Setting setting)
{
    return static_cast<std::size_t>(setting);
}

std::optional<int> parseSetting(std::string_view text)
{
    if (text.empty() || text.size() > 3 ||
        !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

constexpr CcirMessagesEditor::Setting kSettings[] = {CcirMessagesEditor::Setting::Preamble,
                                                     CcirMessagesEditor::Setting::Beacon,
                                                     CcirMessagesEditor::Setting::Alarm};

} // namespace

std::string_view CcirMessagesEditor::name(Setting setting)
{
    switch (setting) {
    case Setting::Preamble:
        return text::kCcirPreamble;
    case Setting::Beacon:
        return text::kCcirBeacon;
    case Setting::Alarm:
        return text::kCcirAlarm;
    }
    return {};
}

CcirMessagesEditor::CcirMessagesEditor(const ccir_dbase& record) : m_record(record)
{
    m_messages = {textOf(record.message1), textOf(record.message2)};
    for (Setting setting : kSettings)
        m_settings[index(setting)] = std::to_string(field(setting));
    check();
}

const std::string& CcirMessagesEditor::message(int number) const
{
    return m_messages.at(std::size_t(number - 1));
}

void CcirMessagesEditor::setMessage(int number, std::string_view text)
{
    m_messages.at(std::size_t(number - 1)) = text;
    if (messageWarning(number, text).empty()) {
        CcirMessage& stored = messageField(number);
        stored.fill('\0');
        std::copy(text.begin(), text.end(), stored.begin());
    }
    check();
}

const std::string& CcirMessagesEditor::settingText(Setting setting) const
{
    return m_settings[index(setting)];
}

void CcirMessagesEditor::setSettingText(Setting setting, std::string_view text)
{
    m_settings[index(setting)] = text;
    if (settingWarning(setting, text).empty())
        field(setting) = static_cast<std::uint8_t>(*parseSetting(text));
    check();
}

std::string CcirMessagesEditor::messageWarning(int number, std::string_view text)
{
    if (text.size() > std::size_t(kMessageLength))
        return text::format(text::kCcirMessageTooLong.data(), number, int(text.size()),
                            kMessageLength);
    // The radio sends the characters of the ALE messages, and no others.
    if (!MessageEditor::isValid(text)) {
        const auto bad = std::find_if(text.begin(), text.end(), [](char c) {
            return !MessageEditor::isValid(std::string_view(&c, 1));
        });
        const auto code = static_cast<unsigned char>(*bad);
        const std::string shown = code > 32 && code < 127
                                      ? std::string{'\'', *bad, '\''}
                                      : text::format(text::kCharacterCode.data(), int(code));
        return text::format(text::kCcirMessageCharacter.data(), number, shown.c_str());
    }
    return {};
}

std::string CcirMessagesEditor::settingWarning(Setting setting, std::string_view text)
{
    const Range limits = range(setting);
    const auto value = parseSetting(text);
    if (value && *value >= limits.low && *value <= limits.high)
        return {};
    return text::format(text::kCcirSettingRange.data(), std::string(name(setting)).c_str(),
                        limits.low, limits.high, std::string(text).c_str());
}

std::uint8_t& CcirMessagesEditor::field(Setting setting)
{
    switch (setting) {
    case Setting::Preamble:
        return m_record.preamble;
    case Setting::Beacon:
        return m_record.beacon;
    case Setting::Alarm:
        break;
    }
    return m_record.alarm;
}

CcirMessage& CcirMessagesEditor::messageField(int number)
{
    return number == 1 ? m_record.message1 : m_record.message2;
}

void CcirMessagesEditor::check()
{
    m_warning.clear();
    for (int number = 1; number <= kMessageCount && m_warning.empty(); ++number)
        m_warning = messageWarning(number, message(number));
    for (Setting setting : kSettings)
        if (m_warning.empty())
            m_warning = settingWarning(setting, settingText(setting));
}

} // namespace koral
