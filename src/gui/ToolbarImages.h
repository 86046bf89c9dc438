#pragma once

#include <QIcon>

namespace koral {

// The toolbar's on/off images. Each on/off command has a pair of images 12 apart: index i
// (below 12) shows "on", index i + 12 shows "off".
namespace ToolbarImages {

inline constexpr int kPairDistance = 12;
// The "on" images of the five on/off commands.
inline constexpr int kSquelch = 3;
inline constexpr int kMonitor = 4;
inline constexpr int kNoiseBlanker = 5;
inline constexpr int kAttenuator = 6;
inline constexpr int kClipper = 7;

QIcon icon(int index);
// The other images of the toolbars, drawn the same way.
QIcon commandIcon(const QString& label, const QColor& colour);

} // namespace ToolbarImages
} // namespace koral
