#include "netcontrol/NetworkControlServer.h"

#include "netcontrol/ClientCommands.h"
#include "netcontrol/RigctlInterpreter.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <optional>

namespace koral {

namespace {

// Answers a client has not read yet; beyond this it is not listening and is let go.
constexpr qint64 kMaxUnsentBytes = 1 << 20;
// How often a request that waits for the operator's command looks again.
constexpr int kRetryMilliseconds = 50;

} // namespace

struct NetworkControlServer::Client
{
    QTcpSocket* socket = nullptr;
    std::unique_ptr<RigctlInterpreter> interpreter;
    QByteArray partial;    // the line being received
    bool overlong = false; // the line being received is dropped
    // Complete lines to answer, in order; an empty optional stands for a line that was too
    // long (it is answered in its turn, so answers keep the order of the lines).
    std::deque<std::optional<QByteArray>> lines;
    bool waiting = false; // in m_turns
};

NetworkControlServer::NetworkControlServer(ClientCommands& commands, QObject* parent)
    : QObject(parent), m_commands(commands), m_server(new QTcpServer(this))
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(kRetryMilliseconds);
    connect(&m_retry, &QTimer::timeout, this, &NetworkControlServer::serveNext);
    connect(m_server, &QTcpServer::newConnection, this, &NetworkControlServer::accept);
}

NetworkControlServer::~NetworkControlServer()
{
    close();
}

bool NetworkControlServer::listen(const QHostAddress& address, quint16 port)
{
    close();
    if (!m_server->listen(address, port)) {
        m_error = m_server->errorString();
        return false;
    }
    m_error.clear();
    emit listeningChanged(true);
    return true;
}

void NetworkControlServer::close()
{
    const bool was = m_server->isListening();
    m_server->close();
    while (!m_clients.empty())
        drop(m_clients.begin()->first);
    if (was)
        emit listeningChanged(false);
}

bool NetworkControlServer::isListening() const
{
    return m_server->isListening();
}

QHostAddress NetworkControlServer::address() const
{
    return m_server->serverAddress();
}

quint16 NetworkControlServer::port() const
{
    return m_server->serverPort();
}

void NetworkControlServer::accept()
{
    while (QTcpSocket* socket = m_server->nextPendingConnection()) {
        if (int(m_clients.size()) >= kMaxClients) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        const quint64 id = m_nextId++;
        auto client = std::make_unique<Client>();
        client->socket = socket;
        client->interpreter = std::make_unique<RigctlInterpreter>(m_commands);
        socket->setParent(this);
        connect(socket, &QTcpSocket::readyRead, this, [this, id] { receive(id); });
        connect(socket, &QTcpSocket::disconnected, this, [this, id] { drop(id); });
        m_clients.emplace(id, std::move(client));
        emit clientCountChanged(clientCount());
    }
}

void NetworkControlServer::receive(quint64 id)
{
    const auto it = m_clients.find(id);
    if (it == m_clients.end())
        return;
    Client& client = *it->second;
    const QByteArray data = client.socket->readAll();
    for (const char byte : data) {
        if (byte == '\n') {
            if (client.overlong)
                client.lines.emplace_back();
            else if (!client.partial.trimmed().isEmpty())
                client.lines.push_back(client.partial);
            client.partial.clear();
            client.overlong = false;
        } else if (!client.overlong) {
            client.partial.append(byte);
            if (client.partial.size() > kMaxLineBytes) {
                client.partial.clear();
                client.overlong = true;
            }
        }
    }
    if (!client.lines.empty() && !client.waiting) {
        client.waiting = true;
        m_turns.push_back(id);
        schedule();
    }
}

void NetworkControlServer::drop(quint64 id)
{
    const auto it = m_clients.find(id);
    if (it == m_clients.end())
        return;
    QTcpSocket* socket = it->second->socket;
    m_clients.erase(it);
    socket->disconnect(this);
    socket->abort();
    socket->deleteLater();
    emit clientCountChanged(clientCount());
}

void NetworkControlServer::schedule()
{
    if (!m_serving && !m_turns.empty() && !m_retry.isActive())
        QMetaObject::invokeMethod(this, &NetworkControlServer::serveNext, Qt::QueuedConnection);
}

void NetworkControlServer::serveNext()
{
    // A radio call pumps events in places; a request is never started inside another.
    if (m_serving)
        return;
    while (!m_turns.empty() && !m_clients.contains(m_turns.front()))
        m_turns.pop_front();
    if (m_turns.empty())
        return;
    const bool busy = m_commands.radioBusy();
    if (!busy) {
        m_busySince.invalidate();
    } else {
        if (!m_busySince.isValid())
            m_busySince.start();
        if (m_busySince.elapsed() < m_busyWaitMs) {
            m_retry.start();
            return;
        }
    }
    const quint64 id = m_turns.front();
    m_turns.pop_front();
    Client& client = *m_clients.at(id);
    client.waiting = false;
    const std::optional<QByteArray> line = client.lines.front();
    client.lines.pop_front();
    m_serving = true;
    const std::string text = !line ? client.interpreter->refuse({}, rigctl::kProtocolError)
                             : busy
                                 ? client.interpreter->refuse(line->toStdString(), rigctl::kTimeout)
                                 : client.interpreter->answer(line->toStdString());
    m_serving = false;
    // The client may have gone while the radio answered.
    if (const auto it = m_clients.find(id); it != m_clients.end()) {
        Client& still = *it->second;
        reply(id, text);
        if (still.interpreter->quitRequested()) {
            still.lines.clear();
            still.socket->disconnectFromHost();
        } else if (!still.lines.empty()) {
            still.waiting = true;
            m_turns.push_back(id);
        }
    }
    schedule();
}

void NetworkControlServer::reply(quint64 id, const std::string& text)
{
    QTcpSocket* socket = m_clients.at(id)->socket;
    socket->write(text.data(), qint64(text.size()));
    if (socket->bytesToWrite() > kMaxUnsentBytes)
        QMetaObject::invokeMethod(
            this, [this, id] { drop(id); }, Qt::QueuedConnection);
}

} // namespace koral
