#include "radiodb/RadioSummary.h"

#include <QtTest>

using namespace koral;

class RadioSummaryTest : public QObject
{
    Q_OBJECT
private slots:
    void row_data()
    {
        // channel{power, sideband, bandwidth, tx, rx, agc, modulation}
        QTest::addColumn<channel>("ch");
        QTest::addColumn<QStringList>("cells");
        QTest::newRow("low, LSB, AME, off, CW")
            << channel{2, 0, 3, {}, {}, 255, 2} << QStringList{"LOW", "LSB", "AME", "Off", "CW "};
        QTest::newRow("medium, USB, ISB, fast, 2100")
            << channel{3, 1, 5, {}, {}, 1, 3} << QStringList{"MED", "USB", "ISB", "Fast", "2.1"};
        QTest::newRow("values outside the lists keep the template")
            << channel{9, 7, 9, {}, {}, 9, 9} << QStringList{"MAX", "USB", "SSB", "Slow", "2.7"};
    }
    void row()
    {
        QFETCH(channel, ch);
        QFETCH(QStringList, cells);
        ChannelTable channels{};
        channels[16] = ch;
        channels[16].txFrequency.set(12'345'678);
        channels[16].rxFrequency.set(7'000'000);
        const RadioSummary summary = RadioSummary::of(channels, std::nullopt);
        QCOMPARE(summary.rows.size(), std::size_t(200));
        QStringList actual;
        for (const std::string& cell : summary.rows[16])
            actual << QString::fromStdString(cell);
        QCOMPARE(actual, (QStringList{"17", "12.34567", "7"} + cells));
    }

    void ccirColumnOnlyWithNumbers()
    {
        ChannelTable channels{};
        const RadioSummary without = RadioSummary::of(channels, std::nullopt);
        QCOMPARE(without.header.size(), std::size_t(8));
        QCOMPARE(without.header.front(), std::string("No."));
        QCOMPARE(without.header.back(), std::string("B.W."));
        QCOMPARE(without.rows[0][1], std::string()); // an empty channel shows no frequency

        CcirChannelNumbers numbers{};
        numbers[0] = 500;
        numbers[1] = 501;
        const RadioSummary with = RadioSummary::of(channels, numbers);
        QCOMPARE(with.header.back(), std::string("Ch. Num."));
        QCOMPARE(with.rows[0].back(), std::string("500"));
        QCOMPARE(with.rows[1].back(), std::string()); // outside 1..500
        QCOMPARE(with.rows[2].back(), std::string());
        QCOMPARE(with.rows[199][0], std::string("200"));
    }
};

QTEST_GUILESS_MAIN(RadioSummaryTest)
#include "tst_radiosummary.moc"
