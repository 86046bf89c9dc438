#include "profile/ProfileFile.h"
#include "profile/Schema.h"

#include "ProfileTestFiles.h"

#include <QRandomGenerator>
#include <QtTest>

#include <array>
#include <cstring>

using namespace koral;
using namespace koral::test;
using schema::Field;
using schema::Row;
using schema::Type;

namespace {

// A record with a field of every type, and an array of composite elements.
enum Offset : std::size_t
{
    kText = 0,  // 6 bytes
    kFixed = 6, // 4 bytes
    kU32 = 10,
    kU16 = 14,
    kListed16 = 16,
    kU8 = 18,
    kListed8 = 19,
    kHex32 = 20,
    kHex8 = 24,
    kBits = 25,  // 20 bits in 3 bytes
    kArray = 28, // 3 elements of 7 bytes: listed u8, u32, 12 bits in 2 bytes
    kRecordSize = 49,
};
constexpr std::size_t kStride = 7;

constexpr std::array<ValueText, 4> kNumbers{
    {{1, "One"}, {2, "Two"}, {3, "Three"}, {kValueListEnd, nullptr}}};

using enum Type;
constexpr std::array<Field, 3> kElementFields{{
    {.type = U8, .offset = 0, .defaultText = "One", .values = kNumbers},
    {.type = U32, .offset = 1, .defaultText = "42"},
    {.type = Bitmap, .offset = 5, .width = 12, .defaultText = "-1"},
}};

// A row of section S.
constexpr Row inS(const char* key, Type type, std::size_t offset, const char* defaultText = "",
                  std::size_t width = 1, ValueList values = {})
{
    return {"S", key, defaultText, schema::kAlways, type, offset, width, 0,
            0,   1,   {},          values,          false};
}

constexpr std::array<Row, 12> kRows{{
    {.section = "Head", .key = "version", .defaultText = "9", .type = U8, .offset = kU8},
    inS("text", Text, kText, "dflt", 6),
    inS("fixed", FixedText, kFixed, "", 4),
    inS("u32", U32, kU32, "7"),
    inS("u16", U16, kU16),
    inS("listed16", U16, kListed16, "Two", 1, kNumbers),
    inS("u8", U8, kU8),
    inS("listed8", U8, kListed8, "", 1, kNumbers),
    inS("hex32", Hex32, kHex32),
    inS("hex8", Hex8, kHex8),
    // no section: the one Options names
    {.key = "bits", .defaultText = "-1", .flag = 1, .type = Bitmap, .offset = kBits, .width = 20},
    // section, key, default, flag, type, offset, width, count, stride, first number, fields...
    {"A", "arr", "Three,7", 2, Composite, kArray, 1, 3, kStride, 0, kElementFields, {}, false},
}};

using Record = std::array<std::uint8_t, kRecordSize>;

template <typename T>
T get(const Record& record, std::size_t offset)
{
    T value;
    std::memcpy(&value, record.data() + offset, sizeof value);
    return value;
}

QString bits(const Record& record, std::size_t offset, int count)
{
    QStringList set;
    for (int n = 0; n < count; ++n) {
        if (record[offset + n / 8] & (0x80 >> (n % 8)))
            set << QString::number(n);
    }
    return set.join(',');
}

// The value of one named field, as a test expects to read it.
QString describe(const Record& record, const QString& field)
{
    const auto text = [&](std::size_t offset, std::size_t width) {
        return QString::fromLatin1(reinterpret_cast<const char*>(record.data() + offset),
                                   static_cast<qsizetype>(width))
            .replace(QChar(0), '.');
    };
    const auto number = [](auto value) { return QString::number(value); };
    const QMap<QString, QString> fields{{"text", text(kText, 6)},
                                        {"fixed", text(kFixed, 4)},
                                        {"u32", number(get<std::uint32_t>(record, kU32))},
                                        {"u16", number(get<std::uint16_t>(record, kU16))},
                                        {"listed16", number(get<std::uint16_t>(record, kListed16))},
                                        {"u8", number(record[kU8])},
                                        {"listed8", number(record[kListed8])},
                                        {"hex32", number(get<std::uint32_t>(record, kHex32))},
                                        {"hex8", number(record[kHex8])},
                                        {"bits", bits(record, kBits, 24)}};
    if (fields.contains(field))
        return fields[field];
    const int element = field.right(1).toInt();
    const std::size_t at = kArray + static_cast<std::size_t>(element) * kStride;
    return QStringLiteral("%1/%2/%3")
        .arg(record[at])
        .arg(get<std::uint32_t>(record, at + 1))
        .arg(bits(record, at + 5, 16));
}

Record loaded(const std::string& content, const schema::Options& options = {})
{
    ProfileFile file;
    file.setContent(content);
    Record record;
    record.fill(0xEE); // every field a row names must be overwritten
    schema::load(file, kRows, record, options);
    return record;
}

std::string saved(const Record& record, std::span<const std::uint8_t> flags,
                  const schema::Options& options = {})
{
    ProfileFile file;
    schema::save(file, kRows, record, flags, options);
    return file.content();
}

// What saving a record with every row present writes (bits in section N).
const char* const kEveryRowSaved =
    "[Head]\r\nversion=200\r\n"
    "[S]\r\ntext=abc\r\nfixed=wxyz\r\nu32=-2\r\nu16=65535\r\n"
    "listed16=\r\nu8=200\r\nlisted8=Three\r\nhex32=ABCDEF01\r\nhex8=F\r\n"
    "[N]\r\nbits=0,9,20\r\n"
    "[A]\r\narr0=Two,30000000,1,11\r\narr1=,0,\r\narr2=One,5,\r\n";

} // namespace

class TestSchema : public QObject
{
    Q_OBJECT

private slots:
    void load_data()
    {
        test::columns<QByteArray, QString, QString>("content", "field", "expected");

        const auto row = [](const char* name, const char* content, const char* field,
                            const char* expected) {
            QTest::newRow(name) << QByteArray("[S]\r\n") + content << QString(field)
                                << QString(expected);
        };
        row("text cut to width - 1", "text=abcdefgh", "text", "abcde.");
        row("text default", "", "text", "dflt..");
        row("fixed text fills width", "fixed=abcdefgh", "fixed", "abcd");
        row("fixed text padded", "fixed=ab", "fixed", "ab..");
        row("u32 negative wraps", "u32=-1", "u32", "4294967295");
        row("u32 sign and leading number", "u32=+12abc", "u32", "12");
        row("u32 no digits", "u32=- 1", "u32", "0");
        row("u32 largest long", "u32=2147483647", "u32", "2147483647");
        row("u32 saturates like a 32-bit long", "u32=2147483648", "u32", "2147483647");
        row("u32 saturates below", "u32=-99999999999", "u32", "2147483648");
        row("u32 default", "", "u32", "7");
        row("u16 keeps low bits", "u16=70000", "u16", "4464");
        row("u16 through list", "listed16=Three", "listed16", "3");
        row("u16 list is case-sensitive", "listed16=three", "listed16", "32768");
        row("u16 list default", "", "listed16", "2");
        row("u8 keeps low byte", "u8=300", "u8", "44");
        row("u8 through list", "listed8=Two", "listed8", "2");
        row("u8 unknown text is 0", "listed8=Four", "listed8", "0");
        row("hex32 with prefix", "hex32=0x1A", "hex32", "26");
        row("hex32 saturates", "hex32=123456789", "hex32", "4294967295");
        row("hex32 negative", "hex32=-2", "hex32", "4294967294");
        row("hex8 keeps low byte", "hex8=1F0", "hex8", "240");
        row("bitmap", "bits=3,0,20,21,-1,x,7", "bits", "0,3,7,20");
        row("bitmap default sets nothing", "", "bits", "");
        row("array numbered from 0", "[A]\r\narr0=Two, \t99x,1,5,12,13", "arr0", "2/99/1,5,12");
        row("empty composite fields take field defaults", "[A]\r\narr1=,,3", "arr1", "1/42/3");
        row("missing composite fields take field defaults", "[A]\r\narr1=Two", "arr1", "2/42/");
        row("missing composite key takes the row default", "[A]\r\narr9=One", "arr2", "3/7/");
        row("unknown composite text is 0", "[A]\r\narr0=two,1", "arr0", "0/1/");
    }

    void load()
    {
        auto [content, field, expected] =
            test::fetch<QByteArray, QString, QString>("content", "field", "expected");

        QCOMPARE(describe(loaded(content.toStdString(), {.section = "S"}), field), expected);
    }

    void save_data()
    {
        test::columns<QByteArray, int, QByteArray>("flags", "firstRow", "expected");
        const QByteArray all = kEveryRowSaved;
        QTest::newRow("everything present") << QByteArray("\1\1\1\1\1", 5) << 0 << all;
        QTest::newRow("second row first")
            << QByteArray("\1\1\1\1\1", 5) << 1 << all.mid(all.indexOf("[S]"));
        QTest::newRow("flags gate rows and elements")
            << QByteArray("\0\0\1\0", 4) << 0
            << all.left(all.indexOf("[N]")) + "[A]\r\narr0=Two,30000000,1,11\r\n";
    }
    void save()
    {
        auto [flags, firstRow, expected] =
            test::fetch<QByteArray, int, QByteArray>("flags", "firstRow", "expected");

        Record record = loaded(kEveryRowSaved, {.section = "N"});
        std::memcpy(record.data() + kText, "abc\0zz", 6); // nothing after the end is saved
        const std::uint16_t unlisted = 4;                 // in no list: written empty
        std::memcpy(record.data() + kListed16, &unlisted, sizeof unlisted);
        record[kArray + kStride] = 0; // in no list: an empty field
        const auto flagBytes = std::span(reinterpret_cast<const std::uint8_t*>(flags.constData()),
                                         static_cast<std::size_t>(flags.size()));
        const std::string content = saved(
            record, flagBytes, {.firstRow = static_cast<std::size_t>(firstRow), .section = "N"});
        QCOMPARE(QByteArray::fromStdString(content), expected);
    }

    // Whatever the record holds, what is saved loads back to a record that saves identically.
    void roundTrip()
    {
        QRandomGenerator random(20261123);
        const std::array<std::uint8_t, 5> flags{1, 1, 1, 1, 1};
        for (int i = 0; i < 200; ++i) {
            Record record;
            for (auto& byte : record)
                byte = static_cast<std::uint8_t>(random.bounded(256));
            // Texts hold what a file line keeps (no line breaks, no blanks at the ends); a
            // composite's listed field holds a listed value (an unlisted one is saved empty and so
            // loads as the field's default).
            static const char kChars[] = "AZaz09._-\0";
            for (std::size_t i = kText; i < kU32; ++i)
                record[i] =
                    static_cast<std::uint8_t>(kChars[random.bounded(int(sizeof kChars - 1))]);
            for (std::size_t e = 0; e < 3; ++e)
                record[kArray + e * kStride] = static_cast<std::uint8_t>(1 + random.bounded(3));
            const std::string first = saved(record, flags);
            const std::string second = saved(loaded(first), flags);
            QCOMPARE(second, first);
        }
    }

    void rowsOutsideTheRecordAreSkipped()
    {
        ProfileFile file;
        file.setContent("[S]\r\nu32=5\r\nhex32=FF\r\n");
        std::array<std::uint8_t, kHex32 + 2> shortRecord{};
        schema::load(file, kRows, shortRecord, {.section = "S"});
        std::uint32_t u32 = 0;
        std::memcpy(&u32, shortRecord.data() + kU32, sizeof u32);
        QCOMPARE(u32, 5u);
        QCOMPARE(shortRecord[kHex32], std::uint8_t{0}); // hex32 does not fit: untouched

        ProfileFile out;
        schema::save(out, kRows, shortRecord, {}, {.section = "S"});
        QVERIFY(!out.contains("S", "hex32"));
        QVERIFY(out.contains("S", "u32"));
    }

    void valueLists()
    {
        // Entries after the end entry do not count; a list without one ends with its span.
        constexpr std::array<ValueText, 4> kEnded{
            {{0, "No"}, {1, "Yes"}, {kValueListEnd, nullptr}, {2, "Hidden"}}};
        constexpr std::array<ValueText, 2> kOpen{{{7, "Seven"}, {255, "Off"}}};

        QCOMPARE(entriesOf(kEnded).size(), std::size_t{2});
        QCOMPARE(entriesOf(kOpen).size(), std::size_t{2});
        QCOMPARE(std::string_view(textOf(kEnded, 1)), std::string_view("Yes"));
        QVERIFY(textOf(kEnded, 2) == nullptr);
        QCOMPARE(valueOf(kEnded, "Hidden"), kValueListEnd);
        QCOMPARE(valueOf(kOpen, "Off"), 255);
        QVERIFY(holds(kOpen, 7));
        QVERIFY(!holds(kOpen, kValueListEnd));
    }
};

QTEST_GUILESS_MAIN(TestSchema)
#include "tst_schema.moc"
