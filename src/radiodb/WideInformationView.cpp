#include "radiodb/WideInformationView.h"

namespace koral {

const char* WideInformationView::optionLabel(std::size_t slot)
{
    // The options list names the broad-band filter slot after what it enables on the radio.
    if (slot == static_cast<std::size_t>(OptionSlot::BroadBandFilterEnable))
        return "Global ALE";
    return kOptionSlotNames[slot];
}

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
        view.options.push_back({optionLabel(i), std::string(fieldText(slot.softwareVersion)),
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
