#pragma once

// The value lists of every enumerated field of the radio database. The dialogs, the .rss file
// and the print-out all take a value's text from here, so a text is never formatted twice.

#include "profile/ValueList.h"

#include <array>

namespace koral::values {

inline constexpr ValueText kEnd{kValueListEnd, nullptr};

// Transmit power of a channel and the data power level of the radio options.
inline constexpr std::array<ValueText, 5> kPower{
    {{2, "Low"}, {3, "Medium"}, {4, "High"}, {5, "Max"}, kEnd}};
inline constexpr std::array<ValueText, 3> kSideband{{{0, "LSB"}, {1, "USB"}, kEnd}};
inline constexpr std::array<ValueText, 7> kBandwidth{
    {{0, "2700"}, {1, "3300"}, {2, "LSM"}, {3, "CW"}, {4, "3000"}, {5, "2100"}, kEnd}};
inline constexpr std::array<ValueText, 4> kAgc{{{0, "Slow"}, {1, "Fast"}, {255, "Off"}, kEnd}};
inline constexpr std::array<ValueText, 5> kModulation{
    {{0, "SSB"}, {1, "PLT"}, {2, "AME"}, {3, "ISB"}, kEnd}};

inline constexpr std::array<ValueText, 5> kLanguage{
    {{0, "ENGLISH"}, {1, "FRENCH"}, {2, "SPANISH"}, {3, "BAHASA"}, kEnd}};
inline constexpr std::array<ValueText, 3> kOptionStatus{{{0, "Disabled"}, {1, "Enabled"}, kEnd}};
inline constexpr std::array<ValueText, 5> kAccessoryInstalled{
    {{0, "None"}, {1, "1Kwatt Amplifier"}, {2, "Accessory1"}, {3, "Accessory2"}, kEnd}};
// Tuner, side tones, beeps, noise blanker and the ISB setting.
inline constexpr std::array<ValueText, 3> kNoYes{{{0, "No"}, {1, "Yes"}, kEnd}};

inline constexpr std::array<ValueText, 3> kCwPttHold{{{15, "150 mSec"}, {50, "500 mSec"}, kEnd}};
inline constexpr std::array<ValueText, 6> kScanRate{
    {{1, "1 Ch/Sec"}, {2, "2 Ch/Sec"}, {3, "3 Ch/Sec"}, {4, "4 Ch/Sec"}, {5, "5 Ch/Sec"}, kEnd}};
inline constexpr std::array<ValueText, 3> kAlertTone{{{0, "Low"}, {1, "High"}, kEnd}};
inline constexpr std::array<ValueText, 11> kAlternateDisplayTime{{{1, "1 Sec"},
                                                                  {2, "2 Sec"},
                                                                  {3, "3 Sec"},
                                                                  {4, "4 Sec"},
                                                                  {5, "5 Sec"},
                                                                  {6, "6 Sec"},
                                                                  {7, "7 Sec"},
                                                                  {8, "8 Sec"},
                                                                  {9, "9 Sec"},
                                                                  {10, "10 Sec"},
                                                                  kEnd}};
inline constexpr std::array<ValueText, 3> kFrequencyDisplay{{{0, "Hide"}, {1, "View"}, kEnd}};
inline constexpr std::array<ValueText, 5> kBaudRate{
    {{0, "1200"}, {1, "2400"}, {2, "4800"}, {3, "9600"}, kEnd}};

// The configuration summary's short forms of power and bandwidth.
inline constexpr std::array<ValueText, 5> kSummaryPower{
    {{2, "LOW"}, {3, "MED"}, {4, "HIGH"}, {5, "MAX"}, kEnd}};
inline constexpr std::array<ValueText, 7> kSummaryBandwidth{
    {{0, "2.7"}, {1, "3.3"}, {2, "LSM"}, {3, "CW "}, {4, "3.0"}, {5, "2.1"}, kEnd}};

} // namespace koral::values
