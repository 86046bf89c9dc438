// koral-radio-sim as a user runs it: arguments, files preloaded through the program's own
// loaders, the program connecting over TCP, console commands, quit.

#include "koralapi/KoralApi.h"
#include "radiodb/RssFile.h"
#include "support/Table.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

#include <cstring>

using namespace koral;
using namespace koral::test;

class ExecutableTest : public QObject
{
    Q_OBJECT
private slots:
    void helpListsOptionsAndConsoleCommands()
    {
        QProcess sim;
        sim.start(KORAL_RADIO_SIM, {"--help"});
        QVERIFY(sim.waitForFinished(10000));
        QCOMPARE(sim.exitCode(), 0);
        const QByteArray help = sim.readAllStandardOutput();
        for (const char* text : {"--pty", "--tcp PORT", "--rss FILE", "--ale FILE", "--ccr FILE",
                                 "--no-pacing", "call station", "fault no-answer"}) {
            QVERIFY2(help.contains(text), text);
        }
    }

    void rejectsBadArguments_data()
    {
        columns<QStringList, QByteArray>("arguments", "message");
        QTest::newRow("port text") << QStringList{"--tcp", "x"} << QByteArray("--tcp needs");
        QTest::newRow("baud zero") << QStringList{"--baud", "0"} << QByteArray("--baud needs");
        QTest::newRow("two lines") << QStringList{"--pty", "--tcp", "0"} << QByteArray("one line");
        QTest::newRow("missing file") << QStringList{"--tcp", "0", "--ale", "/nonexistent.ale"}
                                      << QByteArray("cannot find the file /nonexistent.ale");
        QTest::newRow("stray argument")
            << QStringList{"radio.rss"} << QByteArray("unexpected argument");
        QTest::newRow("unknown option") << QStringList{"--fast"} << QByteArray("--help");
    }
    void rejectsBadArguments()
    {
        auto [arguments, message] = fetch<QStringList, QByteArray>("arguments", "message");
        QProcess sim;
        sim.start(KORAL_RADIO_SIM, arguments);
        QVERIFY(sim.waitForFinished(10000));
        QCOMPARE(sim.exitCode(), 2);
        const QByteArray err = sim.readAllStandardError();
        QVERIFY2(err.contains(message), err.constData());
    }

    void servesPreloadedRadioAndObeysTheConsole()
    {
        QProcess sim;
        sim.start(KORAL_RADIO_SIM,
                  {"--tcp", "0", "--no-pacing", "--rss", KORAL_EXAMPLES_DIR "/radio.rss"});
        QVERIFY(sim.waitForStarted(10000));
        QTRY_VERIFY_WITH_TIMEOUT(sim.canReadLine(), 10000);
        const QString address = QString::fromLatin1(sim.readLine()).trimmed();
        QVERIFY2(address.startsWith("tcp:127.0.0.1:"), qPrintable(address));

        MessageEngine engine;
        QVERIFY(engine.OpenPortByName(address.toStdString(), 115200));
        QVERIFY(engine.ConnectSocket(115200, 1));
        dbase fromFile{};
        bool isb = false;
        QCOMPARE(RssFile(KORAL_EXAMPLES_DIR "/radio.rss").load(nullptr, &fromFile, &isb),
                 RssFile::kOk);
        dbase fromRadio{};
        QVERIFY(ReadRadioDataBase(&engine, &fromRadio, 0, {}, {}, 10));
        QVERIFY(std::memcmp(&fromFile, &fromRadio, sizeof(dbase)) == 0);

        sim.write("bogus\ncall station STN1 \"HELLO\"\n");
        QVERIFY(sim.waitForBytesWritten(5000));
        QElapsedTimer clock;
        clock.start();
        CRadioMessage call;
        while (clock.elapsed() < 5000 &&
               !(engine.GetMessage(&call, 1) == 1 && call.GetOpcode() == op::IncomingStationCall)) {
        }
        QCOMPARE(call.GetOpcode(), op::IncomingStationCall);
        QByteArray errors;
        QTRY_VERIFY_WITH_TIMEOUT(
            (errors += sim.readAllStandardError()).contains("unknown command 'bogus'"), 5000);

        engine.CloseComPort();
        sim.write("quit\n");
        QVERIFY(sim.waitForFinished(10000));
        QCOMPARE(sim.exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(ExecutableTest)
#include "tst_executable.moc"
