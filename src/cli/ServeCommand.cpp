// koralctl serve: the radio for rig-control clients on the network, without the window.

#include "cli/Command.h"
#include "session/BaudRate.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/LinkTraceRecorder.h"
#include "netcontrol/ClientCommands.h"
#include "netcontrol/NetworkControlServer.h"
#include "netcontrol/NetworkControlSettings.h"
#include "session/ControlCenterSession.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <atomic>
#include <csignal>
#include <ostream>

namespace koral::cli {

namespace {

std::atomic<bool> g_stopRequested{false};

void requestStop(int)
{
    g_stopRequested = true;
}

// The operator's messages go to standard error; a question takes the answer that changes
// nothing, as nobody is there to give another.
class StreamNotifier : public Notifier
{
public:
    explicit StreamNotifier(std::ostream& err) : m_err(err) {}
    void show(std::string_view text, Icon) override { fail(m_err, text); }
    Answer ask(std::string_view text, Buttons buttons, Icon) override
    {
        fail(m_err, text);
        return buttons == Buttons::YesNo      ? Answer::No
               : buttons == Buttons::OkCancel ? Answer::Cancel
                                              : Answer::Ok;
    }

private:
    std::ostream& m_err;
};

std::optional<int> number(const std::string& text)
{
    bool ok = false;
    const int value = QString::fromStdString(text).toInt(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

} // namespace

int runServe(const Invocation& invocation)
{
    const auto port = invocation.option("--port");
    if (!port)
        return fail(invocation.err, text::kCliPortMissing);
    int baud = 9600;
    if (const auto text = invocation.option("--baud")) {
        const auto rate = parseBaudRate(*text);
        if (!rate)
            return fail(invocation.err, badBaudRateText(*text));
        baud = *rate;
    }
    const std::string listen = invocation.option("--listen").value_or("127.0.0.1:4532");
    auto settings = NetworkControlSettings::fromListen(QString::fromStdString(listen));
    if (!settings)
        return fail(invocation.err, text::format(text::kCliBadListen.data(), listen.c_str()));
    if (const auto scratch = invocation.option("--scratch")) {
        settings->scratchChannel = number(*scratch).value_or(-1);
        if (!settings->problem().empty())
            return fail(invocation.err, settings->problem());
    }

    ensureApplication();
    QTemporaryDir dataDirectory; // the session's call lists live and end with this run
    StreamNotifier notifier(invocation.err);
    ControlCenterSession session(notifier, dataDirectory.path().toStdString());
    session.link().usePortName(*port, baud);
    if (const auto path = invocation.option("--trace")) {
        std::string error;
        if (!session.link().linkTrace().writeTo(*path, &error))
            return fail(invocation.err, text::format(text::kCliCannotWriteTrace.data(),
                                                     path->c_str(), error.c_str()));
    }
    session.startUpExchange();
    if (!session.view().radioReady)
        return fail(invocation.err, text::format(text::kCliRadioNotReady.data(), port->c_str()));

    ClientCommands commands(session);
    commands.setScratchChannel(settings->scratchChannel);
    NetworkControlServer server(commands);
    const QByteArray address = settings->address.toUtf8();
    if (!server.listen(QHostAddress(settings->address), quint16(settings->port)))
        return fail(invocation.err,
                    text::format(text::kNetworkCannotListen.data(), address.constData(),
                                 settings->port, server.errorString().toUtf8().constData()));
    invocation.out << text::format(text::kCliServing.data(), address.constData(),
                                   int(server.port()), port->c_str())
                   << std::flush;

    g_stopRequested = false;
    std::signal(SIGINT, requestStop);
    std::signal(SIGTERM, requestStop);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [] {
        if (g_stopRequested)
            QCoreApplication::quit();
    });
    watch.start(100);
    QCoreApplication::exec();
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    return kExitOk;
}

} // namespace koral::cli
