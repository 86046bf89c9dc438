// The virtual radio against the real radio library, in-process: every answer the program
// relies on, state kept between requests, events, faults and the database transfer.

#include "koralapi/KoralApi.h"
#include "radiosim/BuiltInContents.h"
#include "radiosim/BuiltInRadio.h"
#include "radiosim/SelfTest.h"
#include "radiosim/VirtualRadio.h"

#include <QElapsedTimer>
#include <QtTest>

#include <atomic>
#include <cstring>
#include <set>

using namespace koral;
using namespace koral::radiosim;
using namespace std::chrono_literals;

using Query = int (*)(koral::CRadioMessage*);
Q_DECLARE_METATYPE(Query)

namespace {

CRadioMessage request(const std::function<int(CRadioMessage*)>& build)
{
    CRadioMessage message;
    message.prepareRequest();
    build(&message);
    return message;
}

QByteArray payload(const CRadioMessage& message)
{
    return QByteArray(reinterpret_cast<const char*>(message.payload()), message.GetLen());
}

ConsoleCommand console(const char* line)
{
    const ConsoleParse parsed = parseConsoleLine(line);
    Q_ASSERT(parsed.command);
    return *parsed.command;
}
} // namespace

class VirtualRadioTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_radio = nullptr;
        installBuiltInRadio({false, [this](VirtualRadio& radio) {
                                 radio.setStepInterval(20ms);
                                 m_radio = &radio;
                             }});
        m_engine = std::make_unique<MessageEngine>();
        // A fast line keeps the tests short; pacing has its own test.
        QVERIFY(m_engine->OpenComPort(1, kFastBaud));
        QVERIFY(m_engine->ConnectSocket(kFastBaud, 1));
        QVERIFY(m_radio.load() != nullptr);
    }
    void cleanup()
    {
        m_engine->DisconnectSocket(1);
        m_engine->CloseComPort();
        m_engine.reset();
    }

    // The first exchange of a session: capabilities and the radio's current state, each asked
    // with the library's own request and answered with the opcode the library waits for.
    void answersQueries_data()
    {
        QTest::addColumn<Query>("query");
        QTest::addColumn<int>("reply");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* name, Query query, int reply, const QByteArray& expected) {
            QTest::newRow(name) << query << reply << expected;
        };
        row("support mode: global members and extra options", ReportRadioSupportMode,
            op::SupportMode, QByteArray("\x01", 1));
        row("CCIR mode: ALE radio, ALE on", ReportCcirMode, op::CcirMode,
            QByteArray("\x00\x01", 2));
        row("ISB off", ReportIsbMode, op::IsbMode, QByteArray("\x00", 1));
        row("operation mode ALE", ReportRadioOperationMode, op::OperationMode,
            QByteArray("\x02", 1));
        row("ALE on", ReportAleON_OFF, op::AleOnOff, QByteArray("\x01", 1));
        row("active channel 1, not scanning", ReportActiveChannel, op::ActiveChannel,
            QByteArray("\x00\x01", 2));
        row("squelch off", ReportSquelchState, op::SquelchState, QByteArray("\x00", 1));
        row("monitor off", ReportMonitorState, op::MonitorState, QByteArray("\x00", 1));
        row("DSP: level 0, blanker on", ReportDspMenuParameters, op::DspParameters,
            QByteArray("\x00\x00\x01\x00", 4));
        row("clarifier off", ReportClarifierPosition, op::ClarifierPosition,
            QByteArray("\x00\x00", 2));
    }
    void answersQueries()
    {
        QFETCH(Query, query);
        QFETCH(int, reply);
        QFETCH(QByteArray, expected);
        CRadioMessage answer;
        QVERIFY(m_engine->request(request(query), reply, &answer));
        QCOMPARE(payload(answer), expected);
    }

    // A setting changed by one request is what the next query reports.
    void keepsSettings_data()
    {
        QTest::addColumn<int>("setting");
        QTest::addColumn<QByteArray>("settingPayload");
        QTest::addColumn<int>("query");
        QTest::addColumn<int>("reply");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("squelch on")
            << op::SetSquelch << QByteArray("\x00\x01", 2) << op::QuerySquelch << op::SquelchState
            << QByteArray("\x02", 1);
        QTest::newRow("DSP: 255 leaves a value unchanged")
            << op::SetDspParameters << QByteArray("\x00\x04\xFF\x00\xFF\x01", 6)
            << op::QueryDspParameters << op::DspParameters << QByteArray("\x04\x00\x00\x00", 4);
        QTest::newRow("clarifier minus 20")
            << op::SetClarifier << QByteArray("\x00\x02\x14", 3) << op::QueryClarifier
            << op::ClarifierPosition << QByteArray("\x02\x14", 2);
        QTest::newRow("channel 12")
            << op::SetActiveChannel << QByteArray("\x00\x0C", 2) << op::QueryActiveChannel
            << op::ActiveChannel << QByteArray("\x00\x0C", 2);
        QTest::newRow("unprogrammed channel 150 is refused, channel stays")
            << op::SetActiveChannel << QByteArray("\x00\x96", 2) << op::QueryActiveChannel
            << op::ActiveChannel << QByteArray("\x00\x01", 2);
        QTest::newRow("group scan B")
            << op::SetScanMode << QByteArray("\x01\x01\x01", 3) << op::QueryOperationMode
            << op::OperationMode << QByteArray("\x01", 1);
        QTest::newRow("ISB channel 38 is not ISB")
            << op::SetActiveChannel << QByteArray("\x00\x26", 2) << op::QueryIsbMode << op::IsbMode
            << QByteArray("\x00", 1);
    }
    void keepsSettings()
    {
        QFETCH(int, setting);
        QFETCH(QByteArray, settingPayload);
        QFETCH(int, query);
        QFETCH(int, reply);
        QFETCH(QByteArray, expected);
        QVERIFY(sendRaw(setting, settingPayload));
        QCOMPARE(payload(ask(query, reply)), expected);
    }

    // Changing the channel reports it (46) with its frequencies; the monitor reports 89.
    void reportsChannelChangeAndMonitor()
    {
        QVERIFY(send([](CRadioMessage* m) { return SetActiveChannel(m, 0, 7); }));
        const CRadioMessage report = waitFor(op::ChannelReport);
        QCOMPARE(report[6], std::uint8_t(0));
        QCOMPARE(report[7], std::uint8_t(7));
        QCOMPARE(report.get32(9), 4125000u);
        QCOMPARE(report.get32(13), 4125000u);

        QVERIFY(send([](CRadioMessage* m) { return SetMonitorOnOff(m, 0, 1); }));
        QCOMPARE(waitFor(op::MonitorState)[6], std::uint8_t(1));
    }

    // The typed reads: program word, both versions, and the current channel in host order.
    void typedReads()
    {
        unsigned char text[16] = {};
        QVERIFY(ReadProgramWord(m_engine.get(), text));
        QCOMPARE(text[0], 0x5A);
        QVERIFY(ReadSoftwareVersion(m_engine.get(), text));
        QCOMPARE(QByteArray(reinterpret_cast<char*>(text)), QByteArray("03.100"));
        QVERIFY(ReadRadioSoftwareVersion(m_engine.get(), text));
        QCOMPARE(QByteArray(reinterpret_cast<char*>(text)), QByteArray("03.8200"));
        QVERIFY(send([](CRadioMessage* m) { return SetActiveChannel(m, 0, 7); }));
        std::array<std::uint8_t, 13> channel{};
        QVERIFY(
            ReadCurrentChannel(m_engine.get(), reinterpret_cast<koral::channel*>(channel.data())));
        std::uint32_t tx = 0;
        std::memcpy(&tx, channel.data() + 3, 4);
        QCOMPARE(tx, 4125000u);
    }

    // Every database crosses the link byte for byte, both ways; a write lands in the radio.
    void databasesRoundTrip_data()
    {
        QTest::addColumn<int>("target");
        QTest::newRow("radio") << int(TransferTarget::Radio);
        QTest::newRow("ALE") << int(TransferTarget::Ale);
        QTest::newRow("global members") << int(TransferTarget::GlobalMembers);
        QTest::newRow("extra options") << int(TransferTarget::ExtraOptions);
    }
    void databasesRoundTrip()
    {
        QFETCH(int, target);
        const auto kind = static_cast<TransferTarget>(target);
        std::vector<std::uint8_t> bytes(targetSize(target));
        int progressed = 0;
        const auto progress = [&](int n) {
            progressed += n;
            return 1;
        };
        QVERIFY(readTarget(m_engine.get(), kind, bytes, 0, {}, progress, 10));
        QCOMPARE(progressed, int(bytes.size()));
        convertByteOrder(kind, bytes); // back to the radio's order
        QVERIFY(bytes == memoryOf(builtInDatabases(), kind));

        // Change every byte, write, read back.
        for (auto& b : bytes) {
            b = static_cast<std::uint8_t>(b ^ 0x5A);
        }
        std::vector<std::uint8_t> host = bytes;
        convertByteOrder(kind, host);
        QVERIFY(writeTarget(m_engine.get(), kind, host, 0, {}, {}, 10, 0x06));
        std::vector<std::uint8_t> back(bytes.size());
        QVERIFY(readTarget(m_engine.get(), kind, back, 0, {}, {}, 10));
        QVERIFY(back == host);
    }

    // An ALE radio keeps no CCIR database; in CCIR mode it has one, and no ALE scanning.
    void ccirDatabasesFollowTheMode()
    {
        std::vector<std::uint8_t> ccir(RadioDatabases::kCcirSize);
        QVERIFY(!readTarget(m_engine.get(), TransferTarget::Ccir, ccir, 0, {}, {}, 10));
        run("mode ccir");
        QCOMPARE(payload(ask(op::QueryCcirMode, op::CcirMode)), QByteArray("\x01\x00", 2));
        QCOMPARE(payload(ask(op::QueryOperationMode, op::OperationMode)), QByteArray("\x03", 1));
        QVERIFY(readTarget(m_engine.get(), TransferTarget::Ccir, ccir, 0, {}, {}, 10));
        QCOMPARE(readU16(ccir, 0), std::uint16_t(4417));
    }

    void supportModeOffRefusesExtendedDatabases()
    {
        run("support off");
        QCOMPARE(payload(ask(op::QuerySupportMode, op::SupportMode)), QByteArray("\x00", 1));
        std::array<std::uint8_t, 4> extra{};
        QVERIFY(!readTarget(m_engine.get(), TransferTarget::ExtraOptions, extra, 0, {}, {}, 10));
    }

    // A reset brings the radio up as after switching it on.
    void resetRestoresPowerOnState()
    {
        QVERIFY(send([](CRadioMessage* m) { return SetSquelchOnOff(m, 0, 1); }));
        QVERIFY(send([](CRadioMessage* m) { return SetClarifier(m, 0, 1, 50); }));
        QVERIFY(send([](CRadioMessage* m) { return PerformReset(m); }));
        QCOMPARE(payload(ask(op::QuerySquelch, op::SquelchState)), QByteArray("\x00", 1));
        QCOMPARE(payload(ask(op::QueryClarifier, op::ClarifierPosition)),
                 QByteArray("\x00\x00", 2));
    }

    // Memory programming takes effect only when programming stops.
    void memoryProgramming()
    {
        std::array<std::uint8_t, 14> options{};
        options[1] = 5; // priority channel 5, radio order
        QVERIFY(!WriteRADIOMemorySection(m_engine.get(), options.data(), 4288, 14));
        QVERIFY(StartRADIOProgramming(m_engine.get()));
        QVERIFY(WriteRADIOMemorySection(m_engine.get(), options.data(), 4288, 14));
        QVERIFY(StopRADIOProgramming(m_engine.get()));
        std::vector<std::uint8_t> radio(RadioDatabases::kRadioSize);
        QVERIFY(readTarget(m_engine.get(), TransferTarget::Radio, radio, 0, {}, {}, 10));
        QCOMPARE(radio[4288 + 0], std::uint8_t(5)); // host order again
        QCOMPARE(radio[4288 + 1], std::uint8_t(0));
    }

    void incomingCalls_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("opcode");
        QTest::addColumn<QByteArray>("address");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("station call with message")
            << "call station STN1 \"HELLO\"" << op::IncomingStationCall << QByteArray("STN1")
            << QByteArray("HELLO");
        QTest::newRow("net call on channel 12")
            << "call net HQ channel 12" << op::IncomingNetCall << QByteArray("HQ") << QByteArray();
        QTest::newRow("all call") << "call all SHIP7 \"QSY NOW\"" << op::IncomingPriorityCall
                                  << QByteArray("SHIP7") << QByteArray("QSY NOW");
    }
    void incomingCalls()
    {
        QFETCH(QString, line);
        QFETCH(int, opcode);
        QFETCH(QByteArray, address);
        QFETCH(QByteArray, text);
        run(line.toLatin1().constData());
        const CRadioMessage call = waitFor(opcode);
        QCOMPARE(call[6], std::uint8_t(0));
        QCOMPARE(call[7], std::uint8_t(line.contains("channel 12") ? 12 : 1));
        QCOMPARE(call[9], std::uint8_t(text.isEmpty() ? 0 : 1));
        QCOMPARE(QByteArray(reinterpret_cast<const char*>(call.bytes.data() + 10)), address);
        if (!text.isEmpty()) {
            QCOMPARE(QByteArray(reinterpret_cast<const char*>(call.bytes.data() + 26)), text);
        }
    }

    // A station call to a known station shows progress, then the link and its channel.
    void stationCallLinks_data()
    {
        QTest::addColumn<QByteArray>("address");
        QTest::addColumn<int>("result");
        QTest::newRow("directory station") << QByteArray("STN2") << 1;
        QTest::newRow("unknown station") << QByteArray("NOBODY") << 0;
    }
    void stationCallLinks()
    {
        QFETCH(QByteArray, address);
        QFETCH(int, result);
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
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("progress");
        QTest::addColumn<int>("endCode");
        QTest::newRow("bidirectional") << "lqa 2" << op::BiDirectionalProgress << 0;
        QTest::newRow("sounding") << "sound 3" << op::SoundingProgress << 1;
    }
    void linkQualityRuns()
    {
        QFETCH(QString, line);
        QFETCH(int, progress);
        QFETCH(int, endCode);
        const int steps = line.back().digitValue();
        run(line.toLatin1().constData());
        int seen = 0;
        for (;;) {
            const CRadioMessage message = nextOf({op::LinkStatusValue, progress, op::LinkResult});
            if (message.GetOpcode() == op::LinkStatusValue) {
                QCOMPARE(message[6], std::uint8_t(4)); // link-quality indicator on
                QCOMPARE(progress, int(op::BiDirectionalProgress));
            } else if (message.GetOpcode() == progress) {
                ++seen;
                QVERIFY(message[6] >= 1 && message[6] <= 200);
            } else {
                QCOMPARE(int(message[6]), endCode);
                break;
            }
        }
        QCOMPARE(seen, steps);
    }

    // While scanning with special reports on, the radio reports each channel it visits.
    void groupScanReportsVisitedChannels()
    {
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
        for (int channel : visited) {
            QVERIFY2(channel >= 11 && channel <= 20, qPrintable(QString::number(channel)));
        }
        QVERIFY(send([](CRadioMessage* m) { return SetRadioScanMode(m, 1, 0, 0); }));
        QCOMPARE(payload(ask(op::QueryActiveChannel, op::ActiveChannel))[0], char(0));
    }

    void rejectsCommandOnRequest()
    {
        run("fault reject 69");
        const signed char pair[2] = {-1, -1};
        QVERIFY(send([&](CRadioMessage* m) { return StationCall(m, "STN1", 5, pair, "", 1); }));
        QCOMPARE(waitFor(op::CommandRejected).get16(6), std::uint16_t(69));
        run("fault clear");
    }

    // The built-in test reports growing progress, then one result byte per item.
    void selfTest_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("firstTested");
        QTest::addColumn<int>("lastTested");
        QTest::newRow("full") << 0 << 1 << 39;
        QTest::newRow("channel") << 1 << 16 << 31;
        QTest::newRow("low RF") << 2 << 1 << 29;
    }
    void selfTest()
    {
        QFETCH(int, type);
        QFETCH(int, firstTested);
        QFETCH(int, lastTested);
        run("bite fail 20");
        run("bite unable 21");
        QVERIFY(send([&](CRadioMessage* m) { return PerformSelfTest(m, type); }));
        int lastDots = 0;
        for (;;) {
            const CRadioMessage report = waitFor(op::DisplayReport);
            if (report[6] == op::display::SelfTestProgress) {
                const QByteArray text(reinterpret_cast<const char*>(report.bytes.data() + 7));
                const int dots = int(text.mid(3).count('.'));
                QVERIFY(dots > lastDots);
                lastDots = dots;
                continue;
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
            break;
        }
    }

    // The front panel: a key changes the display (three lines) and, with Enter, the radio.
    void frontPanelKeys()
    {
        for (int key : {14, 24, 15, 24, 11}) { // "1", release, "2", release, Enter
            QVERIFY(send([&](CRadioMessage* m) { return ReportControlHeadKeyboard(m, key); }));
        }
        QCOMPARE(waitFor(op::ChannelReport)[7], std::uint8_t(12));
        QByteArray display;
        for (int line = 0; line < 3; ++line) {
            const CRadioMessage report = waitFor(op::DisplayReport);
            QVERIFY(report[6] < 3);
            display += QByteArray(reinterpret_cast<const char*>(report.bytes.data() + 7)) + "|";
        }
        QVERIFY2(display.contains("CH 012") && display.contains("RX 5.81500"), display.constData());
    }

    // Asked for its display, the radio sends it at once and then every line that changes,
    // until it is told to stop; keys are answered either way.
    void displayReportedWhileAsked()
    {
        const auto line = [this] {
            const CRadioMessage report = waitFor(op::DisplayReport);
            return QByteArray::number(report[6]) + ":" +
                   QByteArray(reinterpret_cast<const char*>(report.bytes.data() + 7));
        };
        const auto ask = [this](int on) {
            QVERIFY(send([on](CRadioMessage* m) {
                return EnableDisableSpecialReport(m, 0, on, op::DisplayReport);
            }));
        };
        ask(1);
        QVERIFY(line().startsWith("0:CHAN"));
        QVERIFY(line().startsWith("1:RX "));
        QVERIFY(line().startsWith("2:SQL OFF"));
        QVERIFY(send([](CRadioMessage* m) { return SetActiveChannel(m, 0, 12); }));
        QCOMPARE(line(), QByteArray("0:CHAN        CH 012"));
        QVERIFY(line().startsWith("1:RX 5.81500"));
        ask(0);
        QVERIFY(send([](CRadioMessage* m) { return SetRadioScanMode(m, 1, 1, 0); }));
        QVERIFY(send([](CRadioMessage* m) { return ReportControlHeadKeyboard(m, 23); }));
        // Nothing in between: the next line is the key's answer, the whole menu.
        QCOMPARE(line(), QByteArray("0:MENU 1/7"));
        QCOMPARE(line(), QByteArray("1:SCAN: ON"));
    }

    // F4 switches the radio's ALE off and on, and the radio tells the program each time.
    void aleKeyReportsTheAleState()
    {
        for (std::uint8_t state : {0, 1}) {
            QVERIFY(send([](CRadioMessage* m) { return ReportControlHeadKeyboard(m, 7); }));
            QCOMPARE(waitFor(op::AleOnOff)[6], state);
        }
    }

    void answerOnceThenSilence()
    {
        run("fault answer-once");
        QVERIFY(ask(op::QuerySquelch, op::SquelchState).GetOpcode() == op::SquelchState);
        m_engine->LockGetMessage();
        QVERIFY(!send([](CRadioMessage* m) { return ReportSquelchState(m); }));
    }

    // A damaged frame is sent again by the link and the transfer still succeeds; a line that
    // drops mid-transfer fails it after some progress.
    void faultsDuringTransfer_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("succeeds");
        QTest::newRow("corrupt frames") << "fault corrupt 2" << true;
        QTest::newRow("line drop") << "fault drop-after 2000" << false;
    }
    void faultsDuringTransfer()
    {
        QFETCH(QString, line);
        QFETCH(bool, succeeds);
        run(line.toLatin1().constData());
        std::vector<std::uint8_t> radio(RadioDatabases::kRadioSize);
        int progressed = 0;
        QCOMPARE(readTarget(
                     m_engine.get(), TransferTarget::Radio, radio, 0, {},
                     [&](int n) { return progressed += n, 1; }, 10) != 0,
                 succeeds);
        QCOMPARE(progressed == int(radio.size()), succeeds);
        QVERIFY(progressed > 0);
        convertByteOrder(TransferTarget::Radio, radio);
        if (succeeds)
            QVERIFY(radio == memoryOf(builtInDatabases(), TransferTarget::Radio));
    }

private:
    static constexpr int kFastBaud = 115200;

    static std::vector<std::uint8_t> memoryOf(const RadioDatabases& db, TransferTarget target)
    {
        switch (target) {
        case TransferTarget::Ale:
            return {db.ale.begin(), db.ale.end()};
        case TransferTarget::GlobalMembers:
            return {db.globalMembers.begin(), db.globalMembers.end()};
        case TransferTarget::ExtraOptions:
            return {db.extraOptions.begin(), db.extraOptions.end()};
        default:
            return {db.radio.begin(), db.radio.end()};
        }
    }

    void run(const char* line) { m_radio.load()->executeFromAnyThread(console(line)); }

    bool send(const std::function<int(CRadioMessage*)>& build)
    {
        const CRadioMessage message = request(build);
        return m_engine->SendRadioMessage(&message) != 0;
    }

    bool sendRaw(int opcode, const QByteArray& bytes)
    {
        return send([&](CRadioMessage* m) {
            m->setOpcodeAndLength(opcode, std::size_t(bytes.size()));
            std::memcpy(m->payload(), bytes.constData(), std::size_t(bytes.size()));
            return 1;
        });
    }

    CRadioMessage ask(int query, int reply)
    {
        CRadioMessage answer;
        m_engine->LockGetMessage();
        if (!sendRaw(query, {}) || !m_engine->GetMessageWithOpcode(&answer, reply)) {
            qWarning("no answer %d to request %d", reply, query);
        }
        return answer;
    }

    // The next unsolicited message of any of those opcodes, within 5 s.
    CRadioMessage nextOf(std::initializer_list<int> opcodes)
    {
        QElapsedTimer clock;
        clock.start();
        CRadioMessage message;
        while (clock.elapsed() < 5000) {
            if (m_engine->GetMessage(&message, 1) == 1 &&
                std::find(opcodes.begin(), opcodes.end(), message.GetOpcode()) != opcodes.end()) {
                return message;
            }
        }
        qWarning("none of the expected messages came");
        return CRadioMessage{};
    }

    // The next unsolicited message of that opcode (others are skipped), within 5 s.
    CRadioMessage waitFor(int opcode) { return nextOf({opcode}); }

    std::unique_ptr<MessageEngine> m_engine;
    std::atomic<VirtualRadio*> m_radio{nullptr};
};

QTEST_GUILESS_MAIN(VirtualRadioTest)
#include "tst_virtualradio.moc"
