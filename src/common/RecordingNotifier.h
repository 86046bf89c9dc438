#pragma once

#include "common/Notifier.h"

#include <deque>
#include <string>
#include <vector>

namespace koral {

// Keeps every message instead of showing it, and answers questions from a queue that a test
// fills beforehand (the default answer when the queue is empty is the first button: Ok or Yes).
class RecordingNotifier : public Notifier
{
public:
    struct Entry
    {
        std::string text;
        Icon icon = Icon::None;
        bool question = false;
        bool operator==(const Entry&) const = default;
    };

    void show(std::string_view text, Icon icon = Icon::None) override;
    Answer ask(std::string_view text, Buttons buttons, Icon icon = Icon::Question) override;

    void queueAnswer(Answer answer) { m_answers.push_back(answer); }
    const std::vector<Entry>& entries() const { return m_entries; }
    std::vector<std::string> texts() const;
    void clear() { m_entries.clear(); }

private:
    std::vector<Entry> m_entries;
    std::deque<Answer> m_answers;
};

} // namespace koral
