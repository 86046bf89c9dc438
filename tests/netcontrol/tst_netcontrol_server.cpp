// The rig-control server on 127.0.0.1: several clients at once, clients that misbehave, the
// operator's long commands, and where it listens.

#include "netcontrol/ClientCommands.h"
#include "netcontrol/NetworkControlServer.h"
#include "netcontrol/NetworkControlSettings.h"
#include "session/SessionFixture.h"

#include <QSignalSpy>
#include <QTcpSocket>

using namespace koral;
using namespace koral::test;

namespace {

constexpr int kBound = 10000;

// A client on the same thread as the server: every wait runs the event loop, with a bound.
class Client
{
public:
    explicit Client(quint16 port) { m_socket.connectToHost(QHostAddress::LocalHost, port); }
    void send(const QByteArray& bytes) { m_socket.write(bytes); }
    // Everything that arrives until `lines` answer lines have come (or the bound passes: the
    // comparison that follows then shows what did come).
    QString read(int lines)
    {
        [[maybe_unused]] const bool complete = QTest::qWaitFor(
            [&] {
                m_received += m_socket.readAll();
                return m_received.count('\n') >= lines;
            },
            kBound);
        return QString::fromUtf8(std::exchange(m_received, {}));
    }
    QString ask(const QByteArray& line, int lines = 1)
    {
        send(line + '\n');
        return read(lines);
    }
    QTcpSocket& socket() { return m_socket; }

private:
    QTcpSocket m_socket;
    QByteArray m_received;
};

} // namespace

class ServerTest : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        m_fixture = std::make_unique<SessionFixture>();
        QVERIFY(m_fixture->startUp());
        m_commands = std::make_unique<ClientCommands>(*m_fixture->session);
    }
    void cleanupTestCase()
    {
        m_commands.reset();
        m_fixture.reset();
    }
    void init()
    {
        m_server = std::make_unique<NetworkControlServer>(*m_commands);
        QVERIFY(m_server->listen(QHostAddress::LocalHost, 0));
    }
    void cleanup() { m_server.reset(); }

    void severalClientsAtOnce()
    {
        QSignalSpy counts(m_server.get(), &NetworkControlServer::clientCountChanged);
        std::vector<std::unique_ptr<Client>> clients;
        for (int i = 0; i < 4; ++i)
            clients.push_back(std::make_unique<Client>(m_server->port()));
        QTRY_COMPARE_WITH_TIMEOUT(m_server->clientCount(), 4, kBound);
        // All ask at once; each gets its own answers, in its own order.
        const QByteArray channels[] = {"3", "12", "17", "25"};
        for (std::size_t i = 0; i < clients.size(); ++i)
            clients[i]->send("+E " + channels[i] + "\n+e\n");
        for (std::size_t i = 0; i < clients.size(); ++i) {
            const QString answer = clients[i]->read(5);
            QVERIFY2(answer.startsWith("set_mem: " + channels[i] + "\nRPRT 0\nget_mem:\nMemory#: "),
                     qPrintable(answer));
        }
        clients.clear();
        QTRY_COMPARE_WITH_TIMEOUT(m_server->clientCount(), 0, kBound);
        QCOMPARE(counts.last().first().toInt(), 0);
    }

    // Garbage, a line of 1 MB and a client that leaves in the middle of a command disturb
    // neither the other clients nor the radio link.
    void misbehavingClients()
    {
        Client steady(m_server->port());
        QCOMPARE(steady.ask("E 17"), "RPRT 0\n");

        Client garbage(m_server->port());
        garbage.send(QByteArray("\x01\x02\xff{}\0 junk\n", 12));
        Client huge(m_server->port());
        huge.send(QByteArray(1 << 20, 'F') + "\ne\n");
        Client leaving(m_server->port());
        leaving.send("f\nF 71");
        QTRY_COMPARE_WITH_TIMEOUT(m_server->clientCount(), 4, kBound);
        leaving.socket().abort();

        QCOMPARE(garbage.read(1), "RPRT -4\n");
        QCOMPARE(huge.read(2), "RPRT -8\n17\n");
        QCOMPARE(steady.ask("e f"), "17\n7055000\n");
        QVERIFY(m_fixture->session->link().isPortOpen());
        QVERIFY(m_fixture->notifier.texts().empty());
    }

    void quitEndsTheConnection()
    {
        Client client(m_server->port());
        QCOMPARE(client.ask("q"), "RPRT 0\n");
        QTRY_COMPARE_WITH_TIMEOUT(client.socket().state(), QAbstractSocket::UnconnectedState,
                                  kBound);
    }

    // Clients wait behind the operator's long command, within a bound.
    void operatorCommandComesFirst()
    {
        auto& view = m_fixture->session->view();
        m_server->setBusyWaitMilliseconds(300);
        Client client(m_server->port());
        view.busy = true;
        QCOMPARE(client.ask("+e"), "get_mem:\nRPRT -5\n");
        view.busy = false;
        QCOMPARE(client.ask("E 12"), "RPRT 0\n");
        view.busy = true;
        client.send("e\n");
        QTest::qWait(100);
        view.busy = false;
        QCOMPARE(client.read(1), "12\n");
    }

    void listensOnLoopbackUnlessTold()
    {
        NetworkControlServer server(*m_commands);
        QVERIFY(server.listen(QHostAddress::LocalHost, 0));
        QVERIFY(server.address().isLoopback());
        const NetworkControlSettings defaults;
        QVERIFY(!defaults.enabled && !defaults.reachableFromOutside());
        // A second server cannot have the same port: the operator is told why.
        NetworkControlServer second(*m_commands);
        QVERIFY(!second.listen(QHostAddress::LocalHost, server.port()));
        QVERIFY(!second.errorString().isEmpty());
    }

    void listenText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("parsed"); // address|port|reachable from outside
        QTest::newRow("loopback") << "127.0.0.1:4532"
                                  << "127.0.0.1|4532|0";
        QTest::newRow("all interfaces") << "0.0.0.0:4600"
                                        << "0.0.0.0|4600|1";
        QTest::newRow("IPv6") << "[::1]:4532"
                              << "::1|4532|0";
        QTest::newRow("no port") << "127.0.0.1"
                                 << "";
        QTest::newRow("port out of range") << "127.0.0.1:70000"
                                           << "";
        QTest::newRow("host name") << "localhost:4532"
                                   << "";
    }
    void listenText()
    {
        QFETCH(QString, text);
        QFETCH(QString, parsed);
        const auto settings = NetworkControlSettings::fromListen(text);
        QCOMPARE(settings ? QStringLiteral("%1|%2|%3")
                                .arg(settings->address)
                                .arg(settings->port)
                                .arg(int(settings->reachableFromOutside()))
                          : QString(),
                 parsed);
    }

private:
    std::unique_ptr<SessionFixture> m_fixture;
    std::unique_ptr<ClientCommands> m_commands;
    std::unique_ptr<NetworkControlServer> m_server;
};

QTEST_GUILESS_MAIN(ServerTest)
#include "tst_netcontrol_server.moc"
