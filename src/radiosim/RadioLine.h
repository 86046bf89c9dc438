#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

namespace koral::radiosim {

// The radio's end of the cable: a byte stream to the control program, whatever carries it
// (a pseudo-terminal, a TCP connection, an in-process pipe).
class RadioLine : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    // Sends bytes to the program; bytes written while nobody listens are lost, as on a cable.
    virtual void write(const QByteArray& bytes) = 0;
    // Drops the line as a pulled cable would; the line may come back for the next peer.
    virtual void hangUp() = 0;
    // What the operator connects the program to (a device path, host:port, ...).
    virtual QString description() const = 0;

signals:
    void received(const QByteArray& bytes);
    // A new peer has connected (TCP) or the line was reset: link numbering starts afresh.
    void peerChanged();
};

} // namespace koral::radiosim
