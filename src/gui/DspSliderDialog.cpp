#include "gui/DspSliderDialog.h"
#include "gui/QtText.h"

#include "common/Texts.h"
#include "session/DspSlider.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

namespace koral {

DspSliderDialog::DspSliderDialog(DspSlider& slider, QWidget* parent)
    : QDialog(parent, Qt::Tool), m_model(slider)
{
    const bool clarifier = slider.kind() == DspSlider::Kind::Clarifier;
    setObjectName(clarifier ? "clarifierDialog" : "notchDialog");
    setWindowTitle(qs(clarifier ? text::kClarifier : text::kNotchFilter));
    auto* grid = new QGridLayout(this);
    m_caption = new QLabel(qs(clarifier ? text::kClarifier : text::kNotchFilter), this);
    QFont bold = m_caption->font();
    bold.setBold(true);
    m_caption->setFont(bold);
    grid->addWidget(m_caption, 0, 0, 1, 5);
    m_state = new QLabel(this);
    m_state->setObjectName("dspState");
    m_state->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(m_state, 0, 5, 1, 2);

    m_down = new QPushButton(QStringLiteral("<"), this);
    m_up = new QPushButton(QStringLiteral(">"), this);
    m_down->setFixedWidth(28);
    m_up->setFixedWidth(28);
    m_slider = new QSlider(Qt::Horizontal, this);
    m_slider->setRange(slider.minimum(), slider.maximum());
    m_slider->setSingleStep(slider.step());
    m_slider->setPageStep(slider.step());
    m_slider->setTickInterval(slider.step());
    m_slider->setTickPosition(QSlider::TicksBelow);
    m_slider->setMinimumWidth(300);
    grid->addWidget(m_down, 1, 0);
    grid->addWidget(m_slider, 1, 1, 1, 5);
    grid->addWidget(m_up, 1, 6);
    const auto& scale = clarifier ? text::kClarifierScale : text::kNotchScale;
    for (int i = 0; i < 5; ++i) {
        auto* mark = new QLabel(qs(scale[i]), this);
        mark->setAlignment(i == 0 ? Qt::AlignLeft : i == 4 ? Qt::AlignRight : Qt::AlignHCenter);
        grid->addWidget(mark, 2, i + 1);
    }
    m_off = new QPushButton(qs(clarifier ? text::kClarifierZero : text::kDspOff), this);
    m_off->setObjectName("dspOff");
    grid->addWidget(m_off, 3, 3);

    // A drag is told to the radio when the thumb is let go; keys, clicks beside the thumb and
    // the wheel end on their position at once.
    connect(m_slider, &QSlider::valueChanged, this, [this](int value) {
        if (!m_slider->isSliderDown())
            m_model.scroll(value, DspSlider::Scroll::LineDown);
    });
    connect(m_slider, &QSlider::sliderMoved, this,
            [this](int value) { m_model.scroll(value, DspSlider::Scroll::ThumbTrack); });
    connect(m_slider, &QSlider::sliderReleased, this,
            [this] { m_model.scroll(m_slider->value(), DspSlider::Scroll::ThumbPosition); });
    connect(m_off, &QPushButton::clicked, this, [this] { m_model.toOff(); });
    connect(m_up, &QPushButton::clicked, this, [this] { m_model.stepUp(); });
    connect(m_down, &QPushButton::clicked, this, [this] { m_model.stepDown(); });
    connect(&m_model, &DspSlider::changed, this, &DspSliderDialog::refresh);
    refresh();
}

void DspSliderDialog::refresh()
{
    {
        const QSignalBlocker blocker(m_slider);
        m_slider->setValue(m_model.position());
    }
    const bool on = m_model.isOn();
    if (m_model.kind() == DspSlider::Kind::Clarifier) {
        m_state->setText(qs(on ? text::kDspOn : text::kDspOff));
        // "0" is offered only away from zero.
        m_off->setVisible(on);
    } else {
        m_state->setText(on ? QString::number(m_model.position()) : qs(text::kDspOff));
    }
    const bool enabled = m_model.isEnabled();
    for (QWidget* w :
         {static_cast<QWidget*>(m_slider), static_cast<QWidget*>(m_caption),
          static_cast<QWidget*>(m_up), static_cast<QWidget*>(m_down), static_cast<QWidget*>(m_off)})
        w->setEnabled(enabled);
    setVisible(m_model.isShown());
}

} // namespace koral
