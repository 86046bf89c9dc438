#pragma once

#include <string>

namespace koral {

// Formats diagnostic lines with a time stamp and drops them: the program keeps no trace file.
// Nothing is formatted while no trace has been started.
class TraceWriter
{
public:
    static constexpr std::size_t kTextLimit = 512;

    // Returns 0 while no trace was started, else 1 after formatting the line.
    int traceLine(const char* format, ...) __attribute__((format(printf, 2, 3)));
    // Names a new trace and formats its two opening lines.
    void startTraceLog(const std::string& fileName);

    const std::string& fileName() const { return m_fileName; }
    // The last line formatted (kept only so that the formatting can be inspected).
    const std::string& lastLine() const { return m_lastLine; }

private:
    std::string m_fileName;
    std::string m_lastLine;
};

} // namespace koral
