// The view's dispatch of incoming messages and its common tail, message by message, with no
// radio on the line.

#include "SessionFixture.h"

#include <QSignalSpy>

using namespace koral;
using namespace koral::test;

namespace {

CRadioMessage report(int opcode, std::initializer_list<std::uint8_t> payload)
{
    CRadioMessage message;
    message.prepareReport();
    message.setOpcodeAndLength(opcode, payload.size());
    std::size_t at = 6;
    for (std::uint8_t byte : payload)
        message[at++] = byte;
    return message;
}

// A call report (opcode 79) from `address` on channel 7 with link quality 22.
CRadioMessage callReport(const std::string& address, const std::string& message)
{
    CRadioMessage call;
    call.prepareReport();
    call.setOpcodeAndLength(79, 20 + (message.empty() ? 0 : 91));
    call[7] = 7;
    call[8] = 22;
    call[9] = message.empty() ? 0 : 1;
    std::copy(address.begin(), address.end(), call.bytes.begin() + 10);
    std::copy(message.begin(), message.end(), call.bytes.begin() + 26);
    return call;
}

void copyText(AleAddress& field, const std::string& text)
{
    field = {};
    std::copy(text.begin(), text.end(), field.begin());
}

} // namespace

class DispatcherTest : public QObject
{
    Q_OBJECT
private slots:
    void linkResults_data()
    {
        columns<int, int, int, int, QString, bool>("stateBefore", "code", "stateAfter", "logged",
                                                   "status", "linkedAfter");
        QTest::newRow("no link") << 36 << 0 << 1 << 0 << "No link was established." << false;
        QTest::newRow("link outside a call")
            << 36 << 1 << 1 << 0 << "Link was established." << false;
        QTest::newRow("a call's link on a silent net")
            << 31 << 4 << 31 << 1 << "Link was established on silent net." << true;
        QTest::newRow("channel busy ends an incoming call")
            << 55 << 2 << 1 << 1 << "Channel busy." << false;
        QTest::newRow("station busy while idle") << 1 << 3 << 1 << 0 << "Station busy." << false;
        QTest::newRow("code 5 changes only the tail") << 55 << 5 << 55 << 0 << "" << true;
        QTest::newRow("ignored while replacing") << 39 << 0 << 39 << 0 << "" << true;
        QTest::newRow("tail 54 goes idle") << 54 << 6 << 1 << 0 << "" << true;
    }
    void linkResults()
    {
        auto [stateBefore, code, stateAfter, logged, status, linkedAfter] =
            fetch<int, int, int, int, QString, bool>("stateBefore", "code", "stateAfter", "logged",
                                                     "status", "linkedAfter");
        SessionFixture fixture;
        auto& session = *fixture.session;
        // No radio takes the AcceptLink of an established link here; that is not under test.
        session.link().setReportNoResponse(false);
        session.view().callState = stateBefore;
        // A call is placed from the idle layout; other exchanges run in the linked one.
        session.dispatcher().setCallControls(stateBefore == 31 ? 5 : 7);
        session.dispatcher().dispatchMessage(report(85, {std::uint8_t(code)}));
        // The same result again (the dispatch acts on the latest message) changes nothing.
        session.dispatcher().dispatchMessage(report(85, {std::uint8_t(code)}));
        QCOMPARE(session.view().callState, stateAfter);
        QCOMPARE(int(session.calls().log().size()), logged);
        QCOMPARE(int(session.calls().stack().size()), logged);
        QCOMPARE(QString::fromStdString(session.commands().callStatus()), status);
        // A result that ends the exchange leaves the call controls idle again; an established
        // link shows the linked layout.
        QCOMPARE(session.dispatcher().callControls().idle, !linkedAfter);
        QCOMPARE(session.view().linked, linkedAfter);
        QCOMPARE(texts(fixture.notifier), QStringList());
    }

    // Steps: a = a call from STN1, b = a call from STN2, c = the operator closes the dialog,
    // r = the radio ends the call (channel busy).
    void incomingCallsAreRecordedOnce_data()
    {
        columns<QString, QStringList>("steps", "stacked");
        // A call the operator took leaves the radio linked with the caller.
        QTest::addColumn<bool>("linked");
        QTest::newRow("announced only") << "a" << QStringList{} << false;
        QTest::newRow("the same report dispatched twice") << "aac" << QStringList{"STN1"} << true;
        QTest::newRow("a second call keeps the first")
            << "abc" << QStringList{"STN1", "STN2"} << true;
        QTest::newRow("ended by the radio, then closed") << "arc" << QStringList{"STN1"} << false;
        QTest::newRow("closed twice") << "acc" << QStringList{"STN1"} << true;
    }
    void incomingCallsAreRecordedOnce()
    {
        auto [steps, stacked, linked] =
            fetch<QString, QStringList, bool>("steps", "stacked", "linked");
        SessionFixture fixture;
        auto& session = *fixture.session;
        QSignalSpy announced(&session.dispatcher(), &MessageDispatcher::incomingCall);
        for (QChar step : steps) {
            if (step == 'a')
                session.dispatcher().dispatchMessage(callReport("STN1", "HELLO"));
            else if (step == 'b')
                session.dispatcher().dispatchMessage(callReport("STN2", ""));
            else if (step == 'r')
                session.dispatcher().dispatchMessage(report(85, {2}));
            else
                session.dispatcher().closeIncomingCall();
        }
        const auto stackedFroms = [&fixture] {
            QStringList froms;
            for (const CallRecord& record : fixture.session->calls().stack())
                froms << QString::fromStdString(record.from);
            return froms;
        };
        QCOMPARE(stackedFroms(), stacked);
        QCOMPARE(int(session.calls().log().size()), int(stacked.size()));
        QCOMPARE(announced.size(), int(steps.count('a') + steps.count('b')));
        QCOMPARE(session.view().linked, linked);
        QCOMPARE(session.aleCalls().abortEnabled(), linked);
        QCOMPARE(session.calls().channelValue(7), 22);
        if (stacked.isEmpty())
            return;
        const CallRecord& first = session.calls().log().front();
        QCOMPARE(first.channel, std::string("7"));
        QCOMPARE(first.message, std::string("HELLO"));
        QCOMPARE(first.callType, std::string("Station"));
        QVERIFY(!first.end.empty());
        // What was recorded survives a restart.
        fixture.session =
            std::make_unique<ControlCenterSession>(fixture.notifier, fixture.dataDir());
        fixture.session->calls().load();
        QCOMPARE(stackedFroms(), stacked);
        QCOMPARE(fixture.session->calls().log().front().message, std::string("HELLO"));
    }

    // Reply from the stack: whom it calls and on which channel.
    void replyCallsTheOtherParty_data()
    {
        // The record's from, to and channel; the address and channel called.
        columns<QStringList, QStringList>("record", "called");
        QTest::newRow("an outgoing call calls its station again")
            << QStringList{"BASE01", "STN2", "12"} << QStringList{"STN2", "12"};
        QTest::newRow("a caller not in the directory")
            << QStringList{"FAR9", "", "12"} << QStringList{"FAR9", "12"};
        QTest::newRow("an automatic channel stays automatic")
            << QStringList{"STN1", "", "255"} << QStringList{"STN1", "Auto"};
        QTest::newRow("a channel the radio cannot use goes automatic")
            << QStringList{"STN1", "", "13"} << QStringList{"STN1", "Auto"};
    }
    void replyCallsTheOtherParty()
    {
        auto [fields, called] = fetch<QStringList, QStringList>("record", "called");
        SessionFixture fixture;
        auto& session = *fixture.session;
        session.link().setReportNoResponse(false);
        session.view().databaseRead = true;
        SessionRecords& records = session.records();
        copyText(records.ale.directory[0], "STN1");
        copyText(records.ale.directory[1], "STN2");
        copyText(records.ale.nets[0].selfAddress, "BASE01");
        records.radio.channelNo(12).rxFrequency.set(7'000'000);
        session.aleCalls().refresh();
        CallRecord record;
        record.from = fields[0].toStdString();
        record.to = fields[1].toStdString();
        record.channel = fields[2].toStdString();
        session.aleCalls().reply(record);
        const AleCallController& ale = session.aleCalls();
        QCOMPARE((QStringList{
                     QString::fromStdString(ale.addresses()[std::size_t(ale.addressRow())]),
                     QString::fromStdString(ale.channelChoices()[std::size_t(ale.channelRow())])}),
                 called);
        QCOMPARE(ale.callType(), AleCallController::CallType::Station);
        QCOMPARE(QString::fromStdString(session.calls().currentCall().to), called[0]);
        QCOMPARE(session.view().lastOpcode, 69);
        QCOMPARE(texts(fixture.notifier), QStringList());
    }

    void linkQualityRequests_data()
    {
        // scan: -1 no scan control, 0 not scanning, 1 scanning; type: 0 bidirectional, 1 sounding
        columns<int, bool, int, bool, int, bool, bool, QString>(
            "scan", "databaseRead", "type", "toNet", "callState", "bidirectional", "sounding",
            "message");
        QTest::newRow("the net's name") << 1 << true << 0 << true << 38 << true << false << "";
        QTest::newRow("sounding while scanning")
            << 1 << true << 1 << false << 62 << false << true << "";
        QTest::newRow("sounding without a scan")
            << 0 << true << 1 << false << 1 << false << false
            << "Sounding needs the radio scanning an ALE net: start the scan first.";
        QTest::newRow("no scan control")
            << -1 << true << 0 << false << 1 << false << false << "Scan Button is disable!";
        QTest::newRow("nothing read") << 0 << false << 0 << false << 1 << false << false
                                      << "You must read Data Base from radio!";
    }
    void linkQualityRequests()
    {
        auto [scan, databaseRead, type, toNet, callState, bidirectional, sounding, message] =
            fetch<int, bool, int, bool, int, bool, bool, QString>(
                "scan", "databaseRead", "type", "toNet", "callState", "bidirectional", "sounding",
                "message");
        SessionFixture fixture;
        auto& session = *fixture.session;
        session.link().setReportNoResponse(false);
        session.view().callState = 1;
        session.view().databaseRead = databaseRead;
        copyText(session.records().ale.directory[0], "STN1");
        copyText(session.records().ale.nets[0].name, "NET1");
        session.aleCalls().refresh();
        // The radio was scanning when it was read.
        session.view().operationMode = scan == 1 ? 4 : 0;
        session.channels().takeRadioState();
        session.channels().setEnabled(scan >= 0);
        QCOMPARE(session.channels().scanState(), scan);

        LinkQualityController& lq = session.linkQuality();
        lq.setType(LinkQualityController::Type(type));
        lq.selectAddress(toNet ? int(session.aleCalls().addresses().size()) - 1 : 0);
        lq.send();
        QCOMPARE(session.view().callState, callState);
        QCOMPARE(lq.bidirectionalActive(), bidirectional);
        QCOMPARE(lq.soundingActive(), sounding);
        QCOMPARE(lq.abortEnabled(), bidirectional || sounding);
        const QStringList shown = texts(fixture.notifier);
        QCOMPARE(shown.isEmpty() ? QString() : shown.front(), message);

        // The radio ends the exchange: its indicator goes out and Send comes back.
        session.dispatcher().dispatchMessage(report(85, {std::uint8_t(type)}));
        QVERIFY(!lq.bidirectionalActive() && !lq.soundingActive());
        QVERIFY(lq.sendEnabled());
        // An abort of an exchange that has ended sends nothing.
        QCOMPARE(lq.abort(), 0);
    }

    void commonTail_data()
    {
        columns<int, int, int, bool>("stateBefore", "opcode", "stateAfter", "linked");
        QTest::newRow("36 ends on another report") << 36 << 84 << 1 << false;
        QTest::newRow("36 waits on a status value") << 36 << 65 << 36 << true;
        QTest::newRow("40 becomes 36") << 40 << 84 << 36 << true;
        QTest::newRow("57 shows the link") << 57 << 84 << 1 << true;
        QTest::newRow("58 ends the call") << 58 << 84 << 1 << false;
        QTest::newRow("34 clears the indicators") << 34 << 84 << 1 << true;
        QTest::newRow("call progress sets 31") << 1 << 69 << 31 << true;
        QTest::newRow("monitor report goes idle") << 40 << 89 << 1 << true;
    }
    void commonTail()
    {
        auto [stateBefore, opcode, stateAfter, linked] =
            fetch<int, int, int, bool>("stateBefore", "opcode", "stateAfter", "linked");
        SessionFixture fixture;
        auto& session = *fixture.session;
        session.view().linked = true;
        session.view().callState = stateBefore;
        session.dispatcher().dispatchMessage(report(opcode, {0, 0, 0, 0}));
        QCOMPARE(session.view().callState, stateAfter);
        QCOMPARE(session.view().linked, linked);
    }

    void monitorReportShowsOnTheToolbar_data()
    {
        columns<int, bool>("byte6", "on");
        QTest::newRow("on") << 1 << true;
        QTest::newRow("out of range is off") << 7 << false;
    }
    void monitorReportShowsOnTheToolbar()
    {
        auto [byte6, on] = fetch<int, bool>("byte6", "on");
        SessionFixture fixture;
        auto& commands = fixture.session->commands();
        commands.showToggleState(ViewCommands::Toggle::Monitor, !on);
        fixture.session->dispatcher().dispatchMessage(report(89, {std::uint8_t(byte6)}));
        QCOMPARE(commands.state(ViewCommands::Toggle::Monitor), on);
        QCOMPARE(commands.imageIndex(ViewCommands::Toggle::Monitor) < 12, on);
    }

    void panelReports()
    {
        SessionFixture fixture;
        auto& dispatcher = fixture.session->dispatcher();
        QSignalSpy status(&dispatcher, &MessageDispatcher::channelPaneStatus);
        QSignalSpy indicator(&dispatcher, &MessageDispatcher::linkIndicator);
        QSignalSpy isb(&dispatcher, &MessageDispatcher::isbModeReported);
        dispatcher.dispatchMessage(report(65, {1, 0, 0, 42}));
        dispatcher.dispatchMessage(report(65, {4, 0, 0, 42}));
        dispatcher.dispatchMessage(report(48, {1}));
        dispatcher.dispatchMessage(report(48, {2}));
        dispatcher.dispatchMessage(report(30, {0}));
        QCOMPARE(status.count(), 1);
        QCOMPARE(status.front().front().value<std::string>(), std::string("42"));
        QCOMPARE(indicator.count(), 1);
        QCOMPARE(isb.count(), 2);
        QCOMPARE(dispatcher.isbMode(), 1);
        QCOMPARE(isb.back().at(1).toBool(), false);
        // The channel report's layout follows the software class: 1, 2, unknown.
        QList<int> layouts;
        connect(&dispatcher, &MessageDispatcher::channelReport, this,
                [&](const CRadioMessage&, int used) { layouts << used; });
        for (int softwareClass : {1, 2, 0}) {
            fixture.session->flags().softwareClass = std::uint8_t(softwareClass);
            dispatcher.dispatchMessage(report(46, {0, std::uint8_t(5 + softwareClass)}));
        }
        QCOMPARE(layouts, (QList<int>{2, 1, 1}));
    }

    void remoteRequestRunsTheExchangeOnlyWhenReady()
    {
        SessionFixture fixture;
        fixture.session->dispatcher().dispatchMessage(report(28, {}));
        QVERIFY(fixture.session->view().remoteRequested);
        // Not ready: nothing was sent, so nothing could fail.
        QCOMPARE(texts(fixture.notifier), QStringList());
    }
};

QTEST_GUILESS_MAIN(DispatcherTest)
#include "tst_dispatcher.moc"
