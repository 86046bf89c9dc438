// How close the database read comes to the wire time of the record bytes alone.
//
// Reads every database of the paced built-in virtual radio (as Read Device does in ALE mode:
// radio, ALE, global members, extra options) at 4800 and 9600 baud and divides the time taken
// by the time the record bytes alone need on the wire (10 bits per byte). The target is at most
// 1.15: the framing, acknowledgements and requests may cost at most 15 %.

#include "koralapi/KoralApi.h"
#include "radiosim/BuiltInRadio.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <vector>

using namespace koral;

namespace {
constexpr double kTarget = 1.15;

bool measure(int baud)
{
    MessageEngine engine;
    if (!engine.OpenComPort(1, baud) || !engine.ConnectSocket(baud, 1)) {
        std::fprintf(stderr, "cannot connect to the virtual radio at %d baud\n", baud);
        return false;
    }
    const TransferTarget targets[] = {TransferTarget::Radio, TransferTarget::Ale,
                                      TransferTarget::GlobalMembers, TransferTarget::ExtraOptions};
    std::size_t bytes = 0;
    QElapsedTimer clock;
    clock.start();
    for (const TransferTarget target : targets) {
        std::vector<std::uint8_t> record(targetSize(static_cast<int>(target)));
        if (!readTarget(&engine, target, record, 0, {}, {}, 10)) {
            std::fprintf(stderr, "reading target %d failed at %d baud\n", static_cast<int>(target),
                         baud);
            return false;
        }
        bytes += record.size();
    }
    const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    const double wire = static_cast<double>(bytes) * 10.0 / baud;
    const double ratio = seconds / wire;
    std::printf("%5d baud: %zu record bytes in %.2f s, wire time %.2f s, ratio %.3f (target <= "
                "%.2f) %s\n",
                baud, bytes, seconds, wire, ratio, kTarget, ratio <= kTarget ? "ok" : "MISSED");
    engine.DisconnectSocket(1);
    engine.CloseComPort();
    return ratio <= kTarget;
}
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    radiosim::installBuiltInRadio({});
    bool ok = true;
    for (int baud : {4800, 9600})
        ok = measure(baud) && ok;
    return ok ? 0 : 1;
}
