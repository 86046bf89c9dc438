#include "AleTestSupport.h"

#include "aledb/AleText.h"

namespace koral::test {

AleProgramme emptyProgramme()
{
    AleProgramme p;
    for (auto& net : p.database.nets) {
        net.members.fill(kSlotEmpty);
        net.allCallChannel.set(kNoAllCallChannel);
        net.allCall = 3;
        net.scanRate = 2;
        net.silent = 1;
        net.homeAck = net.monitorAck = net.lqaRequest = 1;
    }
    for (auto& dial : p.database.autoDials)
        dial = {kSlotEmpty, kSlotEmpty};
    for (auto& group : p.globalMembers.nets)
        group.members.fill(kSlotEmpty);
    auto& o = p.database.options;
    o.alert = o.externalAlarm = o.autoAddress = o.quickPttCall = 1;
    o.anycall = o.wildcard = o.amdMessage = 1;
    return p;
}

void setNet(AleProgramme& p, int netNumber, std::string_view name, std::string_view self,
            std::initializer_list<int> scanned)
{
    ale_net& net = p.database.nets[netNumber - 1];
    setFieldText(net.name, name);
    setFieldText(net.selfAddress, self);
    for (int channel : scanned)
        net.setScanned(channel, true);
}

void setDirectory(AleProgramme& p, int index, std::string_view address)
{
    setFieldText(p.database.directory[index], address);
}

void setMessage(AleProgramme& p, int index, std::string_view text)
{
    setFieldText(p.database.messages[index], text);
}

} // namespace koral::test
