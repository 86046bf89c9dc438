// The rig-control server's speed against the paced built-in virtual radio.
//
// 1. Round trip of `f` (read the active channel's frequency) for one client: the time from
//    sending the line to reading the answer, over 200 requests.
// 2. Commands per second with 4 clients asking `f` back to back for 5 seconds each.
// Both at 9600 baud (the radio's usual rate) and at 115200. The clients run on their own
// threads with blocking sockets; the session and the server run the main thread's event loop,
// as in the application.

#include "common/RecordingNotifier.h"
#include "netcontrol/ClientCommands.h"
#include "netcontrol/NetworkControlServer.h"
#include "radiosim/BuiltInRadio.h"
#include "session/ControlCenterSession.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

using namespace koral;

namespace {

constexpr int kRoundTrips = 200;
constexpr int kClients = 4;
constexpr int kSustainMs = 5000;
constexpr int kBoundMs = 10000;

// One blocking client: sends `f` and waits for its answer line; the round trip in
// microseconds, or -1 when the answer did not come within the bound or was an error.
class BlockingClient
{
public:
    explicit BlockingClient(quint16 port)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, port);
        m_connected = m_socket.waitForConnected(kBoundMs);
    }
    qint64 askFrequency()
    {
        QElapsedTimer clock;
        clock.start();
        m_socket.write("f\n");
        if (!m_connected || !m_socket.waitForBytesWritten(kBoundMs))
            return -1;
        while (!m_socket.canReadLine()) {
            if (!m_socket.waitForReadyRead(kBoundMs))
                return -1;
        }
        const QByteArray line = m_socket.readLine();
        return line.startsWith("RPRT") ? -1 : clock.nsecsElapsed() / 1000;
    }

private:
    QTcpSocket m_socket;
    bool m_connected = false;
};

// Runs `work` on its own threads while the main thread serves; returns when all are done.
void serveWhile(std::vector<std::thread>& threads, std::atomic<int>& running)
{
    QEventLoop loop;
    QElapsedTimer guard;
    guard.start();
    while (running > 0 && guard.elapsed() < 4 * kSustainMs + kRoundTrips * kBoundMs)
        loop.processEvents(QEventLoop::AllEvents, 10);
    for (std::thread& thread : threads)
        thread.join();
}

bool measure(int baud)
{
    QTemporaryDir data;
    RecordingNotifier notifier;
    ControlCenterSession session(notifier, data.path().toStdString());
    session.link().usePortName("virtual", baud);
    session.startUpExchange();
    if (!session.view().radioReady) {
        std::fprintf(stderr, "the virtual radio at %d baud is not ready\n", baud);
        return false;
    }
    ClientCommands commands(session);
    NetworkControlServer server(commands);
    if (!server.listen(QHostAddress::LocalHost, 0)) {
        std::fprintf(stderr, "cannot listen: %s\n", qPrintable(server.errorString()));
        return false;
    }
    const quint16 port = server.port();

    std::vector<qint64> trips;
    std::atomic<int> running{1};
    std::vector<std::thread> threads;
    threads.emplace_back([&] {
        BlockingClient client(port);
        for (int i = 0; i < kRoundTrips; ++i)
            trips.push_back(client.askFrequency());
        --running;
    });
    serveWhile(threads, running);
    if (std::count(trips.begin(), trips.end(), -1) > 0) {
        std::fprintf(stderr, "a round trip failed at %d baud\n", baud);
        return false;
    }
    std::sort(trips.begin(), trips.end());
    const auto ms = [](qint64 us) { return double(us) / 1000.0; };
    std::printf("%6d baud  f round trip: median %.1f ms, 95th percentile %.1f ms, max %.1f ms\n",
                baud, ms(trips[trips.size() / 2]), ms(trips[trips.size() * 95 / 100]),
                ms(trips.back()));

    std::atomic<int> answered{0};
    std::atomic<int> failed{0};
    running = kClients;
    threads.clear();
    QElapsedTimer clock;
    clock.start();
    for (int c = 0; c < kClients; ++c) {
        threads.emplace_back([&] {
            BlockingClient client(port);
            QElapsedTimer own;
            own.start();
            while (own.elapsed() < kSustainMs)
                ++(client.askFrequency() < 0 ? failed : answered);
            --running;
        });
    }
    serveWhile(threads, running);
    const double seconds = double(clock.elapsed()) / 1000.0;
    std::printf("%6d baud  %d clients: %.1f commands per second (%d answered, %d failed)\n", baud,
                kClients, answered / seconds, answered.load(), failed.load());
    return failed == 0;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    radiosim::installBuiltInRadio();
    bool ok = true;
    for (const int baud : {9600, 115200})
        ok = measure(baud) && ok;
    return ok ? 0 : 1;
}
