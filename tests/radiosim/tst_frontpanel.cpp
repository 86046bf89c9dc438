#include "radiosim/BuiltInContents.h"
#include "radiosim/FrontPanel.h"

#include <QtTest>

using namespace koral::radiosim;

Q_DECLARE_METATYPE(std::vector<int>)

namespace {
constexpr int kEnter = 11, kEsc = 10, kGps = 12, kMenu = 23, kRelease = 24;
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
        QTest::newRow("escape drops the entry")
            << std::vector<int>{digit(5), kEsc, kEnter} << int(A::None) << 0u << "RX 2.18200";
        QTest::newRow("second menu item toggles squelch")
            << std::vector<int>{kMenu, kMenu, kEnter} << int(A::ToggleSquelch) << 0u << "SQL OFF";
        QTest::newRow("menu wraps around") << std::vector<int>{kMenu, kMenu, kMenu, kMenu, kMenu}
                                           << int(A::None) << 0u << "MENU 1/4";
        QTest::newRow("GPS page") << std::vector<int>{kGps} << int(A::None) << 0u << "GPS POSITION";
        QTest::newRow("F1 squelch") << std::vector<int>{4} << int(A::ToggleSquelch) << 0u << "CHAN";
        QTest::newRow("ALE state on the channel page")
            << std::vector<int>{kEsc} << int(A::None) << 0u << "SQL OFF  MON OFF  ALE ON";
        QTest::newRow("hash is channel up")
            << std::vector<int>{8} << int(A::ChannelUp) << 0u << "CHAN";
    }
    void keySequences()
    {
        QFETCH(std::vector<int>, keys);
        QFETCH(int, action);
        QFETCH(unsigned, value);
        QFETCH(QString, display);
        FrontPanel panel;
        FrontPanel::Request last;
        for (int key : keys) {
            last = panel.press(key);
        }
        QCOMPARE(int(last.action), action);
        QCOMPARE(last.value, value);
        const auto lines = panel.display(RadioState{}, builtInDatabases(), false);
        QString shown;
        for (const auto& line : lines) {
            QVERIFY(line.size() <= FrontPanel::kLineWidth);
            shown += QString::fromStdString(line) + '|';
        }
        QVERIFY2(shown.contains(display), qPrintable(shown));
    }
};

QTEST_GUILESS_MAIN(FrontPanelTest)
#include "tst_frontpanel.moc"
