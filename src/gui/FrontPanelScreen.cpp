#include "gui/FrontPanelScreen.h"

#include "session/FrontPanelDisplay.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>

namespace koral {

namespace {

constexpr int kNormalHeight = 14;
constexpr int kBoldHeight = 18;
constexpr int kBezel = 10;  // dark frame around the glass
constexpr int kMargin = 10; // glass around the text
constexpr int kLineGap = 6;

// The backlight and the segments' ink, as on the head's amber-green glass.
const QColor kGlassTop(0xB8, 0xD8, 0x5C);
const QColor kGlassBottom(0x96, 0xBC, 0x3A);
const QColor kInk(0x1A, 0x2A, 0x08);
const QColor kUnlitCell(0x8C, 0xB0, 0x34, 0x70);

int lineHeight(int index)
{
    return QFontMetrics(FrontPanelScreen::face(FrontPanelDisplay::isBold(index))).height();
}

} // namespace

FrontPanelScreen::FrontPanelScreen(const FrontPanelDisplay& display, QWidget* parent)
    : QWidget(parent), m_display(display)
{
    setObjectName(QStringLiteral("frontPanelScreen"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&m_display, &FrontPanelDisplay::changed, this, qOverload<>(&QWidget::update));
}

QFont FrontPanelScreen::face(bool bold)
{
    // The program carries the face when it was built where the face exists; the platform's
    // own copy, or its fixed-pitch face, serves otherwise.
    static const bool loaded = [] {
        for (const char* file : {":/fonts/DejaVuSansMono.ttf", ":/fonts/DejaVuSansMono-Bold.ttf"})
            QFontDatabase::addApplicationFont(QString::fromLatin1(file));
        return true;
    }();
    Q_UNUSED(loaded);
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPixelSize(bold ? kBoldHeight : kNormalHeight);
    font.setBold(bold);
    return font;
}

QStringList FrontPanelScreen::shownLines() const
{
    QStringList lines;
    for (int i = 0; i < FrontPanelDisplay::kLineCount; ++i)
        lines << QString::fromStdString(m_display.line(i));
    return lines;
}

QSize FrontPanelScreen::sizeHint() const
{
    int height = 0;
    int width = 0;
    for (int i = 0; i < FrontPanelDisplay::kLineCount; ++i) {
        height += lineHeight(i) + (i ? kLineGap : 0);
        const QFontMetrics metrics(face(FrontPanelDisplay::isBold(i)));
        width = std::max(width, metrics.horizontalAdvance(QLatin1Char('M')) *
                                    int(FrontPanelDisplay::kLineWidth));
    }
    return {width + 2 * (kBezel + kMargin), height + 2 * (kBezel + kMargin)};
}

void FrontPanelScreen::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QColor(0x10, 0x10, 0x10));
    painter.setBrush(QColor(0x2A, 0x2C, 0x2E));
    painter.drawRoundedRect(outer, 8, 8);

    const QRectF glass = outer.adjusted(kBezel, kBezel, -kBezel, -kBezel);
    QLinearGradient light(glass.topLeft(), glass.bottomLeft());
    light.setColorAt(0, kGlassTop);
    light.setColorAt(1, kGlassBottom);
    painter.setPen(QPen(QColor(0x50, 0x60, 0x20), 1));
    painter.setBrush(light);
    painter.drawRoundedRect(glass, 4, 4);

    // Faint unlit cells across every line, so the text sits on the display's grid.
    int y = int(glass.top()) + kMargin;
    const int x = int(glass.left()) + kMargin;
    const int textWidth = int(glass.width()) - 2 * kMargin;
    for (int i = 0; i < FrontPanelDisplay::kLineCount; ++i) {
        const QFont font = face(FrontPanelDisplay::isBold(i));
        const QFontMetrics metrics(font);
        const int cell = metrics.horizontalAdvance(QLatin1Char('M'));
        painter.setPen(Qt::NoPen);
        painter.setBrush(kUnlitCell);
        for (int c = 0; (c + 1) * cell <= textWidth; ++c)
            painter.drawRect(QRectF(x + c * cell + 1, y + 1, cell - 2, metrics.height() - 2));
        painter.setFont(font);
        painter.setPen(kInk);
        painter.drawText(QPoint(x, y + metrics.ascent()),
                         QString::fromStdString(m_display.line(i)));
        y += metrics.height() + kLineGap;
    }
}

} // namespace koral
