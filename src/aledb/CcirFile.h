#pragma once

// The .ccr file: one CCIR database as a profile (INI) text file, every key in the section
// "Ccir Option", with the shared file-information header.
//
// The file's numbers are decimal texts of the identities' values. Loading parses them into a
// work copy of the record in host order, as the original program did, and turns that copy
// into the radio's byte order (toRadioOrder) inside load(), just before the record is handed
// to the caller: every ccir_dbase outside this class is in radio order.

#include "aledb/ccir_dbase.h"
#include "profile/FileInfo.h"
#include "profile/ProfileFile.h"
#include "profile/Schema.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace koral {

class CcirFile
{
public:
    static constexpr std::string_view kSection = "Ccir Option";
    static constexpr int kLoaded = 0;
    static constexpr int kReadFailed = 2; // the file exists but cannot be read

    // Reads the file at `path` once (a missing file reads as all defaults).
    explicit CcirFile(std::filesystem::path path);

    // Writes the record and the file information, replacing the file in one rename. Returns
    // 1, or 0 when the file could not be written (errorString() says why; the old file stays).
    // On success info.modificationTime is refreshed.
    int save(FileInfo& info, const ccir_dbase& record);

    // Reads the file into `record` (and `info` when given) and marks in `state` that the CCIR
    // data came from a file. Returns kLoaded, or kReadFailed with nothing changed. A number
    // key that is present but empty leaves that field as it was.
    int load(FileInfo* info, ccir_dbase& record, CcirState& state) const;

    const std::string& errorString() const { return m_error; }

    // The file's text as save() writes it.
    static std::string content(const FileInfo& info, const ccir_dbase& record);

    // The rows of the "Ccir Option" section; they address a record in host order.
    static std::span<const schema::Row> table();

    // The record's numbers between the radio's order and the host's (the rows' view of it).
    static ccir_dbase toHostOrder(const ccir_dbase& record);
    static ccir_dbase toRadioOrder(const ccir_dbase& hostOrder);

private:
    ProfileFile m_file;
    bool m_readable = true;
    std::string m_error;
};

} // namespace koral
