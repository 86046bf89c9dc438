#include "support/Table.h"

#include "session/IncomingCall.h"

#include <QtTest>

#include <array>
#include <cstring>

using namespace koral;
using namespace koral::test;

namespace {

using Message = std::array<std::uint8_t, 262>;

Message callReport(std::uint8_t channelHigh, std::uint8_t channelLow, std::uint8_t value,
                   const char* address, const char* text = nullptr)
{
    Message message{};
    message[0] = 0x24;
    message[incoming_call::kChannel] = channelHigh;
    message[incoming_call::kChannel + 1] = channelLow;
    message[incoming_call::kChannelValue] = value;
    std::memcpy(&message[incoming_call::kAddress], address,
                std::min<std::size_t>(std::strlen(address), 16));
    if (text) {
        message[incoming_call::kMessageFlag] = 1;
        std::memcpy(&message[incoming_call::kMessage], text, std::strlen(text));
    }
    return message;
}

QString qs(std::string_view text)
{
    return QString::fromUtf8(text.data(), text.size());
}

} // namespace

class IncomingCallTest : public QObject
{
    Q_OBJECT
private slots:
    void titleAndCallType_data()
    {
        columns<QString, int, QString>("title", "opcode", "callType");
        QTest::newRow("79") << "Incoming Station Call." << 79 << "Station";
        QTest::newRow("90") << "Incoming Station Call." << 90 << "Station";
        QTest::newRow("80") << "Incoming Net Call." << 80 << "Net";
        QTest::newRow("82") << "Incoming Priority Call." << 82 << "Priority";
        QTest::newRow("81 keeps the previous title") << "" << 81 << "";
    }
    void titleAndCallType()
    {
        auto [title, opcode, callType] =
            fetch<QString, int, QString>("title", "opcode", "callType");
        const IncomingCall call = decodeIncomingCall(opcode, callReport(0, 5, 0, "ALPHA"));
        QCOMPARE(qs(call.title), title);
        QCOMPARE(qs(call.callType), callType);
    }

    void channel_data()
    {
        columns<int, int, int>("high", "low", "channel");
        QTest::newRow("text 12") << int('1') << int('2') << 12;
        QTest::newRow("byte 12 after a zero") << 0 << 12 << 12;
        QTest::newRow("single digit text") << int('7') << 0 << 7;
        QTest::newRow("signed byte") << 0 << 0xFF << -1;
        QTest::newRow("byte 200 as signed") << 0 << 200 << -56;
    }
    void channel()
    {
        auto [high, low, channel] = fetch<int, int, int>("high", "low", "channel");
        const Message message = callReport(std::uint8_t(high), std::uint8_t(low), 0, "A");
        QCOMPARE(decodeIncomingCall(79, message).channel, channel);
    }

    void fullAddressIsCutAtSixteenAndMessageBounded()
    {
        Message message = callReport(0, 3, 0, "ABCDEFGHIJKLMNOP");
        message[incoming_call::kMessageFlag] = 1;
        // The address fills its field with no terminator; a message without an end stops at
        // its limit.
        std::fill(message.begin() + incoming_call::kMessage, message.end(), 'M');
        const IncomingCall call = decodeIncomingCall(79, message);
        QCOMPARE(call.address, std::string("ABCDEFGHIJKLMNOP"));
        QCOMPARE(call.message->size(), incoming_call::kMessageLimit);
        // Without its flag the text is no message.
        message[incoming_call::kMessageFlag] = 0;
        QVERIFY(!decodeIncomingCall(79, message).message.has_value());
    }

    void shortMessageDecodesNothing()
    {
        const std::array<std::uint8_t, 8> tooShort{};
        const IncomingCall call = decodeIncomingCall(79, tooShort);
        QCOMPARE(call.channel, 0);
        QVERIFY(call.address.empty());
    }
};

QTEST_GUILESS_MAIN(IncomingCallTest)
#include "tst_incomingcall.moc"
