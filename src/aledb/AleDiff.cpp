#include "aledb/AleDiff.h"

#include "aledb/AleFile.h"
#include "aledb/CcirFile.h"
#include "profile/FileInfo.h"
#include "profile/ProfileDiff.h"
#include "radiodb/dbase.h"

namespace koral {

namespace {

// "Net No. 3" reads "Net 3", as the panel's net list names the nets.
std::string sectionName(std::string_view section)
{
    constexpr std::string_view kNetPrefix = "Net No. ";
    if (section.starts_with(kNetPrefix))
        return "Net " + std::string(section.substr(kNetPrefix.size()));
    return std::string(section);
}

std::vector<std::string> linesOf(const std::vector<ProfileChange>& changes, bool withSection)
{
    std::vector<std::string> lines;
    for (const ProfileChange& change : changes) {
        const std::string name =
            withSection ? sectionName(change.section) + " " + change.key : change.key;
        if (change.key == "Scanned Channels")
            lines.push_back(difftext::membership(name, difftext::numbersOf(change.before),
                                                 difftext::numbersOf(change.after)));
        else
            lines.push_back(difftext::changed(difftext::spaced(name), change.before, change.after));
    }
    return lines;
}

} // namespace

std::vector<std::string> aleDifferences(const AleProgramme& before, const AleProgramme& after,
                                        const AleSettings& settings)
{
    const dbase noIdentity{};
    ProfileFile was;
    ProfileFile is;
    writeAleProfile(was, before, noIdentity, nullptr, settings);
    writeAleProfile(is, after, noIdentity, nullptr, settings);
    return linesOf(profileChanges(was, is), true);
}

std::vector<std::string> ccirDifferences(const ccir_dbase& before, const ccir_dbase& after)
{
    ProfileFile was;
    ProfileFile is;
    was.setContent(CcirFile::content(FileInfo{}, before));
    is.setContent(CcirFile::content(FileInfo{}, after));
    return linesOf(profileChanges(was, is), false);
}

} // namespace koral
