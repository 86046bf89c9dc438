// The session's active channel against the virtual radio: selecting, asking, reading and
// programming one channel, and finding channels by their receive frequency.

#include "SessionFixture.h"

#include <QSignalSpy>

using namespace koral;
using namespace koral::test;

class SessionChannelTest : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        m_fixture = std::make_unique<SessionFixture>();
        QVERIFY(m_fixture->startUp());
    }
    void cleanupTestCase() { m_fixture.reset(); }

    void receiving_data()
    {
        columns<uint, QList<int>>("hertz", "channels");
        QTest::newRow("one channel") << 7055000u << QList<int>{17};
        QTest::newRow("a duplex pair shares its receive side") << 4125000u << QList<int>{7, 9};
        QTest::newRow("a transmit frequency is not a receive one") << 4417000u << QList<int>{};
        QTest::newRow("0 Hz is not a frequency") << 0u << QList<int>{};
    }
    void receiving()
    {
        auto [hertz, channels] = fetch<uint, QList<int>>("hertz", "channels");
        const std::vector<int> found = m_fixture->session->activeChannel().receiving(hertz);
        QCOMPARE(QList<int>(found.begin(), found.end()), channels);
    }

    void selectQueryReadAndProgram()
    {
        ActiveChannel& active = m_fixture->session->activeChannel();
        QSignalSpy selected(&active, &ActiveChannel::selected);
        QCOMPARE(active.select(12), 1);
        QCOMPARE(selected.size(), 1);
        int number = 0;
        bool scanning = true;
        QCOMPARE(active.query(number, scanning), 1);
        QCOMPARE(number, 12);
        QVERIFY(!scanning);
        channel current{};
        QCOMPARE(active.readCurrent(current), 1);
        QCOMPARE(current.rxFrequency.get(), 5815000u);
        QCOMPARE(active.select(0), 0);
        QCOMPARE(selected.size(), 1);

        // A programmed channel is the radio's and the session's at once: the table that later
        // searches use knows it.
        QVERIFY(!active.isProgrammed(150));
        channel record{};
        record.power = 4;
        record.sideband = 1;
        record.rxFrequency.set(7100000);
        record.txFrequency.set(7100000);
        QCOMPARE(active.program(150, record), 1);
        QVERIFY(active.isProgrammed(150));
        QCOMPARE(active.receiving(7100000), std::vector<int>{150});
        QCOMPARE(active.select(150), 1);
        QCOMPARE(active.readCurrent(current), 1);
        QCOMPARE(current.txFrequency.get(), 7100000u);
    }

    void silentRadioShowsTheMessageOnce()
    {
        m_fixture->play(*radiosim::parseConsoleLine("fault no-answer").command);
        channel record{};
        QCOMPARE(m_fixture->session->activeChannel().readCurrent(record), 0);
        QCOMPARE(texts(m_fixture->notifier).size(), 1);
        m_fixture->play(*radiosim::parseConsoleLine("fault clear").command);
    }

private:
    std::unique_ptr<SessionFixture> m_fixture;
};

QTEST_GUILESS_MAIN(SessionChannelTest)
#include "tst_sessionchannel.moc"
