#include "radiosim/BuiltInContents.h"
#include "radiosim/FrontPanel.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral::radiosim;
using namespace koral::test;

Q_DECLARE_METATYPE(std::vector<int>)

namespace {
constexpr int kHash = 8, kStar = 9, kEsc = 10, kEnter = 11, kGps = 12, kMenu = 23, kRelease = 24;
int digit(int d)
{
    return 13 + d;
}
} // namespace

class FrontPanelTest : public QObject
{
    Q_OBJECT
private slots:
    // What a key sequence asks of the radio, and what the display then shows. The channel
    // page's heading says what the radio is busy with; a selective-calling radio has no ALE.
    void keySequences_data()
    {
        columns<std::vector<int>, int, unsigned, QString, int, bool, bool>(
            "keys", "action", "value", "display", "call", "scanning", "ccir");
        using A = FrontPanel::Action;
        const auto row = [](const char* name, std::vector<int> keys, A action, unsigned value,
                            const char* display, CallPhase call = CallPhase::Idle,
                            bool scanning = false, bool ccir = false) {
            QTest::newRow(name) << keys << int(action) << value << display << int(call) << scanning
                                << ccir;
        };
        row("typed channel", {digit(1), kRelease, digit(2), kEnter}, A::SelectChannel, 12u,
            "CH 001");
        row("digits show the entry", {digit(0), digit(7)}, A::None, 0u, "CH 07_");
        row("only three digits", {digit(1), digit(2), digit(3), digit(4), kEnter}, A::SelectChannel,
            123u, "CHAN");
        row("* takes back a digit", {digit(1), digit(2), kStar, kEnter}, A::SelectChannel, 1u,
            "CHAN");
        row("escape drops the entry", {digit(5), kEsc, kEnter}, A::None, 0u, "RX 2.18200");
        row("# steps to the third item, Enter switches it", {kMenu, kHash, kHash, kEnter},
            A::ToggleSquelch, 0u, "MENU 3/7|SQUELCH: OFF|ENTER=SWITCH");
        row("MENU steps too and wraps", {kMenu, kMenu, kMenu, kMenu, kMenu, kMenu, kMenu, kMenu},
            A::None, 0u, "MENU 1/7|SCAN: OFF");
        row("* steps back from the first to the last", {kMenu, kStar}, A::None, 0u,
            "VERSION: 03.100");
        row("a digit jumps to its item", {kMenu, digit(4)}, A::None, 0u, "MENU 4/7|MONITOR: OFF");
        row("Enter opens the choice of group", {kMenu, digit(2), kEnter}, A::None, 0u,
            "SCAN GROUP|> GROUP A");
        row("the choice takes the next group", {kMenu, digit(2), kEnter, kHash, kEnter},
            A::ScanGroup, 1u, "MENU 2/7");
        row("Esc keeps the group", {kMenu, digit(2), kEnter, kHash, kEsc}, A::None, 0u,
            "SCAN GROUP: GROUP A");
        row("the net choice names the net", {kMenu, digit(6), kEnter}, A::None, 0u, "> NET 1 ");
        row("Esc leaves the menu", {kMenu, kEsc}, A::None, 0u, "CHAN");
        row("GPS page", {kGps}, A::None, 0u, "GPS POSITION");
        row("F1 acts on the menu too, which stays", {kMenu, 4}, A::ToggleSquelch, 0u, "MENU 1/7");
        row("ALE state on the channel page", {kEsc}, A::None, 0u, "SQL OFF  MON OFF  ALE ON");
        row("hash is channel up", {kHash}, A::ChannelUp, 0u, "CHAN");
        row("calling", {}, A::None, 0, "ALE CALLING ", CallPhase::Calling);
        row("a link wins over the scan", {}, A::None, 0, "ALE LINKED ", CallPhase::Linked, true);
        row("scanning", {}, A::None, 0, "SCAN GRP A ", CallPhase::Idle, true);
        row("selective calling", {}, A::None, 0, "SELCALL", CallPhase::Idle, false, true);
        row("ALE not in the selective-calling menu", {kMenu, digit(5), kEnter}, A::None, 0,
            "MENU 5/7|ALE: N/A|#=NEXT", CallPhase::Idle, false, true);
    }
    void keySequences()
    {
        auto [keys, action, value, display, call, scanning, ccir] =
            fetch<std::vector<int>, int, unsigned, QString, int, bool, bool>(
                "keys", "action", "value", "display", "call", "scanning", "ccir");
        const RadioDatabases db = builtInDatabases();
        RadioState state;
        state.call = CallPhase(call);
        state.groupScanning = scanning;
        RadioModel model;
        model.ccirMode = ccir;
        FrontPanel panel;
        FrontPanel::Request last;
        for (int key : keys)
            last = panel.press(key, {state, db, model});
        QCOMPARE(int(last.action), action);
        QCOMPARE(last.value, value);
        QString text;
        for (const auto& line : panel.display({state, db, model})) {
            QVERIFY2(line.size() <= FrontPanel::kLineWidth, line.c_str());
            text += QString::fromStdString(line) + '|';
        }
        QVERIFY2(text.contains(display), qPrintable(text));
    }
};

QTEST_GUILESS_MAIN(FrontPanelTest)
#include "tst_frontpanel.moc"
