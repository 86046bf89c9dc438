#include "aledb/AleCheck.h"

#include "aledb/AleText.h"
#include "common/Notifier.h"
#include "common/Texts.h"

#include <algorithm>

namespace koral {

void AleCheckResult::add(int netIndex, int code, std::string_view text, int secondNet,
                         Notifier& notifier)
{
    const int net = netIndex + 1;
    const std::string value(text);
    std::string line;
    switch (static_cast<AleCheckCode>(code)) {
    case AleCheckCode::Clear:
        lines.clear();
        return;
    case AleCheckCode::NoNetName:
        line = text::format(text::kAleNoNetName.data(), net);
        break;
    case AleCheckCode::NoScannedChannels:
        line = text::format(text::kAleNoScannedChannels.data(), net);
        break;
    case AleCheckCode::NoSelfAddress:
        line = text::format(text::kAleNoSelfAddress.data(), net);
        break;
    case AleCheckCode::NoNetsConfigured:
        line = text::kAleNoNetsConfigured;
        break;
    case AleCheckCode::SelfAddressIsNetName:
        line = text::format(text::kAleSelfAddressIsNetName.data(), net, value.c_str(), secondNet);
        break;
    case AleCheckCode::NetNameInDirectory:
        line = text::format(text::kAleNetNameInDirectory.data(), net, value.c_str());
        break;
    case AleCheckCode::SelfAddressInDirectory:
        line = text::format(text::kAleSelfAddressInDirectory.data(), net, value.c_str());
        break;
    case AleCheckCode::NoGlobalName:
        line = text::format(text::kAleNoGlobalName.data(), net);
        break;
    default:
        notifier.show(text::kAleConfigErrorUndefined, Icon::Warning);
        return;
    }
    lines.push_back(std::move(line));
    valid = false;
}

namespace {

bool hasScannedChannels(const ale_net& net)
{
    for (int channel = 1; channel <= 200; ++channel)
        if (net.isScanned(channel))
            return true;
    return false;
}

bool hasMembers(const ale_net& net)
{
    return std::any_of(net.members.begin(), net.members.end(),
                       [](std::uint8_t slot) { return slot < kSlotEmpty; });
}

bool inDirectory(const ale_dbase& db, std::string_view text)
{
    return std::any_of(db.directory.begin(), db.directory.end(),
                       [text](const AleAddress& entry) { return fieldText(entry) == text; });
}

} // namespace

AleCheckResult checkAleConfiguration(const ale_dbase& db, const ale_dbase_global_members& globals,
                                     bool globalMembers, Notifier& notifier)
{
    AleCheckResult result;
    auto add = [&](int n, AleCheckCode code, std::string_view text = {}, int second = 0) {
        result.add(n, static_cast<int>(code), text, second, notifier);
    };

    // Pass 1: what each net lacks. A net with a self address and scanned channels needs no
    // name; a name is asked for only once the net has members.
    for (int n = 0; n < kAleNetCount; ++n) {
        const ale_net& net = db.nets[n];
        const bool hasName = !fieldText(net.name).empty();
        const bool hasSelf = !fieldText(net.selfAddress).empty();
        const bool scanned = hasScannedChannels(net);
        const bool members = hasMembers(net);
        const bool used = hasName || members;
        bool configured = false;
        if (members && !hasName)
            add(n, AleCheckCode::NoNetName);
        if (hasSelf) {
            if (!scanned)
                add(n, AleCheckCode::NoScannedChannels);
            configured = true;
        } else if (scanned) {
            add(n, AleCheckCode::NoSelfAddress);
            configured = true;
        } else if (used) {
            add(n, AleCheckCode::NoScannedChannels);
            add(n, AleCheckCode::NoSelfAddress);
        }
        if (used || configured)
            result.someNetConfigured = true;
    }

    // Pass 2: names and addresses that collide.
    for (int n = 0; n < kAleNetCount; ++n) {
        const std::string_view name = fieldText(db.nets[n].name);
        const std::string_view self = fieldText(db.nets[n].selfAddress);
        if (!name.empty()) {
            for (int m = 0; m < kAleNetCount; ++m) {
                if (fieldText(db.nets[m].selfAddress) == name) {
                    add(n, AleCheckCode::SelfAddressIsNetName, name, m + 1);
                    break;
                }
            }
            if (inDirectory(db, name))
                add(n, AleCheckCode::NetNameInDirectory, name);
        }
        if (!self.empty() && inDirectory(db, self))
            add(n, AleCheckCode::SelfAddressInDirectory, self);
        // Only the first slot tells whether the group is in use.
        const auto& group = globals.nets[n];
        if (globalMembers && fieldText(group.name).empty() && group.members[0] != kSlotEmpty)
            add(n, AleCheckCode::NoGlobalName);
    }
    return result;
}

} // namespace koral
