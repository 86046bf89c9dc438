#include "radiosim/LineDevice.h"

#include "koralapi/FrameCodec.h"
#include "radiosim/FaultPlan.h"
#include "radiosim/RadioLine.h"

#include <algorithm>
#include <chrono>
#include <cstring>

namespace koral::radiosim {

namespace {
std::span<const std::uint8_t> asBytes(const char* data, qint64 size)
{
    return {reinterpret_cast<const std::uint8_t*>(data), static_cast<std::size_t>(size)};
}
} // namespace

LineDevice::LineDevice(RadioLine* line, FaultPlan& faults, QObject* parent)
    : QIODevice(parent), m_line(line), m_faults(faults)
{
    for (QTimer* timer : {&m_toRadioTimer, &m_toProgramTimer}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
    }
    connect(&m_toRadioTimer, &QTimer::timeout, this, &LineDevice::deliverToRadio);
    connect(&m_toProgramTimer, &QTimer::timeout, this, &LineDevice::deliverToProgram);
    connect(line, &RadioLine::received, this, &LineDevice::onReceived);
    QIODevice::open(QIODevice::ReadWrite | QIODevice::Unbuffered);
}

void LineDevice::setBaud(unsigned baud)
{
    m_toRadio.setBaud(baud);
    m_toProgram.setBaud(baud);
}

void LineDevice::flush()
{
    m_toRadio.clear();
    m_toProgram.clear();
    m_readable.clear();
}

qint64 LineDevice::bytesAvailable() const
{
    return m_readable.size() + QIODevice::bytesAvailable();
}

qint64 LineDevice::readData(char* data, qint64 maxSize)
{
    const qint64 n = std::min<qint64>(maxSize, m_readable.size());
    std::memcpy(data, m_readable.constData(), static_cast<std::size_t>(n));
    m_readable.remove(0, n);
    return n;
}

qint64 LineDevice::writeData(const char* data, qint64 size)
{
    if (m_faults.silent()) {
        return size; // the radio's transmitter is off: the bytes go nowhere
    }
    std::vector<std::uint8_t> bytes(asBytes(data, size).begin(), asBytes(data, size).end());
    const bool dataFrame = bytes.size() > frame::kOverhead && bytes[0] == frame::kSync &&
                           bytes[1] == static_cast<std::uint8_t>(FrameKind::Data);
    if (dataFrame && m_faults.corruptNext()) {
        bytes.back() ^= 0xFF; // a damaged checksum: the program must ask again
    }
    m_toProgram.push(bytes, BytePacer::Clock::now());
    deliverToProgram();
    return size;
}

void LineDevice::onReceived(const QByteArray& bytes)
{
    if (m_faults.silent()) {
        return; // nobody listens
    }
    m_toRadio.push(asBytes(bytes.constData(), bytes.size()), BytePacer::Clock::now());
    deliverToRadio();
}

void LineDevice::deliverToRadio()
{
    const auto due = m_toRadio.take(BytePacer::Clock::now());
    if (!due.empty() && !m_faults.silent()) {
        m_readable.append(reinterpret_cast<const char*>(due.data()),
                          static_cast<qsizetype>(due.size()));
        emit readyRead();
    }
    arm(m_toRadioTimer, m_toRadio);
}

void LineDevice::deliverToProgram()
{
    auto due = m_toProgram.take(BytePacer::Clock::now());
    if (const auto limit = m_faults.bytesBeforeDrop(); limit && due.size() > *limit) {
        due.resize(static_cast<std::size_t>(*limit));
    }
    if (!due.empty() && m_line) {
        m_line->write(QByteArray(reinterpret_cast<const char*>(due.data()),
                                 static_cast<qsizetype>(due.size())));
        m_bytesSent += due.size();
    }
    if (m_faults.consumeBytes(due.size())) {
        flush();
        if (m_line) {
            m_line->hangUp();
        }
        emit lineDropped();
        return;
    }
    arm(m_toProgramTimer, m_toProgram);
}

void LineDevice::arm(QTimer& timer, const BytePacer& pacer)
{
    const auto next = pacer.nextDue();
    if (!next) {
        timer.stop();
        return;
    }
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*next - BytePacer::Clock::now());
    timer.start(std::max<int>(0, static_cast<int>(wait.count())));
}

} // namespace koral::radiosim
