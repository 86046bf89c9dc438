#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QSlider;

namespace koral {

class DspSlider;

// The clarifier or the notch filter: a slider with its scale, one-step buttons and the way
// back to "off". Every movement that ends on a position goes to the radio (DspSlider's rules).
class DspSliderDialog : public QDialog
{
    Q_OBJECT
public:
    explicit DspSliderDialog(DspSlider& slider, QWidget* parent = nullptr);

    QSlider* slider() const { return m_slider; }
    QPushButton* offButton() const { return m_off; }
    QPushButton* upButton() const { return m_up; }
    QPushButton* downButton() const { return m_down; }
    QLabel* stateLabel() const { return m_state; }

private:
    void refresh();

    DspSlider& m_model;
    QSlider* m_slider = nullptr;
    QPushButton* m_off = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QLabel* m_state = nullptr;
    QLabel* m_caption = nullptr;
};

} // namespace koral
