#pragma once

// The value lists of the ALE database's enumerated fields, shared by the .ale file, the
// dialogs and the print-out.

#include "profile/ValueList.h"

#include <array>

namespace koral::alevalues {

inline constexpr ValueText kEnd{kValueListEnd, nullptr};

inline constexpr std::array<ValueText, 6> kScanRate{
    {{1, "1 Ch/Sec"}, {2, "2 Ch/Sec"}, {3, "3 Ch/Sec"}, {4, "4 Ch/Sec"}, {5, "5 Ch/Sec"}, kEnd}};
inline constexpr std::array<ValueText, 22> kTuneTime{{{0, "No Tune Time"}, {1, "1 Sec"},
                                                      {2, "2 Sec"},        {3, "3 Sec"},
                                                      {4, "4 Sec"},        {5, "5 Sec"},
                                                      {6, "6 Sec"},        {7, "7 Sec"},
                                                      {8, "8 Sec"},        {9, "9 Sec"},
                                                      {10, "10 Sec"},      {11, "11 Sec"},
                                                      {12, "12 Sec"},      {13, "13 Sec"},
                                                      {14, "14 Sec"},      {15, "15 Sec"},
                                                      {16, "16 Sec"},      {17, "17 Sec"},
                                                      {18, "18 Sec"},      {19, "19 Sec"},
                                                      {20, "20 Sec"},      kEnd}};
inline constexpr std::array<ValueText, 3> kMasterSlave{{{0, "Master"}, {1, "Slave"}, kEnd}};
// The byte is inverted on purpose: 0 means the net is silent.
inline constexpr std::array<ValueText, 3> kSilent{{{1, "No"}, {0, "Yes"}, kEnd}};
inline constexpr std::array<ValueText, 3> kNoYes{{{0, "No"}, {1, "Yes"}, kEnd}};
inline constexpr std::array<ValueText, 5> kAllCall{
    {{0, ""}, {1, "Send"}, {2, "Receive"}, {3, "Send and Receive"}, kEnd}};
inline constexpr std::array<ValueText, 6> kSounding{{{0, "Manual"},
                                                     {30, "Auto.-30 Min"},
                                                     {60, "Auto.-60 Min"},
                                                     {90, "Auto.-90 Min"},
                                                     {120, "Auto.-120 Min"},
                                                     kEnd}};
inline constexpr std::array<ValueText, 30> kOccupancyCheck{
    {{0, "Off"},      {3, "300 ms"},   {4, "400 ms"},   {5, "500 ms"},   {6, "600 ms"},
     {7, "700 ms"},   {8, "800 ms"},   {9, "900 ms"},   {10, "1000 ms"}, {11, "1100 ms"},
     {12, "1200 ms"}, {13, "1300 ms"}, {14, "1400 ms"}, {15, "1500 ms"}, {16, "1600 ms"},
     {17, "1700 ms"}, {18, "1800 ms"}, {19, "1900 ms"}, {20, "2000 ms"}, {21, "2100 ms"},
     {22, "2200 ms"}, {23, "2300 ms"}, {24, "2400 ms"}, {25, "2500 ms"}, {26, "2600 ms"},
     {27, "2700 ms"}, {28, "2800 ms"}, {29, "2900 ms"}, {30, "3000 ms"}, kEnd}};
inline constexpr std::array<ValueText, 12> kPttTimeout{{{0, "No Timeout"},
                                                        {1, "1 Min"},
                                                        {2, "2 Min"},
                                                        {3, "3 Min"},
                                                        {4, "4 Min"},
                                                        {5, "5 Min"},
                                                        {6, "6 Min"},
                                                        {7, "7 Min"},
                                                        {8, "8 Min"},
                                                        {9, "9 Min"},
                                                        {10, "10 Min"},
                                                        kEnd}};
inline constexpr std::array<ValueText, 4> kAcceptLinkTimeout{{{0, "0"}, {1, "1"}, {2, "2"}, kEnd}};

namespace detail {

struct NumberTexts
{
    std::array<std::array<char, 4>, 256> text{};
};

constexpr NumberTexts makeNumberTexts()
{
    NumberTexts n;
    for (int value = 0; value < 256; ++value) {
        auto& t = n.text[static_cast<std::size_t>(value)];
        std::size_t i = 0;
        if (value >= 100)
            t[i++] = static_cast<char>('0' + value / 100);
        if (value >= 10)
            t[i++] = static_cast<char>('0' + value / 10 % 10);
        t[i] = static_cast<char>('0' + value % 10);
    }
    return n;
}

inline constexpr NumberTexts kNumberTexts = makeNumberTexts();

constexpr std::array<ValueText, 257> makeMaxChannel()
{
    std::array<ValueText, 257> list{};
    list[0] = {0, "Auto"};
    for (int value = 1; value < 256; ++value)
        list[static_cast<std::size_t>(value)] = {
            value, kNumberTexts.text[static_cast<std::size_t>(value)].data()};
    list[256] = kEnd;
    return list;
}

} // namespace detail

// The highest channel the radio scans: "Auto" for 0, otherwise the number.
inline constexpr std::array<ValueText, 257> kMaxChannel = detail::makeMaxChannel();

} // namespace koral::alevalues
