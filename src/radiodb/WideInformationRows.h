#pragma once

// The radio's identity as the .rss and .ale files both carry it: section "Wide Information",
// offsets in the radio database record (`dbase`).

#include "profile/Schema.h"
#include "radiodb/dbase.h"

#include <array>
#include <cstddef>

namespace koral {

namespace detail {
constexpr schema::Row wideInformationRow(const char* key, std::size_t offset, std::size_t width)
{
    return {.section = "Wide Information",
            .key = key,
            .flag = schema::kAlways,
            .type = schema::Type::FixedText,
            .offset = offset,
            .width = width};
}
} // namespace detail

inline constexpr std::array kWideInformationRows{
    detail::wideInformationRow("Serial_Number", offsetof(dbase, serialNumber), 16),
    detail::wideInformationRow("Radio_Code", offsetof(dbase, radioCode), 16),
    detail::wideInformationRow("Software_Version", offsetof(dbase, softwareVersion), 8),
    detail::wideInformationRow("Hardware_Version", offsetof(dbase, hardwareVersion), 8),
    detail::wideInformationRow("Control_Head_Software_Version",
                               offsetof(dbase, controlHeadSoftwareVersion), 8),
    detail::wideInformationRow("Control_Head_Hardware_Version",
                               offsetof(dbase, controlHeadHardwareVersion), 8),
};

} // namespace koral
