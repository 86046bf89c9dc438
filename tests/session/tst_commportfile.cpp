#include "support/Table.h"

#include "session/CommPortFile.h"

#include <QTemporaryDir>
#include <QtTest>

#include <fstream>

using namespace koral;
using namespace koral::test;

namespace {

std::string fileBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void writeBytes(const std::filesystem::path& path, const QByteArray& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.constData(), bytes.size());
}

} // namespace

class CommPortFileTest : public QObject
{
    Q_OBJECT
private slots:
    void readsTwoLittleEndianIntegers_data()
    {
        columns<QByteArray, int, int>("bytes", "port", "baud");
        QTest::newRow("port 3 at 2400") << QByteArray::fromHex("0300000060090000") << 3 << 2400;
        QTest::newRow("unchecked 19200") << QByteArray::fromHex("01000000004b0000") << 1 << 19200;
        QTest::newRow("extra bytes ignored")
            << QByteArray::fromHex("02000000b0040000ffff") << 2 << 1200;
        QTest::newRow("short file is unreadable")
            << QByteArray::fromHex("03000000600900") << 1 << 9600;
        QTest::newRow("no file") << QByteArray() << 1 << 9600;
    }
    void readsTwoLittleEndianIntegers()
    {
        auto [bytes, port, baud] = fetch<QByteArray, int, int>("bytes", "port", "baud");
        QTemporaryDir dir;
        const std::filesystem::path directory = dir.path().toStdString();
        if (!bytes.isNull())
            writeBytes(directory / "CommPort.txt", bytes);
        LinkSettings settings{7, 1200, {}};
        loadCommPortFile(directory, settings);
        QCOMPARE(settings.commPort, port);
        QCOMPARE(settings.baudRate, baud);
        QCOMPARE(settings.workDirectory, directory);
    }

    void savesEightBytesIntoTheStartDirectory()
    {
        QTemporaryDir startDir;
        QTemporaryDir otherDir;
        const std::filesystem::path start = startDir.path().toStdString();
        const auto previous = std::filesystem::current_path();
        std::filesystem::current_path(start);
        LinkSettings settings;
        loadCommPortFile(std::filesystem::current_path(), settings);
        // The operator browses elsewhere in a file dialog before the program ends.
        std::filesystem::current_path(otherDir.path().toStdString());
        QVERIFY(saveCommPortFile(settings));
        std::filesystem::current_path(previous);
        QCOMPARE(fileBytes(start / "CommPort.txt"),
                 std::string("\x01\x00\x00\x00\x80\x25\x00\x00", 8));
        QVERIFY(!std::filesystem::exists(std::filesystem::path(otherDir.path().toStdString()) /
                                         "CommPort.txt"));
    }

    void saveTruncatesAndRoundTrips()
    {
        QTemporaryDir dir;
        const std::filesystem::path directory = dir.path().toStdString();
        writeBytes(directory / "CommPort.txt", QByteArray(32, '\x7f'));
        LinkSettings settings{4, -5, directory};
        QVERIFY(saveCommPortFile(settings));
        QCOMPARE(std::filesystem::file_size(directory / "CommPort.txt"), std::uintmax_t(8));
        LinkSettings loaded;
        loadCommPortFile(directory, loaded);
        QCOMPARE(loaded.commPort, 4);
        QCOMPARE(loaded.baudRate, -5);
        settings.workDirectory = "/nonexistent/koral/dir";
        QVERIFY(!saveCommPortFile(settings));
    }
};

QTEST_GUILESS_MAIN(CommPortFileTest)
#include "tst_commportfile.moc"
