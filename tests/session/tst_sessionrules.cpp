// Small rules of the main view that need no radio: baud-rate indices, the software-version
// gates, progress captions, toolbar images, status texts and the trace writer.

#include "support/Table.h"

#include "common/RecordingNotifier.h"
#include "session/BaudRate.h"
#include "session/ProgressCaption.h"
#include "session/TraceWriter.h"
#include "session/VersionGate.h"
#include "session/ViewStatus.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

class SessionRulesTest : public QObject
{
    Q_OBJECT
private slots:
    void baudRateIndex_data()
    {
        columns<int, int, QString>("baud", "index", "message");
        QTest::newRow("1200") << 1200 << 0 << "";
        QTest::newRow("9600") << 9600 << 3 << "";
        QTest::newRow("19200 falls back")
            << 19200 << 0 << "The baud rate 19200 is not defined, is set to 1200";
    }
    void baudRateIndex()
    {
        auto [baud, index, message] = fetch<int, int, QString>("baud", "index", "message");
        RecordingNotifier notifier;
        QCOMPARE(baudRateToIndex(baud, notifier), index);
        const auto texts = notifier.texts();
        QCOMPARE(texts.empty() ? QString() : QString::fromStdString(texts.front()), message);
        QVERIFY(texts.size() <= 1);
    }

    void commandLineBaudRate_data()
    {
        // rate 0: refused
        columns<QString, int>("text", "rate");
        QTest::newRow("9600") << "9600" << 9600;
        QTest::newRow("a rate the radio lacks") << "12345" << 0;
        QTest::newRow("largest number") << "2147483647" << 0;
        QTest::newRow("past the largest number") << "99999999999" << 0;
        QTest::newRow("signed") << "+9600" << 0;
        QTest::newRow("trailing text") << "9600x" << 0;
    }
    void commandLineBaudRate()
    {
        auto [text, rate] = fetch<QString, int>("text", "rate");
        QCOMPARE(parseBaudRate(text.toStdString()).value_or(0), rate);
    }

    void softwareClass_data()
    {
        columns<QByteArray, int>("version", "softwareClass");
        QTest::newRow("00.900 is below the first gate") << QByteArray("00.900") << 2;
        QTest::newRow("01.000 opens class 1") << QByteArray("01.000") << 1;
        QTest::newRow("03.000 still class 1") << QByteArray("03.000") << 1;
        QTest::newRow("03.0001 compares above 03.000") << QByteArray("03.0001") << 2;
        QTest::newRow("only 8 characters count") << QByteArray("02.50000X") << 1;
        QTest::newRow("unreadable") << QByteArray() << 0;
    }
    void softwareClass()
    {
        auto [version, softwareClass] = fetch<QByteArray, int>("version", "softwareClass");
        const auto text =
            version.isNull() ? std::nullopt
                             : std::optional(std::string_view(version.constData(), version.size()));
        QCOMPARE(int(softwareClassOf(text)), softwareClass);
    }
    void radioVersionGate_data()
    {
        columns<QByteArray, bool>("version", "atLeast");
        QTest::newRow("equal") << QByteArray("03.8194") << true;
        QTest::newRow("below") << QByteArray("03.8193") << false;
        QTest::newRow("shorter text below") << QByteArray("03.8") << false;
        QTest::newRow("above") << QByteArray("04.000") << true;
    }
    void radioVersionGate()
    {
        auto [version, atLeast] = fetch<QByteArray, bool>("version", "atLeast");
        QCOMPARE(isRadioVersionAtLeast38194(version.toStdString()), atLeast);
    }

    void progressSections_data()
    {
        columns<int, bool, QString>("position", "aleGlobal", "caption");
        QTest::newRow("1687") << 1687 << false << "Radio Data Base: Groups Section";
        QTest::newRow("1688") << 1688 << false << "Radio Data Base: Channels Section";
        QTest::newRow("4303") << 4303 << false << "Radio Data Base: External Options Section";
        QTest::newRow("4304") << 4304 << false << "ALE Data Base: ALE Nets Section";
        QTest::newRow("4304+3457") << 7761 << false << "ALE Data Base: ALE Messages";
        QTest::newRow("8680") << 8680 << false << "ALE Data Base: ALE Messages";
        QTest::newRow("8681 global")
            << 8681 << true << "Global member Data Base: Global member Data Base";
        QTest::newRow("8681 ccir") << 8681 << false << "CCIR Data Base: CCIR Data Base";
        QTest::newRow("9155 ccir") << 9155 << false << "CCIR Data Base: CCIR Data Base";
        QTest::newRow("9156 channel numbers")
            << 9156 << false << "CCIR Data Base: CCIR Channel Number";
        QTest::newRow("9156 global")
            << 9156 << true << "Global member Data Base: Global member Data Base";
    }
    void progressSections()
    {
        auto [position, aleGlobal, caption] =
            fetch<int, bool, QString>("position", "aleGlobal", "caption");
        const ProgressSection found = progressSectionAt(position, aleGlobal);
        QCOMPARE(QString::fromUtf8(found.title.data(), found.title.size()) + ": " +
                     QString::fromUtf8(found.section.data(), found.section.size()),
                 caption);
    }

    void progressPositions_data()
    {
        columns<int, bool, int>("mode", "ccir", "position");
        QTest::newRow("read") << int(TransferMode::Read) << false << 124;
        QTest::newRow("write ccir") << int(TransferMode::Write) << true << 164 + 1269;
    }
    void progressPositions()
    {
        auto [mode, ccir, position] = fetch<int, bool, int>("mode", "ccir", "position");
        QCOMPARE(progressPosition(0, TransferMode(mode), ccir), position);
        QCOMPARE(progressPosition(10, TransferMode(mode), ccir), position + 10);
    }

    void progressCaptions_data()
    {
        columns<int, QString, bool>("mode", "caption", "reported");
        QTest::newRow("read") << 1 << "Reading Channels Section" << false;
        QTest::newRow("write") << 2 << "Writing Channels Section" << false;
        QTest::newRow("unknown") << 0 << "CProgressDlg::GetCaption: Unknown ReadWrite Mode!"
                                 << true;
    }
    void progressCaptions()
    {
        auto [mode, caption, reported] = fetch<int, QString, bool>("mode", "caption", "reported");
        RecordingNotifier notifier;
        const auto text =
            progressCaption(TransferMode(mode), progressSectionAt(2000, false), notifier);
        QCOMPARE(QString::fromStdString(text), caption);
        QCOMPARE(notifier.texts().size(), std::size_t(reported ? 1 : 0));
    }

    void imageIndex_data()
    {
        columns<int, bool, int>("index", "on", "shown");
        QTest::newRow("off image turned on") << 15 << true << 3;
        QTest::newRow("on image turned off") << 3 << false << 15;
        QTest::newRow("12 never moves, on") << 12 << true << 12;
        QTest::newRow("12 never moves, off") << 12 << false << 12;
    }
    void imageIndex()
    {
        auto [index, on, shown] = fetch<int, bool, int>("index", "on", "shown");
        QCOMPARE(imageIndexForState(index, on), shown);
    }

    void callStatus_data()
    {
        columns<int, QString>("code", "text");
        QTest::newRow("4") << 4 << "Link was established on silent net.";
        QTest::newRow("6 has no text") << 6 << "";
        QTest::newRow("7") << 7 << "Last command was not completed successfully.";
        QTest::newRow("-1") << -1 << "";
    }
    void callStatus()
    {
        auto [code, text] = fetch<int, QString>("code", "text");
        const auto shown = callStatusText(code);
        QCOMPARE(QString::fromUtf8(shown.data(), shown.size()), text);
    }

    void callState_data()
    {
        columns<int, bool, bool, QString>("state", "linked", "sounding", "text");
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
    }
    void callState()
    {
        auto [state, linked, sounding, text] =
            fetch<int, bool, bool, QString>("state", "linked", "sounding", "text");
        const auto shown = callStateText(state, linked, sounding);
        QCOMPARE(QString::fromUtf8(shown.data(), shown.size()), text);
    }

    void traceWritesNothingUntilStartedAndCutsLongTexts()
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
        trace.traceLine("%s", std::string(2000, 'x').c_str());
        // "<p>HH:MM:SS  " + 511 characters + " "
        QCOMPARE(trace.lastLine().size(), std::size_t(13 + 511 + 1));
    }
};

QTEST_GUILESS_MAIN(SessionRulesTest)
#include "tst_sessionrules.moc"
