#include "gui/PanelRules.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

namespace {
const std::vector<Panel> kEvery{
    Panel::ComputerInterface, Panel::Rss, Panel::RssAle, Panel::Koral, Panel::Ccir, Panel::Koral2E};

QString names(const std::vector<Panel>& panels)
{
    QStringList list;
    for (Panel p : panels)
        list << QString::number(int(p));
    return list.join(',');
}
} // namespace

class PanelRulesTest : public QObject
{
    Q_OBJECT
private slots:
    void panelButtons_data()
    {
        columns<bool, bool, int, QString>("allPanels", "ccir", "softwareClass", "buttons");
        QTest::newRow("ALE mode, class 2: KORAL panel") << true << false << 2 << "0,1,2,3";
        QTest::newRow("ALE mode, class 1: KORAL-2E panel") << true << false << 1 << "0,1,2,5";
        QTest::newRow("CCIR mode shows the CCIR panel") << true << true << 2 << "0,1,2,3,4";
        QTest::newRow("unknown class counts as not 1") << true << true << 0 << "0,1,2,3,4";
        QTest::newRow("panels not built are never offered") << false << true << 1 << "1";
    }
    void panelButtons()
    {
        auto [allPanels, ccir, softwareClass, buttons] =
            fetch<bool, bool, int, QString>("allPanels", "ccir", "softwareClass", "buttons");
        PanelRules rules(allPanels ? kEvery : std::vector<Panel>{Panel::Rss});
        QCOMPARE(names(rules.panelButtons(ccir, softwareClass)), buttons);
    }

    void startPanel()
    {
        QCOMPARE(PanelRules(kEvery).startPanel(), Panel::ComputerInterface);
        QCOMPARE(PanelRules({Panel::RssAle, Panel::Rss}).startPanel(), Panel::Rss);
        QVERIFY(!PanelRules({Panel::Rss}).isOffered(Panel::Ccir));
        // The other panels' titles show in the window tests.
        QCOMPARE(PanelRules::title(Panel::Koral2E, ""), std::string("KORAL-2E Panel"));
    }
};

QTEST_GUILESS_MAIN(PanelRulesTest)
#include "tst_panelrules.moc"
