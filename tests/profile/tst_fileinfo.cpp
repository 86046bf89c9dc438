#include "profile/FileInfo.h"
#include "profile/ProfileFile.h"

#include "ProfileTestFiles.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

class TestFileInfo : public QObject
{
    Q_OBJECT

private slots:
    void lineBreaks_data()
    {
        test::columns<QByteArray, QByteArray, QByteArray>("text", "encoded", "decoded");
        QTest::newRow("two lines") << QByteArray("first\r\nsecond") << QByteArray("first\\rsecond")
                                   << QByteArray("first\r\nsecond");
        QTest::newRow("lone breaks")
            << QByteArray("a\nb\rc") << QByteArray("a\\rb\\rc") << QByteArray("a\r\nb\r\nc");
        QTest::newRow("other backslashes kept")
            << QByteArray("c:\\n\\") << QByteArray("c:\\n\\") << QByteArray("c:\\n\\");
    }

    void lineBreaks()
    {
        auto [text, encoded, decoded] =
            test::fetch<QByteArray, QByteArray, QByteArray>("text", "encoded", "decoded");
        QCOMPARE(QByteArray::fromStdString(fileinfo::encodeLineBreaks(text.toStdString())),
                 encoded);
        QCOMPARE(QByteArray::fromStdString(fileinfo::decodeLineBreaks(encoded.toStdString())),
                 decoded);
    }

    void version_data()
    {
        test::columns<QByteArray, bool>("content", "matches");
        QTest::newRow("same") << QByteArray("[ZOV]\r\nZOV_Version=2.01") << true;
        QTest::newRow("missing key") << QByteArray("[Other]\r\nx=1") << true;
        QTest::newRow("older") << QByteArray("[ZOV]\r\nZOV_Version=1.00") << false;
        QTest::newRow("only five characters compare")
            << QByteArray("[ZOV]\r\nZOV_Version=2.01abc") << false;
    }

    void version()
    {
        auto [content, matches] = test::fetch<QByteArray, bool>("content", "matches");
        QCOMPARE(fileinfo::formatVersion(), std::string_view("2.01"));
        ProfileFile file;
        file.setContent(content.toStdString());
        QCOMPARE(fileinfo::versionMatches(file), matches);

        ProfileFile written;
        fileinfo::writeVersion(written);
        QCOMPARE(written.content(), std::string("[ZOV]\r\nZOV_Version=2.01\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestFileInfo)
#include "tst_fileinfo.moc"
