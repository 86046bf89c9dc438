#include "AleTestSupport.h"

#include "aledb/AleFile.h"
#include "aledb/AleNormalizer.h"
#include "aledb/AleText.h"
#include "profile/FileInfo.h"
#include "profile/ProfileFile.h"
#include "radiodb/dbase.h"

#include <QtTest>

#include <cstring>

using namespace koral;
using namespace koral::test;

namespace {

const char* const kExample = KORAL_EXAMPLES_DIR "/radio.ale";

// The example's programme: five nets, members and global members, dials and a full option set.
AleProgramme exampleProgramme()
{
    AleProgramme p;
    readAleProfile(ProfileFile(kExample), &p, nullptr, nullptr, {}, false);
    return p;
}

QByteArray written(const AleProgramme& p, bool globalMembers = true)
{
    ProfileFile file;
    writeAleProfile(file, p, dbase{}, nullptr, {globalMembers, 200});
    const std::string bytes = file.content();
    return QByteArray(bytes.data(), int(bytes.size()));
}

AleProgramme readBack(const QByteArray& text, bool globalMembers = true)
{
    ProfileFile file;
    file.setContent(std::string_view(text.constData(), std::size_t(text.size())));
    AleProgramme p;
    readAleProfile(file, &p, nullptr, nullptr, {globalMembers, 200}, true);
    return p;
}

} // namespace

bool sameRecords(const AleProgramme& a, const AleProgramme& b)
{
    return std::memcmp(&a.database, &b.database, sizeof a.database) == 0 &&
           std::memcmp(&a.globalMembers, &b.globalMembers, sizeof a.globalMembers) == 0 &&
           std::memcmp(&a.extraOptions, &b.extraOptions, sizeof a.extraOptions) == 0;
}

class AleFileTest : public QObject
{
    Q_OBJECT
private slots:
    // The example is in this program's own layout: loaded and written again, every section,
    // key and text comes back in its place.
    void exampleWritesBackItsOwnBytes()
    {
        const ProfileFile example(kExample);
        AleProgramme p;
        dbase radio{};
        FileInfo info;
        QCOMPARE(readAleProfile(example, &p, &radio, &info, {}, false), alefile::kSuccess);
        ProfileFile file;
        writeAleProfile(file, p, radio, &info, {});
        QCOMPARE(QByteArray::fromStdString(file.content()),
                 QByteArray::fromStdString(example.content()));
        // Loaded from disk, the information also carries the file's time for the print-out.
        FileInfo loaded;
        QCOMPARE(loadAleFile(kExample, &p, &radio, &loaded, {}, false, nullptr), alefile::kSuccess);
        QCOMPARE(loaded.modificationTime, fileModificationTime(kExample));
    }

    void globalMembersOnlyWhileInForce()
    {
        const QByteArray text = written(exampleProgramme(), false);
        QVERIFY(!text.contains("Global Member"));
        QVERIFY(text.endsWith("Member No. 5=NCBASE1\r\n"));
        const AleProgramme p = readBack(written(exampleProgramme()), false);
        for (const auto& group : p.globalMembers.nets) {
            QVERIFY(fieldText(group.name).empty());
            QCOMPARE(group.members[0], kSlotEmpty);
        }
    }

    void roundTrip_data()
    {
        QTest::addColumn<AleSetup>("setup");
        QTest::newRow("full directory and messages") << AleSetup([](AleProgramme& p) {
            for (int i = 0; i < kAleDirectorySize; ++i)
                setDirectory(p, i, "STN" + std::to_string(i));
            for (int i = 0; i < kAleMessageCount; ++i)
                setMessage(p, i, "MSG " + std::to_string(i) + " lower case");
            for (int i = 0; i < kAleAutoDialCount; ++i)
                p.database.autoDials[i] = {std::uint8_t(i * 9), std::uint8_t(9 - i)};
        });
        QTest::newRow("twenty nets with every option") << AleSetup([](AleProgramme& p) {
            for (int n = 1; n <= kAleNetCount; ++n) {
                setNet(p, n, "NET" + std::to_string(n), "SELF" + std::to_string(n), {n, 200});
                ale_net& net = p.database.nets[n - 1];
                net.scanRate = n % 2 ? 2 : 5;
                net.tuneTime = std::uint8_t(n);
                net.silent = n % 2;
                net.homeAck = net.monitorAck = net.lqaRequest = std::uint8_t(n % 2);
                net.masterSlave = std::uint8_t(1 - n % 2);
                net.allCall = std::uint8_t(n % 4);
                net.sounding = std::uint8_t(n % 5 * 30);
                net.occupancyCheck = std::uint8_t(n == 1 ? 0 : n + 2);
                net.allCallChannel.set(std::uint16_t(n));
                for (int m = 0; m < kAleMemberSlots; ++m)
                    net.members[m] = kSlotSelfAddress;
            }
            p.database.options = {10, 0, 0, 0, 0, 100, 2, 1, 0, 0, 0, 1};
            p.extraOptions = {1, 0, 0, 1};
        });
        // The options' Multinet differs from the extra options' one, the file keeps one.
        QTest::newRow("dial to nothing with a message, two Multinets")
            << AleSetup([](AleProgramme& p) {
                   p.database.autoDials[5] = {kSlotEmpty, 0};
                   p.extraOptions.multinet = 0;
               });
    }
    void roundTrip()
    {
        QFETCH(AleSetup, setup);
        AleProgramme original = exampleProgramme();
        setup(original);
        const QByteArray text = written(original);
        const AleProgramme loaded = readBack(text);
        normalizeAleDatabase(original.database, 200);
        // One "Multinet" key serves both records; the extra options' value is the one saved.
        original.database.options.multinet = original.extraOptions.multinet;
        QVERIFY(sameRecords(loaded, original));
        QCOMPARE(written(loaded), text);
    }

    void loading_data()
    {
        columns<QByteArray, AleSetup>("text", "expect");
        QTest::newRow("no options section gives the defaults")
            << QByteArray("[ZOV]\nZOV_Version=2.01\n") << AleSetup([](AleProgramme& p) {
                   const ale_options& o = p.database.options;
                   QCOMPARE((QList<int>{o.pttTimeout, o.minLqaScore, o.acceptLinkTimeout, o.inLink,
                                        o.multinet, p.extraOptions.maxChannel}),
                            (QList<int>{0, 0, 1, 0, 0, 0}));
                   QVERIFY(o.anycall && o.amdMessage && o.externalAlarm && o.alert && o.wildcard &&
                           o.quickPttCall && o.autoAddress);
               });
        QTest::newRow("a missing net takes the net defaults")
            << QByteArray() << AleSetup([](AleProgramme& p) {
                   const ale_net& n = p.database.nets[19];
                   const auto& dial = p.database.autoDials[9];
                   QCOMPARE((QList<int>{n.scanRate, n.silent, n.allCall, n.occupancyCheck,
                                        n.lqaRequest, n.allCallChannel.get(), n.members[0],
                                        p.globalMembers.nets[19].members[19], dial.address,
                                        dial.message}),
                            (QList<int>{2, 1, 3, 0, 1, kNoAllCallChannel, 255, 255, 255, 255}));
               });
        QTest::newRow("an unknown silent text means silent")
            << QByteArray("[Net No. 1]\nSilent=Maybe\n")
            << AleSetup([](AleProgramme& p) { QCOMPARE(p.database.nets[0].silent, 0); });
        QTest::newRow("scanned channels out of range are skipped")
            << QByteArray("[Net No. 3]\nScanned Channels=-1,0,5,200,300\nAll Call Channel=5\n")
            << AleSetup([](AleProgramme& p) {
                   const ale_net& net = p.database.nets[2];
                   QVERIFY(!net.isScanned(0) && net.isScanned(5) && net.isScanned(200));
                   QCOMPARE(net.allCallChannel.get(), 5);
               });
        QTest::newRow("member texts: self address, directory, unknown, missing")
            << QByteArray("[Directory]\nAddress No. 4=DELTA\n"
                          "[Net No. 2]\nSelf Address=HOME\nMember No. 1=HOME\n"
                          "Member No. 2=DELTA\nMember No. 3=NOBODY\n")
            << AleSetup([](AleProgramme& p) {
                   const auto& m = p.database.nets[1].members;
                   QCOMPARE((QList<int>{m[0], m[1], m[2], m[3]}), (QList<int>{254, 3, 255, 255}));
               });
        QTest::newRow("member texts: first of two entries, self address before the directory")
            << QByteArray("[Directory]\nAddress No. 1=HOME\nAddress No. 3=DUP\n"
                          "Address No. 4=DUP\n[Net No. 2]\nSelf Address=HOME\n"
                          "Member No. 1=DUP\nMember No. 2=HOME\n")
            << AleSetup([](AleProgramme& p) {
                   const auto& m = p.database.nets[1].members;
                   QCOMPARE((QList<int>{m[0], m[1]}), (QList<int>{2, 254}));
               });
        QTest::newRow("an empty member text matches an empty self address")
            << QByteArray("[Net No. 2]\nMember No. 1=\n") << AleSetup([](AleProgramme& p) {
                   const auto& m = p.database.nets[1].members;
                   QCOMPARE((QList<int>{m[0], m[1]}), (QList<int>{254, 255}));
               });
        QTest::newRow("automatic dials by text")
            << QByteArray("[Directory]\nAddress No. 1=ALPHA\nAddress No. 2=BRAVO\n"
                          "[Messages]\nMessage No. 4=HELLO\n"
                          "[Automatic Dials]\nAuto Dial No. 0=BRAVO,HELLO\n"
                          "Auto Dial No. 1=ALPHA, \nAuto Dial No. 2= ,HELLO\n"
                          "Auto Dial No. 3=ZULU,NONE\n")
            << AleSetup([](AleProgramme& p) {
                   QList<int> dials;
                   for (int i = 0; i < 4; ++i)
                       dials << p.database.autoDials[i].address << p.database.autoDials[i].message;
                   QCOMPARE(dials, (QList<int>{1, 4, 0, 255, 255, 4, 255, 255}));
               });
        QTest::newRow("extra options come back from Options")
            << QByteArray("[Options]\nMultinet=Yes\nMax Channel=120\nVcds=Yes\n"
                          "LinkAfterBidr=Yes\n")
            << AleSetup([](AleProgramme& p) {
                   const auto& x = p.extraOptions;
                   QCOMPARE((QList<int>{x.multinet, x.maxChannel, x.vcds, x.linkAfterBidr,
                                        p.database.options.multinet}),
                            (QList<int>{1, 120, 1, 1, 1}));
               });
    }
    void loading()
    {
        auto [text, expect] = fetch<QByteArray, AleSetup>("text", "expect");
        AleProgramme p = readBack(text);
        expect(p);
    }

    void versionCheck_data()
    {
        columns<QByteArray, bool, int>("version", "skip", "result");
        QTest::newRow("same version") << QByteArray("2.01") << false << 0;
        QTest::newRow("other version") << QByteArray("1.00") << false << 118;
        QTest::newRow("other version, check skipped") << QByteArray("1.00") << true << 0;
    }
    void versionCheck()
    {
        auto [version, skip, result] = fetch<QByteArray, bool, int>("version", "skip", "result");
        ProfileFile file;
        file.setContent(("[ZOV]\r\nZOV_Version=" + version +
                         "\r\n[Directory]\r\n"
                         "Address No. 1=NEW\r\n")
                            .toStdString());
        AleProgramme p = exampleProgramme();
        const AleProgramme before = p;
        QCOMPARE(readAleProfile(file, &p, nullptr, nullptr, {}, skip), result);
        QCOMPARE(sameRecords(p, before), result == 118);
    }

    void everyNetSectionIsRewritten()
    {
        ProfileFile file;
        AleProgramme p = exampleProgramme();
        writeAleProfile(file, p, dbase{}, nullptr, {});
        QVERIFY(file.hasSection("Net No. 2"));
        p.database.nets[1].scannedChannels.fill(0);
        setNet(p, 4, "NETD", "HOME4", {7});
        writeAleProfile(file, p, dbase{}, nullptr, {});
        QVERIFY(!file.hasSection("Net No. 2"));
        QCOMPARE(file.read("Net No. 4", "Net Name"), std::string("NETD"));
    }

    void unwritablePathFails()
    {
        QTemporaryDir dir;
        const std::filesystem::path path = dir.filePath("missing/prog.ale").toStdString();
        std::string error;
        QCOMPARE(saveAleFile(path, exampleProgramme(), dbase{}, nullptr, {}, &error), 1);
        QVERIFY(!error.empty());
        QVERIFY(!std::filesystem::exists(path));
    }

    // Hand-edited references to texts that the load cleans away: the first save already
    // writes what every later save writes.
    void firstSaveIsSettled_data()
    {
        // line: empty: the key is not written at all
        columns<QByteArray, QByteArray, QByteArray>("text", "key", "line");
        const QByteArray weather("[Messages]\nMessage No. 3=WEATHER REPORT FOLLOWS\n");
        QTest::newRow("dial of an empty address and no message")
            << QByteArray("[Directory]\nAddress No. 1=-\n[Automatic Dials]\nAuto Dial No. 1=-,\n")
            << QByteArray("Auto Dial No. 1=") << QByteArray();
        QTest::newRow("dial of an empty address and a message")
            << "[Directory]\nAddress No. 1=-\n" + weather +
                   "[Automatic Dials]\nAuto Dial No. 5=-,WEATHER REPORT FOLLOWS\n"
            << QByteArray("Auto Dial No. 5=")
            << QByteArray("Auto Dial No. 5=\" ,WEATHER REPORT FOLLOWS\"");
        QTest::newRow("dial of an address and an empty message")
            << QByteArray("[Directory]\nAddress No. 27=RESCUE1\n[Messages]\nMessage No. 5=?\n"
                          "[Automatic Dials]\nAuto Dial No. 2=RESCUE1,?\n")
            << QByteArray("Auto Dial No. 2=") << QByteArray("Auto Dial No. 2=\"RESCUE1, \"");
        QTest::newRow("member of an empty address")
            << QByteArray("[Directory]\nAddress No. 3=\"-\"\n[Net No. 1]\nSelf Address=NCHQ\n"
                          "Scanned Channels=1\nMember No. 3=\"-\"\n")
            << QByteArray("Member No. 3=") << QByteArray();
    }
    void firstSaveIsSettled()
    {
        auto [text, key, line] = fetch<QByteArray, QByteArray, QByteArray>("text", "key", "line");
        const QByteArray once = written(readBack(text));
        QCOMPARE(written(readBack(once)), once);
        if (line.isEmpty())
            QVERIFY(!once.contains(key));
        else
            QVERIFY(once.contains(line + "\r\n"));
    }

    // The blank that stands for a dial's missing message is the file's own: with or without
    // the quotes that keep it, the line loads alike, even beside a message of one blank.
    void quotedAndUnquotedDialsLoadAlike()
    {
        const QByteArray head("[Directory]\nAddress No. 1=ALPHA\n[Messages]\nMessage No. 1=\" \"\n"
                              "[Automatic Dials]\n");
        QVERIFY(sameRecords(readBack(head + "Auto Dial No. 2=\"ALPHA, \"\n"),
                            readBack(head + "Auto Dial No. 2=ALPHA,\n")));
    }
};

QTEST_GUILESS_MAIN(AleFileTest)
#include "tst_alefile.moc"
