#include "session/FrontPanelCompanion.h"

#include <algorithm>

namespace koral {

namespace {
// clang-format off
constexpr FrontPanelCompanion::Switch kSwitches[] = {
    {"SQL", "squelch"},
    {"MON", "monitor"},
    {"NB", "noiseBlanker"},
    {"ATT", "attenuator"},
    {"CLP", "clipper"},
};
// clang-format on
} // namespace

std::span<const FrontPanelCompanion::Switch> FrontPanelCompanion::switches()
{
    return kSwitches;
}

std::span<const FrontPanelCompanion::Switch> FrontPanelCompanion::shown() const
{
    if (!hasMore())
        return kSwitches;
    const std::size_t count = std::min<std::size_t>(kShortHeadKeys, std::size(kSwitches) - m_first);
    return std::span<const Switch>(kSwitches).subspan(m_first, count);
}

void FrontPanelCompanion::more()
{
    if (!hasMore())
        return;
    m_first += kShortHeadKeys;
    if (m_first >= std::size(kSwitches))
        m_first = 0;
}

} // namespace koral
