#include "radiosim/FrontPanel.h"

#include <algorithm>
#include <cstdio>

namespace koral::radiosim {

namespace {
constexpr int kF1 = 4, kF2 = 5, kF3 = 6, kF4 = 7, kHash = 8, kStar = 9, kEsc = 10, kEnter = 11,
              kGps = 12, kDigit0 = 13, kDigit9 = 22, kMenuKey = 23;

using Action = FrontPanel::Action;

enum class Kind
{
    Toggle, // Enter switches it
    Choice, // Enter opens a list to choose from
    Info,   // shown only
};
struct MenuItem
{
    const char* title;
    Kind kind;
    Action action;
};
constexpr MenuItem kMenu[] = {
    {"SCAN", Kind::Toggle, Action::ToggleScan},
    {"SCAN GROUP", Kind::Choice, Action::ScanGroup},
    {"SQUELCH", Kind::Toggle, Action::ToggleSquelch},
    {"MONITOR", Kind::Toggle, Action::ToggleMonitor},
    {"ALE", Kind::Toggle, Action::ToggleAle},
    {"ALE NET", Kind::Choice, Action::AleNet},
    {"VERSION", Kind::Info, Action::None},
};
constexpr unsigned kMenuSize = std::size(kMenu);

std::string fit(std::string text)
{
    if (text.size() > FrontPanel::kLineWidth)
        text.resize(FrontPanel::kLineWidth);
    return text;
}

std::string mhz(std::uint32_t hertz)
{
    if (hertz == 0)
        return "-----";
    char text[16];
    std::snprintf(text, sizeof text, "%u.%05u", hertz / 1000000, hertz % 1000000 / 10);
    return text;
}

const char* onOff(bool on)
{
    return on ? "ON" : "OFF";
}

std::string groupText(unsigned group)
{
    return std::string("GROUP ") + char('A' + group % layout::kGroupCount);
}

std::string netText(const RadioDatabases& db, unsigned net)
{
    std::string text = "NET " + std::to_string(net + 1);
    const std::string_view name = netName(db, net);
    if (!name.empty())
        text += " " + std::string(name);
    return text;
}

// The ALE items mean nothing to a radio that calls selectively.
bool available(const MenuItem& item, const FrontPanel::Radio& radio)
{
    return !radio.model.ccirMode ||
           (item.action != Action::ToggleAle && item.action != Action::AleNet);
}

std::string itemValue(unsigned item, const FrontPanel::Radio& radio)
{
    const RadioState& state = radio.state;
    if (!available(kMenu[item], radio))
        return "N/A";
    switch (kMenu[item].action) {
    case Action::ToggleScan:
        return onOff(state.groupScanning || state.aleScanning);
    case Action::ScanGroup:
        return groupText(state.scanGroup);
    case Action::ToggleSquelch:
        return onOff(state.squelch);
    case Action::ToggleMonitor:
        return onOff(state.monitor);
    case Action::ToggleAle:
        return onOff(state.aleOn);
    case Action::AleNet:
        return netText(radio.db, state.scanNet);
    default:
        return radio.model.softwareVersion;
    }
}

unsigned step(unsigned index, unsigned count, bool forward)
{
    return forward ? (index + 1) % count : (index + count - 1) % count;
}
} // namespace

FrontPanel::Request FrontPanel::press(int key, const Radio& radio)
{
    // The function keys act at once, whatever page is up.
    switch (key) {
    case kF1:
        return {Action::ToggleSquelch, 0};
    case kF2:
        return {Action::ToggleMonitor, 0};
    case kF3:
        return {Action::ToggleScan, 0};
    case kF4:
        return {Action::ToggleAle, 0};
    case kGps:
        m_page = m_page == Page::Gps ? Page::Channel : Page::Gps;
        return {};
    default:
        break;
    }
    if (m_page == Page::Menu)
        return pressOnMenu(key, radio);
    if (m_page == Page::Choice)
        return pressInChoice(key, radio);

    if (key >= kDigit0 && key <= kDigit9) {
        if (m_page != Page::Entry) {
            m_page = Page::Entry;
            m_entry.clear();
        }
        if (m_entry.size() < 3)
            m_entry += static_cast<char>('0' + (key - kDigit0));
        return {};
    }
    switch (key) {
    case kEnter:
        if (m_page == Page::Entry) {
            m_page = Page::Channel;
            const unsigned channel = m_entry.empty() ? 0 : std::stoul(m_entry);
            m_entry.clear();
            return {Action::SelectChannel, channel};
        }
        return {};
    case kEsc:
        m_page = Page::Channel;
        m_entry.clear();
        return {};
    case kMenuKey:
        m_page = Page::Menu;
        m_menuItem = 0;
        return {};
    case kStar:
        // In the entry, * takes back the last digit; on the channel page it steps down.
        if (m_page == Page::Entry) {
            m_entry.pop_back();
            if (m_entry.empty())
                m_page = Page::Channel;
            return {};
        }
        return m_page == Page::Channel ? Request{Action::ChannelDown, 0} : Request{};
    case kHash:
        return m_page == Page::Channel ? Request{Action::ChannelUp, 0} : Request{};
    default:
        return {}; // the release (24) and unknown codes change nothing
    }
}

FrontPanel::Request FrontPanel::pressOnMenu(int key, const Radio& radio)
{
    if (key > kDigit0 && key <= kDigit0 + int(kMenuSize)) {
        m_menuItem = unsigned(key - kDigit0 - 1);
        return {};
    }
    switch (key) {
    case kMenuKey:
    case kHash:
        m_menuItem = step(m_menuItem, kMenuSize, true);
        return {};
    case kStar:
        m_menuItem = step(m_menuItem, kMenuSize, false);
        return {};
    case kEsc:
        m_page = Page::Channel;
        return {};
    case kEnter: {
        const MenuItem& item = kMenu[m_menuItem];
        if (!available(item, radio) || item.kind == Kind::Info)
            return {};
        if (item.kind == Kind::Toggle)
            return {item.action, 0};
        const auto list = choices(radio);
        if (list.empty())
            return {};
        const unsigned current =
            item.action == Action::ScanGroup ? radio.state.scanGroup : radio.state.scanNet;
        m_choice = 0;
        for (unsigned i = 0; i < list.size(); ++i)
            if (list[i] == current)
                m_choice = i;
        m_page = Page::Choice;
        return {};
    }
    default:
        return {};
    }
}

FrontPanel::Request FrontPanel::pressInChoice(int key, const Radio& radio)
{
    const auto list = choices(radio);
    if (list.empty()) { // the databases changed under the open choice
        m_page = Page::Menu;
        return {};
    }
    m_choice = std::min<unsigned>(m_choice, unsigned(list.size()) - 1);
    switch (key) {
    case kHash:
    case kStar:
        m_choice = step(m_choice, unsigned(list.size()), key == kHash);
        return {};
    case kEnter:
        m_page = Page::Menu;
        return {kMenu[m_menuItem].action, list[m_choice]};
    case kEsc:
    case kMenuKey:
        m_page = Page::Menu;
        return {};
    default:
        return {};
    }
}

std::vector<unsigned> FrontPanel::choices(const Radio& radio) const
{
    std::vector<unsigned> list;
    if (kMenu[m_menuItem].action == Action::ScanGroup) {
        for (unsigned g = 0; g < layout::kGroupCount; ++g)
            if (groupProgrammed(radio.db, g))
                list.push_back(g);
    } else if (kMenu[m_menuItem].action == Action::AleNet) {
        for (unsigned n = 0; n < layout::kNetCount; ++n)
            if (netConfigured(radio.db, n))
                list.push_back(n);
    }
    return list;
}

FrontPanel::Lines FrontPanel::display(const Radio& radio) const
{
    switch (m_page) {
    case Page::Entry:
        return {"CHANNEL ENTRY", fit("CH " + m_entry + "_"), "ENTER=SELECT  *=DELETE  ESC=BACK"};
    case Page::Menu: {
        char title[24];
        std::snprintf(title, sizeof title, "MENU %u/%u", m_menuItem + 1, kMenuSize);
        const MenuItem& item = kMenu[m_menuItem];
        const char* help = !available(item, radio) || item.kind == Kind::Info
                               ? "#=NEXT  *=BACK  ESC=EXIT"
                           : item.kind == Kind::Toggle ? "ENTER=SWITCH  #=NEXT  ESC=EXIT"
                                                       : "ENTER=CHOOSE  #=NEXT  ESC=EXIT";
        return {title, fit(std::string(item.title) + ": " + itemValue(m_menuItem, radio)), help};
    }
    case Page::Choice: {
        const auto list = choices(radio);
        const unsigned choice =
            list.empty() ? 0 : list[std::min<std::size_t>(m_choice, list.size() - 1)];
        const std::string text = kMenu[m_menuItem].action == Action::ScanGroup
                                     ? groupText(choice)
                                     : netText(radio.db, choice);
        return {kMenu[m_menuItem].title, fit("> " + text), "#/*=CHOOSE  ENTER=TAKE  ESC=KEEP"};
    }
    case Page::Gps:
        return {"GPS POSITION", "32 04.92N  034 46.71E", "UTC 12:00:00  SATS 7"};
    case Page::Channel:
        break;
    }
    return channelPage(radio);
}

FrontPanel::Lines FrontPanel::channelPage(const Radio& radio) const
{
    // The heading says what the radio is doing: a test or an ALE exchange first, else the
    // group or net it scans, or the mode it sits on; the last line carries the switches a
    // technician checks first, ALE included.
    const RadioState& state = radio.state;
    const bool ccir = radio.model.ccirMode;
    char mode[16];
    if (state.selfTestRunning)
        std::snprintf(mode, sizeof mode, "SELF TEST");
    else if (state.call == CallPhase::Calling)
        std::snprintf(mode, sizeof mode, "ALE CALLING");
    else if (state.call == CallPhase::Linked)
        std::snprintf(mode, sizeof mode, "ALE LINKED");
    else if (state.call == CallPhase::Sounding)
        std::snprintf(mode, sizeof mode, "SOUNDING");
    else if (state.call == CallPhase::LinkQuality)
        std::snprintf(mode, sizeof mode, "LQA");
    else if (state.groupScanning)
        std::snprintf(mode, sizeof mode, "SCAN GRP %c", 'A' + state.scanGroup % 5);
    else if (state.aleScanning)
        std::snprintf(mode, sizeof mode, "ALE NET %u", state.scanNet + 1u);
    else
        std::snprintf(mode, sizeof mode, "%s", ccir ? "SELCALL" : "CHAN");
    char first[48];
    std::snprintf(first, sizeof first, "%-11s CH %03u", mode, state.activeChannel);
    std::string second = "RX " + mhz(channelRx(radio.db, state.activeChannel)) + " TX " +
                         mhz(channelTx(radio.db, state.activeChannel));
    std::string third =
        std::string("SQL ") + onOff(state.squelch) + "  MON " + onOff(state.monitor);
    if (!ccir)
        third += std::string("  ALE ") + onOff(state.aleOn);
    return {fit(first), fit(second), fit(third)};
}

} // namespace koral::radiosim
