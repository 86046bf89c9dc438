#pragma once

#include <cstdint>
#include <optional>
#include <set>

namespace koral::radiosim {

enum class FaultKind : std::uint8_t
{
    NoAnswer,   // the radio takes nothing and answers nothing
    AnswerOnce, // the next request is answered, then the radio falls silent
    Corrupt,    // the next frames go out with a damaged byte
    DropAfter,  // the line drops after so many more bytes from the radio
    Reject,     // requests of one opcode are refused with opcode 60
};

struct FaultCommand
{
    FaultKind kind = FaultKind::NoAnswer;
    unsigned value = 0; // frames to corrupt, bytes before the drop, or the rejected opcode
    bool operator==(const FaultCommand&) const = default;
};

// The faults in force. Each stays until cleared, except the counted ones, which wear off.
class FaultPlan
{
public:
    void apply(const FaultCommand& command);
    void clear() { *this = FaultPlan{}; }
    bool any() const;

    // Whether a request that arrived now is taken at all.
    bool acceptRequest() const { return !silent(); }
    // Called once the answer to an accepted request is on its way: uses up answer-once.
    void requestAnswered() { m_answered = m_answerOnce; }
    bool rejects(int opcode) const { return m_rejected.contains(opcode); }
    // Whether the frame about to go out is damaged (consumes one from the count).
    bool corruptNext();
    // How many bytes the radio may still send before the line drops; nullopt: no limit.
    std::optional<std::uint64_t> bytesBeforeDrop() const { return m_dropAfter; }
    // Counts bytes sent; true once the drop point has been reached.
    bool consumeBytes(std::uint64_t count);
    bool dropped() const { return m_dropped; }
    bool silent() const { return m_noAnswer || m_dropped || (m_answerOnce && m_answered); }

private:
    bool m_noAnswer = false;
    bool m_answerOnce = false;
    bool m_answered = false;
    unsigned m_corrupt = 0;
    std::optional<std::uint64_t> m_dropAfter;
    bool m_dropped = false;
    std::set<int> m_rejected;
};

} // namespace koral::radiosim
