#include "radiosim/TcpLine.h"

namespace koral::radiosim {

TcpLine::TcpLine(QObject* parent) : RadioLine(parent)
{
    connect(&m_server, &QTcpServer::newConnection, this, &TcpLine::acceptConnections);
}

// The accepted sockets are the server's children and die with it, after this line's own
// members are gone; a socket still connected then says "disconnected" as it dies, and its
// handler must not reach into this half-destroyed line.
TcpLine::~TcpLine()
{
    for (QTcpSocket* socket : m_server.findChildren<QTcpSocket*>()) {
        socket->disconnect(this);
    }
}

bool TcpLine::listen(quint16 port)
{
    return m_server.listen(QHostAddress::LocalHost, port);
}

QString TcpLine::description() const
{
    return QStringLiteral("tcp:127.0.0.1:%1").arg(port());
}

void TcpLine::acceptConnections()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        if (m_client) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        m_client = socket;
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        connect(socket, &QTcpSocket::readyRead, this,
                [this, socket] { emit received(socket->readAll()); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            if (m_client == socket) {
                m_client = nullptr;
            }
            socket->deleteLater();
        });
        emit peerChanged();
    }
}

void TcpLine::write(const QByteArray& bytes)
{
    if (m_client) {
        m_client->write(bytes);
    }
}

void TcpLine::hangUp()
{
    if (QTcpSocket* socket = m_client) {
        m_client = nullptr;
        socket->abort();
        socket->deleteLater();
    }
}

} // namespace koral::radiosim
