#include "radiosim/SelfTest.h"

#include <algorithm>

namespace koral::radiosim {

namespace {
struct ItemRange
{
    unsigned first;
    unsigned last;
};

// The channel test exercises the synthesiser and the signal path of one channel; the low-RF
// test everything that runs without transmitting at power (no exciter, match, filters or PA).
ItemRange testedItems(SelfTestType type)
{
    switch (type) {
    case SelfTestType::Channel:
        return {16, 31};
    case SelfTestType::LowRf:
        return {1, 29};
    case SelfTestType::Full:
        break;
    }
    return {1, kSelfTestItems};
}

bool listed(const std::vector<unsigned>& items, unsigned item)
{
    return std::find(items.begin(), items.end(), item) != items.end();
}
} // namespace

std::array<std::uint8_t, kSelfTestItems> selfTestResults(SelfTestType type,
                                                         const SelfTestPlan& plan)
{
    const ItemRange range = testedItems(type);
    std::array<std::uint8_t, kSelfTestItems> results{};
    for (unsigned item = range.first; item <= range.last; ++item) {
        std::uint8_t& result = results[item - 1];
        result = listed(plan.failed, item)   ? bite::kFailed
                 : listed(plan.unable, item) ? bite::kUnable
                                             : bite::kPassed;
    }
    return results;
}

std::string selfTestProgressText(unsigned step)
{
    return "BIT" + std::string(std::min(step, kSelfTestProgressSteps), '.');
}

} // namespace koral::radiosim
