// The session against the virtual radio in process: the start-up exchange, the link's
// failures, the incoming worker and the dispatch, Read Device, the transfer's progress dialog
// and Write Device's baud-rate question.

#include "SessionFixture.h"

#include "common/Texts.h"
#include "radiosim/RadioDatabases.h"
#include "session/ProgressView.h"

#include <QSignalSpy>

#include <algorithm>
#include <fstream>
#include <thread>

using namespace koral;
using namespace koral::test;
using namespace koral::radiosim;

class RadioSessionTest : public QObject
{
    Q_OBJECT
private slots:
    void startUpReadsEveryDatabase_data()
    {
        columns<bool, bool, QString, int>("ccir", "extended", "version", "softwareClass");
        QTest::newRow("ALE, extended databases") << false << true << "03.100" << 2;
        QTest::newRow("ALE, plain radio") << false << false << "02.500" << 1;
        QTest::newRow("CCIR") << true << true << "00.900" << 2;
    }
    void startUpReadsEveryDatabase()
    {
        auto [ccir, extended, version, softwareClass] =
            fetch<bool, bool, QString, int>("ccir", "extended", "version", "softwareClass");
        SessionFixture fixture([&](VirtualRadio& radio) {
            radio.execute(SetMode{ccir});
            radio.execute(SetSupport{extended});
            radio.execute(SetVersion{version.toStdString()});
        });
        QVERIFY(fixture.startUp());
        QCOMPARE(texts(fixture.notifier), QStringList());
        auto& session = *fixture.session;
        QVERIFY(session.view().databaseRead);
        const CapabilityFlags& flags = session.flags();
        QCOMPARE((QList<int>{flags.ccirMode, flags.aleGlobalSupported, flags.extraOptionsSupported,
                             flags.softwareClass}),
                 (QList<int>{ccir, extended, extended, softwareClass}));
        QVERIFY(!session.transfer().programmedChannels().empty());
    }

    // The start-up runs once the event loop turns, under its notice; the port given for this
    // run is used but not remembered, and the file left behind holds port 1 at 9600.
    void initSessionStartsUpAndLeavesCommPortFile()
    {
        SessionFixture fixture({}, 0);
        auto& session = *fixture.session;
        QCOMPARE(session.commands().comPane(), std::string("COM: 1,9600"));
        const auto file = fixture.startDir() / "CommPort.txt";
        QVERIFY(!std::filesystem::exists(file));
        session.commands().setNoticeMilliseconds(50);
        QSignalSpy finished(&session, &ControlCenterSession::startUpFinished);
        QCOMPARE(session.initSession(fixture.startDir(), 1, 4800), 1);
        QVERIFY(session.commands().isNoticeShown(ViewCommands::Notice::Startup));
        QCOMPARE(finished.count(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 20000);
        QVERIFY(finished.front().front().toBool());
        QTRY_VERIFY(!session.commands().isNoticeShown(ViewCommands::Notice::Startup));
        QCOMPARE(session.link().settings().baudRate, 4800);
        fixture.session.reset();
        std::ifstream in(file, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(in), {});
        QCOMPARE(bytes, std::string("\x01\x00\x00\x00\x80\x25\x00\x00", 8));
    }

    void linkFailures_data()
    {
        columns<QString, int, QStringList, bool, bool>("fault", "result", "messages", "portOpen",
                                                       "waitCursor");
        QTest::newRow("port cannot be opened")
            << "port" << 0 << QStringList{"Can't open port."} << false << false;
        QTest::newRow("radio does not connect") << "connect" << 0 << QStringList{} << true << false;
        QTest::newRow("no stop event") << "event" << 1 << QStringList{} << false << false;
        QTest::newRow("no thread") << "thread" << 0 << QStringList{} << false << true;
    }
    void linkFailures()
    {
        auto [fault, result, messages, portOpen, waitCursor] =
            fetch<QString, int, QStringList, bool, bool>("fault", "result", "messages", "portOpen",
                                                         "waitCursor");
        SessionFixture fixture([&](VirtualRadio& radio) {
            if (fault == "connect")
                radio.inject({FaultKind::NoAnswer, 0});
        });
        RadioLink& link = fixture.session->link();
        if (fault == "port") {
            link.changeRadioLink(99, 9600);
            fixture.notifier.clear();
            link.closeRadioLink();
        }
        link.faultHooks().failStopEvent = fault == "event";
        link.faultHooks().failThread = fault == "thread";
        QCOMPARE(link.openRadioLink(), result);
        QCOMPARE(texts(fixture.notifier), messages);
        QCOMPARE(link.isPortOpen(), portOpen);
        QCOMPARE(link.waitCursor(), waitCursor);
        QCOMPARE(link.state(), LinkState::Closed);
        // Closing always disconnects and closes the port, whatever was left open.
        QCOMPARE(link.closeRadioLink(), 1);
        QVERIFY(!link.isPortOpen());
    }

    // The same settings keep the link, others reopen it, and a stop signal that fails still
    // closes it.
    void linkFollowsItsSettingsAndCloses()
    {
        SessionFixture fixture;
        RadioLink& link = fixture.session->link();
        QCOMPARE(link.openRadioLink(), 1);
        QSignalSpy closed(&link, &RadioLink::linkClosed);
        QCOMPARE(link.changeRadioLink(1, SessionFixture::kFastBaud), 1);
        QCOMPARE(closed.count(), 0);
        QCOMPARE(link.changeRadioLink(1, 4800), 1);
        QCOMPARE(closed.count(), 1);
        QCOMPARE(link.settings().baudRate, 4800);
        QCOMPARE(link.state(), LinkState::Open);
        link.faultHooks().failStopSignal = true;
        QCOMPARE(link.closeRadioLink(), 1);
        QCOMPARE(texts(fixture.notifier),
                 QStringList{"m_Globals.incomingThreadEvent non signaled!"});
        QCOMPARE(link.state(), LinkState::Closed);
    }

    // Once the radio is silent a toggle changes nothing, and a CCIR query it leaves unanswered
    // means CCIR mode.
    void silentRadio()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& commands = fixture.session->commands();
        const bool squelch = commands.state(ViewCommands::Toggle::Squelch);
        const int image = commands.imageIndex(ViewCommands::Toggle::Squelch);
        fixture.play(FaultCommand{FaultKind::NoAnswer, 0});
        QCOMPARE(commands.toggle(ViewCommands::Toggle::Squelch), 0);
        QCOMPARE(texts(fixture.notifier),
                 QStringList{QString::fromUtf8(text::byId(text::id::NoResponse).data())});
        QCOMPARE(fixture.notifier.entries().front().icon, Icon::Warning);
        QCOMPARE(commands.state(ViewCommands::Toggle::Squelch), squelch);
        QCOMPARE(commands.imageIndex(ViewCommands::Toggle::Squelch), image);
        auto& transfer = fixture.session->transfer();
        transfer.setReadWriteMode(TransferMode::Read);
        QCOMPARE(transfer.loadProgressDlg(), 0);
        QVERIFY(fixture.session->flags().ccirMode);
    }

    void closingWhileMessagesArriveNeverDeadlocks()
    {
        SessionFixture fixture;
        RadioLink& link = fixture.session->link();
        for (int round = 0; round < 4; ++round) {
            QCOMPARE(link.openRadioLink(), 1);
            // Scanning makes the radio report every few milliseconds.
            fixture.play(RadioEvent{FrontPanelScan{true, false, 0}});
            std::this_thread::sleep_for(std::chrono::milliseconds(60));
            QCOMPARE(link.closeRadioLink(), 1);
        }
        QCOMPARE(link.state(), LinkState::Closed);
    }

    // Two calls before one dispatch: the view acts on the second.
    void twoMessagesBeforeOneDispatchActAsTheSecond()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        QCoreApplication::processEvents();
        std::vector<std::string> calls;
        auto& dispatcher = fixture.session->dispatcher();
        connect(&dispatcher, &MessageDispatcher::incomingCall, this,
                [&](const koral::IncomingCall& call) { calls.push_back(call.address); });
        fixture.play(RadioEvent{radiosim::IncomingCall{CallKind::Station, "FIRST", "", 3}});
        fixture.play(RadioEvent{radiosim::IncomingCall{CallKind::Net, "SECOND", "HELLO", 4}});
        auto& link = fixture.session->link();
        for (int i = 0; i < 1000 && link.latestIncoming().GetOpcode() != 80; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        QVERIFY(calls.empty());
        // A report from before the calls may still have its notice queued; every notice
        // dispatches the latest message, so all of them act on the second call.
        QTRY_VERIFY(calls.size() >= 2);
        QCOMPARE(std::count(calls.begin(), calls.end(), "SECOND"), std::ptrdiff_t(calls.size()));
        QCOMPARE(fixture.session->view().callState, 55);
    }

    // An ordinary read asks the panels to refresh under the completed notice, the programmed
    // channels sorted; one of all 200 channels is the window's
    // readWithAllChannelsProgrammedShowsWhatWasRead.
    void readDevice()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& transfer = fixture.session->transfer();
        QSignalSpy refresh(&transfer, &DatabaseTransfer::channelRefreshRequested);
        QVERIFY(transfer.readDeviceCommand());
        QVERIFY(fixture.session->view().radioReady && !fixture.session->view().busy);
        QCOMPARE(refresh.count(), 1);
        QVERIFY(fixture.session->commands().isNoticeShown(ViewCommands::Notice::Completed));
        const auto& channels = transfer.programmedChannels();
        QVERIFY(std::is_sorted(channels.begin(), channels.end()));
        QVERIFY(transfer.activeChannel() >= 1 && transfer.activeChannel() <= 200);
    }

    // The link runs at a rate the radio does not know: its index counts as 1200's, and the
    // operator declines. A write that goes through is the window's
    // writeDeviceSendsWhatTheWindowShows.
    void writeDeviceAsksWhenTheBaudRatesDiffer()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        fixture.notifier.queueAnswer(Answer::No);
        fixture.session->records().radio.channelNo(150).rxFrequency.set(7050000);
        const auto before = fixture.radio().databases().radio;
        fixture.session->transfer().writeDeviceCommand();
        QCOMPARE(texts(fixture.notifier),
                 (QStringList{"The baud rate 115200 is not defined, is set to 1200",
                              "Radio baud rate is different from computer baud rate. Continue "
                              "Programming?"}));
        QVERIFY(fixture.notifier.entries().back().question);
        QVERIFY(!fixture.session->view().busy);
        QVERIFY(fixture.radio().databases().radio == before);
    }

    // A second dialog asked for while one runs (here from the first one's window) is refused.
    // The window is asked while the transfer runs every time; the pump only when an answer
    // keeps it waiting.
    void progressDialogRunsOnce()
    {
        struct NestingView : ProgressView
        {
            DatabaseTransfer* transfer = nullptr;
            int nested = -1;
            void open() override {}
            void close() override {}
            void setTitle(std::string_view) override {}
            void setCaption(std::string_view) override {}
            void setPosition(int) override
            {
                if (nested == -1)
                    nested = transfer->loadProgressDlg();
            }
            void setCancelEnabled(bool) override {}
        } view;
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& transfer = fixture.session->transfer();
        view.transfer = &transfer;
        transfer.setProgressView(&view);
        transfer.setReadWriteMode(TransferMode::Read);
        QCOMPARE(transfer.loadProgressDlg(), 1);
        QCOMPARE(view.nested, 0);
        QCOMPARE(texts(fixture.notifier), QStringList{"LoadProgressDlg(): ProgressDlg problem!"});
        QCOMPARE(transfer.readWriteMode(), TransferMode::None);
    }
};

QTEST_GUILESS_MAIN(RadioSessionTest)
#include "tst_radiosession.moc"
