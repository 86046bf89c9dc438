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
#include <type_traits>

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

    radiosim::RadioState state() const
    {
        radiosim::RadioState state;
        onRadio([&](radiosim::VirtualRadio& radio) { state = radio.state(); });
        return state;
    }

    dbase radioRecord() const
    {
        return recordOf<dbase>(TransferTarget::Radio, &radiosim::RadioDatabases::radio);
    }
    ale_dbase aleRecord() const
    {
        return recordOf<ale_dbase>(TransferTarget::Ale, &radiosim::RadioDatabases::ale);
    }
    ccir_dbase ccirRecord() const
    {
        return recordOf<ccir_dbase>(TransferTarget::Ccir, &radiosim::RadioDatabases::ccir);
    }

    // Where the radio's copy first differs from `window` (a radio database as a write sends
    // it: sanitised), or an empty text when the radio holds exactly what the window shows.
    template <typename Record>
    QString differenceFrom(const Record& window) const
    {
        Record expected = window;
        if constexpr (std::is_same_v<Record, dbase>)
            sanitise(expected);
        Record radio;
        if constexpr (std::is_same_v<Record, dbase>)
            radio = radioRecord();
        else if constexpr (std::is_same_v<Record, ale_dbase>)
            radio = aleRecord();
        else
            radio = ccirRecord();
        const auto* a = reinterpret_cast<const unsigned char*>(&radio);
        const auto* b = reinterpret_cast<const unsigned char*>(&expected);
        for (std::size_t i = 0; i < sizeof radio; ++i)
            if (a[i] != b[i])
                return QStringLiteral("byte %1").arg(i);
        return {};
    }

private:
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
