#pragma once

#include "radiosim/RadioDatabases.h"
#include "radiosim/RadioModel.h"
#include "radiosim/RadioState.h"

#include <array>
#include <string>
#include <vector>

namespace koral::radiosim {

// The radio's control head: what its keys do and what its three-line display shows. Keys
// change only the head's own pages (channel, channel entry, menu, a menu item's choice, GPS);
// what they ask of the radio comes back as an action for the radio to carry out, after which
// the display is drawn from the radio's state.
//
// On the menu, MENU or # steps to the next item, * to the previous one, a digit jumps to that
// item, Enter switches the item or opens its choice, Esc goes back to the channel page. In a
// choice, # and * step, Enter takes the choice and Esc keeps the old one.
class FrontPanel
{
public:
    static constexpr int kRelease = 24;
    static constexpr std::size_t kLineWidth = 40;
    using Lines = std::array<std::string, 3>;

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
        ScanGroup, // value: group index 0..4
        AleNet,    // value: net index 0..19
    };
    struct Request
    {
        Action action = Action::None;
        unsigned value = 0;
    };
    // What the head reads of the radio to draw its pages and to offer its choices.
    struct Radio
    {
        const RadioState& state;
        const RadioDatabases& db;
        const RadioModel& model;
    };

    Request press(int key, const Radio& radio);
    Lines display(const Radio& radio) const;
    void reset() { *this = FrontPanel{}; }

private:
    enum class Page
    {
        Channel,
        Entry,
        Menu,
        Choice,
        Gps,
    };
    Request pressOnMenu(int key, const Radio& radio);
    Request pressInChoice(int key, const Radio& radio);
    Lines channelPage(const Radio& radio) const;
    // The groups or nets the current menu item chooses from (empty for other items).
    std::vector<unsigned> choices(const Radio& radio) const;

    Page m_page = Page::Channel;
    std::string m_entry;
    unsigned m_menuItem = 0;
    unsigned m_choice = 0; // index into choices()
};

} // namespace koral::radiosim
