#include "session/TraceWriter.h"

#include <cstdarg>
#include <cstdio>
#include <ctime>

namespace koral {

namespace {

std::tm localNow()
{
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    return parts;
}

} // namespace

std::string TraceWriter::fileName() const
{
    const std::lock_guard lock(m_mutex);
    return m_fileName;
}

std::string TraceWriter::lastLine() const
{
    const std::lock_guard lock(m_mutex);
    return m_lastLine;
}

int TraceWriter::traceLine(const char* format, ...)
{
    if (fileName().empty())
        return 0;
    char text[kTextLimit];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    const std::tm now = localNow();
    char line[kTextLimit + 32];
    std::snprintf(line, sizeof line, "<p>%02d:%02d:%02d  %s ", now.tm_hour, now.tm_min, now.tm_sec,
                  text);
    const std::lock_guard lock(m_mutex);
    m_lastLine = line;
    return 1;
}

void TraceWriter::startTraceLog(const std::string& fileName)
{
    {
        const std::lock_guard lock(m_mutex);
        m_fileName = fileName;
    }
    const auto ms = static_cast<long>(std::clock() * 1000 / CLOCKS_PER_SEC);
    traceLine("<p>---------------------------------------------------<p> S T A R T     N e w   "
              "L o g   %03ld.%03ld",
              ms / 1000, ms % 1000);
    const std::tm now = localNow();
    char stamp[64];
    std::strftime(stamp, sizeof stamp, "%H:%M:%S %d/%b /%Y", &now);
    traceLine("%s", stamp);
}

} // namespace koral
