// The rules of the Computer Interface panel, without a radio: what the frequency edits accept
// and what they say, Simplex, how the scan state follows the radio's channel reports, and
// whom an ALE call goes to on which channel.

#include "support/Table.h"

#include "common/RecordingNotifier.h"
#include "common/Texts.h"
#include "session/ControlCenterSession.h"

#include <QTemporaryDir>
#include <QtTest>
#include <cstring>

using namespace koral;
using namespace koral::test;

namespace {

QString idText(int id)
{
    return id ? QString::fromStdString(std::string(text::byId(id))) : QString();
}

CRadioMessage channelReport(int kind, int number)
{
    CRadioMessage message = RadioLink::newRequest();
    message.setOpcodeAndLength(46, 3);
    message[6] = std::uint8_t(kind);
    message[7] = std::uint8_t(number);
    return message;
}

} // namespace

class ChannelControllerTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    RecordingNotifier m_notifier;
    std::unique_ptr<ControlCenterSession> m_session;
    ChannelController& controller() { return m_session->channels(); }
    QString lastMessage() const
    {
        return m_notifier.entries().empty()
                   ? QString()
                   : QString::fromStdString(m_notifier.entries().back().text);
    }

private slots:
    void init()
    {
        m_notifier.clear();
        m_session = std::make_unique<ControlCenterSession>(m_notifier, m_dir.path().toStdString());
    }

    void frequencyEdits_data()
    {
        // The texts as "tx/rx" before the commit and after it.
        columns<bool, bool, QString, bool, int, QString, bool>(
            "duplex", "editTx", "texts", "accepted", "message", "after", "duplexAfter");
        const int tx = text::id::TxOutOfRange;
        const int rx = text::id::RxOutOfRange;
        const int zero = text::id::BothFrequenciesZero;
        QTest::newRow("tx 1.0 is the marker")
            << true << true << "1/5" << true << 0 << "1/5" << true;
        QTest::newRow("tx 1.5") << true << true << "1.5/5" << false << tx << "1.5/5" << true;
        QTest::newRow("tx 30") << true << true << "30/5" << true << 0 << "30/5" << true;
        QTest::newRow("tx 30.1") << true << true << "30.1/5" << false << tx << "30.1/5" << true;
        QTest::newRow("tx not a number") << true << true << "1x/5" << false << tx << "1x/5" << true;
        QTest::newRow("tx 0 simplex") << false << true << "/5" << false << zero << "/5" << true;
        QTest::newRow("tx 0 duplex") << true << true << "0/5" << true << 0 << "0/5" << true;
        QTest::newRow("tx 0 rx 0 undone") << true << true << "/" << false << zero << "7/" << true;
        QTest::newRow("rx 0.05") << true << false << "7/0.05" << false << rx << "7/0.05" << true;
        QTest::newRow("rx 0.1 duplex") << true << false << "7/0.1" << true << 0 << "7/0.1" << true;
        QTest::newRow("rx 0 tx 0 undone") << true << false << "/" << false << zero << "/7" << true;
        QTest::newRow("rx 0 simplex") << false << false << "7/" << false << zero << "7/" << true;
        QTest::newRow("rx 1.2 simplex raises tx")
            << false << false << "1.2/1.2" << false << tx << "1.6/1.2" << true;
        QTest::newRow("rx 1.0 simplex") << false << false << "1/1" << true << 0 << "1/1" << false;
    }
    void frequencyEdits()
    {
        auto [duplex, editTx, edits, accepted, message, after, duplexAfter] =
            fetch<bool, bool, QString, bool, int, QString, bool>(
                "duplex", "editTx", "texts", "accepted", "message", "after", "duplexAfter");
        ChannelController& c = controller();
        // The accepted state the edit starts from: 7 MHz both ways.
        c.setTxText("7");
        c.setRxText("7");
        c.duplex();
        QVERIFY(c.commitTx() && c.commitRx());
        if (!duplex) {
            c.focusRx();
            c.simplex();
        }
        m_notifier.clear();
        c.setTxText(edits.section('/', 0, 0).toStdString());
        c.setRxText(edits.section('/', 1).toStdString());
        QCOMPARE(editTx ? c.commitTx() : c.commitRx(), accepted);
        QCOMPARE(lastMessage(), idText(message));
        QCOMPARE(QString::fromStdString(c.txText() + "/" + c.rxText()), after);
        QCOMPARE(c.isDuplex(), duplexAfter);
    }

    void simplexTakesTheFocusedFrequency_data()
    {
        columns<QString, int, bool, QString>("focused", "message", "duplexAfter", "txAfter");
        QTest::newRow("none") << "" << int(text::id::BothFrequenciesZero) << true << "3";
        QTest::newRow("below the band") << "1.2" << int(text::id::TxOutOfRange) << true << "3";
        QTest::newRow("in the band") << "12.345" << 0 << false << "12.345";
    }
    void simplexTakesTheFocusedFrequency()
    {
        auto [focused, message, duplexAfter, txAfter] =
            fetch<QString, int, bool, QString>("focused", "message", "duplexAfter", "txAfter");
        ChannelController& c = controller();
        c.setTxText("3");
        c.setRxText(focused.toStdString());
        c.focusRx();
        c.simplex();
        QCOMPARE(lastMessage(), idText(message));
        QCOMPARE(c.isDuplex(), duplexAfter);
        QCOMPARE(QString::fromStdString(c.txText()), txAfter);
    }

    void scanFollowsTheRadio_data()
    {
        columns<bool, QList<int>, int, QString, bool>("enabled", "reportKinds", "state", "scanText",
                                                      "programEnabled");
        QTest::newRow("enabled") << true << QList<int>{} << 0 << "Scan: off" << true;
        QTest::newRow("front panel starts a scan")
            << true << QList<int>{1} << 1 << "Scan: group B" << false;
        QTest::newRow("and stops it") << true << QList<int>{1, 1, 2} << 0 << "Scan: off" << true;
        QTest::newRow("no scan control while disabled")
            << false << QList<int>{1} << -1 << "Scan: off" << false;
    }
    void scanFollowsTheRadio()
    {
        auto [enabled, reportKinds, state, scanText, programEnabled] =
            fetch<bool, QList<int>, int, QString, bool>("enabled", "reportKinds", "state",
                                                        "scanText", "programEnabled");
        // Only group B holds channels: it is the group a scan falls back to.
        m_session->records().radio.groups[1].setMember(5, true);
        ChannelController& c = controller();
        c.setEnabled(enabled);
        for (int kind : reportKinds)
            c.onChannelReport(channelReport(kind, 5));
        QCOMPARE(c.scanState(), state);
        QCOMPARE(QString::fromStdString(c.scanStateText()), scanText);
        QCOMPARE(c.programEnabled(), programEnabled);
        if (state == ChannelController::kScanning) {
            QCOMPARE(c.scanList(), std::vector<std::string>{"B"});
            QCOMPARE(QString::fromStdString(c.channelStateText()), QStringLiteral("Channel: 5"));
        }
    }

    void scanModeFollowsTheRadiosAleState_data()
    {
        // Events: 100 + the ALE state the radio reports, or a channel report kind (1 a scan
        // visits a channel, 2 the scan stopped).
        columns<QList<int>, bool>("events", "ale");
        QTest::newRow("ALE switched on at the radio") << QList<int>{101} << true;
        QTest::newRow("and off again") << QList<int>{101, 100} << false;
        QTest::newRow("a group scan keeps its mode") << QList<int>{1, 101} << false;
        QTest::newRow("until it stops") << QList<int>{1, 101, 2} << true;
    }
    void scanModeFollowsTheRadiosAleState()
    {
        auto [events, ale] = fetch<QList<int>, bool>("events", "ale");
        m_session->records().radio.groups[1].setMember(5, true);
        ChannelController& c = controller();
        c.setEnabled(true);
        QSignalSpy changed(&c, &ChannelController::changed);
        for (int event : events) {
            if (event >= 100) {
                m_session->flags().aleState = std::uint8_t(event - 100);
                c.followAleState();
            } else {
                c.onChannelReport(channelReport(event, 5));
            }
        }
        QCOMPARE(c.scanMode() == ChannelController::ScanMode::Ale, ale);
        QVERIFY(!changed.isEmpty());
    }

    void aleNetChosenSurvivesTheNextScan()
    {
        // Nets 1 and 3 scan channels; the operator picks net 3 while the radio scans.
        m_session->records().ale.nets[0].setScanned(5, true);
        m_session->records().ale.nets[2].setScanned(5, true);
        m_session->flags().aleState = 1;
        ChannelController& c = controller();
        c.setEnabled(true);
        c.followAleState();
        c.onChannelReport(channelReport(1, 5));
        QCOMPARE(c.scanList(), (std::vector<std::string>{"1", "3"}));
        c.selectScanRow(1);
        c.onChannelReport(channelReport(2, 5));
        c.onChannelReport(channelReport(1, 5));
        QCOMPARE(c.scanListRow(), 1);
        // Net 3 emptied: the next scan falls back to the first net that scans.
        m_session->records().ale.nets[2].setScanned(5, false);
        c.onChannelReport(channelReport(2, 5));
        c.onChannelReport(channelReport(1, 5));
        QCOMPARE(c.scanList(), std::vector<std::string>{"1"});
        QCOMPARE(c.scanListRow(), 0);
    }

    void aleCallAddressDecidesTheCall_data()
    {
        columns<int, int, bool, QString>("row", "callType", "channelEnabled", "channel");
        QTest::newRow("a station") << 1 << 0 << true << "5";
        QTest::newRow("all call forces Auto") << 2 << 2 << false << "Auto";
        QTest::newRow("the net") << 3 << 1 << true << "5";
    }
    void aleCallAddressDecidesTheCall()
    {
        auto [row, callType, channelEnabled, channel] =
            fetch<int, int, bool, QString>("row", "callType", "channelEnabled", "channel");
        SessionRecords& records = m_session->records();
        const auto name = [](AleAddress& field, const char* text) {
            std::strncpy(field.data(), text, field.size() - 1);
        };
        name(records.ale.directory[0], "STN1");
        name(records.ale.directory[4], "STN2");
        name(records.ale.nets[0].name, "NET1");
        records.ale.nets[0].setScanned(5, true);
        records.radio.channelNo(5).rxFrequency.set(7'000'000);
        AleCallController& ale = m_session->aleCalls();
        ale.refresh();
        QCOMPARE(ale.addresses(), (std::vector<std::string>{"STN1", "STN2", "All Call", "NET1"}));
        ale.selectChannel(1);
        ale.selectAddress(row);
        QCOMPARE(int(ale.callType()), callType);
        QCOMPARE(ale.addressRow(), row);
        QCOMPARE(ale.channelEnabled(), channelEnabled);
        QCOMPARE(QString::fromStdString(ale.channelChoices()[std::size_t(ale.channelRow())]),
                 channel);
        // Nothing is sent before the radio's databases were read.
        QCOMPARE(ale.send(), 0);
        QCOMPARE(lastMessage(), QStringLiteral("You must read Data Base from radio!"));
    }
};

QTEST_GUILESS_MAIN(ChannelControllerTest)
#include "tst_channelcontroller.moc"
