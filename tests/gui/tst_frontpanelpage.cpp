// The KORAL and KORAL-2E pages against the virtual radio inside the program: keys pressed with
// the mouse and with the computer's keyboard reach the radio, and the display shows what the
// radio then reports; with the link closed a key only tells the operator so.

#include "GuiTestSupport.h"
#include "RadioWindow.h"
#include "support/Table.h"

#include "common/Texts.h"
#include "gui/FrontPanelCompanionPage.h"
#include "gui/FrontPanelPage.h"
#include "gui/FrontPanelScreen.h"
#include "gui/FrontPanels.h"
#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/RadioController.h"

#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

using namespace koral;
using namespace koral::test;

class FrontPanelPageTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    VirtualRadioMemory m_memory;
    std::unique_ptr<MainWindow> m_window;

    RadioController* radio() { return m_window->radio(); }
    FrontPanelPage* page(Panel panel)
    {
        FrontPanels* panels = m_window->frontPanels();
        return panel == Panel::Koral ? panels->koralPage() : panels->koral2EPage();
    }
    FrontPanelPage* show(Panel panel)
    {
        m_window->showPanel(panel);
        FrontPanelPage* shown = page(panel);
        shown->setFocus();
        return shown;
    }
    // A head key by its label with the mouse, or the computer's key the page's hint names.
    static void press(FrontPanelPage* page, const QString& key, bool keyboard)
    {
        if (keyboard)
            QTest::keyClick(page, QKeySequence(key)[0].key());
        else
            QTest::mouseClick(page->button(key), Qt::LeftButton);
    }
    static QString shown(FrontPanelPage* page) { return page->screen()->shownLines().join('|'); }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_window = windowOnVirtualRadio(m_dir, m_memory);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        // Active, so that the window's own shortcuts (F1 for the manual) compete for the keys.
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTRY_VERIFY_WITH_TIMEOUT(radio()->session().view().radioReady && !radio()->isBusy(), 90000);
    }
    void cleanupTestCase() { m_window.reset(); }

    void keysShowTheRadiosAnswer_data()
    {
        columns<int, bool, QStringList, QString>("panel", "keyboard", "keys", "display");
        QTest::newRow("MENU with the mouse") << 3 << false << QStringList{"MENU"} << "MENU 1/7";
        QTest::newRow("MENU, # and a digit with the keyboard, short head")
            << 5 << true << QStringList{"M", "#", "#", "4"} << "MENU 4/7|MONITOR: OFF";
        QTest::newRow("a group chosen in the menu with the mouse")
            << 5 << false << QStringList{"MENU", "2", "Enter", "#", "Enter"}
            << "MENU 2/7|SCAN GROUP: GROUP B";
        // F1 is the manual's key elsewhere in the window: here it is the head's.
        QTest::newRow("F1 with the keyboard") << 3 << true << QStringList{"F1"} << "SQL ON";
        QTest::newRow("F1 with the mouse") << 3 << false << QStringList{"F1"} << "SQL OFF";
        QTest::newRow("GPS with the keyboard") << 3 << true << QStringList{"G"} << "GPS POSITION";
    }
    void keysShowTheRadiosAnswer()
    {
        auto [panel, keyboard, keys, display] =
            fetch<int, bool, QStringList, QString>("panel", "keyboard", "keys", "display");
        FrontPanelPage* shownPage = show(Panel(panel));
        MessageBoxNotifier::clearShownTexts();
        for (const QString& key : keys)
            press(shownPage, key, keyboard);
        QTRY_VERIFY2_WITH_TIMEOUT(shown(shownPage).contains(display), qPrintable(shown(shownPage)),
                                  5000);
        QCOMPARE(MessageBoxNotifier::shownTexts(), QStringList());
        // Leave the radio's head on its channel page for the next row.
        press(shownPage, "Esc", false);
        QTRY_VERIFY_WITH_TIMEOUT(shown(shownPage).contains("|RX "), 5000);
    }

    void typedChannelIsSelected()
    {
        const dbase& record = radio()->session().records().radio;
        int channel = kChannelCount;
        while (channel > 1 && !record.channelNo(channel).isProgrammed())
            --channel;
        FrontPanelPage* koral = show(Panel::Koral);
        QVERIFY(koral->findChild<QLabel*>("shortcutHint")->isVisible());
        for (QChar digit : QString::number(channel))
            press(koral, digit, true);
        press(koral, "Return", true);
        const QString heading = QStringLiteral("CH %1").arg(channel, 3, 10, QLatin1Char('0'));
        QTRY_VERIFY2_WITH_TIMEOUT(shown(koral).contains(heading) && shown(koral).contains("|SQL "),
                                  qPrintable(shown(koral)), 5000);
        QCOMPARE(int(m_memory.state().activeChannel), channel);
        screenshot(m_window.get(), "koral-panel");
        show(Panel::Koral2E);
        QCOMPARE(shown(page(Panel::Koral2E)), shown(koral));
    }

    // The display follows what the radio does on its own, with no key pressed: a page opens on
    // what the radio shows now, and shows every change while it is open.
    void displayFollowsTheRadio()
    {
        // The radio moves to another channel while no page shows.
        m_window->showPanel(Panel::ComputerInterface);
        const dbase& record = radio()->session().records().radio;
        const unsigned active = m_memory.state().activeChannel;
        int channel = 1;
        while (!record.channelNo(channel).isProgrammed() || unsigned(channel) == active)
            ++channel;
        m_memory.onRadio([channel](radiosim::VirtualRadio& r) {
            r.play(radiosim::FrontPanelChannel{unsigned(channel)});
        });
        FrontPanelPage* koral2E = show(Panel::Koral2E);
        const QString heading = QStringLiteral("CH %1|").arg(channel, 3, 10, QLatin1Char('0'));
        QTRY_VERIFY2_WITH_TIMEOUT(shown(koral2E).contains(heading), qPrintable(shown(koral2E)),
                                  5000);
        const auto scan = [this](bool on) {
            m_memory.onRadio([on](radiosim::VirtualRadio& r) {
                r.play(radiosim::FrontPanelScan{on, false, 0});
            });
        };
        scan(true);
        QTRY_VERIFY2_WITH_TIMEOUT(shown(koral2E).startsWith("SCAN GRP A"),
                                  qPrintable(shown(koral2E)), 5000);
        screenshot(m_window.get(), "koral-2e-panel");
        scan(false);
        QTRY_VERIFY2_WITH_TIMEOUT(shown(koral2E).startsWith("CHAN "), qPrintable(shown(koral2E)),
                                  5000);
    }

    // The short head's MORE puts the attenuator and the clipper on its switch keys; a switch
    // key runs the program's command and lights with it, whichever way the command ran.
    void companionSwitchKeys()
    {
        FrontPanelCompanionPage* companion = show(Panel::Koral2E)->companion();
        QCOMPARE(companion->shownSwitches(), QStringList({"SQL", "MON", "NB"}));
        QTest::mouseClick(companion->moreKey(), Qt::LeftButton);
        QCOMPARE(companion->shownSwitches(), QStringList({"ATT", "CLP"}));
        QPushButton* attenuator = companion->switchKey("ATT");
        QVERIFY(attenuator->isEnabled() && !attenuator->isChecked());
        QTest::mouseClick(attenuator, Qt::LeftButton);
        QTRY_VERIFY(attenuator->isChecked());
        QVERIFY(m_memory.state().attenuator);
        // The window's shortcut for the same command reaches it from the page, and the key
        // follows.
        QTest::keyClick(page(Panel::Koral2E), Qt::Key_4, Qt::ControlModifier);
        QTRY_VERIFY(!attenuator->isChecked());
        QVERIFY(!m_memory.state().attenuator);
        QTest::mouseClick(companion->moreKey(), Qt::LeftButton);
        QCOMPARE(companion->shownSwitches(), QStringList({"SQL", "MON", "NB"}));
    }

    void linkClosedShowsTheMessageOnce()
    {
        FrontPanelPage* koral = show(Panel::Koral);
        radio()->session().link().closeRadioLink();
        QCOMPARE(shown(koral), QStringLiteral("||"));
        MessageBoxNotifier::clearShownTexts();
        press(koral, "MENU", false);
        const QString noResponse = QString::fromUtf8(text::byId(text::id::NoResponse).data());
        QCOMPARE(MessageBoxNotifier::shownTexts(), QStringList{noResponse});
        press(koral, "5", true);
        QCOMPARE(MessageBoxNotifier::shownTexts(), QStringList({noResponse, noResponse}));
        QCOMPARE(shown(koral), QStringLiteral("||"));
    }
};

QTEST_MAIN(FrontPanelPageTest)
#include "tst_frontpanelpage.moc"
