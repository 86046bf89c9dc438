#include "radiodb/RadioSummary.h"

#include "common/Texts.h"
#include "radiodb/Frequency.h"
#include "radiodb/RadioValueLists.h"

namespace koral {

namespace {

// A value outside its list keeps the grid's template text.
std::string listText(ValueList list, int value, const char* templateText)
{
    const char* found = textOf(list, value);
    return found != nullptr ? found : templateText;
}

} // namespace

RadioSummary RadioSummary::of(const ChannelTable& channels,
                              const std::optional<CcirChannelNumbers>& ccirNumbers)
{
    const std::size_t columns = ccirNumbers ? kColumnCount : kColumnCount - 1;
    RadioSummary summary;
    summary.header.assign(std::begin(text::kSummaryHeaders),
                          std::begin(text::kSummaryHeaders) + static_cast<std::ptrdiff_t>(columns));
    summary.rows.reserve(channels.size());
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const channel& ch = channels[i];
        std::vector<std::string> row{
            std::to_string(channelNumber(static_cast<int>(i))),
            frequencyDisplayText(ch.txFrequency.get()),
            frequencyDisplayText(ch.rxFrequency.get()),
            listText(values::kSummaryPower, ch.power, "MAX"),
            listText(values::kSideband, ch.sideband, "USB"),
            listText(values::kModulation, ch.modulation, "SSB"),
            listText(values::kAgc, ch.agc, "Slow"),
            listText(values::kSummaryBandwidth, ch.bandwidth, "2.7"),
        };
        if (ccirNumbers) {
            const int number = (*ccirNumbers)[i];
            row.push_back(number >= 1 && number <= 500 ? std::to_string(number) : std::string());
        }
        summary.rows.push_back(std::move(row));
    }
    return summary;
}

} // namespace koral
