#include "aledb/AleOverview.h"

#include "aledb/AleSlots.h"
#include "aledb/AleText.h"

namespace koral::aleoverview {

namespace {

std::string textOf(std::span<const char> field)
{
    return std::string(fieldText(field));
}

} // namespace

std::string channelRanges(const ale_net& net)
{
    std::string out;
    int c = 1;
    while (c < kAleScanBits) {
        if (!net.isScanned(c)) {
            ++c;
            continue;
        }
        int last = c;
        while (last + 1 < kAleScanBits && net.isScanned(last + 1))
            ++last;
        if (!out.empty())
            out += ", ";
        out += std::to_string(c);
        if (last > c)
            out += '-' + std::to_string(last);
        c = last + 1;
    }
    return out;
}

Rows nets(const ale_dbase& db)
{
    Rows rows;
    for (int n = 0; n < kAleNetCount; ++n) {
        const ale_net& net = db.nets[std::size_t(n)];
        std::string members;
        for (std::uint8_t slot : net.members) {
            const std::string_view name = slotText(db, n, slot);
            if (name.empty())
                continue;
            if (!members.empty())
                members += ", ";
            members += name;
        }
        rows.push_back({textOf(net.name), textOf(net.selfAddress), members, channelRanges(net)});
    }
    return rows;
}

Rows directory(const ale_dbase& db)
{
    Rows rows;
    for (const AleAddress& address : db.directory)
        rows.push_back({textOf(address)});
    return rows;
}

Rows messages(const ale_dbase& db)
{
    Rows rows;
    for (const AleMessage& message : db.messages)
        rows.push_back({textOf(message)});
    return rows;
}

Rows autoDials(const ale_dbase& db)
{
    Rows rows;
    for (const ale_auto_dial& dial : db.autoDials) {
        const std::string address =
            dial.address < kAleDirectorySize ? textOf(db.directory[dial.address]) : std::string();
        const std::string message =
            dial.message < kAleMessageCount ? textOf(db.messages[dial.message]) : std::string();
        rows.push_back({address, message});
    }
    return rows;
}

} // namespace koral::aleoverview
