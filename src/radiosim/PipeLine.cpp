#include "radiosim/PipeLine.h"

namespace koral::radiosim {

PipeLine::PipeLine(std::unique_ptr<InProcessPipe::Endpoint> endpoint, QObject* parent)
    : RadioLine(parent), m_endpoint(std::move(endpoint))
{
    connect(m_endpoint.get(), &QIODevice::readyRead, this,
            [this] { emit received(m_endpoint->readAll()); });
}

void PipeLine::write(const QByteArray& bytes)
{
    m_endpoint->write(bytes);
}

void PipeLine::hangUp()
{
    // Inside one process the cable cannot be pulled; what is on its way is lost and the radio
    // stays quiet until the fault is cleared.
    m_endpoint->readAll();
}

} // namespace koral::radiosim
