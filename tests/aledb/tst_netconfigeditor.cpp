#include "AleTestSupport.h"

#include "aledb/AleText.h"
#include "aledb/NetConfigEditor.h"
#include "common/RecordingNotifier.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

QStringList texts(const RecordingNotifier& notifier)
{
    QStringList list;
    for (const auto& text : notifier.texts())
        list << QString::fromStdString(text);
    return list;
}

} // namespace

class NetConfigEditorTest : public QObject
{
    Q_OBJECT
private slots:
    void fillingFromTheRecord_data()
    {
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QList<int>>("positions"); // scan rate, sounding, occupancy
        // Net 1 shows 1, 1, 2; a refused value of net 5 leaves its control showing that.
        QTest::newRow("defaults") << 55 << 2 << "" << QList<int>{0, 0, 0};
        QTest::newRow("scan rate 5") << 55 << 5 << "" << QList<int>{1, 0, 0};
        QTest::newRow("scan rate 3")
            << 55 << 3 << "Scan Rate is not correct!" << QList<int>{1, 0, 0};
        QTest::newRow("sounding 120") << 58 << 120 << "" << QList<int>{0, 4, 0};
        QTest::newRow("sounding 45")
            << 58 << 45 << "Sounding is not correct!" << QList<int>{0, 1, 0};
        QTest::newRow("occupancy 1 is off") << 59 << 1 << "" << QList<int>{0, 0, 0};
        QTest::newRow("occupancy 30") << 59 << 30 << "" << QList<int>{0, 0, 28};
        QTest::newRow("occupancy 2")
            << 59 << 2 << "Occupancy check is not correct!" << QList<int>{0, 0, 2};
        QTest::newRow("all call 7")
            << 48 << 7 << "All Call Value is not correct!" << QList<int>{0, 0, 0};
    }
    void fillingFromTheRecord()
    {
        QFETCH(int, offset);
        QFETCH(int, value);
        QFETCH(QString, message);
        QFETCH(QList<int>, positions);
        AleProgramme p = emptyProgramme();
        p.database.nets[0].scanRate = 5;
        p.database.nets[0].sounding = 30;
        p.database.nets[0].occupancyCheck = 4;
        p.database.nets[0].allCall = 1;
        auto* net = reinterpret_cast<std::uint8_t*>(&p.database.nets[4]);
        net[offset] = static_cast<std::uint8_t>(value);
        RecordingNotifier notifier;
        NetConfigEditor editor(p, {}, notifier);
        QVERIFY(notifier.entries().empty());
        editor.selectNet(4);
        QCOMPARE(texts(notifier), message.isEmpty() ? QStringList{} : QStringList{message});
        const QList<int> shown{editor.scanRatePosition(), editor.soundingPosition(),
                               editor.occupancyPosition()};
        QCOMPARE(shown, positions);
        // net 5's all call is 3 unless refused, when net 1's "send only" stays
        QCOMPARE(editor.receiveAllCall(), value != 7);
    }

    void selectingClampsTheNet_data()
    {
        QTest::addColumn<int>("spin");
        QTest::addColumn<int>("net");
        QTest::newRow("below") << -1 << 0;
        QTest::newRow("first") << 0 << 0;
        QTest::newRow("last") << 19 << 19;
        QTest::newRow("above") << 20 << 19;
    }
    void selectingClampsTheNet()
    {
        QFETCH(int, spin);
        QFETCH(int, net);
        AleProgramme p = emptyProgramme();
        setNet(p, net + 1, "N", "S", {});
        RecordingNotifier notifier;
        NetConfigEditor editor(p, {}, notifier);
        editor.selectNet(spin);
        QCOMPARE(editor.currentNet(), net);
        QCOMPARE(editor.nameText(), std::string("N"));
    }

    void storingListChoices_data()
    {
        QTest::addColumn<int>("list"); // 0 scan rate, 1 sounding, 2 occupancy
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("stored");
        QTest::addColumn<QString>("message");
        QTest::newRow("scan rate 1") << 0 << 1 << 55 << 5 << "";
        QTest::newRow("scan rate 2") << 0 << 2 << 55 << 2 << "Scan Rate is not correct!";
        QTest::newRow("sounding 3") << 1 << 3 << 58 << 90 << "";
        QTest::newRow("sounding 5") << 1 << 5 << 58 << 0 << "Sounding value is not correct!";
        QTest::newRow("occupancy off") << 2 << 0 << 59 << 0 << "";
        QTest::newRow("occupancy 1") << 2 << 1 << 59 << 3 << "";
        QTest::newRow("occupancy 28") << 2 << 28 << 59 << 30 << "";
        QTest::newRow("occupancy 29") << 2 << 29 << 59 << 0 << "Sounding value is not correct!";
    }
    void storingListChoices()
    {
        QFETCH(int, list);
        QFETCH(int, position);
        QFETCH(int, offset);
        QFETCH(int, stored);
        QFETCH(QString, message);
        RecordingNotifier notifier;
        NetConfigEditor editor(emptyProgramme(), {}, notifier);
        editor.selectNet(2);
        if (list == 0)
            editor.chooseScanRate(position);
        else if (list == 1)
            editor.chooseSounding(position);
        else
            editor.chooseOccupancy(position);
        const auto* net =
            reinterpret_cast<const std::uint8_t*>(&editor.programme().database.nets[2]);
        QCOMPARE(int(net[offset]), stored);
        QCOMPARE(texts(notifier), message.isEmpty() ? QStringList{} : QStringList{message});
    }

    void allCallBoxes_data()
    {
        QTest::addColumn<bool>("send");
        QTest::addColumn<bool>("receive");
        QTest::addColumn<int>("stored");
        QTest::newRow("none") << false << false << 0;
        QTest::newRow("send") << true << false << 1;
        QTest::newRow("receive") << false << true << 2;
        QTest::newRow("both") << true << true << 3;
    }
    void allCallBoxes()
    {
        QFETCH(bool, send);
        QFETCH(bool, receive);
        QFETCH(int, stored);
        RecordingNotifier notifier;
        NetConfigEditor editor(emptyProgramme(), {}, notifier);
        editor.setSendAllCall(send);
        editor.setReceiveAllCall(receive);
        QCOMPARE(int(editor.programme().database.nets[0].allCall), stored);
        NetConfigEditor reopened(editor.programme(), {}, notifier);
        QCOMPARE(reopened.sendAllCall(), send);
        QCOMPARE(reopened.receiveAllCall(), receive);
    }

    void nameCrossCheck_data()
    {
        QTest::addColumn<bool>("selfAddressEdit");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("message");
        QTest::newRow("another net's self address") << false << "STN7" << false << "OLD"
                                                    << "'STN7' is net no. 7 Self Address.";
        QTest::newRow("its own self address") << false << "OWN" << false << "OLD"
                                              << "'OWN' is net no. 2 Self Address.";
        QTest::newRow("a free name") << false << "FREE" << true << "FREE"
                                     << "";
        QTest::newRow("empty name") << false << "" << true << ""
                                    << "";
        QTest::newRow("self address equal to a net name") << true << "NAME9" << false << "OWN"
                                                          << "'NAME9' is net no. 9 Net Name.";
        QTest::newRow("a free self address") << true << "FREE" << true << "FREE"
                                             << "";
    }
    void nameCrossCheck()
    {
        QFETCH(bool, selfAddressEdit);
        QFETCH(QString, typed);
        QFETCH(bool, accepted);
        QFETCH(QString, stored);
        QFETCH(QString, message);
        AleProgramme p = emptyProgramme();
        setNet(p, 2, "OLD", "OWN", {3});
        setNet(p, 7, "NAME7", "STN7", {3});
        setNet(p, 9, "NAME9", "STN9", {3});
        RecordingNotifier notifier;
        NetConfigEditor editor(p, {}, notifier);
        editor.selectNet(1);
        const bool result = selfAddressEdit ? editor.setSelfAddressText(typed.toStdString())
                                            : editor.setNameText(typed.toStdString());
        QCOMPARE(result, accepted);
        const ale_net& net = editor.programme().database.nets[1];
        const std::string shown = selfAddressEdit ? editor.selfAddressText() : editor.nameText();
        const std::string_view record = fieldText(selfAddressEdit ? net.selfAddress : net.name);
        QCOMPARE(QString::fromStdString(shown), stored);
        QCOMPARE(QString::fromStdString(std::string(record)), stored);
        QCOMPARE(texts(notifier), message.isEmpty() ? QStringList{} : QStringList{message});
    }

    void checkRunsAfterEveryNameChange()
    {
        RecordingNotifier notifier;
        int runs = 0;
        NetConfigEditor editor(emptyProgramme(), {}, notifier,
                               [&runs](const AleProgramme&) { ++runs; });
        editor.setNameText("A");
        editor.setSelfAddressText("B");
        QCOMPARE(runs, 2);

        NetConfigEditor own(emptyProgramme(), {}, notifier);
        own.setNameText("NETA");
        QCOMPARE(own.check().lines,
                 (std::vector<std::string>{"Net no. 1 does not have Scanned Channels.",
                                           "Net no. 1 does not have Self Address."}));
        own.setNameText("");
        QVERIFY(own.check().lines.empty());
    }

    void eachOptionSetsItsByte_data()
    {
        using O = NetConfigEditor::Option;
        QTest::addColumn<int>("option");
        QTest::addColumn<QList<int>>("bytes"); // 0..11 ALE options, 12..15 extra options
        QTest::newRow("Alert") << int(O::Alert) << QList<int>{1};
        QTest::newRow("Ext. Alarm") << int(O::ExternalAlarm) << QList<int>{2};
        QTest::newRow("Auto Address") << int(O::AutoAddress) << QList<int>{3};
        QTest::newRow("Quick PTT Call") << int(O::QuickPttCall) << QList<int>{4};
        QTest::newRow("MultiNet") << int(O::Multinet) << QList<int>{7, 12};
        QTest::newRow("Anycall") << int(O::Anycall) << QList<int>{8};
        QTest::newRow("Wildcard") << int(O::Wildcard) << QList<int>{9};
        QTest::newRow("AMD") << int(O::Amd) << QList<int>{10};
        QTest::newRow("In_LINK") << int(O::InLink) << QList<int>{11};
        QTest::newRow("LINK AFTER BDIR") << int(O::LinkAfterBidirectional) << QList<int>{14};
        QTest::newRow("VCDS") << int(O::Vcds) << QList<int>{15};
    }
    void eachOptionSetsItsByte()
    {
        QFETCH(int, option);
        QFETCH(QList<int>, bytes);
        AleProgramme zero{};
        RecordingNotifier notifier;
        NetConfigEditor editor(zero, {}, notifier);
        notifier.clear();
        const auto which = static_cast<NetConfigEditor::Option>(option);
        editor.setOption(which, true);
        QVERIFY(editor.option(which));
        const AleProgramme& p = editor.programme();
        const auto* options = reinterpret_cast<const std::uint8_t*>(&p.database.options);
        const auto* extra = reinterpret_cast<const std::uint8_t*>(&p.extraOptions);
        QList<int> set;
        for (int i = 0; i < 16; ++i)
            if ((i < 12 ? options[i] : extra[i - 12]) != 0)
                set << i;
        QCOMPARE(set, bytes);
    }

    void flagsUseTheirEncodings()
    {
        RecordingNotifier notifier;
        NetConfigEditor editor(emptyProgramme(), {}, notifier);
        editor.setSilent(true);
        editor.setSlave(true);
        editor.setAcceptLinkTimeout(5);
        const AleProgramme& p = editor.programme();
        QCOMPARE(p.database.nets[0].silent, 0);
        QCOMPARE(p.database.nets[0].masterSlave, 1);
        QCOMPARE(p.database.options.acceptLinkTimeout, 2);
    }
};

QTEST_GUILESS_MAIN(NetConfigEditorTest)
#include "tst_netconfigeditor.moc"
