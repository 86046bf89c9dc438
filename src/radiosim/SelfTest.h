#pragma once

#include "radiosim/RadioEvent.h"

#include <array>
#include <cstdint>
#include <string>

namespace koral::radiosim {

inline constexpr unsigned kSelfTestItems = 39;
inline constexpr unsigned kSelfTestProgressSteps = 5;

namespace bite {
inline constexpr std::uint8_t kPassed = 0xAA;
inline constexpr std::uint8_t kFailed = 0x55;
inline constexpr std::uint8_t kUnable = 0x3C;
inline constexpr std::uint8_t kNotTested = 0x00;
} // namespace bite

// The result byte of items 1..39 (index 0 is item 1) for a test of the given type: items the
// type does not exercise are not reported, the rest pass unless the plan says otherwise.
std::array<std::uint8_t, kSelfTestItems> selfTestResults(SelfTestType type,
                                                         const SelfTestPlan& plan);

// The progress text after `step` of kSelfTestProgressSteps steps: "BIT" and one dot per step.
std::string selfTestProgressText(unsigned step);

} // namespace koral::radiosim
