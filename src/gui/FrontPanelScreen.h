#pragma once

#include <QFont>
#include <QWidget>

namespace koral {

class FrontPanelDisplay;

// The radio's display drawn as the head shows it: a backlit panel of three lines of forty
// character cells in a fixed-pitch face, the heading bold and taller. It redraws whenever the
// display model changes.
class FrontPanelScreen : public QWidget
{
    Q_OBJECT
public:
    explicit FrontPanelScreen(const FrontPanelDisplay& display, QWidget* parent = nullptr);

    // The faces of the display: normal (height 14) and bold (height 18).
    static QFont face(bool bold);
    // The lines as drawn, one per line of the display (tests read them here).
    QStringList shownLines() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const FrontPanelDisplay& m_display;
};

} // namespace koral
