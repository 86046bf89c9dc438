#pragma once

// The differences between two profiles, key by key, and the one line a difference is told in.
// The record comparisons (radio database, ALE programme, CCIR database) write each record as
// its file would hold it and compare the files, so a field is named and shown as the file and
// the dialogs name and show it, and a field added to a file is compared without more work.

#include "profile/ProfileFile.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace koral {

struct ProfileChange
{
    std::string section; // as spelt in the profile that has the key (the first when both do)
    std::string key;
    std::string before; // empty when the first profile lacks the key
    std::string after;  // empty when the second profile lacks the key
};

// The keys whose values differ, or that only one profile has: the first profile's keys in its
// order, then those only the second has. A key that is missing reads as an empty value, so a
// missing key and an empty value are no difference. `skip` leaves whole sections out.
std::vector<ProfileChange>
profileChanges(const ProfileFile& before, const ProfileFile& after,
               const std::function<bool(std::string_view section)>& skip = {});

namespace difftext {

// "NAME: BEFORE -> AFTER", an empty value shown as "(none)".
std::string changed(std::string_view name, std::string_view before, std::string_view after);
// "NAME: +3 +4 -7" for two sets of numbers: those only `after` has, then those only `before`
// has, each rising. Empty when the sets are equal.
std::string membership(std::string_view name, const std::vector<int>& before,
                       const std::vector<int>& after);
// The numbers of a comma-separated list ("1,5,9"); other parts are ignored.
std::vector<int> numbersOf(std::string_view list);
// A file name for the eye: "Scan_Rate" reads "Scan Rate".
std::string spaced(std::string_view name);

} // namespace difftext

} // namespace koral
