// The "Network Control" dialog's rules and the status bar pane that follows the server.

#include "GuiTestSupport.h"
#include "common/RecordingNotifier.h"
#include "gui/NetworkControlDialog.h"
#include "gui/NetworkControlPane.h"
#include "session/ControlCenterSession.h"
#include "support/Table.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

using namespace koral;
using namespace koral::test;

class NetworkControlTest : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void dialogRules_data()
    {
        columns<bool, QString, int, bool, QString>("enabled", "address", "scratch", "okEnabled",
                                                   "warning");
        QTest::newRow("defaults") << true << "127.0.0.1" << 0 << true << "";
        QTest::newRow("every interface")
            << true << "0.0.0.0" << 0 << true << "Other computers can control the radio";
        QTest::newRow("not an address")
            << true << "radio.local" << 0 << false << "'radio.local' is not an IP address.";
        QTest::newRow("off: nothing to check") << false << "radio.local" << 0 << true << "";
        QTest::newRow("scratch channel") << true << "::1" << 200 << true << "";
    }
    void dialogRules()
    {
        auto [enabled, address, scratch, okEnabled, warning] =
            fetch<bool, QString, int, bool, QString>("enabled", "address", "scratch", "okEnabled",
                                                     "warning");
        NetworkControlDialog dialog({});
        dialog.findChild<QCheckBox*>()->setChecked(enabled);
        dialog.findChild<QLineEdit*>()->setText(address);
        dialog.findChildren<QSpinBox*>().last()->setValue(scratch);
        const auto* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        QCOMPARE(ok->isEnabled(), okEnabled);
        const auto labels = dialog.findChildren<QLabel*>();
        const bool shown = std::any_of(labels.begin(), labels.end(), [&](QLabel* label) {
            return !warning.isEmpty() && label->text().startsWith(warning);
        });
        QCOMPARE(shown, !warning.isEmpty());
        QCOMPARE(dialog.settings().scratchChannel, scratch);
        if (address == "0.0.0.0") {
            dialog.show();
            screenshot(&dialog, "network-control");
        }
    }

    void paneCountsClients()
    {
        QTemporaryDir data;
        RecordingNotifier notifier;
        ControlCenterSession session(notifier, data.path().toStdString());
        NetworkControlPane pane(session, notifier);
        QCOMPARE(pane.text(), "Network control off");

        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        NetworkControlSettings settings;
        settings.enabled = true;
        settings.port = probe.serverPort();
        pane.apply(settings); // the port is taken: the operator is told, the server stays off
        QCOMPARE(pane.text(), "Network control off");
        QCOMPARE(notifier.texts().size(), std::size_t(1));
        probe.close();

        pane.apply(settings);
        QCOMPARE(pane.text(), "Network control on: 0 clients");
        QTcpSocket client;
        client.connectToHost(QHostAddress::LocalHost, quint16(settings.port));
        QTRY_COMPARE_WITH_TIMEOUT(pane.text(), "Network control on: 1 client", 10000);
        client.abort();
        QTRY_COMPARE_WITH_TIMEOUT(pane.text(), "Network control on: 0 clients", 10000);
        settings.enabled = false;
        pane.apply(settings);
        QCOMPARE(pane.text(), "Network control off");
    }
};

QTEST_MAIN(NetworkControlTest)
#include "tst_networkcontrol.moc"
