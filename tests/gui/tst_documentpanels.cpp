// The document panels without a radio: first the file commands the RSS, RSS ALE and CCIR
// panels share (a row per panel), then what each panel does on its own.

#include "PanelWindow.h"
#include "support/Table.h"

#include "aledb/AleText.h"
#include "common/Texts.h"
#include "gui/AleDocument.h"
#include "gui/AutoDialDialog.h"
#include "gui/CcirMessagesDialog.h"
#include "gui/CcirSelfAddressDialog.h"
#include "gui/ChannelConfigDialog.h"
#include "gui/DirectoryDialog.h"
#include "gui/DirectoryListDialog.h"
#include "gui/GroupsDialog.h"
#include "gui/InformationDialogs.h"
#include "gui/MessageDialog.h"
#include "gui/NetConfigDialog.h"
#include "gui/NetGlobalMembersDialog.h"
#include "gui/NetMembersDialog.h"
#include "gui/RadioOptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableView>
#include <QTableWidget>
#include <QToolBar>

using namespace koral;
using namespace koral::test;
using Edit = ChannelConfigEditor::Edit;

namespace {

// The three document panels, with their example files.
struct Kind
{
    const char* name;
    Panel panel;
    QString example;
    QString title;
    QStringList printed;  // in the print-out
    QStringList reported; // in the report
};
const Kind kKinds[] = {
    {"RSS",
     Panel::Rss,
     KORAL_EXAMPLES_DIR "/radio.rss",
     "RSS Panel",
     {"[Ccir Channel Number]", "\r\n[ZOV]\r\nZOV_Version=2.01\r\n", "Serial_Number=KR2E004417"},
     {"radio.rss", "KR2E004417", "Scan Rate"}},
    {"ALE",
     Panel::RssAle,
     KORAL_EXAMPLES_DIR "/radio.ale",
     "RSS ALE Panel",
     {"[Net No. 1]", "Net Name=HQNET"},
     {"HQNET"}},
    {"CCIR",
     Panel::Ccir,
     KORAL_EXAMPLES_DIR "/radio.ccr",
     "CCIR Panel",
     {"QRU NIL"},
     {"RETURNING TO PORT 1800"}},
};

void addKindRows()
{
    QTest::addColumn<int>("kind");
    for (int k = 0; k < 3; ++k)
        QTest::newRow(kKinds[k].name) << k;
}

} // namespace

class DocumentPanelsTest : public QObject
{
    Q_OBJECT
private:
    PanelWindow m_window;

    RssPanel* panel() { return m_window->rssPanel(); }
    QString example() { return kKinds[0].example; }
    DocumentPanel* show(Panel panel)
    {
        m_window->showPanel(panel);
        return m_window.document(panel);
    }
    AlePanel* ale() { return m_window->alePanel(); }
    CcirPanel* ccir() { return m_window->ccirPanel(); }
    bool openAle(const QString& file) { return openFile(show(Panel::RssAle), file); }
    bool openCcir(const QString& file) { return openFile(show(Panel::Ccir), file); }

private slots:
    void init() { QVERIFY(m_window.open(Panel::Rss)); }
    void cleanup() { m_window.close(); }

    // Open, an edit (the file information), the question before it would be lost, Save As,
    // and the saved file reopens with the edit and saves again byte for byte.
    void savedFileReopensByteForByte_data() { addKindRows(); }
    void savedFileReopensByteForByte()
    {
        QFETCH(int, kind);
        const auto& [name, panel, example, title, printed, reported] = kKinds[kind];
        DocumentPanel* document = show(panel);
        const QString suffix = '.' + QFileInfo(example).suffix();
        QVERIFY(openFile(document, example));
        QCOMPARE(shownTitle(m_window.get()), title + " - " + example);
        onNextDialog<FileInformationDialog>([](FileInformationDialog* dialog) {
            dialog->commentEdit()->setPlainText("line one\nline two");
            screenshot(dialog, "file-information");
            dialog->accept();
        });
        m_window->command("fileInfo")->trigger();
        QVERIFY(document->isModified());
        QCOMPARE(shownTitle(m_window.get()), title + " - " + example + '*');
        MessageBoxNotifier::queueAnswer(Answer::Cancel);
        QVERIFY(!document->openFile());
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QString::fromUtf8(document->fileKind().unsavedQuestion)});
        QVERIFY(document->isModified());

        const QString first = m_window.path("first") + suffix;
        QVERIFY(saveFileAs(document, first));
        QCOMPARE(shownTitle(m_window.get()), title + " - " + first);
        QVERIFY(openFile(document, first));
        QString comment;
        onNextDialog<FileInformationDialog>([&comment](FileInformationDialog* dialog) {
            comment = dialog->commentEdit()->toPlainText();
        });
        m_window->command("fileInfo")->trigger();
        QCOMPARE(comment, QStringLiteral("line one\nline two"));
        const QString second = m_window.path("second") + suffix;
        QVERIFY(saveFileAs(document, second));
        QVERIFY(!bytesOf(first).isEmpty());
        QCOMPARE(bytesOf(second), bytesOf(first));
        QCOMPARE(MessageBoxNotifier::shownTexts().size(), 1);
    }

    // A file that is missing, one that cannot be written and one of another kind (opened only
    // when the operator insists): the operator is told, and the document stays as it was.
    void brokenFileKeepsTheDocument_data()
    {
        columns<int, QString>("kind", "fault");
        for (int k = 0; k < 3; ++k)
            for (const char* fault : {"missing", "unwritable", "foreign"})
                QTest::addRow("%s, %s", kKinds[k].name, fault) << k << QString(fault);
    }
    void brokenFileKeepsTheDocument()
    {
        auto [kind, fault] = fetch<int, QString>("kind", "fault");
        const Kind& k = kKinds[kind];
        DocumentPanel* document = show(k.panel);
        QVERIFY(document->openPath(k.example));
        MessageBoxNotifier::clearShownTexts();
        const QString file = m_window.path("broken.") + QFileInfo(k.example).suffix();
        QString message;
        if (fault == "missing") {
            QVERIFY(!openFile(document, file));
            message = QStringLiteral("The file %1 could not be read.").arg(file);
        } else if (fault == "unwritable") {
            const QString target = m_window.path("missing-folder/x.") + QFileInfo(file).suffix();
            QVERIFY(!saveFileAs(document, target));
            message = QStringLiteral("The file %1 could not be written: ").arg(target);
        } else {
            QVERIFY(writeBytes(file, "[Shopping]\r\nMilk=2\r\n"));
            MessageBoxNotifier::queueAnswer(Answer::No);
            QVERIFY(!document->openPath(file));
            message = QString::fromUtf8(text::format(document->fileKind().foreignQuestion.data(),
                                                     qPrintable(QDir::toNativeSeparators(file))));
        }
        const QStringList shown = MessageBoxNotifier::shownTexts();
        QCOMPARE(shown.size(), 1);
        // The reason follows when a file could not be written.
        QVERIFY2(shown[0].startsWith(message) && !shown[0].endsWith(": "), qPrintable(shown[0]));
        QCOMPARE(document->currentPath(), k.example);
        QCOMPARE(shownTitle(m_window.get()), k.title + " - " + k.example);
        QVERIFY(!document->isModified());
        if (fault == "foreign") {
            MessageBoxNotifier::queueAnswer(Answer::Yes);
            QVERIFY(document->openPath(file));
            QCOMPARE(document->currentPath(), file);
        }
    }

    // The print-out is the file's text, the report is written for a reader; both export to PDF.
    void printOutAndReportExportToPdf_data() { addKindRows(); }
    void printOutAndReportExportToPdf()
    {
        QFETCH(int, kind);
        const auto& [name, panel, example, title, printed, reported] = kKinds[kind];
        DocumentPanel* document = show(panel);
        QVERIFY(document->openPath(example));
        const QString text = document->printedText();
        for (const QString& part : printed)
            QVERIFY2(text.contains(part), qPrintable(part));
        const QString html = document->reportHtml();
        for (const QString& part : reported)
            QVERIFY2(html.contains(part), qPrintable(part));
        QVERIFY(!html.contains(QStringLiteral("65535")));
        const QString pdf = m_window.path("printout.pdf");
        FileDialogs::queueFileName(pdf);
        QVERIFY(document->exportPdf());
        QVERIFY(bytesOf(pdf).startsWith("%PDF-"));
        const QString report = m_window.path("report.pdf");
        FileDialogs::queueFileName(report);
        QVERIFY(document->exportReportPdf());
        QVERIFY(QFileInfo(report).size() > 2000);
        QCOMPARE(m_window->statusBar()->currentMessage(),
                 QStringLiteral("Exported to ") + QDir::toNativeSeparators(report));
    }

    void openShowsChannelsAndGroups()
    {
        QVERIFY(panel()->openPath(example()));
        QAbstractItemModel* model = panel()->channelView()->model();
        QCOMPARE(model->rowCount(), 200);
        // The example carries CCIR channel numbers: the ninth column is there.
        QCOMPARE(model->columnCount(), 9);
        const QModelIndex first = model->index(0, 1);
        QVERIFY(!first.data().toString().isEmpty());
        QCOMPARE(first.data(Qt::ForegroundRole).value<QColor>(), QColor(0, 0, 255));
        QCOMPARE(panel()->groupsOverview()->item(0, 0)->text(), QStringLiteral("A"));
        QVERIFY(!panel()->groupsOverview()->item(0, 2)->text().isEmpty());
        QVERIFY(!panel()->document().isModified());
        screenshot(m_window.get(), "main-window");
    }

    void channelEditedInItsDialog()
    {
        onNextDialog<ChannelConfigDialog>([](ChannelConfigDialog* dialog) {
            screenshot(dialog, "channel-configuration");
            QCOMPARE(dialog->channelSpin()->value(), 5);
            // An empty channel gets a note, not an error: OK stays enabled, nothing is red.
            const auto red = [dialog] {
                return dialog->warningLine()->styleSheet().contains(QStringLiteral("#c00000"));
            };
            QVERIFY(dialog->warningLine()->isVisible() && dialog->okButton()->isEnabled());
            QVERIFY(!red());
            dialog->typeButton(ChannelConfigEditor::FrequencyType::HalfDuplex)->click();
            QLineEdit* tx = dialog->edit(Edit::HalfDuplexTx);
            QLineEdit* rx = dialog->edit(Edit::HalfDuplexRx);
            QVERIFY(tx->isVisible() && rx->isVisible());
            tx->setFocus();
            tx->selectAll();
            QTest::keyClicks(tx, "30.1");
            QCOMPARE(dialog->warningLine()->text(),
                     QStringLiteral("30.1 is out of range. TX frequency range is 1.6 to 30Mhz."));
            QVERIFY(red());
            QVERIFY(!dialog->okButton()->isEnabled());
            tx->selectAll();
            QTest::keyClicks(tx, "12.34567");
            // The whole frequency shows in the half-duplex layout.
            QVERIFY(tx->width() > tx->fontMetrics().horizontalAdvance(tx->text()));
            rx->setFocus();
            rx->selectAll();
            QTest::keyClicks(rx, "8.5");
            QVERIFY(dialog->okButton()->isEnabled());
            dialog->list(ChannelConfigEditor::List::Power)->setCurrentIndex(0);
            emit dialog->list(ChannelConfigEditor::List::Power)->activated(0);
            QTest::mouseClick(dialog->okButton(), Qt::LeftButton);
        });
        panel()->editChannels(5);
        const channel& ch = panel()->document().record.channelNo(5);
        QCOMPARE(ch.txFrequency.get(), 12'345'670u);
        QCOMPARE(ch.rxFrequency.get(), 8'500'000u);
        QCOMPARE(int(ch.power), 2);
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS Panel*"));
        QCOMPARE(panel()->channelView()->model()->index(4, 1).data().toString(),
                 QStringLiteral("12.34567"));
    }

    void groupChosenWithTheMouse()
    {
        RssDocument& doc = panel()->document();
        for (int c : {5, 12, 30})
            doc.record.channelNo(c).rxFrequency.set(3'000'000);
        panel()->refresh();
        onNextDialog<GroupsDialog>([](GroupsDialog* dialog) {
            GroupsGrid* grid = dialog->grid();
            const auto click = [grid](int channel, Qt::MouseButton button) {
                QTest::mouseClick(grid, button, {}, grid->cellRect(channel).center());
            };
            click(12, Qt::RightButton);
            click(30, Qt::RightButton);
            click(5, Qt::LeftButton);
            click(7, Qt::LeftButton); // not programmed: stays free
            QCOMPARE(dialog->guardLabel()->text(), QStringLiteral("30"));
            const QPointF over = grid->cellRect(7).center();
            QMouseEvent move(QEvent::MouseMove, over, grid->mapToGlobal(over), Qt::NoButton,
                             Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(grid, &move);
            QCOMPARE(dialog->hintLine()->text(),
                     QStringLiteral("Channel number 7 is not programmed"));
            dialog->groupSpin()->stepUp();
            QCOMPARE(dialog->groupSpin()->text(), QStringLiteral("B"));
            dialog->groupSpin()->stepDown();
            screenshot(dialog, "groups");
            dialog->accept();
        });
        panel()->editGroups();
        const Group& a = doc.record.groups[0];
        QCOMPARE(a.guardChannel.get(), 30);
        QVERIFY(a.isMember(5) && a.isMember(12) && a.isMember(30) && !a.isMember(7));
        QCOMPARE(panel()->groupsOverview()->item(0, 1)->text(), QStringLiteral("30"));
        QCOMPARE(panel()->groupsOverview()->item(0, 2)->text(), QStringLiteral("5, 12"));
    }

    void radioOptionsStoredOnOk()
    {
        onNextDialog<RadioOptionsDialog>([](RadioOptionsDialog* dialog) {
            // No radio: the dialog offers no "Program Options".
            QVERIFY(!dialog->programButton());
            dialog->combo("cwPttHold")->setCurrentIndex(0);
            dialog->check("hideFrequency")->setChecked(true);
            dialog->check("amplifier")->click();
            dialog->check("accessory2")->click();
            QVERIFY(!dialog->check("amplifier")->isChecked());
            screenshot(dialog, "radio-options");
            dialog->accept();
        });
        panel()->editRadioOptions();
        const dbase& record = panel()->document().record;
        QCOMPARE(int(record.radioOptions.cwPttHold), 15);
        QCOMPARE(int(record.radioOptions.frequencyDisplay), 0);
        QCOMPARE(int(record.accessoryInstalled), 3);
    }

    void informationWindows()
    {
        QVERIFY(panel()->openPath(example()));
        onNextDialog<WideInformationDialog>([](WideInformationDialog* dialog) {
            auto* options = dialog->findChild<QTableWidget*>("options");
            QCOMPARE(options->item(0, 3)->text(), QStringLiteral("Enabled"));
            screenshot(dialog, "wide-information");
        });
        panel()->showWideInformation();
        onNextDialog<SummaryDialog>([](SummaryDialog* dialog) {
            QCOMPARE(dialog->table()->model()->rowCount(), 200);
            screenshot(dialog, "summary");
        });
        panel()->showSummary();

        // The check lists what is wrong; a line leads to its channel.
        panel()->document().record.radioOptions.priorityChannel.set(199);
        panel()->document().record.groups[1].setMember(77, true);
        onNextDialog<CheckDialog>([](CheckDialog* dialog) {
            QListWidget* list = dialog->list();
            QCOMPARE(list->item(0)->text(),
                     QStringLiteral("Priority channel 199 is not programmed."));
            screenshot(dialog, "check");
            QListWidgetItem* line = list->findItems("77", Qt::MatchContains).value(0);
            QVERIFY(line);
            emit list->itemDoubleClicked(line);
        });
        panel()->showCheck();
        QCOMPARE(panel()->selectedChannel(), 77);
    }

    // From the File menu: the plan goes out, a bad edit is refused whole, a good one shows.
    void channelsThroughCsv()
    {
        QVERIFY(panel()->openPath(example()));
        const QString csv = m_window.path("plan.csv");
        FileDialogs::queueFileName(csv);
        m_window->findChild<QAction*>("exportCsv")->trigger();
        QByteArray plan = bytesOf(csv);
        QVERIFY(plan.contains("\r\n1,2.182,2.182,HIGH,USB,SSB,Slow,2.7,401,A\r\n"));

        const dbase before = panel()->document().record;
        const QString bad = m_window.path("bad.csv");
        QVERIFY(writeBytes(
            bad, QByteArray(plan).replace("\r\n1,2.182,2.182,HIGH", "\r\n1,2.182,2.182,HUGE")));
        FileDialogs::queueFileName(bad);
        QVERIFY(!panel()->importChannelsCsv());
        QVERIFY(MessageBoxNotifier::shownTexts().last().contains(
            "line 2: Tx Power \"HUGE\" is none of LOW, MED, HIGH, MAX"));
        QVERIFY(!panel()->document().isModified());

        QVERIFY(writeBytes(csv, plan.replace("\r\n1,2.182,2.182,HIGH", "\r\n1,2.182,2.19,HIGH")));
        FileDialogs::queueFileName(csv);
        m_window->findChild<QAction*>("importCsv")->trigger();
        QCOMPARE(panel()->document().record.channelNo(1).rxFrequency.get(), 2'190'000u);
        QVERIFY(panel()->document().isModified());
        QCOMPARE(panel()->channelView()->model()->index(0, 2).data().toString(), QString("2.19"));
        QVERIFY(std::memcmp(&before.groups, &panel()->document().record.groups,
                            sizeof before.groups) == 0);
    }

    void saveGoesToTheCurrentFileAndSaveAsAsks()
    {
        const QString path = m_window.path("plan.rss");
        QVERIFY(QFile::copy(example(), path));
        QVERIFY(panel()->openPath(path));
        panel()->document().record.channelNo(9).rxFrequency.set(4'000'000);
        m_window->command("saveRss")->trigger(); // no file name queued: no dialog may open
        QVERIFY(!panel()->document().isModified());
        QVERIFY(QFile(path).size() > 0);
        // Save As starts where the file is and offers its name.
        FileDialogs::queueFileName(m_window.path("copy.rss"));
        m_window->command("saveRssAs")->trigger();
        QCOMPARE(FileDialogs::lastStart(), m_window.path("plan.rss"));
        // The recent files, newest first, reopen with one click.
        QMenu* recent = nullptr;
        for (QMenu* menu : m_window->panelMenus(Panel::Rss).first()->findChildren<QMenu*>())
            if (menu->title() == QStringLiteral("Recent &Files"))
                recent = menu;
        QVERIFY(recent && recent->actions().size() >= 2);
        QVERIFY(recent->actions().at(0)->text().endsWith(QStringLiteral("copy.rss")));
        recent->actions().at(1)->trigger();
        QCOMPARE(panel()->currentPath(), path);
    }

    void channelCommandsFromTheKeyboardAndTheContextMenu()
    {
        QVERIFY(panel()->openPath(example()));
        QTableView* view = panel()->channelView();
        const auto action = [view](const char* name) {
            return view->findChild<QAction*>(QString::fromLatin1(name));
        };
        const channel first = panel()->document().record.channelNo(1);
        QVERIFY(first.isProgrammed());
        panel()->selectChannel(1);
        action("copyChannel")->trigger();
        panel()->selectChannel(2);
        action("clearChannel")->trigger();
        QVERIFY(!panel()->document().record.channelNo(2).isProgrammed());
        // Unprogrammed channels are drawn quieter than programmed ones.
        QVERIFY(view->model()->index(1, 1).data(Qt::ForegroundRole).value<QColor>() !=
                view->model()->index(0, 1).data(Qt::ForegroundRole).value<QColor>());
        action("pasteChannel")->trigger();
        QCOMPARE(std::memcmp(&panel()->document().record.channelNo(2), &first, sizeof first), 0);
        // Enter opens the selected channel.
        bool opened = false;
        onNextDialog<ChannelConfigDialog>([&opened](ChannelConfigDialog* dialog) {
            opened = dialog->channelSpin()->value() == 2;
        });
        QTest::keyClick(view, Qt::Key_Return);
        QVERIFY(opened);
        // No column is cut while the view has room.
        for (int c = 0; c < view->model()->columnCount(); ++c)
            QVERIFY(view->columnWidth(c) >=
                    static_cast<QAbstractItemView*>(view)->sizeHintForColumn(c));
    }

    void closingAsksAboutUnsavedChanges_data()
    {
        columns<int, bool>("answer", "closes");
        // Save, then cancelling the file dialog, keeps the window open as Cancel does.
        QTest::newRow("save, no file chosen") << int(Answer::Save) << false;
        QTest::newRow("cancel (also Escape)") << int(Answer::Cancel) << false;
        QTest::newRow("discard") << int(Answer::Discard) << true;
    }
    void closingAsksAboutUnsavedChanges()
    {
        auto [answer, closes] = fetch<int, bool>("answer", "closes");
        panel()->document().record.channelNo(1).txFrequency.set(5'000'000);
        MessageBoxNotifier::queueAnswer(Answer(answer));
        if (Answer(answer) == Answer::Save)
            FileDialogs::queueFileName(QString()); // the file dialog cancelled
        QCOMPARE(m_window->close(), closes);
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QString::fromUtf8(text::kUnsavedChanges.data())});
    }

    void helpWithoutTheManual()
    {
        const QString file = QDir::toNativeSeparators(MainWindow::helpFile());
        QFile::remove(MainWindow::helpFile());
        m_window->openHelp();
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QStringLiteral("The file %1 was not found.").arg(file)});
        QFile manual(MainWindow::helpFile());
        QVERIFY(manual.open(QIODevice::WriteOnly));
        manual.close();
        // The manual is there, but nothing on the computer shows PDF files: say that.
        HelpViewer::setOpener([](const QUrl&) { return false; });
        m_window->openHelp();
        QCOMPARE(MessageBoxNotifier::shownTexts().value(1),
                 QString::fromUtf8(text::format(text::kNoPdfViewer.data(), qPrintable(file))));
        QUrl opened;
        HelpViewer::setOpener([&opened](const QUrl& url) {
            opened = url;
            return true;
        });
        m_window->openHelp();
        QCOMPARE(opened, QUrl::fromLocalFile(MainWindow::helpFile()));
        QCOMPARE(MessageBoxNotifier::shownTexts().size(), 2);
        QFile::remove(MainWindow::helpFile());
        HelpViewer::setOpener({});
    }

    // The RSS ALE panel: its grids and dialogs, damaged files, the check of both databases.

    void openShowsTheProgramme()
    {
        QVERIFY(openAle(kKinds[1].example));
        QVERIFY(ale()->document().known.database);
        QCOMPARE(ale()->netsGrid()->rowCount(), kAleNetCount);
        QCOMPARE(ale()->netsGrid()->item(0, 0)->text(), QStringLiteral("HQNET"));
        QCOMPARE(ale()->netsGrid()->item(0, 3)->text(), QStringLiteral("1-2, 5-6, 11-12, 17-18"));
        QCOMPARE(ale()->directoryGrid()->item(0, 0)->text(), QStringLiteral("NCBASE1"));
        screenshot(m_window.get(), "ale-panel");
    }

    void damagedFileOpensRepaired_data()
    {
        columns<QByteArray, QByteArray, QString>("line", "damaged", "address");
        QTest::newRow("forbidden characters")
            << QByteArray("Address No. 1=NCBASE1") << QByteArray("Address No. 1=NC-BASE 1!")
            << QStringLiteral("NCBASE1");
        QTest::newRow("too long") << QByteArray("Address No. 1=NCBASE1")
                                  << QByteArray("Address No. 1=NCBASE1234567890123")
                                  << QStringLiteral("NCBASE123456789");
    }
    void damagedFileOpensRepaired()
    {
        auto [line, damaged, address] =
            fetch<QByteArray, QByteArray, QString>("line", "damaged", "address");
        QByteArray content = bytesOf(kKinds[1].example);
        QVERIFY(content.contains(line));
        QVERIFY(writeBytes(m_window.path("damaged.ale"), content.replace(line, damaged)));
        QVERIFY(openAle(m_window.path("damaged.ale")));
        QCOMPARE(ale()->directoryGrid()->item(0, 0)->text(), address);
        // Nothing else is lost.
        QCOMPARE(ale()->directoryGrid()->item(1, 0)->text(), QStringLiteral("NCBASE2"));
        QCOMPARE(ale()->netsGrid()->item(0, 0)->text(), QStringLiteral("HQNET"));
    }

    void netEditedAndANameThatIsASelfAddressRefused()
    {
        QVERIFY(openAle(kKinds[1].example));
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
        ale()->editNets(1);
        QCOMPARE(ale()->netsGrid()->item(1, 0)->text(), QStringLiteral("NEWNET"));
        QVERIFY(ale()->isModified());
    }

    void membersPickedByNameAndATwiceNamedStationHeld()
    {
        QVERIFY(openAle(kKinds[1].example));
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
        ale()->editMembers(0);
        const QString members = ale()->netsGrid()->item(0, 2)->text();
        QVERIFY2(!members.startsWith(QStringLiteral("NCBASE1")) &&
                     members.endsWith(QStringLiteral(", NCBASE1")),
                 qPrintable(members));
    }

    void globalMembersShownWithTheirPriorityAndGroupName()
    {
        QVERIFY(openAle(kKinds[1].example));
        const std::uint8_t first = ale()->document().programme.globalMembers.nets[0].members[0];
        QVERIFY(first & kGlobalPriorityBit);
        onNextDialog<NetGlobalMembersDialog>([](NetGlobalMembersDialog* dialog) {
            QCOMPARE(dialog->nameEdit()->text(), QStringLiteral("HQGROUP"));
            QVERIFY(!dialog->slotList(0)->currentText().isEmpty());
            QVERIFY(dialog->priorityBox(0)->isChecked());
            dialog->priorityBox(0)->click();
            screenshot(dialog, "net-global-members");
            dialog->accept();
        });
        ale()->editGlobalMembers(0);
        QCOMPARE(int(ale()->document().programme.globalMembers.nets[0].members[0]),
                 int(first & ~kGlobalPriorityBit));
    }

    void directoryAddressAddedAndDeletedWithTheMembersRenumbered()
    {
        QVERIFY(openAle(kKinds[1].example));
        const QString membersBefore = ale()->netsGrid()->item(0, 2)->text();
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
        ale()->editDirectory();
        QCOMPARE(ale()->directoryGrid()->item(1, 0)->text(), QStringLiteral("PORTA"));
        QString membersAfter = membersBefore;
        membersAfter.remove(QStringLiteral("NCBASE2, "));
        QCOMPARE(ale()->netsGrid()->item(0, 2)->text(), membersAfter);
        int last = kAleDirectorySize - 1;
        while (last > 0 && ale()->directoryGrid()->item(last, 0)->text().isEmpty())
            --last;
        QCOMPARE(ale()->directoryGrid()->item(last, 0)->text(), QStringLiteral("NEWSTN"));
    }

    void messageAndAutomaticDialEdited()
    {
        QVERIFY(openAle(kKinds[1].example));
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
        ale()->editMessages(3);
        QCOMPARE(ale()->messagesGrid()->item(3, 0)->text(), QStringLiteral("CALL ME"));

        QString chosen;
        onNextDialog<AutoDialDialog>([&chosen](AutoDialDialog* dialog) {
            QComboBox* address = dialog->addressList(9);
            address->setCurrentIndex(1);
            emit address->activated(1);
            chosen = address->itemText(1);
            screenshot(dialog, "ale-automatic-dials");
            dialog->accept();
        });
        ale()->editAutoDials();
        QCOMPARE(ale()->autoDialsGrid()->item(9, 0)->text(), chosen);
    }

    void configurationCheckCoversBothDatabases()
    {
        QVERIFY(openAle(kKinds[1].example));
        // No channel is programmed in the empty radio database: the nets' channels are missing.
        const QStringList lines = ale()->checkLines(m_window->rssPanel()->document().record);
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
        ale()->replaceDocument(AleDocument{});
        QVERIFY(netLines().isEmpty());
    }

    // The CCIR panel: its grids with the radio database's CCIR channel numbers, its dialogs
    // and damaged files.

    void openShowsTheDatabaseAndTheChannelNumbers()
    {
        FileDialogs::queueFileName(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.rss"));
        QVERIFY(m_window->rssPanel()->openFile());
        QVERIFY(openCcir(kKinds[2].example));
        const QTableWidget* ids = ccir()->identitiesGrid();
        QCOMPARE(ids->item(0, 0)->text(), QStringLiteral("4117"));
        QCOMPARE(ids->item(1, 0)->text(), QStringLiteral("402117"));
        QCOMPARE(ids->item(2, 0)->text(), QStringLiteral("6"));
        const auto& numbers = m_window->rssPanel()->document().ccirNumbers;
        QCOMPARE(ccir()->channelsGrid()->item(0, 0)->text(),
                 numbers[0] ? QString::number(numbers[0]) : QString());
        QVERIFY(ccir()->document().known);
        screenshot(m_window.get(), "ccir-panel");
    }

    void selfAddressAndDirectoryEdited()
    {
        QVERIFY(openCcir(kKinds[2].example));
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
        ccir()->editSelfAddress();
        QCOMPARE(ccir()->identitiesGrid()->item(0, 0)->text(), QStringLiteral("1234"));

        onNextDialog<DirectoryListDialog>([](DirectoryListDialog* dialog) {
            QTest::keyClicks(dialog->edit(), "402200");
            dialog->addButton()->click();
            dialog->list()->setCurrentRow(0); // slot 0, 401000
            dialog->deleteButton()->click();
            screenshot(dialog, "ccir-directory");
            dialog->accept();
        });
        ccir()->editDirectory();
        QVERIFY(ccir()->directoryGrid()->item(0, 0)->text().isEmpty());
        QCOMPARE(ccir()->directoryGrid()->item(11, 0)->text(), QStringLiteral("402200"));
        QVERIFY(ccir()->isModified());
    }

    void messageAndSettingEditedAndSaved()
    {
        using Setting = CcirMessagesEditor::Setting;
        QVERIFY(openCcir(kKinds[2].example));
        // Cancel keeps the document as it was, whatever was typed.
        bool shown = false;
        onNextDialog<CcirMessagesDialog>([&shown](CcirMessagesDialog* dialog) {
            shown = true;
            dialog->settingEdit(Setting::Preamble)->selectAll();
            QTest::keyClicks(dialog->settingEdit(Setting::Preamble), "9");
            dialog->reject();
        });
        // The preamble's line of the grid opens this dialog, not the self address's.
        emit ccir()->identitiesGrid()->cellDoubleClicked(2, 0);
        QVERIFY(shown);
        QCOMPARE(ccir()->identitiesGrid()->item(2, 0)->text(), QStringLiteral("6"));
        QVERIFY(!ccir()->isModified());

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
        QCOMPARE(ccir()->messagesGrid()->item(0, 0)->text(), QStringLiteral("QRV 0800 CH 12"));
        QCOMPARE(ccir()->identitiesGrid()->item(3, 0)->text(), QStringLiteral("1"));
        QVERIFY(ccir()->isModified());
        QVERIFY(saveFileAs(ccir(), m_window.path("messages.ccr")));
        QVERIFY(bytesOf(m_window.path("messages.ccr")).contains("Ccir Beacon=1"));
        QVERIFY(openCcir(m_window.path("messages.ccr")));
        QCOMPARE(ccir()->messagesGrid()->item(0, 0)->text(), QStringLiteral("QRV 0800 CH 12"));
        QCOMPARE(ccir()->identitiesGrid()->item(3, 0)->text(), QStringLiteral("1"));
    }

    void damagedFileOpensWithItsDefaults()
    {
        QByteArray content = bytesOf(kKinds[2].example);
        content.replace("Ccir Alarm=1", "");
        content.replace("Ccir Message1=QRU NIL", "Ccir Message1=" + QByteArray(40, 'X'));
        QVERIFY(writeBytes(m_window.path("damaged.ccr"), content));
        QVERIFY(openCcir(m_window.path("damaged.ccr")));
        QCOMPARE(ccir()->identitiesGrid()->item(4, 0)->text(), QStringLiteral("0"));
        QCOMPARE(ccir()->messagesGrid()->item(0, 0)->text(), QString(32, 'X'));
        QCOMPARE(ccir()->directoryGrid()->item(0, 0)->text(), QStringLiteral("401000"));
    }
};

QTEST_MAIN(DocumentPanelsTest)
#include "tst_documentpanels.moc"
