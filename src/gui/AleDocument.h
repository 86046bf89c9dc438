#pragma once

#include "aledb/ale_dbase.h"
#include "profile/FileInfo.h"
#include "radiodb/dbase.h"

#include <string>

namespace koral {

// What the RSS ALE panel edits: the ALE programme, the radio identity an .ale file carries,
// the file information and the file it came from. It remembers the state it was last saved,
// opened or read in, so that losing edits can be asked about, and which of its records hold
// what the operator has seen, so that a programme nobody read or opened never reaches a radio.
struct AleDocument
{
    // The records that came from a radio or a file; the others are zeros.
    struct Known
    {
        bool database = false;
        bool globalMembers = false;
        bool extraOptions = false;
        bool any() const { return database || globalMembers || extraOptions; }
    };

    AleProgramme programme;
    dbase identity{}; // only its wide-information fields are used
    FileInfo info;
    std::string path; // empty until opened or saved
    Known known;

    bool isModified() const;
    void markClean();

private:
    AleProgramme m_clean;
    std::string m_cleanComment;
    std::string m_cleanUserName;
};

} // namespace koral
