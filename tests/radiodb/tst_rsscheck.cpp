#include "radiodb/RssCheck.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

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
        const auto row = [](const char* name, const QList<int>& programmed, int priority,
                            const Refs& groups, const Refs& nets, const QStringList& expected) {
            QTest::newRow(name) << programmed << priority << groups << nets << expected;
        };
        columns<QList<int>, int, Refs, Refs, QStringList>("programmed", "priority", "groups",
                                                          "nets", "expected");
        row("empty database", {}, 1, Refs{}, Refs{}, {"Priority channel 1 is not programmed."});
        row("everything programmed", {1, 2, 3}, 2, Refs{{1, 1, 3}}, Refs{{3, 1, 2}}, {});
        row("priority outside the channels", {1}, 0, Refs{}, Refs{},
            {"Priority channel 0 is not programmed."});
        row("guard that is the only member is reported once", {1}, 1,
            Refs{{kNone}, {kNone}, {17, 17}}, Refs{},
            {"Guard channel 17 for group C is not programmed."});
        row("guard outside the channels", {1}, 1, Refs{{300}}, Refs{},
            {"Guard channel 300 for group A is not programmed."});
        row("member of two groups, group A first", {1}, 1, Refs{{kNone, 37}, {kNone}, {kNone, 37}},
            Refs{},
            {"Channel 37 in group A selected but not programmed.",
             "Channel 37 in group C selected but not programmed."});
        row("net without All Call", {1}, 1, Refs{}, Refs{{kNone}}, {});
        row("All Call channel not reported again as scanned", {1}, 1, Refs{},
            Refs{{kNone}, {9, 9, 10}},
            {"Channel 9 is All Call channel in net no. 2 but not programmed.",
             "Channel 10 is scanned channel in net no. 2 but not programmed."});
        row("order: priority, guards, members, All Calls, scanned", {}, 5, Refs{{kNone, 4}, {6, 6}},
            Refs{{8, 7}, {kNone, 200}},
            {"Priority channel 5 is not programmed.",
             "Guard channel 6 for group B is not programmed.",
             "Channel 4 in group A selected but not programmed.",
             "Channel 8 is All Call channel in net no. 1 but not programmed.",
             "Channel 7 is scanned channel in net no. 1 but not programmed.",
             "Channel 200 is scanned channel in net no. 2 but not programmed."});
    }
    void lines()
    {
        auto [programmed, priority, groups, nets, expected] =
            fetch<QList<int>, int, Refs, Refs, QStringList>("programmed", "priority", "groups",
                                                            "nets", "expected");
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
        const auto row = [](const char* name, const char* line, int channel, QChar group) {
            QTest::newRow(name) << QString(line) << channel << group;
        };
        columns<QString, int, QChar>("line", "channel", "group");
        row("priority", "Priority channel 5 is not programmed.", 5, QChar());
        row("guard", "Guard channel 117 for group C is not programmed.", 117, QChar('C'));
        row("member", "Channel 37 in group A selected but not programmed.", 37, QChar('A'));
        row("net, whose number is no channel",
            "Channel 9 is All Call channel in net no. 2 but not programmed.", 9, QChar());
    }
    void lineTargets()
    {
        auto [line, channel, group] = fetch<QString, int, QChar>("line", "channel", "group");
        const CheckLineTarget target = checkLineTarget(line.toStdString());
        QCOMPARE(target.channel, channel);
        QCOMPARE(QChar(target.group), group);
    }
};

QTEST_GUILESS_MAIN(RssCheckTest)
#include "tst_rsscheck.moc"
