#include "koralapi/InProcessPipe.h"

#include <QByteArray>
#include <QMetaObject>

#include <mutex>

namespace koral {

struct InProcessPipe::Shared
{
    std::mutex mutex;
    QByteArray incoming[2]; // bytes waiting to be read by side 0 and side 1
    Endpoint* endpoint[2] = {nullptr, nullptr};
};

std::pair<std::unique_ptr<InProcessPipe::Endpoint>, std::unique_ptr<InProcessPipe::Endpoint>>
InProcessPipe::create()
{
    auto shared = std::make_shared<Shared>();
    std::unique_ptr<Endpoint> a(new Endpoint(shared, 0));
    std::unique_ptr<Endpoint> b(new Endpoint(shared, 1));
    return {std::move(a), std::move(b)};
}

InProcessPipe::Endpoint::Endpoint(std::shared_ptr<Shared> shared, int side)
    : m_shared(std::move(shared)), m_side(side)
{
    m_shared->endpoint[side] = this;
    QIODevice::open(QIODevice::ReadWrite | QIODevice::Unbuffered);
}

InProcessPipe::Endpoint::~Endpoint()
{
    close();
}

void InProcessPipe::Endpoint::close()
{
    {
        std::lock_guard lock(m_shared->mutex);
        m_shared->endpoint[m_side] = nullptr;
        m_shared->incoming[m_side].clear();
    }
    QIODevice::close();
}

bool InProcessPipe::Endpoint::peerConnected() const
{
    std::lock_guard lock(m_shared->mutex);
    return m_shared->endpoint[1 - m_side] != nullptr;
}

qint64 InProcessPipe::Endpoint::bytesAvailable() const
{
    std::lock_guard lock(m_shared->mutex);
    return m_shared->incoming[m_side].size() + QIODevice::bytesAvailable();
}

qint64 InProcessPipe::Endpoint::readData(char* data, qint64 maxSize)
{
    std::lock_guard lock(m_shared->mutex);
    QByteArray& in = m_shared->incoming[m_side];
    const qint64 n = std::min<qint64>(maxSize, in.size());
    std::copy_n(in.constData(), n, data);
    in.remove(0, n);
    return n;
}

qint64 InProcessPipe::Endpoint::writeData(const char* data, qint64 size)
{
    std::lock_guard lock(m_shared->mutex);
    Endpoint* peer = m_shared->endpoint[1 - m_side];
    if (!peer)
        return size;
    m_shared->incoming[1 - m_side].append(data, size);
    // Posted while the lock is held: the peer cannot be half destroyed, and a peer destroyed
    // later drops the pending event together with itself.
    QMetaObject::invokeMethod(
        peer, [peer] { emit peer->readyRead(); }, Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        this, [this, size] { emit bytesWritten(size); }, Qt::QueuedConnection);
    return size;
}

} // namespace koral
