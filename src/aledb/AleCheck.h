#pragma once

// The ALE configuration check: one line of text for every problem of the nets' names, self
// addresses, scanned channels, members and global groups. It changes nothing in the data.

#include "aledb/ale_dbase.h"

#include <string>
#include <string_view>
#include <vector>

namespace koral {

class Notifier;

enum class AleCheckCode
{
    Clear = 0,
    NoNetName = 1,
    NoScannedChannels = 2,
    NoSelfAddress = 3,
    NoNetsConfigured = 4,
    SelfAddressIsNetName = 5,
    NetNameInDirectory = 6,
    SelfAddressInDirectory = 7,
    NoGlobalName = 8,
};

struct AleCheckResult
{
    std::vector<std::string> lines;
    bool someNetConfigured = false;
    bool valid = true; // cleared by every problem found

    // Adds the line of code for net netIndex (from 0); code Clear empties the list. A code
    // outside the table is reported to the operator and adds nothing.
    void add(int netIndex, int code, std::string_view text, int secondNet, Notifier& notifier);
};

// Runs both passes over the nets. globalMembers: whether global groups are checked.
AleCheckResult checkAleConfiguration(const ale_dbase& db, const ale_dbase_global_members& globals,
                                     bool globalMembers, Notifier& notifier);

} // namespace koral
