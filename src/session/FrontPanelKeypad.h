#pragma once

#include "koralapi/CRadioMessage.h"

#include <functional>
#include <span>
#include <string_view>

namespace koral {

class Notifier;

// The control head's keypad as the program imitates it: which keys each layout has, the code
// the radio knows each key by, and the exchange that sends a key press followed by its release.
// The keys do nothing locally: the radio reacts as if its own head had been pressed and reports
// its display back.
class FrontPanelKeypad
{
public:
    enum class Layout
    {
        Full,  // F1-F4, digits, MENU, Esc, GPS, *, #, Enter: 20 keys
        Short, // the same without F1-F4 and GPS: 15 keys
    };

    struct Key
    {
        std::string_view label;
        int code;
        int row;
        int column;
    };

    // Sent after every key, so that the radio does not regard the key as held.
    static constexpr int kReleaseCode = 24;

    // The keys of a layout with their places on the head (rows of four from the top).
    static std::span<const Key> keys(Layout layout);
    // The code of the key labelled `label` in `layout`, or 0 when the layout has no such key.
    static int code(Layout layout, std::string_view label);

    // isOpen tells whether the link is open; send sends one request and returns 1 when the
    // radio took it (it shows its own message when not).
    FrontPanelKeypad(Notifier& notifier, std::function<bool()> isOpen,
                     std::function<int(const CRadioMessage&)> send);

    // Sends the key and then its release: 1 when both were sent, else 0. With the link closed
    // the operator is told the radio does not respond and nothing is sent; when the key itself
    // is refused, its release is not sent either.
    int sendKey(int code) const;

private:
    Notifier& m_notifier;
    std::function<bool()> m_isOpen;
    std::function<int(const CRadioMessage&)> m_send;
};

} // namespace koral
