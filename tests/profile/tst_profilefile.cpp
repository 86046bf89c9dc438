#include "profile/ProfileFile.h"

#include "ProfileTestFiles.h"

#include <QTemporaryDir>
#include <QtTest>

using koral::ProfileFile;

namespace {

std::string bytesOf(const QByteArray& data)
{
    return std::string(data.constData(), static_cast<std::size_t>(data.size()));
}

ProfileFile profileOf(const QByteArray& content)
{
    ProfileFile file;
    file.setContent(bytesOf(content));
    return file;
}

} // namespace

class TestProfileFile : public QObject
{
    Q_OBJECT

private slots:
    void read_data();
    void read();
    void edit_data();
    void edit();
    void missingFileReadsDefaults();
    void saveKeepsUntouchedBytes();
    void flushWritesOnlyChanges();
    void failedSaveIsReportedAndChangesNothing_data();
    void failedSaveIsReportedAndChangesNothing();
    void saveClearsWhatKilledSavesLeft();
    void modificationTime();
    void unreadableFileIsReported();
};

void TestProfileFile::read_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("section");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("fallback");
    QTest::addColumn<int>("bufferSize");
    QTest::addColumn<QByteArray>("expected");

    const int big = 4096;
    QTest::newRow("crlf") << QByteArray("[S]\r\nk=v\r\n") << QByteArray("S") << QByteArray("k")
                          << QByteArray("d") << big << QByteArray("v");
    QTest::newRow("lf") << QByteArray("[A]\nx=1\n[S]\nk=v\n") << QByteArray("S") << QByteArray("k")
                        << QByteArray("d") << big << QByteArray("v");
    QTest::newRow("cr alone") << QByteArray("[A]\rk=1\r[S]\rk=v") << QByteArray("S")
                              << QByteArray("k") << QByteArray("d") << big << QByteArray("v");
    QTest::newRow("blanks trimmed")
        << QByteArray(" \t[ S ]\x1A\r\n\v k \t=\f v w \x1A \r\n") << QByteArray("S")
        << QByteArray("k") << QByteArray("d") << big << QByteArray("v w");
    QTest::newRow("text after ] ignored")
        << QByteArray("[S] old [x]\r\nk=v") << QByteArray("S") << QByteArray("k") << QByteArray("d")
        << big << QByteArray("v");
    QTest::newRow("[ without ] is no section")
        << QByteArray("[S]\r\n[T\r\nk=v") << QByteArray("T") << QByteArray("k") << QByteArray("d")
        << big << QByteArray("d");
    QTest::newRow("first = splits")
        << QByteArray("[S]\r\nk = a=b ") << QByteArray("S") << QByteArray("k") << QByteArray("d")
        << big << QByteArray("a=b");
    QTest::newRow("no = reads as missing")
        << QByteArray("[S]\r\nk\r\nk=v") << QByteArray("S") << QByteArray("k") << QByteArray("d")
        << big << QByteArray("d");
    QTest::newRow("empty value is a value")
        << QByteArray("[S]\r\nk=") << QByteArray("S") << QByteArray("k") << QByteArray("d") << big
        << QByteArray("");
    QTest::newRow("names ignore case")
        << QByteArray("[sEcTiOn]\r\nKeY=v") << QByteArray("SECTION") << QByteArray("key")
        << QByteArray("d") << big << QByteArray("v");
    QTest::newRow("windows-1252 letters ignore case")
        << QByteArray("[\xC9T\xC9]\r\n\x8A=v") << QByteArray("\xE9t\xE9") << QByteArray("\x9A")
        << QByteArray("d") << big << QByteArray("v");
    QTest::newRow("other section's key")
        << QByteArray("[A]\r\nk=a\r\n[S]\r\nj=b") << QByteArray("S") << QByteArray("k")
        << QByteArray("d") << big << QByteArray("d");
    QTest::newRow("first duplicate key wins")
        << QByteArray("[S]\r\nk=1\r\nK=2") << QByteArray("S") << QByteArray("k") << QByteArray("d")
        << big << QByteArray("1");
    QTest::newRow("first duplicate section wins")
        << QByteArray("[S]\r\na=1\r\n[T]\r\n[s]\r\nk=2") << QByteArray("S") << QByteArray("k")
        << QByteArray("d") << big << QByteArray("d");
    QTest::newRow("double quotes")
        << QByteArray("[S]\r\nk=\"  v  \"") << QByteArray("S") << QByteArray("k") << QByteArray("d")
        << big << QByteArray("  v  ");
    QTest::newRow("single quotes") << QByteArray("[S]\r\nk='v'") << QByteArray("S")
                                   << QByteArray("k") << QByteArray("d") << big << QByteArray("v");
    QTest::newRow("one pair only")
        << QByteArray("[S]\r\nk=\"\"v\"\"") << QByteArray("S") << QByteArray("k") << QByteArray("d")
        << big << QByteArray("\"v\"");
    QTest::newRow("mixed quotes kept")
        << QByteArray("[S]\r\nk=\"v'") << QByteArray("S") << QByteArray("k") << QByteArray("d")
        << big << QByteArray("\"v'");
    QTest::newRow("lone quote kept")
        << QByteArray("[S]\r\nk=\"") << QByteArray("S") << QByteArray("k") << QByteArray("d") << big
        << QByteArray("\"");
    QTest::newRow("empty quotes") << QByteArray("[S]\r\nk=''") << QByteArray("S") << QByteArray("k")
                                  << QByteArray("d") << big << QByteArray("");
    QTest::newRow("buffer cuts value")
        << QByteArray("[S]\r\nk=abcdef") << QByteArray("S") << QByteArray("k") << QByteArray("d")
        << 4 << QByteArray("abc");
    QTest::newRow("buffer of one") << QByteArray("[S]\r\nk=abcdef") << QByteArray("S")
                                   << QByteArray("k") << QByteArray("d") << 1 << QByteArray("");
    QTest::newRow("buffer of zero") << QByteArray("[S]\r\nk=abcdef") << QByteArray("S")
                                    << QByteArray("k") << QByteArray("d") << 0 << QByteArray("");
    QTest::newRow("default trailing blanks dropped")
        << QByteArray("") << QByteArray("S") << QByteArray("k") << QByteArray(" d \t ") << big
        << QByteArray(" d");
    QTest::newRow("default cut by buffer") << QByteArray("") << QByteArray("S") << QByteArray("k")
                                           << QByteArray("defaults") << 4 << QByteArray("def");
    QTest::newRow("utf-8 bom skipped")
        << QByteArray("\xEF\xBB\xBF[S]\r\nk=v") << QByteArray("S") << QByteArray("k")
        << QByteArray("d") << big << QByteArray("v");
    QTest::newRow("bytes kept as they are")
        << QByteArray("[S]\r\nk=\xE9\x80\xFF") << QByteArray("S") << QByteArray("k")
        << QByteArray("d") << big << QByteArray("\xE9\x80\xFF");
}

void TestProfileFile::read()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, section);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, fallback);
    QFETCH(int, bufferSize);
    QFETCH(QByteArray, expected);

    const ProfileFile file = profileOf(content);
    QCOMPARE(file.read(bytesOf(section), bytesOf(key), bytesOf(fallback),
                       static_cast<std::size_t>(bufferSize)),
             bytesOf(expected));
    QCOMPARE(file.content(), bytesOf(content)); // reading changes nothing
}

// Operations, one per entry: "w|section|key|value", "dk|section|key", "ds|section".
void TestProfileFile::edit_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QStringList>("operations");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("new file") << QByteArray() << QStringList{"w|S|k|v", "w|S|j|w", "w|T|k|x"}
                              << QByteArray("[S]\r\nk=v\r\nj=w\r\n[T]\r\nk=x\r\n");
    QTest::newRow("replace in place keeps spelling and line end")
        << QByteArray("[S]\n  Key = old ; x\n[T]\nkey=1\n") << QStringList{"w|s|KEY|new"}
        << QByteArray("[S]\nKey=new\n[T]\nkey=1\n");
    QTest::newRow("bare key gets its value in place")
        << QByteArray("[S]\r\nk\r\nj=1\r\n") << QStringList{"w|S|k|v"}
        << QByteArray("[S]\r\nk=v\r\nj=1\r\n");
    QTest::newRow("first duplicate written")
        << QByteArray("[S]\r\nk=1\r\nk=2\r\n") << QStringList{"w|S|k|3"}
        << QByteArray("[S]\r\nk=3\r\nk=2\r\n");
    QTest::newRow("first duplicate section written")
        << QByteArray("[S]\r\na=1\r\n[S]\r\nb=2\r\n") << QStringList{"w|S|b|3"}
        << QByteArray("[S]\r\na=1\r\nb=3\r\n[S]\r\nb=2\r\n");
    QTest::newRow("new key before blank lines of its section")
        << QByteArray("[S]\r\na=1\r\n\r\n\r\n[T]\r\nb=2\r\n") << QStringList{"w|S|c|3"}
        << QByteArray("[S]\r\na=1\r\nc=3\r\n\r\n\r\n[T]\r\nb=2\r\n");
    QTest::newRow("new key in empty section")
        << QByteArray("[S]\n[T]\n") << QStringList{"w|S|k|v"} << QByteArray("[S]\nk=v\r\n[T]\n");
    QTest::newRow("last line without end")
        << QByteArray("[S]\na=1") << QStringList{"w|S|b|2"} << QByteArray("[S]\na=1\r\nb=2\r\n");
    QTest::newRow("new section after unended line")
        << QByteArray("[S]\r\na=1") << QStringList{"w|T|b|2"}
        << QByteArray("[S]\r\na=1\r\n[T]\r\nb=2\r\n");
    QTest::newRow("values that reading would change are quoted")
        << QByteArray() << QStringList{"w| S | k |  v ", "w|S|q|'x'", "w|S|r|\"", "w|S|e|"}
        << QByteArray("[S]\r\nk=\"  v \"\r\nq=\"'x'\"\r\nr=\"\r\ne=\r\n");
    QTest::newRow("header at the end without line end")
        << QByteArray("[A]\r\n[S]") << QStringList{"w|S|k|v", "w|A|j|w"}
        << QByteArray("[A]\r\nj=w\r\n[S]\r\nk=v\r\n");
    QTest::newRow("lines before any section are no section's")
        << QByteArray("k=1\r\n") << QStringList{"w|S|k|2"} << QByteArray("k=1\r\n[S]\r\nk=2\r\n");
    QTest::newRow("written key found again after a removal")
        << QByteArray("[S]\r\na=1\r\nb=2\r\n") << QStringList{"dk|S|a", "w|S|b|3", "w|S|c|4"}
        << QByteArray("[S]\r\nb=3\r\nc=4\r\n");
    QTest::newRow("remove key") << QByteArray("[S]\r\na=1\r\nb=2\r\nc=3\r\n")
                                << QStringList{"dk|S|B", "dk|S|missing", "dk|X|a"}
                                << QByteArray("[S]\r\na=1\r\nc=3\r\n");
    QTest::newRow("remove bare key") << QByteArray("[S]\r\nb\r\nb=2\r\n") << QStringList{"dk|S|b"}
                                     << QByteArray("[S]\r\nb=2\r\n");
    QTest::newRow("remove section")
        << QByteArray("; head\r\n[A]\r\na=1\r\n\r\n[S]\r\nx=1\r\n\r\n[B]\r\nb=2")
        << QStringList{"ds|s", "ds|missing"}
        << QByteArray("; head\r\n[A]\r\na=1\r\n\r\n[B]\r\nb=2");
    QTest::newRow("remove first duplicate section")
        << QByteArray("[S]\r\na=1\r\n[S]\r\nb=2\r\n") << QStringList{"ds|S"}
        << QByteArray("[S]\r\nb=2\r\n");
    QTest::newRow("remove then write appends anew")
        << QByteArray("[S]\r\na=1\r\n[T]\r\nb=2\r\n") << QStringList{"ds|S", "w|S|a|9"}
        << QByteArray("[T]\r\nb=2\r\n[S]\r\na=9\r\n");
    QTest::newRow("bom kept") << QByteArray("\xEF\xBB\xBF[S]\r\na=1\r\n") << QStringList{"w|S|a|2"}
                              << QByteArray("\xEF\xBB\xBF[S]\r\na=2\r\n");
}

void TestProfileFile::edit()
{
    QFETCH(QByteArray, before);
    QFETCH(QStringList, operations);
    QFETCH(QByteArray, after);

    ProfileFile file = profileOf(before);
    for (const QString& operation : operations) {
        const QList<QByteArray> parts = operation.toLatin1().split('|');
        if (parts[0] == "w")
            file.write(bytesOf(parts[1]), bytesOf(parts[2]), bytesOf(parts[3]));
        else if (parts[0] == "dk")
            file.removeKey(bytesOf(parts[1]), bytesOf(parts[2]));
        else
            file.removeSection(bytesOf(parts[1]));
    }
    QCOMPARE(file.content(), bytesOf(after));
    // Every value written reads back as written.
    for (const QString& operation : operations) {
        const QList<QByteArray> parts = operation.toLatin1().split('|');
        if (parts[0] == "w" && !operations.contains("ds|" + parts[1]))
            QCOMPARE(file.read(bytesOf(parts[1]), bytesOf(parts[2])), bytesOf(parts[3]));
    }
}

void TestProfileFile::missingFileReadsDefaults()
{
    QTemporaryDir dir;
    const std::filesystem::path path = dir.filePath("none.rss").toStdString();
    ProfileFile file(path);
    QVERIFY(file.errorString().empty());
    QCOMPARE(file.read("S", "k", "fallback"), std::string("fallback"));
    QVERIFY(!file.hasSection("S"));
    QVERIFY(file.flush()); // nothing to write: no file appears
    QVERIFY(!std::filesystem::exists(path));
}

void TestProfileFile::saveKeepsUntouchedBytes()
{
    QTemporaryDir dir;
    const std::filesystem::path path = dir.filePath("a.ini").toStdString();
    const std::string original = "; made elsewhere\n[S]  \r\n  a = 1  \rb=2\r\n\r\n[T]\nc=\"3\"";
    koral::test::writeBytes(path, original);

    ProfileFile file(path);
    file.write("S", "b", "20");
    QVERIFY(file.flush());
    QCOMPARE(koral::test::readBytes(path),
             std::string("; made elsewhere\n[S]  \r\n  a = 1  \rb=20\r\n\r\n"
                         "[T]\nc=\"3\""));
    // The folder holds the file only: the temporary file was renamed, not left behind.
    QCOMPARE(std::distance(std::filesystem::directory_iterator(dir.path().toStdString()),
                           std::filesystem::directory_iterator()),
             1);

    ProfileFile again(path);
    QCOMPARE(again.read("T", "c"), std::string("3"));
    QCOMPARE(again.read("S", "b"), std::string("20"));
}

void TestProfileFile::flushWritesOnlyChanges()
{
    QTemporaryDir dir;
    const std::filesystem::path path = dir.filePath("a.ini").toStdString();
    koral::test::writeBytes(path, "[S]\r\na=1\r\n");
    ProfileFile file(path);
    QVERIFY(!file.isModified());
    koral::test::writeBytes(path, "changed by someone else");
    QVERIFY(file.flush());
    QCOMPARE(koral::test::readBytes(path), std::string("changed by someone else"));

    file.write("S", "a", "2");
    QVERIFY(file.isModified());
    QVERIFY(file.flush());
    QVERIFY(!file.isModified());
    QCOMPARE(koral::test::readBytes(path), std::string("[S]\r\na=2\r\n"));
}

void TestProfileFile::failedSaveIsReportedAndChangesNothing_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing folder") << "no/such/folder/a.rss"
                                    << "No such file or directory";
    QTest::newRow("target is a folder") << "folder"
                                        << "Is a directory";
}

void TestProfileFile::failedSaveIsReportedAndChangesNothing()
{
    QFETCH(QString, target);
    QFETCH(QString, reason);

    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir("folder"));
    koral::test::writeBytes(dir.filePath("folder/inside").toStdString(), "kept");
    const std::filesystem::path path = dir.filePath(target).toStdString();

    ProfileFile file;
    file.write("S", "k", "v");
    QVERIFY(!file.saveAs(path));
    QCOMPARE(file.errorString(),
             "Cannot write the file " + path.string() + ": " + reason.toStdString());
    QVERIFY(file.isModified());
    QCOMPARE(koral::test::readBytes(dir.filePath("folder/inside").toStdString()),
             std::string("kept"));
    QCOMPARE(std::distance(std::filesystem::directory_iterator(dir.path().toStdString()),
                           std::filesystem::directory_iterator()),
             1);
}

// A save killed before its rename leaves its temporary file, named after the target; the next
// save of that target takes it away and leaves every other file alone.
void TestProfileFile::saveClearsWhatKilledSavesLeft()
{
    QTemporaryDir dir;
    const auto at = [&](const char* name) {
        return std::filesystem::path(dir.filePath(name).toStdString());
    };
    for (const char* name :
         {"a.rss.tmp12345", "a.rss.tmp0", "a.rss.tmpnotes", "b.rss.tmp77", "a.rss.tmp"})
        koral::test::writeBytes(at(name), "[S]\r\n");
    ProfileFile file;
    file.write("S", "k", "v");
    QVERIFY(file.saveAs(at("a.rss")));
    QStringList left = QDir(dir.path()).entryList(QDir::Files, QDir::Name);
    QCOMPARE(left, (QStringList{"a.rss", "a.rss.tmp", "a.rss.tmpnotes", "b.rss.tmp77"}));
}

void TestProfileFile::modificationTime()
{
    QTemporaryDir dir;
    const std::filesystem::path path = dir.filePath("a.ini").toStdString();
    QCOMPARE(koral::fileModificationTime(path), std::int64_t{0});
    koral::test::writeBytes(path, "x");
    const std::int64_t now = QDateTime::currentSecsSinceEpoch();
    QVERIFY(qAbs(koral::fileModificationTime(path) - now) < 60);
}

void TestProfileFile::unreadableFileIsReported()
{
    QTemporaryDir dir;
    const std::filesystem::path empty = dir.filePath("empty.ini").toStdString();
    koral::test::writeBytes(empty, "");
    ProfileFile file(empty);
    QVERIFY(file.errorString().empty());
    QCOMPARE(file.content(), std::string());

    file.write("S", "k", "v");
    const std::filesystem::path folder = dir.path().toStdString();
    QVERIFY(!file.load(folder));
    QCOMPARE(file.errorString(), "Cannot read the file " + folder.string() + ": Is a directory");
    QCOMPARE(file.read("S", "k", "d"), std::string("d"));
}

QTEST_GUILESS_MAIN(TestProfileFile)
#include "tst_profilefile.moc"
