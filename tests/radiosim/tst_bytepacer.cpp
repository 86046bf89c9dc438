#include "radiosim/BytePacer.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral::radiosim;
using namespace std::chrono_literals;
using namespace koral::test;

class BytePacerTest : public QObject
{
    Q_OBJECT
private slots:
    // A byte is ten bits on the line, delivered when its last bit arrives.
    void releasesBytesAtTheBaudRate_data()
    {
        columns<unsigned, qint64, int>("baud", "afterMicroseconds", "released");
        QTest::newRow("9600: not before the first byte ends") << 9600u << qint64(1000) << 0;
        QTest::newRow("9600: one byte after 1.05 ms") << 9600u << qint64(1050) << 1;
        QTest::newRow("9600: 96 bytes in 100 ms") << 9600u << qint64(100000) << 96;
        QTest::newRow("off: everything at once") << 0u << qint64(0) << 200;
    }
    void releasesBytesAtTheBaudRate()
    {
        auto [baud, afterMicroseconds, released] =
            fetch<unsigned, qint64, int>("baud", "afterMicroseconds", "released");
        BytePacer pacer;
        pacer.setBaud(baud);
        const auto start = BytePacer::Clock::time_point{} + 1h;
        const std::vector<std::uint8_t> bytes(200, 0x55);
        pacer.push(bytes, start);
        QCOMPARE(int(pacer.take(start + std::chrono::microseconds(afterMicroseconds)).size()),
                 released);
    }

    // Taking in many small steps releases exactly what one late take would: no drift from
    // the caller's timer resolution.
    void smallStepsDoNotDrift()
    {
        BytePacer pacer;
        pacer.setBaud(4800);
        auto now = BytePacer::Clock::time_point{} + 1h;
        pacer.push(std::vector<std::uint8_t>(1000, 1), now);
        std::size_t total = 0;
        for (int i = 0; i < 1000; ++i) {
            now += 1700us; // deliberately not a multiple of the byte time
            total += pacer.take(now).size();
        }
        QCOMPARE(total, std::size_t(816)); // 1.7 s at 480 bytes per second
    }

    // A line that stood idle does not owe the time it was idle.
    void idleLineStartsAfresh()
    {
        BytePacer pacer;
        pacer.setBaud(9600);
        auto now = BytePacer::Clock::time_point{} + 1h;
        pacer.push(std::vector<std::uint8_t>{1}, now);
        QCOMPARE(pacer.take(now + 10s).size(), std::size_t(1));
        now += 20s;
        pacer.push(std::vector<std::uint8_t>(10, 2), now);
        QCOMPARE(pacer.take(now + 2ms).size(), std::size_t(1));
        QVERIFY(pacer.nextDue() > now + 2ms);
    }
};

QTEST_GUILESS_MAIN(BytePacerTest)
#include "tst_bytepacer.moc"
