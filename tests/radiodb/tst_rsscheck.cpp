#include "radiodb/RssCheck.h"

#include <QtTest>

using namespace koral;

namespace {
// A group or a net as {guard or All Call channel, member or scanned channels...}.
using Refs = QList<QList<int>>;
constexpr int kNone = 65535;
} // namespace

class RssCheckTest : public QObject
{
    Q_OBJECT
private slots:
    void lines_data()
    {
        QTest::addColumn<QList<int>>("programmed");
        QTest::addColumn<int>("priority");
        QTest::addColumn<Refs>("groups");
        QTest::addColumn<Refs>("nets");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("empty database") << QList<int>{} << 1 << Refs{} << Refs{}
                                        << QStringList{"Priority channel 1 is not programmed."};
        QTest::newRow("everything programmed")
            << QList<int>{1, 2, 3} << 2 << Refs{{1, 1, 3}} << Refs{{3, 1, 2}} << QStringList{};
        QTest::newRow("priority outside the channels")
            << QList<int>{1} << 0 << Refs{} << Refs{}
            << QStringList{"Priority channel 0 is not programmed."};
        QTest::newRow("guard that is the only member is reported once")
            << QList<int>{1} << 1 << Refs{{kNone}, {kNone}, {17, 17}} << Refs{}
            << QStringList{"Guard channel 17 for group C is not programmed."};
        QTest::newRow("guard outside the channels")
            << QList<int>{1} << 1 << Refs{{300}} << Refs{}
            << QStringList{"Guard channel 300 for group A is not programmed."};
        QTest::newRow("member of two groups, group A first")
            << QList<int>{1} << 1 << Refs{{kNone, 37}, {kNone}, {kNone, 37}} << Refs{}
            << QStringList{"Channel 37 in group A selected but not programmed.",
                           "Channel 37 in group C selected but not programmed."};
        QTest::newRow("net without All Call")
            << QList<int>{1} << 1 << Refs{} << Refs{{kNone}} << QStringList{};
        QTest::newRow("All Call channel not reported again as scanned")
            << QList<int>{1} << 1 << Refs{} << Refs{{kNone}, {9, 9, 10}}
            << QStringList{"Channel 9 is All Call channel in net no. 2 but not programmed.",
                           "Channel 10 is scanned channel in net no. 2 but not programmed."};
        QTest::newRow("order: priority, guards, members, All Calls, scanned")
            << QList<int>{} << 5 << Refs{{kNone, 4}, {6, 6}} << Refs{{8, 7}, {kNone, 200}}
            << QStringList{"Priority channel 5 is not programmed.",
                           "Guard channel 6 for group B is not programmed.",
                           "Channel 4 in group A selected but not programmed.",
                           "Channel 8 is All Call channel in net no. 1 but not programmed.",
                           "Channel 7 is scanned channel in net no. 1 but not programmed.",
                           "Channel 200 is scanned channel in net no. 2 but not programmed."};
    }
    void lines()
    {
        QFETCH(QList<int>, programmed);
        QFETCH(int, priority);
        QFETCH(Refs, groups);
        QFETCH(Refs, nets);
        QFETCH(QStringList, expected);
        dbase db{};
        for (int number : programmed)
            db.channelNo(number).rxFrequency.set(5'000'000);
        db.radioOptions.priorityChannel.set(std::uint16_t(priority));
        for (Group& group : db.groups)
            group.guardChannel.set(kNoChannel);
        for (int i = 0; i < groups.size(); ++i) {
            Group& group = db.groups[std::size_t(i)];
            group.guardChannel.set(std::uint16_t(groups[i].value(0)));
            for (int member : groups[i].mid(1))
                group.setMember(member, true);
        }
        std::vector<AleNetChannels> aleNets(std::size_t(nets.size()));
        for (int n = 0; n < nets.size(); ++n) {
            aleNets[std::size_t(n)].allCallChannel = std::uint16_t(nets[n].value(0));
            for (int scanned : nets[n].mid(1))
                aleNets[std::size_t(n)].scanned[std::size_t(scanned - 1)] = 1;
        }
        const RssCheckResult result = checkRadioConfiguration(db, aleNets);
        QStringList actual;
        for (const std::string& line : result.lines)
            actual << QString::fromStdString(line);
        QCOMPARE(actual, expected);
        QCOMPARE(result.configurationValid(), expected.isEmpty());
    }

    void lineTargets_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("channel");
        QTest::addColumn<QChar>("group");
        QTest::newRow("priority") << "Priority channel 5 is not programmed." << 5 << QChar();
        QTest::newRow("guard") << "Guard channel 117 for group C is not programmed." << 117
                               << QChar('C');
        QTest::newRow("member") << "Channel 37 in group A selected but not programmed." << 37
                                << QChar('A');
        QTest::newRow("net, whose number is no channel")
            << "Channel 9 is All Call channel in net no. 2 but not programmed." << 9 << QChar();
    }
    void lineTargets()
    {
        QFETCH(QString, line);
        QFETCH(int, channel);
        QFETCH(QChar, group);
        const CheckLineTarget target = checkLineTarget(line.toStdString());
        QCOMPARE(target.channel, channel);
        QCOMPARE(QChar(target.group), group);
    }
};

QTEST_GUILESS_MAIN(RssCheckTest)
#include "tst_rsscheck.moc"
