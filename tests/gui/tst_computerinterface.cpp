// The Computer Interface panel against the virtual radio inside the program: it opens on the
// radio's active channel, changes channel and programs one (what reaches the radio is compared
// with the panel), jumps to the priority channel, scans an ALE net and a group, and comes back
// after a radio that stopped answering; announces, stacks and answers a call from another
// station; runs and aborts a link-quality exchange and a sounding; sends the clarifier and
// notch filter settings.

#include "GuiTestSupport.h"
#include "RadioWindow.h"

#include "common/Texts.h"
#include "gui/CallListDialog.h"
#include "gui/ComputerInterfacePanel.h"
#include "gui/DspSliderDialog.h"
#include "gui/IncomingCallDialog.h"
#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/RadioController.h"
#include "radiodb/Frequency.h"
#include "session/CallStore.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>

using namespace koral;
using namespace koral::test;

class ComputerInterfaceTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    VirtualRadioMemory m_memory;
    std::unique_ptr<MainWindow> m_window;

    ComputerInterfacePanel* panel() { return m_window->computerInterfacePanel(); }
    ChannelController& controller() { return m_window->radio()->session().channels(); }
    // Picks a row as the operator does, by the list's own signal.
    static void choose(QComboBox* box, int row)
    {
        box->setCurrentIndex(row);
        emit box->activated(row);
    }
    void type(QLineEdit* edit, const QString& text)
    {
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    // F4 on the radio's head switches its ALE on and off.
    void setAle(bool on)
    {
        if (m_memory.state().aleOn != on)
            m_memory.onRadio(
                [](radiosim::VirtualRadio& radio) { radio.play(radiosim::FrontPanelKey{7}); });
    }
    // A programmed channel other than the current one.
    int otherRow() const
    {
        return m_window->computerInterfacePanel()->channelBox()->currentIndex() == 0 ? 1 : 0;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_window = windowOnVirtualRadio(m_dir, m_memory);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QTRY_VERIFY_WITH_TIMEOUT(
            m_window->radio()->session().view().radioReady && !m_window->radio()->isBusy(), 90000);
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
    }
    void cleanupTestCase() { m_window.reset(); }
    void init() { MessageBoxNotifier::clearShownTexts(); }

    void opensOnTheRadiosActiveChannel()
    {
        QCOMPARE(m_window->currentPanel(), Panel::ComputerInterface);
        QCOMPARE(shownTitle(m_window.get()), QStringLiteral("Computer Interface Panel"));
        const radiosim::RadioState state = m_memory.state();
        QCOMPARE(panel()->channelBox()->currentText(), QString::number(state.activeChannel));
        const channel record = m_memory.radioRecord().channelNo(int(state.activeChannel));
        QCOMPARE(panel()->rxEdit()->text().toStdString(),
                 frequencyDisplayText(record.rxFrequency.get()));
        QVERIFY(m_window->statusPane(13)->text().startsWith(
            QStringLiteral("Channel: %1").arg(state.activeChannel)));
        QVERIFY(panel()->startScanButton()->isEnabled());
        screenshot(m_window.get(), "computer-interface");
    }

    void programChannelStoresWhatThePanelShows()
    {
        const int number = controller().currentChannel();
        type(panel()->txEdit(), "8.5");
        type(panel()->rxEdit(), "7.25");
        QComboBox* power = panel()->settingBox(ChannelController::List::Power);
        choose(power, power->count() - 1);
        QTest::mouseClick(panel()->programButton(), Qt::LeftButton);
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
        const channel stored = m_memory.radioRecord().channelNo(number);
        QCOMPARE(stored.txFrequency.get(), 8'500'000u);
        QCOMPARE(stored.rxFrequency.get(), 7'250'000u);
        QCOMPARE(int(stored.power), int(controller().working().power));
        QVERIFY(panel()->programButton()->isEnabled());

        // Away (the radio follows, the panel shows its channel) and back: the panel reads the
        // channel from the radio again.
        const int row = panel()->channelBox()->currentIndex();
        const int away = otherRow();
        const int awayNumber = panel()->channelBox()->itemText(away).toInt();
        choose(panel()->channelBox(), away);
        QCOMPARE(int(m_memory.state().activeChannel), awayNumber);
        const channel other = m_memory.radioRecord().channelNo(awayNumber);
        QCOMPARE(panel()->rxEdit()->text().toStdString(),
                 frequencyDisplayText(other.rxFrequency.get()));
        choose(panel()->channelBox(), row);
        QCOMPARE(panel()->txEdit()->text(), QStringLiteral("8.5"));
        QCOMPARE(panel()->rxEdit()->text(), QStringLiteral("7.25"));
        QCOMPARE(power->currentIndex(), power->count() - 1);
        screenshot(panel(), "computer-interface-channel");
    }

    void priorityMakesThePriorityChannelActive()
    {
        const int priority = m_memory.radioRecord().radioOptions.priorityChannel.get();
        QTest::mouseClick(panel()->priorityButton(), Qt::LeftButton);
        QCOMPARE(int(m_memory.state().activeChannel), priority);
        QCOMPARE(panel()->channelBox()->currentText(), QString::number(priority));
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
    }

    void scanStartsAndStops_data()
    {
        QTest::addColumn<bool>("ale");
        QTest::newRow("ALE net") << true;
        QTest::newRow("group") << false;
    }
    void scanStartsAndStops()
    {
        QFETCH(bool, ale);
        setAle(ale);
        // The radio tells its new ALE state: the ALE tabs follow at once.
        QTRY_COMPARE(panel()->tabs()->isTabVisible(1), ale);
        QTest::mouseClick(panel()->startScanButton(), Qt::LeftButton);
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
        QTRY_VERIFY(ale ? m_memory.state().aleScanning : m_memory.state().groupScanning);
        QVERIFY(panel()->scanListPane()->isVisible());
        QVERIFY(!panel()->channelBox()->isVisible());
        QVERIFY(panel()->scanListBox()->count() > 0);
        QCOMPARE(panel()->scanListPane()->title(),
                 ale ? QStringLiteral("Scan ALE") : QStringLiteral("Scan Groups"));
        screenshot(panel(), ale ? "computer-interface-scan-ale" : "computer-interface-scan-group");

        QTest::mouseClick(panel()->stopScanButton(), Qt::LeftButton);
        QTRY_VERIFY(!m_memory.state().aleScanning && !m_memory.state().groupScanning);
        QVERIFY(!panel()->scanListPane()->isVisible());
        QVERIFY(panel()->channelBox()->isVisible());
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
    }

    void stationCallLinksIsLoggedAndAborts()
    {
        CallStore& calls = m_window->radio()->session().calls();
        const std::size_t logged = calls.log().size();
        setAle(true);
        panel()->tabs()->setCurrentIndex(1);
        const QString to = panel()->toBox()->itemText(0);
        choose(panel()->toBox(), 0);
        // The radio's message field holds 90 characters and its zero: typing stops there.
        QTest::keyClicks(panel()->messageBox()->lineEdit(), QString(100, QLatin1Char('M')));
        QCOMPARE(panel()->messageBox()->currentText().size(),
                 int(AleCallController::kMessageBytes) - 1);
        panel()->messageBox()->setEditText(QStringLiteral("hello"));
        QTest::mouseClick(panel()->sendButton(), Qt::LeftButton);
        QVERIFY(!panel()->sendButton()->isEnabled());
        QTRY_COMPARE_WITH_TIMEOUT(panel()->callStatusLabel()->text(),
                                  QStringLiteral("Link was established."), 30000);
        QVERIFY(m_window->radio()->session().view().linked);
        QVERIFY(panel()->abortButton()->isEnabled());
        QCOMPARE(calls.log().size(), logged + 1);
        QCOMPARE(QString::fromStdString(calls.log().back().to), to);
        QCOMPARE(calls.log().back().message, std::string("hello"));
        QTRY_VERIFY(m_memory.state().call == radiosim::CallPhase::Linked);

        QTest::mouseClick(panel()->abortButton(), Qt::LeftButton);
        QTRY_VERIFY(m_memory.state().call == radiosim::CallPhase::Idle);
        QVERIFY(panel()->sendButton()->isEnabled());
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
        panel()->tabs()->setCurrentIndex(0);
    }

    void incomingCallIsAnnouncedStackedAndAnswered()
    {
        CallStore& calls = m_window->radio()->session().calls();
        const std::size_t stacked = calls.stack().size();
        const std::size_t logged = calls.log().size();
        setAle(true);
        // A station of the directory calls, so that the answer reaches it.
        const std::string caller = panel()->toBox()->itemText(0).toStdString();
        m_memory.onRadio([&](radiosim::VirtualRadio& radio) {
            radio.play(radiosim::IncomingCall{radiosim::CallKind::Station, caller, "HELLO", 0});
        });
        QTRY_VERIFY(panel()->incomingCallDialog() && panel()->incomingCallDialog()->isVisible());
        IncomingCallDialog* dialog = panel()->incomingCallDialog();
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Incoming Station Call."));
        QCOMPARE(dialog->addressLabel()->text().toStdString(), caller);
        QCOMPARE(dialog->messageLabel()->text(), QStringLiteral("HELLO"));
        QCOMPARE(dialog->channelLabel()->text(), QString::number(m_memory.state().activeChannel));
        screenshot(dialog, "incoming-call");
        dialog->accept();
        QCOMPARE(calls.stack().size(), stacked + 1);

        // The call shows that the radio's ALE is on: the ALE tab is there to answer from. The
        // radio stays linked with the caller: the panel shows the link, and Abort ends it.
        QVERIFY(panel()->tabs()->isTabVisible(1));
        panel()->tabs()->setCurrentIndex(1);
        QVERIFY(m_memory.state().call == radiosim::CallPhase::Linked);
        QVERIFY(panel()->stateSummary().contains(QStringLiteral("Link: established")));
        QVERIFY(!panel()->sendButton()->isEnabled());
        QTest::mouseClick(panel()->abortButton(), Qt::LeftButton);
        QTRY_VERIFY(m_memory.state().call == radiosim::CallPhase::Idle);
        QVERIFY(panel()->stateSummary().contains(QStringLiteral("Link: none")));
        QTest::mouseClick(panel()->stackButton(), Qt::LeftButton);
        QTRY_VERIFY(panel()->callListDialog() && panel()->callListDialog()->isVisible());
        CallListDialog* stack = panel()->callListDialog();
        const int last = stack->grid()->rowCount() - 1;
        QCOMPARE(last + 1, int(calls.stack().size()));
        QCOMPARE(stack->grid()->item(last, 0)->text().toStdString(), caller);
        QCOMPARE(stack->grid()->item(last, 5)->text(), QStringLiteral("Station"));
        QTest::mouseClick(stack->button(text::kReply), Qt::LeftButton);
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QStringLiteral("Grid line is not valid, line = 0")});
        stack->grid()->selectRow(last);
        screenshot(stack, "stack-list");
        QTest::mouseClick(stack->button(text::kReply), Qt::LeftButton);
        QTRY_VERIFY(!panel()->callListDialog());
        QCOMPARE(panel()->toBox()->currentText().toStdString(), caller);
        QTRY_COMPARE_WITH_TIMEOUT(panel()->callStatusLabel()->text(),
                                  QStringLiteral("Link was established."), 30000);
        QCOMPARE(calls.log().back().to, caller);
        QCOMPARE(calls.log().size(), logged + 2);

        QTest::mouseClick(panel()->logButton(), Qt::LeftButton);
        QTRY_VERIFY(panel()->callListDialog() && panel()->callListDialog()->isVisible());
        CallListDialog* log = panel()->callListDialog();
        QCOMPARE(log->grid()->rowCount(), int(calls.log().size()));
        // The net's name shows whole.
        const QString net = QString::fromStdString(calls.log().back().net);
        QVERIFY(log->grid()->columnWidth(6) > log->grid()->fontMetrics().horizontalAdvance(net));
        screenshot(log, "call-log");
        log->grid()->selectRow(0);
        QTest::mouseClick(log->button(text::kDelete), Qt::LeftButton);
        QCOMPARE(log->grid()->rowCount(), int(logged + 1));
        QCOMPARE(int(calls.log().size()), int(logged + 1));
        log->close();

        QTest::mouseClick(panel()->abortButton(), Qt::LeftButton);
        QTRY_VERIFY(m_memory.state().call == radiosim::CallPhase::Idle);
        QCOMPARE(MessageBoxNotifier::shownTexts().size(), 1);
        panel()->tabs()->setCurrentIndex(0);
    }

    void linkQualityExchangeAndSoundingStartAndAbort()
    {
        using Type = LinkQualityController::Type;
        setAle(true);
        // Sounding goes out on the channels of the net the radio scans.
        QTest::mouseClick(panel()->startScanButton(), Qt::LeftButton);
        QTRY_VERIFY(m_memory.state().aleScanning);
        QVERIFY(panel()->tabs()->isTabVisible(2));
        panel()->tabs()->setCurrentIndex(1);
        screenshot(panel(), "computer-interface-ale");
        panel()->tabs()->setCurrentIndex(2);

        QTest::mouseClick(panel()->linkQualityTypeButton(Type::BiDirectional), Qt::LeftButton);
        choose(panel()->linkQualityToBox(), 0);
        QTest::mouseClick(panel()->linkQualitySendButton(), Qt::LeftButton);
        QTRY_VERIFY(m_memory.state().call == radiosim::CallPhase::LinkQuality);
        QVERIFY(panel()->bidirectionalIndicator()->isChecked());
        QVERIFY(panel()->stateSummary().contains(QStringLiteral("Call: link quality with")));
        QVERIFY(!panel()->linkQualitySendButton()->isEnabled());
        screenshot(panel(), "computer-interface-link-quality");
        QTest::mouseClick(panel()->linkQualityAbortButton(), Qt::LeftButton);
        QTRY_VERIFY(m_memory.state().call == radiosim::CallPhase::Idle);
        QVERIFY(!panel()->bidirectionalIndicator()->isChecked());
        QVERIFY(panel()->linkQualitySendButton()->isEnabled());

        QTest::mouseClick(panel()->linkQualityTypeButton(Type::Sounding), Qt::LeftButton);
        QTest::mouseClick(panel()->linkQualitySendButton(), Qt::LeftButton);
        QTRY_VERIFY(m_memory.state().sounding);
        QVERIFY(panel()->soundingIndicator()->isChecked());
        QVERIFY(panel()->stateSummary().contains(QStringLiteral("Call: sounding")));
        QTest::mouseClick(panel()->linkQualityAbortButton(), Qt::LeftButton);
        QTRY_VERIFY(!m_memory.state().sounding);
        QVERIFY(!panel()->soundingIndicator()->isChecked());
        QVERIFY(panel()->linkQualitySendButton()->isEnabled());

        QTest::mouseClick(panel()->stopScanButton(), Qt::LeftButton);
        QTRY_VERIFY(!m_memory.state().aleScanning);
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
        panel()->tabs()->setCurrentIndex(0);
    }

    void clarifierAndNotchSettingsReachTheRadio()
    {
        QAction* clarifierOn = panel()->dspActions().at(0);
        QAction* notchOn = panel()->dspActions().at(1);
        clarifierOn->setChecked(true);
        DspSliderDialog* clarifier = panel()->clarifierDialog();
        QVERIFY(clarifier->isVisible());
        QTest::mouseClick(clarifier->upButton(), Qt::LeftButton);
        QTest::mouseClick(clarifier->upButton(), Qt::LeftButton);
        QTRY_COMPARE(int(m_memory.state().clarifierMagnitude), 20);
        QCOMPARE(int(m_memory.state().clarifierDirection), 1);
        clarifier->slider()->setValue(-15);
        QCOMPARE(clarifier->slider()->value(), -20);
        QTRY_COMPARE(int(m_memory.state().clarifierDirection), 2);
        QCOMPARE(clarifier->stateLabel()->text(), QStringLiteral("ON"));
        screenshot(clarifier, "clarifier");
        QTest::mouseClick(clarifier->offButton(), Qt::LeftButton);
        QTRY_COMPARE(int(m_memory.state().clarifierDirection), 0);

        notchOn->setChecked(true);
        DspSliderDialog* notch = panel()->notchDialog();
        notch->slider()->setValue(420);
        QCOMPARE(notch->slider()->value(), 540);
        QTRY_COMPARE(int(m_memory.state().dspLevel), 1);
        screenshot(notch, "notch-filter");
        QTest::mouseClick(notch->offButton(), Qt::LeftButton);
        QTRY_COMPARE(int(m_memory.state().dspLevel), 0);

        // Switching off puts the slider back without telling the radio.
        clarifier->slider()->setValue(50);
        QTRY_COMPARE(int(m_memory.state().clarifierMagnitude), 50);
        clarifierOn->setChecked(false);
        QVERIFY(!clarifier->isVisible());
        QCOMPARE(clarifier->slider()->value(), 0);
        notchOn->setChecked(false);
        QTest::qWait(50);
        QCOMPARE(int(m_memory.state().clarifierMagnitude), 50);
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
    }

    void aRadioThatStopsAnsweringGivesTheMessageAndThePanelRecovers()
    {
        const int row = panel()->channelBox()->currentIndex();
        m_memory.onRadio([](radiosim::VirtualRadio& radio) {
            radio.inject(radiosim::FaultCommand{radiosim::FaultKind::NoAnswer});
        });
        choose(panel()->channelBox(), otherRow());
        QCOMPARE(MessageBoxNotifier::shownTexts(),
                 QStringList{QString::fromUtf8(text::byId(text::id::NoResponse).data())});
        QCOMPARE(panel()->channelBox()->currentIndex(), row);

        m_memory.onRadio([](radiosim::VirtualRadio& radio) { radio.clearFaults(); });
        MessageBoxNotifier::clearShownTexts();
        const int other = otherRow();
        choose(panel()->channelBox(), other);
        QVERIFY(MessageBoxNotifier::shownTexts().isEmpty());
        QCOMPARE(int(m_memory.state().activeChannel),
                 panel()->channelBox()->itemText(other).toInt());
    }
};

QTEST_MAIN(ComputerInterfaceTest)
#include "tst_computerinterface.moc"
