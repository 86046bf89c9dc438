#include "session/ProgressCaption.h"

#include "common/Notifier.h"
#include "common/Texts.h"

namespace koral {

namespace {

constexpr int kRadioDataBaseSize = 4304;
constexpr int kAleDataBaseSize = 4377;
constexpr int kCcirDataBaseSize = 475;

struct Bound
{
    int below;
    std::string_view section;
};

constexpr Bound kRadioSections[] = {
    {1688, text::kGroupsSection},
    {4288, text::kChannelsSection},
    {4302, text::kRadioOptionsSection},
    {kRadioDataBaseSize, text::kExternalOptionsSection},
};

constexpr Bound kAleSections[] = {
    {1820, text::kAleNetsSection},      {1832, text::kAleOptionsSection},
    {3432, text::kAleDirectorySection}, {3452, text::kAleAutodialsSection},
    {3457, text::kAleProgramWord},      {kAleDataBaseSize, text::kAleMessages},
};

} // namespace

ProgressSection progressSectionAt(int position, bool aleGlobalSupported)
{
    for (const Bound& bound : kRadioSections)
        if (position < bound.below)
            return {text::kRadioDataBase, bound.section};
    const int inAle = position - kRadioDataBaseSize;
    for (const Bound& bound : kAleSections)
        if (inAle < bound.below)
            return {text::kAleDataBase, bound.section};
    if (aleGlobalSupported)
        return {text::kGlobalMemberDataBase, text::kGlobalMemberDataBase};
    if (inAle - kAleDataBaseSize < kCcirDataBaseSize)
        return {text::kCcirDataBase, text::kCcirDataBase};
    return {text::kCcirDataBase, text::kCcirChannelNumber};
}

int progressPosition(int steps, TransferMode mode, bool ccirMode)
{
    return steps + (ccirMode ? 164 : 124) + (mode == TransferMode::Write ? 1269 : 0);
}

std::string progressCaption(TransferMode mode, const ProgressSection& section, Notifier& notifier)
{
    switch (mode) {
    case TransferMode::Read:
        return std::string(text::kReadingPrefix).append(section.section);
    case TransferMode::Write:
        return std::string(text::kWritingPrefix).append(section.section);
    case TransferMode::None:
        break;
    }
    notifier.show(text::kUnknownReadWriteMode);
    return std::string(text::kUnknownReadWriteMode);
}

} // namespace koral
