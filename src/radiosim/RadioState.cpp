#include "radiosim/RadioState.h"

namespace koral::radiosim {

OperationMode RadioState::operationMode() const
{
    if (call == CallPhase::Linked) {
        return OperationMode::Linked;
    }
    if (groupScanning) {
        return OperationMode::GroupScan;
    }
    if (aleScanning) {
        return OperationMode::AleScan;
    }
    if (justProgrammed) {
        return OperationMode::Programmed;
    }
    return aleOn ? OperationMode::Ale : OperationMode::Channel;
}

} // namespace koral::radiosim
