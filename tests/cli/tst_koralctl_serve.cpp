// koralctl serve against the protocol's reference client (rigctl, rig model 2 "NET rigctl")
// on the built-in virtual radio; skipped without rigctl installed. Its argument errors are in
// tst_koralctl, the answer to each command in tst_netcontrol.

#include <QProcess>
#include <QStandardPaths>
#include <QTcpServer>
#include <QtTest>

class ServeTest : public QObject
{
    Q_OBJECT
private slots:
    // A channel the client selects is the one it then reads; a refusal comes in the client's
    // own words; the server ends cleanly when told to.
    void referenceClient()
    {
        constexpr int kBound = 60000;
        const QString rigctl = QStandardPaths::findExecutable("rigctl");
        if (rigctl.isEmpty())
            QSKIP("rigctl (Debian package libhamlib-utils) is not installed; "
                  "scripts/ensure-deps.sh installs it");
        QTcpServer probe; // a free port on the loopback address
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        const QString address = QStringLiteral("127.0.0.1:%1").arg(probe.serverPort());
        probe.close();
        QProcess server;
        server.start(KORALCTL_PATH,
                     {"serve", "--port", "virtual", "--baud", "9600", "--listen", address});
        QVERIFY(QTest::qWaitFor(
            [&] {
                server.waitForReadyRead(100);
                return server.canReadLine() || server.state() == QProcess::NotRunning;
            },
            kBound));
        QVERIFY(server.readLine().startsWith("serving rig-control clients on 127.0.0.1"));
        // What the client prints on both its streams.
        const auto client = [&](const QString& commands) {
            QProcess process;
            process.start(rigctl, QStringList{"-m", "2", "-r", address} + commands.split(' '));
            process.waitForFinished(kBound);
            return QString::fromUtf8(process.readAllStandardOutput() +
                                     process.readAllStandardError());
        };
        QCOMPARE(client("E 12"), QString());
        QCOMPARE(client("f m"), QString("5815000\nUSB\n3000\n"));
        const QString refused = client("F 7100000");
        QVERIFY2(refused.contains("Command rejected by the rig"), qPrintable(refused));
        server.terminate();
        QVERIFY(server.waitForFinished(10000));
        QCOMPARE(server.exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(ServeTest)
#include "tst_koralctl_serve.moc"
