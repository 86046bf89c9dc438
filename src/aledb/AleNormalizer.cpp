#include "aledb/AleNormalizer.h"

#include "aledb/AleText.h"

#include <algorithm>
#include <initializer_list>

namespace koral {

namespace {

void clampTo(std::uint8_t& value, int low, int high, std::uint8_t fallback)
{
    if (value < low || value > high)
        value = fallback;
}

void keepIfOneOf(std::uint8_t& value, std::initializer_list<int> allowed, std::uint8_t fallback)
{
    if (std::find(allowed.begin(), allowed.end(), value) == allowed.end())
        value = fallback;
}

void normalizeNet(ale_net& net, int maxChannel)
{
    cleanField(net.name, kAleAddressCharacters);
    cleanField(net.selfAddress, kAleAddressCharacters);
    normalizeNetChannels(net, maxChannel);
    clampTo(net.allCall, 0, 3, 3);
    clampTo(net.tuneTime, 0, 20, 0);
    clampTo(net.silent, 0, 1, 1);
    clampTo(net.homeAck, 0, 1, 1);
    clampTo(net.monitorAck, 0, 1, 1);
    // The radio offers only these two rates, whatever older files say.
    keepIfOneOf(net.scanRate, {2, 5}, 2);
    clampTo(net.masterSlave, 0, 1, 0);
    clampTo(net.lqaRequest, 0, 1, 1);
    keepIfOneOf(net.sounding, {0, 30, 60, 90, 120}, 0);
    if (net.occupancyCheck != 0)
        clampTo(net.occupancyCheck, 3, 30, 0);
}

// A reference keeps only what the file can carry: a slot or dial naming an entry without text
// would be saved as an empty text, which loads as no reference at all.
void settleReferences(ale_dbase& db)
{
    const auto namesNothing = [&db](std::uint8_t slot) {
        return slot >= kAleDirectorySize || fieldText(db.directory[slot]).empty();
    };
    for (auto& net : db.nets) {
        for (auto& slot : net.members) {
            if (slot != kSlotSelfAddress && namesNothing(slot))
                slot = kSlotEmpty;
        }
    }
    for (auto& dial : db.autoDials) {
        if (namesNothing(dial.address))
            dial.address = kSlotEmpty;
        // A dial without a message is saved with a blank in its place, so a message of blanks
        // only cannot be told from none.
        if (dial.message >= kAleMessageCount ||
            fieldText(db.messages[dial.message]).find_first_not_of(' ') == std::string_view::npos)
            dial.message = kSlotEmpty;
    }
}

void normalizeOptions(ale_options& o)
{
    clampTo(o.pttTimeout, 0, 10, 0);
    clampTo(o.alert, 0, 1, 1);
    clampTo(o.externalAlarm, 0, 1, 1);
    clampTo(o.autoAddress, 0, 1, 1);
    clampTo(o.quickPttCall, 0, 1, 1);
    clampTo(o.minLqaScore, 0, 100, 0);
    clampTo(o.acceptLinkTimeout, 0, 2, 0);
    clampTo(o.multinet, 0, 1, 0);
    clampTo(o.anycall, 0, 1, 1);
    clampTo(o.wildcard, 0, 1, 1);
    clampTo(o.amdMessage, 0, 1, 1);
    clampTo(o.inLink, 0, 1, 0);
}

} // namespace

void normalizeNetChannels(ale_net& net, int maxChannel)
{
    const int last = std::clamp(maxChannel, 0, kAleScanBits - 1);
    const int allCall = net.allCallChannel.get();
    if (allCall == 0 || allCall > last || !net.isScanned(allCall))
        net.allCallChannel.set(kNoAllCallChannel);

    ale_net rebuilt{};
    for (int channel = 1; channel <= last; ++channel)
        rebuilt.setScanned(channel, net.isScanned(channel));
    net.scannedChannels = rebuilt.scannedChannels;
}

void normalizeAleDatabase(ale_dbase& db, int maxChannel)
{
    for (auto& net : db.nets)
        normalizeNet(net, maxChannel);
    normalizeOptions(db.options);
    for (auto& entry : db.directory)
        cleanField(entry, kAleAddressCharacters);
    for (auto& message : db.messages)
        cleanField(message, kAleMessageCharacters);
    settleReferences(db);
}

} // namespace koral
