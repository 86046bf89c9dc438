#include "support/Table.h"

#include "session/RadioBackups.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace koral;
using namespace koral::test;
using namespace std::chrono;

class RadioBackupsTest : public QObject
{
    Q_OBJECT
private slots:
    // Each row saves `saved` sets a minute apart, the ALE programme with every second one.
    void retention_data()
    {
        columns<int, int, int>("keep", "saved", "left");
        QTest::newRow("fewer than kept") << 20 << 3 << 3;
        QTest::newRow("the oldest go") << 4 << 7 << 4;
        QTest::newRow("keep at least one") << 0 << 2 << 1;
    }
    void retention()
    {
        auto [keep, saved, left] = fetch<int, int, int>("keep", "saved", "left");
        QTemporaryDir dir;
        RadioBackups backups(std::filesystem::path(dir.path().toStdString()) / "backups", keep);
        dbase radio{};
        setFieldText(radio.serialNumber, "KR2E004417");
        radio.channelNo(1).rxFrequency.set(7'000'000);
        AleProgramme ale{};
        const auto start = sys_days{2026y / 11 / 23} + 12h;
        std::vector<std::filesystem::path> written;
        for (int i = 0; i < saved; ++i) {
            RadioBackups::Contents contents{.radio = &radio};
            if (i % 2 == 1)
                contents.ale = &ale;
            std::string error;
            const auto path = backups.save(contents, start + minutes(i), error);
            QVERIFY2(path.has_value(), error.c_str());
            QVERIFY(path->filename().string().ends_with("_KR2E004417.rss"));
            written.push_back(*path);
        }
        const std::vector<std::filesystem::path> listed = backups.list();
        QCOMPARE(int(listed.size()), left);
        // Newest first, and they are the newest that were written.
        for (int i = 0; i < left; ++i)
            QCOMPARE(listed[std::size_t(i)], written[std::size_t(saved - 1 - i)]);
        int files = 0;
        for (const auto& entry : std::filesystem::directory_iterator(backups.folder()))
            files += entry.is_regular_file() ? 1 : 0;
        int aleFiles = 0;
        for (const auto& path : listed)
            aleFiles +=
                std::filesystem::exists(std::filesystem::path(path).replace_extension(".ale"));
        QCOMPARE(files, left + aleFiles); // a removed set takes its .ale along
    }

    void sameSecondKeepsBoth()
    {
        QTemporaryDir dir;
        RadioBackups backups(dir.path().toStdString());
        dbase radio{};
        std::string error;
        const auto now = system_clock::now();
        const auto first = backups.save({.radio = &radio}, now, error);
        const auto second = backups.save({.radio = &radio}, now, error);
        QVERIFY(first && second && *first != *second);
        QVERIFY(first->filename().string().ends_with("_unknown.rss"));
        QCOMPARE(backups.list().size(), std::size_t(2));
        QCOMPARE(RadioBackups::label("/b/2026-11-23_14-05-09_KR2E004417-2.rss"),
                 std::string("2026-11-23 14:05:09  KR2E004417-2"));
    }
};

QTEST_GUILESS_MAIN(RadioBackupsTest)
#include "tst_radiobackups.moc"
