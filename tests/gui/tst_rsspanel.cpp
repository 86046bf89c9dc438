#include "GuiTestSupport.h"

#include "common/Texts.h"
#include "gui/ChannelConfigDialog.h"
#include "gui/GroupsDialog.h"
#include "gui/InformationDialogs.h"
#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/RadioOptionsDialog.h"
#include "gui/RssPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolBar>

using namespace koral;
using namespace koral::test;
using Edit = ChannelConfigEditor::Edit;

class RssPanelTest : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<MainWindow> m_window;
    QTemporaryDir m_dir;

    RssPanel* panel() { return m_window->rssPanel(); }
    QString example() { return QStringLiteral(KORAL_EXAMPLES_DIR "/radio.rss"); }

private slots:
    void init()
    {
        MessageBoxNotifier::setAutomatic(true);
        MessageBoxNotifier::clearShownTexts();
        MainWindowOptions options;
        options.connectAtStart = false;
        m_window = std::make_unique<MainWindow>(options);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }
    void cleanup()
    {
        // Nothing may be left to ask about.
        panel()->document().markClean();
        m_window.reset();
    }

    void startsOnTheRssPanelWithItsToolbarAndMenus()
    {
        QCOMPARE(m_window->currentPanel(), Panel::Rss);
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("RSS Panel"));
        QToolBar* bar = m_window->panelToolBar(Panel::Rss);
        QVERIFY(bar && bar->isVisible());
        QStringList menus;
        for (QAction* action : m_window->menuBar()->actions())
            menus << action->text();
        QCOMPARE(menus, (QStringList{"&File", "&Radio", "&Configuration", "&View", "&Help"}));
        // Later panels are not offered at all: no button, no menu item.
        QVERIFY(!m_window->findChild<QAction*>("panel0"));
        QVERIFY(!m_window->findChild<QAction*>("panel4"));
        QAction* rss = m_window->findChild<QAction*>("panel1");
        QVERIFY(rss && rss->isChecked() && rss->isVisible());
        QCOMPARE(rss->text(), QStringLiteral("View RSS Panel"));
        m_window->showPanel(Panel::Ccir);
        QCOMPARE(m_window->currentPanel(), Panel::Rss);
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
        const QString missing = m_dir.filePath("nothing.rss");
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
            dialog->typeButton(ChannelConfigEditor::FrequencyType::HalfDuplex)->click();
            QLineEdit* tx = dialog->edit(Edit::HalfDuplexTx);
            QLineEdit* rx = dialog->edit(Edit::HalfDuplexRx);
            QVERIFY(tx->isVisible() && rx->isVisible());
            tx->setFocus();
            tx->selectAll();
            QTest::keyClicks(tx, "30.1");
            QCOMPARE(dialog->warningLine()->text(),
                     QStringLiteral("30.1 is out of range. TX frequency range is 1.6 to 30Mhz."));
            QVERIFY(!dialog->okButton()->isEnabled());
            tx->selectAll();
            QTest::keyClicks(tx, "12.34567");
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

        const QString path = m_dir.filePath("edited.rss");
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
        const QString pdf = m_dir.filePath("printout.pdf");
        FileDialogs::queueFileName(pdf);
        QVERIFY(panel()->exportPdf());
        QFile file(pdf);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.read(5) == "%PDF-");
        QVERIFY(file.size() > 2000);
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
        const QString notes = m_dir.filePath("notes.rss");
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
        HelpViewer::setOpener([](const QUrl&) { return false; });
        m_window->openHelp();
        QCOMPARE(MessageBoxNotifier::shownTexts().value(1),
                 QStringLiteral("The path %1 was not found.").arg(file));
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
