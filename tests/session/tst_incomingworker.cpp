// What the incoming worker settles itself and what it hands to the view, message by message.

#include "support/Table.h"

#include "session/IncomingWorker.h"
#include "session/SessionState.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

CRadioMessage report(int opcode, std::uint8_t byte6 = 0, std::uint8_t byte7 = 0)
{
    CRadioMessage message;
    message.prepareReport();
    message.setOpcodeAndLength(opcode, 2);
    message[6] = byte6;
    message[7] = byte7;
    return message;
}

struct Harness
{
    CapabilityFlags flags;
    LatestMessage latest;
    int notified = 0;
    int aleReports = 0;
    IncomingWorker::Context context{
        nullptr, &flags, nullptr, &latest, [this] { ++notified; }, [this] { ++aleReports; }};
    StopEvent stop;
};

} // namespace

class IncomingWorkerTest : public QObject
{
    Q_OBJECT
private slots:
    void handOver_data()
    {
        columns<int, bool>("opcode", "forwarded");
        QTest::newRow("30 is dropped although the view has a row") << 30 << false;
        QTest::newRow("46 channel report") << 46 << true;
        QTest::newRow("85 link result") << 85 << true;
        QTest::newRow("88 settled by the worker") << 88 << false;
        QTest::newRow("1 is a reply, not a report") << 1 << false;
        QTest::newRow("unknown") << 200 << false;
    }
    void handOver()
    {
        auto [opcode, forwarded] = fetch<int, bool>("opcode", "forwarded");
        Harness h;
        IncomingWorker::handle(report(opcode, 7), h.context, &h.stop);
        QCOMPARE(h.notified, forwarded ? 1 : 0);
        QCOMPARE(h.latest.take().GetOpcode(), forwarded ? opcode : 0);
        // The radio's own ALE key shows in 88: the view hears of it.
        QCOMPARE(h.aleReports, opcode == 88 ? 1 : 0);
    }

    void nothingIsHandedOverOnceStopped()
    {
        Harness h;
        h.stop.set();
        IncomingWorker::handle(report(85, 1), h.context, &h.stop);
        IncomingWorker::handle(report(88, 1), h.context, &h.stop);
        QCOMPARE(h.notified, 0);
        QCOMPARE(h.aleReports, 0);
    }

    // The CCIR report (96) and the ALE report (88) the worker settles itself.
    void ccirAndAleReports_data()
    {
        columns<int, int, int, bool, bool, int, bool>("opcode", "byte6", "byte7", "ccir",
                                                      "fileLoaded", "aleState", "aleOff");
        QTest::newRow("CCIR, ALE on") << 96 << 1 << 1 << true << true << 1 << false;
        QTest::newRow("byte 6 = 2 clears both") << 96 << 2 << 1 << false << false << 1 << false;
        QTest::newRow("ALE state 0 is off") << 96 << 0 << 0 << false << false << 0 << true;
        QTest::newRow("ALE state 2 is off too") << 96 << 1 << 2 << true << true << 2 << true;
        QTest::newRow("ALE on") << 88 << 1 << 0 << false << true << 1 << false;
        QTest::newRow("ALE off") << 88 << 0 << 0 << false << true << 0 << true;
        QTest::newRow("ALE 2") << 88 << 2 << 0 << false << true << 2 << true;
    }
    void ccirAndAleReports()
    {
        auto [opcode, byte6, byte7, ccir, fileLoaded, aleState, aleOff] =
            fetch<int, int, int, bool, bool, int, bool>("opcode", "byte6", "byte7", "ccir",
                                                        "fileLoaded", "aleState", "aleOff");
        Harness h;
        h.flags.ccirFileLoaded = true;
        IncomingWorker::handle(report(opcode, std::uint8_t(byte6), std::uint8_t(byte7)), h.context,
                               &h.stop);
        QCOMPARE(h.flags.ccirMode.load(), ccir);
        QCOMPARE(h.flags.ccirFileLoaded.load(), fileLoaded);
        QCOMPARE(int(h.flags.aleState), aleState);
        QCOMPARE(h.flags.aleOff.load(), aleOff);
        QCOMPARE(h.flags.ccirAnswers.load(), opcode == 96 ? 1 : 0);
        QCOMPARE(h.notified, 0);
        QCOMPARE(h.aleReports, 1);
    }

    void supportReport_data()
    {
        columns<bool, int, bool, bool>("answered", "byte6", "before", "after");
        QTest::newRow("not asked: ignored") << false << 1 << false << false;
        QTest::newRow("asked, bit 0 set") << true << 1 << false << true;
        QTest::newRow("asked, other bits only") << true << 0xFE << false << false;
        QTest::newRow("a clear bit clears nothing") << true << 0 << true << true;
    }
    void supportReport()
    {
        auto [answered, byte6, before, after] =
            fetch<bool, int, bool, bool>("answered", "byte6", "before", "after");
        Harness h;
        h.flags.supportModeAnswered = answered;
        h.flags.aleGlobalSupported = before;
        h.flags.extraOptionsSupported = before;
        IncomingWorker::handle(report(98, std::uint8_t(byte6)), h.context, &h.stop);
        QCOMPARE(h.flags.aleGlobalSupported.load(), after);
        QCOMPARE(h.flags.extraOptionsSupported.load(), after);
    }

    void workerWithoutStopEventEndsAtOnce()
    {
        Harness h;
        // No engine is needed: a worker whose stop event could not be made never reads.
        IncomingWorker worker(h.context, nullptr);
        worker.join();
        QCOMPARE(h.notified, 0);
    }
};

QTEST_GUILESS_MAIN(IncomingWorkerTest)
#include "tst_incomingworker.moc"
