#pragma once

#include "aledb/ccir_dbase.h"
#include "profile/FileInfo.h"

#include <string>

namespace koral {

// What the CCIR panel edits: the CCIR database (in the radio's byte order), the file
// information and the file it came from; the state it was last saved, opened or read in; and
// whether it holds what the operator has seen (read from a radio or opened from a file), the
// only kind of CCIR database that is written to a radio.
struct CcirDocument
{
    // A new document holds what an empty .ccr file loads as.
    CcirDocument();

    ccir_dbase record{};
    FileInfo info;
    std::string path; // empty until opened or saved
    bool known = false;

    bool isModified() const;
    void markClean();

private:
    ccir_dbase m_clean{};
    std::string m_cleanComment;
    std::string m_cleanUserName;
};

} // namespace koral
