#include "session/FrontPanelKeypad.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/Builders.h"

#include <algorithm>

namespace koral {

namespace {

// Rows of four as on the head; the short head leaves the place of GPS empty.
// clang-format off
constexpr FrontPanelKeypad::Key kFullKeys[] = {
    {"F1", 4, 0, 0},  {"F2", 5, 0, 1},  {"F3", 6, 0, 2},  {"F4", 7, 0, 3},
    {"1", 14, 1, 0},  {"2", 15, 1, 1},  {"3", 16, 1, 2},  {"MENU", 23, 1, 3},
    {"4", 17, 2, 0},  {"5", 18, 2, 1},  {"6", 19, 2, 2},  {"Esc", 10, 2, 3},
    {"7", 20, 3, 0},  {"8", 21, 3, 1},  {"9", 22, 3, 2},  {"GPS", 12, 3, 3},
    {"*", 9, 4, 0},   {"0", 13, 4, 1},  {"#", 8, 4, 2},   {"Enter", 11, 4, 3},
};

constexpr FrontPanelKeypad::Key kShortKeys[] = {
    {"1", 14, 0, 0},  {"2", 15, 0, 1},  {"3", 16, 0, 2},  {"MENU", 23, 0, 3},
    {"4", 17, 1, 0},  {"5", 18, 1, 1},  {"6", 19, 1, 2},  {"Esc", 10, 1, 3},
    {"7", 20, 2, 0},  {"8", 21, 2, 1},  {"9", 22, 2, 2},
    {"*", 9, 3, 0},   {"0", 13, 3, 1},  {"#", 8, 3, 2},   {"Enter", 11, 3, 3},
};
// clang-format on

} // namespace

std::span<const FrontPanelKeypad::Key> FrontPanelKeypad::keys(Layout layout)
{
    if (layout == Layout::Full)
        return kFullKeys;
    return kShortKeys;
}

int FrontPanelKeypad::code(Layout layout, std::string_view label)
{
    const auto all = keys(layout);
    const auto it = std::find_if(all.begin(), all.end(),
                                 [label](const Key& key) { return key.label == label; });
    return it == all.end() ? 0 : it->code;
}

FrontPanelKeypad::FrontPanelKeypad(Notifier& notifier, std::function<bool()> isOpen,
                                   std::function<int(const CRadioMessage&)> send)
    : m_notifier(notifier), m_isOpen(std::move(isOpen)), m_send(std::move(send))
{}

int FrontPanelKeypad::sendKey(int code) const
{
    if (!m_isOpen()) {
        m_notifier.show(text::byId(text::id::NoResponse), Icon::Warning);
        return 0;
    }
    CRadioMessage message;
    message.prepareRequest();
    ReportControlHeadKeyboard(&message, code);
    if (!m_send(message))
        return 0;
    ReportControlHeadKeyboard(&message, kReleaseCode);
    return m_send(message) ? 1 : 0;
}

} // namespace koral
