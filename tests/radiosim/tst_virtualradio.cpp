// The virtual radio against the real radio library, in-process: every answer the program
// relies on, state kept between requests, events, faults and the database transfer.

#include "koralapi/KoralApi.h"
#include "radiosim/BuiltInContents.h"
#include "radiosim/BuiltInRadio.h"
#include "radiosim/SelfTest.h"
#include "radiosim/VirtualRadio.h"
#include "support/Table.h"

#include <QElapsedTimer>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <set>

using namespace koral;
using namespace koral::radiosim;
using namespace std::chrono_literals;
using namespace koral::test;

using Bytes = std::vector<std::uint8_t>;
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

Bytes payload(const CRadioMessage& message)
{
    return Bytes(message.payload(), message.payload() + message.GetLen());
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
        columns<Query, int, Bytes>("query", "reply", "expected");
        const auto row = [](const char* name, Query query, int reply, const Bytes& expected) {
            QTest::newRow(name) << query << reply << expected;
        };
        row("support mode: members and options", ReportRadioSupportMode, op::SupportMode, {1});
        row("CCIR mode: ALE radio, ALE on", ReportCcirMode, op::CcirMode, {0, 1});
        row("ISB off", ReportIsbMode, op::IsbMode, {0});
        row("operation mode ALE", ReportRadioOperationMode, op::OperationMode, {2});
        row("ALE on", ReportAleON_OFF, op::AleOnOff, {1});
        row("active channel 1, not scanning", ReportActiveChannel, op::ActiveChannel, {0, 1});
        row("squelch off", ReportSquelchState, op::SquelchState, {0});
        row("monitor off", ReportMonitorState, op::MonitorState, {0});
        row("DSP: level 0, blanker on", ReportDspMenuParameters, op::DspParameters, {0, 0, 1, 0});
        row("clarifier off", ReportClarifierPosition, op::ClarifierPosition, {0, 0});
    }
    void answersQueries()
    {
        auto [query, reply, expected] = fetch<Query, int, Bytes>("query", "reply", "expected");
        CRadioMessage answer;
        QVERIFY(m_engine->request(request(query), reply, &answer));
        QCOMPARE(payload(answer), expected);
    }

    // A setting changed by one request is what the next query reports.
    void keepsSettings_data()
    {
        columns<int, Bytes, int, int, Bytes>("setting", "settingPayload", "query", "reply",
                                             "expected");
        const auto row = [](const char* name, int setting, const Bytes& settingPayload, int query,
                            int reply, const Bytes& expected) {
            QTest::newRow(name) << setting << settingPayload << query << reply << expected;
        };
        row("squelch on", op::SetSquelch, {0, 1}, op::QuerySquelch, op::SquelchState, {2});
        row("DSP: 255 leaves a value unchanged", op::SetDspParameters, {0, 4, 255, 0, 255, 1},
            op::QueryDspParameters, op::DspParameters, {4, 0, 0, 0});
        row("clarifier minus 20", op::SetClarifier, {0, 2, 20}, op::QueryClarifier,
            op::ClarifierPosition, {2, 20});
        row("channel 12", op::SetActiveChannel, {0, 12}, op::QueryActiveChannel, op::ActiveChannel,
            {0, 12});
        row("unprogrammed channel 150 is refused, channel stays", op::SetActiveChannel, {0, 150},
            op::QueryActiveChannel, op::ActiveChannel, {0, 1});
        row("group scan B", op::SetScanMode, {1, 1, 1}, op::QueryOperationMode, op::OperationMode,
            {1});
        row("ISB channel 38 is not ISB", op::SetActiveChannel, {0, 38}, op::QueryIsbMode,
            op::IsbMode, {0});
    }
    void keepsSettings()
    {
        auto [setting, settingPayload, query, reply, expected] = fetch<int, Bytes, int, int, Bytes>(
            "setting", "settingPayload", "query", "reply", "expected");
        QVERIFY(send([&](CRadioMessage* m) {
            m->setOpcodeAndLength(setting, settingPayload.size());
            std::copy(settingPayload.begin(), settingPayload.end(), m->payload());
            return 1;
        }));
        QCOMPARE(payload(ask(query, reply)), expected);
    }

    // Changing the channel reports it (46) with its frequencies, and the current channel reads
    // back with them in host order; the monitor reports 89. Program word and versions too.
    void channelChangeIsReportedAndRead()
    {
        QVERIFY(send([](CRadioMessage* m) { return SetActiveChannel(m, 0, 7); }));
        const CRadioMessage report = waitFor(op::ChannelReport);
        QCOMPARE(Bytes(report.payload(), report.payload() + 2), (Bytes{0, 7}));
        QCOMPARE(report.get32(9), 4125000u);
        QCOMPARE(report.get32(13), 4125000u);
        std::array<std::uint8_t, 13> channel{};
        QVERIFY(
            ReadCurrentChannel(m_engine.get(), reinterpret_cast<koral::channel*>(channel.data())));
        std::uint32_t tx = 0;
        std::memcpy(&tx, channel.data() + 3, 4);
        QCOMPARE(tx, 4125000u);

        QVERIFY(send([](CRadioMessage* m) { return SetMonitorOnOff(m, 0, 1); }));
        QCOMPARE(waitFor(op::MonitorState)[6], std::uint8_t(1));

        unsigned char text[16] = {};
        QVERIFY(ReadProgramWord(m_engine.get(), text));
        QCOMPARE(text[0], 0x5A);
        QVERIFY(ReadSoftwareVersion(m_engine.get(), text));
        QCOMPARE(QByteArray(reinterpret_cast<char*>(text)), QByteArray("03.100"));
        QVERIFY(ReadRadioSoftwareVersion(m_engine.get(), text));
        QCOMPARE(QByteArray(reinterpret_cast<char*>(text)), QByteArray("03.8200"));
    }

    // An ALE radio keeps no CCIR database; in CCIR mode it has one, and no ALE scanning.
    // Without support mode it refuses the extended databases.
    void modesDecideTheDatabasesKept()
    {
        Bytes ccir(RadioDatabases::kCcirSize), extra(RadioDatabases::kExtraOptionsSize);
        QVERIFY(!readTarget(m_engine.get(), TransferTarget::Ccir, ccir, 0, {}, {}, 10));
        run("mode ccir");
        run("support off");
        QCOMPARE(payload(ask(op::QueryCcirMode, op::CcirMode)), (Bytes{1, 0}));
        QCOMPARE(payload(ask(op::QueryOperationMode, op::OperationMode)), Bytes{3});
        QCOMPARE(payload(ask(op::QuerySupportMode, op::SupportMode)), Bytes{0});
        QVERIFY(readTarget(m_engine.get(), TransferTarget::Ccir, ccir, 0, {}, {}, 10));
        QCOMPARE(readU16(ccir, 0), std::uint16_t(4417));
        QVERIFY(!readTarget(m_engine.get(), TransferTarget::ExtraOptions, extra, 0, {}, {}, 10));
    }

    // A reset brings the radio up as after switching it on.
    void resetRestoresPowerOnState()
    {
        QVERIFY(send([](CRadioMessage* m) { return SetSquelchOnOff(m, 0, 1); }));
        QVERIFY(send([](CRadioMessage* m) { return SetClarifier(m, 0, 1, 50); }));
        QVERIFY(send([](CRadioMessage* m) { return PerformReset(m); }));
        QCOMPARE(payload(ask(op::QuerySquelch, op::SquelchState)), Bytes{0});
        QCOMPARE(payload(ask(op::QueryClarifier, op::ClarifierPosition)), (Bytes{0, 0}));
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
        columns<QString, int, QByteArray, QByteArray>("line", "opcode", "address", "text");
        const auto row = [](const char* line, int opcode, const char* address, const char* text) {
            QTest::newRow(line) << QString(line) << opcode << QByteArray(address)
                                << QByteArray(text);
        };
        row("call station STN1 \"HELLO\"", op::IncomingStationCall, "STN1", "HELLO");
        row("call net HQ channel 12", op::IncomingNetCall, "HQ", "");
        row("call all SHIP7 \"QSY NOW\"", op::IncomingPriorityCall, "SHIP7", "QSY NOW");
    }
    void incomingCalls()
    {
        auto [line, opcode, address, text] =
            fetch<QString, int, QByteArray, QByteArray>("line", "opcode", "address", "text");
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
        columns<QByteArray, int>("address", "result");
        QTest::newRow("directory station") << QByteArray("STN2") << 1;
        QTest::newRow("unknown station") << QByteArray("NOBODY") << 0;
    }
    void stationCallLinks()
    {
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
        auto [line, progress, endCode] = fetch<QString, int, int>("line", "progress", "endCode");
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
        QCOMPARE(payload(ask(op::QueryActiveChannel, op::ActiveChannel))[0], 0);
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
        columns<int, int, int>("type", "firstTested", "lastTested");
        QTest::newRow("full") << 0 << 1 << 39;
        QTest::newRow("channel") << 1 << 16 << 31;
        QTest::newRow("low RF") << 2 << 1 << 29;
    }
    void selfTest()
    {
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
        for (int key : {14, 24, 15, 24, 11}) { // "1", release, "2", release, Enter
            QVERIFY(send([&](CRadioMessage* m) { return ReportControlHeadKeyboard(m, key); }));
        }
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
        columns<QString, bool>("line", "succeeds");
        QTest::newRow("corrupt frames") << "fault corrupt 2" << true;
        QTest::newRow("line drop") << "fault drop-after 2000" << false;
    }
    void faultsDuringTransfer()
    {
        auto [line, succeeds] = fetch<QString, bool>("line", "succeeds");
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
            QVERIFY(std::ranges::equal(radio, builtInDatabases().radio));
    }

private:
    static constexpr int kFastBaud = 115200;

    void run(const char* line)
    {
        m_radio.load()->executeFromAnyThread(*parseConsoleLine(line).command);
    }

    bool send(const std::function<int(CRadioMessage*)>& build)
    {
        const CRadioMessage message = request(build);
        return m_engine->SendRadioMessage(&message) != 0;
    }

    CRadioMessage ask(int query, int reply)
    {
        CRadioMessage answer;
        m_engine->LockGetMessage();
        if (!send([&](CRadioMessage* m) { return m->setOpcodeAndLength(query, 0), 1; }) ||
            !m_engine->GetMessageWithOpcode(&answer, reply)) {
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
