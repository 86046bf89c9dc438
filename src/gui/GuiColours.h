#pragma once

#include <QColor>

namespace koral::colours {

// The program's colours are kept as the platform colour values of the radio's original
// tools, bytes in blue-green-red order.
inline QColor fromBgr(unsigned value)
{
    return QColor(int(value & 0xFF), int((value >> 8) & 0xFF), int((value >> 16) & 0xFF));
}

inline QColor freeCell()
{
    return fromBgr(0xC0C0C0);
}
inline QColor memberCell()
{
    return fromBgr(0x788000);
}
inline QColor guardCell()
{
    return fromBgr(0x00FFFF);
}
inline QColor programmedText()
{
    return fromBgr(0xFF0000);
}
// Channels that are not programmed are drawn quieter than those that are.
inline QColor unprogrammedText()
{
    return QColor(0x90, 0x90, 0x90);
}
inline QColor gridHeader()
{
    return fromBgr(0xFFC864);
}
inline QColor notice()
{
    return QColor(255, 255, 0);
}

// Grid widths are given in twips: 1440 to the inch.
inline int twipsToPixels(int twips, int dpi)
{
    return twips * dpi / 1440;
}

} // namespace koral::colours
