#pragma once

#include "radiodb/dbase.h"

#include <span>

namespace koral {

class Notifier;
class RadioLink;

// Writes sections of the radio database straight into the radio's memory. The radio keeps
// its numbers big-endian: each write converts a copy, so the document stays in host order
// whatever the write returns.
class MemoryProgramming
{
public:
    MemoryProgramming(RadioLink& link, Notifier& notifier);

    // The pause between two writes of the options sequence, in milliseconds.
    void setInterMessageDelay(int ms) { m_delayMs = ms; }

    // Takes the channels (or groups) into the document and writes them; 1 on success. The
    // radio takes section writes only in programming mode: the caller brackets them with
    // StartRADIOProgramming and StopRADIOProgramming.
    int writeChannels(dbase& document, std::span<const channel, kChannelCount> channels);
    int writeGroups(dbase& document, std::span<const Group, kGroupCount> groups);

    // The radio options dialog's values.
    struct Options
    {
        RadioOptions options;
        std::array<std::uint8_t, 1270> head; // wide information, option slots, ECN, SP, language
        std::uint8_t accessoryInstalled = 0;
        std::uint8_t tuner = 0;
        int baudIndex = 3; // the link is reopened at this rate afterwards
    };
    // Writes the options, the head and the accessories, ends programming and reopens the link,
    // naming the step that failed. 1 when every step succeeded.
    int writeOptionsReportingFaults(dbase& document, const Options& options);
    // "Program Options": enters programming mode first and reports nothing.
    int programOptions(dbase& document, const Options& options);

private:
    int writeSection(const dbase& document, std::size_t offset, std::size_t length);
    int writeOptions(dbase& document, const Options& options, bool report);
    int fail(bool report, std::string_view message);

    RadioLink& m_link;
    Notifier& m_notifier;
    int m_delayMs = 100;
};

} // namespace koral
