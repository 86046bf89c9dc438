#include "session/MemoryProgramming.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/DatabaseTransfer.h"
#include "session/BaudRate.h"
#include "session/RadioLink.h"

#include <QThread>

#include <cstring>
#include <vector>

namespace koral {

namespace {

constexpr std::size_t kHeadSize = 1270;

std::span<std::uint8_t> bytesOf(dbase& document)
{
    return {reinterpret_cast<std::uint8_t*>(&document), sizeof document};
}

} // namespace

MemoryProgramming::MemoryProgramming(RadioLink& link, Notifier& notifier)
    : m_link(link), m_notifier(notifier)
{}

int MemoryProgramming::writeSection(const dbase& document, std::size_t offset, std::size_t length)
{
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&document);
    std::vector<std::uint8_t> radioOrder(bytes + offset, bytes + offset + length);
    convertByteOrder(TransferTarget::Radio, radioOrder, offset);
    return WriteRADIOMemorySection(m_link.engine(), radioOrder.data(), static_cast<int>(offset),
                                   static_cast<unsigned>(length))
               ? 1
               : 0;
}

int MemoryProgramming::writeChannels(dbase& document,
                                     std::span<const channel, kChannelCount> channels)
{
    std::copy(channels.begin(), channels.end(), document.channels.begin());
    return writeSection(document, offsetof(dbase, channels), sizeof document.channels);
}

int MemoryProgramming::writeGroups(dbase& document, std::span<const Group, kGroupCount> groups)
{
    std::copy(groups.begin(), groups.end(), document.groups.begin());
    return writeSection(document, offsetof(dbase, groups), sizeof document.groups);
}

int MemoryProgramming::fail(bool report, std::string_view message)
{
    if (report)
        m_notifier.show(message);
    return 0;
}

int MemoryProgramming::writeOptions(dbase& document, const Options& options, bool report)
{
    const auto pause = [&] { m_link.waitPumping(m_delayMs / 10); };
    document.radioOptions = options.options;
    if (!writeSection(document, offsetof(dbase, radioOptions), sizeof document.radioOptions))
        return fail(report, text::kRadioOptionsFault);
    if (report)
        pause();
    std::memcpy(bytesOf(document).data(), options.head.data(), kHeadSize);
    if (!writeSection(document, 0, kHeadSize))
        return fail(report, text::kWideInformationFault);
    if (report)
        pause();
    document.accessoryInstalled = options.accessoryInstalled;
    document.tuner = options.tuner;
    if (!writeSection(document, offsetof(dbase, accessoryInstalled), 2))
        return fail(report, text::kExternOptionFault);
    if (!StopRADIOProgramming(m_link.engine()))
        return fail(report, text::kStopProgrammingFault);
    // The radio may now talk at another rate.
    QThread::msleep(100);
    int baud = baudRateOfIndex(options.baudIndex);
    if (baud == 0)
        m_notifier.show(text::kBaudRateIndexIncorrect);
    if (!m_link.changeRadioLink(m_link.settings().commPort, baud))
        return fail(report, text::kUpdateSocketFault);
    return 1;
}

int MemoryProgramming::writeOptionsReportingFaults(dbase& document, const Options& options)
{
    return writeOptions(document, options, true);
}

int MemoryProgramming::programOptions(dbase& document, const Options& options)
{
    if (!StartRADIOProgramming(m_link.engine()))
        return 0;
    return writeOptions(document, options, false);
}

} // namespace koral
