// The rig-control protocol against the virtual radio through the session, command by command
// and error by error: what a client reads, what it changes, and what the operator sees; then the
// server on 127.0.0.1: several clients at once, clients that misbehave, the operator's long
// commands, and where it listens.

#include "netcontrol/ClientCommands.h"
#include "netcontrol/NetworkControlServer.h"
#include "netcontrol/NetworkControlSettings.h"
#include "netcontrol/RigctlInterpreter.h"
#include "session/SessionFixture.h"
#include "support/Table.h"

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

class NetControlTest : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        m_fixture = std::make_unique<SessionFixture>();
        QVERIFY(m_fixture->startUp());
        m_commands = std::make_unique<ClientCommands>(*m_fixture->session);
        m_interpreter = std::make_unique<RigctlInterpreter>(*m_commands);
    }

    // One client's conversation, in order: each row builds on the rows before it.
    void conversation_data()
    {
        const auto row = [](const char* name, const char* line, const char* answer) {
            QTest::newRow(name) << QString(line) << QString(answer);
        };
        columns<QString, QString>("line", "answer");
        row("select a channel", "E 17", "RPRT 0\n");
        row("its number", "e", "17\n");
        row("its receive frequency", "f", "7055000\n");
        row("its mode and passband", "m", "USB\n2700\n");
        row("long names", "\\get_mem", "17\n");
        row("extended, newline", "+f", "get_freq:\nFrequency: 7055000\nRPRT 0\n");
        row("extended, semicolon", ";m", "get_mode:;Mode: USB;Passband: 2700;RPRT 0\n");
        row("extended set echoes", "+E 12", "set_mem: 12\nRPRT 0\n");
        row("several on a line", "e f", "12\n5815000\n");
        row("a frequency selects its channel", "F 7055000.000000", "RPRT 0\n");
        row("... which is then active", "e", "17\n");
        row("shared frequency keeps the active channel", "E 9", "RPRT 0\n");
        row("4125 kHz: channels 7 and 9", "F 4125000", "RPRT 0\n");
        row("... stays on 9", "e", "9\n");
        row("no channel, no scratch", "F 7100000", "RPRT -9\n");
        row("above 30 MHz", "F 30000001", "RPRT -1\n");
        row("not a number", "F 7.1MHz", "RPRT -1\n");
        row("missing argument", "F", "RPRT -1\n");
        row("channel 0", "E 0", "RPRT -1\n");
        row("channel 201", "E 201", "RPRT -1\n");
        row("unprogrammed channel", "E 150", "RPRT -9\n");
        row("same mode is accepted", "M USB 0", "RPRT 0\n");
        row("another mode is not", "M AM 0", "RPRT -4\n");
        row("squelch on", "U SQL 1", "RPRT 0\n");
        row("squelch reads on", "u SQL", "1\n");
        row("noise blanker off", "U NB 0", "RPRT 0\n");
        row("noise blanker reads off", "+u NB", "get_func: NB\nFunc Status: 0\nRPRT 0\n");
        row("attenuator on", "L ATT 10", "RPRT 0\n");
        row("attenuator reads its step", "l ATT", "1\n");
        row("functions offered", "u ?", "NB SQL\n");
        row("levels offered", "l ?", "ATT\n");
        row("a function the radio lacks", "U COMP 1", "RPRT -4\n");
        row("a function no radio has", "u BOGUS", "RPRT -1\n");
        row("a level the radio lacks", "l RFPOWER", "RPRT -4\n");
        row("the one VFO", "v", "VFOA\n");
        row("VFO A is accepted", "V VFOA", "RPRT 0\n");
        row("VFO B is not there", "V VFOB", "RPRT -4\n");
        row("no VFO mode", "\\chk_vfo", "0\n");
        row("no transmit keying", "T 1", "RPRT -4\n");
        row("no split", "+s", "get_split_vfo:\nRPRT -4\n");
        row("long name of the unimplemented", "\\get_powerstat", "RPRT -4\n");
        row("arguments of the unimplemented are consumed", "J 100 e", "RPRT -4\n9\n");
        row("garbage: one answer, rest dropped", "k#@! e f", "RPRT -4\n");
        row("unknown long name", "\\set_everything 1", "RPRT -4\n");
        row("blank line", "   ", "");
        row("line end of a terminal", "e\r", "9\n");
        row("quit", "q", "RPRT 0\n");
    }
    void conversation()
    {
        auto [line, answer] = fetch<QString, QString>("line", "answer");
        QCOMPARE(QString::fromStdString(m_interpreter->answer(line.toStdString())), answer);
        QCOMPARE(m_interpreter->quitRequested(), line == "q");
        QVERIFY(m_fixture->notifier.texts().empty());
    }

    // The layout a client's \dump_state parser walks: version, model, region, two range
    // lists, steps and filters each ended by zeros, six numbers, four masks, two more, then
    // settings up to "done".
    void dumpStateLayout()
    {
        RigctlInterpreter interpreter(*m_commands);
        const QStringList lines =
            QString::fromStdString(interpreter.answer("\\dump_state")).split('\n');
        QCOMPARE(lines.first(), "1");
        int at = 3;
        for (const char* end : {"0 0 0 0 0 0 0", "0 0 0 0 0 0 0", "0 0", "0 0"}) {
            while (at < lines.size() && lines[at] != end)
                ++at;
            QVERIFY2(at < lines.size(), qPrintable(end));
            ++at;
        }
        QCOMPARE(lines.mid(at, 6), QStringList({"0", "0", "0", "0", "", "1"}));
        QCOMPARE(lines.mid(at + 6, 4), QStringList({"0x100002", "0x100002", "0x2", "0x2"}));
        QCOMPARE(lines[lines.size() - 2], "done");
    }

    void init()
    {
        m_client = std::make_unique<RigctlInterpreter>(*m_commands);
        m_server = std::make_unique<NetworkControlServer>(*m_commands);
        QVERIFY(m_server->listen(QHostAddress::LocalHost, 0));
    }
    void cleanup() { m_server.reset(); }

    void clientChangesReachThePanels()
    {
        auto& session = *m_fixture->session;
        QSignalSpy toggles(&session.commands(), &ViewCommands::toggleChanged);
        int reported = 0;
        connect(&session.dispatcher(), &MessageDispatcher::channelReport, this,
                [&](const CRadioMessage& report, int) { reported = report[7]; });
        QSignalSpy selected(&session.activeChannel(), &ActiveChannel::selected);
        m_client->answer("U SQL 0 E 12");
        QCOMPARE(session.commands().state(ViewCommands::Toggle::Squelch), false);
        QCOMPARE(toggles.size(), 1);
        QCOMPARE(selected.size(), 1);
        QTRY_COMPARE_WITH_TIMEOUT(reported, 12, 5000); // the radio's own report
    }

    void operatorChangesAreWhatClientsRead()
    {
        auto& session = *m_fixture->session;
        const bool before = session.commands().state(ViewCommands::Toggle::Attenuator);
        QCOMPARE(session.commands().toggle(ViewCommands::Toggle::Attenuator), 1);
        QCOMPARE(m_client->answer("l ATT"), before ? "0\n" : "1\n");
        QVERIFY(session.activeChannel().select(25));
        QCOMPARE(m_client->answer("e f"), "25\n12290000\n");
        m_fixture->play(*radiosim::parseConsoleLine("channel 30").command);
        QCOMPARE(m_client->answer("e"), "30\n");
    }

    void scratchChannelTakesANewFrequency()
    {
        auto& session = *m_fixture->session;
        QSignalSpy programmed(&session.activeChannel(), &ActiveChannel::programmed);
        m_commands->setScratchChannel(200);
        QCOMPARE(m_client->answer("F 7100000 e f"), "RPRT 0\n200\n7100000\n");
        QCOMPARE(programmed.size(), 1);
        QCOMPARE(session.records().radio.channelNo(200).txFrequency.get(), 7100000u);
        // Below the transmit range the scratch channel only listens.
        QCOMPARE(m_client->answer("F 500000 f"), "RPRT 0\n500000\n");
        QCOMPARE(session.records().radio.channelNo(200).txFrequency.get(), 0u);
        m_commands->setScratchChannel(0);
    }

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
    // neither the other clients nor the radio link; the steady client then quits.
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
        // Quit ends the connection.
        QCOMPARE(steady.ask("q"), "RPRT 0\n");
        QTRY_COMPARE_WITH_TIMEOUT(steady.socket().state(), QAbstractSocket::UnconnectedState,
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
        // A second server cannot have the same port: the operator is told why.
        NetworkControlServer second(*m_commands);
        QVERIFY(!second.listen(QHostAddress::LocalHost, server.port()));
        QVERIFY(!second.errorString().isEmpty());
    }

    void listenText_data()
    {
        // parsed: address|port|reachable from outside
        columns<QString, QString>("text", "parsed");
        const auto row = [](const char* name, const char* text, const char* parsed) {
            QTest::newRow(name) << QString(text) << QString(parsed);
        };
        row("loopback", "127.0.0.1:4532", "127.0.0.1|4532|0");
        row("all interfaces", "0.0.0.0:4600", "0.0.0.0|4600|1");
        row("IPv6", "[::1]:4532", "::1|4532|0");
        row("no port", "127.0.0.1", "");
        row("port out of range", "127.0.0.1:70000", "");
        row("host name", "localhost:4532", "");
    }
    void listenText()
    {
        auto [text, parsed] = fetch<QString, QString>("text", "parsed");
        const auto settings = NetworkControlSettings::fromListen(text);
        QCOMPARE(settings ? QStringLiteral("%1|%2|%3")
                                .arg(settings->address)
                                .arg(settings->port)
                                .arg(int(settings->reachableFromOutside()))
                          : QString(),
                 parsed);
    }

    // A radio that stops answering times the request out; without a link the answer is an
    // I/O error. Neither puts a message box in front of the operator. It closes the link, so it
    // runs last.
    void radioFailures()
    {
        auto& session = *m_fixture->session;
        m_fixture->play(*radiosim::parseConsoleLine("fault no-answer").command);
        QCOMPARE(m_client->answer("f"), "RPRT -5\n");
        m_fixture->play(*radiosim::parseConsoleLine("fault clear").command);
        session.link().closeRadioLink();
        QCOMPARE(m_client->answer("e"), "RPRT -6\n");
        QCOMPARE(m_client->answer("U NB 1"), "RPRT -6\n");
        QVERIFY(m_fixture->notifier.texts().empty());
        QVERIFY(session.link().reportNoResponse());
    }

private:
    std::unique_ptr<SessionFixture> m_fixture;
    std::unique_ptr<ClientCommands> m_commands;
    std::unique_ptr<RigctlInterpreter> m_interpreter; // the conversation's client
    std::unique_ptr<RigctlInterpreter> m_client;      // a fresh client for each test
    std::unique_ptr<NetworkControlServer> m_server;   // a fresh server for each test
};

QTEST_GUILESS_MAIN(NetControlTest)
#include "tst_netcontrol.moc"
