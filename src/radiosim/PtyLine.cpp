#include "radiosim/PtyLine.h"

#include "common/Texts.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace koral::radiosim {

PtyLine::PtyLine(QObject* parent) : RadioLine(parent) {}

PtyLine::~PtyLine()
{
    close();
}

bool PtyLine::open()
{
    close();
    m_master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0) {
        m_error =
            QString::fromStdString(text::format(text::kSimNoPty.data(), std::strerror(errno)));
        close();
        return false;
    }
    m_path = QString::fromLocal8Bit(::ptsname(m_master));
    // Holding the terminal side open keeps the master readable between two clients, and lets
    // the line be put in raw mode before anybody opens it.
    m_slave = ::open(::ptsname(m_master), O_RDWR | O_NOCTTY);
    if (m_slave >= 0) {
        termios raw{};
        if (::tcgetattr(m_slave, &raw) == 0) {
            ::cfmakeraw(&raw);
            ::tcsetattr(m_slave, TCSANOW, &raw);
        }
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_master, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &PtyLine::readAvailable);
    return true;
}

void PtyLine::close()
{
    m_notifier.reset();
    if (m_slave >= 0) {
        ::close(m_slave);
        m_slave = -1;
    }
    if (m_master >= 0) {
        ::close(m_master);
        m_master = -1;
    }
}

void PtyLine::readAvailable()
{
    char buffer[4096];
    for (;;) {
        const ssize_t n = ::read(m_master, buffer, sizeof buffer);
        if (n > 0) {
            emit received(QByteArray(buffer, static_cast<int>(n)));
            continue;
        }
        if (n < 0 && errno == EINTR) {
            continue;
        }
        break; // EAGAIN: drained; EIO: no client at the moment
    }
}

void PtyLine::write(const QByteArray& bytes)
{
    if (m_master < 0) {
        return;
    }
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(m_master, bytes.constData() + done, bytes.size() - done);
        if (n > 0) {
            done += n;
        } else if (n < 0 && errno == EINTR) {
            continue;
        } else {
            break; // nobody reads (buffer full) or the terminal is gone: lost, as on a cable
        }
    }
}

void PtyLine::hangUp()
{
    // A pseudo-terminal cannot be unplugged without changing its path; the radio simply goes
    // quiet, which is what the program sees of a pulled cable. Throw away what is buffered.
    if (m_slave >= 0) {
        ::tcflush(m_slave, TCIOFLUSH);
    }
}

} // namespace koral::radiosim
