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
        QTest::addColumn<bool>("busy");
        QTest::addColumn<bool>("linkPending");
        QTest::addColumn<QList<bool>>("enabled"); // squelch, blanker, attenuator, clipper, read
        QTest::newRow("idle") << false << false << QList<bool>{true, true, true, true, true};
        QTest::newRow("busy: attenuator and clipper stay")
            << true << false << QList<bool>{false, false, true, true, false};
        QTest::newRow("link required, not linked")
            << false << true << QList<bool>{true, false, false, false, true};
    }
    void enableRules()
    {
        QFETCH(bool, busy);
        QFETCH(bool, linkPending);
        QFETCH(QList<bool>, enabled);
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

    void monitorFollowsTheAleState_data()
    {
        QTest::addColumn<bool>("ccir");
        QTest::addColumn<int>("aleState");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("ALE on") << false << 1 << true;
        QTest::newRow("ALE off") << false << 0 << false;
        QTest::newRow("ALE off, state 2, not CCIR") << false << 2 << false;
        QTest::newRow("CCIR, state 2") << true << 2 << true;
    }
    void monitorFollowsTheAleState()
    {
        QFETCH(bool, ccir);
        QFETCH(int, aleState);
        QFETCH(bool, enabled);
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& flags = fixture.session->flags();
        flags.ccirMode = ccir;
        flags.aleState = std::uint8_t(aleState);
        flags.aleOff = aleState != 1;
        QCOMPARE(fixture.session->commands().isEnabled(ViewCommands::Command::Monitor), enabled);
    }

    void dspSlidersSendWhatTheyShow()
    {
        using Kind = DspSlider::Kind;
        using Scroll = DspSlider::Scroll;
        enum Action
        {
            Move,
            Up,
            Off,
            Disable
        };
        // Each row starts where the previous one left the slider and the radio.
        struct Row
        {
            const char* name;
            Kind kind;
            Action action;
            int position;
            Scroll how;
            int shown;
            int radio; // the clarifier as a signed value, the notch as its step index
        };
        const Row rows[] = {
            {"15 rounds up", Kind::Clarifier, Move, 15, Scroll::LineDown, 20, 20},
            {"-15 rounds away from zero", Kind::Clarifier, Move, -15, Scroll::PageUp, -20, -20},
            {"14 rounds down", Kind::Clarifier, Move, 14, Scroll::ThumbPosition, 10, 10},
            {"dragging sends nothing", Kind::Clarifier, Move, 37, Scroll::ThumbTrack, 40, 10},
            {"end of scroll sends nothing", Kind::Clarifier, Move, 90, Scroll::EndScroll, 90, 10},
            {"a step from the top stays there", Kind::Clarifier, Move, 200, Scroll::LineDown, 200,
             200},
            {"step up at the top", Kind::Clarifier, Up, 0, Scroll::LineDown, 200, 200},
            {"zero", Kind::Clarifier, Off, 0, Scroll::ThumbPosition, 0, 0},
            {"50 then disabled", Kind::Clarifier, Move, 50, Scroll::LineUp, 50, 50},
            {"disabling tells the radio nothing", Kind::Clarifier, Disable, 0, Scroll::LineUp, 0,
             50},
            {"notch 420 is step 1", Kind::Notch, Move, 420, Scroll::ThumbPosition, 540, 1},
            {"notch 419 is off", Kind::Notch, Move, 419, Scroll::ThumbPosition, 300, 0},
            {"notch top", Kind::Notch, Move, 2700, Scroll::PageDown, 2700, 10},
            {"notch step up clamps", Kind::Notch, Up, 0, Scroll::LineDown, 2700, 10},
            {"notch dragged", Kind::Notch, Move, 1500, Scroll::ThumbTrack, 1500, 10},
            {"notch off", Kind::Notch, Off, 0, Scroll::ThumbPosition, 300, 0},
        };
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& session = *fixture.session;
        session.clarifier().setEnabled(true);
        session.notch().setEnabled(true);
        for (const Row& row : rows) {
            DspSlider& slider = row.kind == Kind::Clarifier ? session.clarifier() : session.notch();
            switch (row.action) {
            case Move:
                slider.scroll(row.position, row.how);
                break;
            case Up:
                slider.stepUp();
                break;
            case Off:
                slider.toOff();
                break;
            case Disable:
                slider.setEnabled(false);
                break;
            }
            QVERIFY2(slider.position() == row.shown, row.name);
            CRadioMessage reply;
            if (row.kind == Kind::Clarifier) {
                QVERIFY(
                    session.link().query(&ReportClarifierPosition, op::ClarifierPosition, reply));
                const int value = reply[6] == 1 ? reply[7] : reply[6] == 2 ? -reply[7] : 0;
                QVERIFY2(value == row.radio, row.name);
            } else {
                QVERIFY(session.link().query(&ReportDspMenuParameters, op::DspParameters, reply));
                QVERIFY2(reply[6] == row.radio, row.name);
            }
        }
        QCOMPARE(texts(fixture.notifier), QStringList());
    }

    void remoteControlAlternates()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& commands = fixture.session->commands();
        QVERIFY(!commands.isChecked(ViewCommands::Command::RemoteControl));
        QCOMPARE(commands.toggleRemoteMode(), 1);
        QCOMPARE(fixture.session->view().remoteMode, 0);
        QVERIFY(commands.isChecked(ViewCommands::Command::RemoteControl));
        QCOMPARE(commands.toggleRemoteMode(), 1);
        QCOMPARE(fixture.session->view().remoteMode, 2);
    }

    void resetShowsTheNoticesAndEndsBusy()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        auto& commands = fixture.session->commands();
        commands.setNoticeMilliseconds(50);
        QSignalSpy busy(&commands, &ViewCommands::busyChanged);
        QSignalSpy notices(&commands, &ViewCommands::noticeChanged);
        commands.performReset();
        QCOMPARE(busy.count(), 2);
        QVERIFY(!fixture.session->view().busy);
        QVERIFY(commands.closeEnabled());
        QVERIFY(commands.statusText().empty());
        QVERIFY(!commands.isNoticeShown(ViewCommands::Notice::PleaseWait));
        QVERIFY(commands.isNoticeShown(ViewCommands::Notice::Completed));
        QTRY_VERIFY(!commands.isNoticeShown(ViewCommands::Notice::Completed));
        QCOMPARE(notices.count(), 4); // please wait on, off; completed on, off
        QVERIFY(commands.radioCommandsEnabled());
        QCOMPARE(texts(fixture.notifier), QStringList());
    }

    void resetWithoutAPortSaysNoResponse()
    {
        SessionFixture fixture;
        fixture.session->commands().performReset();
        QCOMPARE(texts(fixture.notifier), QStringList{kNoResponse});
        QVERIFY(!fixture.session->view().busy);
    }

    void busyBracket()
    {
        SessionFixture fixture;
        auto& commands = fixture.session->commands();
        commands.beginBusy();
        QCOMPARE(QString::fromStdString(commands.statusText()),
                 "Command in progress, please wait!!!");
        QVERIFY(!commands.closeEnabled());
        commands.endBusy();
        QVERIFY(commands.statusText().empty());
        QVERIFY(commands.closeEnabled());
    }

    void rejectedCommands_data()
    {
        QTest::addColumn<int>("opcode");
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("aborted");
        QTest::newRow("self test") << 27 << "Can not perform Self Test." << false;
        QTest::newRow("all call") << 71 << "Can not perform Priority Call." << true;
        QTest::newRow("station call") << 69 << "Can not perform Station Call." << true;
        QTest::newRow("bidirectional net") << 68 << "Can not perform BiDirectional To Net." << true;
        QTest::newRow("not in the table") << 100 << "" << false;
    }
    void rejectedCommands()
    {
        QFETCH(int, opcode);
        QFETCH(QString, message);
        QFETCH(bool, aborted);
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        fixture.play(FaultCommand{FaultKind::Reject, unsigned(opcode)});
        auto& dispatcher = fixture.session->dispatcher();
        QSignalSpy bite(&dispatcher, &MessageDispatcher::selfTestRejected);
        CRadioMessage request;
        request.prepareRequest();
        switch (opcode) {
        case 27:
            PerformSelfTest(&request, 2);
            break;
        case 68:
            BiDirectionalNet(&request, "NET", 4, std::array<signed char, 2>{-1, -1}.data(), "", 0);
            break;
        case 69:
            StationCall(&request, "BASE", 5, std::array<signed char, 2>{-1, -1}.data(), "", 0);
            break;
        case 71:
            AllCall(&request, std::array<signed char, 2>{-1, -1}.data(), "", 0);
            break;
        default:
            SetActiveChannel(&request, 0, 3);
            break;
        }
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

    void biteSummaries_data()
    {
        QTest::addColumn<QList<int>>("failed");
        QTest::addColumn<QList<int>>("unable");
        QTest::addColumn<QString>("summary");
        QTest::newRow("all passed")
            << QList<int>{} << QList<int>{} << "Summary: 39 Passed, 0 Failed, 0 Not Performed";
        QTest::newRow("mixed") << QList<int>{2, 30} << QList<int>{39}
                               << "Summary: 36 Passed, 2 Failed, 1 Not Performed";
    }
    void biteSummaries()
    {
        QFETCH(QList<int>, failed);
        QFETCH(QList<int>, unable);
        QFETCH(QString, summary);
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        if (!failed.isEmpty())
            fixture.play(SelfTestOutcome{SelfTestOutcome::Result::Failed,
                                         std::vector<unsigned>(failed.begin(), failed.end())});
        if (!unable.isEmpty())
            fixture.play(SelfTestOutcome{SelfTestOutcome::Result::Unable,
                                         std::vector<unsigned>(unable.begin(), unable.end())});
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
        QCOMPARE(QString::fromStdString(bite.status()), summary);
        QVERIFY(!bite.statusHighlighted());
        QCOMPARE(bite.progress(), 12);
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

    void biteCancelledSetUpSendsNothing()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        BiteRunner& bite = fixture.session->bite();
        bite.setTestType(BiteTestType::Channel);
        fixture.notifier.queueAnswer(Answer::Cancel);
        QVERIFY(!bite.run());
        QCOMPARE(texts(fixture.notifier), QStringList{"Connect a dummy load or an antenna"});
        QVERIFY(!bite.isRunning());
        QVERIFY(bite.controlsEnabled());
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

    // Whatever the window showed when it closed, the runner is left as new: reports of the
    // old run change nothing, and the next run goes to its summary.
    void biteCloseLeavesTheRunnerAsNew_data()
    {
        QTest::addColumn<bool>("midRun");
        QTest::newRow("closed during the run") << true;
        QTest::newRow("closed on the summary") << false;
    }
    void biteCloseLeavesTheRunnerAsNew()
    {
        QFETCH(bool, midRun);
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        BiteRunner& bite = fixture.session->bite();
        bite.setTestType(BiteTestType::LowRf);
        QStringList statuses;
        connect(&bite, &BiteRunner::changed, this,
                [&] { statuses << QString::fromStdString(bite.status()); });
        QVERIFY(bite.run());
        if (!midRun)
            QTRY_VERIFY_WITH_TIMEOUT(!bite.isRunning(), 10000);
        QCOMPARE(bite.isRunning(), midRun);
        bite.close();
        QCOMPARE(statuses.contains("Wait to perform RESET!!!"), midRun);
        const auto asNew = [&bite] {
            QVERIFY(!bite.isRunning());
            QVERIFY(!bite.watchdogActive());
            QVERIFY(bite.controlsEnabled());
            QCOMPARE(bite.progress(), 0);
            QVERIFY(bite.status().empty());
            QVERIFY(bite.results().rows.empty());
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

        QVERIFY(bite.run());
        QTRY_VERIFY_WITH_TIMEOUT(!bite.isRunning(), 10000);
        QVERIFY(QString::fromStdString(bite.status()).startsWith("Summary: "));
        QCOMPARE(texts(fixture.notifier), QStringList());
    }

    void channelsGoToTheRadioBigEndian()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        dbase& document = fixture.session->records().radio;
        std::array<channel, kChannelCount> channels = document.channels;
        channels[0].txFrequency.set(12345000);
        channels[0].rxFrequency.set(0x01020304);
        MessageEngine* engine = fixture.session->link().engine();
        QVERIFY(StartRADIOProgramming(engine));
        QCOMPARE(fixture.session->memory().writeChannels(document, channels), 1);
        QCOMPARE(document.channels[0].txFrequency.get(), 12345000u);
        QCOMPARE(document.channels[0].rxFrequency.get(), 0x01020304u);
        QVERIFY(StopRADIOProgramming(engine));
        const auto& memory = fixture.radio().databases().radio;
        const std::size_t rx = layout::kChannels + layout::kChannelRx;
        QCOMPARE((std::vector<int>{memory[rx], memory[rx + 1], memory[rx + 2], memory[rx + 3]}),
                 (std::vector<int>{1, 2, 3, 4}));
    }

    void sectionWriteOutsideProgrammingFails()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        dbase& document = fixture.session->records().radio;
        const std::array<Group, kGroupCount> groups = document.groups;
        QCOMPARE(fixture.session->memory().writeGroups(document, groups), 0);
        QVERIFY(std::memcmp(document.groups.data(), groups.data(), sizeof groups) == 0);
    }

    void optionsProgramming()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        dbase& document = fixture.session->records().radio;
        MemoryProgramming::Options options;
        options.options = document.radioOptions;
        options.options.priorityChannel.set(1);
        std::memcpy(options.head.data(), &document, options.head.size());
        options.baudIndex = 3;
        auto& memory = fixture.session->memory();
        memory.setInterMessageDelay(0);
        QCOMPARE(memory.programOptions(document, options), 1);
        QCOMPARE(texts(fixture.notifier), QStringList());
        const auto& radio = fixture.radio().databases().radio;
        QCOMPARE(int(radio[layout::kRadioOptions]), 0);
        QCOMPARE(int(radio[layout::kRadioOptions + 1]), 1);
        QCOMPARE(document.radioOptions.priorityChannel.get(), 1);
        QCOMPARE(fixture.session->link().settings().baudRate, 9600);
    }

    void optionsFaultIsNamed()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        dbase& document = fixture.session->records().radio;
        MemoryProgramming::Options options;
        options.options = document.radioOptions;
        std::memcpy(options.head.data(), &document, options.head.size());
        // Outside programming mode the radio refuses the first section.
        QCOMPARE(fixture.session->memory().writeOptionsReportingFaults(document, options), 0);
        QCOMPARE(texts(fixture.notifier), QStringList{"RadioOptions Programming fault!"});
    }

    void commPortCheckAgainstASilentRadio()
    {
        // The radio is switched off: every radio the port makes from now on stays silent.
        std::atomic<bool> switchedOff{false};
        SessionFixture fixture([&](VirtualRadio& radio) {
            if (switchedOff)
                radio.inject({FaultKind::NoAnswer, 0});
        });
        QVERIFY(fixture.startUp());
        switchedOff = true;
        fixture.play(FaultCommand{FaultKind::NoAnswer, 0});
        CommPortEditor& editor = fixture.session->beginCommPortSetup();
        QVERIFY(fixture.session->view().busy);
        QCOMPARE(editor.selectedPort(), 1);
        editor.setBaudIndex(2);
        QCOMPARE(editor.check(), 0);
        QCOMPARE(texts(fixture.notifier), QStringList{"Communication test failed!!!"});
        QCOMPARE(fixture.notifier.entries().front().icon, Icon::Critical);
        QVERIFY(fixture.session->link().reportNoResponse());
        QCOMPARE(fixture.session->link().settings().baudRate, 4800);
        fixture.session->endCommPortSetup(false);
        QCOMPARE(fixture.session->link().settings().baudRate, SessionFixture::kFastBaud);
        QVERIFY(!fixture.session->view().busy);
    }

    void commPortCheckPasses()
    {
        SessionFixture fixture;
        QVERIFY(fixture.startUp());
        CommPortEditor& editor = fixture.session->beginCommPortSetup();
        QCOMPARE(editor.check(), 1);
        QCOMPARE(texts(fixture.notifier),
                 QStringList{"Communication test has been completed successfully."});
        QCOMPARE(fixture.notifier.entries().front().icon, Icon::Information);
        editor.accept();
        fixture.session->endCommPortSetup(true);
        QVERIFY(fixture.session->view().radioReady);
        QVERIFY(fixture.session->commands().radioCommandsEnabled());
    }

    void commPortBaudSelection_data()
    {
        QTest::addColumn<int>("baud");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<int>("index");
        QTest::newRow("2400") << 2400 << true << 1;
        QTest::newRow("19200 is refused") << 19200 << false << 3;
    }
    void commPortBaudSelection()
    {
        QFETCH(int, baud);
        QFETCH(bool, accepted);
        QFETCH(int, index);
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
