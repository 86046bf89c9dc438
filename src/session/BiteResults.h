#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace koral {

// The built-in test's kinds, as the dialog's "Test Type" buttons number them.
enum class BiteTestType
{
    Full = 0,
    Channel = 1,
    LowRf = 2,
};

inline constexpr int kBiteItemCount = 39;
inline constexpr int kBiteProgressMaximum = 12;

enum class BiteResult
{
    Passed = 0,
    Failed = 1,
    Ignored = 2,
    UnableToPerform = 3,
};

struct BiteRow
{
    int item = 0; // 1..39
    BiteResult result = BiteResult::Ignored;
    bool operator==(const BiteRow&) const = default;
};

struct BiteSummary
{
    std::vector<BiteRow> rows;
    int passed = 0;
    int failed = 0;
    int unableToPerform = 0;
};

std::string_view biteTestTypeText(BiteTestType type);
// The set-up the operator must confirm before a test; empty for the low-RF test.
std::string_view biteSetupHint(BiteTestType type);
std::string_view biteItemName(int item);
std::string_view biteResultText(BiteResult result);

// The result of one item from its code in the radio's report.
BiteResult biteResultOfCode(std::uint8_t code);
// In the result report, item i's code is the byte at index 6 + i.
inline constexpr std::size_t kBiteFirstResultByte = 7;

// The rows and counts of a result report (the whole message); ignored items give no row.
BiteSummary summarizeBite(std::span<const std::uint8_t> report);
std::string biteSummaryText(const BiteSummary& summary);

// Progress of a running test from the radio's progress text: the dots from its fourth
// character on; n > 1 dots give 3n - 3, anything less gives no new position (-1).
int biteProgressFromText(std::string_view progressText);

} // namespace koral
