#pragma once

#include "session/CallFiles.h"
#include "session/CallRecord.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace koral {

// The session's calls: the stack of calls waiting for a reply, the log of finished calls,
// the call being made or received, the prepared messages, and the value the radio reported
// last for each channel. The lists are kept in the data directory between runs.
class CallStore
{
public:
    explicit CallStore(std::filesystem::path dataDirectory);

    const std::filesystem::path& dataDirectory() const { return m_dataDirectory; }

    std::vector<CallRecord>& stack() { return m_stack; }
    std::vector<CallRecord>& log() { return m_log; }
    std::vector<std::string>& messages() { return m_messages; }
    CallRecord& currentCall() { return m_current; }

    // Ends the current call now and keeps it in the log and on the stack; a full list lets
    // its oldest record go.
    void recordFinishedCall(const std::tm& end);

    // The per-channel value (channels 1..200; 0 for others and for unreported channels).
    int channelValue(int channel) const;
    void setChannelValue(int channel, int value);

    // Loads and saves stack.txt, log.txt and msg.txt; a save reports false when a file could
    // not be written (`error` names it).
    void load();
    bool save(std::string* error = nullptr) const;

private:
    std::filesystem::path m_dataDirectory;
    std::vector<CallRecord> m_stack;
    std::vector<CallRecord> m_log;
    std::vector<std::string> m_messages;
    CallRecord m_current;
    std::array<int, 201> m_channelValues{};
};

} // namespace koral
