#pragma once

// The .ale file: one ALE programme with the radio's identity, as a profile (INI) file.
//
// Sections in the order they are written: "ZOV" (format version), "Wide Information" (the
// radio's identity, from the radio database), "Options", "Directory" ("Address No. 1" to
// "Address No. 100"), "Messages" ("Message No. 0" to "Message No. 9"), "Automatic Dials"
// ("Auto Dial No. 0" to "Auto Dial No. 9", address and message texts), one "Net No. n"
// section per configured net, the extra options again in "Options", and the comment and user
// name in "ZOV". Only configured parts are written; a missing key loads as "nothing".

#include "aledb/ale_dbase.h"

#include <filesystem>
#include <string>

namespace koral {

class ProfileFile;
struct FileInfo;
struct dbase;

namespace alefile {
inline constexpr int kSuccess = 0;
inline constexpr int kWriteFailed = 1;
inline constexpr int kReadFailed = 2;
inline constexpr int kVersionMismatch = 118;
} // namespace alefile

// Writes the programme (normalised on the way; the caller's copy is not changed) into the
// profile in memory. The identity is taken from `radio`'s wide information; info may be null
// (no comment, no user name).
void writeAleProfile(ProfileFile& file, const AleProgramme& programme, const dbase& radio,
                     const FileInfo* info, const AleSettings& settings);

// Reads a profile into the wanted parts (each may be null): the programme (normalised; the
// global member groups stay empty while the feature is not in force), the wide-information
// fields of `radio` (nothing else of it is touched) and the file information (without its
// modification time). Returns kVersionMismatch, touching nothing, when the
// version is checked and is not the program's; kSuccess otherwise.
int readAleProfile(const ProfileFile& file, AleProgramme* programme, dbase* radio, FileInfo* info,
                   const AleSettings& settings, bool skipVersionCheck);

// Save: the file at `path` is replaced as a whole (atomically) by what writeAleProfile writes.
// Returns kSuccess, or kWriteFailed with the reason in *error. On success the modification
// time of *info is refreshed.
int saveAleFile(const std::filesystem::path& path, const AleProgramme& programme,
                const dbase& radio, FileInfo* info, const AleSettings& settings,
                std::string* error = nullptr);

// Load: a missing file loads as all defaults. Returns kSuccess, kVersionMismatch, or
// kReadFailed when the file exists but cannot be read (reason in *error; nothing touched).
int loadAleFile(const std::filesystem::path& path, AleProgramme* programme, dbase* radio,
                FileInfo* info, const AleSettings& settings, bool skipVersionCheck,
                std::string* error = nullptr);

} // namespace koral
