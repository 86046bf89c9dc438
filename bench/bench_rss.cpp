// Times the radio database file: a load and save of a full database in process, and a whole
// `koralctl normalize` process. Prints the figures; it asserts nothing (a benchmark, not a test).

#include "radiodb/RssFile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

using namespace koral;

namespace {

// Every part of the record in use: 200 channels, five groups, 50 ECN and 6 SP entries, every
// option, and a CCIR number for each channel.
dbase fullDatabase(CcirChannelNumbers& numbers)
{
    dbase db{};
    for (int number = 1; number <= kChannelCount; ++number) {
        channel& ch = db.channelNo(number);
        ch.power = static_cast<std::uint8_t>(2 + number % 4);
        ch.sideband = static_cast<std::uint8_t>(number % 2);
        ch.bandwidth = static_cast<std::uint8_t>(number % 6);
        ch.txFrequency.set(1'600'000u + static_cast<std::uint32_t>(number) * 137'010u);
        ch.rxFrequency.set(1'600'000u + static_cast<std::uint32_t>(number) * 137'020u);
        ch.agc = number % 3 == 0 ? 255 : static_cast<std::uint8_t>(number % 2);
        ch.modulation = static_cast<std::uint8_t>(number % 4);
        numbers[static_cast<std::size_t>(number - 1)] = static_cast<std::uint16_t>(number + 100);
    }
    for (int g = 0; g < kGroupCount; ++g) {
        Group& group = db.groups[static_cast<std::size_t>(g)];
        for (int number = 1 + g; number <= kChannelCount; number += 3)
            group.setMember(number, true);
        group.guardChannel.set(static_cast<std::uint16_t>(1 + g));
    }
    for (int i = 0; i < kEcnCount; ++i)
        setFieldText(db.ecn[static_cast<std::size_t>(i)], "ECN STATION " + std::to_string(i + 1));
    for (int i = 0; i < kSpCount; ++i)
        setFieldText(db.sp[static_cast<std::size_t>(i)], "SP" + std::to_string(1000 + i));
    for (OptionRecord& option : db.options) {
        setFieldText(option.softwareVersion, "1.02");
        setFieldText(option.hardwareVersion, "2.0");
        option.status = 1;
    }
    setFieldText(db.serialNumber, "KR2E000001");
    db.radioOptions.priorityChannel.set(1);
    return db;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void report(const char* what, const std::vector<double>& microseconds)
{
    const double best = *std::min_element(microseconds.begin(), microseconds.end());
    std::printf("%-46s median %9.1f us   best %9.1f us   (%zu runs)\n", what, median(microseconds),
                best, microseconds.size());
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    if (!dir.isValid()) {
        std::fprintf(stderr, "bench_rss: no temporary folder\n");
        return 2;
    }
    const std::string in = dir.filePath("full.rss").toStdString();
    const std::string out = dir.filePath("out.rss").toStdString();

    CcirChannelNumbers numbers{};
    const dbase db = fullDatabase(numbers);
    FileInfo info;
    info.comment = "Benchmark database";
    info.userName = "bench";
    if (RssFile(in).save(info, db, false, &numbers) != RssFile::kOk) {
        std::fprintf(stderr, "bench_rss: cannot write %s\n", in.c_str());
        return 2;
    }

    constexpr int kRuns = 200;
    std::vector<double> roundTrips;
    std::vector<double> inMemory;
    QElapsedTimer timer;
    for (int run = 0; run < kRuns; ++run) {
        timer.start();
        const RssFile source(in);
        FileInfo loadedInfo;
        dbase loaded{};
        bool isb = false;
        CcirChannelNumbers loadedNumbers{};
        source.load(&loadedInfo, &loaded, &isb);
        source.loadCcirChannelNumbers(loadedNumbers);
        RssFile target(out);
        target.save(loadedInfo, loaded, isb, &loadedNumbers);
        roundTrips.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000.0);

        timer.start();
        const std::string text = RssFile::content(loadedInfo, loaded, isb, &loadedNumbers);
        inMemory.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000.0);
    }
    std::printf("full database: 200 channels, 5 groups, 50 ECN entries, CCIR numbers\n");
    report("load + save, in process (target < 1000 us)", roundTrips);
    report("file text built in memory (no disk)", inMemory);

#ifdef KORALCTL_PATH
    constexpr int kProcessRuns = 20;
    std::vector<double> processes;
    for (int run = 0; run < kProcessRuns; ++run) {
        QProcess process;
        timer.start();
        process.start(QStringLiteral(KORALCTL_PATH),
                      {"normalize", QString::fromStdString(in), QString::fromStdString(out)});
        if (!process.waitForFinished(30000) || process.exitCode() != 0) {
            std::fprintf(stderr, "bench_rss: koralctl normalize failed\n");
            return 2;
        }
        processes.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000.0);
    }
    report("koralctl normalize, whole process", processes);
#endif
    return 0;
}
