#pragma once

#include "radiodb/dbase.h"

#include <span>

namespace koral {

// What the RSS panel's dialogs need of the connected radio: writing single sections of the
// database straight into its memory. Each write takes the section into the document first,
// whatever the radio answers, and returns whether the radio took it.
class RssRadio
{
public:
    virtual ~RssRadio() = default;
    virtual bool isConnected() const = 0;
    // The radio's channel mode as last reported; with CCIR numbers present, mode 2 leaves the
    // choice of guard channels to the radio.
    virtual int channelMode() const = 0;
    virtual bool writeChannels(dbase& document,
                               std::span<const channel, kChannelCount> channels) = 0;
    virtual bool writeGroups(dbase& document, std::span<const Group, kGroupCount> groups) = 0;
    // The radio options, the head and the accessory bytes of `edited`; the link is then
    // reopened at the baud rate the options configure.
    virtual bool programOptions(dbase& document, const dbase& edited) = 0;
};

} // namespace koral
