#include "radiodb/dbase.h"

#include <QtTest>

#include <cstring>

using namespace koral;

class DbaseTest : public QObject
{
    Q_OBJECT
private slots:
    // The bitmap is most significant bit first: channel n is bit 7 - n % 8 of byte n / 8.
    void groupMemberBits_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("byteIndex");
        QTest::addColumn<int>("byteValue");
        QTest::newRow("bit 0") << 0 << 0 << 0x80;
        QTest::newRow("channel 7") << 7 << 0 << 0x01;
        QTest::newRow("channel 8") << 8 << 1 << 0x80;
        QTest::newRow("channel 200") << 200 << 25 << 0x80;
    }
    void groupMemberBits()
    {
        QFETCH(int, number);
        QFETCH(int, byteIndex);
        QFETCH(int, byteValue);
        Group group{};
        QVERIFY(!group.isProgrammed());
        group.setMember(number, true);
        QCOMPARE(int(group.members[std::size_t(byteIndex)]), byteValue);
        QVERIFY(group.isMember(number));
        QVERIFY(!group.isMember(number + 1));
        QVERIFY(group.isProgrammed());
        group.setMember(number, false);
        QVERIFY(!group.isProgrammed());
    }

    void groupIgnoresBitsOutsideTheBitmap()
    {
        Group group{};
        group.setMember(201, true);
        group.setMember(-1, true);
        QVERIFY(!group.isProgrammed());
        QVERIFY(!group.isMember(201));
    }

    void numbersAreHostOrderAtTheirOffsets()
    {
        dbase db{};
        db.channelNo(2).txFrequency.set(0x01020304u);
        db.radioOptions.priorityChannel.set(0x0506);
        const auto* bytes = reinterpret_cast<const unsigned char*>(&db);
        std::uint32_t tx = 0;
        std::memcpy(&tx, bytes + 1688 + 13 + 3, 4);
        QCOMPARE(tx, 0x01020304u);
        std::uint16_t priority = 0;
        std::memcpy(&priority, bytes + 4288, 2);
        QCOMPARE(priority, std::uint16_t(0x0506));
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

QTEST_GUILESS_MAIN(DbaseTest)
#include "tst_dbase.moc"
