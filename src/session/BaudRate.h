#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace koral {

class Notifier;

// The four baud rates the radio knows, by the index the radio database and the
// Communication Ports dialog use: 0 = 1200, 1 = 2400, 2 = 4800, 3 = 9600.
inline constexpr std::int32_t kBaudRates[4] = {1200, 2400, 4800, 9600};

// Index of a baud rate; any other rate tells the operator it is taken as 1200 and gives 0.
int baudRateToIndex(std::int32_t baudRate, Notifier& notifier);
// Index of a baud rate, or -1 for a rate the radio does not know.
int findBaudRateIndex(std::int32_t baudRate);
// Baud rate of an index, or 0 for an index outside 0..3.
std::int32_t baudRateOfIndex(int index);

// The rate a command line names (decimal digits, nothing else), when the radio knows it.
std::optional<std::int32_t> parseBaudRate(std::string_view text);
// Why `text` is refused as a baud rate, naming the rates the radio knows.
std::string badBaudRateText(std::string_view text);

} // namespace koral
