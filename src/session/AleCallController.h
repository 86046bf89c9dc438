#pragma once

#include "session/CallRecord.h"
#include "session/SessionRecords.h"
#include "session/SessionState.h"

#include <QObject>

#include <string>
#include <string_view>
#include <vector>

namespace koral {

class CallStore;
class ChannelController;
class MessageDispatcher;
class Notifier;
class RadioLink;

// The ALE tab of the Computer Interface panel without a window: whom to call (a directory
// address, the net, or all), on which channel (chosen or automatic), with which message, and
// Send, Replace and Abort. The outcome arrives through the dispatcher, which keeps the call
// controls and the link state.
class AleCallController : public QObject
{
    Q_OBJECT
public:
    enum class CallType
    {
        Station = 0,
        Net = 1,
        All = 2,
    };
    static constexpr std::size_t kMessageBytes = 91; // the radio's message field, with its zero

    AleCallController(RadioLink& link, ViewState& view, SessionRecords& records, CallStore& calls,
                      MessageDispatcher& dispatcher, ChannelController& channels,
                      Notifier& notifier, QObject* parent = nullptr);

    // Refills the lists from the records (after a read, and when the scanned net changes).
    void refresh();

    CallType callType() const { return m_type; }
    void setCallType(CallType type);
    // "To:": the directory's addresses, "All Call", the net's name.
    const std::vector<std::string>& addresses() const { return m_addresses; }
    int addressRow() const { return m_addressRow; }
    void selectAddress(int row);
    // "Channel:": "Auto", then the usable channels.
    const std::vector<std::string>& channelChoices() const { return m_channelChoices; }
    int channelRow() const { return m_channelRow; }
    void selectChannel(int row);
    // The chosen channel's receive frequency ("%.5f MHz"), empty for "Auto".
    std::string frequencyText() const;
    // The value the radio last reported for the chosen channel (its link quality), " " for
    // "Auto".
    std::string channelValueText() const;
    int net() const { return m_net; }
    const std::string& message() const { return m_message; }
    void setMessage(std::string_view text) { m_message = text; }

    bool channelEnabled() const { return m_type != CallType::All; }
    bool sendEnabled() const;
    bool abortEnabled() const;

    // 1 when the radio took the request.
    int send();
    int replace();
    int abort();
    // "Dial" puts the radio's dial request into the message.
    void dial() { setMessage("Dial"); }
    // "Stack": the stack list needs the databases read from the radio (else the operator is
    // told so).
    bool stackAllowed();
    // "Reply" of the stack list: calls back the other party of `record` (the caller of an
    // incoming call, the called station of an outgoing one) on the record's channel when the
    // radio can use it, else on an automatic channel, with the tab's message. The tab shows
    // the call as sent. 1 when the radio took the request.
    int reply(const CallRecord& record);

signals:
    void changed();

public:
    // The name of the net the calls go through.
    std::string netName() const;
    // The channel of a row of channelChoices(): 0 for "Auto".
    int channelOfRow(int row) const;
    // The rows' frequency ("%.5f MHz") and per-channel value, as the tab shows them.
    std::string frequencyOfRow(int row) const;
    std::string channelValueOfRow(int row) const;
    // True once the radio's databases were read; otherwise tells the operator and is false.
    bool databaseRead();

private:
    RadioLink& m_link;
    ViewState& m_view;
    SessionRecords& m_records;
    CallStore& m_calls;
    MessageDispatcher& m_dispatcher;
    ChannelController& m_channels;
    Notifier& m_notifier;

    CallType m_type = CallType::Station;
    int m_net = 0;
    std::vector<std::string> m_addresses;
    int m_addressRow = -1;
    int m_stationRow = 0;
    std::vector<std::string> m_channelChoices;
    int m_channelRow = 0;
    std::string m_message;
    bool m_callInProgress = false;
};

} // namespace koral
