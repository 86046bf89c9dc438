#include "common/RecordingNotifier.h"

namespace koral {

void RecordingNotifier::show(std::string_view text, Icon icon)
{
    m_entries.push_back({std::string(text), icon, false});
}

Answer RecordingNotifier::ask(std::string_view text, Buttons buttons, Icon icon)
{
    m_entries.push_back({std::string(text), icon, true});
    if (!m_answers.empty()) {
        const Answer answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }
    switch (buttons) {
    case Buttons::YesNo:
        return Answer::Yes;
    case Buttons::SaveDiscardCancel:
        return Answer::Save;
    case Buttons::Ok:
    case Buttons::OkCancel:
        break;
    }
    return Answer::Ok;
}

std::vector<std::string> RecordingNotifier::texts() const
{
    std::vector<std::string> result;
    result.reserve(m_entries.size());
    for (const Entry& entry : m_entries)
        result.push_back(entry.text);
    return result;
}

} // namespace koral
