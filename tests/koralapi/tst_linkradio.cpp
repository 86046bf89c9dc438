// The link suite against the virtual radio, written once and run over the in-process pipe
// (the built-in port 1), a real pseudo-terminal and TCP; how the radio is served: a built-in
// radio that outlives its port, pacing at the baud rate; and the engine's own logic: waits that
// end, what a stopped transfer leaves behind, the typed calls, ports that do not open.

#include "koralapi/KoralApi.h"
#include "radiosim/BuiltInContents.h"
#include "radiosim/BuiltInRadio.h"
#include "radiosim/ConsoleCommand.h"
#include "radiosim/PtyLine.h"
#include "radiosim/TcpLine.h"
#include "radiosim/VirtualRadio.h"

#include <QElapsedTimer>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <numeric>
#include <thread>

using namespace koral;
using namespace koral::radiosim;

namespace {
constexpr int kBaud = 115200;

CRadioMessage built(const std::function<int(CRadioMessage*)>& build)
{
    CRadioMessage message;
    message.prepareRequest();
    build(&message);
    return message;
}

// A virtual radio serving a pseudo-terminal or a TCP port from a thread of its own.
class RadioHost
{
public:
    explicit RadioHost(const QString& transport)
    {
        m_thread.start();
        m_context.moveToThread(&m_thread);
        QMetaObject::invokeMethod(
            &m_context,
            [&] {
                if (transport == "pty") {
                    auto* pty = new PtyLine(&m_context);
                    pty->open();
                    m_line = pty;
                } else {
                    auto* tcp = new TcpLine(&m_context);
                    tcp->listen(0);
                    m_line = tcp;
                }
                m_radio = new VirtualRadio(m_line, &m_context);
                m_radio->execute(SetBaud{kBaud});
                m_portName = m_line->description().toStdString();
            },
            Qt::BlockingQueuedConnection);
    }
    ~RadioHost()
    {
        QMetaObject::invokeMethod(
            &m_context,
            [&] {
                delete m_radio;
                delete m_line;
            },
            Qt::BlockingQueuedConnection);
        m_thread.quit();
        m_thread.wait();
    }
    const std::string& portName() const { return m_portName; }
    VirtualRadio* radio() const { return m_radio; }

private:
    QThread m_thread;
    QObject m_context;
    RadioLine* m_line = nullptr;
    VirtualRadio* m_radio = nullptr;
    std::string m_portName;
};
} // namespace

class TestLinkRadio : public QObject
{
    Q_OBJECT

    std::unique_ptr<RadioHost> host;
    std::unique_ptr<MessageEngine> engine;
    std::atomic<VirtualRadio*> builtIn{nullptr};

    VirtualRadio* radio() const { return host ? host->radio() : builtIn.load(); }
    void command(const ConsoleCommand& console) { radio()->executeFromAnyThread(console); }

    static void addTransports()
    {
        QTest::addColumn<QString>("transport");
        QTest::newRow("in-process") << "pipe";
        QTest::newRow("pty") << "pty";
        QTest::newRow("tcp") << "tcp";
    }

    bool open(const QString& transport)
    {
        if (transport == "pipe") {
            installBuiltInRadio({false, [this](VirtualRadio& r) { builtIn = &r; }});
            if (!engine->OpenComPort(1, kBaud))
                return false;
        } else {
            host = std::make_unique<RadioHost>(transport);
            if (host->portName().empty() || !engine->OpenPortByName(host->portName(), kBaud))
                return false;
        }
        return engine->ConnectSocket(kBaud, 1) != 0;
    }

private slots:
    void init() { engine = std::make_unique<MessageEngine>(); }
    void cleanup()
    {
        engine.reset();
        host.reset();
        builtIn = nullptr;
        setVirtualRadioFactory({});
    }

    // A channel change brings an unsolicited channel report to the worker, in order, while
    // the reply the user-interface thread waits for never reaches it.
    void repliesStayApartFromReports_data() { addTransports(); }
    void repliesStayApartFromReports()
    {
        QFETCH(QString, transport);
        QVERIFY(open(transport));
        std::atomic<bool> stop{false};
        std::atomic<int> reports{0}, stolen{0};
        std::vector<int> channels; // read once the worker has ended
        std::thread worker([&] {
            CRadioMessage message;
            while (!stop) {
                if (engine->GetMessage(&message, 1) != 1)
                    continue;
                if (message.GetOpcode() == op::ChannelReport)
                    channels.push_back(message[7]), ++reports;
                stolen += message.GetOpcode() == op::ActiveChannel;
            }
        });
        for (int channel : {3, 5, 7}) {
            const CRadioMessage set =
                built([channel](CRadioMessage* m) { return SetActiveChannel(m, 0, channel); });
            QVERIFY(engine->SendRadioMessage(&set));
            CRadioMessage reply;
            QVERIFY(engine->request(built(ReportActiveChannel), op::ActiveChannel, &reply));
            QCOMPARE(int(reply[7]), channel);
        }
        QTRY_VERIFY_WITH_TIMEOUT(reports >= 3, 5000);
        stop = true;
        worker.join();
        QCOMPARE(stolen.load(), 0);
        QCOMPARE(channels, (std::vector<int>{3, 5, 7}));
    }

    // Every database reads as the radio holds it, and what is written comes back byte for
    // byte; the progress counts every record byte. A progress answer of 0 stops a read at once.
    void databasesRoundTrip_data() { addTransports(); }
    void databasesRoundTrip()
    {
        QFETCH(QString, transport);
        QVERIFY(open(transport));
        const RadioDatabases db = builtInDatabases();
        const std::pair<TransferTarget, std::span<const std::uint8_t>> targets[] = {
            {TransferTarget::Radio, db.radio},
            {TransferTarget::Ale, db.ale},
            {TransferTarget::GlobalMembers, db.globalMembers},
            {TransferTarget::ExtraOptions, db.extraOptions}};
        for (const auto& [target, builtIn] : targets) {
            std::vector<std::uint8_t> record(targetSize(static_cast<int>(target)));
            int moved = 0;
            const ProgressCallback count = [&](int n) { return moved += n, 1; };
            QVERIFY(readTarget(engine.get(), target, record, 0, {}, count, 10));
            QCOMPARE(moved, static_cast<int>(record.size()));
            std::vector<std::uint8_t> radioOrder = record;
            convertByteOrder(target, radioOrder);
            QVERIFY(std::ranges::equal(radioOrder, builtIn));
            // A changed byte in the middle of the record (a channel name or frequency).
            record[record.size() / 2] ^= 0x01;
            moved = 0;
            QVERIFY(writeTarget(engine.get(), target, record, 0, {}, count, 10, 0));
            QCOMPARE(moved, static_cast<int>(record.size()));
            std::vector<std::uint8_t> back(record.size());
            QVERIFY(readTarget(engine.get(), target, back, 0, {}, {}, 10));
            QVERIFY(back == record);
        }
        int calls = 0;
        std::vector<std::uint8_t> record(record::kDbaseSize);
        QVERIFY(!readTarget(
            engine.get(), TransferTarget::Radio, record, 0, {},
            [&](int) { return ++calls < 3 ? 1 : 0; }, 10));
        QCOMPARE(calls, 3);
        // An operator who stops a read may start the next one at once: the blocks the radio
        // still had on the way must not spoil it.
        QVERIFY(readTarget(engine.get(), TransferTarget::Radio, record, 0, {}, {}, 10));
    }

    // Faults end in failures within their bounds; the link recovers when they clear.
    void faultsFailWithinBounds_data() { addTransports(); }
    void faultsFailWithinBounds()
    {
        QFETCH(QString, transport);
        QVERIFY(open(transport));
        command(FaultCommand{FaultKind::NoAnswer, 0});
        QTest::qWait(50);
        QElapsedTimer clock;
        clock.start();
        const CRadioMessage ask = built(ReportSquelchState);
        QCOMPARE(engine->SendRadioMessage(&ask), 0); // never acknowledged: not sent
        QVERIFY(clock.elapsed() <= 2 * engine->timing().sendBoundMs());
        clock.restart();
        unsigned char word = 0;
        QCOMPARE(ReadProgramWord(engine.get(), &word), 0);
        QVERIFY(clock.elapsed() <= 2 * engine->timing().sendBoundMs() + engine->timing().replyMs());
        clock.restart();
        std::vector<std::uint8_t> record(record::kDbaseSize);
        QCOMPARE(readTarget(engine.get(), TransferTarget::Radio, record, 0, {}, {}, 1), 0);
        QVERIFY(clock.elapsed() <= 2 * engine->timing().sendBoundMs() + 1000);
        command(ClearFaults{});
        QTest::qWait(50);
        QVERIFY(ReadProgramWord(engine.get(), &word));
    }

    // Once the radio's blocks flow, a record has a bound that follows from the rate the port
    // was opened at and the record's size: a line many times slower runs out of it.
    void farTooSlowLineFails()
    {
        QVERIFY(open("pipe"));
        command(SetBaud{kBaud / 48});
        QTest::qWait(50);
        std::vector<std::uint8_t> record(record::kDbaseSize);
        int moved = 0;
        const ProgressCallback count = [&](int n) { return moved += n, 1; };
        QCOMPARE(readTarget(engine.get(), TransferTarget::Radio, record, 0, {}, count, 10), 0);
        QVERIFY(moved > 0); // the radio did answer: the record's bound ended the read
    }

    // Closing the built-in port unplugs the cable: what was written stays in the radio, until
    // a new installation brings a new radio.
    void builtInRadioKeepsItsMemoryAcrossReopening()
    {
        const std::array<std::uint8_t, 4> written{0, 7, 1, 1};
        QVERIFY(open("pipe"));
        QVERIFY(writeTarget(engine.get(), TransferTarget::ExtraOptions, written, 0, {}, {}, 10, 4));
        std::array<std::uint8_t, 4> back{};
        for (const bool reinstall : {false, true}) {
            engine->CloseComPort();
            if (reinstall)
                installBuiltInRadio({false, {}});
            QVERIFY(engine->OpenComPort(1, kBaud) && engine->ConnectSocket(kBaud, 1));
            QVERIFY(readTarget(engine.get(), TransferTarget::ExtraOptions, back, 0, {}, {}, 10));
            QCOMPARE(back, reinstall ? builtInDatabases().extraOptions : written);
        }
    }

    // Paced at 9600 baud, reading the radio database takes at least the wire time of its
    // bytes and not much more (the protocol's overhead); measured, reported, loosely bounded.
    // Programming another baud rate into the radio then moves its line to that rate.
    void pacedLineFollowsTheBaudRate()
    {
        installBuiltInRadio({true, [this](VirtualRadio& r) { builtIn = &r; }});
        QVERIFY(engine->OpenComPort(1, 9600) && engine->ConnectSocket(9600, 1));
        std::vector<std::uint8_t> bytes(record::kDbaseSize);
        QElapsedTimer clock;
        clock.start();
        QVERIFY(readTarget(engine.get(), TransferTarget::Radio, bytes, 0, {}, {}, 10));
        const double seconds = clock.nsecsElapsed() / 1e9;
        const double wire = bytes.size() * 10.0 / 9600.0;
        qInfo("radio database at 9600 baud: %.2f s, %.3f x the wire time", seconds, seconds / wire);
        QVERIFY(seconds >= wire * 0.98 && seconds < wire * 2.0);

        std::array<std::uint8_t, 14> options{0, 1, 50, 2, 5, 0, 5, 0, 0, 1, 1, 1, 2, 1};
        QVERIFY(StartRADIOProgramming(engine.get()));
        QVERIFY(WriteRADIOMemorySection(engine.get(), options.data(), 4288, int(options.size())));
        QVERIFY(StopRADIOProgramming(engine.get()));
        QVERIFY(radio()->executeFromAnyThread(ShowStatus{}).contains("line 4800 baud"));
    }

    void getMessageWaitsThenReportsState()
    {
        QVERIFY(open("pipe"));
        CRadioMessage message;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(engine->GetMessage(&message, 1), 0);
        QVERIFY(clock.elapsed() >= 100); // it waits, so a worker loop does not spin
        QVERIFY(clock.elapsed() < 1000);
        QCOMPARE(engine->GetMessage(&message, 0), 0);
        QCOMPARE(engine->GetMessage(nullptr, 1), -1);
        engine->DisconnectSocket(1);
        engine->CloseComPort();
        QCOMPARE(engine->IsPortOpen(), 0);
        QCOMPARE(engine->GetMessage(&message, 1), -1);
        QCOMPARE(engine->CloseComPort(), 1); // harmless when closed
        QCOMPARE(engine->DisconnectSocket(1), 1);
    }

    // A progress callback that answers 0 stops the transfer at once and the call fails; the
    // caller's record and the radio keep what they had and the link stays usable.
    void progressZeroStopsTransfer_data()
    {
        QTest::addColumn<bool>("writing");
        QTest::newRow("read") << false;
        QTest::newRow("write") << true;
    }
    void progressZeroStopsTransfer()
    {
        QFETCH(bool, writing);
        QVERIFY(open("pipe"));
        int calls = 0;
        const ProgressCallback stopSecond = [&](int) { return ++calls < 2 ? 1 : 0; };
        std::vector<std::uint8_t> record(record::kAleDbaseSize, 0xEE);
        const int result =
            writing
                ? writeTarget(engine.get(), TransferTarget::Ale, record, 0, {}, stopSecond, 10, 0)
                : readTarget(engine.get(), TransferTarget::Ale, record, 0, {}, stopSecond, 10);
        QCOMPARE(result, 0);
        QCOMPARE(calls, 2);
        QVERIFY(record == std::vector<std::uint8_t>(record::kAleDbaseSize, 0xEE));
        unsigned char word = 0;
        QVERIFY(ReadProgramWord(engine.get(), &word));
        QVERIFY(readTarget(engine.get(), TransferTarget::Ale, record, 0, {}, {}, 10));
        convertByteOrder(TransferTarget::Ale, record);
        QVERIFY(std::equal(record.begin(), record.end(), builtInDatabases().ale.begin()));
    }

    // The wait for a reply that never comes (the radio answers something else) ends in time.
    void unansweredQueryFailsAfterReplyBound()
    {
        QVERIFY(open("pipe"));
        QElapsedTimer clock;
        clock.start();
        CRadioMessage reply;
        engine->LockGetMessage();
        const CRadioMessage ask = built(ReportSquelchState);
        QVERIFY(engine->SendRadioMessage(&ask));
        QCOMPARE(engine->GetMessageWithOpcode(&reply, op::ActiveChannel), 0);
        QVERIFY(clock.elapsed() <= 2 * engine->timing().replyMs());
    }

    // A programmed channel goes out in the radio's byte order: read back, it is what was sent.
    void programChannelSendsRadioOrder()
    {
        QVERIFY(open("pipe"));
        std::array<std::uint8_t, 13> record{1, 2, 3};
        const std::uint32_t tx = 12345678;
        std::memcpy(record.data() + 3, &tx, 4);
        QVERIFY(ProgramChannelNumberN(engine.get(), reinterpret_cast<channel*>(record.data()), 3));
        QVERIFY(
            !ProgramChannelNumberN(engine.get(), reinterpret_cast<channel*>(record.data()), 201));
        QVERIFY(!ReadRadioDataBase(engine.get(), nullptr, 0, {}, {}, 10));
        std::vector<std::uint8_t> radio(record::kDbaseSize);
        QVERIFY(readTarget(engine.get(), TransferTarget::Radio, radio, 0, {}, {}, 10));
        QVERIFY(std::equal(record.begin(), record.end(), radio.begin() + 1688 + 26));
    }

    void openFailures_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("no such port number") << "99";
        QTest::newRow("no virtual radio installed") << "virtual";
        QTest::newRow("missing device") << "/dev/koral-no-such-device";
        QTest::newRow("nobody listening") << "tcp:127.0.0.1:1";
        QTest::newRow("malformed tcp") << "tcp:nohost";
    }
    void openFailures()
    {
        QFETCH(QString, name);
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(engine->OpenPortByName(name.toStdString(), 9600), 0);
        QVERIFY(clock.elapsed() < 6000);
        QCOMPARE(engine->IsPortOpen(), 0);
        QVERIFY(!engine->lastError().empty());
        QCOMPARE(engine->ConnectSocket(9600, 1), 0);
        const CRadioMessage ask = built(ReportSquelchState);
        QCOMPARE(engine->SendRadioMessage(&ask), 0);
    }
};

QTEST_GUILESS_MAIN(TestLinkRadio)
#include "tst_linkradio.moc"
