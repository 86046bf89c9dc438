// Whatever a file was made from, the first save settles it: `koralctl normalize` of its output
// writes the same bytes again. The inputs are the examples, broken the way hand-edited files
// break, and some noise; the seed is fixed, so a failure names a file that can be rebuilt.

#include "support/KoralctlRunner.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace koral;

namespace {

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeAll(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

// Values a hand edit leaves behind: empty, quoted, blank, out of range, of another list.
const QList<QByteArray> kStrayValues{"",    "\"\"",   "\" \"",       "'",      "\"", ",",
                                     ",,",  " , ",    "-",           "?",      "0",  "-1",
                                     "255", "65535",  "99999999999", "Yes",    "no", "Auto",
                                     "Max", "300 ms", "2 Ch/Sec",    "\" A \""};

class Breaker
{
public:
    explicit Breaker(quint32 seed) : m_random(seed) {}

    QByteArray broken(const QByteArray& example)
    {
        if (m_random.bounded(12) == 0)
            return noise();
        QList<QByteArray> lines = example.split('\n');
        const int edits = 1 + m_random.bounded(4);
        for (int i = 0; i < edits && !lines.isEmpty(); ++i)
            edit(lines);
        return lines.join(m_random.bounded(2) ? "\n" : "\r\n");
    }

private:
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

    QByteArray noise()
    {
        QByteArray text(pick(1500), '\0');
        for (char& c : text)
            c = char(m_random.bounded(256));
        return text;
    }

    QRandomGenerator m_random;
};

} // namespace

class KoralctlFirstSaveTest : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;

    QString path(const QString& name) const { return m_dir.filePath(name); }

private slots:
    void firstSaveIsStable_data()
    {
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QStringList>("options");
        QTest::newRow("radio database") << "rss" << QStringList{};
        QTest::newRow("ALE programme") << "ale" << QStringList{};
        QTest::newRow("ALE programme without global members")
            << "ale" << QStringList{"--no-global-members"};
        QTest::newRow("CCIR database") << "ccr" << QStringList{};
    }
    void firstSaveIsStable()
    {
        QFETCH(QString, extension);
        QFETCH(QStringList, options);
        const QByteArray example =
            readAll(QStringLiteral(KORAL_EXAMPLES_DIR "/radio.") + extension).replace("\r\n", "\n");
        QVERIFY(!example.isEmpty());
        const QString in = path("in." + extension);
        const QString once = path("once." + extension);
        const QString twice = path("twice." + extension);
        Breaker breaker(17);
        for (int round = 0; round < 100; ++round) {
            const QByteArray input = breaker.broken(example);
            QVERIFY(writeAll(in, input));
            QCOMPARE(test::runKoralctl(QStringList{"normalize", in, once} + options).exitCode, 0);
            QCOMPARE(test::runKoralctl(QStringList{"normalize", once, twice} + options).exitCode,
                     0);
            QVERIFY2(readAll(twice) == readAll(once),
                     qPrintable(QStringLiteral("round %1 unsettled; input:\n").arg(round) +
                                QString::fromLatin1(input)));
        }
    }
};

QTEST_GUILESS_MAIN(KoralctlFirstSaveTest)
#include "tst_koralctl_firstsave.moc"
