#include "radiodb/RadioSanitiser.h"

#include "radiodb/RadioValueLists.h"

#include <algorithm>
#include <cstring>

namespace koral {

namespace {

template <typename Number>
void limit(Number& value, int low, int high, int fallback)
{
    if (value < low || value > high)
        value = static_cast<Number>(fallback);
}

void limit(U16& field, int low, int high, int fallback)
{
    int value = field.get();
    limit(value, low, high, fallback);
    field.set(static_cast<std::uint16_t>(value));
}

void limitToList(std::uint8_t& value, ValueList list, int fallback)
{
    if (!holds(list, value))
        value = static_cast<std::uint8_t>(fallback);
}

void limitFrequency(U32& field, std::uint32_t low)
{
    const std::uint32_t hertz = field.get();
    if (hertz < low || hertz > kMaxHz)
        field.set(0);
}

void cleanTexts(dbase& db)
{
    cleanText(db.softwareVersion, kVersionChars);
    // The reserved text has no character set: only what follows its end is cleared.
    const std::string_view reserved = fieldText(db.reserved1);
    std::fill(db.reserved1.begin() + static_cast<std::ptrdiff_t>(reserved.size()),
              db.reserved1.end(), '\0');
    cleanText(db.serialNumber, kAlphanumericChars);
    cleanText(db.radioCode, kAlphanumericChars);
    cleanText(db.hardwareVersion, kVersionChars);
    cleanText(db.controlHeadSoftwareVersion, kVersionChars);
    cleanText(db.controlHeadHardwareVersion, kVersionChars);
    for (OptionRecord& option : db.options) {
        cleanText(option.softwareVersion, kVersionChars);
        cleanText(option.hardwareVersion, kVersionChars);
    }
    for (auto& entry : db.ecn)
        cleanText(entry, kEcnChars);
    for (auto& entry : db.sp)
        cleanText(entry, kAlphanumericChars);
    db.reserved3.fill(0);
}

void emptyUnsupportedChannels(dbase& db, int channelCount)
{
    for (int number = channelCount + 1; number <= kChannelCount; ++number) {
        db.channelNo(number).txFrequency.set(0);
        db.channelNo(number).rxFrequency.set(0);
    }
}

void limitGroups(dbase& db, int channelCount)
{
    for (Group& group : db.groups) {
        const int guard = group.guardChannel.get();
        if (!isChannelNumber(guard, channelCount) || !group.isMember(guard))
            group.guardChannel.set(kNoChannel);
        for (int bit = 0; bit < static_cast<int>(group.members.size()) * 8; ++bit) {
            if (!isChannelNumber(bit, channelCount))
                group.setMember(bit, false);
        }
        // setMember ignores the padding bits after channel 200.
        group.members.back() &= 0x80;
    }
}

void limitChannel(channel& ch)
{
    limitToList(ch.power, values::kPower, 5);
    limitToList(ch.sideband, values::kSideband, 1);
    limitToList(ch.bandwidth, values::kBandwidth, 0);
    limitFrequency(ch.txFrequency, kMinTxHz);
    limitFrequency(ch.rxFrequency, kMinRxHz);
    limitToList(ch.agc, values::kAgc, 0);
    limitToList(ch.modulation, values::kModulation, 0);
}

void limitParameters(ParameterBlock& parameters)
{
    for (auto& entry : parameters.entries) {
        limit(entry[0], 0, 60, 30);
        limit(entry[1], 0, 70, 35);
        for (std::size_t i = 2; i < entry.size(); ++i)
            limit(entry[i], 0, 127, 63);
    }
    limit(parameters.word, 0, 4095, 2047);
    limit(parameters.byte, 0, 127, 63);
}

void limitRadioOptions(dbase& db, int channelCount)
{
    RadioOptions& options = db.radioOptions;
    limit(options.priorityChannel, 1, channelCount, 1);
    limitToList(options.cwPttHold, values::kCwPttHold, 50);
    limitToList(options.scanRate, values::kScanRate, 2);
    limitToList(options.dataPowerLevel, values::kPower, 5);
    limitToList(options.alertTone, values::kAlertTone, 0);
    limitToList(options.alternateDisplayTime, values::kAlternateDisplayTime, 5);
    limitToList(options.accessorySideTone, values::kNoYes, 0);
    limitToList(options.microphoneSideTone, values::kNoYes, 0);
    limitToList(options.beepAfterKeyboardPress, values::kNoYes, 1);
    limitToList(options.beepAfterPttRelease, values::kNoYes, 1);
    limitToList(options.frequencyDisplay, values::kFrequencyDisplay, 1);
    limitToList(options.baudRate, values::kBaudRate, 3);
    limitToList(options.noiseBlanker, values::kNoYes, 1);
    limitToList(db.accessoryInstalled, values::kAccessoryInstalled, 0);
    limitToList(db.tuner, values::kNoYes, 0);
}

} // namespace

void cleanText(std::span<char> field, std::string_view allowed)
{
    const auto textEnd = std::find(field.begin(), field.end(), '\0');
    const auto kept = std::remove_if(field.begin(), textEnd, [allowed](char c) {
        return allowed.find(c) == std::string_view::npos;
    });
    std::fill(kept, field.end(), '\0');
}

void sanitise(dbase& db, int channelCount)
{
    channelCount = std::clamp(channelCount, 0, kChannelCount);
    cleanTexts(db);
    emptyUnsupportedChannels(db, channelCount);
    limitGroups(db, channelCount);
    for (channel& ch : db.channels)
        limitChannel(ch);
    limitParameters(db.parameters);
    limitRadioOptions(db, channelCount);
    // Without the lower sideband the radio cannot use it, whatever a channel says.
    if (db.option(OptionSlot::DeleteLsb).status == 1) {
        for (channel& ch : db.channels)
            ch.sideband = 1;
    }
    if (db.option(OptionSlot::NoiseBlanker).status != 1)
        db.radioOptions.noiseBlanker = 0;
}

dbase sanitised(const dbase& db, int channelCount)
{
    dbase copy = db;
    sanitise(copy, channelCount);
    return copy;
}

int compare(const dbase& a, const dbase& b, int channelCount)
{
    const dbase left = sanitised(a, channelCount);
    const dbase right = sanitised(b, channelCount);
    const int result = std::memcmp(&left, &right, sizeof(dbase));
    return (result > 0) - (result < 0);
}

} // namespace koral
