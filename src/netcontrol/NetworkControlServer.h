#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QObject>
#include <QTimer>

#include <deque>
#include <map>
#include <memory>
#include <string>

class QTcpServer;
class QTcpSocket;

namespace koral {

class ClientCommands;
class RigctlInterpreter;

// The rig-control server: listens on one address and port (the loopback address unless the
// operator names another), takes each client's lines and answers them through its own
// RigctlInterpreter. It lives on the session's thread and runs one request at a time from the
// event loop, the clients taking turns line by line, so requests queue behind whatever the
// operator is doing; while a long command of the operator holds the radio they wait, at most
// `busyWaitMilliseconds`, then answer "timed out". A line longer than kMaxLineBytes answers
// "protocol error" and is dropped; a client that stops reading its answers is disconnected.
class NetworkControlServer : public QObject
{
    Q_OBJECT
public:
    static constexpr quint16 kDefaultPort = 4532;
    static constexpr qsizetype kMaxLineBytes = 4096;
    static constexpr int kMaxClients = 32;

    explicit NetworkControlServer(ClientCommands& commands, QObject* parent = nullptr);
    ~NetworkControlServer() override;

    // Starts listening (closing first if listening); false with errorString() when the
    // address or port cannot be had. Port 0 takes any free port (see port()).
    bool listen(const QHostAddress& address = QHostAddress(QHostAddress::LocalHost),
                quint16 port = kDefaultPort);
    // Stops listening and disconnects every client.
    void close();
    bool isListening() const;
    QHostAddress address() const;
    quint16 port() const;
    QString errorString() const { return m_error; }
    int clientCount() const { return int(m_clients.size()); }

    void setBusyWaitMilliseconds(int ms) { m_busyWaitMs = ms; }

signals:
    void listeningChanged(bool listening);
    void clientCountChanged(int count);

private:
    struct Client;
    void accept();
    void receive(quint64 id);
    void drop(quint64 id);
    void schedule();
    void serveNext();
    void reply(quint64 id, const std::string& text);

    ClientCommands& m_commands;
    QTcpServer* m_server;
    std::map<quint64, std::unique_ptr<Client>> m_clients;
    std::deque<quint64> m_turns; // clients with a line waiting, in the order they came
    quint64 m_nextId = 1;
    bool m_serving = false;
    QTimer m_retry;
    QElapsedTimer m_busySince;
    int m_busyWaitMs = 10000;
    QString m_error;
};

} // namespace koral
