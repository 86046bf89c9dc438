// koral-radio-sim: a virtual KORAL radio on a pseudo-terminal or a loopback TCP port.

#include "common/Texts.h"
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

using namespace koral;
using namespace koral::radiosim;

namespace {

int fail(const std::string& message)
{
    std::fputs(text::format(text::kSimFailure.data(), message.c_str()).c_str(), stderr);
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
        return fail(text::format(text::kSimSeeHelp.data(), qPrintable(parser.errorText())));
    }
    if (parser.isSet(help)) {
        std::printf("%s%s", text::kSimUsage.data(), consoleHelp().c_str());
        return 0;
    }
    if (!parser.positionalArguments().isEmpty()) {
        return fail(text::format(text::kSimUnexpectedArgument.data(),
                                 qPrintable(parser.positionalArguments().first())));
    }
    if (parser.isSet(pty) && parser.isSet(tcp)) {
        return fail(std::string(text::kSimOneLine));
    }
    bool ok = false;
    const unsigned baudRate = parser.value(baud).toUInt(&ok);
    if (!ok || baudRate < 50 || baudRate > 4000000) {
        return fail(std::string(text::kSimBadBaudOption));
    }

    std::unique_ptr<RadioLine> line;
    if (parser.isSet(tcp)) {
        const unsigned port = parser.value(tcp).toUInt(&ok);
        if (!ok || port > 65535) {
            return fail(std::string(text::kSimBadTcpPort));
        }
        auto server = std::make_unique<TcpLine>();
        if (!server->listen(static_cast<quint16>(port))) {
            return fail(text::format(text::kSimCannotListen.data(), port,
                                     qPrintable(server->errorString())));
        }
        line = std::move(server);
    } else {
        auto terminal = std::make_unique<PtyLine>();
        if (!terminal->open()) {
            return fail(terminal->errorString().toStdString());
        }
        line = std::move(terminal);
    }

    VirtualRadio radio(line.get());
    radio.setBaud(baudRate, !parser.isSet(noPacing));
    radio.model().ccirMode = parser.isSet(ccir);
    const FilePreload files{parser.value(rss).toStdString(), parser.value(ale).toStdString(),
                            parser.value(ccr).toStdString()};
    if (const std::string error = preloadFiles(files, radio.databases()); !error.empty()) {
        return fail(error);
    }
    radio.powerCycle();

    if (parser.isSet(verbose)) {
        QObject::connect(&radio, &VirtualRadio::requestHandled,
                         [](int opcode) { std::fprintf(stderr, "<- request %d\n", opcode); });
        QObject::connect(&radio, &VirtualRadio::reported,
                         [](int opcode) { std::fprintf(stderr, "-> report %d\n", opcode); });
    }
    QObject::connect(&radio, &VirtualRadio::lineDropped,
                     [] { std::fputs(text::kSimLineDropped.data(), stderr); });

    // The first line of standard output is where to connect the program.
    std::printf("%s\n", line->description().toLocal8Bit().constData());
    std::fflush(stdout);

    Console console(radio, STDIN_FILENO, stdout, stderr);
    QObject::connect(&console, &Console::quitRequested, &app, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
