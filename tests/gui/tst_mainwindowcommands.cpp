// The main window against the virtual radio inside the program, for what reaches the radio
// against what the window shows: options programmed from their dialog, the quick controls
// while busy, the wait cursor of Read Device, and the BITE window opened again after a run.

#include "GuiTestSupport.h"
#include "RadioWindow.h"

#include "common/Texts.h"
#include "gui/BiteDialog.h"
#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/ProgressDialog.h"
#include "gui/RadioController.h"
#include "gui/RadioOptionsDialog.h"
#include "gui/RssPanel.h"
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

using namespace koral;
using namespace koral::test;

class MainWindowCommandsTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    VirtualRadioMemory m_memory;
    std::unique_ptr<MainWindow> m_window;
    QStringList m_status;

    RadioController* radio() { return m_window->radio(); }
    RssPanel* panel() { return m_window->rssPanel(); }

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
        m_window = windowOnVirtualRadio(m_dir, m_memory, 20);
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

        const RadioOptions& shown = document.record.radioOptions;
        QCOMPARE(int(shown.alternateDisplayTime), 5);
        QCOMPARE(int(shown.dataPowerLevel), 2);
        QCOMPARE(int(shown.priorityChannel.get()), 11);
        QCOMPARE(int(shown.scanRate), 3);
        QCOMPARE(m_memory.differenceFrom(document.record), QString());
    }

    void programOptionsFailureOnlySetsTheStatus()
    {
        m_memory.onRadio([](radiosim::VirtualRadio& radio) {
            radio.inject(radiosim::FaultCommand{radiosim::FaultKind::Reject, 136}); // programming
        });
        onNextDialog<RadioOptionsDialog>([](RadioOptionsDialog* dialog) {
            QTest::mouseClick(dialog->programButton(), Qt::LeftButton);
            dialog->reject();
        });
        panel()->editRadioOptions();
        m_memory.onRadio([](radiosim::VirtualRadio& radio) { radio.clearFaults(); });
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

    // Closed in the middle of a run, then after a finished one (its results saved): each next
    // window starts afresh and runs.
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
        const QString file = m_dir.filePath("bite.txt");
        withBite([&](BiteDialog* dialog) {
            startsAfresh(dialog);
            dialog->testTypes()->button(0)->click();
            QCOMPARE(dialog->hintLine()->text(), QStringLiteral("Connect a dummy load"));
            dialog->testTypes()->button(2)->click();
            QCOMPARE(dialog->hintLine()->text(), QString());
            QTest::mouseClick(dialog->runButton(), Qt::LeftButton);
            QVERIFY(!dialog->runButton()->isEnabled());
            QTRY_VERIFY_WITH_TIMEOUT(!runner.isRunning(), 60000);
            QVERIFY(dialog->statusLine()->text().startsWith(QStringLiteral("Summary: ")));
            QCOMPARE(dialog->progressBar()->value(), 12);
            QVERIFY(dialog->results()->topLevelItemCount() > 0);
            screenshot(dialog, "bite");
            FileDialogs::queueFileName(file);
            QVERIFY(dialog->saveResults());
        });
        withBite(startsAfresh);
        QCOMPARE(MessageBoxNotifier::shownTexts(), QStringList());
        const QByteArray saved = bytesOf(file);
        QVERIFY(saved.contains("[BITE]") && saved.contains("Test=Low RF Test"));
    }
};

QTEST_MAIN(MainWindowCommandsTest)
#include "tst_mainwindowcommands.moc"
