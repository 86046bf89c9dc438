#include "session/BiteResults.h"

#include "common/Texts.h"

#include <algorithm>

namespace koral {

std::string_view biteTestTypeText(BiteTestType type)
{
    switch (type) {
    case BiteTestType::Full:
        return text::kBiteFullTest;
    case BiteTestType::Channel:
        return text::kBiteChannelTest;
    case BiteTestType::LowRf:
        return text::kBiteLowRfTest;
    }
    return {};
}

std::string_view biteSetupHint(BiteTestType type)
{
    switch (type) {
    case BiteTestType::Full:
        return text::kConnectDummyLoad;
    case BiteTestType::Channel:
        return text::kConnectDummyLoadOrAntenna;
    case BiteTestType::LowRf:
        break;
    }
    return {};
}

std::string_view biteItemName(int item)
{
    return item >= 1 && item <= kBiteItemCount ? text::kBiteItems[item - 1] : std::string_view{};
}

std::string_view biteResultText(BiteResult result)
{
    switch (result) {
    case BiteResult::Passed:
        return text::kBitePassed;
    case BiteResult::Failed:
        return text::kBiteFailed;
    case BiteResult::Ignored:
        return text::kBiteIgnored;
    case BiteResult::UnableToPerform:
        return text::kBiteUnableToPerform;
    }
    return {};
}

BiteResult biteResultOfCode(std::uint8_t code)
{
    switch (code) {
    case 0xAA:
        return BiteResult::Passed;
    case 0x55:
        return BiteResult::Failed;
    case 0x3C:
        return BiteResult::UnableToPerform;
    default:
        return BiteResult::Ignored;
    }
}

BiteSummary summarizeBite(std::span<const std::uint8_t> report)
{
    BiteSummary summary;
    for (int item = 1; item <= kBiteItemCount; ++item) {
        const std::size_t index = kBiteFirstResultByte + static_cast<std::size_t>(item) - 1;
        if (index >= report.size())
            break;
        const BiteResult result = biteResultOfCode(report[index]);
        switch (result) {
        case BiteResult::Passed:
            ++summary.passed;
            break;
        case BiteResult::Failed:
            ++summary.failed;
            break;
        case BiteResult::UnableToPerform:
            ++summary.unableToPerform;
            break;
        case BiteResult::Ignored:
            continue;
        }
        summary.rows.push_back({item, result});
    }
    return summary;
}

std::string biteSummaryText(const BiteSummary& summary)
{
    return text::format(text::kBiteSummary.data(), summary.passed, summary.failed,
                        summary.unableToPerform);
}

int biteProgressFromText(std::string_view progressText)
{
    if (progressText.size() <= 3)
        return -1;
    const auto dots = std::count(progressText.begin() + 3, progressText.end(), '.');
    return dots > 1 ? static_cast<int>(3 * dots - 3) : -1;
}

} // namespace koral
