#pragma once

#include <QObject>

namespace koral {

class RadioLink;

// One of the two receive-processing sliders of the Computer Interface panel without its
// window: the clarifier (-200 ... 200 in steps of 10, sent as direction and magnitude) or the
// notch filter (300 ... 2700 in steps of 240, sent as the step index; its lowest position is
// "off"). A movement that ends on a position goes to the radio at once; dragging sends
// nothing until the thumb is let go. Nothing is kept on the computer.
class DspSlider : public QObject
{
    Q_OBJECT
public:
    enum class Kind
    {
        Clarifier,
        Notch,
    };
    // How a movement came about; only the first five end on a position the radio is told.
    enum class Scroll
    {
        LineUp = 0,
        LineDown = 1,
        PageUp = 2,
        PageDown = 3,
        ThumbPosition = 4,
        ThumbTrack = 5,
        Top = 6,
        Bottom = 7,
        EndScroll = 8,
    };

    DspSlider(Kind kind, RadioLink& link, QObject* parent = nullptr);

    Kind kind() const { return m_kind; }
    int minimum() const;
    int maximum() const;
    int step() const;
    // The position where the slider is "off" (0 for the clarifier, 300 for the notch).
    int offPosition() const;

    int position() const { return m_position; }
    bool isOn() const { return m_position != offPosition(); }
    // -1 until first set, then 0 or 1.
    int enabledState() const { return m_enabled; }
    bool isEnabled() const { return m_enabled == 1; }
    bool isShown() const { return m_shown; }

    // The operator moved the slider to `position`: it is rounded to the step and, for the
    // movements that end on a position, sent. 1 when sent and taken, 0 otherwise.
    int scroll(int position, Scroll how);
    // "0" (clarifier) or "OFF" (notch): back to the off position, and the radio is told.
    int toOff();
    int stepUp();
    int stepDown();

    // The position the radio reported; shown, not sent back.
    void follow(int position);
    // Disabling first moves the slider to its off position without telling the radio.
    void setEnabled(bool enabled);
    void setShown(bool shown);

    // Nearest multiple of `step`, halves away from zero.
    static int roundToStep(int value, int step);
    // What is sent for a position: the clarifier's direction (0 off, 1 up, 2 down) and
    // magnitude, or the notch's step index in `first` (second unused).
    std::pair<int, int> radioValue(int position) const;

signals:
    void changed();

private:
    int send();

    Kind m_kind;
    RadioLink& m_link;
    int m_position;
    int m_enabled = -1;
    bool m_shown = false;
};

} // namespace koral
