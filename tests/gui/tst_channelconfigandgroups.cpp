// What the Channel Configuration and Groups dialogs show against what they store: the CCIR
// number of a channel that has none, and the colour of programmed channel numbers.

#include "common/RecordingNotifier.h"
#include "gui/ChannelConfigDialog.h"
#include "gui/GroupsDialog.h"
#include "gui/GuiColours.h"
#include "support/Table.h"

#include <QImage>
#include <QSpinBox>
#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

bool hasPixel(const QImage& image, const QRect& rect, QRgb colour)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            if (image.pixel(x, y) == colour)
                return true;
    return false;
}

} // namespace

class ChannelConfigAndGroupsTest : public QObject
{
    Q_OBJECT
private slots:
    // Channel 1 has CCIR number 7, channel 2 none.
    void ccirNumberOfAChannelWithoutOne_data()
    {
        // steps: 0: type the number 7
        columns<int, int>("steps", "stored");
        QTest::newRow("the previous channel's number") << 0 << 7;
        QTest::newRow("one step up from none") << 1 << 1;
    }
    void ccirNumberOfAChannelWithoutOne()
    {
        auto [steps, stored] = fetch<int, int>("steps", "stored");
        ChannelConfigEditor::Setup setup;
        setup.ccirNumbers = CcirChannelNumbers{};
        (*setup.ccirNumbers)[0] = 7;
        ChannelConfigEditor editor(setup);
        ChannelConfigDialog dialog(editor, {});
        QSpinBox* spin = dialog.ccirSpin();
        QVERIFY(spin);
        QCOMPARE(spin->text(), QStringLiteral("7"));

        dialog.channelSpin()->setValue(2);
        QCOMPARE(spin->text(), QStringLiteral("None"));
        if (steps == 0)
            spin->setValue(7);
        else
            spin->stepBy(steps);
        QCOMPARE(spin->text(), QString::number(stored));
        QVERIFY(editor.accept());
        QCOMPARE(int((*editor.ccirNumbers())[1]), stored);
        QCOMPARE(int((*editor.ccirNumbers())[0]), 7);
    }

    void programmedNumbersAreBlueOnEveryCell_data()
    {
        QTest::addColumn<int>("channel");
        QTest::newRow("free") << 1;
        QTest::newRow("member") << 2;
        QTest::newRow("guard") << 3;
    }
    void programmedNumbersAreBlueOnEveryCell()
    {
        QFETCH(int, channel);
        GroupSelections groups;
        groups[0].marked[2] = 1;
        groups[0].marked[3] = 1;
        groups[0].guard = 3;
        ProgrammedChannels programmed{};
        programmed[1] = programmed[2] = programmed[3] = true;
        RecordingNotifier notifier;
        GroupsEditor editor(notifier, groups, programmed);
        GroupsDialog dialog(editor, {});
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        GroupsGrid* grid = dialog.grid();
        const QImage image = grid->grab().toImage();
        const QRgb blue = colours::fromBgr(0xFF0000).rgb();
        QCOMPARE(blue, qRgb(0, 0, 255));
        QVERIFY(hasPixel(image, grid->cellRect(channel), blue));
        QVERIFY(!hasPixel(image, grid->cellRect(4), blue)); // not programmed
    }
};

QTEST_MAIN(ChannelConfigAndGroupsTest)
#include "tst_channelconfigandgroups.moc"
