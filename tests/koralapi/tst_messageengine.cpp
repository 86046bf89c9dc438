// The engine's own logic against the built-in virtual radio: waits that end, progress and pump
// of a transfer, what a stopped transfer leaves behind, and the typed calls.

#include "koralapi/KoralApi.h"
#include "radiosim/BuiltInContents.h"
#include "radiosim/BuiltInRadio.h"

#include <QElapsedTimer>
#include <QTest>

#include <cstring>
#include <numeric>

using namespace koral;
using namespace koral::radiosim;

namespace {
constexpr int kBaud = 115200;

CRadioMessage query(int (*builder)(CRadioMessage*))
{
    CRadioMessage message;
    message.prepareRequest();
    builder(&message);
    return message;
}
} // namespace

class TestMessageEngine : public QObject
{
    Q_OBJECT

    std::unique_ptr<MessageEngine> engine;

    bool open()
    {
        installBuiltInRadio({false, {}});
        return engine->OpenComPort(1, kBaud) && engine->ConnectSocket(kBaud, 1) != 0;
    }

private slots:
    void init() { engine = std::make_unique<MessageEngine>(); }
    void cleanup()
    {
        engine.reset();
        setVirtualRadioFactory({});
    }

    void getMessageWaitsThenReportsState()
    {
        QVERIFY(open());
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

    // The typed calls move whole records and report every block; what they write comes back,
    // and the caller's record is never left in radio order.
    void typedCallsMoveWholeRecords()
    {
        QVERIFY(open());
        using Bytes = std::vector<std::uint8_t>;
        Bytes radio(record::kDbaseSize), ale(record::kAleDbaseSize);
        const auto asRadio = [](Bytes& b) { return reinterpret_cast<dbase*>(b.data()); };
        const auto asAle = [](Bytes& b) { return reinterpret_cast<ale_dbase*>(b.data()); };
        QVERIFY(ReadRadioDataBase(engine.get(), asRadio(radio), 0, {}, {}, 10));
        QVERIFY(ReadAleDataBase(engine.get(), asAle(ale), {}, {}, 10));
        radio[1688 + 3] ^= 0x5A; // tx of channel 1
        ale[100] ^= 0x5A;
        const Bytes radioSent = radio;
        std::vector<int> steps;
        const ProgressCallback progress = [&](int n) { return steps.push_back(n), 1; };
        QVERIFY(WriteRadioDataBase(engine.get(), asRadio(radio), 0, {}, progress, 10));
        QCOMPARE(std::accumulate(steps.begin(), steps.end(), std::size_t{0}), record::kDbaseSize);
        QCOMPARE(steps.size(), (record::kDbaseSize + 245) / 246);
        QVERIFY(radio == radioSent);
        QVERIFY(WriteAleDataBase(engine.get(), asAle(ale), {}, {}, 10, 0, 1, 1));
        Bytes radioBack(radio.size()), aleBack(ale.size());
        QVERIFY(ReadRadioDataBase(engine.get(), asRadio(radioBack), 0, {}, {}, 10));
        QVERIFY(ReadAleDataBase(engine.get(), asAle(aleBack), {}, {}, 10));
        QVERIFY(radioBack == radio && aleBack == ale);
        QVERIFY(!ReadRadioDataBase(engine.get(), nullptr, 0, {}, {}, 10));
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
        QVERIFY(open());
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
        QVERIFY(open());
        QElapsedTimer clock;
        clock.start();
        CRadioMessage reply;
        engine->LockGetMessage();
        const CRadioMessage ask = query(ReportSquelchState);
        QVERIFY(engine->SendRadioMessage(&ask));
        QCOMPARE(engine->GetMessageWithOpcode(&reply, op::ActiveChannel), 0);
        QVERIFY(clock.elapsed() <= 2 * engine->timing().replyMs());
    }

    // A programmed channel goes out in the radio's byte order: read back, it is what was sent.
    void programChannelSendsRadioOrder()
    {
        QVERIFY(open());
        std::array<std::uint8_t, 13> record{1, 2, 3};
        const std::uint32_t tx = 12345678;
        std::memcpy(record.data() + 3, &tx, 4);
        QVERIFY(ProgramChannelNumberN(engine.get(), reinterpret_cast<channel*>(record.data()), 3));
        QVERIFY(
            !ProgramChannelNumberN(engine.get(), reinterpret_cast<channel*>(record.data()), 201));
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
        const CRadioMessage ask = query(ReportSquelchState);
        QCOMPARE(engine->SendRadioMessage(&ask), 0);
    }
};

QTEST_GUILESS_MAIN(TestMessageEngine)
#include "tst_messageengine.moc"
