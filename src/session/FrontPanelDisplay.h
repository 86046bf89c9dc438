#pragma once

#include "koralapi/CRadioMessage.h"

#include <QObject>

#include <array>
#include <string>

namespace koral {

// What the radio's display shows, as its display reports (opcode 27, kinds 0 to 2) tell it:
// three lines of at most 40 characters. The top line is the display's heading and is drawn
// bold and taller; the other two are the body. Reports of other kinds (the self-test's) are
// not the display's.
class FrontPanelDisplay : public QObject
{
    Q_OBJECT
public:
    static constexpr int kLineCount = 3;
    static constexpr std::size_t kLineWidth = 40;

    using QObject::QObject;

    // Takes a display line from `message`; false (and nothing changes) for any other message.
    bool take(const CRadioMessage& message);
    void clear();

    const std::string& line(int index) const { return m_lines.at(std::size_t(index)); }
    static bool isBold(int index) { return index == 0; }

signals:
    void changed();

private:
    std::array<std::string, kLineCount> m_lines;
};

} // namespace koral
