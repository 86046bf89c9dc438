#pragma once

// What reached the built-in virtual radio, as the program's records: a window's tests write
// through the window and compare the radio's memory with the window's document.

#include "aledb/ale_dbase.h"
#include "aledb/ccir_dbase.h"
#include "koralapi/RadioRecords.h"
#include "radiodb/RadioSanitiser.h"
#include "radiodb/dbase.h"
#include "radiosim/BuiltInRadio.h"
#include "radiosim/VirtualRadio.h"

#include <QString>
#include <QThread>

#include <atomic>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <utility>

namespace koral::test {

class VirtualRadioMemory
{
public:
    // Installs the built-in radio (unpaced, its timed activities `stepMs` apart when given)
    // and keeps hold of each radio the port creates.
    void install(int stepMs = 0)
    {
        radiosim::BuiltInRadioOptions options;
        options.paced = false;
        options.onCreated = [this, stepMs](radiosim::VirtualRadio& radio) {
            if (stepMs > 0)
                radio.setStepInterval(std::chrono::milliseconds(stepMs));
            m_radio = &radio;
        };
        radiosim::installBuiltInRadio(options);
    }

    // Runs `act` on the radio in its own thread and waits for it.
    void onRadio(const std::function<void(radiosim::VirtualRadio&)>& act) const
    {
        radiosim::VirtualRadio* radio = m_radio.load();
        if (radio->thread() == QThread::currentThread())
            act(*radio);
        else
            QMetaObject::invokeMethod(
                radio, [&] { act(*radio); }, Qt::BlockingQueuedConnection);
    }

    // The radio database the radio holds, in host order.
    dbase radioRecord() const
    {
        return recordOf<dbase>(TransferTarget::Radio, &radiosim::RadioDatabases::radio);
    }

    // The first part of the radio's database that differs from `window` (as a write sends it:
    // sanitised), or an empty text when the radio holds exactly what the window shows.
    QString differenceFrom(const dbase& window) const
    {
        dbase expected = window;
        sanitise(expected);
        const dbase radio = radioRecord();
        for (int c = 1; c <= kChannelCount; ++c)
            if (differs(radio.channelNo(c), expected.channelNo(c)))
                return QStringLiteral("channel %1").arg(c);
        for (std::size_t g = 0; g < radio.groups.size(); ++g)
            if (differs(radio.groups[g], expected.groups[g]))
                return QStringLiteral("group %1").arg(QChar('A' + int(g)));
        return firstOf({{"radio options", differs(radio.radioOptions, expected.radioOptions)},
                        {"identity or option slots", differs(radio, expected)}});
    }

    // The ALE programme the radio holds, in the program's order.
    ale_dbase aleRecord() const
    {
        return recordOf<ale_dbase>(TransferTarget::Ale, &radiosim::RadioDatabases::ale);
    }

    // The first part of the radio's ALE programme that differs from `window`, or an empty
    // text when the radio holds exactly what the window shows.
    QString differenceFrom(const ale_dbase& window) const
    {
        const ale_dbase radio = aleRecord();
        for (int n = 0; n < kAleNetCount; ++n)
            if (differs(radio.nets[std::size_t(n)], window.nets[std::size_t(n)]))
                return QStringLiteral("net %1").arg(n + 1);
        return firstOf({{"directory", differs(radio.directory, window.directory)},
                        {"messages", differs(radio.messages, window.messages)},
                        {"automatic dials", differs(radio.autoDials, window.autoDials)},
                        {"options or reserved bytes", differs(radio, window)}});
    }

    // The CCIR database the radio holds (its numbers are kept in the radio's order).
    ccir_dbase ccirRecord() const
    {
        return recordOf<ccir_dbase>(TransferTarget::Ccir, &radiosim::RadioDatabases::ccir);
    }

    // The first part of the radio's CCIR database that differs from `window`, or an empty text
    // when the radio holds exactly what the window shows.
    QString differenceFrom(const ccir_dbase& window) const
    {
        const ccir_dbase radio = ccirRecord();
        return firstOf({{"self address", differs(radio.selfId4, window.selfId4) ||
                                             differs(radio.selfId6, window.selfId6)},
                        {"directory", differs(radio.directory, window.directory)},
                        {"messages", differs(radio.message1, window.message1) ||
                                         differs(radio.message2, window.message2)},
                        {"settings", differs(radio, window)}});
    }

private:
    static bool differs(const auto& a, const auto& b) { return std::memcmp(&a, &b, sizeof a) != 0; }
    // The name of the first part that differs, or an empty text.
    static QString firstOf(std::initializer_list<std::pair<const char*, bool>> parts)
    {
        for (const auto& [name, differ] : parts)
            if (differ)
                return QString::fromLatin1(name);
        return {};
    }

    // The radio's copy of one record, in the program's order.
    template <typename Record, typename Bytes>
    Record recordOf(TransferTarget target, Bytes radiosim::RadioDatabases::*bytes) const
    {
        radiosim::RadioDatabases databases;
        onRadio([&](radiosim::VirtualRadio& radio) { databases = radio.databases(); });
        convertByteOrder(target, databases.*bytes);
        Record record;
        static_assert(sizeof record == sizeof(databases.*bytes));
        std::memcpy(reinterpret_cast<unsigned char*>(&record), (databases.*bytes).data(),
                    sizeof record);
        return record;
    }

    std::atomic<radiosim::VirtualRadio*> m_radio{nullptr};
};

} // namespace koral::test
