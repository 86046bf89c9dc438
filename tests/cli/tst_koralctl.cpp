#include "support/KoralctlRunner.h"
#include "support/Table.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {

using Outcome = test::KoralctlOutcome;
using Changes = QList<QPair<QByteArray, QByteArray>>;

const auto koralctl = &test::runKoralctl;

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

// Values a hand edit leaves behind: empty, quoted, blank, out of range, of another list.
const QList<QByteArray> kStrayValues{"",    "\"\"",   "\" \"",       "'",      "\"", ",",
                                     ",,",  " , ",    "-",           "?",      "0",  "-1",
                                     "255", "65535",  "99999999999", "Yes",    "no", "Auto",
                                     "Max", "300 ms", "2 Ch/Sec",    "\" A \""};

struct Breaker
{
    QRandomGenerator m_random;

    QByteArray broken(const QByteArray& example)
    {
        if (pick(12) == 0) { // noise
            QByteArray text(pick(1500), '\0');
            for (char& c : text)
                c = char(pick(256));
            return text;
        }
        QList<QByteArray> lines = example.split('\n');
        const int edits = 1 + m_random.bounded(4);
        for (int i = 0; i < edits && !lines.isEmpty(); ++i)
            edit(lines);
        return lines.join(pick(2) ? "\n" : "\r\n");
    }

    int pick(int size) { return m_random.bounded(size); }

    void edit(QList<QByteArray>& lines)
    {
        const int at = pick(int(lines.size()));
        QByteArray line = lines[at].trimmed();
        const int equals = line.indexOf('=');
        const QByteArray key = equals < 0 ? line : line.left(equals);
        const QByteArray value = equals < 0 ? QByteArray() : line.mid(equals + 1);
        switch (pick(9)) {
        case 0: // a value emptied or replaced by a stray one
            line = key + '=' + kStrayValues[pick(int(kStrayValues.size()))];
            break;
        case 1: // quoted, with or without blanks inside the quotes
            line = key + '=' + QByteArrayList{"\"", "'", "\" ", "\""}[pick(4)] + value +
                   QByteArrayList{"\"", "'", " \"", ""}[pick(4)];
            break;
        case 2: { // one field of a composite emptied, or all of them
            QList<QByteArray> fields = value.split(',');
            if (pick(3) == 0)
                fields.fill(QByteArray());
            else
                fields[pick(int(fields.size()))] = pick(2) ? QByteArray() : " ";
            line = key + '=' + fields.join(',');
            break;
        }
        case 3: // the key again, before or after, with this or another line's value
            lines.insert(at + pick(2), pick(2) ? line : key + '=' + otherValue(lines));
            return;
        case 4: // a missing key
            lines.removeAt(at);
            return;
        case 5: // odd case
            line = pick(2) ? line.toUpper() : line.toLower();
            break;
        case 6: // stray blanks around the parts
            line = " \t" + key + " = " + QByteArray(value).replace(",", " , ") + " \t";
            break;
        case 7: // the value of another line
            line = key + '=' + otherValue(lines);
            break;
        case 8: // a text replaced wherever it stands, as a search and replace does
            if (!value.isEmpty()) {
                const QByteArray stray = kStrayValues[pick(int(kStrayValues.size()))];
                for (QByteArray& each : lines)
                    each.replace(value, stray);
            }
            return;
        }
        lines[at] = line;
    }

    QByteArray otherValue(const QList<QByteArray>& lines)
    {
        const QByteArray& other = lines[pick(int(lines.size()))];
        return other.mid(other.indexOf('=') + 1);
    }
};

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
        columns<QStringList, QString>("arguments", "message");
        const auto row = [](const char* name, const QStringList& arguments, const QString& text) {
            QTest::newRow(name) << arguments << "koralctl: " + text + "\n";
        };
        row("unknown command", {"frob"}, "unknown command 'frob' (see 'koralctl --help')");
        row("unknown option", {"summary", kExample, "--every"},
            "unknown option '--every' (see 'koralctl summary --help')");
        row("too few arguments", {"normalize", kExample},
            "wrong arguments; usage: koralctl normalize IN OUT [--no-global-members]");
        row("too many arguments", {"check", kExample, kExample, kExample},
            "wrong arguments; usage: koralctl check RADIO.rss [PROGRAMME.ale]");
        row("missing file", {"check", "/nonexistent/radio.rss"},
            "Cannot read the file /nonexistent/radio.rss: No such file or directory");
        row("unknown kind", {"summary", "NOTES"}, "NOTES: unknown file kind (expected .rss)");
        row("programme of another kind", {"check", kExample, kExample},
            kExample + ": unknown file kind (expected .ale)");
        row("diff of two kinds", {"diff", kExample, "b.ale"},
            kExample + " and b.ale are not files of one kind");
        row("serve without a radio port", {"serve"},
            "--port P is required (a port number, a device path or tcp:HOST:PORT)");
        row("serve, listen without port", {"serve", "--port", "virtual", "--listen", "127.0.0.1"},
            "'127.0.0.1' is not ADDRESS:PORT (for example 127.0.0.1:4532)");
        row("serve, scratch beyond 200", {"serve", "--port", "virtual", "--scratch", "201"},
            "The scratch channel 201 is not a channel number (1-200).");
        row("normalize of an unknown kind", {"normalize", "plan.txt", "out.txt"},
            "plan.txt: unknown file kind (expected .rss, .ale or .ccr)");
    }
    void errors()
    {
        auto [arguments, message] = fetch<QStringList, QString>("arguments", "message");
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
        columns<QStringList, int, QString>("arguments", "exitCode", "start");
        QTest::newRow("overview") << QStringList{"--help"} << 0 << "usage: koralctl COMMAND";
        QTest::newRow("no arguments") << QStringList{} << 2 << "usage: koralctl COMMAND";
        QTest::newRow("check, help after arguments")
            << QStringList{"check", "x", "-h"} << 0
            << "usage: koralctl check RADIO.rss [PROGRAMME.ale]\n";
    }
    void help()
    {
        auto [arguments, exitCode, start] =
            fetch<QStringList, int, QString>("arguments", "exitCode", "start");
        const Outcome outcome = koralctl(arguments);
        QCOMPARE(outcome.exitCode, exitCode);
        const QString shown = exitCode == 0 ? outcome.out : outcome.err;
        QVERIFY2(shown.startsWith(start), qPrintable(shown));
    }

    // A radio database alone or with an ALE programme (the example's, edited): every line, in
    // order, and the exit code.
    void check_data()
    {
        columns<QByteArray, bool, Changes, QStringList>("radio", "withProgramme", "changes",
                                                        "lines");
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
    }
    void check()
    {
        auto [radio, withProgramme, changes, lines] = fetch<QByteArray, bool, Changes, QStringList>(
            "radio", "withProgramme", "changes", "lines");
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
        columns<QStringList, int>("arguments", "rows");
        QTest::newRow("programmed channels") << QStringList{"summary", kExample} << 41;
        QTest::newRow("all channels") << QStringList{"summary", kExample, "--all"} << 200;
    }
    void summaryRows()
    {
        auto [arguments, rows] = fetch<QStringList, int>("arguments", "rows");
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

    // A repaired file holds these lines and not those, and normalizing it again changes nothing.
    void normalizeRepairs_data()
    {
        columns<QString, QByteArray, QStringList, QByteArrayList, QByteArrayList>(
            "name", "content", "options", "present", "absent");
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
        auto [name, content, options, present, absent] =
            fetch<QString, QByteArray, QStringList, QByteArrayList, QByteArrayList>(
                "name", "content", "options", "present", "absent");
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
        columns<QString, QString, QString, QStringList>("name", "from", "to", "lines");
        QTest::newRow("same radio database")
            << "radio.rss" << QString() << QString() << QStringList{};
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
        auto [name, from, to, lines] =
            fetch<QString, QString, QString, QStringList>("name", "from", "to", "lines");
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

    // The examples are in the program's own layout already. Whatever a file was made from, the
    // first save settles it: normalizing the output again writes the same bytes. The inputs are the
    // examples, broken the way hand-edited files break, and some noise; the seed is fixed, so a
    // failure names a file that can be rebuilt.
    void firstSaveIsStable_data()
    {
        columns<QString, QStringList>("extension", "options");
        QTest::newRow("radio database") << "rss" << QStringList{};
        QTest::newRow("ALE programme") << "ale" << QStringList{};
        QTest::newRow("ALE programme without global members")
            << "ale" << QStringList{"--no-global-members"};
        QTest::newRow("CCIR database") << "ccr" << QStringList{};
    }
    void firstSaveIsStable()
    {
        auto [extension, options] = fetch<QString, QStringList>("extension", "options");
        const QString examplePath = QStringLiteral(KORAL_EXAMPLES_DIR "/radio.") + extension;
        const QString in = path("in." + extension);
        const QString once = path("once." + extension);
        const QString twice = path("twice." + extension);
        if (options.isEmpty()) {
            QCOMPARE(koralctl({"normalize", examplePath, once}).err, QString());
            QCOMPARE(readAll(once), readAll(examplePath));
        }
        const QByteArray example = readAll(examplePath).replace("\r\n", "\n");
        QVERIFY(!example.isEmpty());
        Breaker breaker{QRandomGenerator(17)};
        for (int round = 0; round < 100; ++round) {
            const QByteArray input = breaker.broken(example);
            writeFile(in, input);
            QCOMPARE(koralctl(QStringList{"normalize", in, once} + options).exitCode, 0);
            QCOMPARE(koralctl(QStringList{"normalize", once, twice} + options).exitCode, 0);
            QVERIFY2(readAll(twice) == readAll(once),
                     qPrintable(QStringLiteral("round %1 unsettled; input:\n").arg(round) +
                                QString::fromLatin1(input)));
        }
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
