#include "radiosim/ConsoleCommand.h"

#include <QtTest>

using namespace koral::radiosim;

Q_DECLARE_METATYPE(koral::radiosim::ConsoleCommand)

namespace {
template <typename Event>
ConsoleCommand asEvent(const Event& e)
{
    ConsoleCommand command{RadioEvent{}};
    std::get<RadioEvent>(command) = e;
    return command;
}
} // namespace

class ConsoleCommandTest : public QObject
{
    Q_OBJECT
private slots:
    void parsesCommands_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<ConsoleCommand>("expected");

        QTest::newRow("station call with message")
            << "call station STN1 \"HELLO\""
            << asEvent(IncomingCall{CallKind::Station, "STN1", "HELLO", 0});
        QTest::newRow("message keeps blanks, channel given")
            << "CALL net HQ \"RETURN TO BASE\" channel 12"
            << asEvent(IncomingCall{CallKind::Net, "HQ", "RETURN TO BASE", 12});
        QTest::newRow("all call without message")
            << "call all SHIP7" << asEvent(IncomingCall{CallKind::All, "SHIP7", "", 0});
        QTest::newRow("link by name") << "link channel-busy" << asEvent(LinkResult{2});
        QTest::newRow("link by code") << "link 7" << asEvent(LinkResult{7});
        QTest::newRow("lqa default steps") << "lqa" << asEvent(LinkQualityRun{false, 5});
        QTest::newRow("sounding steps") << "sound 3" << asEvent(LinkQualityRun{true, 3});
        QTest::newRow("bite run") << "bite run lowrf" << asEvent(SelfTestRun{SelfTestType::LowRf});
        QTest::newRow("bite failures")
            << "bite fail 3 12 39"
            << ConsoleCommand{SelfTestOutcome{SelfTestOutcome::Result::Failed, {3, 12, 39}}};
        QTest::newRow("bite unable")
            << "bite unable 31"
            << ConsoleCommand{SelfTestOutcome{SelfTestOutcome::Result::Unable, {31}}};
        QTest::newRow("bite pass") << "bite pass" << ConsoleCommand{SelfTestOutcome{}};
        QTest::newRow("front-panel channel") << "channel 200" << asEvent(FrontPanelChannel{200});
        QTest::newRow("scan group letter")
            << "scan group c" << asEvent(FrontPanelScan{true, false, 2});
        QTest::newRow("scan net number")
            << "scan net 20" << asEvent(FrontPanelScan{true, true, 19});
        QTest::newRow("scan stop") << "scan stop" << asEvent(FrontPanelScan{});
        QTest::newRow("digit key is 13 + digit") << "key 0" << asEvent(FrontPanelKey{13});
        QTest::newRow("key 9") << "key 9" << asEvent(FrontPanelKey{22});
        QTest::newRow("named key") << "key Menu" << asEvent(FrontPanelKey{23});
        QTest::newRow("remote request") << "remote" << asEvent(RemoteRequest{});
        QTest::newRow("drop after")
            << "fault drop-after 2000" << ConsoleCommand{FaultCommand{FaultKind::DropAfter, 2000}};
        QTest::newRow("corrupt default one")
            << "fault corrupt" << ConsoleCommand{FaultCommand{FaultKind::Corrupt, 1}};
        QTest::newRow("reject opcode")
            << "fault reject 69" << ConsoleCommand{FaultCommand{FaultKind::Reject, 69}};
        QTest::newRow("answer once")
            << "fault answer-once" << ConsoleCommand{FaultCommand{FaultKind::AnswerOnce, 0}};
        QTest::newRow("clear faults") << "fault clear" << ConsoleCommand{ClearFaults{}};
        QTest::newRow("baud off") << "baud off" << ConsoleCommand{SetBaud{0}};
        QTest::newRow("baud rate") << "  baud   4800 " << ConsoleCommand{SetBaud{4800}};
        QTest::newRow("ccir mode") << "mode ccir" << ConsoleCommand{SetMode{true}};
        QTest::newRow("version") << "version 02.500" << ConsoleCommand{SetVersion{"02.500"}};
        QTest::newRow("support off") << "support off" << ConsoleCommand{SetSupport{false}};
        QTest::newRow("quit") << "quit" << ConsoleCommand{Quit{}};
    }
    void parsesCommands()
    {
        QFETCH(QString, line);
        QFETCH(ConsoleCommand, expected);
        const ConsoleParse parsed = parseConsoleLine(line.toStdString());
        QVERIFY2(parsed.error.empty(), parsed.error.c_str());
        QVERIFY(parsed.command.has_value());
        QVERIFY(*parsed.command == expected);
    }

    // Each bad line names what is wrong, so the operator can correct it.
    void rejectsBadLines_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("error");
        QTest::newRow("unknown verb") << "dial STN1"
                                      << "unknown command 'dial'";
        QTest::newRow("unclosed quote") << "call station STN1 \"HELLO"
                                        << "not closed";
        QTest::newRow("address with a dash") << "call station ST-1"
                                             << "address";
        QTest::newRow("address too long") << "call station ABCDEFGHIJKLMNOP"
                                          << "address";
        QTest::newRow("message with punctuation") << "call station STN1 \"HI!\""
                                                  << "message";
        QTest::newRow("two messages") << "call station STN1 A B"
                                      << "unexpected 'B'";
        QTest::newRow("channel 0") << "call net HQ channel 0"
                                   << "from 1 to 200";
        QTest::newRow("channel 201") << "channel 201"
                                     << "from 1 to 200";
        QTest::newRow("unknown call kind") << "call group HQ"
                                           << "unknown call kind";
        QTest::newRow("bite item 40") << "bite fail 40"
                                      << "from 1 to 39";
        QTest::newRow("bite without items") << "bite unable"
                                            << "test items";
        QTest::newRow("bite bad type") << "bite run short"
                                       << "full, channel or lowrf";
        QTest::newRow("scan group F") << "scan group F"
                                      << "A to E";
        QTest::newRow("drop without count") << "fault drop-after"
                                            << "bytes before the drop";
        QTest::newRow("reject 256") << "fault reject 256"
                                    << "opcode";
        QTest::newRow("baud text") << "baud fast"
                                   << "rate";
        QTest::newRow("version letters") << "version v3"
                                         << "digits and dots";
        QTest::newRow("status with argument") << "status now"
                                              << "no arguments";
        QTest::newRow("unknown key") << "key F5"
                                     << "unknown key";
    }
    void rejectsBadLines()
    {
        QFETCH(QString, line);
        QFETCH(QString, error);
        const ConsoleParse parsed = parseConsoleLine(line.toStdString());
        QVERIFY(!parsed.command.has_value());
        QVERIFY2(QString::fromStdString(parsed.error).contains(error), parsed.error.c_str());
    }

    void blankLineIsNothing()
    {
        const ConsoleParse parsed = parseConsoleLine("   ");
        QVERIFY(!parsed.command && parsed.error.empty());
    }

    void helpListsEveryVerb()
    {
        const QString help = QString::fromStdString(consoleHelp());
        for (const char* verb :
             {"call station", "link ", "lqa", "sound", "bite run", "bite fail", "channel N",
              "scan group", "key ", "remote", "drop-after BYTES", "fault reject", "baud", "mode",
              "version", "support", "status", "quit"}) {
            QVERIFY2(help.contains(QLatin1String(verb)), verb);
        }
    }
};

QTEST_GUILESS_MAIN(ConsoleCommandTest)
#include "tst_consolecommand.moc"
