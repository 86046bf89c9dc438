#include "AleTestSupport.h"

#include "aledb/AleText.h"
#include "aledb/NetConfigEditor.h"
#include "common/RecordingNotifier.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

// What the notifier showed: nothing, or the one message a row expects.
std::vector<std::string> expectedTexts(const QString& message)
{
    return message.isEmpty() ? std::vector<std::string>{}
                             : std::vector<std::string>{message.toStdString()};
}

} // namespace

class NetConfigEditorTest : public QObject
{
    Q_OBJECT
private slots:
    void fillingFromTheRecord_data()
    {
        // positions: scan rate, sounding, occupancy
        columns<int, int, QString, QList<int>>("offset", "value", "message", "positions");
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
        auto [offset, value, message, positions] =
            fetch<int, int, QString, QList<int>>("offset", "value", "message", "positions");
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
        QCOMPARE(notifier.texts(), expectedTexts(message));
        const QList<int> shown{editor.scanRatePosition(), editor.soundingPosition(),
                               editor.occupancyPosition()};
        QCOMPARE(shown, positions);
        // net 5's all call is 3 unless refused, when net 1's "send only" stays
        QCOMPARE(editor.receiveAllCall(), value != 7);
    }

    void selectingClampsTheNet_data()
    {
        columns<int, int>("spin", "net");
        QTest::newRow("below") << -1 << 0;
        QTest::newRow("first") << 0 << 0;
        QTest::newRow("last") << 19 << 19;
        QTest::newRow("above") << 20 << 19;
    }
    void selectingClampsTheNet()
    {
        auto [spin, net] = fetch<int, int>("spin", "net");
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
        // list: 0 scan rate, 1 sounding, 2 occupancy
        columns<int, int, int, int, QString>("list", "position", "offset", "stored", "message");
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
        auto [list, position, offset, stored, message] =
            fetch<int, int, int, int, QString>("list", "position", "offset", "stored", "message");
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
        QCOMPARE(notifier.texts(), expectedTexts(message));
    }

    void allCallBoxes_data()
    {
        columns<bool, bool, int>("send", "receive", "stored");
        QTest::newRow("none") << false << false << 0;
        QTest::newRow("send") << true << false << 1;
        QTest::newRow("receive") << false << true << 2;
        QTest::newRow("both") << true << true << 3;
    }
    void allCallBoxes()
    {
        auto [send, receive, stored] = fetch<bool, bool, int>("send", "receive", "stored");
        RecordingNotifier notifier;
        NetConfigEditor editor(emptyProgramme(), {}, notifier);
        editor.setSendAllCall(send);
        editor.setReceiveAllCall(receive);
        QCOMPARE(int(editor.programme().database.nets[0].allCall), stored);
        // Silent is stored inverted, slave as 1; the accept-link timeout is held to 0..2.
        editor.setSilent(send);
        editor.setSlave(receive);
        editor.setAcceptLinkTimeout(stored + 2);
        const ale_net& net = editor.programme().database.nets[0];
        QCOMPARE(int(net.silent), send ? 0 : 1);
        QCOMPARE(int(net.masterSlave), receive ? 1 : 0);
        QCOMPARE(int(editor.programme().database.options.acceptLinkTimeout),
                 std::min(stored + 2, 2));
        NetConfigEditor reopened(editor.programme(), {}, notifier);
        QCOMPARE(reopened.sendAllCall(), send);
        QCOMPARE(reopened.receiveAllCall(), receive);
    }

    void nameCrossCheck_data()
    {
        columns<bool, QString, bool, QString, QString>("selfAddressEdit", "typed", "accepted",
                                                       "stored", "message");
        QTest::newRow("another net's self address") << false << "STN7" << false << "OLD"
                                                    << "'STN7' is net no. 7 Self Address.";
        QTest::newRow("its own self address") << false << "OWN" << false << "OLD"
                                              << "'OWN' is net no. 2 Self Address.";
        QTest::newRow("a free name") << false << "FREE" << true << "FREE" << QString();
        QTest::newRow("empty name") << false << QString() << true << QString() << QString();
        QTest::newRow("self address equal to a net name") << true << "NAME9" << false << "OWN"
                                                          << "'NAME9' is net no. 9 Net Name.";
        QTest::newRow("a free self address") << true << "FREE" << true << "FREE" << QString();
    }
    void nameCrossCheck()
    {
        auto [selfAddressEdit, typed, accepted, stored, message] =
            fetch<bool, QString, bool, QString, QString>("selfAddressEdit", "typed", "accepted",
                                                         "stored", "message");
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
        QCOMPARE(notifier.texts(), expectedTexts(message));
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
    }

    void eachOptionSetsItsByte()
    {
        using O = NetConfigEditor::Option;
        // The bytes each option sets: 0..11 ALE options, 12..15 extra options.
        const QList<std::pair<O, QList<int>>> expected{
            {O::Alert, {1}},        {O::ExternalAlarm, {2}},
            {O::AutoAddress, {3}},  {O::QuickPttCall, {4}},
            {O::Multinet, {7, 12}}, {O::Anycall, {8}},
            {O::Wildcard, {9}},     {O::Amd, {10}},
            {O::InLink, {11}},      {O::LinkAfterBidirectional, {14}},
            {O::Vcds, {15}}};
        for (const auto& [option, bytes] : expected) {
            RecordingNotifier notifier;
            NetConfigEditor editor(AleProgramme{}, {}, notifier);
            editor.setOption(option, true);
            QVERIFY(editor.option(option));
            const AleProgramme& p = editor.programme();
            const auto* options = reinterpret_cast<const std::uint8_t*>(&p.database.options);
            const auto* extra = reinterpret_cast<const std::uint8_t*>(&p.extraOptions);
            QList<int> set;
            for (int i = 0; i < 16; ++i)
                if ((i < 12 ? options[i] : extra[i - 12]) != 0)
                    set << i;
            QCOMPARE(set, bytes);
        }
    }
};

QTEST_GUILESS_MAIN(NetConfigEditorTest)
#include "tst_netconfigeditor.moc"
