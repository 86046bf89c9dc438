#pragma once

#include "radiodb/channel.h"

#include <QObject>

#include <cstdint>
#include <vector>

namespace koral {

class RadioLink;
struct SessionRecords;
struct ViewState;

// The radio's active channel without a window: selecting a channel, asking the radio which
// one is active and what it holds, finding the programmed channels of a receive frequency,
// and programming one channel. The Computer Interface panel and the network clients share
// it. Each call is one bounded exchange with the radio on the calling (user-interface)
// thread; a failed exchange shows the no-response message unless the link is silenced.
class ActiveChannel : public QObject
{
    Q_OBJECT
public:
    ActiveChannel(RadioLink& link, SessionRecords& records, ViewState& view,
                  QObject* parent = nullptr);

    // Makes channel `number` (1..200) the active one; 1 when the radio took the request.
    int select(int number);
    // Asks the radio for its active channel; 1 with the number and whether it scans.
    int query(int& number, bool& scanning);
    // Reads the record of the active channel from the radio (host order); 1 on success.
    int readCurrent(channel& record);
    // Programs channel `number` with `record` and, when the radio confirms, takes it into the
    // session's copies of the radio database. 1 on success.
    int program(int number, const channel& record);

    // Whether the channel table read from the radio is there to be asked.
    bool tableKnown() const;
    bool isProgrammed(int number) const;
    // The programmed channels whose receive frequency is `hertz`, rising.
    std::vector<int> receiving(std::uint32_t hertz) const;

signals:
    // A channel was selected or programmed through this object.
    void selected(int number);
    void programmed(int number);

private:
    RadioLink& m_link;
    SessionRecords& m_records;
    ViewState& m_view;
};

} // namespace koral
