#include "radiodb/ProgrammedFlags.h"
#include "radiodb/RadioSanitiser.h"
#include "radiodb/dbase.h"
#include "support/Table.h"

#include <QtTest>

#include <cstring>

using namespace koral;
using namespace koral::test;

namespace {

// Field offsets inside the record, so the table below reads as the record's layout.
constexpr int kChannel1 = 1688;
constexpr int kChannel2 = kChannel1 + 13;
constexpr int kRadioOptions = 4288;
constexpr int kParameters = 1270;

void poke(dbase& db, int offset, int width, quint32 value)
{
    std::memcpy(reinterpret_cast<unsigned char*>(&db) + offset, &value, std::size_t(width));
}

quint32 peek(const dbase& db, int offset, int width)
{
    quint32 value = 0;
    std::memcpy(&value, reinterpret_cast<const unsigned char*>(&db) + offset, std::size_t(width));
    return value;
}

// A record whose every field is valid, so that a row of the table changes one thing only.
dbase validRecord()
{
    dbase db{};
    sanitise(db);
    return db;
}

} // namespace

// The record: its layout and bitmaps, and what the sanitiser repairs.
class RadioSanitiserTest : public QObject
{
    Q_OBJECT
private slots:
    void replacesOutOfRangeValues_data()
    {
        columns<int, int, quint32, quint32>("offset", "width", "stored", "expected");
        auto row = [](const char* name, int offset, int width, quint32 stored, quint32 expected) {
            QTest::newRow(name) << offset << width << stored << expected;
        };
        row("tx just below 1.6 MHz", kChannel1 + 3, 4, 1'599'999, 0);
        row("tx 1.6 MHz", kChannel1 + 3, 4, 1'600'000, 1'600'000);
        row("tx 30 MHz", kChannel1 + 3, 4, 30'000'000, 30'000'000);
        row("tx above 30 MHz", kChannel1 + 3, 4, 30'000'001, 0);
        row("rx 0.1 MHz", kChannel1 + 7, 4, 100'000, 100'000);
        row("rx below 0.1 MHz", kChannel1 + 7, 4, 99'999, 0);
        row("power 1", kChannel2 + 0, 1, 1, 5);
        row("power 2", kChannel2 + 0, 1, 2, 2);
        row("sideband 2", kChannel2 + 1, 1, 2, 1);
        row("sideband LSB", kChannel2 + 1, 1, 0, 0);
        row("bandwidth 6", kChannel2 + 2, 1, 6, 0);
        row("bandwidth 2100", kChannel2 + 2, 1, 5, 5);
        row("agc 2", kChannel2 + 11, 1, 2, 0);
        row("agc off", kChannel2 + 11, 1, 255, 255);
        row("modulation 4", kChannel2 + 12, 1, 4, 0);
        row("modulation ISB", kChannel2 + 12, 1, 3, 3);
        row("priority 0", kRadioOptions + 0, 2, 0, 1);
        row("priority 200", kRadioOptions + 0, 2, 200, 200);
        row("priority 201", kRadioOptions + 0, 2, 201, 1);
        row("cw ptt hold 20", kRadioOptions + 2, 1, 20, 50);
        row("cw ptt hold 15", kRadioOptions + 2, 1, 15, 15);
        row("scan rate 7", kRadioOptions + 3, 1, 7, 2);
        row("data power 6", kRadioOptions + 4, 1, 6, 5);
        row("alert tone 2", kRadioOptions + 5, 1, 2, 0);
        row("display time 0", kRadioOptions + 6, 1, 0, 5);
        row("display time 10", kRadioOptions + 6, 1, 10, 10);
        row("accessory side tone 2", kRadioOptions + 7, 1, 2, 0);
        row("beep after key 3", kRadioOptions + 9, 1, 3, 1);
        row("beep after ptt 3", kRadioOptions + 10, 1, 3, 1);
        row("frequency display 2", kRadioOptions + 11, 1, 2, 1);
        row("baud rate 4", kRadioOptions + 12, 1, 4, 3);
        row("accessory installed 4", 4302, 1, 4, 0);
        row("tuner 2", 4303, 1, 2, 0);
        row("parameter byte 0", kParameters + 6 * 9 + 0, 1, 61, 30);
        row("parameter byte 0 at limit", kParameters + 0, 1, 60, 60);
        row("parameter byte 1", kParameters + 1, 1, 71, 35);
        row("parameter byte 5", kParameters + 5, 1, 128, 63);
        row("parameter word", 1330, 2, 4096, 2047);
        row("parameter word at limit", 1330, 2, 4095, 4095);
        row("parameter single byte", 1332, 1, 128, 63);
        row("reserved block at 1222", 1222 + 47, 1, 0xAB, 0);
        row("language is left alone", 1221, 1, 9, 9);
        row("reserved at 1333 is left alone", 1333, 1, 0xAB, 0xAB);
    }
    void replacesOutOfRangeValues()
    {
        auto [offset, width, stored, expected] =
            fetch<int, int, quint32, quint32>("offset", "width", "stored", "expected");
        dbase db = validRecord();
        poke(db, offset, width, stored);
        sanitise(db);
        QCOMPARE(peek(db, offset, width), expected);
    }

    void cleansTexts_data()
    {
        const auto row = [](const char* name, const char* field, const char* allowed,
                            const char* expected) {
            QTest::newRow(name) << QByteArray(field, 8) << QString(allowed)
                                << QByteArray(expected, 8);
        };
        columns<QByteArray, QString, QByteArray>("field", "allowed", "expected");
        const char* digits = "0123456789.";
        row("nothing after the first NUL survives", "12\00034\0\0\0", digits, "12\0\0\0\0\0\0");
        row("full field stays full", "AB12cd34", "0123456789ABCDabcd", "AB12cd34");
    }
    void cleansTexts()
    {
        auto [field, allowed, expected] =
            fetch<QByteArray, QString, QByteArray>("field", "allowed", "expected");
        const std::string set = allowed.toStdString();
        cleanText(std::span<char>(field.data(), std::size_t(field.size())), set);
        QCOMPARE(field, expected);
    }

    void cleansEveryTextFieldToItsSet()
    {
        dbase db{};
        setFieldText(db.ecn[3], "NET 1/A");
        setFieldText(db.sp[0], "SP 1");
        setFieldText(db.serialNumber, "SN-42");
        setFieldText(db.option(OptionSlot::SelCall).hardwareVersion, "v1.0");
        sanitise(db);
        const std::string cleaned =
            std::string(fieldText(db.ecn[3])) + "|" + std::string(fieldText(db.sp[0])) + "|" +
            std::string(fieldText(db.serialNumber)) + "|" +
            std::string(fieldText(db.option(OptionSlot::SelCall).hardwareVersion));
        QCOMPARE(cleaned, std::string("NET 1A|SP1|SN42|1.0"));
    }

    void groupsKeepOnlyRealChannels_data()
    {
        const auto row = [](const char* name, int count, int guard, const QList<int>& members,
                            int keptGuard, const QList<int>& kept) {
            QTest::newRow(name) << count << guard << members << keptGuard << kept;
        };
        columns<int, int, QList<int>, int, QList<int>>("channelCount", "guard", "members",
                                                       "expectedGuard", "expectedMembers");
        row("guard that is a member stays", 200, 17, {3, 5, 17}, 17, {3, 5, 17});
        row("guard that is no member is dropped", 200, 100, {5}, 65535, {5});
        row("bit 0 is never a channel", 200, 0, {0, 1}, 65535, {1});
        row("channels above the radio's count go", 100, 150, {99, 100, 101, 150, 200}, 65535,
            {99, 100});
    }
    void groupsKeepOnlyRealChannels()
    {
        auto [channelCount, guard, members, expectedGuard, expectedMembers] =
            fetch<int, int, QList<int>, int, QList<int>>("channelCount", "guard", "members",
                                                         "expectedGuard", "expectedMembers");
        dbase db{};
        Group& group = db.groups[2];
        group.guardChannel.set(std::uint16_t(guard));
        for (int member : members)
            group.setMember(member, true);
        group.members.back() |= 0x7F; // padding bits after channel 200
        sanitise(db, channelCount);
        QCOMPARE(int(group.guardChannel.get()), expectedGuard);
        QList<int> kept;
        for (int bit = 0; bit < 208; ++bit) {
            if (group.members[std::size_t(bit / 8)] & (0x80 >> (bit % 8)))
                kept << bit;
        }
        QCOMPARE(kept, expectedMembers);
    }

    void channelsAboveTheRadiosCountAreEmptied()
    {
        dbase db{};
        for (channel& ch : db.channels)
            ch.txFrequency.set(5'000'000);
        sanitise(db, 120);
        QVERIFY(db.channelNo(120).isProgrammed());
        QVERIFY(!db.channelNo(121).isProgrammed());
        QVERIFY(!db.channelNo(200).isProgrammed());
        QCOMPARE(int(db.radioOptions.priorityChannel.get()), 1);
    }

    // An option rules its setting: Delete LSB forces every channel to the upper sideband, and
    // the noise blanker stays on only while its option is enabled.
    void optionsRuleTheirSettings_data()
    {
        columns<int, int, int>("slot", "status", "setting");
        const auto row = [](const char* name, OptionSlot slot, int status, int setting) {
            QTest::newRow(name) << int(slot) << status << setting;
        };
        row("delete LSB enabled", OptionSlot::DeleteLsb, 1, 1);
        row("delete LSB disabled", OptionSlot::DeleteLsb, 0, 0);
        row("noise blanker enabled", OptionSlot::NoiseBlanker, 1, 1);
        row("noise blanker disabled", OptionSlot::NoiseBlanker, 0, 0);
        row("noise blanker status out of range", OptionSlot::NoiseBlanker, 2, 0);
    }
    void optionsRuleTheirSettings()
    {
        auto [slot, status, setting] = fetch<int, int, int>("slot", "status", "setting");
        dbase db = validRecord();
        db.option(OptionSlot(slot)).status = std::uint8_t(status);
        db.channelNo(7).sideband = 0;
        db.channelNo(200).sideband = 0;
        db.radioOptions.noiseBlanker = 1;
        sanitise(db);
        if (OptionSlot(slot) == OptionSlot::DeleteLsb) {
            QCOMPARE(int(db.channelNo(7).sideband), setting);
            QCOMPARE(int(db.channelNo(200).sideband), setting);
        } else {
            QCOMPARE(int(db.radioOptions.noiseBlanker), setting);
        }
    }

    void compareSanitisesBothSides()
    {
        dbase a = validRecord();
        dbase b = a;
        QCOMPARE(compare(a, b), 0);
        b.channelNo(1).agc = 2; // sanitised to 0, as a holds
        QCOMPARE(compare(a, b), 0);
        b.channelNo(1).txFrequency.set(2'000'000);
        QCOMPARE(compare(a, b), -1);
        QCOMPARE(compare(b, a), 1);
        // The original records are not touched.
        QCOMPARE(int(b.channelNo(1).agc), 2);
    }

    void programmedFlags()
    {
        dbase db{};
        setFieldText(db.ecn[49], "E");
        setFieldText(db.sp[0], "S");
        db.groups[4].setMember(3, true);
        db.groups[0].guardChannel.set(3); // a guard alone does not make a group programmed
        db.channelNo(1).rxFrequency.set(100'000);
        db.channelNo(200).txFrequency.set(2'000'000);
        const ProgrammedFlags flags = ProgrammedFlags::of(db);
        QList<int> set;
        for (std::size_t i = 0; i < flags.bytes.size(); ++i) {
            if (flags.bytes[i])
                set << int(i);
        }
        QCOMPARE(set, (QList<int>{0, 50, 51, 61, 62, 261}));
    }

    // The bitmap is most significant bit first: channel n is bit 7 - n % 8 of byte n / 8.
    void groupMemberBits_data()
    {
        columns<int, int, int>("number", "byteIndex", "byteValue");
        QTest::newRow("bit 0") << 0 << 0 << 0x80;
        QTest::newRow("channel 7") << 7 << 0 << 0x01;
        QTest::newRow("channel 8") << 8 << 1 << 0x80;
        QTest::newRow("channel 200") << 200 << 25 << 0x80;
    }
    void groupMemberBits()
    {
        auto [number, byteIndex, byteValue] =
            fetch<int, int, int>("number", "byteIndex", "byteValue");
        Group group{};
        QVERIFY(!group.isProgrammed());
        group.setMember(number, true);
        QCOMPARE(int(group.members[std::size_t(byteIndex)]), byteValue);
        QVERIFY(group.isMember(number));
        QVERIFY(!group.isMember(number + 1));
        QVERIFY(group.isProgrammed());
        group.setMember(number, false);
        group.setMember(201, true); // outside the bitmap: ignored
        group.setMember(-1, true);
        QVERIFY(!group.isProgrammed());
        QVERIFY(!group.isMember(201));
    }

    void fixedWidthTexts()
    {
        std::array<char, 8> field{};
        setFieldText(field, "0123456789");
        QCOMPARE(fieldText(field), std::string_view("01234567"));
        setFieldText(field, "1.2");
        QCOMPARE(fieldText(field), std::string_view("1.2"));
        QCOMPARE(field[7], '\0');
    }
};

QTEST_GUILESS_MAIN(RadioSanitiserTest)
#include "tst_radiosanitiser.moc"
