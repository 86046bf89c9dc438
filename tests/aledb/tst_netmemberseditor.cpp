#include "AleTestSupport.h"

#include "aledb/AleText.h"
#include "aledb/NetGlobalMembersEditor.h"
#include "aledb/NetMembersEditor.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

// The lists offer empty, the net's self address and the directory by name; picks store the
// slot values the radio expects, and a station named twice disables OK with a warning.
class NetMembersEditorTest : public QObject
{
    Q_OBJECT
private:
    static AleProgramme programme()
    {
        AleProgramme p = emptyProgramme();
        setNet(p, 2, "NET2", "SELF2", {1});
        setDirectory(p, 0, "ALPHA");
        setDirectory(p, 3, "DELTA"); // entries 1 and 2 are free
        auto& members = p.database.nets[1].members;
        members.fill(kSlotEmpty);
        members[0] = 3;
        members[1] = kSlotSelfAddress;
        members[2] = 1; // refers to a free entry
        return p;
    }

private slots:
    void listsAndSelections()
    {
        const NetMembersEditor editor(programme().database, 1);
        QCOMPARE(editor.items(), (std::vector<std::string>{"", "SELF2", "ALPHA", "DELTA"}));
        QCOMPARE(editor.selection(0), 3);
        QCOMPARE(editor.selection(1), 1);
        QCOMPARE(editor.selection(2), 0);
        QCOMPARE(editor.selection(15), 0);
        QVERIFY(editor.okEnabled());
    }

    void choices_data()
    {
        columns<int, int, int, QString>("slot", "position", "stored", "warning");
        QTest::newRow("directory entry by name") << 5 << 2 << 0 << QString();
        QTest::newRow("entry after a gap") << 5 << 3 << 3 << "'DELTA' is member 1 and member 6.";
        QTest::newRow("self address")
            << 5 << 1 << int(kSlotSelfAddress) << "'SELF2' is member 2 and member 6.";
        QTest::newRow("empty") << 0 << 0 << int(kSlotEmpty) << QString();
        QTest::newRow("out of the list: unchanged") << 0 << 4 << 3 << QString();
    }
    void choices()
    {
        auto [slot, position, stored, warning] =
            fetch<int, int, int, QString>("slot", "position", "stored", "warning");
        NetMembersEditor editor(programme().database, 1);
        editor.choose(slot, position);
        QCOMPARE(int(editor.database().nets[1].members[std::size_t(slot)]), stored);
        QCOMPARE(QString::fromStdString(editor.warning()), warning);
        QCOMPARE(editor.okEnabled(), warning.isEmpty());
    }

    void globalMembers_data()
    {
        columns<int, int, bool, int, QString>("slot", "position", "priority", "stored", "warning");
        QTest::newRow("station with mark") << 1 << 2 << true << 0x83 << QString();
        QTest::newRow("station without mark") << 1 << 2 << false << 3 << QString();
        QTest::newRow("named twice") << 1 << 1 << false << 0 << "'ALPHA' is member 1 and member 2.";
        QTest::newRow("emptied, mark dropped") << 0 << 0 << true << int(kSlotEmpty) << QString();
    }
    void globalMembers()
    {
        auto [slot, position, priority, stored, warning] = fetch<int, int, bool, int, QString>(
            "slot", "position", "priority", "stored", "warning");
        const AleProgramme p = programme();
        ale_dbase_global_members globals{};
        for (auto& group : globals.nets)
            group.members.fill(kSlotEmpty);
        globals.nets[1].members[0] = 0 | kGlobalPriorityBit; // ALPHA, priority
        NetGlobalMembersEditor editor(globals, p.database, 1);
        QCOMPARE(editor.items(), (std::vector<std::string>{"", "ALPHA", "DELTA"}));
        QCOMPARE(editor.selection(0), 1);
        QVERIFY(editor.priority(0));
        editor.choose(slot, position);
        editor.setPriority(slot, priority);
        QCOMPARE(int(editor.globals().nets[1].members[std::size_t(slot)]), stored);
        QCOMPARE(QString::fromStdString(editor.warning()), warning);
    }

    void globalGroupName_data()
    {
        columns<QString, QString>("typed", "stored");
        QTest::newRow("address characters") << QString("FLEET2") << QString("FLEET2");
        QTest::newRow("blank refused") << QString("FLEET 2") << QString("OLD");
        QTest::newRow("too long refused") << QString("ABCDEFGHIJKLMNOP") << QString("OLD");
    }
    void globalGroupName()
    {
        auto [typed, stored] = fetch<QString, QString>("typed", "stored");
        ale_dbase_global_members globals{};
        globals.nets[0].members.fill(kSlotEmpty);
        setFieldText(globals.nets[0].name, "OLD");
        NetGlobalMembersEditor editor(globals, programme().database, 0);
        editor.setGroupName(typed.toStdString());
        QCOMPARE(QString::fromStdString(std::string(fieldText(globals.nets[0].name))), "OLD");
        QCOMPARE(QString::fromStdString(std::string(fieldText(editor.globals().nets[0].name))),
                 stored);
        QCOMPARE(editor.okEnabled(), stored == typed);
    }
};

QTEST_GUILESS_MAIN(NetMembersEditorTest)
#include "tst_netmemberseditor.moc"
