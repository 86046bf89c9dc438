#include "koralapi/LinkTraceRecorder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>

namespace koral {

namespace {

bool openFor(std::ofstream& file, const std::string& path, std::string* error)
{
    errno = 0;
    file.open(path, std::ios::out | std::ios::trunc);
    if (file)
        return true;
    if (error)
        *error = std::strerror(errno != 0 ? errno : ENOENT);
    return false;
}

} // namespace

LinkTraceRecorder::LinkTraceRecorder(std::size_t capacity)
    : m_capacity(capacity), m_start(Clock::now()),
      m_startWallClock(std::chrono::system_clock::now())
{}

std::string LinkTraceRecorder::header() const
{
    const std::time_t started = std::chrono::system_clock::to_time_t(m_startWallClock);
    std::tm parts{};
    localtime_r(&started, &parts);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y-%m-%d %H:%M:%S", &parts);
    return std::string("# KORAL link trace started ") + stamp +
           "; times in milliseconds since then; -> sent, <- received\n";
}

bool LinkTraceRecorder::writeTo(const std::string& path, std::string* error)
{
    std::ofstream file;
    if (!openFor(file, path, error))
        return false;
    file << header() << std::flush;
    const std::lock_guard lock(m_mutex);
    m_file = std::move(file);
    return true;
}

bool LinkTraceRecorder::isWriting() const
{
    const std::lock_guard lock(m_mutex);
    return m_file.is_open();
}

void LinkTraceRecorder::record(LinkEvent event)
{
    event.timeMs =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_start).count();
    LinkTraceRow row = LinkTraceRow::describe(event);
    const std::lock_guard lock(m_mutex);
    if (m_file.is_open())
        m_file << row.line() << '\n' << std::flush; // a trace must survive a crash
    ++m_recorded;
    if (m_capacity == 0)
        return;
    if (m_rows.size() >= m_capacity)
        m_rows.pop_front();
    m_rows.push_back(std::move(row));
}

std::vector<LinkTraceRow> LinkTraceRecorder::rowsSince(std::uint64_t& next) const
{
    const std::lock_guard lock(m_mutex);
    const std::uint64_t first = m_recorded - m_rows.size();
    const std::uint64_t from = std::max(next, first);
    next = m_recorded;
    if (from >= m_recorded)
        return {};
    return {m_rows.begin() + static_cast<std::ptrdiff_t>(from - first), m_rows.end()};
}

void LinkTraceRecorder::clear()
{
    const std::lock_guard lock(m_mutex);
    m_rows.clear();
}

bool LinkTraceRecorder::save(const std::string& path, std::string* error) const
{
    std::uint64_t from = 0;
    const std::vector<LinkTraceRow> rows = rowsSince(from);
    std::ofstream file;
    if (!openFor(file, path, error))
        return false;
    file << header();
    for (const LinkTraceRow& row : rows)
        file << row.line() << '\n';
    file.flush();
    if (!file) {
        if (error)
            *error = std::strerror(errno != 0 ? errno : EIO);
        return false;
    }
    return true;
}

} // namespace koral
