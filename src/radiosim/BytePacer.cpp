#include "radiosim/BytePacer.h"

#include <algorithm>

namespace koral::radiosim {

void BytePacer::setBaud(unsigned baud)
{
    m_baud = baud;
    m_byteTime =
        baud == 0 ? std::chrono::nanoseconds{0} : std::chrono::nanoseconds{10'000'000'000LL / baud};
}

void BytePacer::push(std::span<const std::uint8_t> bytes, Clock::time_point now)
{
    if (m_queue.empty()) {
        // An idle line starts the first byte now, not back when it last carried something.
        m_lineFreeAt = std::max(m_lineFreeAt, now);
    }
    m_queue.insert(m_queue.end(), bytes.begin(), bytes.end());
}

std::vector<std::uint8_t> BytePacer::take(Clock::time_point now)
{
    std::vector<std::uint8_t> due;
    if (m_byteTime.count() == 0) {
        due.assign(m_queue.begin(), m_queue.end());
        m_queue.clear();
        m_lineFreeAt = now;
        return due;
    }
    while (!m_queue.empty() && m_lineFreeAt + m_byteTime <= now) {
        due.push_back(m_queue.front());
        m_queue.pop_front();
        m_lineFreeAt += m_byteTime;
    }
    return due;
}

std::optional<BytePacer::Clock::time_point> BytePacer::nextDue() const
{
    if (m_queue.empty()) {
        return std::nullopt;
    }
    return m_lineFreeAt + m_byteTime;
}

} // namespace koral::radiosim
