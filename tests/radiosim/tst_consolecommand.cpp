#include "radiosim/ConsoleCommand.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral::radiosim;
using namespace koral::test;

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
        columns<QString, ConsoleCommand>("line", "expected");
        const auto row = [](const char* name, const char* line, const ConsoleCommand& expected) {
            QTest::newRow(name) << line << expected;
        };
        row("message keeps blanks, channel given", "CALL net HQ \"RETURN TO BASE\" channel 12",
            asEvent(IncomingCall{CallKind::Net, "HQ", "RETURN TO BASE", 12}));
        row("all call without message", "call all SHIP7",
            asEvent(IncomingCall{CallKind::All, "SHIP7", "", 0}));
        row("link by name", "link channel-busy", asEvent(LinkResult{2}));
        row("link by code", "link 7", asEvent(LinkResult{7}));
        row("lqa default steps", "lqa", asEvent(LinkQualityRun{false, 5}));
        row("bite run", "bite run lowrf", asEvent(SelfTestRun{SelfTestType::LowRf}));
        row("bite failures", "bite fail 3 12 39",
            SelfTestOutcome{SelfTestOutcome::Result::Failed, {3, 12, 39}});
        row("bite unable", "bite unable 31",
            SelfTestOutcome{SelfTestOutcome::Result::Unable, {31}});
        row("bite pass", "bite pass", SelfTestOutcome{});
        row("front-panel channel", "channel 200", asEvent(FrontPanelChannel{200}));
        row("scan group letter", "scan group c", asEvent(FrontPanelScan{true, false, 2}));
        row("scan net number", "scan net 20", asEvent(FrontPanelScan{true, true, 19}));
        row("scan stop", "scan stop", asEvent(FrontPanelScan{}));
        row("digit key is 13 + digit", "key 0", asEvent(FrontPanelKey{13}));
        row("named key", "key Menu", asEvent(FrontPanelKey{23}));
        row("remote request", "remote", asEvent(RemoteRequest{}));
        row("corrupt default one", "fault corrupt", FaultCommand{FaultKind::Corrupt, 1});
        row("clear faults", "fault clear", ClearFaults{});
        row("baud off", "baud off", SetBaud{0});
        row("baud rate", "  baud   4800 ", SetBaud{4800});
        row("version", "version 02.500", SetVersion{"02.500"});
        row("quit", "quit", Quit{});
    }
    void parsesCommands()
    {
        auto [line, expected] = fetch<QString, ConsoleCommand>("line", "expected");
        const ConsoleParse parsed = parseConsoleLine(line.toStdString());
        QVERIFY2(parsed.error.empty(), parsed.error.c_str());
        QVERIFY(parsed.command.has_value());
        QVERIFY(*parsed.command == expected);
    }

    // Each bad line names what is wrong, so the operator can correct it; a blank line is
    // nothing at all, not an error.
    void rejectsBadLines_data()
    {
        columns<QString, QString>("line", "error");
        const auto row = [](const char* name, const char* line, const char* error) {
            QTest::newRow(name) << line << error;
        };
        row("blank line", "   ", "");
        row("unknown verb", "dial STN1", "unknown command 'dial'");
        row("unclosed quote", "call station STN1 \"HELLO", "not closed");
        row("address with a dash", "call station ST-1", "address");
        row("address too long", "call station ABCDEFGHIJKLMNOP", "address");
        row("message with punctuation", "call station STN1 \"HI!\"", "message");
        row("two messages", "call station STN1 A B", "unexpected 'B'");
        row("channel 0", "call net HQ channel 0", "from 1 to 200");
        row("channel 201", "channel 201", "from 1 to 200");
        row("unknown call kind", "call group HQ", "unknown call kind");
        row("bite item 40", "bite fail 40", "from 1 to 39");
        row("bite without items", "bite unable", "test items");
        row("bite bad type", "bite run short", "full, channel or lowrf");
        row("scan group F", "scan group F", "A to E");
        row("drop without count", "fault drop-after", "bytes before the drop");
        row("reject 256", "fault reject 256", "opcode");
        row("baud text", "baud fast", "rate");
        row("version letters", "version v3", "digits and dots");
        row("status with argument", "status now", "no arguments");
        row("unknown key", "key F5", "unknown key");
    }
    void rejectsBadLines()
    {
        auto [line, error] = fetch<QString, QString>("line", "error");
        const ConsoleParse parsed = parseConsoleLine(line.toStdString());
        QVERIFY(!parsed.command.has_value());
        QVERIFY2(QString::fromStdString(parsed.error).contains(error), parsed.error.c_str());
        QCOMPARE(parsed.error.empty(), error.isEmpty());
    }
};

QTEST_GUILESS_MAIN(ConsoleCommandTest)
#include "tst_consolecommand.moc"
