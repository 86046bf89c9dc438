#pragma once

#include "profile/FileInfo.h"
#include "radiodb/dbase.h"

#include <array>
#include <cstdint>
#include <string>

namespace koral {

// What the RSS panel edits: the radio database, the CCIR channel numbers beside it, the ISB
// setting, the file information and the file it came from. It remembers the state it was
// last saved, loaded or read in, so that closing, opening another file or reading the radio
// over an edited database can ask first.
struct RssDocument
{
    using CcirNumbers = std::array<std::uint16_t, kChannelCount>;

    // A new document holds the record an empty .rss file loads as: every channel empty at
    // maximum power on the upper sideband, the options at their defaults.
    RssDocument();

    dbase record{};
    CcirNumbers ccirNumbers{};
    bool ccirPresent = false; // the CCIR channel numbers take part (a CCIR radio or file)
    bool isb = false;
    FileInfo info;
    std::string path; // empty until opened or saved

    // Whether the content differs from the last saved, loaded or read state; the record is
    // compared as the sanitiser sees it, so repairs that saving would make anyway don't count.
    bool isModified() const;
    // The current content becomes the unmodified state.
    void markClean();
    // Nothing an operator would miss: no programmed channel or group, no serial number or
    // radio code (as a new document, or a file of another kind opened as a database).
    bool isEmpty() const;

private:
    dbase m_cleanRecord{};
    CcirNumbers m_cleanCcir{};
    bool m_cleanIsb = false;
    std::string m_cleanComment;
    std::string m_cleanUserName;
};

} // namespace koral
