#include "support/KoralctlRunner.h"

#include <QtTest>

using namespace koral;

namespace {

using Outcome = test::KoralctlOutcome;
using Changes = QList<QPair<QByteArray, QByteArray>>;

Outcome koralctl(const QStringList& arguments)
{
    return test::runKoralctl(arguments);
}

const QString kExample = QStringLiteral(KORAL_EXAMPLES_DIR "/radio.rss");
const QString kProgramme = QStringLiteral(KORAL_EXAMPLES_DIR "/radio.ale");
const QByteArray kBroken = "[Radio Options]\r\nPriority_Channel=5\r\n"
                           "[Groups Guard Channels]\r\nGroup_C=17,17,30\r\n"
                           "[Channels]\r\nChannel30=Max,USB,0,0,Slow,SSB\r\n";

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

// The example ALE programme with some texts replaced.
QByteArray editedProgramme(const Changes& changes)
{
    QByteArray text = readAll(kProgramme);
    for (const auto& [from, to] : changes)
        text.replace(from, to);
    return text;
}

} // namespace

class KoralctlTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString path(const QString& name) const { return m_dir.filePath(name); }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QVERIFY(QDir().mkdir(path("folder.rss")));
        writeFile(path("broken.rss"), kBroken);
    }

    // Every complaint is one line on standard error with exit code 2; nothing on standard out.
    void errors_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("message");
        QTest::newRow("unknown command")
            << QStringList{"frob"} << "koralctl: unknown command 'frob' (see 'koralctl --help')\n";
        QTest::newRow("unknown option")
            << QStringList{"summary", kExample, "--every"}
            << "koralctl: unknown option '--every' (see 'koralctl summary --help')\n";
        QTest::newRow("option of another command")
            << QStringList{"check", kExample, "--all"}
            << "koralctl: unknown option '--all' (see 'koralctl check --help')\n";
        QTest::newRow("too few arguments") << QStringList{"normalize", kExample}
                                           << "koralctl: wrong arguments; usage: koralctl "
                                              "normalize IN OUT [--no-global-members]\n";
        QTest::newRow("too many arguments")
            << QStringList{"check", kExample, kExample, kExample}
            << "koralctl: wrong arguments; usage: koralctl check RADIO.rss [PROGRAMME.ale]\n";
        QTest::newRow("missing file")
            << QStringList{"check", "/nonexistent/radio.rss"}
            << "koralctl: Cannot read the file /nonexistent/radio.rss: No "
               "such file or directory\n";
        QTest::newRow("unknown kind") << QStringList{"summary", "NOTES"}
                                      << "koralctl: NOTES: unknown file kind (expected .rss)\n";
        QTest::newRow("programme of another kind")
            << QStringList{"check", kExample, kExample}
            << "koralctl: " + kExample + ": unknown file kind (expected .ale)\n";
        QTest::newRow("missing CCIR file")
            << QStringList{"normalize", "/nonexistent/a.ccr", "b.ccr"}
            << "koralctl: Cannot read the file /nonexistent/a.ccr: No such file or directory\n";
        QTest::newRow("diff of two kinds")
            << QStringList{"diff", kExample, "b.ale"}
            << "koralctl: " + kExample + " and b.ale are not files of one kind\n";
        QTest::newRow("normalize of an unknown kind")
            << QStringList{"normalize", "plan.txt", "out.txt"}
            << "koralctl: plan.txt: unknown file kind (expected .rss, .ale or .ccr)\n";
    }
    void errors()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        const Outcome outcome = koralctl(arguments);
        QCOMPARE(outcome.exitCode, cli::kExitError);
        QCOMPARE(outcome.err, message);
        QCOMPARE(outcome.out, QString());
    }

    void folderAndUnwritableTarget()
    {
        Outcome outcome = koralctl({"check", path("folder.rss")});
        QCOMPARE(outcome.exitCode, cli::kExitError);
        QVERIFY2(outcome.err.endsWith(": Is a directory\n"), qPrintable(outcome.err));
        outcome = koralctl({"normalize", kExample, path("missing/out.rss")});
        QCOMPARE(outcome.exitCode, cli::kExitError);
        QCOMPARE(outcome.err.count('\n'), 1);
        QVERIFY(!QFile::exists(path("missing/out.rss")));
    }

    void help_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("start");
        QTest::newRow("overview") << QStringList{"--help"} << 0 << "usage: koralctl COMMAND";
        QTest::newRow("no arguments") << QStringList{} << 2 << "usage: koralctl COMMAND";
        QTest::newRow("normalize") << QStringList{"normalize", "--help"} << 0
                                   << "usage: koralctl normalize IN OUT [--no-global-members]\n";
        QTest::newRow("check, help after arguments")
            << QStringList{"check", "x", "-h"} << 0
            << "usage: koralctl check RADIO.rss [PROGRAMME.ale]\n";
        QTest::newRow("summary") << QStringList{"summary", "--help"} << 0
                                 << "usage: koralctl summary RADIO.rss [--all]\n";
    }
    void help()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, start);
        const Outcome outcome = koralctl(arguments);
        QCOMPARE(outcome.exitCode, exitCode);
        const QString shown = exitCode == 0 ? outcome.out : outcome.err;
        QVERIFY2(shown.startsWith(start), qPrintable(shown));
    }

    // A radio database alone or with an ALE programme (the example's, edited): every line, in
    // order, and the exit code.
    void check_data()
    {
        QTest::addColumn<QByteArray>("radio");
        QTest::addColumn<bool>("withProgramme");
        QTest::addColumn<Changes>("changes");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("example") << QByteArray() << false << Changes{} << QStringList{};
        QTest::newRow("every line in order")
            << kBroken << false << Changes{}
            << QStringList{"Priority channel 5 is not programmed.",
                           "Guard channel 17 for group C is not programmed.",
                           "Channel 30 in group C selected but not programmed."};
        QTest::newRow("example with its programme")
            << QByteArray() << true << Changes{} << QStringList{};
        QTest::newRow("radio lines before ALE lines")
            << QByteArray() << true
            << Changes{{"Scanned Channels=20,22", "Scanned Channels=20,22,40"},
                       {"Self Address=NCCOAST", "Self Address=PORTA"}}
            << QStringList{"Channel 40 is scanned channel in net no. 3 but not programmed.",
                           "Net no. 2 Self Address ('PORTA') defined in the Directory"};
        QTest::newRow("name equal to a self address")
            << QByteArray() << true << Changes{{"Net Name=EMERG", "Net Name=NCHQ"}}
            << QStringList{"Net no. 5 Self Address ('NCHQ') defined as Net no. 1 Net Name"};
    }
    void check()
    {
        QFETCH(QByteArray, radio);
        QFETCH(bool, withProgramme);
        QFETCH(Changes, changes);
        QFETCH(QStringList, lines);
        QStringList arguments{"check", kExample};
        if (!radio.isEmpty()) {
            writeFile(path("check.rss"), radio);
            arguments[1] = path("check.rss");
        }
        if (withProgramme) {
            writeFile(path("check.ale"), editedProgramme(changes));
            arguments << path("check.ale");
        }
        const Outcome outcome = koralctl(arguments);
        QCOMPARE(outcome.out, lines.isEmpty() ? QString() : lines.join('\n') + '\n');
        QCOMPARE(outcome.exitCode, lines.isEmpty() ? cli::kExitOk : cli::kExitProblems);
    }

    void summaryRows_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("rows");
        QTest::newRow("programmed channels") << QStringList{"summary", kExample} << 41;
        QTest::newRow("all channels") << QStringList{"summary", kExample, "--all"} << 200;
    }
    void summaryRows()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, rows);
        const Outcome outcome = koralctl(arguments);
        QCOMPARE(outcome.exitCode, cli::kExitOk);
        const QStringList lines = outcome.outLines();
        QCOMPARE(lines.size(), rows + 1);
        QCOMPARE(lines[0], QString("No.\tTx. Freq.\tRx. Freq.\tTx Power\tBand\tMode\tA.G.C.\tB.W.\t"
                                   "Ch. Num."));
        QCOMPARE(lines[1], QString("1\t2.182\t2.182\tHIGH\tUSB\tSSB\tSlow\t2.7\t401"));
    }

    void summaryWithoutCcirNumbersHasEightColumns()
    {
        writeFile(path("plain.RSS"),
                  "[Channels]\r\nChannel7=Low,LSB,2000000,3000000,Off,AME,2100\r\n");
        const Outcome outcome = koralctl({"summary", path("plain.RSS")});
        QCOMPARE(outcome.out,
                 QString("No.\tTx. Freq.\tRx. Freq.\tTx Power\tBand\tMode\tA.G.C.\tB.W.\n"
                         "7\t2\t3\tLOW\tLSB\tAME\tOff\t2.1\n"));
    }

    // The examples are in the program's own layout already.
    void normalizeOfTheExamplesKeepsTheirBytes_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("radio database") << "radio.rss";
        QTest::newRow("ALE programme") << "radio.ale";
        QTest::newRow("CCIR database") << "radio.ccr";
    }
    void normalizeOfTheExamplesKeepsTheirBytes()
    {
        QFETCH(QString, name);
        const QString example = QStringLiteral(KORAL_EXAMPLES_DIR "/") + name;
        const Outcome outcome = koralctl({"normalize", example, path("example-" + name)});
        QCOMPARE(outcome.err, QString());
        QCOMPARE(outcome.exitCode, cli::kExitOk);
        QCOMPARE(readAll(path("example-" + name)), readAll(example));
    }

    // A repaired file holds these lines and not those, and normalizing it again changes nothing.
    void normalizeRepairs_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QByteArrayList>("present");
        QTest::addColumn<QByteArrayList>("absent");
        QTest::newRow("CCIR database")
            << "calls.CCR"
            << QByteArray("[Ccir Option]\nCcir 4 Digits Id=4117\nCcir Message1="
                          "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789ABCD\n"
                          "Ccir Directory7=401000\nCcir Directory8=0\n")
            << QStringList{}
            << QByteArrayList{"Ccir 4 Digits Id=4117\r\n", "Ccir Preamble=6\r\n",
                              "Ccir Message1=ABCDEFGHIJKLMNOPQRSTUVWXYZ012345\r\n",
                              "Ccir Directory7=401000\r\n"}
            << QByteArrayList{"Ccir Directory8"};
        // Channel 4 loses its transmit frequency, so it has no CCIR number line any more.
        QTest::newRow("radio database")
            << "messy.rss"
            << QByteArray("[zov]\nZOV_Version=1.00\nComment=two\\rlines\nUserName=Op\n"
                          "[Channels]\nChannel3=High,LSB,2000000\nChannel4=Huge,USB,1599999,"
                          "7000000,Fast,SSB,9\nChannel5=Max,USB,7000000,7000000\n[Radio "
                          "Options]\nScan_Rate=7 Ch/Sec\n[RSS]\nOld=1\n"
                          "[Ccir Channel Number]\nChannel4=12\nChannel5=13\n")
            << QStringList{}
            << QByteArrayList{"Comment=two\\rlines\r\n",
                              "UserName=Op\r\n",
                              "Channel3=High,LSB,2000000,0,Slow,SSB,2700\r\n",
                              "Channel4=Max,USB,0,7000000,Fast,SSB,2700\r\n",
                              "Scan_Rate=2 Ch/Sec\r\n",
                              "[Ccir Channel Number]\r\nChannel5=13\r\n"}
            << QByteArrayList{"[RSS]", "Channel4=12"};
        QTest::newRow("ALE programme keeps its identity")
            << "old.ale"
            << editedProgramme({{"ZOV_Version=2.01", "ZOV_Version=1.00"},
                                {"Scan_Rate=5 Ch/Sec", "Scan_Rate=3 Ch/Sec"},
                                {"Address No. 3=PORTA", "Address No. 3=PORT-A"}})
            << QStringList{}
            << QByteArrayList{"ZOV_Version=2.01\r\n", "Serial_Number=KR2E004417\r\n",
                              "Address No. 3=PORTA\r\n"}
            << QByteArrayList{"Scan_Rate=5 Ch/Sec", "Scan_Rate=3"};
        QTest::newRow("ALE programme without global members")
            << "plain.ale" << readAll(kProgramme) << QStringList{"--no-global-members"}
            << QByteArrayList{"Member No. 1=NCBASE1"} << QByteArrayList{"Global Member"};
    }
    void normalizeRepairs()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QStringList, options);
        QFETCH(QByteArrayList, present);
        QFETCH(QByteArrayList, absent);
        const QString once = path("once." + QFileInfo(name).suffix().toLower());
        const QString twice = path("twice." + QFileInfo(name).suffix().toLower());
        writeFile(path(name), content);
        QCOMPARE(koralctl(QStringList{"normalize", path(name), once} + options).exitCode, 0);
        QCOMPARE(koralctl(QStringList{"normalize", once, twice} + options).exitCode, 0);
        const QByteArray saved = readAll(once);
        QCOMPARE(readAll(twice), saved);
        for (const QByteArray& line : present)
            QVERIFY2(saved.contains(line), line.constData());
        for (const QByteArray& line : absent)
            QVERIFY2(!saved.contains(line), line.constData());
    }

    // A file against itself prints nothing; a change is named with both values.
    void diff_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("same radio database")
            << "radio.rss" << QString() << QString() << QStringList{};
        QTest::newRow("same ALE programme")
            << "radio.ale" << QString() << QString() << QStringList{};
        QTest::newRow("a receive frequency")
            << "radio.rss"
            << "Channel1=High,USB,2182000,2182000"
            << "Channel1=High,USB,2182000,2187000"
            << QStringList{"Channel 1 Rx. Freq.: 2.18200 -> 2.18700"};
        QTest::newRow("a CCIR identity")
            << "radio.ccr"
            << "Ccir 4 Digits Id=4117"
            << "Ccir 4 Digits Id=4118" << QStringList{"Ccir 4 Digits Id: 4117 -> 4118"};
    }
    void diff()
    {
        QFETCH(QString, name);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QStringList, lines);
        const QString example = QStringLiteral(KORAL_EXAMPLES_DIR "/") + name;
        QByteArray changed = readAll(example);
        changed.replace(from.toUtf8(), to.toUtf8());
        writeFile(path("changed-" + name), changed);
        const Outcome outcome = koralctl({"diff", example, path("changed-" + name)});
        QCOMPARE(outcome.err, QString());
        QCOMPARE(outcome.outLines(), lines);
        QCOMPARE(outcome.exitCode, lines.isEmpty() ? cli::kExitOk : cli::kExitProblems);
    }

    // The example through a CSV file and back is what normalize makes of it; a bad row is
    // reported with its line and leaves the database as it was.
    void csvRoundTripAndBadRow()
    {
        QCOMPARE(koralctl({"normalize", kExample, path("normal.rss")}).exitCode, 0);
        QVERIFY(QFile::copy(kExample, path("plan.rss")));
        QCOMPARE(koralctl({"csv", "export", kExample, path("plan.csv")}).exitCode, 0);
        QCOMPARE(koralctl({"csv", "import", path("plan.csv"), path("plan.rss")}).exitCode, 0);
        QCOMPARE(readAll(path("plan.rss")), readAll(path("normal.rss")));

        QByteArray csv = readAll(path("plan.csv"));
        csv.replace("\r\n3,3.023,3.023,", "\r\n3,3.023,3.023x,");
        writeFile(path("bad.csv"), csv);
        const Outcome outcome = koralctl({"csv", "import", path("bad.csv"), path("plan.rss")});
        QCOMPARE(outcome.exitCode, cli::kExitProblems);
        QCOMPARE(outcome.err, path("bad.csv") + ": line 4: 3.023x is an invalid frequency\n");
        QCOMPARE(readAll(path("plan.rss")), readAll(path("normal.rss")));
    }

    void garbageNeverCrashes()
    {
        QByteArray noise;
        for (int i = 0; i < 4096; ++i)
            noise.append(char((i * 7919 + 13) % 256));
        writeFile(path("noise.rss"), noise);
        QCOMPARE(koralctl({"summary", path("noise.rss"), "--all"}).exitCode, 0);
        QVERIFY(koralctl({"check", path("noise.rss")}).exitCode <= 1);
        QCOMPARE(koralctl({"normalize", path("noise.rss"), path("noise-out.rss")}).exitCode, 0);
    }

    // The executable itself: arguments reach the commands and the exit code comes back.
    void executable()
    {
        QProcess process;
        process.start(QStringLiteral(KORALCTL_PATH), {"check", path("broken.rss")});
        QVERIFY(process.waitForFinished(10000));
        QCOMPARE(process.exitCode(), 1);
        QVERIFY(
            process.readAllStandardOutput().startsWith("Priority channel 5 is not programmed.\n"));
    }
};

QTEST_GUILESS_MAIN(KoralctlTest)
#include "tst_koralctl.moc"
