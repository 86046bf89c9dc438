#include "radiodb/RadioSanitiser.h"
#include "radiodb/RssFile.h"

#include "ProfileTestFiles.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cstring>

using namespace koral;
using namespace koral::test;

namespace {

void setChannel(dbase& db, int number, std::uint32_t tx, std::uint32_t rx)
{
    channel& ch = db.channelNo(number);
    ch.power = 4;
    ch.sideband = 0;
    ch.bandwidth = 1;
    ch.txFrequency.set(tx);
    ch.rxFrequency.set(rx);
    ch.agc = 255;
    ch.modulation = 2;
}

QString joined(const QList<int>& values, char separator)
{
    QStringList list;
    for (int value : values)
        list << QString::number(value);
    return list.join(separator);
}

// One field of a loaded record, as the test tables name it.
QString describe(const dbase& db, bool isb, const QString& field)
{
    const auto text = [](auto& array) {
        return QString::fromLatin1(fieldText(array).data(), qsizetype(fieldText(array).size()));
    };
    if (field.startsWith("channel")) {
        const channel& ch = db.channelNo(field.mid(7).toInt());
        return joined({ch.power, ch.sideband, ch.bandwidth, int(ch.txFrequency.get()),
                       int(ch.rxFrequency.get()), ch.agc, ch.modulation},
                      ',');
    }
    if (field.startsWith("group")) {
        const Group& group = db.groups[std::size_t(field.back().toLatin1() - 'A')];
        QList<int> members;
        for (int n = 0; n <= kGroupBitCount; ++n) {
            if (group.isMember(n))
                members << n;
        }
        return QStringLiteral("%1:%2").arg(group.guardChannel.get()).arg(joined(members, ','));
    }
    if (field.startsWith("ecn"))
        return text(db.ecn[std::size_t(field.mid(3).toInt() - 1)]);
    if (field == "serial")
        return text(db.serialNumber);
    if (field == "radio options") {
        const RadioOptions& o = db.radioOptions;
        return joined({o.priorityChannel.get(), o.cwPttHold, o.scanRate, o.dataPowerLevel,
                       o.alertTone, o.alternateDisplayTime, o.accessorySideTone,
                       o.microphoneSideTone, o.beepAfterKeyboardPress, o.beepAfterPttRelease,
                       o.frequencyDisplay, o.baudRate, o.noiseBlanker, db.language},
                      ' ');
    }
    if (field == "accessories")
        return QStringLiteral("%1 %2 isb %3").arg(db.accessoryInstalled).arg(db.tuner).arg(isb);
    return "unknown field " + field;
}

} // namespace

class TestRssFile : public QObject
{
    Q_OBJECT

    std::filesystem::path path(const char* name) const { return m_dir.path(name); }
    test::TestFolder m_dir;

private slots:
    void init() { QVERIFY(m_dir.isValid()); }

    // The example is in the program's own layout: loaded and saved (here with ISB on), it keeps
    // its bytes; printing writes the same text with the CCIR channel numbers first.
    void savedLayout()
    {
        const std::filesystem::path example(KORAL_EXAMPLES_DIR "/radio.rss");
        FileInfo info;
        dbase db{};
        bool isb = false;
        CcirChannelNumbers ccir{};
        RssFile source(example);
        QCOMPARE(source.load(&info, &db, &isb), RssFile::kOk);
        QVERIFY(source.loadCcirChannelNumbers(ccir));
        info.modificationTime = 0;

        RssFile file(path("a.rss"));
        QCOMPARE(file.save(info, db, true, &ccir), RssFile::kOk);
        QVERIFY(info.modificationTime > 0);
        const QByteArray expected =
            QByteArray::fromStdString(test::readBytes(example)).replace("ISB=No", "ISB=Yes");
        QCOMPARE(QByteArray::fromStdString(test::readBytes(path("a.rss"))), expected);

        const std::string printed = RssFile::content(info, db, true, &ccir, kChannelCount, true);
        QVERIFY(printed.starts_with("[Ccir Channel Number]\r\nChannel1=401\r\n"));
        QCOMPARE(printed.size(), std::size_t(expected.size()));
    }

    void load_data()
    {
        const auto row = [](const char* name, const QByteArray& content, const char* field,
                            const char* expected) {
            QTest::newRow(name) << content << QString(field) << QString(expected);
        };
        columns<QByteArray, QString, QString>("content", "field", "expected");

        row("defaults of the radio options", "", "radio options", "1 50 2 5 0 5 0 0 1 0 1 3 0 0");
        row("radio options",
            "[Radio Options]\r\nPriority_Channel=150\r\nCW_PTT_Hold=150 mSec\r\n"
            "Scan_Rate=5 Ch/Sec\r\nData_Power_Level=Low\r\nAlert_Tone=High\r\n"
            "Alternate_Display_Time=10 Sec\r\nAccessory_Side_Tone=Yes\r\n"
            "Microphone_Side_Tone=Yes\r\nBeep_After_Keyboard_Press=No\r\n"
            "Beep_After_PTT_Release=Yes\r\nFrequency_Display=Hide\r\n"
            "Baud_Rate=2400\r\nLanguage=BAHASA\r\n",
            "radio options", "150 15 5 2 1 10 1 1 0 1 0 1 0 3");
        row("unknown scan rate repaired", "[Radio Options]\r\nScan_Rate=7 Ch/Sec\r\n",
            "radio options", "1 50 2 5 0 5 0 0 1 0 1 3 0 0");
        row("accessories and isb",
            "[Accessories]\r\nAccessory_Installed=Accessory2\r\nTuner=Yes\r\n"
            "[Radio Options]\r\nISB=Yes",
            "accessories", "3 1 isb 1");
        row("unknown isb is off", "[Radio Options]\r\nISB=yes", "accessories", "0 0 isb 0");
        row("old channel line without bandwidth",
            "[Channels]\r\nChannel7=Low,USB,2000000,3000000,Fast,ISB", "channel7",
            "2,1,0,2000000,3000000,1,3");
        row("transmit-only channel", "[Channels]\r\nChannel3=High,LSB,2000000", "channel3",
            "4,0,0,2000000,0,0,0");
        row("missing channel is empty", "", "channel3", "5,1,0,0,0,0,0");
        row("unknown texts repaired", "[Channels]\r\nChannel9=max,usb,2000000,2000000,2,SSB,9",
            "channel9", "5,0,0,2000000,2000000,0,0");
        row("missing group", "", "groupE", "65535:");
        row("ecn keeps blanks inside", "[ECN List]\r\nECN2=A B,C", "ecn2", "A B");
        row("ecn cut to its field", "[ECN List]\r\nECN50=0123456789ABCDEFGH", "ecn50",
            "0123456789ABCDEF");
        row("serial cleaned", "[Wide Information]\r\nSerial_Number=AB-12 cd", "serial", "AB12cd");
    }

    void load()
    {
        auto [content, field, expected] =
            fetch<QByteArray, QString, QString>("content", "field", "expected");

        test::writeBytes(path("in.rss"), content.toStdString());
        dbase db{};
        bool isb = false;
        QCOMPARE(RssFile(path("in.rss")).load(nullptr, &db, &isb), RssFile::kOk);
        QCOMPARE(describe(db, isb, field), expected);
    }

    // The header: the version check, and the comment and user name read back (a refused load
    // touches nothing).
    void versionCheck_data()
    {
        columns<QByteArray, bool, int>("version", "check", "result");
        QTest::newRow("same version checked") << QByteArray("2.01") << true << RssFile::kOk;
        QTest::newRow("other version checked")
            << QByteArray("1.00") << true << RssFile::kVersionMismatch;
        QTest::newRow("other version unchecked") << QByteArray("1.00") << false << RssFile::kOk;
    }

    void versionCheck()
    {
        auto [version, check, result] = fetch<QByteArray, bool, int>("version", "check", "result");

        test::writeBytes(path("v.rss"),
                         "[zov]\r\nZOV_Version=" + version.toStdString() +
                             "\r\ncomment=one\\rtwo\\r\r\nUserName=" + std::string(30, 'u') +
                             "\r\n[Channels]\r\nChannel1=Max,USB,2000000,0\r\n");
        dbase db{};
        db.tuner = 7; // an unsanitised marker: a refused load must not touch the record
        FileInfo info{.comment = "before"};
        bool isb = true;
        QCOMPARE(RssFile(path("v.rss")).load(&info, &db, &isb, check), result);
        if (result == RssFile::kOk) {
            QCOMPARE(db.channelNo(1).txFrequency.get(), 2000000u);
            QCOMPARE(info.comment, std::string("one\r\ntwo\r\n"));
            QCOMPARE(info.userName, std::string(19, 'u'));
            QCOMPARE(info.modificationTime, fileModificationTime(path("v.rss")));
            QVERIFY(!isb);
        } else {
            QCOMPARE(db.tuner, std::uint8_t{7});
            QCOMPARE(info.comment, std::string("before"));
            QVERIFY(isb);
        }
    }

    void missingFileHasNoInformation()
    {
        FileInfo missing{.comment = "x", .modificationTime = 5};
        QCOMPARE(RssFile(path("none.rss")).load(&missing, nullptr, nullptr), RssFile::kOk);
        QCOMPARE(missing.comment, std::string());
        QCOMPARE(missing.modificationTime, std::int64_t{0});
    }

    void saveReplacesTheWholeFile()
    {
        test::writeBytes(path("r.rss"),
                         "[RSS]\r\nold=1\r\n[Channels]\r\nChannel5=Max,USB,2000000,2000000\r\n"
                         "[Groups Guard Channels]\r\nGroup_A=5,5\r\n");
        FileInfo info;
        RssFile file(path("r.rss"));
        QCOMPARE(file.save(info, dbase{}, false), RssFile::kOk);
        const std::string saved = test::readBytes(path("r.rss"));
        for (const char* gone :
             {"[RSS]", "Channel5", "[Channels]", "Group_A", "[Ccir Channel Number]"})
            QVERIFY2(saved.find(gone) == std::string::npos, gone);
    }

    void failedSaveKeepsTheOldFile()
    {
        const std::filesystem::path target = path("missing-folder/x.rss");
        FileInfo info{.modificationTime = 3};
        RssFile file(target);
        QCOMPARE(file.save(info, dbase{}, false), RssFile::kWriteFailed);
        QCOMPARE(file.errorString(),
                 "Cannot write the file " + target.string() + ": No such file or directory");
        QCOMPARE(info.modificationTime, std::int64_t{3});

        // A folder standing where the file should go stays as it was.
        QVERIFY(std::filesystem::create_directory(path("busy.rss")));
        RssFile blocked(path("busy.rss"));
        QCOMPARE(blocked.save(info, dbase{}, false), RssFile::kWriteFailed);
        QVERIFY(std::filesystem::is_directory(path("busy.rss")));
        QVERIFY(std::filesystem::is_empty(path("busy.rss")));
        for (const auto& entry : std::filesystem::directory_iterator(m_dir.root()))
            QVERIFY(entry.path().filename().string().find(".tmp") == std::string::npos);
        // Once the folder is gone, what is saved there reads back through the same file.
        std::filesystem::remove(path("busy.rss"));
        QCOMPARE(blocked.save(info, dbase{}, false), RssFile::kOk);
        QCOMPARE(blocked.load(&info, nullptr, nullptr), RssFile::kOk);
    }

    void brokenFilesLoadSanitised_data()
    {
        QTest::addColumn<QByteArray>("content");
        dbase db{};
        setChannel(db, 3, 2000000, 2000000);
        db.groups[0].setMember(3, true);
        const CcirChannelNumbers ccir{};
        const QByteArray good = QByteArray::fromStdString(RssFile::content({}, db, false, &ccir));
        for (int cut : {1, 7, 100, 400, 900})
            QTest::newRow(qPrintable(QStringLiteral("cut at %1").arg(cut))) << good.left(cut);
        QTest::newRow("binary") << QByteArray("\0\xFF[\x01]=\r\n\0=\0[Channels]\r\nChannel3=\0\0",
                                              30);
        QTest::newRow("only separators") << QByteArray("[Channels]\r\nChannel1=,,,,,,,,,,,\r\n"
                                                       "[Groups Guard Channels]\r\nGroup_A=,,,,");
        QTest::newRow("huge numbers")
            << QByteArray("[Channels]\r\nChannel1=Max,USB,99999999999999,-5\r\n"
                          "[Groups Guard Channels]\r\nGroup_A=-70000,99999999999,201,200\r\n"
                          "[Radio Options]\r\nPriority_Channel=-1");
        QRandomGenerator random(262);
        for (int i = 0; i < 5; ++i) {
            QByteArray noise = good;
            for (int j = 0; j < 40; ++j)
                noise[random.bounded(int(noise.size()))] = char(random.bounded(256));
            QTest::newRow(qPrintable(QStringLiteral("noise %1").arg(i))) << noise;
        }
    }

    void brokenFilesLoadSanitised()
    {
        QFETCH(QByteArray, content);
        test::writeBytes(path("broken.rss"), content.toStdString());
        dbase db{};
        FileInfo info;
        bool isb = false;
        RssFile file(path("broken.rss"));
        QCOMPARE(file.load(&info, &db, &isb), RssFile::kOk);
        const dbase repaired = sanitised(db);
        QCOMPARE(std::memcmp(&db, &repaired, sizeof db), 0);

        CcirChannelNumbers ccir{};
        file.loadCcirChannelNumbers(ccir);
        RssFile out(path("clean.rss"));
        QCOMPARE(out.save(info, db, isb, &ccir), RssFile::kOk);
        dbase again{};
        QCOMPARE(RssFile(path("clean.rss")).load(nullptr, &again, nullptr), RssFile::kOk);
        QCOMPARE(std::memcmp(&db, &again, sizeof db), 0);
    }

    void ccirChannelNumbers()
    {
        dbase db{};
        setChannel(db, 1, 2000000, 3000000);
        setChannel(db, 2, 2000000, 0); // transmit only: no number
        setChannel(db, 3, 0, 3000000); // receive only: no number
        setChannel(db, 200, 2000000, 2000000);
        CcirChannelNumbers numbers{11, 22, 33};
        numbers[199] = 65535;

        test::writeBytes(path("c.rss"),
                         "[ZOV]\r\nComment=kept\r\n[Ccir Channel Number]\r\nChannel5=9\r\n");
        RssFile file(path("c.rss"));
        QCOMPARE(file.saveCcirChannelNumbers(db.channels, numbers), 1);
        QCOMPARE(test::readBytes(path("c.rss")),
                 std::string("[ZOV]\r\nComment=kept\r\n"
                             "[Ccir Channel Number]\r\nChannel1=11\r\n"
                             "Channel200=65535\r\n"));

        CcirChannelNumbers loaded;
        loaded.fill(1);

        test::writeBytes(path("none.rss"),
                         "[Ccir Channel Number]\r\nChannel1=\r\nChannel201=4\r\n");
        QVERIFY(!RssFile(path("none.rss")).loadCcirChannelNumbers(loaded));
        QCOMPARE(loaded, CcirChannelNumbers{});

        RssFile unwritable(path("no/such/c.rss"));
        QCOMPARE(unwritable.saveCcirChannelNumbers(db.channels, numbers), 0);
        QVERIFY(!unwritable.errorString().empty());
    }
};

QTEST_GUILESS_MAIN(TestRssFile)
#include "tst_rssfile.moc"
