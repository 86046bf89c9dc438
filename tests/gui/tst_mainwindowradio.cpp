// The main window against the virtual radio inside the program: the start-up read, the quick
// controls, the Communication Ports dialog, the Link Trace, every command that writes to the
// radio (what reaches the radio is compared with what the window shows), Read Device's cancel
// and its all-channels case.

#include "GuiTestSupport.h"
#include "RadioWindow.h"

#include "common/Texts.h"
#include "gui/AlePanel.h"
#include "gui/BackupsDialog.h"
#include "gui/CcirPanel.h"
#include "gui/CcirSelfAddressDialog.h"
#include "gui/ChannelConfigDialog.h"
#include "gui/CommPortDialog.h"
#include "gui/CompareDialog.h"
#include "gui/GroupsDialog.h"
#include "gui/LinkTraceModel.h"
#include "gui/LinkTraceWindow.h"
#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/ProgressDialog.h"
#include "gui/RadioController.h"
#include "gui/RssPanel.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>

using namespace koral;
using namespace koral::test;

namespace {

// Makes the dialog's channel simplex and types `mhz` as its frequency, as a user would.
void typeSimplex(ChannelConfigDialog* dialog, const char* mhz)
{
    dialog->typeButton(ChannelConfigEditor::FrequencyType::Simplex)->click();
    QLineEdit* edit = dialog->edit(ChannelConfigEditor::Edit::Simplex);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, mhz);
}

} // namespace

class MainWindowRadioTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    VirtualRadioMemory m_memory;
    std::unique_ptr<MainWindow> m_window;
    QString m_startUpBanner;
    // What the last comparison showed, and how the next one before a write is answered.
    QStringList m_compared;
    bool m_confirmWrite = true;

    RadioController* radio() { return m_window->radio(); }
    RssPanel* panel() { return m_window->rssPanel(); }
    void run(const char* command)
    {
        m_window->command(command)->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(!radio()->isBusy(), 60000);
    }

private slots:
    void initTestCase()
    {
        // CommPort.txt is kept in the start-up folder: keep it out of the build tree.
        QVERIFY(m_dir.isValid());
        m_window = windowOnVirtualRadio(m_dir, m_memory);
        connect(radio()->progressDialog(), &ProgressDialog::opened, this, [this] {
            if (m_startUpBanner.isEmpty())
                m_startUpBanner = radio()->progressDialog()->banner();
        });
        connect(radio(), &RadioController::compareOpened, this, [this](CompareDialog* dialog) {
            m_compared = dialog->lines();
            if (!m_confirmWrite)
                screenshot(dialog, "compare-before-write");
            QMetaObject::invokeMethod(dialog, m_confirmWrite ? &QDialog::accept : &QDialog::reject,
                                      Qt::QueuedConnection);
        });
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }
    void cleanupTestCase()
    {
        panel()->document().markClean();
        m_window->alePanel()->document().markClean();
        m_window.reset();
    }

    void startUpReadsTheRadio()
    {
        QTRY_VERIFY_WITH_TIMEOUT(radio()->session().view().radioReady && !radio()->isBusy(), 90000);
        // The start-up notice went on in the progress window rather than behind it.
        QCOMPARE(m_startUpBanner, QStringLiteral("KORAL Control Center  27/10/2003"));
        const dbase& read = panel()->document().record;
        QCOMPARE(m_memory.differenceFrom(read), QString());
        QVERIFY(!panel()->document().isModified() && read.serialNumber[0] != 0);
        QCOMPARE(m_window->statusPane(10)->text(),
                 QStringLiteral("S/N: ") + QString::fromUtf8(fieldText(read.serialNumber)));
        QCOMPARE(m_window->statusPane(12)->text(), QStringLiteral("COM: 1,9600"));
        // The ALE programme read with it is in the RSS ALE panel.
        const AleDocument& ale = m_window->alePanel()->document();
        QCOMPARE(m_memory.differenceFrom(ale.programme.database), QString());
        screenshot(m_window.get(), "main-window-radio");
    }

    void communicationPortsCheckAndCancel()
    {
        onNextDialog<CommPortDialog>([](CommPortDialog* dialog) {
            screenshot(dialog, "comm-ports");
            const QSize size = dialog->size();
            dialog->check();
            // The notice is gone and nothing moved under the mouse.
            QCOMPARE(dialog->size(), size);
            for (QLabel* label : dialog->findChildren<QLabel*>())
                QVERIFY(!label->isVisible() || !label->text().startsWith("Connecting"));
            dialog->reject();
        });
        MessageBoxNotifier::clearShownTexts();
        m_window->command("commPort")->trigger();
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{"Communication test has been completed successfully."});
    }

    // The Link Trace window follows a read as it runs: a frame the cable damaged stands out.
    void linkTraceShowsTheFramesOfARead()
    {
        m_window->command("linkTrace")->trigger();
        LinkTraceWindow* trace = m_window->linkTraceWindow();
        QVERIFY(trace && trace->isVisible());
        QTest::mouseClick(trace->findChild<QPushButton*>("clear"), Qt::LeftButton);
        const LinkTraceModel* rows = trace->model();
        m_memory.onRadio([](radiosim::VirtualRadio& radio) {
            radio.inject({radiosim::FaultKind::Corrupt, 1});
        });
        auto shot = connect(radio()->progressDialog(), &ProgressDialog::captionChanged, this,
                            [this](const QString& caption) {
                                if (caption == QStringLiteral("Reading Channels Section"))
                                    screenshot(radio()->progressDialog(), "progress");
                            });
        run("readDevice");
        disconnect(shot);
        QTRY_VERIFY(rows->count(LinkTraceRow::Mark::ChecksumError) >= 1);
        trace->view()->scrollTo(rows->index(0, 0));
        screenshot(trace, "link-trace");
        trace->close();
    }

    // Program Channels and Program Groups send what their dialogs show. In channel mode 2 with
    // CCIR numbers the guard channel is the radio's choice: a right click picks none.
    void programChannelsAndGroupsSendWhatIsOnScreen()
    {
        onNextDialog<ChannelConfigDialog>([](ChannelConfigDialog* dialog) {
            typeSimplex(dialog, "7.1234");
            QTest::mouseClick(dialog->programButton(), Qt::LeftButton);
            // The result shows in the dialog, where the operator looks.
            QCOMPARE(dialog->findChild<QLabel*>("programResult")->text(),
                     QStringLiteral("The Operation Completed Successful"));
            dialog->reject();
        });
        panel()->editChannels(3);
        const dbase& document = panel()->document().record;
        QCOMPARE(document.channelNo(3).txFrequency.get(), 7'123'400u);
        QCOMPARE(m_memory.differenceFrom(document), QString());

        int channel = 1;
        while (!document.channelNo(channel).isProgrammed() || document.groups[0].isMember(channel))
            ++channel;
        onNextDialog<GroupsDialog>([channel](GroupsDialog* dialog) {
            GroupsGrid* grid = dialog->grid();
            QTest::mouseClick(grid, Qt::LeftButton, {}, grid->cellRect(channel).center());
            for (QPushButton* button : dialog->findChildren<QPushButton*>())
                if (button->text() == QStringLiteral("&Program Groups"))
                    QTest::mouseClick(button, Qt::LeftButton);
            dialog->reject();
        });
        panel()->editGroups();
        QVERIFY(document.groups[0].isMember(channel));
        QCOMPARE(m_memory.differenceFrom(document), QString());

        ViewState& view = radio()->session().view();
        const int mode = std::exchange(view.operationMode, 2);
        panel()->document().ccirPresent = true;
        onNextDialog<GroupsDialog>([channel](GroupsDialog* dialog) {
            GroupsGrid* grid = dialog->grid();
            QTest::mouseClick(grid, Qt::RightButton, {}, grid->cellRect(channel).center());
            dialog->accept();
        });
        panel()->editGroups();
        view.operationMode = mode;
        panel()->document().ccirPresent = false;
        QVERIFY(document.groups[0].isMember(channel) &&
                document.groups[0].guardChannel.get() != channel);
    }

    // A programme never read nor opened is never written; an empty database only when the
    // operator insists. Write Device asks first and then sends what the window shows, and
    // Restore Backup brings back what it replaced.
    void writeDeviceSendsWhatTheWindowShows()
    {
        const ale_dbase aleBefore = m_memory.aleRecord();
        const AleDocument aleRead = m_window->alePanel()->document();
        m_window->alePanel()->replaceDocument(AleDocument{});
        MessageBoxNotifier::clearShownTexts();
        run("writeDevice");
        const QStringList notWritten = MessageBoxNotifier::shownTexts();
        QVERIFY2(notWritten.size() == 1 && notWritten[0].contains("Not written") &&
                     notWritten[0].contains(QString::fromUtf8(text::kAleDatabaseName)),
                 qPrintable(notWritten.join('|')));
        QCOMPARE(m_memory.differenceFrom(aleBefore), QString());
        m_window->alePanel()->replaceDocument(aleRead);

        const dbase before = m_memory.radioRecord();
        const RssDocument rss = panel()->document();
        panel()->replaceDocument(RssDocument{});
        MessageBoxNotifier::clearShownTexts();
        MessageBoxNotifier::queueAnswer(Answer::No);
        run("writeDevice");
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QString::fromUtf8(text::kWriteEmptyDatabase)});
        QCOMPARE(m_memory.differenceFrom(before), QString());
        panel()->replaceDocument(rss);

        onNextDialog<ChannelConfigDialog>([](ChannelConfigDialog* dialog) {
            typeSimplex(dialog, "21.12345");
            dialog->accept();
        });
        panel()->editChannels(150);
        AlePanel* ale = m_window->alePanel();
        AleDocument edited = ale->document();
        setFieldText(edited.programme.database.directory[kAleDirectorySize - 1], "WRITTEN1");
        ale->replaceDocument(edited);
        const QString change = QStringLiteral("Channel 150 Rx. Freq.: (none) -> 21.12345");
        // Asked first, the operator declines: nothing reaches the radio, the edit stays.
        m_confirmWrite = false;
        run("writeDevice");
        m_confirmWrite = true;
        QVERIFY2(m_compared.contains(change), qPrintable(m_compared.join('\n')));
        QCOMPARE(m_memory.differenceFrom(before), QString());
        QVERIFY(panel()->document().isModified());

        run("writeDevice");
        QCOMPARE(m_memory.differenceFrom(panel()->document().record), QString());
        QCOMPARE(m_memory.differenceFrom(ale->document().programme.database), QString());
        // The radio holds what the window shows: nothing is left unsaved.
        QVERIFY(!panel()->document().isModified() && !ale->isModified());

        // What the radio held before is kept; restoring it compares the other way and writes
        // it back.
        onNextDialog<BackupsDialog>([](BackupsDialog* dialog) {
            screenshot(dialog, "restore-backup");
            QVERIFY(dialog->list()->count() >= 1);
            dialog->list()->setCurrentRow(0);
            dialog->restoreButton()->click();
        });
        run("restoreBackup");
        // No file holds the radio's parameter block: the restored radio keeps its own.
        QCOMPARE(m_memory.differenceFrom(before), QString());
    }

    void cancelledReadKeepsTheWindowAndTheControls()
    {
        auto cancel = connect(radio()->progressDialog(), &ProgressDialog::captionChanged, this,
                              [this](const QString& caption) {
                                  if (caption == QStringLiteral("Reading Channels Section"))
                                      radio()->progressDialog()->findChild<QPushButton*>()->click();
                              });
        panel()->document().record.channelNo(150).rxFrequency.set(3'000'000);
        MessageBoxNotifier::clearShownTexts();
        MessageBoxNotifier::queueAnswer(Answer::Discard);
        run("readDevice");
        disconnect(cancel);
        // Only the unsaved-changes question: no "radio does not respond".
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QString::fromUtf8(text::kUnsavedChanges)});
        QCOMPARE(m_window->statusBar()->currentMessage(), QString::fromUtf8(text::kReadCancelled));
        QCOMPARE(panel()->document().record.channelNo(150).rxFrequency.get(), 3'000'000u);
        QVERIFY(m_window->command("squelch")->isEnabled() &&
                m_window->command("bite")->isEnabled());
        panel()->document().markClean(); // the next read asks nothing
    }

    void writeDeviceInCcirModeSendsTheCcirPanelsDatabase()
    {
        // The radio is switched to selective calling, as its operator does on the head.
        const auto setMode = [this](bool ccir) {
            m_memory.onRadio(
                [ccir](radiosim::VirtualRadio& radio) { radio.execute(radiosim::SetMode{ccir}); });
        };
        setMode(true);
        run("readDevice");
        QVERIFY(radio()->ccirMode());
        CcirPanel* ccir = m_window->ccirPanel();
        QCOMPARE(m_memory.differenceFrom(ccir->document().record), QString());
        onNextDialog<CcirSelfAddressDialog>([](CcirSelfAddressDialog* dialog) {
            dialog->edit6()->clear();
            QTest::keyClicks(dialog->edit6(), "402999");
            dialog->accept();
        });
        ccir->editSelfAddress();
        QVERIFY(ccir->isModified());
        run("writeDevice");
        QCOMPARE(m_memory.differenceFrom(ccir->document().record), QString());
        QVERIFY(!ccir->isModified());
        setMode(false); // the next read finds the radio out of CCIR mode
    }

    // Last: the radio, back out of CCIR mode, has all 200 channels programmed.
    void readWithAllChannelsProgrammedShowsWhatWasRead()
    {
        m_memory.onRadio([](radiosim::VirtualRadio& radio) {
            auto& memory = radio.databases().radio;
            for (unsigned c = 1; c <= kChannelCount; ++c)
                radiosim::writeU32(memory,
                                   radiosim::layout::kChannels +
                                       (c - 1) * radiosim::layout::kChannelSize +
                                       radiosim::layout::kChannelRx,
                                   2'000'000 + c * 10'000);
        });
        run("readDevice");
        QVERIFY(!radio()->session().view().radioReady && !radio()->ccirMode());
        const dbase& document = panel()->document().record;
        QCOMPARE(document.channelNo(200).rxFrequency.get(), 4'000'000u);
        QCOMPARE(m_memory.differenceFrom(document), QString());
    }
};

QTEST_MAIN(MainWindowRadioTest)
#include "tst_mainwindowradio.moc"
