#pragma once

namespace koral {

struct dbase;

// What the RSS panel's dialogs need of the connected radio: writing single sections of the
// database straight into its memory. Each call returns whether the radio took the write.
class RssRadio
{
public:
    virtual ~RssRadio() = default;
    virtual bool isConnected() const = 0;
    virtual bool writeChannels(const dbase& record) = 0;
    virtual bool writeGroups(const dbase& record) = 0;
    // Writes the radio options, the head and the accessory bytes, then reopens the link at
    // the baud rate the options now configure (baudRate, bits per second).
    virtual bool programOptions(const dbase& record, int baudRate) = 0;
};

} // namespace koral
