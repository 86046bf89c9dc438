#pragma once

#include "session/FrontPanelKeypad.h"

#include <span>
#include <string_view>

namespace koral {

// The smaller page beside each keypad: the head's own switch keys, which act through the
// program's commands (the radio's quick controls). The full head has room for all five
// switches; the short head shows three at a time, and its MORE key brings the next ones,
// round and round.
class FrontPanelCompanion
{
public:
    struct Switch
    {
        std::string_view label;   // as printed on the key
        std::string_view command; // the program's command it runs
    };
    static constexpr int kShortHeadKeys = 3;

    explicit FrontPanelCompanion(FrontPanelKeypad::Layout layout) : m_layout(layout) {}

    // Every switch of the head, in the order the keys carry them.
    static std::span<const Switch> switches();
    // The switches on the keys now.
    std::span<const Switch> shown() const;
    bool hasMore() const { return m_layout == FrontPanelKeypad::Layout::Short; }
    // The next switches (after the last ones, the first again); nothing without MORE.
    void more();

private:
    FrontPanelKeypad::Layout m_layout;
    std::size_t m_first = 0;
};

} // namespace koral
