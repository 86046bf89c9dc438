#pragma once

#include "session/SessionState.h"

#include <filesystem>

namespace koral {

// CommPort.txt: 8 bytes, the port number and then the baud rate, each a 32-bit little-endian
// integer, with no header. Values are not checked on reading; a bad baud rate surfaces when
// its index is needed.
inline constexpr const char* kCommPortFileName = "CommPort.txt";

// Reads the file in `directory` into port and baud rate; a missing or short file gives
// port 1 at 9600 baud. Always succeeds.
void loadCommPortFile(const std::filesystem::path& directory, LinkSettings& settings);
// Writes the file into settings.workDirectory, truncating it. Returns false when the file
// cannot be written.
bool saveCommPortFile(const LinkSettings& settings);

} // namespace koral
