#include "gui/ToolbarImages.h"

#include <QPainter>
#include <QPixmap>

namespace koral::ToolbarImages {

namespace {

// The image slots of the toolbar strip; the on/off commands sit from slot 3 on.
constexpr const char* kLabels[kPairDistance] = {"",    "",    "", "SQL", "MON", "NB",
                                                "ATT", "CLP", "", "",    "",    ""};

QPixmap plate(const QString& label, const QColor& face, const QColor& led, bool withLed)
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(face.darker(160), 1));
    painter.setBrush(face);
    painter.drawRoundedRect(QRectF(1.5, 1.5, 29, 29), 5, 5);
    if (withLed) {
        painter.setBrush(led);
        painter.setPen(QPen(led.darker(170), 1));
        painter.drawEllipse(QRectF(11, 4, 10, 8));
    }
    QFont font = painter.font();
    font.setPixelSize(label.size() > 3 ? 8 : 10);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRect(0, withLed ? 13 : 0, 32, withLed ? 17 : 32), Qt::AlignCenter, label);
    return pixmap;
}

} // namespace

QIcon icon(int index)
{
    const bool on = index < kPairDistance;
    const int command = index % kPairDistance;
    const QString label = QString::fromLatin1(kLabels[command]);
    return QIcon(plate(label, QColor(0xE8, 0xE8, 0xE0),
                       on ? QColor(0x20, 0xD0, 0x30) : QColor(0x50, 0x50, 0x50), true));
}

QIcon commandIcon(const QString& label, const QColor& colour)
{
    return QIcon(plate(label, colour, {}, false));
}

} // namespace koral::ToolbarImages
