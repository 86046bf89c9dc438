#include "PanelWindow.h"

#include "common/Texts.h"
#include "gui/ChannelConfigDialog.h"
#include "gui/GroupsDialog.h"
#include "gui/InformationDialogs.h"
#include "gui/RadioOptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
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

class RssPanelTest : public QObject
{
    Q_OBJECT
private:
    PanelWindow m_window;

    RssPanel* panel() { return m_window->rssPanel(); }
    QString example() { return QStringLiteral(KORAL_EXAMPLES_DIR "/radio.rss"); }

private slots:
    void init() { QVERIFY(m_window.open(Panel::Rss)); }
    void cleanup() { m_window.close(); }

    void rssPanelHasItsToolbarAndMenus()
    {
        QCOMPARE(m_window->currentPanel(), Panel::Rss);
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS Panel"));
        QToolBar* bar = m_window->panelToolBar(Panel::Rss);
        QVERIFY(bar && bar->isVisible());
        QStringList menus;
        for (QAction* action : m_window->menuBar()->actions())
            menus << action->text();
        QCOMPARE(menus, (QStringList{"&File", "&Radio", "&Configuration", "&View", "&Help"}));
        // Every panel is built; the CCIR panel's button shows only while the radio is in CCIR
        // mode.
        QVERIFY(m_window->findChild<QAction*>("panel0"));
        QAction* ccir = m_window->findChild<QAction*>("panel4");
        QVERIFY(ccir && !ccir->isVisible());
        QAction* rss = m_window->findChild<QAction*>("panel1");
        QVERIFY(rss && rss->isChecked() && rss->isVisible());
        QCOMPARE(rss->text(), QStringLiteral("View RSS Panel"));
    }

    void openShowsChannelsGroupsAndTitle()
    {
        FileDialogs::queueFileName(example());
        QVERIFY(panel()->openFile());
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS Panel - ") + example());
        QAbstractItemModel* model = panel()->channelView()->model();
        QCOMPARE(model->rowCount(), 200);
        QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Tx. Freq."));
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

    void openingAMissingFileSaysSoAndKeepsTheDocument()
    {
        const QString missing = m_window.path("nothing.rss");
        FileDialogs::queueFileName(missing);
        QVERIFY(!panel()->openFile());
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QStringLiteral("The file %1 could not be read.").arg(missing)});
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS Panel"));
    }

    void channelEditedSavedAndReloaded()
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
        QVERIFY(panel()->document().isModified());
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS Panel*"));
        QCOMPARE(panel()->channelView()->model()->index(4, 1).data().toString(),
                 QStringLiteral("12.34567"));

        const QString path = m_window.path("edited.rss");
        FileDialogs::queueFileName(path);
        QVERIFY(panel()->saveFile());
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS Panel - ") + path);
        QVERIFY(!panel()->document().isModified());

        // Another change, then opening the saved file: the question comes first.
        panel()->document().record.channelNo(6).txFrequency.set(2'000'000);
        MessageBoxNotifier::queueAnswer(Answer::Discard);
        FileDialogs::queueFileName(path);
        QVERIFY(panel()->openFile());
        QCOMPARE(
            MessageBoxNotifier::shownTexts().value(0),
            QStringLiteral("The radio database has changes that were not saved. Save them first?"));
        QCOMPARE(panel()->document().record.channelNo(5).txFrequency.get(), 12'345'670u);
        QCOMPARE(panel()->document().record.channelNo(6).txFrequency.get(), 0u);
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
        FileDialogs::queueFileName(example());
        QVERIFY(panel()->openFile());
        onNextDialog<WideInformationDialog>([](WideInformationDialog* dialog) {
            auto* options = dialog->findChild<QTableWidget*>("options");
            QCOMPARE(options->rowCount(), 15);
            QCOMPARE(options->item(10, 0)->text(), QStringLiteral("Global ALE"));
            QCOMPARE(options->item(0, 3)->text(), QStringLiteral("Enabled"));
            screenshot(dialog, "wide-information");
        });
        panel()->showWideInformation();
        onNextDialog<SummaryDialog>([](SummaryDialog* dialog) {
            QCOMPARE(dialog->table()->model()->rowCount(), 200);
            screenshot(dialog, "summary");
        });
        panel()->showSummary();

        panel()->document().record.radioOptions.priorityChannel.set(199);
        onNextDialog<CheckDialog>([](CheckDialog* dialog) {
            QVERIFY(dialog->list()->count() >= 1);
            QCOMPARE(dialog->list()->item(0)->text(),
                     QStringLiteral("Priority channel 199 is not programmed."));
            screenshot(dialog, "check");
        });
        panel()->showCheck();

        onNextDialog<FileInformationDialog>([](FileInformationDialog* dialog) {
            dialog->commentEdit()->setPlainText("line one\nline two");
            dialog->userNameEdit()->setText("Operator");
            screenshot(dialog, "file-information");
            dialog->accept();
        });
        panel()->editFileInformation();
        QCOMPARE(panel()->document().info.comment, std::string("line one\r\nline two"));
        QVERIFY(panel()->document().isModified());
    }

    void exportsThePrintoutToPdf()
    {
        FileDialogs::queueFileName(example());
        QVERIFY(panel()->openFile());
        const QString printed = panel()->printedText();
        // The CCIR channel numbers come first, then the file as saving writes it.
        QVERIFY(printed.startsWith(QStringLiteral("[Ccir Channel Number]")));
        QVERIFY(printed.contains(QStringLiteral("\r\n[ZOV]\r\nZOV_Version=2.01\r\n")));
        QVERIFY(printed.contains(QStringLiteral("Serial_Number=KR2E004417")));
        const QString pdf = m_window.path("printout.pdf");
        FileDialogs::queueFileName(pdf);
        QVERIFY(panel()->exportPdf());
        QFile file(pdf);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.read(5) == "%PDF-");
        QVERIFY(file.size() > 2000);
    }

    // From the File menu: the plan goes out, a bad edit is refused whole, a good one shows.
    void channelsThroughCsv()
    {
        FileDialogs::queueFileName(example());
        QVERIFY(panel()->openFile());
        const QString csv = m_window.path("plan.csv");
        FileDialogs::queueFileName(csv);
        m_window->findChild<QAction*>("exportCsv")->trigger();
        QFile file(csv);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QByteArray plan = file.readAll();
        file.close();
        QVERIFY(plan.contains("\r\n1,2.182,2.182,HIGH,USB,SSB,Slow,2.7,401,A\r\n"));

        const dbase before = panel()->document().record;
        QByteArray bad = plan;
        bad.replace("\r\n1,2.182,2.182,HIGH", "\r\n1,2.182,2.182,HUGE");
        const QString badPath = m_window.path("bad.csv");
        QFile badFile(badPath);
        QVERIFY(badFile.open(QIODevice::WriteOnly));
        badFile.write(bad);
        badFile.close();
        FileDialogs::queueFileName(badPath);
        QVERIFY(!panel()->importChannelsCsv());
        QVERIFY(MessageBoxNotifier::shownTexts().last().contains(
            "line 2: Tx Power \"HUGE\" is none of LOW, MED, HIGH, MAX"));
        QVERIFY(!panel()->document().isModified());

        plan.replace("\r\n1,2.182,2.182,HIGH", "\r\n1,2.182,2.19,HIGH");
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(plan);
        file.close();
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
        QCOMPARE(shownTitle(m_window.get()),
                 QStringLiteral("RSS Panel - ") + m_window.path("copy.rss"));
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

    void checkLineLeadsToItsChannel()
    {
        panel()->document().record.groups[1].setMember(77, true);
        onNextDialog<CheckDialog>([](CheckDialog* dialog) {
            QListWidget* list = dialog->list();
            QListWidgetItem* line =
                list->findItems(QStringLiteral("77"), Qt::MatchContains).value(0);
            QVERIFY(line);
            emit list->itemDoubleClicked(line);
        });
        panel()->showCheck();
        QCOMPARE(panel()->selectedChannel(), 77);
    }

    void reportIsWrittenForAReader()
    {
        QVERIFY(panel()->openPath(example()));
        const QString html = panel()->reportHtml();
        QVERIFY(html.contains(QStringLiteral("radio.rss")));
        QVERIFY(html.contains(QStringLiteral("KR2E004417")));
        QVERIFY(html.contains(QStringLiteral("Scan Rate")));
        QVERIFY(!html.contains(QStringLiteral("65535")));
        const QString pdf = m_window.path("report.pdf");
        FileDialogs::queueFileName(pdf);
        QVERIFY(panel()->exportReportPdf());
        QVERIFY(QFileInfo(pdf).size() > 2000);
        QCOMPARE(m_window->statusBar()->currentMessage(),
                 QStringLiteral("Exported to ") + QDir::toNativeSeparators(pdf));
    }

    void closingAsksAboutUnsavedChanges_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("closes");
        // Save, then cancelling the file dialog, keeps the window open as Cancel does.
        QTest::newRow("save, no file chosen") << int(Answer::Save) << false;
        QTest::newRow("cancel (also Escape)") << int(Answer::Cancel) << false;
        QTest::newRow("discard") << int(Answer::Discard) << true;
    }
    void closingAsksAboutUnsavedChanges()
    {
        QFETCH(int, answer);
        QFETCH(bool, closes);
        panel()->document().record.channelNo(1).txFrequency.set(5'000'000);
        MessageBoxNotifier::queueAnswer(Answer(answer));
        FileDialogs::queueFileName(QString());
        QCOMPARE(m_window->close(), closes);
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QString::fromUtf8(text::kUnsavedChanges.data())});
    }

    void aFileOfAnotherKindOpensOnlyWhenTheUserInsists()
    {
        QVERIFY(panel()->openPath(example()));
        const QString notes = m_window.path("notes.rss");
        QFile file(notes);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[Shopping]\r\nMilk=2\r\n");
        file.close();
        MessageBoxNotifier::queueAnswer(Answer::No);
        QVERIFY(!panel()->openPath(notes));
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QStringLiteral("%1 does not look like a radio database file: it has "
                                            "none of the sections of one. Open it anyway?")
                                 .arg(QDir::toNativeSeparators(notes))});
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS Panel - ") + example());
        QVERIFY(!panel()->document().isEmpty());
        MessageBoxNotifier::queueAnswer(Answer::Yes);
        QVERIFY(panel()->openPath(notes));
        QVERIFY(panel()->document().isEmpty());
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
};

QTEST_MAIN(RssPanelTest)
#include "tst_rsspanel.moc"
