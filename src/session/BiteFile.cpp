#include "session/BiteFile.h"

#include "common/Texts.h"
#include "profile/ProfileFile.h"
#include "profile/Schema.h"
#include "radiodb/ProgrammedFlags.h"
#include "radiodb/RadioValueLists.h"
#include "radiodb/dbase.h"

#include <cstddef>

namespace koral {

namespace {

using schema::Field;
using schema::kAlways;
using schema::Row;
using schema::Type;

constexpr const char* kWide = "Wide Information";
constexpr const char* kOptions = "Options";

constexpr Field kOptionFields[] = {
    {Type::FixedText, offsetof(OptionRecord, softwareVersion), 8, ""},
    {Type::FixedText, offsetof(OptionRecord, hardwareVersion), 8, ""},
    {Type::U8, offsetof(OptionRecord, status), 1, "Disable", values::kOptionStatus},
};

constexpr std::size_t optionOffset(OptionSlot slot)
{
    return offsetof(dbase, options) + static_cast<std::size_t>(slot) * sizeof(OptionRecord);
}

// The software version heads the table but is never written: the engine is started at the
// second row, which is how these files have always come out.
constexpr Row kBiteRows[] = {
    {kWide, "Software_Version", "", kAlways, Type::FixedText, offsetof(dbase, softwareVersion), 8},
    {kWide, "Serial_Number", "", kAlways, Type::FixedText, offsetof(dbase, serialNumber), 16},
    {kWide, "Radio_Code", "", kAlways, Type::FixedText, offsetof(dbase, radioCode), 16},
    {kWide, "Hardware_Version", "", kAlways, Type::FixedText, offsetof(dbase, hardwareVersion), 8},
    {kWide, "Control_Head_Software_Version", "", kAlways, Type::FixedText,
     offsetof(dbase, controlHeadSoftwareVersion), 8},
    {kWide, "Control_Head_Hardware_Version", "", kAlways, Type::FixedText,
     offsetof(dbase, controlHeadHardwareVersion), 8},
    {kOptions, kOptionSlotNames[0], ",,Disable", kAlways, Type::Composite,
     optionOffset(OptionSlot::HighStabilityOscillator), 0, 0, 0, 1, kOptionFields},
    {kOptions, kOptionSlotNames[1], ",,Disable", kAlways, Type::Composite,
     optionOffset(OptionSlot::DeleteLsb), 0, 0, 0, 1, kOptionFields},
    {kWide, "ECN", "", ProgrammedFlags::kFirstEcn, Type::FixedText, offsetof(dbase, ecn), 16,
     kEcnCount, 16},
    {kWide, "SP", "", ProgrammedFlags::kFirstSp, Type::FixedText, offsetof(dbase, sp), 16, kSpCount,
     16},
};

} // namespace

bool saveBiteFile(const std::filesystem::path& file, BiteTestType type, const dbase& radio,
                  const BiteSummary& results, std::string* error)
{
    ProfileFile profile;
    profile.write(text::kBiteSection, "Test", biteTestTypeText(type));
    const ProgrammedFlags flags = ProgrammedFlags::of(radio);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&radio);
    schema::save(profile, kBiteRows, std::span(bytes, sizeof radio), flags.bytes,
                 schema::Options{1, {}});
    for (const BiteRow& row : results.rows)
        profile.write(text::kBiteSection, biteItemName(row.item), biteResultText(row.result));
    if (profile.saveAs(file))
        return true;
    if (error)
        *error = profile.errorString();
    return false;
}

} // namespace koral
