// The main window against the virtual radio inside the program, for what reaches the radio
// against what the window shows: options programmed from their dialog, the quick controls
// while busy, the wait cursor of Read Device, and the BITE window opened again after a run.

#include "GuiTestSupport.h"

#include "common/Texts.h"
#include "gui/BiteDialog.h"
#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/ProgressDialog.h"
#include "gui/RadioController.h"
#include "gui/RadioOptionsDialog.h"
#include "gui/RssPanel.h"
#include "koralapi/RadioRecords.h"
#include "radiosim/BuiltInRadio.h"
#include "radiosim/VirtualRadio.h"
#include "session/BiteRunner.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <atomic>
#include <vector>

using namespace koral;
using namespace koral::test;

namespace {

struct Field
{
    const char* name;
    std::size_t offset;
    std::size_t size;
};

#define HEAD(member)                                                                               \
    Field                                                                                          \
    {                                                                                              \
#member, offsetof(dbase, member), sizeof(dbase::member)                                    \
    }
#define OPTION(member)                                                                             \
    Field                                                                                          \
    {                                                                                              \
#member, offsetof(dbase, radioOptions) + offsetof(RadioOptions, member),                   \
            sizeof(RadioOptions::member)                                                           \
    }

// Every field that "Program Options" writes: the head, the options and the accessory bytes.
const Field kProgrammedFields[] = {HEAD(softwareVersion),
                                   HEAD(reserved1),
                                   HEAD(serialNumber),
                                   HEAD(radioCode),
                                   HEAD(hardwareVersion),
                                   HEAD(controlHeadSoftwareVersion),
                                   HEAD(controlHeadHardwareVersion),
                                   HEAD(options),
                                   HEAD(ecn),
                                   HEAD(sp),
                                   HEAD(reserved2),
                                   HEAD(language),
                                   HEAD(reserved3),
                                   OPTION(priorityChannel),
                                   OPTION(cwPttHold),
                                   OPTION(scanRate),
                                   OPTION(dataPowerLevel),
                                   OPTION(alertTone),
                                   OPTION(alternateDisplayTime),
                                   OPTION(accessorySideTone),
                                   OPTION(microphoneSideTone),
                                   OPTION(beepAfterKeyboardPress),
                                   OPTION(beepAfterPttRelease),
                                   OPTION(frequencyDisplay),
                                   OPTION(baudRate),
                                   OPTION(noiseBlanker),
                                   HEAD(accessoryInstalled),
                                   HEAD(tuner)};

#undef HEAD
#undef OPTION

} // namespace

class MainWindowCommandsTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    std::unique_ptr<MainWindow> m_window;
    std::atomic<radiosim::VirtualRadio*> m_radio{nullptr};
    QStringList m_status;

    RadioController* radio() { return m_window->radio(); }
    RssPanel* panel() { return m_window->rssPanel(); }

    // The radio's memory in the program's byte order.
    std::vector<std::uint8_t> radioMemory()
    {
        const auto& memory = m_radio.load()->databases().radio;
        std::vector<std::uint8_t> bytes(memory.begin(), memory.end());
        convertByteOrder(TransferTarget::Radio, bytes);
        return bytes;
    }

    // Opens the BITE window, lets `act` drive it, and makes sure it is closed afterwards.
    void withBite(const std::function<void(BiteDialog*)>& act)
    {
        QObject context;
        bool shown = false;
        connect(radio(), &RadioController::biteOpened, &context, [&](BiteDialog* dialog) {
            shown = true;
            QTimer::singleShot(0, dialog, [dialog, act] {
                act(dialog);
                if (dialog->isVisible())
                    dialog->reject();
            });
        });
        m_window->command("bite")->trigger();
        QVERIFY(shown);
    }

private slots:
    void initTestCase()
    {
        // CommPort.txt is kept in the start-up folder: keep it out of the build tree.
        QVERIFY(m_dir.isValid());
        QDir::setCurrent(m_dir.path());
        radiosim::BuiltInRadioOptions options;
        options.paced = false;
        options.onCreated = [this](radiosim::VirtualRadio& created) {
            created.setStepInterval(std::chrono::milliseconds(20));
            m_radio = &created;
        };
        radiosim::installBuiltInRadio(options);
        MessageBoxNotifier::setAutomatic(true);

        MainWindowOptions windowOptions;
        windowOptions.dataDirectory = m_dir.filePath("data");
        m_window = std::make_unique<MainWindow>(windowOptions);
        connect(panel(), &RssPanel::statusMessage, this,
                [this](const QString& text) { m_status << text; });
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QTRY_VERIFY_WITH_TIMEOUT(radio()->session().view().radioReady && !radio()->isBusy(), 90000);
    }
    void init()
    {
        MessageBoxNotifier::clearShownTexts();
        m_status.clear();
    }
    void cleanupTestCase()
    {
        panel()->document().markClean();
        m_window.reset();
    }

    void programOptionsWritesWhatTheDialogShows()
    {
        RssDocument& document = panel()->document();
        // Bytes the lists cannot show, as a radio may hold them.
        document.record.radioOptions.alternateDisplayTime = 0;
        document.record.radioOptions.dataPowerLevel = 9;
        const bool isb = document.isb;
        onNextDialog<RadioOptionsDialog>([](RadioOptionsDialog* dialog) {
            QCOMPARE(dialog->combo("alternateDisplay")->currentIndex(), -1);
            QCOMPARE(dialog->combo("dataPower")->currentIndex(), -1);
            dialog->combo("priority")->setCurrentIndex(10);
            dialog->combo("scanRate")->setCurrentIndex(2);
            dialog->combo("cwPttHold")->setCurrentIndex(0);
            dialog->combo("language")->setCurrentIndex(1);
            dialog->check("beepPtt")->toggle();
            dialog->check("hideFrequency")->toggle();
            dialog->check("isb")->toggle();
            dialog->check("tuner")->click();
            QTest::mouseClick(dialog->programButton(), Qt::LeftButton);
            dialog->reject();
        });
        panel()->editRadioOptions();
        QCOMPARE(MessageBoxNotifier::shownTexts(), QStringList());
        QCOMPARE(m_status, QStringList{"The Operation Completed Successful"});
        QCOMPARE(document.isb, isb);

        const dbase& shown = document.record;
        QCOMPARE(int(shown.radioOptions.alternateDisplayTime), 5);
        QCOMPARE(int(shown.radioOptions.dataPowerLevel), 2);
        QCOMPARE(int(shown.radioOptions.priorityChannel.get()), 11);
        QCOMPARE(int(shown.radioOptions.scanRate), 3);
        const std::vector<std::uint8_t> memory = radioMemory();
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(&shown);
        for (const Field& field : kProgrammedFields) {
            const QByteArray inRadio(reinterpret_cast<const char*>(memory.data() + field.offset),
                                     qsizetype(field.size));
            const QByteArray inWindow(reinterpret_cast<const char*>(bytes + field.offset),
                                      qsizetype(field.size));
            QVERIFY2(inRadio == inWindow,
                     qPrintable(QStringLiteral("%1: radio %2, window %3")
                                    .arg(field.name, inRadio.toHex(), inWindow.toHex())));
        }
    }

    void programOptionsFailureOnlySetsTheStatus()
    {
        m_radio.load()->executeFromAnyThread(
            radiosim::FaultCommand{radiosim::FaultKind::Reject, 136}); // start programming
        onNextDialog<RadioOptionsDialog>([](RadioOptionsDialog* dialog) {
            QTest::mouseClick(dialog->programButton(), Qt::LeftButton);
            dialog->reject();
        });
        panel()->editRadioOptions();
        m_radio.load()->executeFromAnyThread(radiosim::ClearFaults{});
        QCOMPARE(MessageBoxNotifier::shownTexts(), QStringList());
        QCOMPARE(m_status, QStringList{"Last command was not completed successfully."});
    }

    void attenuatorAndClipperStayEnabledWhileBusy()
    {
        ViewCommands& commands = radio()->session().commands();
        QStringList enabled;
        commands.beginBusy();
        for (const QString name : {"squelch", "monitor", "noiseBlanker", "attenuator", "clipper"})
            if (m_window->command(name)->isEnabled())
                enabled << name;
        commands.endBusy();
        QCOMPARE(enabled, (QStringList{"attenuator", "clipper"}));
        QVERIFY(m_window->command("squelch")->isEnabled());
    }

    void readDeviceShowsTheWaitCursor()
    {
        panel()->document().markClean();
        QList<Qt::CursorShape> shapes;
        connect(radio()->progressDialog(), &ProgressDialog::captionChanged, this, [&shapes] {
            const QCursor* cursor = QApplication::overrideCursor();
            shapes << (cursor ? cursor->shape() : Qt::ArrowCursor);
        });
        m_window->command("readDevice")->trigger();
        disconnect(radio()->progressDialog(), &ProgressDialog::captionChanged, this, nullptr);
        QVERIFY(!shapes.isEmpty());
        QVERIFY(std::all_of(shapes.begin(), shapes.end(),
                            [](Qt::CursorShape shape) { return shape == Qt::WaitCursor; }));
        QVERIFY(!QApplication::overrideCursor());
        QVERIFY(radio()->session().view().radioReady);
    }

    // Closed in the middle of a run, then after a finished one: each next window starts
    // afresh and runs.
    void biteOpensAfreshAfterEveryClose()
    {
        BiteRunner& runner = radio()->session().bite();
        const auto startsAfresh = [](BiteDialog* dialog) {
            QVERIFY(dialog->runButton()->isEnabled());
            QVERIFY(!dialog->saveButton()->isEnabled());
            QCOMPARE(dialog->results()->topLevelItemCount(), 0);
            QCOMPARE(dialog->progressBar()->value(), 0);
            QCOMPARE(dialog->statusLine()->text(), QString());
        };
        withBite([&](BiteDialog* dialog) {
            startsAfresh(dialog);
            dialog->testTypes()->button(2)->click(); // low RF: nothing to confirm
            QTest::mouseClick(dialog->runButton(), Qt::LeftButton);
            QVERIFY(runner.isRunning());
            dialog->reject();
            QVERIFY(!dialog->isVisible());
        });
        withBite([&](BiteDialog* dialog) {
            startsAfresh(dialog);
            QTest::mouseClick(dialog->runButton(), Qt::LeftButton);
            QTRY_VERIFY_WITH_TIMEOUT(!runner.isRunning(), 60000);
            QVERIFY(dialog->statusLine()->text().startsWith(QStringLiteral("Summary: ")));
            QVERIFY(dialog->saveButton()->isEnabled());
        });
        withBite(startsAfresh);
        QCOMPARE(MessageBoxNotifier::shownTexts(), QStringList());
    }
};

QTEST_MAIN(MainWindowCommandsTest)
#include "tst_mainwindowcommands.moc"
