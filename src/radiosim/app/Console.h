#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <cstdio>

namespace koral::radiosim {

class VirtualRadio;

// The simulator's line console on standard input: each line is a command for the radio, each
// answer goes to standard output, each mistake to standard error. The end of the input leaves
// the radio serving.
class Console : public QObject
{
    Q_OBJECT
public:
    Console(VirtualRadio& radio, int inputFd, std::FILE* out, std::FILE* err,
            QObject* parent = nullptr);

    void handleLine(const QByteArray& line);

signals:
    void quitRequested();

private:
    void readInput();

    VirtualRadio& m_radio;
    int m_fd;
    std::FILE* m_out;
    std::FILE* m_err;
    QSocketNotifier m_notifier;
    QByteArray m_pending;
};

} // namespace koral::radiosim
