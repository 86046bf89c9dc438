// What the Channel Configuration dialog shows against what it stores: the CCIR number of a
// channel that has none.

#include "gui/ChannelConfigDialog.h"

#include <QSpinBox>
#include <QtTest>

using namespace koral;

class ChannelConfigAndGroupsTest : public QObject
{
    Q_OBJECT
private slots:
    // Channel 1 has CCIR number 7, channel 2 none.
    void ccirNumberOfAChannelWithoutOne_data()
    {
        QTest::addColumn<int>("steps"); // 0: type the number 7
        QTest::addColumn<int>("stored");
        QTest::newRow("the previous channel's number") << 0 << 7;
        QTest::newRow("one step up from none") << 1 << 1;
    }
    void ccirNumberOfAChannelWithoutOne()
    {
        QFETCH(int, steps);
        QFETCH(int, stored);
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
};

QTEST_MAIN(ChannelConfigAndGroupsTest)
#include "tst_channelconfigandgroups.moc"
