// koralctl's radio commands run in-process against the built-in virtual radio (port 1).

#include "cli/Command.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <fstream>
#include <sstream>

namespace {
struct Result
{
    int code;
    std::string out;
    std::string err;
};

Result koralctl(std::vector<std::string> arguments)
{
    std::ostringstream out, err;
    const int code = koral::cli::run(arguments, out, err);
    return {code, out.str(), err.str()};
}

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
    void probeTellsWhatTheRadioIs()
    {
        const Result r = koralctl({"probe", "--port", "1", "--baud", "9600"});
        QCOMPARE(r.code, 0);
        QVERIFY(r.out.find("Selective calling: ALE\n") != std::string::npos);
        QVERIFY(r.out.find("Program word: 0x") != std::string::npos);
    }

    // What read saves, write puts back; a changed channel reaches the radio, the old contents
    // are kept beside the file and a second read gives the written file again.
    void readThenWriteRoundTrips()
    {
        const std::string base = path("radio");
        Result r = koralctl({"read", "--port=1", "--baud=9600", "-o", base});
        QCOMPARE(r.code, 0);
        QVERIFY(r.err.find("Reading Channels Section\n") != std::string::npos); // plain lines
        std::string rss = readFile(base + ".rss");
        const auto at = rss.find("\nChannel2=");
        QVERIFY(at != std::string::npos);
        const auto end = rss.find('\n', at + 1);
        rss.replace(at, end - at, "\nChannel2=Max,USB,2639000,2640000,Slow,SSB,2700");
        std::ofstream(path("changed.rss"), std::ios::binary) << rss;

        // A fresh radio holds what was read, so only channel 2 differs from the changed file.
        r = koralctl({"diff", "--port", "1", path("changed.rss")});
        QCOMPARE(r.code, 1);
        QVERIFY(r.out.starts_with("Channel 2 Tx. Freq.: "));
        QVERIFY(r.out.find("\nChannel 2 Rx. Freq.: ") != std::string::npos);
        QVERIFY(r.out.find(" -> 2.64000\n") != std::string::npos);
        QCOMPARE(r.out.find("\nChannel 3"), std::string::npos);

        r = koralctl({"write", "--port", "1", "--baud", "9600", "--backups", path("backups"),
                      path("changed.rss"), base + ".ale"});
        QCOMPARE(r.code, 0);
        // The dated backup holds the radio's contents too.
        const QStringList backups =
            QDir(QString::fromStdString(path("backups"))).entryList(QDir::Files, QDir::Name);
        QCOMPARE(backups.size(), 2);
        QVERIFY(backups[0].endsWith(".ale") && backups[1].endsWith(".rss"));
        QCOMPARE(readFile(path("backups") + "/" + backups[1].toStdString()),
                 readFile(base + ".rss"));
        QVERIFY(QFile::exists(QString::fromStdString(path("changed.before-write.rss"))));
        QVERIFY(QFile::exists(QString::fromStdString(path("changed.before-write.ale"))));
        // Each opening of port 1 is a fresh radio, so the round trip is checked on the same
        // connection by write's own read-back; the backup holds the radio's original contents.
        QCOMPARE(readFile(path("changed.before-write.rss")), readFile(base + ".rss"));
    }

    void badArgumentsAreErrors_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("message");
        QTest::newRow("no port") << QStringList{"probe"} << "--port P is required";
        QTest::newRow("bad baud")
            << QStringList{"probe", "--port", "1", "--baud", "fast"}
            << "'fast' is not a baud rate of the radio (1200, 2400, 4800 or 9600)";
        QTest::newRow("probe at a rate the radio lacks")
            << QStringList{"probe", "--port", "1", "--baud", "12345"} << "'12345' is not a baud";
        QTest::newRow("read at the largest number")
            << QStringList{"read", "--port", "1", "--baud", "2147483647", "-o", "radio"}
            << "'2147483647' is not a baud";
        QTest::newRow("write at one baud")
            << QStringList{"write", "--port", "1", "--baud", "1", KORAL_EXAMPLES_DIR "/radio.rss"}
            << "'1' is not a baud";
        QTest::newRow("bite at a computer's rate")
            << QStringList{"bite", "--port", "1", "--baud", "115200"} << "'115200' is not a baud";
        // The output is checked before the port is opened, so a port that is not there does
        // not matter.
        QTest::newRow("output into a missing folder")
            << QStringList{"read", "--port", "/dev/koral-none", "-o", "missing/folder/base"}
            << "Cannot write the file missing/folder/base.rss: No such file or directory";
        QTest::newRow("empty output name")
            << QStringList{"read", "--port", "/dev/koral-none", "-o", ""} << "names no file";
        QTest::newRow("output into a folder without a name")
            << QStringList{"read", "--port", "/dev/koral-none", "-o", "out/"} << "names no file";
        QTest::newRow("no output") << QStringList{"read", "--port", "1"} << "-o BASE is required";
        QTest::newRow("missing value") << QStringList{"read", "--port"} << "needs a value";
        QTest::newRow("unknown port") << QStringList{"probe", "--port", "/dev/koral-none"}
                                      << "cannot open port /dev/koral-none";
        QTest::newRow("bad test type")
            << QStringList{"bite", "--port", "1", "--type", "x"} << "unknown test type 'x'";
        QTest::newRow("write needs an rss file")
            << QStringList{"write", "--port", "1", "radio.ale"} << "unknown file kind";
    }
    void badArgumentsAreErrors()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        std::vector<std::string> args;
        for (const QString& a : arguments)
            args.push_back(a.toStdString());
        const Result r = koralctl(args);
        QCOMPARE(r.code, 2);
        QVERIFY2(r.err.find(message.toStdString()) != std::string::npos, r.err.c_str());
    }

    void biteReportsResultsAndSummary()
    {
        const Result r = koralctl({"bite", "--port", "1", "--baud", "9600", "--type", "lowrf"});
        QCOMPARE(r.code, 0);
        QVERIFY(r.out.find("Summary: ") != std::string::npos);
        QVERIFY(r.out.find("\tPassed\n") != std::string::npos);
    }
};

QTEST_GUILESS_MAIN(TestKoralctlRadio)
#include "tst_koralctlradio.moc"
