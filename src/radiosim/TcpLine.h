#pragma once

#include "radiosim/RadioLine.h"

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

namespace koral::radiosim {

// Serves one program at a time on a loopback TCP port, as a serial-to-network converter
// would. A second connection while one is served is refused by closing it.
class TcpLine : public RadioLine
{
    Q_OBJECT
public:
    explicit TcpLine(QObject* parent = nullptr);
    ~TcpLine() override;

    // Port 0 picks a free port; port() tells which.
    bool listen(quint16 port);
    quint16 port() const { return m_server.serverPort(); }
    QString errorString() const { return m_server.errorString(); }
    bool connected() const { return m_client != nullptr; }

    void write(const QByteArray& bytes) override;
    void hangUp() override;
    QString description() const override;

private:
    void acceptConnections();

    QTcpServer m_server;
    QPointer<QTcpSocket> m_client;
};

} // namespace koral::radiosim
