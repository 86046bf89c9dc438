#include "koralapi/Builders.h"
#include "koralapi/CRadioMessage.h"
#include "koralapi/Opcodes.h"
#include "koralapi/Ports.h"
#include "support/Table.h"

#include <QTest>

#include <functional>
#include <vector>

using namespace koral;
using namespace koral::test;

using Bytes = std::vector<std::uint8_t>;
using Build = std::function<int(CRadioMessage*)>;
Q_DECLARE_METATYPE(Build)

namespace {
const signed char kChannel12[2] = {0, 12};
const signed char kAuto[2] = {-1, -1};

Bytes callPayload(const signed char* pair, std::string_view address, std::string_view text)
{
    Bytes payload(2 + 1 + 16 + 1 + 91, 0);
    payload[0] = static_cast<std::uint8_t>(pair[0]);
    payload[1] = static_cast<std::uint8_t>(pair[1]);
    payload[2] = static_cast<std::uint8_t>(address.empty() ? 0 : address.size() + 1);
    std::copy(address.begin(), address.end(), payload.begin() + 3);
    payload[19] = static_cast<std::uint8_t>(text.empty() ? 0 : text.size() + 1);
    std::copy(text.begin(), text.end(), payload.begin() + 20);
    return payload;
}
} // namespace

class TestRequests : public QObject
{
    Q_OBJECT
private slots:
    // Each builder writes its opcode, length and payload exactly as the radio reads them, and
    // leaves the bytes the program set itself alone. The queries without a payload are checked
    // by tst_linkradio, which asks each one and waits for its answer.
    void buildersLayOutThePayload_data()
    {
        columns<Build, int, Bytes>("build", "opcode", "payload");
        const auto row = [](const char* name, Build build, int opcode, Bytes payload) {
            QTest::newRow(name) << build << opcode << payload;
        };
        // clang-format off
#define ROW(call, ...) row(#call, [](CRadioMessage* m) { return call; }, __VA_ARGS__)
        // clang-format on
        ROW(SetActiveChannel(m, 0, 12), op::SetActiveChannel, {0, 12});
        ROW(SetSquelchOnOff(m, 0, 1), op::SetSquelch, {0, 1});
        ROW(SetMonitorOnOff(m, 0, 0), op::SetMonitor, {0, 0});
        ROW(SetDspMenuParameters(m, 0, 255, 1, 255, 255), op::SetDspParameters,
            {0, 255, 1, 255, 255});
        ROW(SetClarifier(m, 0, 2, 150), op::SetClarifier, {0, 2, 150});
        ROW(PerformReset(m), op::Reset, {});
        ROW(EnterRemoteMode(m, 2), op::EnterRemoteMode, {2});
        ROW(EnableDisableSpecialReport(m, 0, 1, 46), op::SpecialReport, {0, 1, 46});
        ROW(SetAleMode(m, 0, 1), op::EnterNetwork, {0, 1});
        ROW(SetRadioScanMode(m, 1, 1, 3), op::SetScanMode, {1, 1, 3});
        ROW(StationCall(m, "STN1", 5, kChannel12, "HI", 3), op::StationCall,
            callPayload(kChannel12, "STN1", "HI"));
        ROW(NetCall(m, "NET01", 6, kAuto, "", 0), op::NetCall, callPayload(kAuto, "NET01", ""));
        ROW(AllCall(m, kAuto, "ALL", 4), op::AllCall, callPayload(kAuto, "", "ALL"));
        ROW(BiDirectionalStation(m, "A", 2, kChannel12, "", 0), op::BiDirectionalStation,
            callPayload(kChannel12, "A", ""));
        ROW(BiDirectionalNet(m, "N", 2, kAuto, "", 0), op::BiDirectionalNet,
            callPayload(kAuto, "N", ""));
        ROW(ReplaceLinkChannel(m, 1, 1, 0), op::ReplaceLinkChannel, {1, 1, 0});
        ROW(AbortLink(m), op::AbortLink, {});
        ROW(AcceptLink(m), op::AcceptLink, {});
        ROW(SetSoundOnOff(m, 0, 1), op::Sounding, {0, 1});
        ROW(PerformSelfTest(m, 2), op::SelfTest, {2});
        ROW(ReportControlHeadKeyboard(m, 24), op::ControlHeadKey, {24});
#undef ROW
    }
    void buildersLayOutThePayload()
    {
        auto [build, opcode, payload] = fetch<Build, int, Bytes>("build", "opcode", "payload");
        CRadioMessage message;
        message.bytes.fill(0xCC); // a reused message: nothing stale may survive
        message.prepareRequest();
        QCOMPARE(build(&message), 1);
        QCOMPARE(message.GetOpcode(), opcode);
        QCOMPARE(message.GetLen(), static_cast<int>(payload.size()));
        QCOMPARE(message[0], 0x24);
        QCOMPARE(message[2], 0x18);
        QCOMPARE(message[5], 3);
        const Bytes actual(message.payload(), message.payload() + payload.size());
        QCOMPARE(actual, payload);
        QVERIFY(std::all_of(message.payload() + payload.size(), message.bytes.end(),
                            [](std::uint8_t b) { return b == 0; }));
        QCOMPARE(build(nullptr), 0);
    }

    void callsRefuseWhatDoesNotFit_data()
    {
        columns<int, int, int>("addressLength", "textLength", "result");
        QTest::newRow("longest address and text") << 16 << 91 << 1;
        QTest::newRow("address too long") << 17 << 0 << 0;
        QTest::newRow("text too long") << 1 << 92 << 0;
        QTest::newRow("negative length") << -1 << 0 << 0;
    }
    void callsRefuseWhatDoesNotFit()
    {
        auto [addressLength, textLength, result] =
            fetch<int, int, int>("addressLength", "textLength", "result");
        const std::string address(32, 'A');
        const std::string text(100, 'B');
        CRadioMessage message;
        message.prepareRequest();
        QCOMPARE(StationCall(&message, address.c_str(), addressLength, kChannel12, text.c_str(),
                             textLength),
                 result);
        if (result) // the fields always end in a zero, whatever the caller passed
            QVERIFY(message[24] == 0 && message[116] == 0);
    }

    void portNames_data()
    {
        // kind: -1: not a port
        columns<QString, int, QString>("text", "kind", "where");
        QTest::newRow("built-in by name") << "virtual" << 0 << "";
        QTest::newRow("built-in by number") << "1" << 0 << "";
        QTest::newRow("device path") << "/dev/ttyUSB0" << 1 << "/dev/ttyUSB0";
        QTest::newRow("tcp") << "tcp:radio.local:4001" << 2 << "radio.local:4001";
        QTest::newRow("tcp ipv6") << "tcp:::1:4001" << 2 << "::1:4001";
        QTest::newRow("tcp without port") << "tcp:host" << -1 << "";
        QTest::newRow("tcp port zero") << "tcp:host:0" << -1 << "";
        QTest::newRow("tcp port too big") << "tcp:host:70000" << -1 << "";
        QTest::newRow("empty") << "" << -1 << "";
        QTest::newRow("port zero") << "0" << -1 << "";
    }
    void portNames()
    {
        auto [text, kind, where] = fetch<QString, int, QString>("text", "kind", "where");
        const auto spec = parsePort(text.toStdString());
        QCOMPARE(spec.has_value(), kind >= 0);
        if (!spec)
            return;
        QCOMPARE(static_cast<int>(spec->kind), kind);
        const std::string place = spec->kind == PortSpec::Kind::Tcp
                                      ? spec->host + ":" + std::to_string(spec->tcpPort)
                                      : spec->device;
        QCOMPARE(QString::fromStdString(place), where);
    }

    void portListStartsWithTheBuiltInRadio()
    {
        const auto ports = availablePorts();
        QVERIFY(!ports.empty());
        QCOMPARE(ports.front().description, std::string("Virtual radio (built-in)"));
        for (std::size_t i = 1; i < ports.size(); ++i) // numbering: list index + 1
            QCOMPARE(portByNumber(static_cast<int>(i + 1))->device, ports[i].name);
    }
};

QTEST_GUILESS_MAIN(TestRequests)
#include "tst_requests.moc"
