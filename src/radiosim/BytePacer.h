#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace koral::radiosim {

// Releases bytes no faster than a serial line at a given baud rate carries them: one start
// bit, eight data bits and one stop bit per byte. A byte counts as delivered when its last
// bit would have arrived. Time is passed in, so the arithmetic holds over any run length
// whatever the timer resolution of the caller.
class BytePacer
{
public:
    using Clock = std::chrono::steady_clock;

    // 0 switches pacing off: every byte is due at once.
    void setBaud(unsigned baud);
    unsigned baud() const { return m_baud; }
    std::chrono::nanoseconds byteTime() const { return m_byteTime; }

    void push(std::span<const std::uint8_t> bytes, Clock::time_point now);
    // The bytes whose last bit has arrived by now, in order.
    std::vector<std::uint8_t> take(Clock::time_point now);
    // When the next byte will be due; nullopt when nothing waits.
    std::optional<Clock::time_point> nextDue() const;
    bool empty() const { return m_queue.empty(); }
    std::size_t pending() const { return m_queue.size(); }
    void clear() { m_queue.clear(); }

private:
    unsigned m_baud = 0;
    std::chrono::nanoseconds m_byteTime{0};
    std::deque<std::uint8_t> m_queue;
    Clock::time_point m_lineFreeAt{}; // when the byte last taken finished on the line
};

} // namespace koral::radiosim
