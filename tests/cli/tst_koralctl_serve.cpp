// koralctl serve against the protocol's reference client (rigctl, rig model 2 "NET rigctl")
// on the built-in virtual radio; skipped without rigctl installed. Its argument errors are in
// tst_koralctl.

#include "support/Table.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTcpServer>
#include <QtTest>

using namespace koral::test;

namespace {
constexpr int kBound = 60000;
} // namespace

class ServeTest : public QObject
{
    Q_OBJECT
private slots:
    void referenceClient_data()
    {
        const auto row = [](const char* name, const char* command, const char* out,
                            bool refused = false) {
            QTest::newRow(name) << QString(command) << QString(out) << refused;
        };
        columns<QString, QString, bool>("command", "out", "refused");
        row("select channel 12", "E 12", "");
        row("frequency", "f", "5815000\n");
        row("mode", "m", "USB\n3000\n");
        row("no channel on 7.1 MHz", "F 7100000", "", true);
        row("channel 17 on 7.055 MHz", "F 7055000", "");
        row("now on channel 17", "e", "17\n");
    }
    void referenceClient()
    {
        auto [command, out, refused] = fetch<QString, QString, bool>("command", "out", "refused");
        const QString rigctl = QStandardPaths::findExecutable("rigctl");
        if (rigctl.isEmpty())
            QSKIP("rigctl (Debian package libhamlib-utils) is not installed; "
                  "scripts/ensure-deps.sh installs it");
        if (m_server.state() == QProcess::NotRunning)
            QVERIFY(startServer());
        QProcess client;
        client.start(rigctl,
                     QStringList{"-m", "2", "-r", QStringLiteral("127.0.0.1:%1").arg(m_port)} +
                         command.split(' '));
        QVERIFY(client.waitForFinished(kBound));
        const QString printed = QString::fromUtf8(client.readAllStandardOutput());
        const QString complained = QString::fromUtf8(client.readAllStandardError());
        // A refusal is reported in the client's words, with its trace, on its own streams.
        if (refused) {
            QVERIFY2((printed + complained).contains("Command rejected by the rig"),
                     qPrintable(printed + complained));
            return;
        }
        QCOMPARE(printed, out);
        QVERIFY2(complained.isEmpty(), qPrintable(complained));
    }

    void cleanupTestCase()
    {
        if (m_server.state() == QProcess::NotRunning)
            return;
        m_server.terminate();
        if (!m_server.waitForFinished(10000))
            m_server.kill();
        QCOMPARE(m_server.exitCode(), 0);
    }

private:
    bool startServer()
    {
        QTcpServer probe; // a free port on the loopback address
        if (!probe.listen(QHostAddress::LocalHost, 0))
            return false;
        m_port = probe.serverPort();
        probe.close();
        m_server.start(KORALCTL_PATH, {"serve", "--port", "virtual", "--baud", "9600", "--listen",
                                       QStringLiteral("127.0.0.1:%1").arg(m_port)});
        return QTest::qWaitFor(
                   [&] {
                       m_server.waitForReadyRead(100);
                       return m_server.canReadLine() || m_server.state() == QProcess::NotRunning;
                   },
                   kBound) &&
               m_server.readLine().startsWith("serving rig-control clients on 127.0.0.1");
    }

    QProcess m_server;
    quint16 m_port = 0;
};

QTEST_GUILESS_MAIN(ServeTest)
#include "tst_koralctl_serve.moc"
