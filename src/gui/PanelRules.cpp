#include "gui/PanelRules.h"

#include <algorithm>

namespace koral {

namespace {

const std::vector<PanelInfo> kPanels{
    {Panel::ComputerInterface, 32783, "View Computer Interface Panel", "Computer Interface Panel"},
    {Panel::Rss, 32781, "View RSS Panel", "RSS Panel"},
    {Panel::RssAle, 32782, "View RSS ALE Panel", "RSS ALE Panel"},
    {Panel::Koral, 32867, "View KORAL Panel", "KORAL Panel"},
    {Panel::Ccir, 32885, "View CCIR Panel", "CCIR Panel"},
    {Panel::Koral2E, 32904, "View KORAL-2E Panel", "KORAL-2E Panel"},
};

} // namespace

PanelRules::PanelRules(std::vector<Panel> offered) : m_offered(std::move(offered))
{
    std::sort(m_offered.begin(), m_offered.end());
    m_offered.erase(std::unique(m_offered.begin(), m_offered.end()), m_offered.end());
}

const PanelInfo& PanelRules::info(Panel panel)
{
    return kPanels[static_cast<std::size_t>(panel)];
}

const std::vector<PanelInfo>& PanelRules::all()
{
    return kPanels;
}

bool PanelRules::isOffered(Panel panel) const
{
    return std::find(m_offered.begin(), m_offered.end(), panel) != m_offered.end();
}

Panel PanelRules::startPanel() const
{
    if (isOffered(Panel::ComputerInterface) || m_offered.empty())
        return Panel::ComputerInterface;
    return m_offered.front();
}

std::vector<Panel> PanelRules::panelButtons(bool ccirMode, int softwareClass) const
{
    std::vector<Panel> buttons;
    for (const PanelInfo& panel : kPanels) {
        bool shown = true;
        switch (panel.panel) {
        case Panel::Ccir:
            shown = ccirMode;
            break;
        case Panel::Koral:
            shown = softwareClass != 1;
            break;
        case Panel::Koral2E:
            shown = softwareClass == 1;
            break;
        default:
            break;
        }
        if (shown && isOffered(panel.panel))
            buttons.push_back(panel.panel);
    }
    return buttons;
}

std::string PanelRules::title(Panel panel, std::string_view path)
{
    std::string text(info(panel).title);
    if (!path.empty()) {
        text += " - ";
        text += path;
    }
    return text;
}

} // namespace koral
