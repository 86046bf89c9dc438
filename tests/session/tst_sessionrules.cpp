// Small rules of the main view that need no radio: baud-rate indices, the software-version
// gates, progress captions, toolbar images, status texts and the trace writer.

#include "common/RecordingNotifier.h"
#include "session/BaudRate.h"
#include "session/ProgressCaption.h"
#include "session/TraceWriter.h"
#include "session/VersionGate.h"
#include "session/ViewStatus.h"

#include <QtTest>

using namespace koral;

class SessionRulesTest : public QObject
{
    Q_OBJECT
private slots:
    void baudRateIndex_data()
    {
        QTest::addColumn<int>("baud");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("message");
        QTest::newRow("1200") << 1200 << 0 << "";
        QTest::newRow("9600") << 9600 << 3 << "";
        QTest::newRow("19200 falls back")
            << 19200 << 0 << "The baud rate 19200 is not defined, is set to 1200";
        QTest::newRow("zero") << 0 << 0 << "The baud rate 0 is not defined, is set to 1200";
    }
    void baudRateIndex()
    {
        QFETCH(int, baud);
        QFETCH(int, index);
        QFETCH(QString, message);
        RecordingNotifier notifier;
        QCOMPARE(baudRateToIndex(baud, notifier), index);
        const auto texts = notifier.texts();
        QCOMPARE(texts.empty() ? QString() : QString::fromStdString(texts.front()), message);
        QVERIFY(texts.size() <= 1);
    }

    void commandLineBaudRate_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("rate"); // 0: refused
        QTest::newRow("1200") << "1200" << 1200;
        QTest::newRow("2400") << "2400" << 2400;
        QTest::newRow("4800") << "4800" << 4800;
        QTest::newRow("9600") << "9600" << 9600;
        QTest::newRow("a rate the radio lacks") << "12345" << 0;
        QTest::newRow("a computer's rate") << "115200" << 0;
        QTest::newRow("largest number") << "2147483647" << 0;
        QTest::newRow("past the largest number") << "99999999999" << 0;
        QTest::newRow("one") << "1" << 0;
        QTest::newRow("negative") << "-9600" << 0;
        QTest::newRow("signed") << "+9600" << 0;
        QTest::newRow("trailing text") << "9600x" << 0;
        QTest::newRow("empty") << "" << 0;
    }
    void commandLineBaudRate()
    {
        QFETCH(QString, text);
        QFETCH(int, rate);
        QCOMPARE(parseBaudRate(text.toStdString()).value_or(0), rate);
    }

    void softwareClass_data()
    {
        QTest::addColumn<QByteArray>("version");
        QTest::addColumn<int>("softwareClass");
        QTest::newRow("00.900 is below the first gate") << QByteArray("00.900") << 2;
        QTest::newRow("01.000 opens class 1") << QByteArray("01.000") << 1;
        QTest::newRow("02.500") << QByteArray("02.500") << 1;
        QTest::newRow("03.000 still class 1") << QByteArray("03.000") << 1;
        QTest::newRow("03.100") << QByteArray("03.100") << 2;
        QTest::newRow("03.0001 compares above 03.000") << QByteArray("03.0001") << 2;
        QTest::newRow("only 8 characters count") << QByteArray("02.50000X") << 1;
        QTest::newRow("full field without NUL") << QByteArray("02.50000") << 1;
        QTest::newRow("empty text") << QByteArray("") << 2;
    }
    void softwareClass()
    {
        QFETCH(QByteArray, version);
        QFETCH(int, softwareClass);
        QCOMPARE(int(softwareClassOf(std::string_view(version.constData(), version.size()))),
                 softwareClass);
    }
    void unreadableVersionIsClassZero() { QCOMPARE(int(softwareClassOf(std::nullopt)), 0); }

    void radioVersionGate_data()
    {
        QTest::addColumn<QByteArray>("version");
        QTest::addColumn<bool>("atLeast");
        QTest::newRow("equal") << QByteArray("03.8194") << true;
        QTest::newRow("below") << QByteArray("03.8193") << false;
        QTest::newRow("shorter text below") << QByteArray("03.8") << false;
        QTest::newRow("above") << QByteArray("04.000") << true;
    }
    void radioVersionGate()
    {
        QFETCH(QByteArray, version);
        QFETCH(bool, atLeast);
        QCOMPARE(isRadioVersionAtLeast38194(version.toStdString()), atLeast);
    }

    void progressSections_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("aleGlobal");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("section");
        QTest::newRow("first step of a read") << 124 << false << "Radio Data Base"
                                              << "Groups Section";
        QTest::newRow("1687") << 1687 << false << "Radio Data Base"
                              << "Groups Section";
        QTest::newRow("1688") << 1688 << false << "Radio Data Base"
                              << "Channels Section";
        QTest::newRow("4288") << 4288 << false << "Radio Data Base"
                              << "Radio Options Section";
        QTest::newRow("4302") << 4302 << false << "Radio Data Base"
                              << "External Options Section";
        QTest::newRow("4303") << 4303 << false << "Radio Data Base"
                              << "External Options Section";
        QTest::newRow("4304") << 4304 << false << "ALE Data Base"
                              << "ALE Nets Section";
        QTest::newRow("4304+1820") << 6124 << false << "ALE Data Base"
                                   << "ALE Options Section";
        QTest::newRow("4304+1832") << 6136 << false << "ALE Data Base"
                                   << "ALE Directory Section";
        QTest::newRow("4304+3432") << 7736 << false << "ALE Data Base"
                                   << "ALE Autodials Section";
        QTest::newRow("4304+3452") << 7756 << false << "ALE Data Base"
                                   << "ALE Program Word";
        QTest::newRow("4304+3457") << 7761 << false << "ALE Data Base"
                                   << "ALE Messages";
        QTest::newRow("8680") << 8680 << false << "ALE Data Base"
                              << "ALE Messages";
        QTest::newRow("8681 global") << 8681 << true << "Global member Data Base"
                                     << "Global member Data Base";
        QTest::newRow("8681 ccir") << 8681 << false << "CCIR Data Base"
                                   << "CCIR Data Base";
        QTest::newRow("9155 ccir") << 9155 << false << "CCIR Data Base"
                                   << "CCIR Data Base";
        QTest::newRow("9156 channel numbers") << 9156 << false << "CCIR Data Base"
                                              << "CCIR Channel Number";
        QTest::newRow("9156 global") << 9156 << true << "Global member Data Base"
                                     << "Global member Data Base";
    }
    void progressSections()
    {
        QFETCH(int, position);
        QFETCH(bool, aleGlobal);
        QFETCH(QString, title);
        QFETCH(QString, section);
        const ProgressSection found = progressSectionAt(position, aleGlobal);
        QCOMPARE(QString::fromUtf8(found.title.data(), found.title.size()), title);
        QCOMPARE(QString::fromUtf8(found.section.data(), found.section.size()), section);
    }

    void progressPositions_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("ccir");
        QTest::addColumn<int>("position");
        QTest::newRow("read") << int(TransferMode::Read) << false << 124;
        QTest::newRow("read ccir") << int(TransferMode::Read) << true << 164;
        QTest::newRow("write") << int(TransferMode::Write) << false << 124 + 1269;
        QTest::newRow("write ccir") << int(TransferMode::Write) << true << 164 + 1269;
    }
    void progressPositions()
    {
        QFETCH(int, mode);
        QFETCH(bool, ccir);
        QFETCH(int, position);
        QCOMPARE(progressPosition(0, TransferMode(mode), ccir), position);
        QCOMPARE(progressPosition(10, TransferMode(mode), ccir), position + 10);
    }

    void progressCaptions_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<bool>("reported");
        QTest::newRow("read") << 1 << "Reading Channels Section" << false;
        QTest::newRow("write") << 2 << "Writing Channels Section" << false;
        QTest::newRow("unknown") << 0 << "CProgressDlg::GetCaption: Unknown ReadWrite Mode!"
                                 << true;
    }
    void progressCaptions()
    {
        QFETCH(int, mode);
        QFETCH(QString, caption);
        QFETCH(bool, reported);
        RecordingNotifier notifier;
        const auto text =
            progressCaption(TransferMode(mode), progressSectionAt(2000, false), notifier);
        QCOMPARE(QString::fromStdString(text), caption);
        QCOMPARE(notifier.texts().size(), std::size_t(reported ? 1 : 0));
    }

    void imageIndex_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("on");
        QTest::addColumn<int>("shown");
        QTest::newRow("off image turned on") << 15 << true << 3;
        QTest::newRow("on image stays on") << 3 << true << 3;
        QTest::newRow("on image turned off") << 3 << false << 15;
        QTest::newRow("off image stays off") << 15 << false << 15;
        QTest::newRow("12 never moves, on") << 12 << true << 12;
        QTest::newRow("12 never moves, off") << 12 << false << 12;
        QTest::newRow("0 turned off") << 0 << false << 12;
    }
    void imageIndex()
    {
        QFETCH(int, index);
        QFETCH(bool, on);
        QFETCH(int, shown);
        QCOMPARE(imageIndexForState(index, on), shown);
    }

    void callStatus_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::newRow("4") << 4 << "Link was established on silent net.";
        QTest::newRow("6 has no text") << 6 << "";
        QTest::newRow("7") << 7 << "Last command was not completed successfully.";
        QTest::newRow("-1") << -1 << "";
    }
    void callStatus()
    {
        QFETCH(int, code);
        QFETCH(QString, text);
        const auto shown = callStatusText(code);
        QCOMPARE(QString::fromUtf8(shown.data(), shown.size()), text);
    }

    void callState_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("linked");
        QTest::addColumn<bool>("sounding");
        QTest::addColumn<QString>("text");
        QTest::newRow("idle") << 1 << false << false << "Call: idle";
        QTest::newRow("call under way") << 31 << false << false << "Call: calling";
        QTest::newRow("call that got its link") << 31 << true << false << "Call: idle";
        QTest::newRow("net call sent") << 32 << false << false << "Call: calling the net";
        QTest::newRow("all call sent") << 33 << false << false << "Call: calling all stations";
        QTest::newRow("call while linked") << 54 << true << false << "Call: calling";
        QTest::newRow("exchange with a station")
            << 37 << false << false << "Call: link quality with a station";
        QTest::newRow("exchange with the net")
            << 38 << false << false << "Call: link quality with the net";
        QTest::newRow("replacing") << 39 << true << false << "Call: replacing the link channel";
        QTest::newRow("incoming") << 55 << false << false << "Call: incoming";
        QTest::newRow("sounding") << 62 << false << true << "Call: sounding";
        QTest::newRow("exchange aborted") << 62 << false << false << "Call: idle";
        QTest::newRow("call aborted") << 58 << false << false << "Call: idle";
    }
    void callState()
    {
        QFETCH(int, state);
        QFETCH(bool, linked);
        QFETCH(bool, sounding);
        QFETCH(QString, text);
        const auto shown = callStateText(state, linked, sounding);
        QCOMPARE(QString::fromUtf8(shown.data(), shown.size()), text);
    }

    void traceWritesNothingUntilStarted()
    {
        TraceWriter trace;
        QCOMPARE(trace.traceLine("BEFORE %s", "PerformReset()"), 0);
        QVERIFY(trace.lastLine().empty());
        trace.startTraceLog("koral.htm");
        QVERIFY(QString::fromStdString(trace.lastLine())
                    .contains(QRegularExpression(
                        "^<p>\\d\\d:\\d\\d:\\d\\d  \\d\\d:\\d\\d:\\d\\d \\d\\d/\\w+ /\\d{4} $")));
        QCOMPARE(trace.traceLine("BEFORE %s", "PerformReset()"), 1);
        QVERIFY(QString::fromStdString(trace.lastLine())
                    .contains(QRegularExpression("^<p>\\d\\d:\\d\\d:\\d\\d  BEFORE "
                                                 "PerformReset\\(\\) $")));
    }
    void traceCutsLongTexts()
    {
        TraceWriter trace;
        trace.startTraceLog("koral.htm");
        const std::string longText(2000, 'x');
        trace.traceLine("%s", longText.c_str());
        // "<p>HH:MM:SS  " + 511 characters + " "
        QCOMPARE(trace.lastLine().size(), std::size_t(13 + 511 + 1));
    }
};

QTEST_GUILESS_MAIN(SessionRulesTest)
#include "tst_sessionrules.moc"
