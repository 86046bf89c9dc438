// The link suite against the virtual radio, written once and run over the in-process pipe
// (the built-in port 1), a real pseudo-terminal and TCP; how the radio is served: a built-in
// radio that outlives its port, a paced line that follows a programmed baud rate; the engine's
// own logic: waits that end, what a stopped transfer leaves behind, ports that do not open;
// and the virtual radio's answers, state, events and faults as the radio library sees them.

#include "koralapi/KoralApi.h"
#include "radiosim/BuiltInContents.h"
#include "radiosim/BuiltInRadio.h"
#include "radiosim/ConsoleCommand.h"
#include "radiosim/PtyLine.h"
#include "radiosim/SelfTest.h"
#include "radiosim/TcpLine.h"
#include "radiosim/VirtualRadio.h"
#include "support/Table.h"

#include <QElapsedTimer>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <set>
#include <thread>

using namespace koral;
using namespace koral::radiosim;
using namespace koral::test;
using namespace std::chrono_literals;

using Bytes = std::vector<std::uint8_t>;
using Query = int (*)(koral::CRadioMessage*);
Q_DECLARE_METATYPE(Query)

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
struct RadioHost
{
    QThread thread;
    QObject context;
    RadioLine* line = nullptr;
    VirtualRadio* radio = nullptr;
    std::string portName;

    void inThread(const std::function<void()>& work)
    {
        QMetaObject::invokeMethod(&context, work, Qt::BlockingQueuedConnection);
    }
    explicit RadioHost(const QString& transport)
    {
        thread.start();
        context.moveToThread(&thread);
        inThread([&] {
            if (transport == "pty") {
                auto* pty = new PtyLine(&context);
                pty->open();
                line = pty;
            } else {
                auto* tcp = new TcpLine(&context);
                tcp->listen(0);
                line = tcp;
            }
            radio = new VirtualRadio(line, &context);
            radio->execute(SetBaud{kBaud});
            portName = line->description().toStdString();
        });
    }
    ~RadioHost()
    {
        inThread([&] {
            delete radio;
            delete line;
        });
        thread.quit();
        thread.wait();
    }
};
} // namespace

class TestLinkRadio : public QObject
{
    Q_OBJECT

    std::unique_ptr<RadioHost> host;
    std::unique_ptr<MessageEngine> engine;
    std::atomic<VirtualRadio*> builtIn{nullptr};

    VirtualRadio* radio() const { return host ? host->radio : builtIn.load(); }
    void command(const ConsoleCommand& console) { radio()->executeFromAnyThread(console); }

    void run(const char* line) { command(*parseConsoleLine(line).command); }

    bool send(const std::function<int(CRadioMessage*)>& build)
    {
        const CRadioMessage message = built(build);
        return engine->SendRadioMessage(&message) != 0;
    }

    // The payload of the answer to the library's query (empty when none comes).
    Bytes ask(Query query, int reply)
    {
        CRadioMessage answer;
        if (!engine->request(built(query), reply, &answer))
            return {};
        return Bytes(answer.payload(), answer.payload() + answer.GetLen());
    }

    // The next unsolicited message of any of those opcodes, within 5 s.
    CRadioMessage nextOf(std::initializer_list<int> opcodes)
    {
        QElapsedTimer clock;
        clock.start();
        CRadioMessage message;
        while (clock.elapsed() < 5000) {
            if (engine->GetMessage(&message, 1) == 1 &&
                std::find(opcodes.begin(), opcodes.end(), message.GetOpcode()) != opcodes.end())
                return message;
        }
        qWarning("none of the expected messages came");
        return CRadioMessage{};
    }

    // The next unsolicited message of that opcode (others are skipped), within 5 s.
    CRadioMessage waitFor(int opcode) { return nextOf({opcode}); }

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
            installBuiltInRadio({false, [this](VirtualRadio& r) {
                                     r.setStepInterval(20ms); // short calls and scans
                                     builtIn = &r;
                                 }});
            if (!engine->OpenComPort(1, kBaud))
                return false;
        } else {
            host = std::make_unique<RadioHost>(transport);
            if (host->portName.empty() || !engine->OpenPortByName(host->portName, kBaud))
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
            QVERIFY(send([channel](CRadioMessage* m) { return SetActiveChannel(m, 0, channel); }));
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
    // byte; the progress counts every record byte.
    void databasesRoundTrip_data() { addTransports(); }
    void databasesRoundTrip()
    {
        QFETCH(QString, transport);
        QVERIFY(open(transport));
        // A progress answer of 0 stops a transfer at once: the call fails and the caller's
        // record and the radio keep what they had (the reads below find the built-in contents).
        // An operator who stops a read may start the next one at once: the blocks the radio
        // still had on the way must not spoil it.
        int calls = 0;
        const ProgressCallback stopThird = [&](int) { return ++calls % 3 ? 1 : 0; };
        std::vector<std::uint8_t> stopped(record::kAleDbaseSize, 0xEE);
        QVERIFY(!writeTarget(engine.get(), TransferTarget::Ale, stopped, 0, {}, stopThird, 10, 0));
        QVERIFY(!readTarget(engine.get(), TransferTarget::Radio,
                            std::span(stopped).first(record::kDbaseSize), 0, {}, stopThird, 10));
        QCOMPARE(calls, 6);
        QVERIFY(std::ranges::count(stopped, 0xEE) == std::ssize(stopped));
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
        QVERIFY(!send(ReportSquelchState)); // never acknowledged: not sent
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

    // The wait for a reply that never comes (the radio answers something else) ends in time.
    void unansweredQueryFailsAfterReplyBound()
    {
        QVERIFY(open("pipe"));
        QElapsedTimer clock;
        clock.start();
        CRadioMessage reply;
        engine->LockGetMessage();
        QVERIFY(send(ReportSquelchState));
        QCOMPARE(engine->GetMessageWithOpcode(&reply, op::ActiveChannel), 0);
        QVERIFY(clock.elapsed() <= 2 * engine->timing().replyMs());
    }

    // A programmed channel goes out in the radio's byte order: read back, it is what was sent.
    void programChannelSendsRadioOrder()
    {
        QVERIFY(open("pipe"));
        std::array<std::uint8_t, 13> record{1, 2, 3};
        qToUnaligned(std::uint32_t(12345678), record.data() + 3);
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
        QVERIFY(!send(ReportSquelchState));
        CRadioMessage message;
        QCOMPARE(engine->GetMessage(&message, 1), -1);
        QCOMPARE(engine->CloseComPort(), 1); // harmless when closed
        QCOMPARE(engine->DisconnectSocket(1), 1);
    }

    // The virtual radio against the real radio library: every answer the program relies on,
    // state kept between requests, events and faults.
    // The first exchange of a session: capabilities and the radio's current state, each asked
    // with the library's own request and answered with the opcode the library waits for; a
    // setting changed by one request (opcode, then payload) is what the next query reports.
    void answersQueries_data()
    {
        columns<Bytes, Query, int, Bytes>("setting", "query", "reply", "expected");
        const auto row = [](const char* name, const Bytes& setting, Query query, int reply,
                            const Bytes& expected) {
            QTest::newRow(name) << setting << query << reply << expected;
        };
        row("support mode: members and options", {}, ReportRadioSupportMode, op::SupportMode, {1});
        row("CCIR mode: ALE radio, ALE on", {}, ReportCcirMode, op::CcirMode, {0, 1});
        row("operation mode ALE", {}, ReportRadioOperationMode, op::OperationMode, {2});
        row("ALE on", {}, ReportAleON_OFF, op::AleOnOff, {1});
        row("monitor off", {}, ReportMonitorState, op::MonitorState, {0});
        row("DSP: level 0, blanker on", {}, ReportDspMenuParameters, op::DspParameters,
            {0, 0, 1, 0});
        row("squelch on", {op::SetSquelch, 0, 1}, ReportSquelchState, op::SquelchState, {2});
        row("DSP: 255 leaves a value unchanged", {op::SetDspParameters, 0, 4, 255, 0, 255, 1},
            ReportDspMenuParameters, op::DspParameters, {4, 0, 0, 0});
        row("clarifier minus 20", {op::SetClarifier, 0, 2, 20}, ReportClarifierPosition,
            op::ClarifierPosition, {2, 20});
        row("unprogrammed channel 150 is refused, channel stays", {op::SetActiveChannel, 0, 150},
            ReportActiveChannel, op::ActiveChannel, {0, 1});
        row("group scan B", {op::SetScanMode, 1, 1, 1}, ReportRadioOperationMode, op::OperationMode,
            {1});
        row("ISB channel 38 is not ISB", {op::SetActiveChannel, 0, 38}, ReportIsbMode, op::IsbMode,
            {0});
    }
    void answersQueries()
    {
        QVERIFY(open("pipe"));
        auto [setting, query, reply, expected] =
            fetch<Bytes, Query, int, Bytes>("setting", "query", "reply", "expected");
        QVERIFY(setting.empty() || send([&](CRadioMessage* m) {
                    m->setOpcodeAndLength(setting[0], setting.size() - 1);
                    std::copy(setting.begin() + 1, setting.end(), m->payload());
                    return 1;
                }));
        QCOMPARE(ask(query, reply), expected);
    }

    // The current channel reads back with its frequencies in host order (the report of a
    // change is repliesStayApartFromReports'); the monitor reports 89. The program word and
    // versions are tst_koralctlradio's probe.
    void channelChangeIsReportedAndRead()
    {
        QVERIFY(open("pipe"));
        QVERIFY(send([](CRadioMessage* m) { return SetActiveChannel(m, 0, 7); }));
        std::array<std::uint8_t, 13> channel{};
        QVERIFY(
            ReadCurrentChannel(engine.get(), reinterpret_cast<koral::channel*>(channel.data())));
        QCOMPARE(qFromUnaligned<std::uint32_t>(channel.data() + 3), 4125000u);
        QVERIFY(send([](CRadioMessage* m) { return SetMonitorOnOff(m, 0, 1); }));
        QCOMPARE(waitFor(op::MonitorState)[6], std::uint8_t(1));
    }

    // An ALE radio keeps no CCIR database; in CCIR mode it has one, and no ALE scanning.
    // Without support mode it refuses the extended databases.
    void modesDecideTheDatabasesKept()
    {
        QVERIFY(open("pipe"));
        Bytes ccir(RadioDatabases::kCcirSize), extra(RadioDatabases::kExtraOptionsSize);
        QVERIFY(!readTarget(engine.get(), TransferTarget::Ccir, ccir, 0, {}, {}, 10));
        run("mode ccir");
        run("support off");
        QCOMPARE(ask(ReportCcirMode, op::CcirMode), (Bytes{1, 0}));
        QCOMPARE(ask(ReportRadioOperationMode, op::OperationMode), Bytes{3});
        QCOMPARE(ask(ReportRadioSupportMode, op::SupportMode), Bytes{0});
        QVERIFY(readTarget(engine.get(), TransferTarget::Ccir, ccir, 0, {}, {}, 10));
        QCOMPARE(readU16(ccir, 0), std::uint16_t(4417));
        QVERIFY(!readTarget(engine.get(), TransferTarget::ExtraOptions, extra, 0, {}, {}, 10));
    }

    // A reset brings the radio up as after switching it on.
    void resetRestoresPowerOnState()
    {
        QVERIFY(open("pipe"));
        QVERIFY(send([](CRadioMessage* m) { return SetSquelchOnOff(m, 0, 1); }));
        QVERIFY(send([](CRadioMessage* m) { return SetClarifier(m, 0, 1, 50); }));
        QVERIFY(send([](CRadioMessage* m) { return PerformReset(m); }));
        QCOMPARE(ask(ReportSquelchState, op::SquelchState), Bytes{0});
        QCOMPARE(ask(ReportClarifierPosition, op::ClarifierPosition), (Bytes{0, 0}));
    }

    // Memory programming takes effect only when programming stops; a new baud rate moves the
    // radio's line to that rate.
    void memoryProgramming()
    {
        QVERIFY(open("pipe"));
        std::array<std::uint8_t, 14> options{0, 5, 50, 2, 5, 0, 5, 0, 0, 1, 1, 1, 2, 1};
        command(SetBaud{kBaud}); // a paced line: only that follows the programmed rate
        QVERIFY(!WriteRADIOMemorySection(engine.get(), options.data(), 4288, 14));
        QVERIFY(StartRADIOProgramming(engine.get()));
        QVERIFY(WriteRADIOMemorySection(engine.get(), options.data(), 4288, 14));
        QVERIFY(StopRADIOProgramming(engine.get()));
        QVERIFY(radio()->executeFromAnyThread(ShowStatus{}).contains("line 4800 baud"));
        command(SetBaud{0}); // unpaced again, for a quick read-back
        std::vector<std::uint8_t> bytes(RadioDatabases::kRadioSize);
        QVERIFY(readTarget(engine.get(), TransferTarget::Radio, bytes, 0, {}, {}, 10));
        QCOMPARE(bytes[4288 + 0], std::uint8_t(5)); // priority channel 5, host order again
        QCOMPARE(bytes[4288 + 1], std::uint8_t(0));
    }

    void incomingCalls_data()
    {
        columns<QString, int, QByteArray, QByteArray>("line", "opcode", "address", "text");
        const auto row = [](const char* line, int opcode, const char* address, const char* text) {
            QTest::newRow(line) << QString(line) << opcode << QByteArray(address)
                                << QByteArray(text);
        };
        row("call net HQ channel 12", op::IncomingNetCall, "HQ", "");
        row("call all SHIP7 \"QSY NOW\"", op::IncomingPriorityCall, "SHIP7", "QSY NOW");
    }
    void incomingCalls()
    {
        QVERIFY(open("pipe"));
        auto [line, opcode, address, text] =
            fetch<QString, int, QByteArray, QByteArray>("line", "opcode", "address", "text");
        run(line.toLatin1().constData());
        const CRadioMessage call = waitFor(opcode);
        QCOMPARE(call[6], std::uint8_t(0));
        QCOMPARE(call[7], std::uint8_t(line.contains("channel 12") ? 12 : 1));
        QCOMPARE(call[9], std::uint8_t(text.isEmpty() ? 0 : 1));
        QCOMPARE(QByteArray(reinterpret_cast<const char*>(call.bytes.data() + 10)), address);
        if (!text.isEmpty())
            QCOMPARE(QByteArray(reinterpret_cast<const char*>(call.bytes.data() + 26)), text);
    }

    // A station call to a known station shows progress, then the link and its channel.
    void stationCallLinks_data()
    {
        columns<QByteArray, int>("address", "result");
        QTest::newRow("directory station") << QByteArray("STN2") << 1;
        QTest::newRow("unknown station") << QByteArray("NOBODY") << 0;
    }
    void stationCallLinks()
    {
        QVERIFY(open("pipe"));
        auto [address, result] = fetch<QByteArray, int>("address", "result");
        const signed char pair[2] = {0, 4};
        QVERIFY(send([&](CRadioMessage* m) {
            return StationCall(m, address.constData(), int(address.size()) + 1, pair, "HI", 3);
        }));
        QCOMPARE(waitFor(op::StationCallProgress)[6], std::uint8_t(4));
        QCOMPARE(int(waitFor(op::LinkResult)[6]), result);
    }

    // Link-quality exchanges and soundings report each step and end with their link result.
    void linkQualityRuns_data()
    {
        columns<QString, int, int>("line", "progress", "endCode");
        QTest::newRow("bidirectional") << "lqa 2" << op::BiDirectionalProgress << 0;
        QTest::newRow("sounding") << "sound 3" << op::SoundingProgress << 1;
    }
    void linkQualityRuns()
    {
        QVERIFY(open("pipe"));
        auto [line, progress, endCode] = fetch<QString, int, int>("line", "progress", "endCode");
        const int steps = line.back().digitValue();
        run(line.toLatin1().constData());
        int seen = 0;
        CRadioMessage m;
        while ((m = nextOf({op::LinkStatusValue, progress, op::LinkResult})).GetOpcode() ==
                   progress ||
               m.GetOpcode() == op::LinkStatusValue) {
            // Progress counts up; only an exchange both ways turns the link-quality indicator on.
            QVERIFY(m.GetOpcode() == progress ? ++seen && m[6] >= 1 && m[6] <= 200
                                              : m[6] == 4 && progress == op::BiDirectionalProgress);
        }
        QCOMPARE(int(m[6]), endCode);
        QCOMPARE(seen, steps);
    }

    // While scanning with special reports on, the radio reports each channel it visits.
    void groupScanReportsVisitedChannels()
    {
        QVERIFY(open("pipe"));
        QVERIFY(send([](CRadioMessage* m) { return EnableDisableSpecialReport(m, 0, 1, 46); }));
        QVERIFY(send([](CRadioMessage* m) { return SetRadioScanMode(m, 1, 1, 1); }));
        std::set<int> visited;
        for (int i = 0; i < 3; ++i) {
            const CRadioMessage report = waitFor(op::ChannelReport);
            QCOMPARE(report[6], std::uint8_t(1));
            QCOMPARE(report[8], std::uint8_t(1));
            visited.insert(report[7]);
        }
        QVERIFY(visited.size() >= 2);
        QVERIFY(*visited.begin() >= 11 && *visited.rbegin() <= 20); // group A
        QVERIFY(send([](CRadioMessage* m) { return SetRadioScanMode(m, 1, 0, 0); }));
        QCOMPARE(ask(ReportActiveChannel, op::ActiveChannel).at(0), 0); // not scanning
    }

    void rejectsCommandOnRequest()
    {
        QVERIFY(open("pipe"));
        run("fault reject 69");
        const signed char pair[2] = {-1, -1};
        QVERIFY(send([&](CRadioMessage* m) { return StationCall(m, "STN1", 5, pair, "", 1); }));
        QCOMPARE(waitFor(op::CommandRejected).get16(6), std::uint16_t(69));
    }

    // The built-in test reports growing progress, then one result byte per item.
    void selfTest_data()
    {
        columns<int, int, int>("type", "firstTested", "lastTested");
        QTest::newRow("full") << 0 << 1 << 39;
        QTest::newRow("channel") << 1 << 16 << 31;
        QTest::newRow("low RF") << 2 << 1 << 29;
    }
    void selfTest()
    {
        QVERIFY(open("pipe"));
        auto [type, firstTested, lastTested] =
            fetch<int, int, int>("type", "firstTested", "lastTested");
        run("bite fail 20");
        run("bite unable 21");
        QVERIFY(send([&](CRadioMessage* m) { return PerformSelfTest(m, type); }));
        int lastDots = 0;
        CRadioMessage report;
        while ((report = waitFor(op::DisplayReport))[6] == op::display::SelfTestProgress) {
            const int dots =
                int(QByteArray(reinterpret_cast<const char*>(report.bytes.data() + 10)).count('.'));
            QVERIFY(dots > lastDots);
            lastDots = dots;
        }
        QCOMPARE(report[6], std::uint8_t(op::display::SelfTestResult));
        QCOMPARE(lastDots, 5);
        for (int item = 1; item <= 39; ++item) {
            const std::uint8_t expected = item < firstTested || item > lastTested ? 0x00
                                          : item == 20                            ? 0x55
                                          : item == 21                            ? 0x3C
                                                                                  : 0xAA;
            QCOMPARE(report[6 + item], expected);
        }
    }

    // The front panel: keys and Enter change the radio's channel (the display they bring is
    // displayReportedWhileAsked's). F4 switches ALE off and on, and the radio tells each time.
    void frontPanelKeys()
    {
        QVERIFY(open("pipe"));
        for (int key : {14, 24, 15, 24, 11}) // "1", release, "2", release, Enter
            QVERIFY(send([&](CRadioMessage* m) { return ReportControlHeadKeyboard(m, key); }));
        QCOMPARE(waitFor(op::ChannelReport)[7], std::uint8_t(12));
        for (std::uint8_t state : {0, 1}) {
            QVERIFY(send([](CRadioMessage* m) { return ReportControlHeadKeyboard(m, 7); }));
            QCOMPARE(waitFor(op::AleOnOff)[6], state);
        }
    }

    // Asked for its display, the radio sends it at once and then every line that changes,
    // until it is told to stop; keys are answered either way.
    void displayReportedWhileAsked()
    {
        QVERIFY(open("pipe"));
        const auto line = [this] {
            const CRadioMessage report = waitFor(op::DisplayReport);
            return QByteArray::number(report[6]) + ":" +
                   QByteArray(reinterpret_cast<const char*>(report.bytes.data() + 7));
        };
        const auto report = [this](int on) {
            QVERIFY(send([on](CRadioMessage* m) {
                return EnableDisableSpecialReport(m, 0, on, op::DisplayReport);
            }));
        };
        report(1);
        for (const char* start : {"0:CHAN", "1:RX ", "2:SQL OFF"})
            QVERIFY(line().startsWith(start));
        QVERIFY(send([](CRadioMessage* m) { return SetActiveChannel(m, 0, 12); }));
        QCOMPARE(line(), QByteArray("0:CHAN        CH 012"));
        QVERIFY(line().startsWith("1:RX 5.81500"));
        report(0);
        QVERIFY(send([](CRadioMessage* m) { return SetRadioScanMode(m, 1, 1, 0); }));
        QVERIFY(send([](CRadioMessage* m) { return ReportControlHeadKeyboard(m, 23); }));
        // Nothing in between: the next line is the key's answer, the whole menu.
        QCOMPARE(line(), QByteArray("0:MENU 1/7"));
        QCOMPARE(line(), QByteArray("1:SCAN: ON"));
    }

    void answerOnceThenSilence()
    {
        QVERIFY(open("pipe"));
        run("fault answer-once");
        QCOMPARE(ask(ReportSquelchState, op::SquelchState), Bytes{0});
        engine->LockGetMessage();
        QVERIFY(!send([](CRadioMessage* m) { return ReportSquelchState(m); }));
    }

    // A damaged frame is sent again by the link and the transfer still succeeds; a line that
    // drops mid-transfer fails it after some progress.
    void faultsDuringTransfer_data()
    {
        columns<QString, bool>("line", "succeeds");
        QTest::newRow("corrupt frames") << "fault corrupt 2" << true;
        QTest::newRow("line drop") << "fault drop-after 2000" << false;
    }
    void faultsDuringTransfer()
    {
        QVERIFY(open("pipe"));
        auto [line, succeeds] = fetch<QString, bool>("line", "succeeds");
        run(line.toLatin1().constData());
        std::vector<std::uint8_t> radio(RadioDatabases::kRadioSize);
        int progressed = 0;
        QCOMPARE(readTarget(
                     engine.get(), TransferTarget::Radio, radio, 0, {},
                     [&](int n) { return progressed += n, 1; }, 10) != 0,
                 succeeds);
        QCOMPARE(progressed == int(radio.size()), succeeds);
        QVERIFY(progressed > 0);
        convertByteOrder(TransferTarget::Radio, radio);
        if (succeeds)
            QVERIFY(std::ranges::equal(radio, builtInDatabases().radio));
    }
};

QTEST_GUILESS_MAIN(TestLinkRadio)
#include "tst_linkradio.moc"
