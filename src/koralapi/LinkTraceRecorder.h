#pragma once

#include "koralapi/LinkEvent.h"
#include "koralapi/LinkTraceRow.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <fstream>
#include <mutex>
#include <string>
#include <vector>

namespace koral {

// Collects the link's events as trace rows: the last `capacity` in memory (for a window) and,
// once writeTo was called, every one in a file as well. The link's I/O thread records while
// other threads read, so every call takes a short lock and none waits for anything else.
class LinkTraceRecorder
{
public:
    explicit LinkTraceRecorder(std::size_t capacity = kDefaultCapacity);

    static constexpr std::size_t kDefaultCapacity = 5000;

    // Writes every row from now on to `path` (the file is replaced), after a header that tells
    // when the trace started. False, with the reason in `error`, when the file cannot be made.
    bool writeTo(const std::string& path, std::string* error = nullptr);
    bool isWriting() const;

    // Stamps the event with the time since the trace started and keeps its row. Any thread.
    void record(LinkEvent event);

    // The rows recorded from number `next` on that are still kept; `next` becomes the number
    // of the row after the last one returned. Rows are numbered from 0 in recording order.
    std::vector<LinkTraceRow> rowsSince(std::uint64_t& next) const;
    // Forgets the rows kept in memory (the file goes on).
    void clear();
    // Saves the rows kept in memory as a trace file. False, with the reason, when it cannot.
    bool save(const std::string& path, std::string* error = nullptr) const;

    // The first line of a trace file.
    std::string header() const;

private:
    using Clock = std::chrono::steady_clock;

    const std::size_t m_capacity;
    const Clock::time_point m_start;
    const std::chrono::system_clock::time_point m_startWallClock;
    mutable std::mutex m_mutex;
    std::deque<LinkTraceRow> m_rows;
    std::uint64_t m_recorded = 0;
    std::ofstream m_file;
};

} // namespace koral
