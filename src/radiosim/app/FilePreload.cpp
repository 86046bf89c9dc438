#include "radiosim/app/FilePreload.h"

#include "aledb/AleFile.h"
#include "aledb/CcirFile.h"
#include "aledb/ale_dbase.h"
#include "common/Texts.h"
#include "koralapi/RadioRecords.h"
#include "radiodb/RssFile.h"
#include "radiodb/dbase.h"

#include <cstring>
#include <filesystem>

namespace koral::radiosim {

namespace {

// The program's records are in host order; the radio keeps its numbers big-endian.
template <typename Record, std::size_t N>
void toRadioOrder(const Record& record, std::array<std::uint8_t, N>& memory, TransferTarget target)
{
    static_assert(sizeof(Record) == N);
    std::memcpy(memory.data(), &record, N);
    convertByteOrder(target, memory);
}

std::string missing(const std::string& path)
{
    return std::filesystem::exists(path) ? std::string()
                                         : text::format(text::kSimFileMissing.data(), path.c_str());
}

std::string problem(const std::string& path, const std::string& error, std::string_view fallback)
{
    return text::format(text::kSimFileProblem.data(), path.c_str(),
                        error.empty() ? std::string(fallback).c_str() : error.c_str());
}

std::string loadRss(const std::string& path, RadioDatabases& db)
{
    RssFile file(path);
    dbase record{};
    bool isb = false;
    if (const int result = file.load(nullptr, &record, &isb); result != RssFile::kOk) {
        return problem(path, file.errorString(), text::kSimNotRssFile);
    }
    toRadioOrder(record, db.radio, TransferTarget::Radio);
    CcirChannelNumbers numbers{};
    if (file.loadCcirChannelNumbers(numbers)) {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            writeU16(db.channelNames, 2 * i, numbers[i]);
        }
    }
    return {};
}

std::string loadAle(const std::string& path, RadioDatabases& db)
{
    AleProgramme programme{};
    std::string error;
    const int result = loadAleFile(path, &programme, nullptr, nullptr, AleSettings{}, true, &error);
    if (result != alefile::kSuccess) {
        return problem(path, error, text::kSimNotAleFile);
    }
    toRadioOrder(programme.database, db.ale, TransferTarget::Ale);
    toRadioOrder(programme.globalMembers, db.globalMembers, TransferTarget::GlobalMembers);
    toRadioOrder(programme.extraOptions, db.extraOptions, TransferTarget::ExtraOptions);
    return {};
}

std::string loadCcr(const std::string& path, RadioDatabases& db)
{
    const CcirFile file(path);
    ccir_dbase record{}; // radio order, as the file's loader hands it over
    CcirState state;
    if (file.load(nullptr, record, state) != CcirFile::kLoaded) {
        return problem(path, file.errorString(), text::kSimNotCcrFile);
    }
    static_assert(sizeof record == RadioDatabases::kCcirSize);
    std::memcpy(db.ccir.data(), &record, sizeof record);
    return {};
}

} // namespace

std::string preloadFiles(const FilePreload& files, RadioDatabases& db)
{
    RadioDatabases loaded = db;
    struct Step
    {
        const std::string& path;
        std::string (*load)(const std::string&, RadioDatabases&);
    };
    const Step steps[] = {{files.rss, loadRss}, {files.ale, loadAle}, {files.ccr, loadCcr}};
    for (const Step& step : steps) {
        if (step.path.empty()) {
            continue;
        }
        std::string error = missing(step.path);
        if (error.empty()) {
            error = step.load(step.path, loaded);
        }
        if (!error.empty()) {
            return error;
        }
    }
    db = loaded;
    return {};
}

} // namespace koral::radiosim
