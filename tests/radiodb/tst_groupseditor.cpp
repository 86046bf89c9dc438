#include "common/RecordingNotifier.h"
#include "common/Texts.h"
#include "radiodb/GroupsEditor.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

// Channels 1..50 programmed, the rest empty.
ProgrammedChannels firstFifty()
{
    ProgrammedChannels programmed{};
    for (int c = 1; c <= 50; ++c)
        programmed[static_cast<std::size_t>(c)] = true;
    return programmed;
}

// A compact script of mouse actions: "L12" left click, "R30" right click, "O5" other button.
void play(GroupsEditor& editor, const QString& script)
{
    for (const QString& step : script.split(' ', Qt::SkipEmptyParts)) {
        const int channel = step.mid(1).toInt();
        const MouseButton button = step[0] == 'L'   ? MouseButton::Left
                                   : step[0] == 'R' ? MouseButton::Right
                                                    : MouseButton::Other;
        editor.click(channel, button);
    }
}

QString describe(const GroupsEditor& editor)
{
    QStringList members;
    for (int c = 1; c <= GroupsEditor::kChannels; ++c)
        if (editor.cellState(c) == CellState::Member)
            members << QString::number(c);
    return QStringLiteral("members=%1 guard=%2 count=%3")
        .arg(members.join(','), QString::fromStdString(editor.guardText()))
        .arg(editor.markedCount());
}

} // namespace

class GroupsEditorTest : public QObject
{
    Q_OBJECT
private slots:
    // A script of clicks, whether the radio blocks guard channels, the cells then marked and the
    // operator's notice if any.
    void mouseRules_data()
    {
        const auto row = [](const char* name, const char* script, const char* expected,
                            bool guardBlocked = false, const char* notice = "") {
            QTest::newRow(name) << QString(script) << QString(expected) << guardBlocked
                                << QString(notice);
        };
        columns<QString, QString, bool, QString>("script", "expected", "guardBlocked", "notice");
        row("left marks a free cell", "L3", "members=3 guard=Empty count=1");
        row("left twice frees it again", "L3 L3", "members= guard=Empty count=0");
        row("right picks the guard", "R12", "members= guard=12 count=1");
        row("a new guard leaves the old one a member", "R12 R30", "members=12 guard=30 count=2");
        row("right on the guard frees it", "R12 R12", "members= guard=Empty count=0");
        row("left on the guard frees it", "L4 R12 L12", "members=4 guard=Empty count=1");
        row("right on a member makes it the guard", "L4 L5 R5", "members=4 guard=5 count=2");
        row("unprogrammed free cell stays free", "L60 R61", "members= guard=Empty count=0");
        row("blocked guard ignores the right button", "R7 L8", "members=8 guard=Empty count=1",
            true);
        row("other button complains", "O5", "members= guard=Empty count=0", false,
            "Unknown mouse button!");
    }
    void mouseRules()
    {
        auto [script, expected, guardBlocked, notice] =
            fetch<QString, QString, bool, QString>("script", "expected", "guardBlocked", "notice");
        RecordingNotifier notifier;
        GroupsEditor editor(notifier, {}, firstFifty(), guardBlocked);
        play(editor, script);
        QCOMPARE(describe(editor), expected);
        QStringList notices;
        for (const std::string& text : notifier.texts())
            notices << QString::fromStdString(text);
        QCOMPARE(notices.join('|'), notice);
        QCOMPARE(editor.deselectEnabled(), editor.markedCount() >= 1);
    }

    // Cells marked in a loaded file whose channel is not programmed can only be freed.
    void unprogrammedMarkedCellsAreFreed()
    {
        for (const MouseButton button : {MouseButton::Left, MouseButton::Right}) {
            RecordingNotifier notifier;
            GroupSelections groups{};
            groups[0].marked[70] = 1;
            groups[0].guard = 80;
            GroupsEditor editor(notifier, groups, firstFifty());
            QCOMPARE(editor.cellState(80), CellState::Guard);
            editor.click(70, button);
            editor.click(80, button);
            QCOMPARE(describe(editor), QStringLiteral("members= guard=Empty count=0"));
        }
    }

    void drag_data()
    {
        const auto row = [](const char* name, MouseButton button, const QList<int>& path,
                            const char* expected) {
            QTest::newRow(name) << int(button) << path << QString(expected);
        };
        columns<int, QList<int>, QString>("button", "path", "expected");
        // Starting state for every row: 2 and 3 members, 4 the guard.
        row("left sweep marks free programmed cells and skips empty ones", MouseButton::Left,
            {48, 49, 50, 51, 52}, "members=2,3,48,49,50 guard=4 count=6");
        row("right sweep frees marked cells, guard included", MouseButton::Right, {2, 3, 4, 5},
            "members= guard=Empty count=0");
        row("staying on one cell is a click", MouseButton::Left, {7, 7},
            "members=2,3,7 guard=4 count=4");
        row("coming back to a cell does not toggle it", MouseButton::Left, {7, 8, 7},
            "members=2,3,7,8 guard=4 count=5");
    }
    void drag()
    {
        auto [button, path, expected] =
            fetch<int, QList<int>, QString>("button", "path", "expected");
        RecordingNotifier notifier;
        GroupSelections groups{};
        groups[0].marked[2] = groups[0].marked[3] = 1;
        groups[0].guard = 4;
        GroupsEditor editor(notifier, groups, firstFifty());
        editor.press(path.front(), MouseButton(button));
        for (int cell : path.mid(1))
            editor.move(cell);
        editor.release(path.back());
        QCOMPARE(describe(editor), expected);
    }

    void hints_data()
    {
        columns<int, QString, bool>("channel", "text", "warning");
        const QString usage = "Click to select channel. Right Click to select guard channel.";
        QTest::newRow("programmed") << 7 << usage << false;
        QTest::newRow("not programmed") << 77 << "Channel number 77 is not programmed" << true;
    }
    void hints()
    {
        auto [channel, text, warning] = fetch<int, QString, bool>("channel", "text", "warning");
        RecordingNotifier notifier;
        GroupsEditor editor(notifier, {}, firstFifty());
        const auto hint = editor.hint(channel);
        QCOMPARE(QString::fromStdString(hint.text), text);
        QCOMPARE(hint.warning, warning);
    }

    // The spin box stays within A to E, each group keeps its own cells, and Deselect clears
    // only the group shown.
    void spinKeepsEachGroupAndDeselectClearsOne()
    {
        RecordingNotifier notifier;
        GroupsEditor editor(notifier, {}, firstFifty());
        editor.stepGroup(-1);
        QCOMPARE(editor.groupLetter(), 'A');
        play(editor, "L1");
        for (int i = 0; i < 7; ++i)
            editor.stepGroup(1);
        QCOMPARE(editor.groupLetter(), 'E');
        QCOMPARE(editor.cellState(1), CellState::Free);
        play(editor, "R9");
        editor.stepGroup(-4);
        QCOMPARE(editor.currentGroup(), 1);
        QCOMPARE(describe(editor), QStringLiteral("members=1 guard=Empty count=1"));
        editor.deselect();
        QVERIFY(!editor.deselectEnabled());
        QCOMPARE(editor.groups()[0], GroupSelection{});
        QCOMPARE(editor.groups()[4].guard, 9);
    }

    void recordRoundTrip()
    {
        dbase record{};
        record.channelNo(5).txFrequency.set(5'000'000);
        record.groups[2].setMember(5, true);
        record.groups[2].setMember(200, true);
        record.groups[2].guardChannel.set(5);
        record.groups[3].guardChannel.set(kNoChannel);
        record.groups[1].reserved[0] = 0x5A;

        GroupSelections groups = GroupsEditor::fromRecord(record);
        QCOMPARE(groups[2].guard, 5);
        QVERIFY(groups[2].marked[200]);
        QCOMPARE(groups[3].guard, GroupSelection::kNoGuard);
        QVERIFY(GroupsEditor::programmedOf(record)[5]);
        QVERIFY(!GroupsEditor::programmedOf(record)[6]);

        groups[0].guard = 9; // a guard always lands in its own bitmap bit
        dbase back = record;
        GroupsEditor::toRecord(groups, back);
        QVERIFY(back.groups[0].isMember(9));
        QCOMPARE(back.groups[0].guardChannel.get(), 9);
        QCOMPARE(std::memcmp(&back.groups[2], &record.groups[2], sizeof(Group)), 0);
        QCOMPARE(back.groups[1].reserved[0], 0x5A);
    }

    void overviewRows()
    {
        GroupSelections groups{};
        groups[0].marked[3] = groups[0].marked[17] = groups[0].marked[5] = 1;
        groups[0].guard = 17;
        groups[4].marked[200] = 1;
        QStringList shown;
        for (const auto& row : GroupsEditor::overview(groups))
            shown << QString::fromStdString(row.letter + "|" + row.guard + "|" + row.channels);
        QCOMPARE(shown, (QStringList{"A|17|3, 5", "B||", "C||", "D||", "E||200"}));
    }
};

QTEST_GUILESS_MAIN(GroupsEditorTest)
#include "tst_groupseditor.moc"
