// Times the ALE programme file with every part in use: 20 nets, 100 addresses, 10 messages,
// 10 automatic dials, global member groups. Prints the figures; it asserts nothing.

#include "aledb/AleFile.h"
#include "aledb/AleText.h"
#include "profile/FileInfo.h"
#include "profile/ProfileFile.h"
#include "radiodb/dbase.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

using namespace koral;

namespace {

AleProgramme fullProgramme()
{
    AleProgramme p;
    ale_dbase& db = p.database;
    for (int i = 0; i < kAleDirectorySize; ++i)
        setFieldText(db.directory[i], "STATION" + std::to_string(i + 1));
    for (int i = 0; i < kAleMessageCount; ++i)
        setFieldText(db.messages[i], "PREPARED MESSAGE NUMBER " + std::to_string(i));
    for (int i = 0; i < kAleAutoDialCount; ++i)
        db.autoDials[i] = {static_cast<std::uint8_t>(i * 7), static_cast<std::uint8_t>(i)};
    for (int n = 0; n < kAleNetCount; ++n) {
        ale_net& net = db.nets[n];
        setFieldText(net.name, "NET" + std::to_string(n + 1));
        setFieldText(net.selfAddress, "SELF" + std::to_string(n + 1));
        for (int channel = 1 + n; channel <= 200; channel += 9)
            net.setScanned(channel, true);
        net.allCallChannel.set(static_cast<std::uint16_t>(1 + n));
        net.allCall = 3;
        net.scanRate = 5;
        net.sounding = 60;
        net.occupancyCheck = 5;
        for (int m = 0; m < kAleMemberSlots; ++m)
            net.members[m] = static_cast<std::uint8_t>((n * 5 + m) % kAleDirectorySize);
        auto& group = p.globalMembers.nets[n];
        setFieldText(group.name, "GROUP" + std::to_string(n + 1));
        for (int g = 0; g < kAleGlobalMemberSlots; ++g)
            group.members[g] = static_cast<std::uint8_t>((n + g) % 100 | (g % 4 == 0 ? 0x80 : 0));
    }
    p.extraOptions = {1, 0, 1, 0};
    return p;
}

void report(const char* what, std::vector<double> microseconds)
{
    std::sort(microseconds.begin(), microseconds.end());
    std::printf("%-44s median %9.1f us   90%% %9.1f us   (%zu runs)\n", what,
                microseconds[microseconds.size() / 2], microseconds[microseconds.size() * 9 / 10],
                microseconds.size());
}

} // namespace

int main()
{
    QTemporaryDir dir;
    if (!dir.isValid()) {
        std::fprintf(stderr, "bench_ale: no temporary folder\n");
        return 2;
    }
    const std::string path = dir.filePath("full.ale").toStdString();
    const AleProgramme programme = fullProgramme();
    const dbase radio{};
    FileInfo info{"Benchmark programme", "bench", 0};

    constexpr int kRuns = 200;
    std::vector<double> writes, reads, onDisk;
    QElapsedTimer timer;
    for (int run = 0; run < kRuns; ++run) {
        timer.start();
        ProfileFile file;
        writeAleProfile(file, programme, radio, &info, {});
        const std::string text = file.content();
        writes.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000.0);

        timer.start();
        ProfileFile parsed;
        parsed.setContent(text);
        AleProgramme loaded;
        readAleProfile(parsed, &loaded, nullptr, nullptr, {}, false);
        reads.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000.0);

        timer.start();
        if (saveAleFile(path, programme, radio, &info, {}) != alefile::kSuccess ||
            loadAleFile(path, &loaded, nullptr, nullptr, {}, false) != alefile::kSuccess) {
            std::fprintf(stderr, "bench_ale: cannot write or read %s\n", path.c_str());
            return 2;
        }
        onDisk.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000.0);
    }
    std::printf("full ALE programme: 20 nets, 100 addresses, 10 messages, 10 dials, globals\n");
    report("save, file text built in memory", writes);
    report("load from the file text in memory", reads);
    report("save + load through the disk", onDisk);
    return 0;
}
