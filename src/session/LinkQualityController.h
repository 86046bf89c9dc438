#pragma once

#include "session/SessionState.h"

#include <QObject>

#include <string>
#include <string_view>

namespace koral {

class AleCallController;
class ChannelController;
class MessageDispatcher;
class Notifier;
class RadioLink;
class CallStore;

// The "Update Link Quality" tab without a window: the operator has the radio refresh its
// link-quality figures by a bidirectional exchange with a station or the net, or by sounding
// (a one-way broadcast the other stations measure). Whom and on which channel are chosen from
// the ALE tab's lists; two indicators show which exchange runs until the radio ends it or
// the operator aborts it.
class LinkQualityController : public QObject
{
    Q_OBJECT
public:
    enum class Type
    {
        BiDirectional = 0,
        Sounding = 1,
    };

    LinkQualityController(RadioLink& link, ViewState& view, CallStore& calls,
                          MessageDispatcher& dispatcher, ChannelController& channels,
                          AleCallController& ale, Notifier& notifier, QObject* parent = nullptr);

    // Back to the first station and channel of the ALE tab's lists (after a read, and when a
    // scan starts or stops).
    void refresh();

    Type type() const { return m_type; }
    void setType(Type type);
    int addressRow() const { return m_addressRow; }
    void selectAddress(int row);
    int channelRow() const { return m_channelRow; }
    void selectChannel(int row);
    // Sounding goes out on every channel of the net: the channel is "Auto" and fixed.
    bool channelEnabled() const { return m_type == Type::BiDirectional; }
    std::string frequencyText() const;
    std::string channelValueText() const;
    const std::string& message() const { return m_message; }
    void setMessage(std::string_view text) { m_message = text; }

    bool bidirectionalActive() const { return m_bidirectional; }
    bool soundingActive() const { return m_sounding; }
    bool sendEnabled() const;
    bool abortEnabled() const;

    // 1 when the radio took the request.
    int send();
    int abort();

signals:
    void changed();

private:
    void setIndicator(bool& indicator, bool on);

    RadioLink& m_link;
    ViewState& m_view;
    CallStore& m_calls;
    MessageDispatcher& m_dispatcher;
    ChannelController& m_channels;
    AleCallController& m_ale;
    Notifier& m_notifier;

    Type m_type = Type::BiDirectional;
    int m_addressRow = 0;
    int m_channelRow = 0;
    std::string m_message;
    bool m_bidirectional = false;
    bool m_sounding = false;
    bool m_callInProgress = false;
};

} // namespace koral
