#pragma once

#include <ctime>
#include <string>

namespace koral {

// One call as the stack, the log and the grids keep it; every field is text.
struct CallRecord
{
    std::string from;
    std::string to;
    std::string date;     // MM/DD/YY
    std::string start;    // HH:MM:SS
    std::string end;      // HH:MM:SS
    std::string callType; // "Station", "Net" or "Priority"
    std::string net;
    std::string channel; // decimal; "255" for an automatic channel
    std::string message;
    // Carried with the record but neither saved nor shown.
    std::string extra;

    bool operator==(const CallRecord&) const = default;
};

// The date and time texts of a call record, in the forms the call files have always used.
std::string callDateText(const std::tm& time);
std::string callTimeText(const std::tm& time);
std::tm localTimeNow();

} // namespace koral
