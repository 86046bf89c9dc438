#include "AleTestSupport.h"

#include "aledb/AleNormalizer.h"
#include "aledb/AleText.h"

#include <QtTest>

#include <cstring>

using namespace koral;
using namespace koral::test;

namespace {

std::uint8_t* byteAt(ale_dbase& db, int offset)
{
    return reinterpret_cast<std::uint8_t*>(&db) + offset;
}

constexpr int kNet1 = 91;
constexpr int kOptions = 1820;

} // namespace

class AleRecordTest : public QObject
{
    Q_OBJECT
private slots:
    void netByteLayout_data()
    {
        columns<int, int, int>("channel", "byteIndex", "byteValue");
        QTest::newRow("channel 1") << 1 << 0 << 0x40;
        QTest::newRow("channel 7") << 7 << 0 << 0x01;
        QTest::newRow("channel 8") << 8 << 1 << 0x80;
        QTest::newRow("channel 200") << 200 << 25 << 0x80;
    }
    void netByteLayout()
    {
        auto [channel, byteIndex, byteValue] =
            fetch<int, int, int>("channel", "byteIndex", "byteValue");
        ale_dbase db{};
        db.nets[1].setScanned(channel, true);
        QCOMPARE(*byteAt(db, kNet1 + 60 + byteIndex), std::uint8_t(byteValue));
        QVERIFY(db.nets[1].isScanned(channel));
        QVERIFY(!db.nets[1].isScanned(channel + 1));
        db.nets[1].setScanned(channel, false);
        QVERIFY(!db.nets[1].hasScannedChannel());
        // The all call channel beside the bits is little-endian at an odd offset.
        db.nets[1].allCallChannel.set(0x1234);
        QCOMPARE(*byteAt(db, kNet1 + 49), std::uint8_t(0x34));
        QCOMPARE(*byteAt(db, kNet1 + 50), std::uint8_t(0x12));
    }

    void cleaning_data()
    {
        columns<QByteArray, bool, QByteArray>("field", "message", "expected");
        QTest::newRow("foreign characters close up")
            << QByteArray("AB-12 x") << false << QByteArray("AB12x");
        QTest::newRow("message keeps blanks, drops punctuation")
            << QByteArray("Hello, World!") << true << QByteArray("Hello World");
        QTest::newRow("unterminated address loses its last byte")
            << QByteArray("ABCDEFGHIJKLMNOP") << false << QByteArray("ABCDEFGHIJKLMNO");
        QTest::newRow("bytes after the terminator are zeroed")
            << QByteArray("AB\0junk", 7) << false << QByteArray("AB");
        QTest::newRow("message of 95 characters keeps 90")
            << QByteArray(95, 'M') << true << QByteArray(90, 'M');
        QTest::newRow("high bytes deleted") << QByteArray("\xe9t\xe9") << false << QByteArray("t");
        QTest::newRow("empty stays empty") << QByteArray() << true << QByteArray();
    }
    void cleaning()
    {
        auto [field, message, expected] =
            fetch<QByteArray, bool, QByteArray>("field", "message", "expected");
        ale_dbase db{};
        std::span<char> target =
            message ? std::span<char>(db.messages[3]) : std::span<char>(db.directory[3]);
        std::memcpy(target.data(), field.constData(),
                    std::min<std::size_t>(field.size(), target.size()));
        cleanField(target, message ? kAleMessageCharacters : kAleAddressCharacters);
        QCOMPARE(QByteArray(fieldText(target).data(), int(fieldText(target).size())), expected);
        for (std::size_t i = fieldText(target).size(); i < target.size(); ++i)
            QCOMPARE(target[i], '\0');
    }

    void normalisation_data()
    {
        columns<int, int, int>("offset", "before", "after");
        const int net = kNet1;
        QTest::newRow("all call 4") << net + 48 << 4 << 3;
        QTest::newRow("tune time 21") << net + 51 << 21 << 0;
        QTest::newRow("silent 2") << net + 52 << 2 << 1;
        QTest::newRow("scan rate 3") << net + 55 << 3 << 2;
        QTest::newRow("scan rate 5 kept") << net + 55 << 5 << 5;
        QTest::newRow("sounding 45") << net + 58 << 45 << 0;
        QTest::newRow("sounding 90 kept") << net + 58 << 90 << 90;
        QTest::newRow("occupancy 1") << net + 59 << 1 << 0;
        QTest::newRow("occupancy 3 kept") << net + 59 << 3 << 3;
        QTest::newRow("occupancy 31") << net + 59 << 31 << 0;
        // Directory entry 2 and message 1 hold text, message 4 only blanks (see below).
        QTest::newRow("member of a directory entry") << net + 32 << 2 << 2;
        QTest::newRow("member of an empty entry") << net + 32 << 3 << 255;
        QTest::newRow("member slot 200") << net + 32 << 200 << 255;
        QTest::newRow("member of an empty self address") << net + 32 << 254 << 254;
        QTest::newRow("carried byte untouched") << net + 88 << 77 << 77;
        QTest::newRow("PTT timeout 11") << kOptions + 0 << 11 << 0;
        QTest::newRow("min LQA 101") << kOptions + 5 << 101 << 0;
        QTest::newRow("accept link 3") << kOptions + 6 << 3 << 0;
        QTest::newRow("in link 2") << kOptions + 11 << 2 << 0;
        QTest::newRow("dial address 120") << 3432 + 2 << 120 << 255;
        QTest::newRow("dial message 10") << 3433 << 10 << 255;
        QTest::newRow("dial address of a directory entry") << 3432 << 2 << 2;
        QTest::newRow("dial address of an empty entry") << 3432 << 3 << 255;
        QTest::newRow("dial message with text") << 3433 << 1 << 1;
        QTest::newRow("dial message of blanks only") << 3433 << 4 << 255;
        QTest::newRow("carried at the end") << 4376 << 200 << 200;
    }
    void normalisation()
    {
        auto [offset, before, after] = fetch<int, int, int>("offset", "before", "after");
        AleProgramme p = emptyProgramme();
        setDirectory(p, 2, "ALPHA");
        setMessage(p, 1, "HELLO");
        setMessage(p, 4, "  ");
        ale_dbase& db = p.database;
        *byteAt(db, offset) = static_cast<std::uint8_t>(before);
        normalizeAleDatabase(db, 200);
        QCOMPARE(int(*byteAt(db, offset)), after);
    }

    void normalisationIsIdempotentOnRandomBytes()
    {
        QRandomGenerator random(7);
        for (int round = 0; round < 50; ++round) {
            ale_dbase db;
            auto* bytes = reinterpret_cast<std::uint8_t*>(&db);
            for (std::size_t i = 0; i < sizeof db; ++i)
                bytes[i] = static_cast<std::uint8_t>(random.bounded(256));
            normalizeAleDatabase(db, 200);
            const ale_dbase once = db;
            normalizeAleDatabase(db, 200);
            QVERIFY(std::memcmp(&once, &db, sizeof db) == 0);
        }
    }

    void netChannels_data()
    {
        columns<int, QList<int>, int, QList<int>, int>("maxChannel", "scanned", "allCall",
                                                       "expectedScanned", "expectedAllCall");
        QTest::newRow("all call among scanned")
            << 200 << QList<int>{3, 9} << 9 << QList<int>{3, 9} << 9;
        QTest::newRow("all call not scanned")
            << 200 << QList<int>{3, 9} << 4 << QList<int>{3, 9} << 0xFFFF;
        QTest::newRow("all call 0") << 200 << QList<int>{0, 3} << 0 << QList<int>{3} << 0xFFFF;
        QTest::newRow("above the maximum in force")
            << 100 << QList<int>{50, 150} << 150 << QList<int>{50} << 0xFFFF;
        QTest::newRow("bits past 200 cleared")
            << 200 << QList<int>{200, 201, 207} << 200 << QList<int>{200} << 200;
    }
    void netChannels()
    {
        auto [maxChannel, scanned, allCall, expectedScanned, expectedAllCall] =
            fetch<int, QList<int>, int, QList<int>, int>("maxChannel", "scanned", "allCall",
                                                         "expectedScanned", "expectedAllCall");
        ale_net net{};
        for (int channel : scanned) // 201..207 are spare bits of the last byte
            net.scannedChannels[channel / 8] |= std::uint8_t(0x80 >> (channel % 8));
        net.allCallChannel.set(static_cast<std::uint16_t>(allCall));
        normalizeNetChannels(net, maxChannel);
        QList<int> result;
        for (int byte = 0; byte < 26; ++byte)
            for (int bit = 0; bit < 8; ++bit)
                if (net.scannedChannels[byte] & (0x80 >> bit))
                    result << byte * 8 + bit;
        QCOMPARE(result, expectedScanned);
        QCOMPARE(int(net.allCallChannel.get()), expectedAllCall);
    }
};

QTEST_GUILESS_MAIN(AleRecordTest)
#include "tst_alerecord.moc"
