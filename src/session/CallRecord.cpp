#include "session/CallRecord.h"

#include <cstdio>

namespace koral {

std::string callDateText(const std::tm& time)
{
    char text[40];
    std::snprintf(text, sizeof text, "%02d/%02d/%02d", time.tm_mon + 1, time.tm_mday,
                  time.tm_year % 100);
    return text;
}

std::string callTimeText(const std::tm& time)
{
    char text[40];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", time.tm_hour, time.tm_min, time.tm_sec);
    return text;
}

std::tm localTimeNow()
{
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    return parts;
}

} // namespace koral
