// The differences of the three record kinds, as koralctl diff and the compare dialog list them.

#include "AleTestSupport.h"

#include "aledb/AleDiff.h"
#include "radiodb/RadioDiff.h"

#include <QtTest>

#include <cstring>

using namespace koral;
using namespace koral::test;

namespace {

using RadioSetup = std::function<void(RadioContents&)>;

QStringList listOf(const std::vector<std::string>& lines)
{
    QStringList list;
    for (const std::string& line : lines)
        list << QString::fromStdString(line);
    return list;
}

} // namespace

Q_DECLARE_METATYPE(RadioSetup)

class RecordDiffTest : public QObject
{
    Q_OBJECT
private slots:
    void radio_data()
    {
        test::columns<RadioSetup, QStringList>("change", "lines");
        QTest::newRow("a channel emptied")
            << RadioSetup([](RadioContents& c) { c.record.channelNo(15) = channel{}; })
            << QStringList{"Channel 15 Tx. Freq.: 7.10000 -> (none)",
                           "Channel 15 Rx. Freq.: 7.10000 -> (none)",
                           "Channel 15 Band: USB -> LSB"};
        QTest::newRow("lists in the grid's words") << RadioSetup([](RadioContents& c) {
            c.record.channelNo(12).agc = 255;
            c.record.channelNo(12).bandwidth = 3;
        }) << QStringList{"Channel 12 A.G.C.: Slow -> Off", "Channel 12 B.W.: 2.7 -> CW "};
        QTest::newRow("group members joined and left, guard channel")
            << RadioSetup([](RadioContents& c) {
                   c.record.groups[1].setMember(15, false);
                   c.record.groups[1].setMember(12, true);
                   c.record.groups[1].guardChannel.set(12);
               })
            << QStringList{"Group B: +12 -15", "Group B Guard Channel: (none) -> 12"};
        QTest::newRow("radio options and identity by their file names")
            << RadioSetup([](RadioContents& c) {
                   c.record.radioOptions.scanRate = 3;
                   c.isb = true;
                   setFieldText(c.record.serialNumber, "A123");
               })
            << QStringList{"Wide Information Serial Number: (none) -> A123",
                           "Radio Options Scan Rate: 2 Ch/Sec -> 3 Ch/Sec",
                           "Radio Options ISB: No -> Yes"};
        QTest::newRow("CCIR channel numbers on one side only") << RadioSetup([](RadioContents& c) {
            c.ccirNumbers = CcirChannelNumbers{};
            (*c.ccirNumbers)[11] = 140;
        }) << QStringList{"Channel 12 Ch. Num.: (none) -> 140"};
    }
    void radio()
    {
        auto [change, lines] = test::fetch<RadioSetup, QStringList>("change", "lines");
        RadioContents before;
        channel& ch = before.record.channelNo(12);
        ch.power = 5;
        ch.sideband = 1;
        ch.txFrequency.set(7'100'000);
        ch.rxFrequency.set(7'100'000);
        before.record.channelNo(15) = ch;
        before.record.groups[1].setMember(15, true);
        before.record.groups[1].guardChannel.set(kNoChannel);
        before.record.radioOptions.priorityChannel.set(12);
        before.record.radioOptions.scanRate = 2;
        RadioContents after = before;
        change(after);
        QCOMPARE(listOf(radioDifferences(before, after)), lines);
    }

    void ale_data()
    {
        test::columns<test::AleSetup, QStringList>("change", "lines");
        QTest::newRow("self address and scanned channels of a net")
            << test::AleSetup([](AleProgramme& p) {
                   test::setNet(p, 3, "NET3", "CAMP", {16});
                   p.database.nets[2].setScanned(15, false);
               })
            << QStringList{"Net 3 Self Address: BASE -> CAMP", "Net 3 Scanned Channels: +16 -15"};
        QTest::newRow("a directory entry and a message changed")
            << test::AleSetup([](AleProgramme& p) {
                   test::setDirectory(p, 6, "OTHER");
                   test::setMessage(p, 2, "HELLO");
               })
            << QStringList{"Directory Address No. 7: STATION -> OTHER",
                           "Messages Message No. 2: (none) -> HELLO"};
    }
    void ale()
    {
        auto [change, lines] = test::fetch<test::AleSetup, QStringList>("change", "lines");
        AleProgramme before = test::emptyProgramme();
        test::setNet(before, 3, "NET3", "BASE", {14, 15});
        test::setDirectory(before, 6, "STATION");
        AleProgramme after = before;
        change(after);
        QCOMPARE(listOf(aleDifferences(before, after, AleSettings{})), lines);
    }

    void ccir()
    {
        ccir_dbase before{};
        before.selfId4.set(1234);
        before.preamble = 6;
        ccir_dbase after = before;
        after.selfId4.set(4321);
        after.directory[4].set(123456);
        std::strcpy(after.message1.data(), "CALL ME");
        QCOMPARE(listOf(ccirDifferences(before, after)),
                 (QStringList{"Ccir 4 Digits Id: 1234 -> 4321", "Ccir Message1: (none) -> CALL ME",
                              "Ccir Directory4: (none) -> 123456"}));
        QVERIFY(ccirDifferences(after, after).empty());
    }
};

QTEST_GUILESS_MAIN(RecordDiffTest)
#include "tst_recorddiff.moc"
