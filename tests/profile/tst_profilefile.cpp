#include "profile/ProfileFile.h"

#include "ProfileTestFiles.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace koral::test;

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
    void read_data()
    {
        columns<QByteArray, QByteArray, QByteArray, QByteArray, int, QByteArray>(
            "content", "section", "key", "fallback", "bufferSize", "expected");

        // Most rows read key k of section S with the fallback d into a large buffer.
        const auto row = [](const char* name, const QByteArray& content, const QByteArray& expected,
                            const QByteArray& section = "S", const QByteArray& key = "k",
                            const QByteArray& fallback = "d", int size = 4096) {
            QTest::newRow(name) << content << section << key << fallback << size << expected;
        };
        row("lf", "[A]\nx=1\n[S]\nk=v\n", "v");
        row("cr alone", "[A]\rk=1\r[S]\rk=v", "v");
        row("blanks trimmed", " \t[ S ]\x1A\r\n\v k \t=\f v w \x1A \r\n", "v w");
        row("text after ] ignored", "[S] old [x]\r\nk=v", "v");
        row("[ without ] is no section", "[S]\r\n[T\r\nk=v", "d", "T");
        row("first = splits", "[S]\r\nk = a=b ", "a=b");
        row("no = reads as missing", "[S]\r\nk\r\nk=v", "d");
        row("empty value is a value", "[S]\r\nk=", "");
        row("names ignore case", "[sEcTiOn]\r\nKeY=v", "v", "SECTION", "key");
        row("windows-1252 letters ignore case", "[\xC9T\xC9]\r\n\x8A=v", "v", "\xE9t\xE9", "\x9A");
        row("other section's key", "[A]\r\nk=a\r\n[S]\r\nj=b", "d");
        row("first duplicate key wins", "[S]\r\nk=1\r\nK=2", "1");
        row("first duplicate section wins", "[S]\r\na=1\r\n[T]\r\n[s]\r\nk=2", "d");
        row("double quotes", "[S]\r\nk=\"  v  \"", "  v  ");
        row("one pair only", "[S]\r\nk=\"\"v\"\"", "\"v\"");
        row("mixed quotes kept", "[S]\r\nk=\"v'", "\"v'");
        row("lone quote kept", "[S]\r\nk=\"", "\"");
        row("empty quotes", "[S]\r\nk=''", "");
        row("buffer cuts value", "[S]\r\nk=abcdef", "abc", "S", "k", "d", 4);
        row("buffer of one", "[S]\r\nk=abcdef", "", "S", "k", "d", 1);
        row("buffer of zero", "[S]\r\nk=abcdef", "", "S", "k", "d", 0);
        row("default trailing blanks dropped", "", " d", "S", "k", " d \t ");
        row("default cut by buffer", "", "def", "S", "k", "defaults", 4);
        row("utf-8 bom skipped", "\xEF\xBB\xBF[S]\r\nk=v", "v");
        row("bytes kept as they are", "[S]\r\nk=\xE9\x80\xFF", "\xE9\x80\xFF");
    }

    void read()
    {
        auto [content, section, key, fallback, bufferSize, expected] =
            fetch<QByteArray, QByteArray, QByteArray, QByteArray, int, QByteArray>(
                "content", "section", "key", "fallback", "bufferSize", "expected");

        const ProfileFile file = profileOf(content);
        QCOMPARE(file.read(bytesOf(section), bytesOf(key), bytesOf(fallback),
                           static_cast<std::size_t>(bufferSize)),
                 bytesOf(expected));
        QCOMPARE(file.content(), bytesOf(content)); // reading changes nothing
    }

    // Operations, one per entry: "w|section|key|value", "dk|section|key", "ds|section".
    void edit_data()
    {
        const auto row = [](const char* name, const QByteArray& before,
                            const QStringList& operations, const QByteArray& after) {
            QTest::newRow(name) << before << operations << after;
        };
        columns<QByteArray, QStringList, QByteArray>("before", "operations", "after");

        row("new file", "", {"w|S|k|v", "w|S|j|w", "w|T|k|x"},
            "[S]\r\nk=v\r\nj=w\r\n[T]\r\nk=x\r\n");
        row("replace in place keeps spelling and line end", "[S]\n  Key = old ; x\n[T]\nkey=1\n",
            {"w|s|KEY|new"}, "[S]\nKey=new\n[T]\nkey=1\n");
        row("bare key gets its value in place", "[S]\r\nk\r\nj=1\r\n", {"w|S|k|v"},
            "[S]\r\nk=v\r\nj=1\r\n");
        row("first duplicate written", "[S]\r\nk=1\r\nk=2\r\n", {"w|S|k|3"},
            "[S]\r\nk=3\r\nk=2\r\n");
        row("first duplicate section written", "[S]\r\na=1\r\n[S]\r\nb=2\r\n", {"w|S|b|3"},
            "[S]\r\na=1\r\nb=3\r\n[S]\r\nb=2\r\n");
        row("new key before blank lines of its section", "[S]\r\na=1\r\n\r\n\r\n[T]\r\nb=2\r\n",
            {"w|S|c|3"}, "[S]\r\na=1\r\nc=3\r\n\r\n\r\n[T]\r\nb=2\r\n");
        row("new key in empty section", "[S]\n[T]\n", {"w|S|k|v"}, "[S]\nk=v\r\n[T]\n");
        row("last line without end", "[S]\na=1", {"w|S|b|2"}, "[S]\na=1\r\nb=2\r\n");
        row("new section after unended line", "[S]\r\na=1", {"w|T|b|2"},
            "[S]\r\na=1\r\n[T]\r\nb=2\r\n");
        row("values that reading would change are quoted", "",
            {"w| S | k |  v ", "w|S|q|'x'", "w|S|r|\"", "w|S|e|"},
            "[S]\r\nk=\"  v \"\r\nq=\"'x'\"\r\nr=\"\r\ne=\r\n");
        row("header at the end without line end", "[A]\r\n[S]", {"w|S|k|v", "w|A|j|w"},
            "[A]\r\nj=w\r\n[S]\r\nk=v\r\n");
        row("lines before any section are no section's", "k=1\r\n", {"w|S|k|2"},
            "k=1\r\n[S]\r\nk=2\r\n");
        row("written key found again after a removal", "[S]\r\na=1\r\nb=2\r\n",
            {"dk|S|a", "w|S|b|3", "w|S|c|4"}, "[S]\r\nb=3\r\nc=4\r\n");
        row("remove key", "[S]\r\na=1\r\nb=2\r\nc=3\r\n", {"dk|S|B", "dk|S|missing", "dk|X|a"},
            "[S]\r\na=1\r\nc=3\r\n");
        row("remove bare key", "[S]\r\nb\r\nb=2\r\n", {"dk|S|b"}, "[S]\r\nb=2\r\n");
        row("remove section", "; head\r\n[A]\r\na=1\r\n\r\n[S]\r\nx=1\r\n\r\n[B]\r\nb=2",
            {"ds|s", "ds|missing"}, "; head\r\n[A]\r\na=1\r\n\r\n[B]\r\nb=2");
        row("remove first duplicate section", "[S]\r\na=1\r\n[S]\r\nb=2\r\n", {"ds|S"},
            "[S]\r\nb=2\r\n");
        row("remove then write appends anew", "[S]\r\na=1\r\n[T]\r\nb=2\r\n", {"ds|S", "w|S|a|9"},
            "[T]\r\nb=2\r\n[S]\r\na=9\r\n");
        row("bom kept", "\xEF\xBB\xBF[S]\r\na=1\r\n", {"w|S|a|2"}, "\xEF\xBB\xBF[S]\r\na=2\r\n");
    }

    void edit()
    {
        auto [before, operations, after] =
            fetch<QByteArray, QStringList, QByteArray>("before", "operations", "after");

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

    // A missing file reads as defaults and appears only once something is written; an empty
    // one reads empty; a folder is reported and reads as nothing.
    void missingEmptyAndUnreadableFiles()
    {
        QTemporaryDir dir;
        const std::filesystem::path path = dir.filePath("a.ini").toStdString();
        ProfileFile file(path);
        QVERIFY(file.errorString().empty());
        QCOMPARE(file.read("S", "k", "fallback"), std::string("fallback"));
        QVERIFY(!file.hasSection("S"));
        QVERIFY(file.flush()); // nothing to write: no file appears
        QVERIFY(!std::filesystem::exists(path));
        QCOMPARE(koral::fileModificationTime(path), std::int64_t{0});

        koral::test::writeBytes(path, "");
        const std::int64_t now = QDateTime::currentSecsSinceEpoch();
        QVERIFY(qAbs(koral::fileModificationTime(path) - now) < 60);
        ProfileFile empty(path);
        QVERIFY(empty.errorString().empty());
        QCOMPARE(empty.content(), std::string());

        empty.write("S", "k", "v");
        const std::filesystem::path folder = dir.path().toStdString();
        QVERIFY(!empty.load(folder));
        QCOMPARE(empty.errorString(),
                 "Cannot read the file " + folder.string() + ": Is a directory");
        QCOMPARE(empty.read("S", "k", "d"), std::string("d"));
    }

    void saveKeepsUntouchedBytesAndWritesOnlyChanges()
    {
        QTemporaryDir dir;
        const std::filesystem::path path = dir.filePath("a.ini").toStdString();
        koral::test::writeBytes(path,
                                "; made elsewhere\n[S]  \r\n  a = 1  \rb=2\r\n\r\n[T]\nc=\"3\"");
        ProfileFile file(path);
        QVERIFY(!file.isModified());
        file.write("S", "b", "20");
        QVERIFY(file.isModified());
        koral::test::writeBytes(path, "changed by someone else");
        QVERIFY(file.flush());
        QVERIFY(!file.isModified());
        QCOMPARE(koral::test::readBytes(path),
                 std::string("; made elsewhere\n[S]  \r\n  a = 1  \rb=20\r\n\r\n[T]\nc=\"3\""));
        ProfileFile again(path);
        QCOMPARE(again.read("T", "c"), std::string("3"));
        QCOMPARE(again.read("S", "b"), std::string("20"));

        koral::test::writeBytes(path, "changed by someone else");
        QVERIFY(again.flush());
        QCOMPARE(koral::test::readBytes(path), std::string("changed by someone else"));
    }

    void failedSaveIsReportedAndChangesNothing_data()
    {
        columns<QString, QString>("target", "reason");
        QTest::newRow("missing folder") << "no/such/folder/a.rss"
                                        << "No such file or directory";
        QTest::newRow("target is a folder") << "folder"
                                            << "Is a directory";
    }

    void failedSaveIsReportedAndChangesNothing()
    {
        auto [target, reason] = fetch<QString, QString>("target", "reason");

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
    void saveClearsWhatKilledSavesLeft()
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
};

QTEST_GUILESS_MAIN(TestProfileFile)
#include "tst_profilefile.moc"
