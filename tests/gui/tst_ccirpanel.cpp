// The CCIR panel without a radio: its grids with the CCIR channel numbers of the radio
// database, and the file commands on .ccr files (byte-for-byte round trip, damaged files).

#include "GuiTestSupport.h"

#include "gui/CcirDirectoryDialog.h"
#include "gui/CcirPanel.h"
#include "gui/CcirSelfAddressDialog.h"
#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/RssPanel.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTableWidget>
#include <QTemporaryDir>

using namespace koral;
using namespace koral::test;

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class CcirPanelTest : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<MainWindow> m_window;
    QTemporaryDir m_dir;

    CcirPanel* panel() { return m_window->ccirPanel(); }
    QString path(const char* name) { return m_dir.filePath(QString::fromUtf8(name)); }
    bool open(const QString& file)
    {
        FileDialogs::queueFileName(file);
        return panel()->openFile();
    }
    bool saveAs(const QString& file)
    {
        FileDialogs::queueFileName(file);
        return panel()->saveFileAs();
    }

private slots:
    void initTestCase()
    {
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_dir.path());
        MessageBoxNotifier::setAutomatic(true);
        MainWindowOptions options;
        options.connectAtStart = false;
        m_window = std::make_unique<MainWindow>(options);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_window->showPanel(Panel::Ccir);
    }
    void cleanupTestCase()
    {
        panel()->document().markClean();
        m_window->rssPanel()->document().markClean();
        m_window.reset();
    }

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
            screenshot(dialog, "ccir-self-address");
            dialog->accept();
        });
        panel()->editSelfAddress();
        QCOMPARE(panel()->identitiesGrid()->item(0, 0)->text(), QStringLiteral("1234"));

        onNextDialog<CcirDirectoryDialog>([](CcirDirectoryDialog* dialog) {
            QTest::keyClicks(dialog->identityEdit(), "402200");
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
