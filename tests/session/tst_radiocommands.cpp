// The main view's commands, the built-in test, memory programming and the Communication
// Ports rules against the virtual radio in process.

#include "SessionFixture.h"

#include "common/Texts.h"
#include "koralapi/KoralApi.h"
#include "koralapi/Opcodes.h"
#include "profile/ProfileFile.h"
#include "radiosim/RadioDatabases.h"

#include <QSignalSpy>

#include <cstring>

using namespace koral;
using namespace koral::test;
using namespace koral::radiosim;

namespace {

const QString kNoResponse = QString::fromUtf8(text::byId(text::id::NoResponse).data());

} // namespace

class RadioCommandsTest : public QObject
{
    Q_OBJECT
private slots:
    void enableRules_data()
    {
        // enabled: squelch, blanker, attenuator, clipper, read
        columns<bool, bool, QList<bool>>("busy", "linkPending", "enabled");
        QTest::newRow("idle") << false << false << QList<bool>{true, true, true, true, true};
        QTest::newRow("busy: attenuator and clipper stay")
            << true << false << QList<bool>{false, false, true, true, false};
        QTest::newRow("link required, not linked")
            << false << true << QList<bool>{true, false, false, false, true};
    }
    void enableRules()
    {
        auto [busy, linkPending, enabled] =
            fetch<bool, bool, QList<bool>>("busy", "linkPending", "enabled");
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& view = fixture.session->view();
        auto& commands = fixture.session->commands();
        view.noiseBlankerOption = true;
        view.busy = busy;
        view.linkRequired = linkPending;
        view.linked = false;
        using C = ViewCommands::Command;
        const QList<bool> actual{commands.isEnabled(C::Squelch),
                                 commands.isEnabled(C::NoiseBlanker),
                                 commands.isEnabled(C::Attenuator), commands.isEnabled(C::Clipper),
                                 commands.isEnabled(C::ReadDevice)};
        QCOMPARE(actual, enabled);
        QCOMPARE(commands.isEnabled(C::CommPortSetup), !busy);
        view.busy = false;
        view.databaseRead = false;
        QVERIFY(!commands.isEnabled(C::Squelch));
    }

    void monitorAndRemoteControl()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& flags = fixture.session->flags();
        // CCIR mode, the radio's ALE state, Monitor enabled.
        const std::tuple<bool, int, bool> rows[] = {
            {false, 1, true}, {false, 0, false}, {false, 2, false}, {true, 2, true}};
        for (const auto& [ccir, aleState, enabled] : rows) {
            flags.ccirMode = ccir;
            flags.aleState = std::uint8_t(aleState);
            flags.aleOff = aleState != 1;
            QCOMPARE(fixture.session->commands().isEnabled(ViewCommands::Command::Monitor),
                     enabled);
        }
        // Remote control alternates between the radio's two remote modes.
        auto& commands = fixture.session->commands();
        QVERIFY(!commands.isChecked(ViewCommands::Command::RemoteControl));
        QCOMPARE(commands.toggleRemoteMode(), 1);
        QCOMPARE(fixture.session->view().remoteMode, 0);
        QVERIFY(commands.isChecked(ViewCommands::Command::RemoteControl));
        QCOMPARE(commands.toggleRemoteMode(), 1);
        QCOMPARE(fixture.session->view().remoteMode, 2);
    }

    void dspSlidersSendWhatTheyShow()
    {
        using Kind = DspSlider::Kind;
        using Scroll = DspSlider::Scroll;
        // Each row starts where the previous one left the slider and the radio: its name, the
        // slider, the action (m moves to the position, u steps up), the position and scroll,
        // the position shown, and the radio's value (the clarifier signed, the notch as its
        // step index). Turning off, disabling and the notch's first step are the window's
        // clarifierAndNotchSettingsReachTheRadio.
        using Row = std::tuple<const char*, Kind, char, int, Scroll, int, int>;
        const Row rows[] = {
            {"15 rounds up", Kind::Clarifier, 'm', 15, Scroll::LineDown, 20, 20},
            {"14 rounds down", Kind::Clarifier, 'm', 14, Scroll::ThumbPosition, 10, 10},
            {"dragging sends nothing", Kind::Clarifier, 'm', 37, Scroll::ThumbTrack, 40, 10},
            {"end of scroll sends nothing", Kind::Clarifier, 'm', 90, Scroll::EndScroll, 90, 10},
            {"a step from the top stays", Kind::Clarifier, 'm', 200, Scroll::LineDown, 200, 200},
            {"step up at the top", Kind::Clarifier, 'u', 0, Scroll::LineDown, 200, 200},
            {"notch 419 is off", Kind::Notch, 'm', 419, Scroll::ThumbPosition, 300, 0},
            {"notch top", Kind::Notch, 'm', 2700, Scroll::PageDown, 2700, 10},
            {"notch step up clamps", Kind::Notch, 'u', 0, Scroll::LineDown, 2700, 10},
        };
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& session = *fixture.session;
        session.clarifier().setEnabled(true);
        session.notch().setEnabled(true);
        for (const auto& [name, kind, action, position, how, shown, radio] : rows) {
            DspSlider& slider = kind == Kind::Clarifier ? session.clarifier() : session.notch();
            if (action == 'm')
                slider.scroll(position, how);
            else
                slider.stepUp();
            QVERIFY2(slider.position() == shown, name);
            CRadioMessage reply;
            int value = 0;
            if (kind == Kind::Clarifier) {
                QVERIFY(
                    session.link().query(&ReportClarifierPosition, op::ClarifierPosition, reply));
                value = reply[6] == 1 ? reply[7] : reply[6] == 2 ? -reply[7] : 0;
            } else {
                QVERIFY(session.link().query(&ReportDspMenuParameters, op::DspParameters, reply));
                value = reply[6];
            }
            QVERIFY2(value == radio, name);
        }
        QCOMPARE(texts(fixture.notifier), QStringList());
    }

    void resetShowsTheNoticesAndEndsBusy()
    {
        SessionFixture fixture;
        // Before the start-up there is no port to send the reset on.
        fixture.session->commands().performReset();
        QCOMPARE(texts(fixture.notifier), QStringList{kNoResponse});
        QVERIFY(!fixture.session->view().busy);
        fixture.notifier.clear();
        QVERIFY(fixture.startUp());
        auto& commands = fixture.session->commands();
        commands.setNoticeMilliseconds(50);
        // While busy the status says so and the window cannot be closed.
        QStringList whileBusy;
        connect(&commands, &ViewCommands::busyChanged, this, [&] {
            whileBusy << QString::fromStdString(commands.statusText()) +
                             (commands.closeEnabled() ? " closable" : "");
        });
        QSignalSpy notices(&commands, &ViewCommands::noticeChanged);
        commands.performReset();
        QCOMPARE(whileBusy, (QStringList{"Command in progress, please wait!!!", " closable"}));
        QVERIFY(!fixture.session->view().busy);
        QVERIFY(!commands.isNoticeShown(ViewCommands::Notice::PleaseWait));
        QVERIFY(commands.isNoticeShown(ViewCommands::Notice::Completed));
        QTRY_VERIFY(!commands.isNoticeShown(ViewCommands::Notice::Completed));
        QCOMPARE(notices.count(), 4); // please wait on, off; completed on, off
        QVERIFY(commands.radioCommandsEnabled());
        QCOMPARE(texts(fixture.notifier), QStringList());
    }

    void rejectedCommands_data()
    {
        columns<int, QString, bool>("opcode", "message", "aborted");
        QTest::newRow("self test") << 27 << "Can not perform Self Test." << false;
        QTest::newRow("all call") << 71 << "Can not perform Priority Call." << true;
        QTest::newRow("station call") << 69 << "Can not perform Station Call." << true;
        QTest::newRow("bidirectional net") << 68 << "Can not perform BiDirectional To Net." << true;
        QTest::newRow("not in the table") << 100 << "" << false;
    }
    void rejectedCommands()
    {
        auto [opcode, message, aborted] = fetch<int, QString, bool>("opcode", "message", "aborted");
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        fixture.play(FaultCommand{FaultKind::Reject, unsigned(opcode)});
        auto& dispatcher = fixture.session->dispatcher();
        QSignalSpy bite(&dispatcher, &MessageDispatcher::selfTestRejected);
        CRadioMessage request;
        request.prepareRequest();
        const std::array<signed char, 2> noChannel{-1, -1};
        if (opcode == 27)
            PerformSelfTest(&request, 2);
        else if (opcode == 68)
            BiDirectionalNet(&request, "NET", 4, noChannel.data(), "", 0);
        else if (opcode == 69)
            StationCall(&request, "BASE", 5, noChannel.data(), "", 0);
        else if (opcode == 71)
            AllCall(&request, noChannel.data(), "", 0);
        else
            SetActiveChannel(&request, 0, 3);
        fixture.session->link().sendToRadio(request);
        if (message.isEmpty()) {
            QTest::qWait(300);
            QCOMPARE(texts(fixture.notifier), QStringList());
            return;
        }
        QTRY_VERIFY(!texts(fixture.notifier).isEmpty());
        QTest::qWait(200);
        // A report that the radio sends together with the refusal is dispatched as the
        // refusal too (the view acts on the latest message), so the box may come twice.
        for (const QString& shown : texts(fixture.notifier))
            QCOMPARE(shown, message);
        QCOMPARE(fixture.notifier.entries().front().icon, Icon::Warning);
        QCOMPARE(bite.count(), opcode == 27 ? int(texts(fixture.notifier).size()) : 0);
        // An abort leaves the call idle with the call controls enabled again.
        QCOMPARE(fixture.session->view().lastOpcode, aborted ? 91 : 60);
        QCOMPARE(fixture.session->view().callState, 1);
    }

    // A full test with failed and unperformed items goes to its summary and into the file.
    void biteRunsToItsSummary()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        fixture.play(SelfTestOutcome{SelfTestOutcome::Result::Failed, {2, 30}});
        fixture.play(SelfTestOutcome{SelfTestOutcome::Result::Unable, {39}});
        BiteRunner& bite = fixture.session->bite();
        QList<int> positions;
        connect(&bite, &BiteRunner::changed, this, [&] { positions << bite.progress(); });
        fixture.notifier.queueAnswer(Answer::Ok);
        QVERIFY(bite.run());
        QCOMPARE(texts(fixture.notifier), QStringList{"Connect a dummy load"});
        QVERIFY(!bite.controlsEnabled());
        QCOMPARE(QString::fromStdString(bite.status()), "Command in progress, please wait!!!");
        QVERIFY(bite.statusHighlighted());
        QTRY_VERIFY_WITH_TIMEOUT(bite.controlsEnabled(), 10000);
        QCOMPARE(QString::fromStdString(bite.status()),
                 "Summary: 36 Passed, 2 Failed, 1 Not Performed");
        QVERIFY(!bite.statusHighlighted());
        QVERIFY(!bite.watchdogActive());
        QVERIFY(std::is_sorted(positions.begin(), positions.end()));
        QVERIFY(positions.size() > 2);

        // The results file: the test, the identity without the software version, the results.
        const auto file = fixture.dataDir() / "bite.txt";
        std::filesystem::create_directories(fixture.dataDir());
        QVERIFY(bite.saveResults(file, fixture.session->records().radio));
        const ProfileFile saved(file);
        QCOMPARE(saved.read("BITE", "Test"), std::string("Full test"));
        QCOMPARE(saved.read("BITE", "DSP - Boot Checksum"), std::string("Passed"));
        QCOMPARE(saved.read("Wide Information", "Serial_Number"),
                 std::string(fieldText(fixture.session->records().radio.serialNumber)));
        QVERIFY(!saved.contains("Wide Information", "Software_Version"));
        QVERIFY(saved.contains("Options", "Delete LSB"));
        QVERIFY(!saved.contains("Options", "Noise Blanker"));
    }

    void biteWithoutAnswerEndsInTheWatchdog()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        fixture.play(FaultCommand{FaultKind::NoAnswer, 0});
        BiteRunner& bite = fixture.session->bite();
        bite.setTestType(BiteTestType::LowRf);
        bite.setWatchdogMilliseconds(100);
        QSignalSpy closed(&bite, &BiteRunner::closed);
        QVERIFY(bite.run());
        QVERIFY(bite.controlsEnabled()); // the request never left
        QTRY_COMPARE(closed.count(), 1);
        QCOMPARE(texts(fixture.notifier), (QStringList{kNoResponse, kNoResponse}));
    }

    // Closed during a run, the runner is left as new: reports of the old run change nothing.
    // Closing on the summary and the next run are the window's biteOpensAfreshAfterEveryClose.
    void biteCloseLeavesTheRunnerAsNew()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        BiteRunner& bite = fixture.session->bite();
        // Cancelling the set-up question starts nothing.
        bite.setTestType(BiteTestType::Channel);
        fixture.notifier.queueAnswer(Answer::Cancel);
        QVERIFY(!bite.run());
        QCOMPARE(texts(fixture.notifier), QStringList{"Connect a dummy load or an antenna"});
        QVERIFY(!bite.isRunning() && bite.controlsEnabled());
        fixture.notifier.clear();
        bite.setTestType(BiteTestType::LowRf);
        QStringList statuses;
        connect(&bite, &BiteRunner::changed, this,
                [&] { statuses << QString::fromStdString(bite.status()); });
        QVERIFY(bite.run());
        QVERIFY(bite.isRunning());
        bite.close();
        QVERIFY(statuses.contains("Wait to perform RESET!!!"));
        const auto asNew = [&bite] {
            QVERIFY(!bite.isRunning() && !bite.watchdogActive() && bite.controlsEnabled());
            QVERIFY(bite.progress() == 0 && bite.status().empty() && bite.results().rows.empty());
        };
        asNew();

        CRadioMessage late;
        late.prepareReport();
        late.bytes[6] = op::display::SelfTestProgress;
        std::memcpy(late.bytes.data() + 7, "T: .....", 9);
        bite.onReport(late);
        late.bytes.fill(0xAA);
        late.bytes[6] = op::display::SelfTestResult;
        bite.onReport(late);
        asNew();
        QCOMPARE(texts(fixture.notifier), QStringList());
    }

    // Sections reach the radio only in programming mode, their numbers big-endian; outside it
    // the radio refuses them, the document keeps what it had and a fault is named.
    void memoryProgramming()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        dbase& document = fixture.session->records().radio;
        auto& memory = fixture.session->memory();
        const std::array<Group, kGroupCount> groups = document.groups;
        QCOMPARE(memory.writeGroups(document, groups), 0);
        QVERIFY(std::memcmp(document.groups.data(), groups.data(), sizeof groups) == 0);
        MemoryProgramming::Options options;
        options.options = document.radioOptions;
        std::memcpy(options.head.data(), &document, options.head.size());
        QCOMPARE(memory.writeOptionsReportingFaults(document, options), 0);
        QCOMPARE(texts(fixture.notifier), QStringList{"RadioOptions Programming fault!"});
        fixture.notifier.clear();

        std::array<channel, kChannelCount> channels = document.channels;
        channels[0].txFrequency.set(12345000);
        channels[0].rxFrequency.set(0x01020304);
        MessageEngine* engine = fixture.session->link().engine();
        QVERIFY(StartRADIOProgramming(engine));
        QCOMPARE(memory.writeChannels(document, channels), 1);
        QVERIFY(StopRADIOProgramming(engine));
        QCOMPARE(document.channels[0].txFrequency.get(), 12345000u);
        QCOMPARE(document.channels[0].rxFrequency.get(), 0x01020304u);
        const auto& radio = fixture.radio().databases().radio;
        const std::size_t rx = layout::kChannels + layout::kChannelRx;
        QCOMPARE((std::vector<int>{radio[rx], radio[rx + 1], radio[rx + 2], radio[rx + 3]}),
                 (std::vector<int>{1, 2, 3, 4}));

        // The options the window programs reach the radio in the window's
        // programOptionsWritesWhatTheDialogShows; here, the baud rate they carry moves the link.
        options.baudIndex = 3;
        memory.setInterMessageDelay(0);
        QCOMPARE(memory.programOptions(document, options), 1);
        QCOMPARE(texts(fixture.notifier), QStringList());
        QCOMPARE(fixture.session->link().settings().baudRate, 9600);
    }

    void commPortCheck_data()
    {
        columns<bool, QString>("silent", "message");
        QTest::newRow("radio answers")
            << false << "Communication test has been completed successfully.";
        QTest::newRow("radio switched off") << true << "Communication test failed!!!";
    }
    void commPortCheck()
    {
        auto [silent, message] = fetch<bool, QString>("silent", "message");
        // Once switched off, every radio the port makes from now on stays silent.
        std::atomic<bool> switchedOff{false};
        SessionFixture fixture([&](VirtualRadio& radio) {
            if (switchedOff)
                radio.inject({FaultKind::NoAnswer, 0});
        });
        QVERIFY(fixture.startUp());
        switchedOff = silent;
        if (silent)
            fixture.play(FaultCommand{FaultKind::NoAnswer, 0});
        CommPortEditor& editor = fixture.session->beginCommPortSetup();
        QVERIFY(fixture.session->view().busy);
        QCOMPARE(editor.selectedPort(), 1);
        if (silent)
            editor.setBaudIndex(2);
        QCOMPARE(editor.check(), silent ? 0 : 1);
        QCOMPARE(texts(fixture.notifier), QStringList{message});
        QCOMPARE(fixture.notifier.entries().front().icon,
                 silent ? Icon::Critical : Icon::Information);
        QVERIFY(fixture.session->link().reportNoResponse());
        if (silent) {
            QCOMPARE(fixture.session->link().settings().baudRate, 4800);
            fixture.session->endCommPortSetup(false);
            QCOMPARE(fixture.session->link().settings().baudRate, SessionFixture::kFastBaud);
        } else {
            editor.accept();
            fixture.session->endCommPortSetup(true);
            QVERIFY(fixture.session->view().radioReady);
            QVERIFY(fixture.session->commands().radioCommandsEnabled());
        }
        QVERIFY(!fixture.session->view().busy);
    }
    void commPortBaudSelection_data()
    {
        columns<int, bool, int>("baud", "accepted", "index");
        QTest::newRow("2400") << 2400 << true << 1;
        QTest::newRow("19200 is refused") << 19200 << false << 3;
    }
    void commPortBaudSelection()
    {
        auto [baud, accepted, index] = fetch<int, bool, int>("baud", "accepted", "index");
        SessionFixture fixture({}, 9600);
        CommPortEditor editor(fixture.session->link(), fixture.notifier);
        QCOMPARE(editor.setBaudRate(baud), accepted);
        QCOMPARE(editor.baudIndex(), index);
        QCOMPARE(texts(fixture.notifier),
                 accepted ? QStringList{} : QStringList{"Baud Rate is not correct!"});
        editor.setBaudIndex(7);
        fixture.notifier.clear();
        QCOMPARE(editor.selectedBaudRate(), 0);
        QCOMPARE(texts(fixture.notifier), QStringList{"Baud Rate Index is not correct!"});
    }
};

QTEST_GUILESS_MAIN(RadioCommandsTest)
#include "tst_radiocommands.moc"
