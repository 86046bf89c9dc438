// koral-radio-sim: a virtual KORAL radio on a pseudo-terminal or a loopback TCP port.

#include "radiosim/ConsoleCommand.h"
#include "radiosim/PtyLine.h"
#include "radiosim/TcpLine.h"
#include "radiosim/VirtualRadio.h"
#include "radiosim/app/Console.h"
#include "radiosim/app/FilePreload.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <memory>
#include <unistd.h>

using namespace koral::radiosim;

namespace {

constexpr const char* kUsage =
    "Usage: koral-radio-sim [--pty | --tcp PORT] [options]\n"
    "\n"
    "A virtual KORAL radio: it holds the radio, ALE and CCIR databases, answers every request\n"
    "of the control program, sends the reports a radio sends, and plays events and faults\n"
    "typed on its console (standard input).\n"
    "\n"
    "Options:\n"
    "  --pty             serve a pseudo-terminal and print its path (the default)\n"
    "  --tcp PORT        listen on 127.0.0.1:PORT and print tcp:127.0.0.1:PORT\n"
    "  --baud RATE       the line's baud rate (default 9600)\n"
    "  --no-pacing       let bytes through as fast as they come (fast tests)\n"
    "  --rss FILE        start with the radio database of FILE\n"
    "  --ale FILE        start with the ALE database of FILE\n"
    "  --ccr FILE        start with the CCIR database of FILE\n"
    "  --ccir            start in CCIR selective-call mode instead of ALE\n"
    "  --verbose         log every request and report on standard error\n"
    "  --help            show this text\n"
    "\n"
    "Console commands:\n";

int fail(const QString& message)
{
    std::fprintf(stderr, "koral-radio-sim: %s\n", message.toLocal8Bit().constData());
    return 2;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("koral-radio-sim"));

    QCommandLineParser parser;
    const QCommandLineOption pty(QStringLiteral("pty"));
    const QCommandLineOption tcp(QStringLiteral("tcp"), {}, QStringLiteral("PORT"));
    const QCommandLineOption baud(QStringLiteral("baud"), {}, QStringLiteral("RATE"),
                                  QStringLiteral("9600"));
    const QCommandLineOption noPacing(QStringLiteral("no-pacing"));
    const QCommandLineOption rss(QStringLiteral("rss"), {}, QStringLiteral("FILE"));
    const QCommandLineOption ale(QStringLiteral("ale"), {}, QStringLiteral("FILE"));
    const QCommandLineOption ccr(QStringLiteral("ccr"), {}, QStringLiteral("FILE"));
    const QCommandLineOption ccir(QStringLiteral("ccir"));
    const QCommandLineOption verbose(QStringLiteral("verbose"));
    const QCommandLineOption help(QStringList{QStringLiteral("help"), QStringLiteral("h")});
    parser.addOptions({pty, tcp, baud, noPacing, rss, ale, ccr, ccir, verbose, help});
    if (!parser.parse(QCoreApplication::arguments())) {
        return fail(parser.errorText() + QStringLiteral(" (see --help)"));
    }
    if (parser.isSet(help)) {
        std::printf("%s%s", kUsage, consoleHelp().c_str());
        return 0;
    }
    if (!parser.positionalArguments().isEmpty()) {
        return fail(QStringLiteral("unexpected argument '%1' (see --help)")
                        .arg(parser.positionalArguments().first()));
    }
    if (parser.isSet(pty) && parser.isSet(tcp)) {
        return fail(QStringLiteral("a radio has one line: choose --pty or --tcp"));
    }
    bool ok = false;
    const unsigned baudRate = parser.value(baud).toUInt(&ok);
    if (!ok || baudRate < 50 || baudRate > 4000000) {
        return fail(QStringLiteral("--baud needs a rate in bits per second, e.g. 9600"));
    }

    std::unique_ptr<RadioLine> line;
    if (parser.isSet(tcp)) {
        const unsigned port = parser.value(tcp).toUInt(&ok);
        if (!ok || port > 65535) {
            return fail(QStringLiteral("--tcp needs a port number from 0 to 65535"));
        }
        auto server = std::make_unique<TcpLine>();
        if (!server->listen(static_cast<quint16>(port))) {
            return fail(QStringLiteral("cannot listen on port %1: %2")
                            .arg(port)
                            .arg(server->errorString()));
        }
        line = std::move(server);
    } else {
        auto terminal = std::make_unique<PtyLine>();
        if (!terminal->open()) {
            return fail(terminal->errorString());
        }
        line = std::move(terminal);
    }

    VirtualRadio radio(line.get());
    radio.setBaud(baudRate, !parser.isSet(noPacing));
    radio.model().ccirMode = parser.isSet(ccir);
    const FilePreload files{parser.value(rss).toStdString(), parser.value(ale).toStdString(),
                            parser.value(ccr).toStdString()};
    if (const std::string error = preloadFiles(files, radio.databases()); !error.empty()) {
        return fail(QString::fromStdString(error));
    }
    radio.powerCycle();

    if (parser.isSet(verbose)) {
        QObject::connect(&radio, &VirtualRadio::requestHandled,
                         [](int opcode) { std::fprintf(stderr, "<- request %d\n", opcode); });
        QObject::connect(&radio, &VirtualRadio::reported,
                         [](int opcode) { std::fprintf(stderr, "-> report %d\n", opcode); });
    }
    QObject::connect(&radio, &VirtualRadio::lineDropped, [] {
        std::fprintf(stderr, "line dropped (fault clear plugs it in again)\n");
    });

    // The first line of standard output is where to connect the program.
    std::printf("%s\n", line->description().toLocal8Bit().constData());
    std::fflush(stdout);

    Console console(radio, STDIN_FILENO, stdout, stderr);
    QObject::connect(&console, &Console::quitRequested, &app, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
