#include "session/DspSlider.h"

#include "koralapi/Builders.h"
#include "session/RadioLink.h"

#include <algorithm>
#include <cstdlib>

namespace koral {

namespace {

constexpr int kNotchMinimum = 300;
constexpr int kNotchMaximum = 2700;
constexpr int kNotchStep = 240;
constexpr int kClarifierLimit = 200;
constexpr int kClarifierStep = 10;
// The further DSP settings ride on the notch message as "leave unchanged".
constexpr int kUnchanged = 255;

} // namespace

DspSlider::DspSlider(Kind kind, RadioLink& link, QObject* parent)
    : QObject(parent), m_kind(kind), m_link(link), m_position(offPosition())
{}

int DspSlider::minimum() const
{
    return m_kind == Kind::Clarifier ? -kClarifierLimit : kNotchMinimum;
}

int DspSlider::maximum() const
{
    return m_kind == Kind::Clarifier ? kClarifierLimit : kNotchMaximum;
}

int DspSlider::step() const
{
    return m_kind == Kind::Clarifier ? kClarifierStep : kNotchStep;
}

int DspSlider::offPosition() const
{
    return m_kind == Kind::Clarifier ? 0 : kNotchMinimum;
}

int DspSlider::roundToStep(int value, int step)
{
    const int magnitude = std::abs(value);
    const int rounded = (magnitude + step / 2) / step * step;
    return value < 0 ? -rounded : rounded;
}

std::pair<int, int> DspSlider::radioValue(int position) const
{
    if (m_kind == Kind::Notch)
        return {(position - kNotchMinimum) / kNotchStep, 0};
    return {position == 0 ? 0 : position > 0 ? 1 : 2, std::abs(position)};
}

int DspSlider::scroll(int position, Scroll how)
{
    const int origin = m_kind == Kind::Notch ? kNotchMinimum : 0;
    const int rounded = origin + roundToStep(position - origin, step());
    m_position = std::clamp(rounded, minimum(), maximum());
    emit changed();
    return how <= Scroll::ThumbPosition ? send() : 0;
}

int DspSlider::toOff()
{
    return scroll(offPosition(), Scroll::ThumbPosition);
}

int DspSlider::stepUp()
{
    return scroll(std::min(m_position + step(), maximum()), Scroll::LineDown);
}

int DspSlider::stepDown()
{
    return scroll(std::max(m_position - step(), minimum()), Scroll::LineUp);
}

void DspSlider::follow(int position)
{
    m_position = std::clamp(position, minimum(), maximum());
    emit changed();
}

void DspSlider::setEnabled(bool enabled)
{
    if (m_enabled == int(enabled))
        return;
    if (!enabled)
        m_position = offPosition();
    m_enabled = enabled ? 1 : 0;
    emit changed();
}

void DspSlider::setShown(bool shown)
{
    m_shown = shown;
    emit changed();
}

int DspSlider::send()
{
    const auto [first, second] = radioValue(m_position);
    CRadioMessage request = RadioLink::newRequest();
    if (m_kind == Kind::Clarifier)
        SetClarifier(&request, 0, first, second);
    else
        SetDspMenuParameters(&request, 0, first, kUnchanged, kUnchanged, kUnchanged);
    // A radio that does not answer has been reported; the slider keeps its new position.
    return m_link.sendToRadio(request);
}

} // namespace koral
