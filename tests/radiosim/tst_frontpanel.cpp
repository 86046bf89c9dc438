#include "radiosim/BuiltInContents.h"
#include "radiosim/FrontPanel.h"

#include <QtTest>

using namespace koral::radiosim;

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
    // What a key sequence asks of the radio, and what the display then shows.
    void keySequences_data()
    {
        QTest::addColumn<std::vector<int>>("keys");
        QTest::addColumn<int>("action");
        QTest::addColumn<unsigned>("value");
        QTest::addColumn<QString>("display");
        using A = FrontPanel::Action;
        QTest::newRow("typed channel") << std::vector<int>{digit(1), kRelease, digit(2), kEnter}
                                       << int(A::SelectChannel) << 12u << "CH 001";
        QTest::newRow("digits show the entry")
            << std::vector<int>{digit(0), digit(7)} << int(A::None) << 0u << "CH 07_";
        QTest::newRow("only three digits")
            << std::vector<int>{digit(1), digit(2), digit(3), digit(4), kEnter}
            << int(A::SelectChannel) << 123u << "CHAN";
        QTest::newRow("* takes back a digit") << std::vector<int>{digit(1), digit(2), kStar, kEnter}
                                              << int(A::SelectChannel) << 1u << "CHAN";
        QTest::newRow("escape drops the entry")
            << std::vector<int>{digit(5), kEsc, kEnter} << int(A::None) << 0u << "RX 2.18200";
        QTest::newRow("# steps to the third item, Enter switches it")
            << std::vector<int>{kMenu, kHash, kHash, kEnter} << int(A::ToggleSquelch) << 0u
            << "MENU 3/7|SQUELCH: OFF|ENTER=SWITCH";
        QTest::newRow("MENU steps too and wraps")
            << std::vector<int>{kMenu, kMenu, kMenu, kMenu, kMenu, kMenu, kMenu, kMenu}
            << int(A::None) << 0u << "MENU 1/7|SCAN: OFF";
        QTest::newRow("* steps back from the first to the last")
            << std::vector<int>{kMenu, kStar} << int(A::None) << 0u << "VERSION: 03.100";
        QTest::newRow("a digit jumps to its item")
            << std::vector<int>{kMenu, digit(4)} << int(A::None) << 0u << "MENU 4/7|MONITOR: OFF";
        QTest::newRow("Enter opens the choice of group")
            << std::vector<int>{kMenu, digit(2), kEnter} << int(A::None) << 0u
            << "SCAN GROUP|> GROUP A";
        QTest::newRow("the choice takes the next group")
            << std::vector<int>{kMenu, digit(2), kEnter, kHash, kEnter} << int(A::ScanGroup) << 1u
            << "MENU 2/7";
        QTest::newRow("Esc keeps the group")
            << std::vector<int>{kMenu, digit(2), kEnter, kHash, kEsc} << int(A::None) << 0u
            << "SCAN GROUP: GROUP A";
        QTest::newRow("the net choice names the net")
            << std::vector<int>{kMenu, digit(6), kEnter} << int(A::None) << 0u << "> NET 1 ";
        QTest::newRow("Esc leaves the menu")
            << std::vector<int>{kMenu, kEsc} << int(A::None) << 0u << "CHAN";
        QTest::newRow("GPS page") << std::vector<int>{kGps} << int(A::None) << 0u << "GPS POSITION";
        QTest::newRow("F1 acts on the menu too, which stays")
            << std::vector<int>{kMenu, 4} << int(A::ToggleSquelch) << 0u << "MENU 1/7";
        QTest::newRow("ALE state on the channel page")
            << std::vector<int>{kEsc} << int(A::None) << 0u << "SQL OFF  MON OFF  ALE ON";
        QTest::newRow("hash is channel up")
            << std::vector<int>{kHash} << int(A::ChannelUp) << 0u << "CHAN";
    }
    void keySequences()
    {
        QFETCH(std::vector<int>, keys);
        QFETCH(int, action);
        QFETCH(unsigned, value);
        QFETCH(QString, display);
        const RadioDatabases db = builtInDatabases();
        const RadioState state;
        const RadioModel model;
        FrontPanel panel;
        FrontPanel::Request last;
        for (int key : keys)
            last = panel.press(key, {state, db, model});
        QCOMPARE(int(last.action), action);
        QCOMPARE(last.value, value);
        QVERIFY2(shown(panel, {state, db, model}).contains(display),
                 qPrintable(shown(panel, {state, db, model})));
    }

    // The channel page's heading says what the radio is busy with; a selective-calling radio
    // has no ALE to switch.
    void radioStates_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<bool>("scanning");
        QTest::addColumn<bool>("ccir");
        QTest::addColumn<std::vector<int>>("keys");
        QTest::addColumn<QString>("display");
        QTest::newRow("calling") << int(CallPhase::Calling) << false << false << std::vector<int>{}
                                 << "ALE CALLING ";
        QTest::newRow("a link wins over the scan")
            << int(CallPhase::Linked) << true << false << std::vector<int>{} << "ALE LINKED ";
        QTest::newRow("scanning") << int(CallPhase::Idle) << true << false << std::vector<int>{}
                                  << "SCAN GRP A ";
        QTest::newRow("selective calling")
            << int(CallPhase::Idle) << false << true << std::vector<int>{} << "SELCALL";
        QTest::newRow("ALE not in the selective-calling menu")
            << int(CallPhase::Idle) << false << true << std::vector<int>{kMenu, digit(5), kEnter}
            << "MENU 5/7|ALE: N/A|#=NEXT";
    }
    void radioStates()
    {
        QFETCH(int, call);
        QFETCH(bool, scanning);
        QFETCH(bool, ccir);
        QFETCH(std::vector<int>, keys);
        QFETCH(QString, display);
        const RadioDatabases db = builtInDatabases();
        RadioState state;
        state.call = CallPhase(call);
        state.groupScanning = scanning;
        RadioModel model;
        model.ccirMode = ccir;
        FrontPanel panel;
        for (int key : keys)
            QCOMPARE(int(panel.press(key, {state, db, model}).action),
                     int(FrontPanel::Action::None));
        QVERIFY2(shown(panel, {state, db, model}).contains(display),
                 qPrintable(shown(panel, {state, db, model})));
    }

private:
    static QString shown(const FrontPanel& panel, const FrontPanel::Radio& radio)
    {
        QString text;
        for (const auto& line : panel.display(radio)) {
            if (line.size() > FrontPanel::kLineWidth)
                return "line too long: " + QString::fromStdString(line);
            text += QString::fromStdString(line) + '|';
        }
        return text;
    }
};

QTEST_GUILESS_MAIN(FrontPanelTest)
#include "tst_frontpanel.moc"
