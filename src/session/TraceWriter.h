#pragma once

#include <mutex>
#include <string>

namespace koral {

// Formats diagnostic lines with a time stamp and drops them: the program keeps no trace file.
// Nothing is formatted while no trace has been started. Both threads of the session trace, so
// the writer keeps its state under a lock.
class TraceWriter
{
public:
    static constexpr std::size_t kTextLimit = 512;

    // Returns 0 while no trace was started, else 1 after formatting the line.
    int traceLine(const char* format, ...) __attribute__((format(printf, 2, 3)));
    // Names a new trace and formats its two opening lines.
    void startTraceLog(const std::string& fileName);

    std::string fileName() const;
    // The last line formatted (kept only so that the formatting can be inspected).
    std::string lastLine() const;

private:
    mutable std::mutex m_mutex;
    std::string m_fileName;
    std::string m_lastLine;
};

} // namespace koral
