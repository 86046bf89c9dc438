#include "ScriptedRadio.h"

#include "koralapi/KoralApi.h"

#include <QElapsedTimer>
#include <QTest>

#include <atomic>
#include <cstring>
#include <numeric>
#include <thread>

using namespace koral;

namespace {
constexpr int kBaud = 115200;

std::vector<std::uint8_t> pattern(std::size_t size, int seed)
{
    std::vector<std::uint8_t> bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::uint8_t>((i * 31 + static_cast<std::size_t>(seed)) ^ (i >> 8));
    return bytes;
}

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

    std::unique_ptr<ScriptedRadio> radio;
    std::unique_ptr<MessageEngine> engine;

    // The engine's own logic; the three transports are walked by the link suite.
    bool open()
    {
        ScriptedRadio* r = radio.get();
        setVirtualRadioFactory([r](int) { return r->pipeEnd(); });
        return engine->OpenComPort(1, kBaud) && engine->ConnectSocket(kBaud, 1) != 0;
    }

private slots:
    void init()
    {
        radio = std::make_unique<ScriptedRadio>();
        engine = std::make_unique<MessageEngine>();
    }
    void cleanup()
    {
        engine.reset();
        radio.reset();
        setVirtualRadioFactory({});
    }

    void answersQueries()
    {
        QVERIFY(open());
        unsigned char word = 0;
        QVERIFY(ReadProgramWord(engine.get(), &word));
        QCOMPARE(word, 0x5A);
        unsigned char version[8] = {};
        QVERIFY(ReadSoftwareVersion(engine.get(), version));
        QCOMPARE(std::strncmp(reinterpret_cast<char*>(version), "03.100", 8), 0);
        QVERIFY(ReadRadioSoftwareVersion(engine.get(), version));
        QCOMPARE(std::strncmp(reinterpret_cast<char*>(version), "03.8194", 8), 0);

        std::array<std::uint8_t, 13> channel{};
        QVERIFY(
            ReadCurrentChannel(engine.get(), reinterpret_cast<koral::channel*>(channel.data())));
        std::uint32_t tx = 0, rx = 0;
        std::memcpy(&tx, channel.data() + 3, 4);
        std::memcpy(&rx, channel.data() + 7, 4);
        QCOMPARE(tx, 7000000u);
        QCOMPARE(rx, 7100000u);
        QCOMPARE(channel[12], 5);

        CRadioMessage reply;
        QVERIFY(engine->LockGetMessage());
        const CRadioMessage ask = query(ReportActiveChannel);
        QVERIFY(engine->SendRadioMessage(&ask));
        QVERIFY(engine->GetMessageWithOpcode(&reply, op::ActiveChannel));
        QCOMPARE(reply[7], 12);
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

    void databaseRoundTrip_data()
    {
        QTest::addColumn<int>("target");
        for (int target : {1, 2, 3, 4, 5, 6})
            QTest::addRow("target %d", target) << target;
    }
    void databaseRoundTrip()
    {
        QFETCH(int, target);
        QVERIFY(open());
        const auto kind = static_cast<TransferTarget>(target);
        const std::size_t size = targetSize(target);
        std::vector<std::uint8_t> record = pattern(size, target);
        if (kind == TransferTarget::Radio) {
            const std::uint16_t priority = 1;
            std::memcpy(record.data() + 4288, &priority, 2);
        }
        const auto original = record;
        std::vector<int> steps;
        const ProgressCallback progress = [&](int n) {
            steps.push_back(n);
            return 1;
        };
        int pumps = 0;
        const PumpCallback pump = [&](int) { return ++pumps; };
        QVERIFY(writeTarget(engine.get(), kind, record, 0, pump, progress, 10, 0));
        QVERIFY(record == original); // never left in radio order
        QCOMPARE(std::accumulate(steps.begin(), steps.end(), std::size_t{0}), size);
        QCOMPARE(steps.size(), (size + 245) / 246);
        {
            std::lock_guard lock(radio->mutex);
            auto stored = radio->databases[target];
            if (kind == TransferTarget::Radio) {
                QCOMPARE(stored[4288], 0x00); // a priority channel of 1 is 0x00 0x01 in the radio
                QCOMPARE(stored[4289], 0x01);
            }
            convertByteOrder(kind, stored);
            QVERIFY(stored == original);
        }
        steps.clear();
        std::vector<std::uint8_t> back(size, 0xEE);
        QVERIFY(readTarget(engine.get(), kind, back, 0, pump, progress, 10));
        QVERIFY(back == original);
        QCOMPARE(std::accumulate(steps.begin(), steps.end(), std::size_t{0}), size);
    }

    void typedCallsMoveWholeRecords()
    {
        QVERIFY(open());
        std::vector<std::uint8_t> radioRecord = pattern(record::kDbaseSize, 5);
        std::vector<std::uint8_t> aleRecord = pattern(record::kAleDbaseSize, 6);
        auto* dbaseRecord = reinterpret_cast<dbase*>(radioRecord.data());
        auto* ale = reinterpret_cast<ale_dbase*>(aleRecord.data());
        QVERIFY(WriteRadioDataBase(engine.get(), dbaseRecord, 0, {}, {}, 10));
        QVERIFY(WriteAleDataBase(engine.get(), ale, {}, {}, 10, 0, 1, 1));
        std::vector<std::uint8_t> radioBack(record::kDbaseSize), aleBack(record::kAleDbaseSize);
        QVERIFY(ReadRadioDataBase(engine.get(), reinterpret_cast<dbase*>(radioBack.data()), 0, {},
                                  {}, 10));
        QVERIFY(ReadAleDataBase(engine.get(), reinterpret_cast<ale_dbase*>(aleBack.data()), {}, {},
                                10));
        QVERIFY(radioBack == radioRecord);
        QVERIFY(aleBack == aleRecord);
        QVERIFY(!ReadRadioDataBase(engine.get(), nullptr, 0, {}, {}, 10));
    }

    // A progress callback that answers 0 stops the transfer at once and the call fails; the
    // radio keeps what it had and the link stays usable.
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
        std::vector<std::uint8_t> record = pattern(record::kAleDbaseSize, 9);
        const int result =
            writing
                ? writeTarget(engine.get(), TransferTarget::Ale, record, 0, {}, stopSecond, 10, 0)
                : readTarget(engine.get(), TransferTarget::Ale, record, 0, {}, stopSecond, 10);
        QCOMPARE(result, 0);
        QCOMPARE(calls, 2);
        if (!writing)
            QVERIFY(record == pattern(record::kAleDbaseSize, 9)); // untouched on failure
        {
            std::lock_guard lock(radio->mutex);
            QVERIFY(radio->databases[2] == std::vector<std::uint8_t>(record::kAleDbaseSize, 0));
        }
        unsigned char word = 0;
        QVERIFY(ReadProgramWord(engine.get(), &word));
    }

    void unansweredQueryFailsAfterReplyBound()
    {
        QVERIFY(open());
        radio->mute = true;
        QElapsedTimer clock;
        clock.start();
        CRadioMessage reply;
        engine->LockGetMessage();
        const CRadioMessage ask = query(ReportActiveChannel);
        QVERIFY(engine->SendRadioMessage(&ask)); // acknowledged, never answered
        QCOMPARE(engine->GetMessageWithOpcode(&reply, op::ActiveChannel), 0);
        QVERIFY(clock.elapsed() <= 2 * engine->timing().replyMs());
    }

    void noiseOnTheLineIsIgnored()
    {
        QVERIFY(open());
        radio->noise(QByteArray("\x7E\x01\x00\x00\x07garbage\x7E\x7E\xFF", 16));
        radio->report(op::MonitorState, {1});
        CRadioMessage message;
        int got = 0;
        for (int round = 0; round < 20 && got != 1; ++round)
            got = engine->GetMessage(&message, 1);
        QCOMPARE(got, 1);
        QCOMPARE(message.GetOpcode(), op::MonitorState);
        unsigned char word = 0;
        QVERIFY(ReadProgramWord(engine.get(), &word));
    }

    void memoryProgrammingWritesBytesAsGiven()
    {
        QVERIFY(open());
        const std::array<unsigned char, 14> options{0x00, 0x01, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
        QVERIFY(StartRADIOProgramming(engine.get()));
        QVERIFY(WriteRADIOMemorySection(engine.get(), options.data(), 4288, options.size()));
        QVERIFY(StopRADIOProgramming(engine.get()));
        QVERIFY(!WriteRADIOMemorySection(engine.get(), options.data(), 4300, options.size()));
        std::lock_guard lock(radio->mutex);
        QVERIFY(std::equal(options.begin(), options.end(), radio->databases[16].begin() + 4288));
    }

    void programChannelSendsRadioOrder()
    {
        QVERIFY(open());
        std::array<std::uint8_t, 13> record{1, 2, 3};
        const std::uint32_t tx = 12345678;
        std::memcpy(record.data() + 3, &tx, 4);
        QVERIFY(ProgramChannelNumberN(engine.get(), reinterpret_cast<channel*>(record.data()), 3));
        QVERIFY(
            !ProgramChannelNumberN(engine.get(), reinterpret_cast<channel*>(record.data()), 201));
        std::lock_guard lock(radio->mutex);
        const auto& stored = radio->databases[1];
        QCOMPARE(stored[1688 + 26 + 3], 0x00);
        QCOMPARE(stored[1688 + 26 + 4], 0xBC);
        QCOMPARE(stored[1688 + 26 + 5], 0x61);
        QCOMPARE(stored[1688 + 26 + 6], 0x4E);
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
