#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace koral {

// The six panels of the main window, numbered as the frame counts them.
enum class Panel
{
    ComputerInterface = 0,
    Rss = 1,
    RssAle = 2,
    Koral = 3,
    Ccir = 4,
    Koral2E = 5,
};

struct PanelInfo
{
    Panel panel;
    int commandId;
    std::string_view menuText; // the "View ... Panel" command
    std::string_view title;    // the frame title while the panel is shown
};

// Which panels the frame offers, which one it starts on, which panel buttons a toolbar shows
// for the radio's CCIR mode and software class, and the frame title. No widgets: the main
// window asks this class and only shows the answer.
class PanelRules
{
public:
    // offered: the panels this build of the application has, in any order.
    explicit PanelRules(std::vector<Panel> offered);

    static const PanelInfo& info(Panel panel);
    static const std::vector<PanelInfo>& all();

    bool isOffered(Panel panel) const;
    const std::vector<Panel>& offered() const { return m_offered; }
    // The Computer Interface panel when the application has it, else the first offered one.
    Panel startPanel() const;

    // The panel buttons a toolbar shows (and enables), in panel order. The CCIR panel's button
    // follows the CCIR mode; software class 1 radios get the KORAL-2E panel button instead of
    // the KORAL panel one. Panels the application does not have are never shown.
    std::vector<Panel> panelButtons(bool ccirMode, int softwareClass) const;

    // The bare title, or "<title> - <path>" once a file of the panel was opened or saved.
    static std::string title(Panel panel, std::string_view path = {});

private:
    std::vector<Panel> m_offered;
};

} // namespace koral
