// The RSS ALE panel without a radio: its menus and grids, the file commands on .ale files
// (byte-for-byte round trip, damaged and unwritable files, the unsaved-changes question) and
// the configuration check of both databases.

#include "PanelWindow.h"

#include "aledb/AleText.h"
#include "common/Texts.h"
#include "gui/AleDocument.h"
#include "gui/AutoDialDialog.h"
#include "gui/DirectoryDialog.h"
#include "gui/InformationDialogs.h"
#include "gui/MessageDialog.h"
#include "gui/NetConfigDialog.h"
#include "gui/NetGlobalMembersDialog.h"
#include "gui/NetMembersDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QToolBar>

using namespace koral;
using namespace koral::test;

namespace {

QString qs(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

} // namespace

class AlePanelTest : public QObject
{
    Q_OBJECT
private:
    PanelWindow m_window;

    AlePanel* panel() { return m_window->alePanel(); }
    QString example() { return QStringLiteral(KORAL_EXAMPLES_DIR "/radio.ale"); }
    QString path(const char* name) { return m_window.path(name); }
    bool open(const QString& file) { return openFile(panel(), file); }
    bool saveAs(const QString& file) { return saveFileAs(panel(), file); }

private slots:
    void init() { QVERIFY(m_window.open(Panel::RssAle)); }
    void cleanup() { m_window.close(); }

    void openShowsTheProgrammeWithItsMenusAndTitle()
    {
        QCOMPARE(m_window->currentPanel(), Panel::RssAle);
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS ALE Panel"));
        QStringList menus;
        for (QAction* action : m_window->menuBar()->actions())
            menus << action->text();
        QCOMPARE(menus, (QStringList{"&File", "&Radio", "&Configuration", "&View", "&Help"}));
        QVERIFY(m_window->panelToolBar(Panel::RssAle)->isVisible());
        QVERIFY(!m_window->panelToolBar(Panel::Rss)->isVisible());

        QVERIFY(open(example()));
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS ALE Panel - ") + example());
        QVERIFY(panel()->document().known.database);
        QCOMPARE(panel()->netsGrid()->rowCount(), kAleNetCount);
        QCOMPARE(panel()->netsGrid()->item(0, 0)->text(), QStringLiteral("HQNET"));
        QCOMPARE(panel()->netsGrid()->item(0, 1)->text(), QStringLiteral("NCHQ"));
        QVERIFY(panel()->netsGrid()->item(0, 2)->text().startsWith(QStringLiteral("NCBASE1, ")));
        QCOMPARE(panel()->netsGrid()->item(0, 3)->text(), QStringLiteral("1-2, 5-6, 11-12, 17-18"));
        QCOMPARE(panel()->directoryGrid()->item(0, 0)->text(), QStringLiteral("NCBASE1"));
        QCOMPARE(panel()->messagesGrid()->item(0, 0)->text(), QStringLiteral("QSL YOUR TRAFFIC"));
        QCOMPARE(panel()->autoDialsGrid()->item(1, 0)->text(), QStringLiteral("NCBASE1"));
        screenshot(m_window.get(), "ale-panel");
        // The other panel's document is untouched, and its title comes back with it.
        m_window->showPanel(Panel::Rss);
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS Panel"));
    }

    void savedFileReopensByteForByte()
    {
        QVERIFY(open(example()));
        QVERIFY(saveAs(path("first.ale")));
        QCOMPARE(shownTitle(m_window.get()),
                 QStringLiteral("RSS ALE Panel - ") + path("first.ale"));
        QVERIFY(open(path("first.ale")));
        QVERIFY(saveAs(path("second.ale")));
        QVERIFY(!bytesOf(path("first.ale")).isEmpty());
        QCOMPARE(bytesOf(path("second.ale")), bytesOf(path("first.ale")));
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
    }

    void printOutAndPdfCarryTheProgramme()
    {
        QVERIFY(open(example()));
        const QString text = panel()->printedText();
        QVERIFY(text.contains(QStringLiteral("[Net No. 1]")));
        QVERIFY(text.contains(QStringLiteral("Net Name=HQNET")));
        QVERIFY(panel()->reportHtml().contains(QStringLiteral("HQNET")));
        FileDialogs::queueFileName(path("programme.pdf"));
        QVERIFY(panel()->exportPdf());
        QVERIFY(bytesOf(path("programme.pdf")).startsWith("%PDF"));
    }

    void damagedFileOpensRepaired_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArray>("damaged");
        QTest::addColumn<QString>("address");
        QTest::newRow("forbidden characters")
            << QByteArray("Address No. 1=NCBASE1") << QByteArray("Address No. 1=NC-BASE 1!")
            << QStringLiteral("NCBASE1");
        QTest::newRow("too long") << QByteArray("Address No. 1=NCBASE1")
                                  << QByteArray("Address No. 1=NCBASE1234567890123")
                                  << QStringLiteral("NCBASE123456789");
    }
    void damagedFileOpensRepaired()
    {
        QFETCH(QByteArray, line);
        QFETCH(QByteArray, damaged);
        QFETCH(QString, address);
        QByteArray content = bytesOf(example());
        QVERIFY(content.contains(line));
        content.replace(line, damaged);
        QFile file(path("damaged.ale"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        QVERIFY(open(path("damaged.ale")));
        QCOMPARE(panel()->directoryGrid()->item(0, 0)->text(), address);
        // Nothing else is lost.
        QCOMPARE(panel()->directoryGrid()->item(1, 0)->text(), QStringLiteral("NCBASE2"));
        QCOMPARE(panel()->netsGrid()->item(0, 0)->text(), QStringLiteral("HQNET"));
    }

    void fileThatCannotBeWrittenNamesTheReason()
    {
        QVERIFY(open(example()));
        const QString target = path("missing-folder/x.ale");
        QVERIFY(!saveAs(target));
        const QStringList shown = MessageBoxNotifier::shownTexts();
        QCOMPARE(shown.size(), 1);
        QVERIFY2(
            shown[0].startsWith(QStringLiteral("The file %1 could not be written: ").arg(target)) &&
                !shown[0].endsWith(QStringLiteral(": ")),
            qPrintable(shown[0]));
        // The document still belongs to the file it came from.
        QCOMPARE(panel()->currentPath(), example());
    }

    void unsavedChangesAreAskedAboutBeforeOpening()
    {
        QVERIFY(open(example()));
        AleDocument edited = panel()->document();
        setFieldText(edited.programme.database.messages[1], "EDITED");
        panel()->replaceDocument(edited);
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS ALE Panel - ") + example() + '*');
        MessageBoxNotifier::queueAnswer(Answer::Cancel);
        QVERIFY(!panel()->openFile());
        QCOMPARE(MessageBoxNotifier::shownTexts(), QStringList{qs(text::kAleUnsavedChanges)});
        QCOMPARE(panel()->messagesGrid()->item(1, 0)->text(), QStringLiteral("EDITED"));
    }

    void foreignFileIsOpenedOnlyWhenConfirmed()
    {
        MessageBoxNotifier::queueAnswer(Answer::No);
        QVERIFY(!open(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.rss")));
        QCOMPARE(MessageBoxNotifier::shownTexts().size(), 1);
        QVERIFY(!panel()->document().known.database);
    }

    void netEditedAndANameThatIsASelfAddressRefused()
    {
        QVERIFY(open(example()));
        onNextDialog<NetConfigDialog>([](NetConfigDialog* dialog) {
            QCOMPARE(dialog->netSpin()->value(), 2);
            QLineEdit* name = dialog->nameEdit();
            name->selectAll();
            QTest::keyClicks(name, "NCHQ"); // net 1's self address
            QCOMPARE(MessageBoxNotifier::shownTexts(),
                     QStringList{QStringLiteral("'NCHQ' is net no. 1 Self Address.")});
            name->selectAll();
            QTest::keyClicks(name, "NEWNET");
            screenshot(dialog, "net-configuration");
            dialog->accept();
        });
        panel()->editNets(1);
        QCOMPARE(panel()->netsGrid()->item(1, 0)->text(), QStringLiteral("NEWNET"));
        QVERIFY(panel()->isModified());
    }

    void membersPickedByNameAndATwiceNamedStationHeld()
    {
        QVERIFY(open(example()));
        onNextDialog<NetMembersDialog>([](NetMembersDialog* dialog) {
            QComboBox* first = dialog->slotList(0);
            QCOMPARE(first->currentText(), QStringLiteral("NCBASE1"));
            QComboBox* last = dialog->slotList(kAleMemberSlots - 1);
            QCOMPARE(last->currentText(), QString());
            const int base = last->findText(QStringLiteral("NCBASE1"));
            last->setCurrentIndex(base);
            emit last->activated(base);
            QVERIFY(dialog->warning()->isVisible());
            QVERIFY(!dialog->buttons()->button(QDialogButtonBox::Ok)->isEnabled());
            screenshot(dialog, "net-members");
            first->setCurrentIndex(0);
            emit first->activated(0);
            QVERIFY(dialog->buttons()->button(QDialogButtonBox::Ok)->isEnabled());
            dialog->accept();
        });
        panel()->editMembers(0);
        const QString members = panel()->netsGrid()->item(0, 2)->text();
        QVERIFY2(!members.startsWith(QStringLiteral("NCBASE1")) &&
                     members.endsWith(QStringLiteral(", NCBASE1")),
                 qPrintable(members));
    }

    void globalMembersShownWithTheirPriorityAndGroupName()
    {
        QVERIFY(open(example()));
        const std::uint8_t first = panel()->document().programme.globalMembers.nets[0].members[0];
        QVERIFY(first & kGlobalPriorityBit);
        onNextDialog<NetGlobalMembersDialog>([](NetGlobalMembersDialog* dialog) {
            QCOMPARE(dialog->nameEdit()->text(), QStringLiteral("HQGROUP"));
            QVERIFY(!dialog->slotList(0)->currentText().isEmpty());
            QVERIFY(dialog->priorityBox(0)->isChecked());
            dialog->priorityBox(0)->click();
            screenshot(dialog, "net-global-members");
            dialog->accept();
        });
        panel()->editGlobalMembers(0);
        QCOMPARE(int(panel()->document().programme.globalMembers.nets[0].members[0]),
                 int(first & ~kGlobalPriorityBit));
    }

    void directoryAddressAddedAndDeletedWithTheMembersRenumbered()
    {
        QVERIFY(open(example()));
        const QString membersBefore = panel()->netsGrid()->item(0, 2)->text();
        QVERIFY(membersBefore.contains(QStringLiteral("NCBASE2, ")));
        onNextDialog<DirectoryDialog>([](DirectoryDialog* dialog) {
            QTest::keyClicks(dialog->edit(), "NEWSTN");
            QVERIFY(dialog->addButton()->isEnabled());
            dialog->addButton()->click();
            dialog->list()->setCurrentRow(1); // NCBASE2
            QVERIFY(dialog->deleteButton()->isEnabled());
            MessageBoxNotifier::queueAnswer(Answer::Yes);
            dialog->deleteButton()->click();
            QTest::keyClicks(dialog->edit(), "abc");
            QVERIFY(dialog->statusLine()->text().contains(QStringLiteral("invalid")));
            screenshot(dialog, "ale-directory");
            dialog->accept();
        });
        panel()->editDirectory();
        QCOMPARE(panel()->directoryGrid()->item(1, 0)->text(), QStringLiteral("PORTA"));
        QString membersAfter = membersBefore;
        membersAfter.remove(QStringLiteral("NCBASE2, "));
        QCOMPARE(panel()->netsGrid()->item(0, 2)->text(), membersAfter);
        int last = kAleDirectorySize - 1;
        while (last > 0 && panel()->directoryGrid()->item(last, 0)->text().isEmpty())
            --last;
        QCOMPARE(panel()->directoryGrid()->item(last, 0)->text(), QStringLiteral("NEWSTN"));
    }

    void messageAndAutomaticDialEdited()
    {
        QVERIFY(open(example()));
        onNextDialog<MessageDialog>([](MessageDialog* dialog) {
            QCOMPARE(dialog->numberSpin()->value(), 3);
            dialog->textEdit()->clear();
            QTest::keyClicks(dialog->textEdit(), "call");
            QVERIFY(!dialog->buttons()->button(QDialogButtonBox::Ok)->isEnabled());
            QVERIFY(dialog->warning()->isVisible());
            dialog->textEdit()->clear();
            QTest::keyClicks(dialog->textEdit(), "CALL ME");
            QVERIFY(dialog->buttons()->button(QDialogButtonBox::Ok)->isEnabled());
            screenshot(dialog, "ale-message");
            dialog->accept();
        });
        panel()->editMessages(3);
        QCOMPARE(panel()->messagesGrid()->item(3, 0)->text(), QStringLiteral("CALL ME"));

        QString chosen;
        onNextDialog<AutoDialDialog>([&chosen](AutoDialDialog* dialog) {
            QComboBox* address = dialog->addressList(9);
            address->setCurrentIndex(1);
            emit address->activated(1);
            chosen = address->itemText(1);
            screenshot(dialog, "ale-automatic-dials");
            dialog->accept();
        });
        panel()->editAutoDials();
        QCOMPARE(panel()->autoDialsGrid()->item(9, 0)->text(), chosen);
    }

    void configurationCheckCoversBothDatabases()
    {
        QVERIFY(open(example()));
        // No channel is programmed in the empty radio database: the nets' channels are missing.
        const QStringList lines = panel()->checkLines(m_window->rssPanel()->document().record);
        QVERIFY(!lines.isEmpty());
        onNextDialog<CheckDialog>([lines](CheckDialog* dialog) {
            QCOMPARE(dialog->list()->count(), lines.size());
            screenshot(dialog, "ale-check");
        });
        m_window->command("aleCheck")->trigger();
        // The RSS panel's check covers the nets of the programme open here, with no radio read.
        const auto netLines = [this] {
            return m_window->rssPanel()->checkLines().filter(QStringLiteral("in net no."));
        };
        QVERIFY(!netLines().isEmpty());
        panel()->replaceDocument(AleDocument{});
        QVERIFY(netLines().isEmpty());
    }
};

QTEST_MAIN(AlePanelTest)
#include "tst_alepanel.moc"
