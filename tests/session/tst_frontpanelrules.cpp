// The imitated control head without a window: the keys of both layouts, the press and release
// exchange with its failure path, the request that keeps the radio reporting its display, the
// companion's switches, and the display lines taken from the radio's reports.

#include "support/Table.h"

#include "common/RecordingNotifier.h"
#include "common/Texts.h"
#include "koralapi/Opcodes.h"
#include "session/FrontPanelCompanion.h"
#include "session/FrontPanelDisplay.h"
#include "session/FrontPanelKeypad.h"
#include "session/FrontPanelReports.h"

#include <QSignalSpy>
#include <QtTest>

#include <cstring>

using namespace koral;
using namespace koral::test;
using Layout = FrontPanelKeypad::Layout;

Q_DECLARE_METATYPE(koral::FrontPanelKeypad::Layout)

class FrontPanelRulesTest : public QObject
{
    Q_OBJECT
private slots:
    void keyCodes_data()
    {
        columns<Layout, QString, int>("layout", "label", "code");
        QTest::newRow("0 comes before 1, not after 9") << Layout::Full << "0" << 13;
        QTest::newRow("* in the short layout") << Layout::Short << "*" << 9;
        QTest::newRow("short layout has no GPS") << Layout::Short << "GPS" << 0;
    }
    void keyCodes()
    {
        auto [layout, label, code] = fetch<Layout, QString, int>("layout", "label", "code");
        QCOMPARE(FrontPanelKeypad::code(layout, label.toStdString()), code);
    }

    void layouts_data()
    {
        columns<Layout, int>("layout", "count");
        QTest::newRow("full") << Layout::Full << 20;
        QTest::newRow("short") << Layout::Short << 15;
    }
    // Every key code and every place on the head appears once, and the short layout can never
    // send 4 to 7 or 12.
    void layouts()
    {
        auto [layout, count] = fetch<Layout, int>("layout", "count");
        const auto keys = FrontPanelKeypad::keys(layout);
        QCOMPARE(int(keys.size()), count);
        QSet<int> codes;
        QSet<int> places;
        for (const auto& key : keys) {
            QVERIFY(key.code >= 4 && key.code <= 23);
            QVERIFY(key.column >= 0 && key.column < 4);
            codes.insert(key.code);
            places.insert(key.row * 4 + key.column);
        }
        QCOMPARE(codes.size(), count);
        QCOMPARE(places.size(), count);
        if (layout == Layout::Short)
            for (int code : {4, 5, 6, 7, 12})
                QVERIFY(!codes.contains(code));
    }

    void exchange_data()
    {
        // accepted: the sends the radio takes before it stops answering
        columns<bool, int, QList<int>, int, int>("open", "accepted", "sent", "result", "messages");
        QTest::newRow("key and release") << true << 2 << QList<int>{13, 24} << 1 << 0;
        QTest::newRow("link closed: message once, nothing sent")
            << false << 2 << QList<int>{} << 0 << 1;
        QTest::newRow("key refused: no release") << true << 0 << QList<int>{13} << 0 << 0;
        QTest::newRow("release refused") << true << 1 << QList<int>{13, 24} << 0 << 0;
    }
    void exchange()
    {
        auto [open, accepted, sent, result, messages] = fetch<bool, int, QList<int>, int, int>(
            "open", "accepted", "sent", "result", "messages");
        RecordingNotifier notifier;
        QList<int> codes;
        FrontPanelKeypad keypad(
            notifier, [open] { return open; },
            [&](const CRadioMessage& message) {
                // Each request is prepared as every request of the program.
                if (message[0] != 0x24 || message[2] != 0x18 || message[5] != 3)
                    return 0;
                if (message.GetOpcode() != op::ControlHeadKey)
                    return 0;
                codes << message[6];
                return codes.size() <= accepted ? 1 : 0;
            });
        QCOMPARE(keypad.sendKey(13), result);
        QCOMPARE(codes, sent);
        QCOMPARE(int(notifier.entries().size()), messages);
        if (messages) {
            QCOMPARE(notifier.entries().front().text,
                     std::string(text::byId(text::id::NoResponse)));
            QCOMPARE(notifier.entries().front().icon, Icon::Warning);
        }
    }

    void displayReports_data()
    {
        // steps: s page shown, h hidden, r link ready, c closed; sent: the enable byte of each
        // request
        columns<QString, bool, bool, QList<int>>("steps", "canSend", "radioTakes", "sent");
        QTest::newRow("a page opens and closes") << "sh" << true << true << QList<int>{1, 0};
        QTest::newRow("every opening asks afresh") << "ss" << true << true << QList<int>{1, 1};
        QTest::newRow("asked again after a long command")
            << "sr" << true << true << QList<int>{1, 1};
        QTest::newRow("no page: a ready link asks nothing") << "r" << true << true << QList<int>{};
        QTest::newRow("link closed: nothing to tell on hiding")
            << "sch" << true << true << QList<int>{1};
        QTest::newRow("busy or closed: nothing goes out") << "shr" << false << true << QList<int>{};
        QTest::newRow("refused: asked again on the next opening")
            << "shs" << true << false << QList<int>{1, 1};
    }
    void displayReports()
    {
        auto [steps, canSend, radioTakes, sent] =
            fetch<QString, bool, bool, QList<int>>("steps", "canSend", "radioTakes", "sent");
        QList<int> enables;
        FrontPanelReports reports([canSend] { return canSend; },
                                  [&](const CRadioMessage& message) {
                                      if (message[0] != 0x24 || message[5] != 3 ||
                                          message.GetOpcode() != op::SpecialReport ||
                                          message[8] != op::DisplayReport)
                                          return 0;
                                      enables << message[7];
                                      return radioTakes ? 1 : 0;
                                  });
        for (QChar step : steps) {
            if (step == 's' || step == 'h')
                reports.setShown(step == 's');
            else if (step == 'r')
                reports.linkReady();
            else
                reports.linkClosed();
        }
        QCOMPARE(enables, sent);
    }

    // The full head carries every switch; the short one's three at a time and its MORE key
    // are the window's companionSwitchKeys.
    void companionSwitches()
    {
        FrontPanelCompanion companion(Layout::Full);
        QVERIFY(!companion.hasMore());
        companion.more();
        QStringList labels;
        for (const auto& item : companion.shown())
            labels << QString::fromUtf8(item.label.data(), qsizetype(item.label.size()));
        QCOMPARE(labels, (QStringList{"SQL", "MON", "NB", "ATT", "CLP"}));
    }

    void displayLines_data()
    {
        columns<int, int, QByteArray, bool, QString>("opcode", "kind", "text", "taken", "shown");
        QTest::newRow("heading") << 27 << 0 << QByteArray("CHAN     CH 012") << true
                                 << "CHAN     CH 012";
        QTest::newRow("last line") << 27 << 2 << QByteArray("SQL ON") << true << "SQL ON";
        QTest::newRow("cut at 40 without a terminator")
            << 27 << 1 << QByteArray(45, 'X') << true << QString(40, 'X');
        QTest::newRow("control codes show blank") << 27 << 1
                                                  << QByteArray("A\tB\x81"
                                                                "C")
                                                  << true << "A B C";
        QTest::newRow("self-test progress is not a line")
            << 27 << 3 << QByteArray("BIT...") << false << "";
        QTest::newRow("other opcode") << 46 << 0 << QByteArray("CH") << false << "";
    }
    void displayLines()
    {
        auto [opcode, kind, text, taken, shown] =
            fetch<int, int, QByteArray, bool, QString>("opcode", "kind", "text", "taken", "shown");
        CRadioMessage message;
        message.prepareReport();
        message.setOpcodeAndLength(opcode, 2 + std::size_t(text.size()));
        message[6] = std::uint8_t(kind);
        std::memcpy(&message[7], text.constData(), std::size_t(text.size()));
        FrontPanelDisplay display;
        QSignalSpy changed(&display, &FrontPanelDisplay::changed);
        QCOMPARE(display.take(message), taken);
        QCOMPARE(changed.size(), taken ? 1 : 0);
        QCOMPARE(QString::fromStdString(display.line(std::min(kind, 2))), shown);
        // The same line again changes nothing on the screen.
        display.take(message);
        QCOMPARE(changed.size(), taken ? 1 : 0);
    }
};

QTEST_GUILESS_MAIN(FrontPanelRulesTest)
#include "tst_frontpanelrules.moc"
