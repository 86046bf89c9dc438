// koralctl's radio commands run in-process against the built-in virtual radio (port 1).

#include "support/KoralctlRunner.h"
#include "support/Table.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <fstream>

using namespace koral::test;

using koral::test::runKoralctl;

namespace {
std::string readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}
} // namespace

class TestKoralctlRadio : public QObject
{
    Q_OBJECT
    QTemporaryDir dir;

    std::string path(const char* name) const { return dir.filePath(name).toStdString(); }

private slots:
    // With --trace, every frame of the exchange is in the file: the queries and the answers.
    void probeTellsWhatTheRadioIs()
    {
        const QString trace = dir.filePath("probe-trace.txt");
        const auto r = runKoralctl({"probe", "--port", "1", "--baud", "9600", "--trace", trace});
        QCOMPARE(r.exitCode, 0);
        for (const char* line : {"Selective calling: ALE\n", "Program word: 0x5A\n",
                                 "Software version: 03.100\n", "Radio software version: 03.8200\n"})
            QVERIFY2(r.out.contains(line), line);
        const QString lines = QString::fromStdString(readFile(trace.toStdString()));
        QVERIFY(lines.startsWith("# KORAL link trace started "));
        // How each kind of frame reads is tst_linktrace's; here: both ways are in the file.
        QVERIFY(lines.contains(QRegularExpression(R"(ms  ->\s+RESET #0 )")));
        QVERIFY(lines.contains(QRegularExpression(R"(ms  <-\s+DATA #\d+\s+CcirMode \(96\))")));
        QVERIFY2(!lines.contains("TIMEOUT") && !lines.contains("RETRY"), qPrintable(lines));
    }

    // What read saves, write puts back; a changed channel reaches the radio, the old contents
    // are kept beside the file and a second read gives the written file again.
    void readThenWriteRoundTrips()
    {
        const std::string base = path("radio");
        auto r =
            runKoralctl({"read", "--port=1", "--baud=9600", "-o", QString::fromStdString(base)});
        QCOMPARE(r.exitCode, 0);
        QVERIFY(r.err.contains("Reading Channels Section\n")); // plain lines
        std::string rss = readFile(base + ".rss");
        const auto at = rss.find("\nChannel2=");
        QVERIFY(at != std::string::npos);
        const auto end = rss.find('\n', at + 1);
        rss.replace(at, end - at, "\nChannel2=Max,USB,2639000,2640000,Slow,SSB,2700");
        std::ofstream(path("changed.rss"), std::ios::binary) << rss;

        // A fresh radio holds what was read, so only channel 2 differs from the changed file.
        r = runKoralctl({"diff", "--port", "1", dir.filePath("changed.rss")});
        QCOMPARE(r.exitCode, 1);
        QVERIFY(r.out.startsWith("Channel 2 Tx. Freq.: ") && r.out.contains(" -> 2.64000\n"));
        QVERIFY(!r.out.contains("\nChannel 3"));

        r = runKoralctl({"write", "--port", "1", "--baud", "9600", "--backups",
                         dir.filePath("backups"), dir.filePath("changed.rss"),
                         QString::fromStdString(base + ".ale")});
        QCOMPARE(r.exitCode, 0);
        // A dated backup of each file written; what the radio held is kept beside the file too.
        QCOMPARE(QDir(dir.filePath("backups")).entryList(QDir::Files).size(), 2);
        QVERIFY(QFile::exists(QString::fromStdString(path("changed.before-write.ale"))));
        // Each opening of port 1 is a fresh radio, so the round trip is checked on the same
        // connection by write's own read-back; the backup holds the radio's original contents.
        QCOMPARE(readFile(path("changed.before-write.rss")), readFile(base + ".rss"));
    }

    void badArgumentsAreErrors_data()
    {
        const auto row = [](const char* name, const QStringList& arguments, const char* message) {
            QTest::newRow(name) << arguments << QString(message);
        };
        columns<QStringList, QString>("arguments", "message");
        row("bad baud", {"probe", "--port", "1", "--baud", "fast"},
            "'fast' is not a baud rate of the radio (1200, 2400, 4800 or 9600)");
        // The output is checked before the port is opened, so a port that is not there does
        // not matter.
        row("output into a missing folder",
            {"read", "--port", "/dev/koral-none", "-o", "missing/folder/base"},
            "Cannot write the file missing/folder/base.rss: No such file or directory");
        row("output into a folder without a name",
            {"read", "--port", "/dev/koral-none", "-o", "out/"}, "names no file");
        row("no output", {"read", "--port", "1"}, "-o BASE is required");
        row("missing value", {"read", "--port"}, "needs a value");
        row("unknown port", {"probe", "--port", "/dev/koral-none"},
            "cannot open port /dev/koral-none");
        row("trace into a missing folder",
            {"probe", "--port", "1", "--trace", "missing/folder/trace.txt"},
            "cannot write the trace file missing/folder/trace.txt: No such file or directory");
        row("bad test type", {"bite", "--port", "1", "--type", "x"}, "unknown test type 'x'");
        row("write needs an rss file", {"write", "--port", "1", "radio.ale"}, "unknown file kind");
    }
    void badArgumentsAreErrors()
    {
        auto [arguments, message] = fetch<QStringList, QString>("arguments", "message");
        const auto r = runKoralctl(arguments);
        QCOMPARE(r.exitCode, 2);
        QVERIFY2(r.err.contains(message), qPrintable(r.err));
    }

    void biteReportsResultsAndSummary()
    {
        const auto r = runKoralctl({"bite", "--port", "1", "--baud", "9600", "--type", "lowrf"});
        QCOMPARE(r.exitCode, 0);
        QVERIFY(r.out.contains("Summary: "));
        QVERIFY(r.out.contains("\tPassed\n"));
    }
};

QTEST_GUILESS_MAIN(TestKoralctlRadio)
#include "tst_koralctlradio.moc"
