#include "radiosim/BuiltInRadio.h"

#include "koralapi/InProcessPipe.h"
#include "koralapi/Ports.h"
#include "radiosim/PipeLine.h"
#include "radiosim/VirtualRadio.h"

#include <algorithm>

namespace koral::radiosim {

void installBuiltInRadio(BuiltInRadioOptions options)
{
    setVirtualRadioFactory([options](int baudRate) -> std::unique_ptr<QIODevice> {
        auto [program, radioEnd] = InProcessPipe::create();
        // Everything on the radio's side hangs off the program's endpoint, so closing the
        // port takes the radio with it.
        auto* line = new PipeLine(std::move(radioEnd), program.get());
        auto* radio = new VirtualRadio(line, line);
        radio->setBaud(static_cast<unsigned>(std::max(baudRate, 0)), options.paced);
        if (options.onCreated) {
            options.onCreated(*radio);
        }
        return std::unique_ptr<QIODevice>(std::move(program));
    });
}

} // namespace koral::radiosim
