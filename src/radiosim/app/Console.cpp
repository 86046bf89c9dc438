#include "radiosim/app/Console.h"

#include "common/Texts.h"
#include "radiosim/ConsoleCommand.h"
#include "radiosim/VirtualRadio.h"

#include <cerrno>
#include <unistd.h>

namespace koral::radiosim {

Console::Console(VirtualRadio& radio, int inputFd, std::FILE* out, std::FILE* err, QObject* parent)
    : QObject(parent), m_radio(radio), m_fd(inputFd), m_out(out), m_err(err),
      m_notifier(inputFd, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &Console::readInput);
}

void Console::readInput()
{
    char buffer[1024];
    const ssize_t n = ::read(m_fd, buffer, sizeof buffer);
    if (n < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (n <= 0) {
        m_notifier.setEnabled(false); // no more input: keep serving the line
        if (!m_pending.isEmpty()) {
            handleLine(std::exchange(m_pending, {}));
        }
        return;
    }
    m_pending.append(buffer, static_cast<qsizetype>(n));
    for (qsizetype end; (end = m_pending.indexOf('\n')) >= 0;) {
        const QByteArray line = m_pending.left(end);
        m_pending.remove(0, end + 1);
        handleLine(line);
    }
}

void Console::handleLine(const QByteArray& line)
{
    const ConsoleParse parsed = parseConsoleLine(line.trimmed().toStdString());
    if (!parsed.error.empty()) {
        std::fputs(text::format(text::kSimConsoleError.data(), parsed.error.c_str()).c_str(),
                   m_err);
        std::fflush(m_err);
        return;
    }
    if (!parsed.command) {
        return;
    }
    if (std::holds_alternative<Quit>(*parsed.command)) {
        emit quitRequested();
        return;
    }
    const QString answer = m_radio.execute(*parsed.command);
    std::fprintf(m_out, "%s\n", answer.toLocal8Bit().constData());
    std::fflush(m_out);
}

} // namespace koral::radiosim
