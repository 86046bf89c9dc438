#include "radiosim/FaultPlan.h"

namespace koral::radiosim {

void FaultPlan::apply(const FaultCommand& command)
{
    switch (command.kind) {
    case FaultKind::NoAnswer:
        m_noAnswer = true;
        break;
    case FaultKind::AnswerOnce:
        m_answerOnce = true;
        m_answered = false;
        break;
    case FaultKind::Corrupt:
        m_corrupt = command.value == 0 ? 1 : command.value;
        break;
    case FaultKind::DropAfter:
        m_dropAfter = command.value;
        m_dropped = false;
        break;
    case FaultKind::Reject:
        m_rejected.insert(static_cast<int>(command.value));
        break;
    }
}

bool FaultPlan::any() const
{
    return m_noAnswer || m_answerOnce || m_corrupt > 0 || m_dropAfter || !m_rejected.empty();
}

bool FaultPlan::corruptNext()
{
    if (m_corrupt == 0) {
        return false;
    }
    --m_corrupt;
    return true;
}

bool FaultPlan::consumeBytes(std::uint64_t count)
{
    if (!m_dropAfter) {
        return false;
    }
    *m_dropAfter = count >= *m_dropAfter ? 0 : *m_dropAfter - count;
    if (*m_dropAfter == 0) {
        m_dropped = true;
    }
    return m_dropped;
}

} // namespace koral::radiosim
