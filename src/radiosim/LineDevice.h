#pragma once

#include "radiosim/BytePacer.h"

#include <QByteArray>
#include <QIODevice>
#include <QPointer>
#include <QTimer>

namespace koral::radiosim {

class FaultPlan;
class RadioLine;

// The radio's serial port as its link layer sees it: bytes cross the line no faster than the
// baud rate allows, in both directions, and the line faults of the fault plan act here
// (silence, a damaged frame, a line that drops after so many bytes).
class LineDevice : public QIODevice
{
    Q_OBJECT
public:
    LineDevice(RadioLine* line, FaultPlan& faults, QObject* parent = nullptr);

    // 0 switches pacing off.
    void setBaud(unsigned baud);
    unsigned baud() const { return m_toRadio.baud(); }
    // Throws away whatever is still on its way in either direction.
    void flush();
    // Bytes delivered to the program so far.
    quint64 bytesSent() const { return m_bytesSent; }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override;

signals:
    // The line has dropped because of a drop-after fault.
    void lineDropped();

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    void onReceived(const QByteArray& bytes);
    void deliverToRadio();
    void deliverToProgram();
    static void arm(QTimer& timer, const BytePacer& pacer);

    QPointer<RadioLine> m_line;
    FaultPlan& m_faults;
    BytePacer m_toRadio;
    BytePacer m_toProgram;
    QTimer m_toRadioTimer;
    QTimer m_toProgramTimer;
    QByteArray m_readable;
    quint64 m_bytesSent = 0;
};

} // namespace koral::radiosim
