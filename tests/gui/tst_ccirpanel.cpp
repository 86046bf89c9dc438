// The CCIR panel without a radio: its grids with the CCIR channel numbers of the radio
// database, and the file commands on .ccr files (byte-for-byte round trip, damaged files).

#include "PanelWindow.h"

#include "gui/CcirMessagesDialog.h"
#include "gui/CcirSelfAddressDialog.h"
#include "gui/DirectoryListDialog.h"
#include "gui/InformationDialogs.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>

using namespace koral;
using namespace koral::test;

class CcirPanelTest : public QObject
{
    Q_OBJECT
private:
    PanelWindow m_window;

    CcirPanel* panel() { return m_window->ccirPanel(); }
    QString path(const char* name) { return m_window.path(name); }
    bool open(const QString& file) { return openFile(panel(), file); }
    bool saveAs(const QString& file) { return saveFileAs(panel(), file); }

private slots:
    void initTestCase() { QVERIFY(m_window.open(Panel::Ccir)); }
    void cleanupTestCase() { m_window.close(); }

    void openShowsTheDatabaseAndTheChannelNumbers()
    {
        FileDialogs::queueFileName(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.rss"));
        QVERIFY(m_window->rssPanel()->openFile());
        QVERIFY(open(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.ccr")));
        QCOMPARE(shownTitle(m_window.get()),
                 QStringLiteral("CCIR Panel - " KORAL_EXAMPLES_DIR "/radio.ccr"));
        const QTableWidget* ids = panel()->identitiesGrid();
        QCOMPARE(ids->item(0, 0)->text(), QStringLiteral("4117"));
        QCOMPARE(ids->item(1, 0)->text(), QStringLiteral("402117"));
        QCOMPARE(ids->item(2, 0)->text(), QStringLiteral("6"));
        QCOMPARE(panel()->messagesGrid()->item(1, 0)->text(),
                 QStringLiteral("RETURNING TO PORT 1800"));
        QCOMPARE(panel()->directoryGrid()->item(0, 0)->text(), QStringLiteral("401000"));
        QVERIFY(panel()->directoryGrid()->item(11, 0)->text().isEmpty());
        const auto& numbers = m_window->rssPanel()->document().ccirNumbers;
        QCOMPARE(panel()->channelsGrid()->item(0, 0)->text(),
                 numbers[0] ? QString::number(numbers[0]) : QString());
        QVERIFY(panel()->document().known);
        screenshot(m_window.get(), "ccir-panel");
    }

    void savedFileReopensByteForByte()
    {
        QVERIFY(open(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.ccr")));
        QVERIFY(saveAs(path("first.ccr")));
        QVERIFY(open(path("first.ccr")));
        QVERIFY(saveAs(path("second.ccr")));
        QVERIFY(!bytesOf(path("first.ccr")).isEmpty());
        QCOMPARE(bytesOf(path("second.ccr")), bytesOf(path("first.ccr")));
    }

    void selfAddressAndDirectoryEdited()
    {
        QVERIFY(open(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.ccr")));
        onNextDialog<CcirSelfAddressDialog>([](CcirSelfAddressDialog* dialog) {
            dialog->edit4()->clear();
            QTest::keyClicks(dialog->edit4(), "12");
            QVERIFY(dialog->warning()->isVisible());
            QVERIFY(!dialog->buttons()->button(QDialogButtonBox::Ok)->isEnabled());
            QTest::keyClicks(dialog->edit4(), "34");
            QVERIFY(dialog->buttons()->button(QDialogButtonBox::Ok)->isEnabled());
            // Help asks the window for the manual, which the test build does not have.
            MessageBoxNotifier::clearShownTexts();
            dialog->buttons()->button(QDialogButtonBox::Help)->click();
            QCOMPARE(MessageBoxNotifier::shownTexts(),
                     QStringList{QStringLiteral("The file %1 was not found.")
                                     .arg(QDir::toNativeSeparators(MainWindow::helpFile()))});
            screenshot(dialog, "ccir-self-address");
            dialog->accept();
        });
        panel()->editSelfAddress();
        QCOMPARE(panel()->identitiesGrid()->item(0, 0)->text(), QStringLiteral("1234"));

        onNextDialog<DirectoryListDialog>([](DirectoryListDialog* dialog) {
            QTest::keyClicks(dialog->edit(), "402200");
            dialog->addButton()->click();
            dialog->list()->setCurrentRow(0); // slot 0, 401000
            dialog->deleteButton()->click();
            screenshot(dialog, "ccir-directory");
            dialog->accept();
        });
        panel()->editDirectory();
        QVERIFY(panel()->directoryGrid()->item(0, 0)->text().isEmpty());
        QCOMPARE(panel()->directoryGrid()->item(11, 0)->text(), QStringLiteral("402200"));
        QVERIFY(panel()->isModified());
        panel()->document().markClean();
    }

    void messageAndSettingEditedAndSaved()
    {
        using Setting = CcirMessagesEditor::Setting;
        QVERIFY(open(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.ccr")));
        // Cancel keeps the document as it was, whatever was typed.
        bool shown = false;
        onNextDialog<CcirMessagesDialog>([&shown](CcirMessagesDialog* dialog) {
            shown = true;
            dialog->settingEdit(Setting::Preamble)->selectAll();
            QTest::keyClicks(dialog->settingEdit(Setting::Preamble), "9");
            dialog->reject();
        });
        // The preamble's line of the grid opens this dialog, not the self address's.
        emit panel()->identitiesGrid()->cellDoubleClicked(2, 0);
        QVERIFY(shown);
        QCOMPARE(panel()->identitiesGrid()->item(2, 0)->text(), QStringLiteral("6"));
        QVERIFY(!panel()->isModified());

        onNextDialog<CcirMessagesDialog>([](CcirMessagesDialog* dialog) {
            QPushButton* ok = dialog->buttons()->button(QDialogButtonBox::Ok);
            QLineEdit* message = dialog->messageEdit(1);
            QCOMPARE(message->text(), QStringLiteral("QRU NIL"));
            message->selectAll();
            QTest::keyClicks(message, "QRV 0800 ch");
            QVERIFY(dialog->warning()->isVisible() && !ok->isEnabled());
            QTest::keyClick(message, Qt::Key_Backspace);
            QTest::keyClick(message, Qt::Key_Backspace);
            QTest::keyClicks(message, "CH 12");
            dialog->settingEdit(Setting::Beacon)->selectAll();
            QTest::keyClicks(dialog->settingEdit(Setting::Beacon), "1");
            QVERIFY(!dialog->warning()->isVisible() && ok->isEnabled());
            screenshot(dialog, "ccir-messages");
            ok->click();
        });
        m_window->command("ccirMessages")->trigger();
        QCOMPARE(panel()->messagesGrid()->item(0, 0)->text(), QStringLiteral("QRV 0800 CH 12"));
        QCOMPARE(panel()->identitiesGrid()->item(3, 0)->text(), QStringLiteral("1"));
        QVERIFY(panel()->isModified());
        QVERIFY(saveAs(path("messages.ccr")));
        QVERIFY(bytesOf(path("messages.ccr")).contains("Ccir Beacon=1"));
        QVERIFY(open(path("messages.ccr")));
        QCOMPARE(panel()->messagesGrid()->item(0, 0)->text(), QStringLiteral("QRV 0800 CH 12"));
        QCOMPARE(panel()->messagesGrid()->item(1, 0)->text(),
                 QStringLiteral("RETURNING TO PORT 1800"));
        QCOMPARE(panel()->identitiesGrid()->item(3, 0)->text(), QStringLiteral("1"));
        QCOMPARE(panel()->identitiesGrid()->item(2, 0)->text(), QStringLiteral("6"));
    }

    void fileInformationTravelsWithTheFile()
    {
        QVERIFY(open(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.ccr")));
        onNextDialog<FileInformationDialog>([](FileInformationDialog* dialog) {
            dialog->commentEdit()->setPlainText("harbour net");
            dialog->accept();
        });
        m_window->command("fileInfo")->trigger();
        QVERIFY(panel()->isModified());
        QVERIFY(saveAs(path("noted.ccr")));
        QVERIFY(open(path("noted.ccr")));
        QCOMPARE(panel()->document().info.comment, std::string("harbour net"));
    }

    void damagedFileOpensWithItsDefaults()
    {
        QByteArray content = bytesOf(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.ccr"));
        content.replace("Ccir Alarm=1", "");
        content.replace("Ccir Message1=QRU NIL", "Ccir Message1=" + QByteArray(40, 'X'));
        QFile file(path("damaged.ccr"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        QVERIFY(open(path("damaged.ccr")));
        QCOMPARE(panel()->identitiesGrid()->item(4, 0)->text(), QStringLiteral("0"));
        QCOMPARE(panel()->messagesGrid()->item(0, 0)->text(), QString(32, 'X'));
        QCOMPARE(panel()->directoryGrid()->item(0, 0)->text(), QStringLiteral("401000"));
    }
};

QTEST_MAIN(CcirPanelTest)
#include "tst_ccirpanel.moc"
