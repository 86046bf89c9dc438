#include "session/FrontPanelDisplay.h"

#include "koralapi/Opcodes.h"

namespace koral {

bool FrontPanelDisplay::take(const CRadioMessage& message)
{
    const int kind = message[6];
    if (message.GetOpcode() != op::DisplayReport || kind > op::display::LastTextLine)
        return false;
    std::string text;
    for (std::size_t i = 7; i < 7 + kLineWidth && message[i] != 0; ++i) {
        const char c = static_cast<char>(message[i]);
        // The display has no glyph for control or eight-bit codes: a blank cell keeps the
        // columns where the radio meant them.
        text += c >= 0x20 && c < 0x7F ? c : ' ';
    }
    if (m_lines[std::size_t(kind)] == text)
        return true;
    m_lines[std::size_t(kind)] = std::move(text);
    emit changed();
    return true;
}

void FrontPanelDisplay::clear()
{
    m_lines = {};
    emit changed();
}

} // namespace koral
