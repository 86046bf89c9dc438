#include "AleTestSupport.h"

#include "aledb/AleText.h"
#include "aledb/DirectoryEditor.h"
#include "common/RecordingNotifier.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

AleProgramme directoryProgramme(int entries)
{
    AleProgramme p = emptyProgramme();
    for (int i = 0; i < entries; ++i)
        setDirectory(p, i, "STN" + std::to_string(i));
    setNet(p, 3, "NETC", "HOMEC", {1});
    return p;
}

QList<int> listOf(const auto& bytes, int count)
{
    QList<int> list;
    for (int i = 0; i < count; ++i)
        list << int(bytes[std::size_t(i)]);
    return list;
}

} // namespace

class DirectoryEditorTest : public QObject
{
    Q_OBJECT
private slots:
    void addressRules_data()
    {
        columns<int, QString, QString, bool, bool>("entries", "typed", "status", "add", "remove");
        const auto row = [](const char* name, int entries, const char* typed, const char* status,
                            bool add, bool remove) {
            QTest::newRow(name) << entries << QString(typed) << QString(status) << add << remove;
        };
        row("empty text", 5, "", "", false, false);
        row("new address", 5, "NEW1", "", true, false);
        row("lower case", 5, "abc", "'abc' is an invalid address.", false, false);
        row("too long", 5, "ABCDEFGHIJKLMNOP", "'ABCDEFGHIJKLMNOP' is an invalid address.", false,
            false);
        row("net name", 5, "NETC", "'NETC' is net no. 3 Net Name.", false, false);
        row("self address", 5, "HOMEC", "'HOMEC' is net no. 3 Self Address.", false, false);
        row("already listed", 5, "STN2", "STN2 is in the Directory.", false, true);
        row("listed in a full directory", 100, "STN99", "STN99 is in the Directory.", false, true);
        row("full", 100, "NEW1", "The Directory is full; cannot add new address.", false, false);
    }
    void addressRules()
    {
        auto [entries, typed, status, add, remove] =
            fetch<int, QString, QString, bool, bool>("entries", "typed", "status", "add", "remove");
        RecordingNotifier notifier;
        DirectoryEditor editor(directoryProgramme(entries), notifier);
        editor.setEditText("STN1"); // a previous state must not leak into the next text
        editor.setEditText(typed.toStdString());
        QCOMPARE(QString::fromStdString(editor.statusText()), status);
        QCOMPARE(editor.addEnabled(), add);
        QCOMPARE(editor.deleteEnabled(), remove);
    }

    void addSelectAndConfirmedDelete()
    {
        RecordingNotifier notifier;
        notifier.queueAnswer(Answer::No);
        DirectoryEditor editor(directoryProgramme(3), notifier);
        QVERIFY(!editor.add());
        editor.setEditText("NEW");
        QVERIFY(editor.add());
        QCOMPARE(editor.occupiedCount(), 4);
        QCOMPARE(editor.entries().back(), std::string("NEW"));
        QVERIFY(editor.editText().empty());
        QCOMPARE(std::string(fieldText(editor.programme().database.directory[3])),
                 std::string("NEW"));
        editor.selectEntry(1);
        QCOMPARE(editor.editText(), std::string("STN1"));
        QVERIFY(editor.deleteEnabled());
        // Refused at the question: nothing goes.
        QVERIFY(!editor.remove());
        QCOMPARE(editor.occupiedCount(), 4);
        QCOMPARE(notifier.entries().size(), std::size_t(1));
        QVERIFY(notifier.entries()[0].question);
    }

    // Deleting entry 3 of ten: net members, global members and dials follow their entries.
    void deleteRenumbersReferences_data()
    {
        // allCallAndTune: all call, channel low, high, tune
        columns<QList<int>, QList<int>, QList<int>, QList<int>, QList<int>>(
            "members", "expected", "allCallAndTune", "groupSlots", "groupExpected");
        QTest::newRow("middle member, priority bits kept")
            << QList<int>{1, 3, 5} << QList<int>{1, 4, 255} << QList<int>{0x34, 0x12, 9, 9}
            << QList<int>{0x80 | 1, 3, 0x80 | 5, 255} << QList<int>{0x80 | 1, 0x80 | 4, 255, 255};
        QTest::newRow("not a member, priority reference removed")
            << QList<int>{1, 5} << QList<int>{1, 4, 255} << QList<int>{3, 0x34, 0x12, 9}
            << QList<int>{0x80 | 3, 8} << QList<int>{7, 255};
        QTest::newRow("twice: only the first moves, the second empties")
            << QList<int>{3, 0, 3} << QList<int>{0, 255, 255} << QList<int>{0x34, 0x12, 9, 9}
            << QList<int>{3, 0x80 | 3, 2} << QList<int>{255, 2, 255};
        QTest::newRow("self address kept")
            << QList<int>{254, 3, 7} << QList<int>{254, 6, 255} << QList<int>{0x34, 0x12, 9, 9}
            << QList<int>{} << QList<int>{};
    }
    void deleteRenumbersReferences()
    {
        auto [members, expected, allCallAndTune, groupSlots, groupExpected] =
            fetch<QList<int>, QList<int>, QList<int>, QList<int>, QList<int>>(
                "members", "expected", "allCallAndTune", "groupSlots", "groupExpected");
        AleProgramme p = directoryProgramme(10);
        ale_net& net = p.database.nets[0];
        for (int i = 0; i < members.size(); ++i)
            net.members[std::size_t(i)] = std::uint8_t(members[i]);
        net.allCall = 3;
        net.allCallChannel.set(0x1234);
        net.tuneTime = 9;
        auto& group = p.globalMembers.nets[6];
        for (int i = 0; i < groupSlots.size(); ++i)
            group.members[std::size_t(i)] = std::uint8_t(groupSlots[i]);
        group.members[19] = 9;
        p.database.autoDials[0] = {5, 1};
        p.database.autoDials[1] = {3, 2};
        RecordingNotifier notifier;
        DirectoryEditor editor(p, notifier);
        editor.setEditText("STN3");
        QVERIFY(editor.remove());
        const ale_dbase& db = editor.programme().database;
        const ale_net& after = db.nets[0];
        QCOMPARE(listOf(after.members, int(expected.size())), expected);
        QCOMPARE(after.members[15], kSlotEmpty);
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(&after);
        QCOMPARE(listOf(bytes + 48, 4), allCallAndTune);
        QCOMPARE(editor.occupiedCount(), 9);
        QCOMPARE(std::string(fieldText(db.directory[3])), std::string("STN4"));
        QVERIFY(fieldText(db.directory[9]).empty());
        const auto& groupAfter = editor.programme().globalMembers.nets[6];
        QCOMPARE(listOf(groupAfter.members, int(groupExpected.size())), groupExpected);
        // the last slot moved down one place when a slot was removed
        const bool removed = groupSlots.contains(3) || groupSlots.contains(0x83);
        QCOMPARE(int(groupAfter.members[removed ? 18 : 19]), 8);
        // a dial keeps its message when its address goes
        QCOMPARE(
            (QList<int>{db.autoDials[0].address, db.autoDials[1].address, db.autoDials[1].message}),
            (QList<int>{4, 255, 2}));
    }

    void gapsCloseWithoutLosingReferences()
    {
        AleProgramme p = emptyProgramme();
        setDirectory(p, 0, "A");
        setDirectory(p, 5, "F");
        setDirectory(p, 9, "J");
        p.database.nets[0].members[0] = 9;
        p.database.autoDials[0].address = 5;
        RecordingNotifier notifier;
        DirectoryEditor editor(p, notifier);
        QCOMPARE(editor.entries(), (std::vector<std::string>{"A", "F", "J"}));
        editor.setEditText("NEW");
        QVERIFY(editor.add());
        const ale_dbase& db = editor.programme().database;
        QCOMPARE(std::string(fieldText(db.directory[db.nets[0].members[0]])), std::string("J"));
        QCOMPARE(std::string(fieldText(db.directory[db.autoDials[0].address])), std::string("F"));
        QCOMPARE(std::string(fieldText(db.directory[3])), std::string("NEW"));
    }
};

QTEST_GUILESS_MAIN(DirectoryEditorTest)
#include "tst_directoryeditor.moc"
