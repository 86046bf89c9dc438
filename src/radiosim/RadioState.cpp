#include "radiosim/RadioState.h"

namespace koral::radiosim {

OperationMode RadioState::operationMode(bool ccirMode) const
{
    if (groupScanning) {
        return OperationMode::GroupScan;
    }
    if (ccirMode) {
        return OperationMode::SelectiveCall;
    }
    return aleOn ? OperationMode::Ale : OperationMode::FixedChannel;
}

} // namespace koral::radiosim
