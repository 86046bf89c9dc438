#pragma once

#include "radiosim/RadioDatabases.h"
#include "radiosim/RadioState.h"

#include <array>
#include <string>

namespace koral::radiosim {

// The radio's control head: what its keys do and what its three-line display shows. Keys
// change only the head's own entry state; what they ask of the radio comes back as an action
// for the radio to carry out, after which the display is drawn from the radio's state.
class FrontPanel
{
public:
    static constexpr int kRelease = 24;
    static constexpr std::size_t kLineWidth = 40;

    enum class Action
    {
        None,
        SelectChannel, // value: the channel typed
        ChannelUp,
        ChannelDown,
        ToggleSquelch,
        ToggleMonitor,
        ToggleScan,
        ToggleAle,
    };
    struct Request
    {
        Action action = Action::None;
        unsigned value = 0;
    };

    Request press(int key);
    std::array<std::string, 3> display(const RadioState& state, const RadioDatabases& db,
                                       bool ccirMode) const;
    void reset() { *this = FrontPanel{}; }

private:
    enum class Page
    {
        Channel,
        Entry,
        Menu,
        Gps,
    };
    Page m_page = Page::Channel;
    std::string m_entry;
    unsigned m_menuItem = 0;
};

} // namespace koral::radiosim
