// The main window against the virtual radio inside the program: the start-up read, the quick
// controls, the Communication Ports dialog, the options programmed from their dialog, a
// write verified by reading it back, and the built-in test.

#include "GuiTestSupport.h"

#include "gui/BiteDialog.h"
#include "gui/CommPortDialog.h"
#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/ProgressDialog.h"
#include "gui/RadioController.h"
#include "gui/RadioOptionsDialog.h"
#include "gui/RssPanel.h"
#include "radiosim/BuiltInRadio.h"
#include "session/BiteRunner.h"

#include <QButtonGroup>

#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>

using namespace koral;
using namespace koral::test;

class MainWindowRadioTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    std::unique_ptr<MainWindow> m_window;
    QStringList m_captions;
    bool m_progressShot = false;

    RadioController* radio() { return m_window->radio(); }
    RssPanel* panel() { return m_window->rssPanel(); }

private slots:
    void initTestCase()
    {
        // CommPort.txt is kept in the start-up folder: keep it out of the build tree.
        QVERIFY(m_dir.isValid());
        QDir::setCurrent(m_dir.path());
        radiosim::BuiltInRadioOptions options;
        options.paced = false;
        radiosim::installBuiltInRadio(options);
        MessageBoxNotifier::setAutomatic(true);

        MainWindowOptions windowOptions;
        windowOptions.dataDirectory = m_dir.filePath("data");
        m_window = std::make_unique<MainWindow>(windowOptions);
        connect(radio()->progressDialog(), &QDialog::windowTitleChanged, this,
                [this](const QString& title) { m_captions << title; });
        connect(radio()->progressDialog(), &ProgressDialog::captionChanged, this,
                [this](const QString& caption) {
                    if (caption == QStringLiteral("Reading Channels Section") && !m_progressShot) {
                        m_progressShot = true;
                        screenshot(radio()->progressDialog(), "progress");
                    }
                });
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }
    void cleanupTestCase()
    {
        panel()->document().markClean();
        m_window.reset();
    }

    void startUpReadsTheRadio()
    {
        QTRY_VERIFY_WITH_TIMEOUT(radio()->session().view().radioReady && !radio()->isBusy(), 90000);
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
        QVERIFY(m_captions.contains(QStringLiteral("Radio Data Base")));
        QVERIFY(radio()->progressDialog()->caption().startsWith(QStringLiteral("Reading ")));
        const dbase& read = radio()->session().records().radio;
        QCOMPARE(std::memcmp(&panel()->document().record, &read, sizeof(dbase)), 0);
        QVERIFY(!panel()->document().isModified());
        const QString serial = QString::fromStdString(std::string(fieldText(read.serialNumber)));
        QVERIFY(!serial.isEmpty());
        QCOMPARE(m_window->statusPane(10)->text(), QStringLiteral("S/N: ") + serial);
        QCOMPARE(m_window->statusPane(12)->text(), QStringLiteral("COM: 1,9600"));
        QCOMPARE(m_window->windowTitle(), QStringLiteral("RSS Panel"));
        QVERIFY(m_window->command("readDevice")->isEnabled());
        QVERIFY(m_window->command("squelch")->isEnabled());
        screenshot(m_window.get(), "main-window-radio");
    }

    void squelchFollowsTheToggle()
    {
        QAction* squelch = m_window->command("squelch");
        const bool before = squelch->isChecked();
        squelch->trigger();
        QCOMPARE(squelch->isChecked(), !before);
        QCOMPARE(radio()->session().commands().state(ViewCommands::Toggle::Squelch), !before);
        squelch->trigger();
        QCOMPARE(squelch->isChecked(), before);
    }

    void communicationPortsCheckAndCancel()
    {
        onNextDialog<CommPortDialog>([](CommPortDialog* dialog) {
            QCOMPARE(dialog->portList()->currentIndex(), 0);
            QCOMPARE(dialog->baudButtons()->checkedId(), 3);
            screenshot(dialog, "comm-ports");
            dialog->check();
            dialog->reject();
        });
        MessageBoxNotifier::clearShownTexts();
        m_window->command("commPort")->trigger();
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{"Communication test has been completed successfully."});
        QVERIFY(radio()->session().view().radioReady);
        QVERIFY(!radio()->isBusy());
    }

    void optionsProgrammedAndWriteVerifiedByReadingBack()
    {
        onNextDialog<RadioOptionsDialog>([](RadioOptionsDialog* dialog) {
            QVERIFY(dialog->programButton());
            dialog->combo("scanRate")->setCurrentIndex(4); // 5 Ch/Sec
            QTest::mouseClick(dialog->programButton(), Qt::LeftButton);
            dialog->reject();
        });
        panel()->editRadioOptions();
        QCOMPARE(int(panel()->document().record.radioOptions.scanRate), 5);

        // A channel edited in the program goes to the radio with Write Device.
        RssDocument& document = panel()->document();
        channel& ch = document.record.channelNo(150);
        ch.txFrequency.set(21'123'450);
        ch.rxFrequency.set(21'123'450);
        m_window->command("writeDevice")->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(!radio()->isBusy(), 60000);
        QVERIFY(m_captions.contains(QStringLiteral("Radio Data Base")));

        // Read it back, over the local edits (answering that they need no saving).
        document.record.channelNo(150).txFrequency.set(0);
        document.record.radioOptions.scanRate = 1;
        MessageBoxNotifier::clearShownTexts();
        MessageBoxNotifier::queueAnswer(Answer::No);
        m_window->command("readDevice")->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(!radio()->isBusy(), 60000);
        QCOMPARE(
            MessageBoxNotifier::shownTexts().value(0),
            QStringLiteral("The radio database has changes that were not saved. Save them first?"));
        QCOMPARE(document.record.channelNo(150).txFrequency.get(), 21'123'450u);
        QCOMPARE(int(document.record.radioOptions.scanRate), 5);
    }

    void biteRunsToItsSummaryAndSaves()
    {
        BiteDialog* shown = nullptr;
        const QString file = m_dir.filePath("bite.txt");
        BiteRunner& runner = radio()->session().bite();
        connect(
            radio(), &RadioController::biteOpened, this,
            [&shown, &runner, file](BiteDialog* dialog) {
                shown = dialog;
                QTimer::singleShot(0, dialog, [dialog, &runner, file] {
                    dialog->testTypes()->button(0)->click();
                    QCOMPARE(dialog->hintLine()->text(), QStringLiteral("Connect a dummy load"));
                    dialog->testTypes()->button(2)->click();
                    QCOMPARE(dialog->hintLine()->text(), QString());
                    QTest::mouseClick(dialog->runButton(), Qt::LeftButton);
                    QVERIFY(runner.isRunning());
                    QVERIFY(!dialog->runButton()->isEnabled());
                    QTRY_VERIFY_WITH_TIMEOUT(!runner.isRunning(), 60000);
                    QVERIFY(dialog->statusLine()->text().startsWith(QStringLiteral("Summary: ")));
                    QCOMPARE(dialog->progressBar()->value(), 12);
                    QVERIFY(dialog->results()->topLevelItemCount() > 0);
                    screenshot(dialog, "bite");
                    FileDialogs::queueFileName(file);
                    QVERIFY(dialog->saveResults());
                    dialog->reject();
                });
            });
        m_window->command("bite")->trigger();
        QVERIFY(shown);
        QFile saved(file);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        const QByteArray content = saved.readAll();
        QVERIFY(content.contains("[BITE]"));
        QVERIFY(content.contains("Test=Low RF Test"));
    }
};

QTEST_MAIN(MainWindowRadioTest)
#include "tst_mainwindowradio.moc"
