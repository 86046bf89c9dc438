#pragma once

#include <QIODevice>

#include <memory>

namespace koral {

// A connected pair of byte-stream endpoints inside one process, the transport of the built-in
// virtual radio. Each endpoint is a sequential QIODevice that may live in its own thread:
// bytes written to one become readable on the other, whose readyRead() is emitted in its own
// thread. Writing to an endpoint whose peer is gone drops the bytes, as a cable without a radio
// would.
class InProcessPipe
{
public:
    class Endpoint;

    // Both endpoints, already open for reading and writing. Either may be destroyed first.
    static std::pair<std::unique_ptr<Endpoint>, std::unique_ptr<Endpoint>> create();

private:
    struct Shared;
};

class InProcessPipe::Endpoint : public QIODevice
{
    Q_OBJECT
public:
    ~Endpoint() override;

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override;
    void close() override;
    // True while the other endpoint exists and is open.
    bool peerConnected() const;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    friend class InProcessPipe;
    Endpoint(std::shared_ptr<Shared> shared, int side);

    std::shared_ptr<Shared> m_shared;
    int m_side;
};

} // namespace koral
