#include "radiosim/BuiltInRadio.h"

#include "koralapi/InProcessPipe.h"
#include "koralapi/Ports.h"
#include "radiosim/PipeLine.h"
#include "radiosim/VirtualRadio.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>

namespace koral::radiosim {

namespace {
// The built-in radio's memory between two openings of the port: closing the port unplugs the
// cable, it does not erase the radio.
struct KeptMemory
{
    std::mutex mutex;
    std::optional<RadioMemory> memory;
};
} // namespace

void installBuiltInRadio(BuiltInRadioOptions options)
{
    auto kept = std::make_shared<KeptMemory>();
    setVirtualRadioFactory([options, kept](int baudRate) -> std::unique_ptr<QIODevice> {
        auto [program, radioEnd] = InProcessPipe::create();
        // Everything on the radio's side hangs off the program's endpoint, so closing the
        // port takes the radio with it.
        auto* line = new PipeLine(std::move(radioEnd), program.get());
        auto* radio = new VirtualRadio(line, line);
        {
            std::lock_guard lock(kept->mutex);
            if (kept->memory) {
                radio->restore(*kept->memory);
            }
        }
        radio->setOnClose([kept](const VirtualRadio& closing) {
            std::lock_guard lock(kept->mutex);
            kept->memory = closing.memory();
        });
        radio->setBaud(static_cast<unsigned>(std::max(baudRate, 0)), options.paced);
        if (options.onCreated) {
            options.onCreated(*radio);
        }
        return std::unique_ptr<QIODevice>(std::move(program));
    });
}

} // namespace koral::radiosim
