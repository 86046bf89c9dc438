// koral-control-center: the desktop application.

#include "common/Texts.h"
#include "gui/AlePanel.h"
#include "gui/CcirPanel.h"
#include "gui/MainWindow.h"
#include "gui/RadioController.h"
#include "gui/RssPanel.h"
#include "koralapi/LinkTraceRecorder.h"
#include "radiosim/BuiltInRadio.h"
#include "session/BaudRate.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QScreen>
#include <QTimer>

#include <cstdio>

using namespace koral;

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("koral-control-center"));
    QApplication::setApplicationDisplayName(QString::fromUtf8(text::kApplicationName.data()));
    QApplication::setOrganizationName(QStringLiteral("KORAL"));
    QApplication::setApplicationVersion(QStringLiteral(KORAL_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Operates and programmes KORAL HF radios."));
    parser.addHelpOption();
    const QCommandLineOption port(QStringLiteral("port"),
                                  QStringLiteral("Radio port: 1 is the built-in virtual radio, 2.. "
                                                 "the serial ports."),
                                  QStringLiteral("P"));
    const QCommandLineOption baud(QStringLiteral("baud"),
                                  QStringLiteral("Baud rate: %1, %2, %3 or %4.")
                                      .arg(kBaudRates[0])
                                      .arg(kBaudRates[1])
                                      .arg(kBaudRates[2])
                                      .arg(kBaudRates[3]),
                                  QStringLiteral("B"));
    const QCommandLineOption dataDir(QStringLiteral("data-dir"),
                                     QStringLiteral("Folder of the call stack, log and messages."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Render the main window to a PNG file and exit (no radio is used)."),
        QStringLiteral("FILE"));
    const QCommandLineOption panel(QStringLiteral("panel"),
                                   QStringLiteral("The panel shown with --screenshot."),
                                   QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption trace(
        QStringLiteral("trace"),
        QStringLiteral("Write every frame of the link to FILE, with retries, time-outs and "
                       "damaged frames marked (the Link Trace window shows the same)."),
        QStringLiteral("FILE"));
    parser.addOptions({port, baud, dataDir, trace, screenshot, panel});
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("An .rss file to open."),
                                 QStringLiteral("[file]"));
    parser.process(app);

    MainWindowOptions options;
    bool ok = true;
    if (parser.isSet(port)) {
        options.port = parser.value(port).toInt(&ok);
        if (!ok || options.port < 1) {
            std::fprintf(stderr, "koral-control-center: --port takes a port number from 1\n");
            return 2;
        }
    }
    if (parser.isSet(baud)) {
        const std::string text = parser.value(baud).toStdString();
        const auto rate = parseBaudRate(text);
        if (!rate) {
            std::fprintf(stderr, "koral-control-center: %s\n", badBaudRateText(text).c_str());
            return 2;
        }
        options.baud = *rate;
    }
    options.dataDirectory = parser.value(dataDir);
    options.connectAtStart = !parser.isSet(screenshot);

    // Port 1 is the virtual radio inside the program.
    radiosim::installBuiltInRadio();
    MainWindow window(options);
    // Before the event loop turns, so the file holds the start-up exchange from its first frame.
    if (parser.isSet(trace)) {
        std::string error;
        const std::string path = parser.value(trace).toStdString();
        if (!window.radio()->session().link().linkTrace().writeTo(path, &error)) {
            std::fprintf(
                stderr, "koral-control-center: %s\n",
                text::format(text::kCliCannotWriteTrace.data(), path.c_str(), error.c_str())
                    .c_str());
            return 2;
        }
    }
    // A file named on the command line opens in the panel of its kind, which is shown first.
    if (!parser.positionalArguments().isEmpty()) {
        const QString file = parser.positionalArguments().constFirst();
        const QString suffix = QFileInfo(file).suffix().toLower();
        DocumentPanel* page = window.rssPanel();
        Panel shown = Panel::Rss;
        if (suffix == QStringLiteral("ale")) {
            page = window.alePanel();
            shown = Panel::RssAle;
        } else if (suffix == QStringLiteral("ccr")) {
            page = window.ccirPanel();
            shown = Panel::Ccir;
        }
        window.showPanel(shown);
        page->openPath(file);
    }

    if (parser.isSet(screenshot)) {
        const int n = parser.value(panel).toInt(&ok);
        if (!ok || !window.rules().isOffered(Panel(n))) {
            std::fprintf(stderr, "koral-control-center: panel %s is not offered\n",
                         qPrintable(parser.value(panel)));
            return 2;
        }
        window.showPanel(Panel(n));
        window.show();
        // Let the layout settle before grabbing the window.
        QTimer::singleShot(300, &app, [&] {
            const bool saved = window.grab().save(parser.value(screenshot), "PNG");
            app.exit(saved ? 0 : 1);
        });
        return app.exec();
    }
    window.show();
    return app.exec();
}
