#include "radiodb/WideInformationView.h"

namespace koral {

const std::array<const char*, kOptionSlotCount> WideInformationView::kOptionLabels{
    "High Stability Oscillator",
    "Delete LSB",
    "Noise Blanker",
    "Remote Control",
    "SelCall",
    "Delete ALE",
    "Delete Data",
    "Accessory Stop Scan",
    "Amateure Ferq Restriction",
    "MultyNet Enable",
    "Global ALE",
    "Read Programmed Memory",
    "VP Option Enable",
    "PPS Option Enable",
    "Input Password Enable"};

WideInformationView WideInformationView::of(const dbase& record)
{
    WideInformationView view;
    view.serialNumber = fieldText(record.serialNumber);
    view.radioCode = fieldText(record.radioCode);
    view.softwareVersion = fieldText(record.softwareVersion);
    view.hardwareVersion = fieldText(record.hardwareVersion);
    view.controlHeadSoftwareVersion = fieldText(record.controlHeadSoftwareVersion);
    view.controlHeadHardwareVersion = fieldText(record.controlHeadHardwareVersion);
    for (std::size_t i = 0; i < record.options.size(); ++i) {
        const OptionRecord& slot = record.options[i];
        view.options.push_back({kOptionLabels[i], std::string(fieldText(slot.softwareVersion)),
                                std::string(fieldText(slot.hardwareVersion)),
                                slot.enabled() ? "Enabled" : "Disabled"});
    }
    for (const auto& entry : record.ecn)
        if (!fieldText(entry).empty())
            view.ecn.emplace_back(fieldText(entry));
    for (const auto& entry : record.sp)
        if (!fieldText(entry).empty())
            view.sp.emplace_back(fieldText(entry));
    return view;
}

} // namespace koral
