#include "radiodb/ChannelCsv.h"
#include "radiodb/RadioSummary.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

const char* const kHeader =
    "No.,Tx. Freq.,Rx. Freq.,Tx Power,Band,Mode,A.G.C.,B.W.,Ch. Num.,Groups\r\n";

ChannelPlan samplePlan()
{
    ChannelPlan plan;
    plan.record.channels.fill(channel{5, 1, 0, {}, {}, 0, 0}); // as a file loads them
    channel& simplex = plan.record.channelNo(1);
    simplex = {4, 1, 0, {}, {}, 0, 0};
    simplex.txFrequency.set(2'182'000);
    simplex.rxFrequency.set(2'182'000);
    channel& duplex = plan.record.channelNo(7);
    duplex = {2, 0, 3, {}, {}, 255, 2};
    duplex.txFrequency.set(4'417'000);
    duplex.rxFrequency.set(4'125'500);
    plan.record.channelNo(9).rxFrequency.set(15'000'000);
    plan.record.groups[0].setMember(1, true);
    plan.record.groups[2].setMember(7, true);
    plan.record.groups[2].setMember(50, true); // an empty channel that is a member
    plan.record.groups[2].guardChannel.set(7);
    plan.ccirNumbers = CcirChannelNumbers{};
    (*plan.ccirNumbers)[0] = 401;
    (*plan.ccirNumbers)[8] = 1; // the lowest number a channel can have
    return plan;
}

bool samePlan(const ChannelPlan& a, const ChannelPlan& b)
{
    return std::memcmp(&a.record, &b.record, sizeof(dbase)) == 0 && a.ccirNumbers == b.ccirNumbers;
}

} // namespace

// The channel table as text: the CSV file and the summary rows.
class ChannelCsvTest : public QObject
{
    Q_OBJECT
private slots:
    void roundTrip()
    {
        const ChannelPlan plan = samplePlan();
        const std::string csv = channelCsv(plan);
        QCOMPARE(QString::fromStdString(csv.substr(0, 3)), QString::fromUtf8("\xEF\xBB\xBF"));
        QVERIFY(csv.find("\r\n7,4.417,4.1255,LOW,LSB,AME,Off,\"CW \",,C\r\n") != std::string::npos);
        QVERIFY(csv.find("\r\n50,,,MAX,USB,SSB,Slow,2.7,,C\r\n") != std::string::npos);
        ChannelPlan back;
        back.record.channelNo(8).txFrequency.set(9'000'000); // replaced by the file's
        back.record.groups[2].guardChannel.set(7);
        QCOMPARE(importChannelCsv(csv, back, false), std::vector<std::string>{});
        QVERIFY(samePlan(back, plan));
    }

    // What a spreadsheet in a semicolon locale saves after a few edits.
    void spreadsheetEdits()
    {
        const std::string csv = "Groups;No.;Rx. Freq.;Tx. Freq.;Tx Power;Band;Mode;A.G.C.;B.W.\n"
                                "\"a, e\";3;7,1;7,1;max;usb;AME;fast;CW\n"
                                ";12;5;;Low;LSB;SSB;Slow;3.3\n\n";
        ChannelPlan plan = samplePlan();
        QCOMPARE(importChannelCsv(csv, plan, false), std::vector<std::string>{});
        channel three{5, 1, 3, {}, {}, 1, 2};
        three.txFrequency.set(7'100'000u);
        three.rxFrequency.set(7'100'000u);
        QCOMPARE(std::memcmp(&plan.record.channelNo(3), &three, sizeof three), 0);
        QCOMPARE(plan.record.channelNo(12).txFrequency.get(), 0u);
        QCOMPARE(plan.record.channelNo(12).rxFrequency.get(), 5'000'000u);
        QVERIFY(!plan.record.channelNo(1).isProgrammed()); // not listed: emptied
        QVERIFY(plan.record.groups[0].isMember(3) && plan.record.groups[4].isMember(3));
        QVERIFY(!plan.record.groups[0].isMember(1));
        QCOMPARE(plan.record.groups[2].guardChannel.get(), 7); // guard channels stay
        QCOMPARE((*plan.ccirNumbers)[0], 0);                   // no column: no numbers
    }

    void badRows_data()
    {
        columns<QString, QStringList>("rows", "errors");
        QTest::newRow("frequency out of range")
            << "2,31,31,MAX,USB,SSB,Slow,2.7,,\r\n"
            << QStringList{"line 2: 31 is out of range. TX frequency range is 1.6 to 30Mhz."};
        QTest::newRow("receive-only below range")
            << "2,,0.05,MAX,USB,SSB,Slow,2.7,,\r\n"
            << QStringList{"line 2: 0.05 is out of range. RX frequency range is 0.1 to 30Mhz."};
        QTest::newRow("not a frequency") << "2,7.1x,7.1x,MAX,USB,SSB,Slow,2.7,,\r\n"
                                         << QStringList{"line 2: 7.1x is an invalid frequency"};
        QTest::newRow("too long") << "2,7.1234567,7.1,MAX,USB,SSB,Slow,2.7,,\r\n"
                                  << QStringList{"line 2: Tx. Freq. \"7.1234567\" is longer than "
                                                 "8 characters"};
        QTest::newRow("unknown list text and ISB not offered")
            << "2,7.1,7.1,HUGE,USB,SSB,Slow,2.7,,\r\n3,7.1,7.1,MAX,USB,ISB,Slow,2.7,,\r\n"
            << QStringList{"line 2: Tx Power \"HUGE\" is none of LOW, MED, HIGH, MAX",
                           "line 3: Mode \"ISB\" is none of SSB, PLT, AME"};
        QTest::newRow("channel number, duplicate, CCIR number, groups")
            << "0,7.1,7.1,MAX,USB,SSB,Slow,2.7,,\r\n2,7.1,7.1,MAX,USB,SSB,Slow,2.7,501,\r\n"
               "4,7.1,7.1,MAX,USB,SSB,Slow,2.7,,AF\r\n4,7.1,7.1,MAX,USB,SSB,Slow,2.7,,\r\n"
            << QStringList{"line 2: \"0\" is no channel number (1 to 200)",
                           "line 3: Ch. Num. \"501\" is no number from 1 to 500",
                           "line 4: Groups \"AF\" names a group other than A to E",
                           "line 5: channel 4 is already on line 4"};
    }
    void badRows()
    {
        auto [rows, errors] = fetch<QString, QStringList>("rows", "errors");
        ChannelPlan plan = samplePlan();
        const std::vector<std::string> actual =
            importChannelCsv(kHeader + rows.toStdString(), plan, false);
        QStringList lines;
        for (const std::string& line : actual)
            lines << QString::fromStdString(line);
        QCOMPARE(lines, errors);
        QVERIFY(samePlan(plan, samplePlan())); // nothing changed
    }

    void missingColumnsAndEmptyFile()
    {
        ChannelPlan plan;
        QCOMPARE(importChannelCsv("\xEF\xBB\xBF", plan, false),
                 std::vector<std::string>{"the file holds no header row"});
        QCOMPARE(importChannelCsv("No.;Tx. Freq.;Band\n", plan, false),
                 (std::vector<std::string>{"line 1: the column \"Rx. Freq.\" is missing",
                                           "line 1: the column \"Tx Power\" is missing",
                                           "line 1: the column \"Mode\" is missing",
                                           "line 1: the column \"A.G.C.\" is missing",
                                           "line 1: the column \"B.W.\" is missing"}));
    }

    void row_data()
    {
        // channel{power, sideband, bandwidth, tx, rx, agc, modulation}
        columns<channel, QStringList>("ch", "cells");
        QTest::newRow("low, LSB, AME, off, CW")
            << channel{2, 0, 3, {}, {}, 255, 2} << QStringList{"LOW", "LSB", "AME", "Off", "CW "};
        QTest::newRow("medium, USB, ISB, fast, 2100")
            << channel{3, 1, 5, {}, {}, 1, 3} << QStringList{"MED", "USB", "ISB", "Fast", "2.1"};
        QTest::newRow("values outside the lists keep the template")
            << channel{9, 7, 9, {}, {}, 9, 9} << QStringList{"MAX", "USB", "SSB", "Slow", "2.7"};
    }
    void row()
    {
        auto [ch, cells] = fetch<channel, QStringList>("ch", "cells");
        ChannelTable channels{};
        channels[16] = ch;
        channels[16].txFrequency.set(12'345'678);
        channels[16].rxFrequency.set(7'000'000);
        const RadioSummary summary = RadioSummary::of(channels, std::nullopt);
        QStringList actual;
        for (const std::string& cell : summary.rows[16])
            actual << QString::fromStdString(cell);
        QCOMPARE(actual, (QStringList{"17", "12.34567", "7"} + cells));
    }

    // The header and the rows' columns are shown by koralctl's summary tests; here what a cell
    // holds at the edges.
    void ccirColumnOnlyWithNumbers()
    {
        ChannelTable channels{};
        CcirChannelNumbers numbers{};
        numbers[0] = 500;
        numbers[1] = 501;
        const RadioSummary with = RadioSummary::of(channels, numbers);
        QCOMPARE(with.rows[0][1], std::string()); // an empty channel shows no frequency
        QCOMPARE(with.rows[0].back(), std::string("500"));
        QCOMPARE(with.rows[1].back(), std::string()); // outside 1..500
    }
};

QTEST_GUILESS_MAIN(ChannelCsvTest)
#include "tst_channelcsv.moc"
