#pragma once

#include "radiosim/RadioLine.h"

#include <QSocketNotifier>

#include <memory>

namespace koral::radiosim {

// Serves a pseudo-terminal: the program opens path() as it would a serial device. The radio
// keeps its own handle on the terminal side open, so that the program may close and reopen
// the device without the line going away.
class PtyLine : public RadioLine
{
    Q_OBJECT
public:
    explicit PtyLine(QObject* parent = nullptr);
    ~PtyLine() override;

    // Opens the pseudo-terminal; false with errorString() when the system has none to give.
    bool open();
    QString path() const { return m_path; }
    QString errorString() const { return m_error; }

    void write(const QByteArray& bytes) override;
    void hangUp() override;
    QString description() const override { return m_path; }

private:
    void readAvailable();
    void close();

    int m_master = -1;
    int m_slave = -1;
    QString m_path;
    QString m_error;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace koral::radiosim
