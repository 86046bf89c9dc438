#pragma once

// The .rss file: one radio database as a profile (INI) text file, with the shared
// file-information header and the CCIR channel numbers of the programmed channels. One schema
// table drives saving and loading (see table()).
//
// Saving builds the whole file in memory and replaces the file on disk in one rename, so a
// saved file holds exactly what was written and a failed save leaves the old file intact.

#include "profile/FileInfo.h"
#include "profile/ProfileFile.h"
#include "profile/Schema.h"
#include "radiodb/ChannelTables.h"
#include "radiodb/dbase.h"

#include <filesystem>
#include <span>
#include <string>

namespace koral {

class RssFile
{
public:
    // Results of save() and load().
    static constexpr int kOk = 0;
    static constexpr int kWriteFailed = 1;       // nothing written; see errorString()
    static constexpr int kReadFailed = 2;        // the file exists but cannot be read
    static constexpr int kVersionMismatch = 118; // checked load of another format version

    static constexpr std::string_view kCcirSection = "Ccir Channel Number";

    // Reads the file at `path` once (a missing file reads as all defaults).
    explicit RssFile(std::filesystem::path path);

    // Writes `record` (sanitised for `channelCount` channels on a copy first), the ISB setting,
    // the file information and, when `ccirNumbers` is given, the CCIR channel numbers.
    // Returns kOk, or kWriteFailed when the file could not be written (errorString() says
    // why). On success the file is re-read and info.modificationTime refreshed.
    int save(FileInfo& info, const dbase& record, bool isb,
             const CcirChannelNumbers* ccirNumbers = nullptr, int channelCount = kChannelCount);

    // Reads the file into whatever is wanted (null pointers are skipped). With `checkVersion`
    // a file of another format version returns kVersionMismatch and changes nothing. The
    // record comes back sanitised for `channelCount` channels; the file information gets the
    // file's modification time. kReadFailed changes nothing either.
    int load(FileInfo* info, dbase* record, bool* isb, bool checkVersion = false,
             int channelCount = kChannelCount) const;

    // The "Ccir Channel Number" section alone. Saving replaces the section in the file on disk
    // with one key per channel whose two frequencies are both set; it returns 1, or 0 when
    // the file could not be written. Loading fills all 200 numbers (missing keys give 0) and
    // answers whether any number was found.
    int saveCcirChannelNumbers(std::span<const channel, kChannelCount> channels,
                               const CcirChannelNumbers& numbers);
    bool loadCcirChannelNumbers(CcirChannelNumbers& numbers) const;

    // Whether the file has any section that only a radio database file has. Any text file
    // loads (as all defaults where keys are missing), so this tells a radio database from a
    // file of another kind before it replaces one.
    bool looksLikeRadioDatabase() const;

    // Why the file could not be read, or the last save failed; empty otherwise.
    const std::string& errorString() const { return m_error; }

    // The file's text as save() writes it. Printing puts the CCIR channel numbers first.
    static std::string content(const FileInfo& info, const dbase& record, bool isb,
                               const CcirChannelNumbers* ccirNumbers,
                               int channelCount = kChannelCount, bool ccirFirst = false);

    // The rows of the file in the order they are written; row 0 is the version key, which
    // saving writes on its own, first.
    static std::span<const schema::Row> table();

private:
    ProfileFile m_file;
    bool m_readable = true;
    std::string m_error;
};

} // namespace koral
