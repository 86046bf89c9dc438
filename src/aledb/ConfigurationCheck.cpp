#include "aledb/ConfigurationCheck.h"

#include "radiodb/RssCheck.h"

namespace koral {

std::vector<std::string> ConfigurationCheckResult::lines() const
{
    std::vector<std::string> all = radioLines;
    all.insert(all.end(), ale.lines.begin(), ale.lines.end());
    return all;
}

std::array<AleNetChannels, kAleNetCount> aleNetChannels(const ale_dbase& db)
{
    std::array<AleNetChannels, kAleNetCount> nets{};
    for (int n = 0; n < kAleNetCount; ++n) {
        nets[n].allCallChannel = db.nets[n].allCallChannel.get();
        for (int channel = 1; channel <= kChannelCount; ++channel)
            nets[n].scanned[static_cast<std::size_t>(channel - 1)] = db.nets[n].isScanned(channel);
    }
    return nets;
}

ConfigurationCheckResult runConfigurationCheck(const dbase& radio, const AleProgramme* programme,
                                               const AleSettings& settings, Notifier& notifier)
{
    ConfigurationCheckResult result;
    if (!programme) {
        result.radioLines = checkRadioConfiguration(radio).lines;
        return result;
    }
    const auto nets = aleNetChannels(programme->database);
    result.radioLines = checkRadioConfiguration(radio, nets).lines;
    result.ale = checkAleConfiguration(programme->database, programme->globalMembers,
                                       settings.globalMembers, notifier);
    return result;
}

} // namespace koral
