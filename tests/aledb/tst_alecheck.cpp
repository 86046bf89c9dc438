#include "AleTestSupport.h"

#include "aledb/AleCheck.h"
#include "common/RecordingNotifier.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

class AleCheckTest : public QObject
{
    Q_OBJECT
private slots:
    void lines_data()
    {
        columns<AleSetup, bool, QStringList, bool>("setup", "globalMembers", "expected",
                                                   "configured");

        QTest::newRow("empty database")
            << AleSetup([](AleProgramme&) {}) << true << QStringList{} << false;
        QTest::newRow("name only")
            << AleSetup([](AleProgramme& p) { setNet(p, 1, "NETA", "", {}); }) << true
            << QStringList{"Net no. 1 does not have Scanned Channels.",
                           "Net no. 1 does not have Self Address."}
            << true;
        QTest::newRow("members without a name")
            << AleSetup([](AleProgramme& p) { p.database.nets[1].members[4] = 7; }) << true
            << QStringList{"Net no. 2 does not have Net Name.",
                           "Net no. 2 does not have Scanned Channels.",
                           "Net no. 2 does not have Self Address."}
            << true;
        QTest::newRow("channels without self address")
            << AleSetup([](AleProgramme& p) { setNet(p, 2, "", "", {4}); }) << true
            << QStringList{"Net no. 2 does not have Self Address."} << true;
        QTest::newRow("channel bit 0 is not a scanned channel")
            << AleSetup([](AleProgramme& p) { setNet(p, 3, "N3", "S3", {0}); }) << true
            << QStringList{"Net no. 3 does not have Scanned Channels."} << true;
        QTest::newRow("name equals another net's self address") << AleSetup([](AleProgramme& p) {
            setNet(p, 3, "STN1", "S3", {1});
            setNet(p, 5, "N5", "STN1", {1});
        }) << true << QStringList{"Net no. 3 Self Address ('STN1') defined as Net no. 5 Net Name"}
                                                                << true;
        QTest::newRow("name equals its own self address")
            << AleSetup([](AleProgramme& p) { setNet(p, 4, "SAME", "SAME", {1}); }) << true
            << QStringList{"Net no. 4 Self Address ('SAME') defined as Net no. 4 Net Name"} << true;
        QTest::newRow("only the first net with that self address is named")
            << AleSetup([](AleProgramme& p) {
                   setNet(p, 1, "X", "S1", {1});
                   setNet(p, 7, "N7", "X", {1});
                   setNet(p, 9, "N9", "X", {1});
               })
            << true << QStringList{"Net no. 1 Self Address ('X') defined as Net no. 7 Net Name"}
            << true;
        QTest::newRow("two nets sharing a self address pass") << AleSetup([](AleProgramme& p) {
            setNet(p, 1, "N1", "HOME", {1});
            setNet(p, 2, "N2", "HOME", {2});
        }) << true << QStringList{} << true;
        QTest::newRow("name and self address in the directory")
            << AleSetup([](AleProgramme& p) {
                   setNet(p, 2, "ALPHA", "BRAVO", {1});
                   setDirectory(p, 40, "BRAVO");
                   setDirectory(p, 99, "ALPHA");
               })
            << true
            << QStringList{"Net no. 2 Net Name ('ALPHA') defined in the Directory",
                           "Net no. 2 Self Address ('BRAVO') defined in the Directory"}
            << true;
        QTest::newRow("global group without a name") << AleSetup([](AleProgramme& p) {
            setNet(p, 8, "N8", "S8", {1});
            p.globalMembers.nets[7].members[0] = 3;
        }) << true << QStringList{"Net no. 8 no ALE global name"}
                                                     << true;
        QTest::newRow("global groups ignored without the feature")
            << AleSetup([](AleProgramme& p) { p.globalMembers.nets[7].members[0] = 3; }) << false
            << QStringList{} << false;
        QTest::newRow("only the first global slot counts")
            << AleSetup([](AleProgramme& p) { p.globalMembers.nets[7].members[1] = 3; }) << true
            << QStringList{} << false;
        QTest::newRow("pass 1 lines come before pass 2 lines")
            << AleSetup([](AleProgramme& p) {
                   setNet(p, 1, "S2", "S1", {1});
                   setNet(p, 2, "N2", "S2", {1});
                   setNet(p, 3, "N3", "", {});
               })
            << true
            << QStringList{"Net no. 3 does not have Scanned Channels.",
                           "Net no. 3 does not have Self Address.",
                           "Net no. 1 Self Address ('S2') defined as Net no. 2 Net Name"}
            << true;
    }
    void lines()
    {
        auto [setup, globalMembers, expected, configured] =
            fetch<AleSetup, bool, QStringList, bool>("setup", "globalMembers", "expected",
                                                     "configured");
        AleProgramme p = emptyProgramme();
        setup(p);
        RecordingNotifier notifier;
        const AleCheckResult result =
            checkAleConfiguration(p.database, p.globalMembers, globalMembers, notifier);
        QStringList lines;
        for (const auto& line : result.lines)
            lines << QString::fromStdString(line);
        QCOMPARE(lines, expected);
        QCOMPARE(result.someNetConfigured, configured);
        QCOMPARE(result.valid, expected.isEmpty());
        QVERIFY(notifier.entries().empty());
    }

    void undefinedCodeIsReportedAndNotAdded()
    {
        RecordingNotifier notifier;
        AleCheckResult result;
        result.add(0, 4, {}, 0, notifier);
        result.add(0, 9, "X", 0, notifier);
        QCOMPARE(result.lines, std::vector<std::string>{"No Nets configured."});
        QCOMPARE(notifier.texts(), std::vector<std::string>{"Ale Config Error is not defined!"});
        result.add(0, 0, {}, 0, notifier);
        QVERIFY(result.lines.empty());
    }
};

QTEST_GUILESS_MAIN(AleCheckTest)
#include "tst_alecheck.moc"
