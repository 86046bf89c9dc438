#pragma once

// A ControlCenterSession on port 1 (the built-in virtual radio) in a temporary start-up
// directory, with the radio configured before the program first talks to it.

#include "common/RecordingNotifier.h"
#include "support/Table.h"

#include "radiosim/BuiltInRadio.h"
#include "radiosim/VirtualRadio.h"
#include "session/CommPortFile.h"
#include "session/ControlCenterSession.h"

#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <functional>
#include <memory>

namespace koral::test {

class SessionFixture
{
public:
    using Configure = std::function<void(radiosim::VirtualRadio&)>;

    // The library paces its bounds to the baud rate, so tests that need no radio baud rate
    // run at a rate no radio has; 0 starts without CommPort.txt (port 1 at 9600 baud).
    static constexpr int kFastBaud = 115200;

    explicit SessionFixture(Configure configure = {}, int baudRate = kFastBaud)
    {
        radiosim::BuiltInRadioOptions options;
        options.paced = false;
        options.onCreated = [this, configure](radiosim::VirtualRadio& radio) {
            radio.setStepInterval(std::chrono::milliseconds(5));
            if (configure)
                configure(radio);
            m_radio = &radio;
        };
        radiosim::installBuiltInRadio(options);
        session = std::make_unique<ControlCenterSession>(notifier, dataDir());
        session->link().setPumpRoundMilliseconds(0);
        if (baudRate != 0)
            saveCommPortFile(LinkSettings{1, baudRate, startDir()});
        session->link().initSession(startDir());
        session->transfer().setAnswerWaitMilliseconds(2000);
    }
    ~SessionFixture() { session.reset(); }

    std::filesystem::path startDir() const { return m_dir.path().toStdString(); }
    std::filesystem::path dataDir() const { return startDir() / "data"; }

    // The radio of the open link (valid while the port is open).
    radiosim::VirtualRadio& radio() const { return *m_radio.load(); }
    QString play(const radiosim::ConsoleCommand& command) const
    {
        return m_radio.load()->executeFromAnyThread(command);
    }

    bool startUp()
    {
        session->startUpExchange();
        return session->view().radioReady;
    }

    RecordingNotifier notifier;
    std::unique_ptr<ControlCenterSession> session;

private:
    QTemporaryDir m_dir;
    std::atomic<radiosim::VirtualRadio*> m_radio{nullptr};
};

inline QStringList texts(const RecordingNotifier& notifier)
{
    QStringList list;
    for (const auto& text : notifier.texts())
        list << QString::fromStdString(text);
    return list;
}

} // namespace koral::test
