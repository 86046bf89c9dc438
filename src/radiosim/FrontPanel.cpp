#include "radiosim/FrontPanel.h"

#include <cstdio>

namespace koral::radiosim {

namespace {
constexpr int kF1 = 4, kF2 = 5, kF3 = 6, kF4 = 7, kHash = 8, kStar = 9, kEsc = 10, kEnter = 11,
              kGps = 12, kDigit0 = 13, kDigit9 = 22, kMenuKey = 23;

struct MenuItem
{
    const char* title;
    FrontPanel::Action action;
};
constexpr MenuItem kMenu[] = {
    {"SCAN", FrontPanel::Action::ToggleScan},
    {"SQUELCH", FrontPanel::Action::ToggleSquelch},
    {"MONITOR", FrontPanel::Action::ToggleMonitor},
    {"ALE", FrontPanel::Action::ToggleAle},
};
constexpr unsigned kMenuSize = std::size(kMenu);

std::string fit(std::string text)
{
    if (text.size() > FrontPanel::kLineWidth) {
        text.resize(FrontPanel::kLineWidth);
    }
    return text;
}

std::string mhz(std::uint32_t hertz)
{
    if (hertz == 0) {
        return "-----";
    }
    char text[16];
    std::snprintf(text, sizeof text, "%u.%05u", hertz / 1000000, hertz % 1000000 / 10);
    return text;
}

const char* onOff(bool on)
{
    return on ? "ON" : "OFF";
}
} // namespace

FrontPanel::Request FrontPanel::press(int key)
{
    if (key >= kDigit0 && key <= kDigit9) {
        if (m_page != Page::Entry) {
            m_page = Page::Entry;
            m_entry.clear();
        }
        if (m_entry.size() < 3) {
            m_entry += static_cast<char>('0' + (key - kDigit0));
        }
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
        if (m_page == Page::Menu) {
            m_page = Page::Channel;
            return {kMenu[m_menuItem].action, 0};
        }
        return {};
    case kEsc:
        m_page = Page::Channel;
        m_entry.clear();
        return {};
    case kMenuKey:
        m_menuItem = m_page == Page::Menu ? (m_menuItem + 1) % kMenuSize : 0;
        m_page = Page::Menu;
        return {};
    case kGps:
        m_page = m_page == Page::Gps ? Page::Channel : Page::Gps;
        return {};
    case kHash:
        return {Action::ChannelUp, 0};
    case kStar:
        return {Action::ChannelDown, 0};
    case kF1:
        return {Action::ToggleSquelch, 0};
    case kF2:
        return {Action::ToggleMonitor, 0};
    case kF3:
        return {Action::ToggleScan, 0};
    case kF4:
        return {Action::ToggleAle, 0};
    default:
        return {}; // the release (24) and unknown codes change nothing
    }
}

std::array<std::string, 3> FrontPanel::display(const RadioState& state, const RadioDatabases& db,
                                               bool ccirMode) const
{
    switch (m_page) {
    case Page::Entry:
        return {"CHANNEL ENTRY", fit("CH " + m_entry + "_"), "ENTER=SELECT  ESC=BACK"};
    case Page::Menu: {
        char title[48];
        std::snprintf(title, sizeof title, "MENU %u/%u", m_menuItem + 1, kMenuSize);
        const bool on[kMenuSize] = {state.groupScanning || state.aleScanning, state.squelch,
                                    state.monitor, state.aleOn};
        return {title, fit(std::string(kMenu[m_menuItem].title) + ": " + onOff(on[m_menuItem])),
                "ENTER=TOGGLE  MENU=NEXT"};
    }
    case Page::Gps:
        return {"GPS POSITION", "32 04.92N  034 46.71E", "UTC 12:00:00  SATS 7"};
    case Page::Channel:
        break;
    }
    // The heading says what the radio is doing: which group or net it scans, or the mode it
    // sits on; the last line carries the switches a technician checks first, ALE included.
    char mode[16];
    if (state.groupScanning)
        std::snprintf(mode, sizeof mode, "SCAN GRP %c", 'A' + state.scanGroup % 5);
    else if (state.aleScanning)
        std::snprintf(mode, sizeof mode, "ALE NET %u", state.scanNet + 1u);
    else
        std::snprintf(mode, sizeof mode, "%s", ccirMode ? "SELCALL" : "CHAN");
    char first[48];
    std::snprintf(first, sizeof first, "%-11s CH %03u", mode, state.activeChannel);
    std::string second = "RX " + mhz(channelRx(db, state.activeChannel)) + " TX " +
                         mhz(channelTx(db, state.activeChannel));
    std::string third =
        std::string("SQL ") + onOff(state.squelch) + "  MON " + onOff(state.monitor);
    if (!ccirMode)
        third += std::string("  ALE ") + onOff(state.aleOn);
    if (state.call == CallPhase::Linked)
        third += "  LINKED";
    return {fit(first), fit(second), fit(third)};
}

} // namespace koral::radiosim
