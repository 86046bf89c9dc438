#include "aledb/CcirFile.h"

#include "ProfileTestFiles.h"

#include <QtTest>

#include <cstring>

using namespace koral;
using namespace koral::test;

namespace {

void setText(CcirMessage& message, std::string_view text)
{
    message.fill('\0');
    text.copy(message.data(), message.size() - 1);
}

// The record as one line: id6 id4 alarm beacon preamble "message1" "message2" then the set
// directory entries as index:value.
QString describe(const ccir_dbase& r)
{
    QString text = QStringLiteral("%1 %2 %3 %4 %5 \"%6\" \"%7\"")
                       .arg(r.selfId6.get())
                       .arg(r.selfId4.get())
                       .arg(r.alarm)
                       .arg(r.beacon)
                       .arg(r.preamble)
                       .arg(QString::fromLatin1(r.message1.data()))
                       .arg(QString::fromLatin1(r.message2.data()));
    for (std::size_t i = 0; i < r.directory.size(); ++i) {
        if (r.directory[i].get() != 0)
            text += QStringLiteral(" %1:%2").arg(i).arg(r.directory[i].get());
    }
    return text;
}

} // namespace

class TestCcirFile : public QObject
{
    Q_OBJECT

private slots:
    void numbersAreMostSignificantByteFirst()
    {
        ccir_dbase record{};
        record.selfId4.set(0x1234);
        record.selfId6.set(0x00ABCDEF);
        record.directory[99].set(0x01020304);
        const auto* bytes = reinterpret_cast<const char*>(&record);
        QCOMPARE(QByteArray(bytes, 6).toHex(), QByteArray("123400abcdef"));
        QCOMPARE(QByteArray(bytes + 402, 4).toHex(), QByteArray("01020304"));

        // CCIR channel numbers travel the same way.
        CcirChannelNumbers numbers{};
        numbers[0] = 0x0102;
        numbers[199] = 65535;
        const channel_name names = toChannelName(numbers);
        const auto* nameBytes = reinterpret_cast<const char*>(&names);
        QCOMPARE(QByteArray(nameBytes, 2).toHex(), QByteArray("0102"));
        QCOMPARE(QByteArray(nameBytes + 398, 2).toHex(), QByteArray("ffff"));
        QCOMPARE(fromChannelName(names), numbers);
    }

    // The example is in this program's own layout; an entry above 2^31 is written as the
    // file's signed number; what is saved loads back to the same record, comment and time.
    void savedLayout()
    {
        const std::filesystem::path example = KORAL_EXAMPLES_DIR "/radio.ccr";
        ccir_dbase record{};
        FileInfo info;
        CcirState state;
        QCOMPARE(CcirFile(example).load(&info, record, state), CcirFile::kLoaded);
        QCOMPARE(CcirFile::content(info, record), test::readBytes(example));

        record.directory[5].set(4000000000u);
        QCOMPARE(CcirFile(path("a.ccr")).save(info, record), 1);
        QVERIFY(test::readBytes(path("a.ccr")).find("Ccir Directory5=-294967296\r\n") !=
                std::string::npos);
        QVERIFY(info.modificationTime > 0);
        ccir_dbase loaded{};
        loaded.alarm = 77;
        FileInfo loadedInfo;
        QCOMPARE(CcirFile(path("a.ccr")).load(&loadedInfo, loaded, state), CcirFile::kLoaded);
        QCOMPARE(std::memcmp(&loaded, &record, sizeof record), 0);
        QCOMPARE(loadedInfo.comment, info.comment);
        QCOMPARE(loadedInfo.modificationTime, info.modificationTime);
    }

    void load_data()
    {
        test::columns<QByteArray, QString>("content", "expected");

        // Loaded over a record holding: 999 99 9 9 9 "OLD" "OLD" 3:333
        QTest::newRow("empty file: defaults") << QByteArray() << "0 0 0 0 6 \"\" \"\"";
        QTest::newRow("values")
            << QByteArray("[ccir option]\r\nCcir 6 Digits Id=654321\r\nCcir 4 Digits Id=4321\r\n"
                          "Ccir Alarm=3\r\nCcir Beacon=4\r\nCcir Preamble=5\r\n"
                          "Ccir Message1=A B\r\nCcir Message2=C\r\nCcir Directory99=7\r\n"
                          "Ccir Directory0=-1\r\n")
            << "654321 4321 3 4 5 \"A B\" \"C\" 0:4294967295 99:7";
        QTest::newRow("empty numbers keep the record's values")
            << QByteArray("[Ccir Option]\r\nCcir 6 Digits Id=\r\nCcir 4 Digits Id=\r\n"
                          "Ccir Alarm=\r\nCcir Beacon=\r\nCcir Preamble=\r\nCcir Message1=\r\n"
                          "Ccir Directory3=\r\n")
            << "999 99 9 9 9 \"\" \"\"";
        QTest::newRow("settings keep the low byte")
            << QByteArray("[Ccir Option]\r\nCcir Alarm=300\r\nCcir 4 Digits Id=70000")
            << "0 4464 44 0 6 \"\" \"\"";
        QTest::newRow("long message cut to 32")
            << QByteArray("[Ccir Option]\r\nCcir Message2=0123456789012345678901234567890123456789")
            << "0 0 0 0 6 \"\" \"01234567890123456789012345678901\"";
        QTest::newRow("directory beyond its entries ignored")
            << QByteArray("[Ccir Option]\r\nCcir Directory100=5\r\nCcir Directory 1=5")
            << "0 0 0 0 6 \"\" \"\"";
        QTest::newRow("keys of other sections ignored")
            << QByteArray("[ZOV]\r\nCcir Alarm=5\r\n[Ccir Option]\r\nCcir Beacon=1")
            << "0 0 0 1 6 \"\" \"\"";
    }

    void load()
    {
        auto [content, expected] = test::fetch<QByteArray, QString>("content", "expected");

        test::writeBytes(path("in.ccr"), content.toStdString());
        ccir_dbase record{};
        record.selfId6.set(999);
        record.selfId4.set(99);
        record.alarm = record.beacon = record.preamble = 9;
        setText(record.message1, "OLD");
        setText(record.message2, "OLD");
        record.directory[3].set(333);
        CcirState state;
        QCOMPARE(CcirFile(path("in.ccr")).load(nullptr, record, state), CcirFile::kLoaded);
        QCOMPARE(describe(record), expected);
        QVERIFY(state.dataFromFile);
    }

    void failedSave()
    {
        test::writeBytes(path("old.ccr"), "[Ccir Option]\r\nCcir Alarm=1\r\n");
        QVERIFY(std::filesystem::create_directory(path("old.ccr.dir")));
        FileInfo info;
        CcirFile file(path("missing/x.ccr"));
        QCOMPARE(file.save(info, ccir_dbase{}), 0);
        QCOMPARE(file.errorString(), "Cannot write the file " + path("missing/x.ccr").string() +
                                         ": No such file or directory");
        QCOMPARE(info.modificationTime, std::int64_t{0});

        // A file that cannot be read changes nothing and says why.
        ccir_dbase record{};
        record.alarm = 5;
        CcirState state;
        CcirFile folder(path("old.ccr.dir"));
        QCOMPARE(folder.load(nullptr, record, state), CcirFile::kReadFailed);
        QCOMPARE(record.alarm, std::uint8_t{5});
        QVERIFY(!state.dataFromFile);
        QVERIFY(!folder.errorString().empty());
    }

private:
    std::filesystem::path path(const char* name) const { return m_dir.path(name); }
    test::TestFolder m_dir;
};

QTEST_GUILESS_MAIN(TestCcirFile)
#include "tst_ccirfile.moc"
