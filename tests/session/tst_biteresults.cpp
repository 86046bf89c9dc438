#include "support/Table.h"

#include "session/BiteResults.h"

#include <QtTest>

#include <array>

using namespace koral;
using namespace koral::test;

namespace {

std::array<std::uint8_t, 262> reportOf(std::uint8_t code)
{
    std::array<std::uint8_t, 262> report{};
    for (int item = 1; item <= kBiteItemCount; ++item)
        report[kBiteFirstResultByte + item - 1] = code;
    return report;
}

} // namespace

class BiteResultsTest : public QObject
{
    Q_OBJECT
private slots:
    void summaries_data()
    {
        columns<int, int, QString>("code", "rows", "summary");
        QTest::newRow("all passed")
            << 0xAA << 39 << "Summary: 39 Passed, 0 Failed, 0 Not Performed";
        QTest::newRow("all failed")
            << 0x55 << 39 << "Summary: 0 Passed, 39 Failed, 0 Not Performed";
        QTest::newRow("all unable")
            << 0x3C << 39 << "Summary: 0 Passed, 0 Failed, 39 Not Performed";
        QTest::newRow("all zero ignored")
            << 0x00 << 0 << "Summary: 0 Passed, 0 Failed, 0 Not Performed";
    }
    void summaries()
    {
        auto [code, rows, summary] = fetch<int, int, QString>("code", "rows", "summary");
        const BiteSummary result = summarizeBite(reportOf(std::uint8_t(code)));
        QCOMPARE(int(result.rows.size()), rows);
        QCOMPARE(QString::fromStdString(biteSummaryText(result)), summary);
    }

    void mixedReportKeepsItemOrder()
    {
        auto report = reportOf(0);
        report[kBiteFirstResultByte + 0] = 0xAA;  // item 1
        report[kBiteFirstResultByte + 13] = 0x55; // item 14
        report[kBiteFirstResultByte + 38] = 0x3C; // item 39
        report[kBiteFirstResultByte - 1] = 0xAA;  // not an item
        const BiteSummary result = summarizeBite(report);
        const std::vector<BiteRow> expected{
            {1, BiteResult::Passed}, {14, BiteResult::Failed}, {39, BiteResult::UnableToPerform}};
        QVERIFY(result.rows == expected);
        // Every reported item has its name, the last one too; nothing past it has one.
        QVERIFY(!biteItemName(39).empty() && biteItemName(40).empty());
    }

    void progressFromDots_data()
    {
        columns<QString, int>("text", "position");
        QTest::newRow("two dots") << "BIT.." << 3;
        QTest::newRow("first three characters do not count") << "...." << -1;
        QTest::newRow("five dots") << "T: ....." << 12;
        QTest::newRow("dots between text") << "abc.d.e.f" << 6;
    }
    void progressFromDots()
    {
        auto [text, position] = fetch<QString, int>("text", "position");
        QCOMPARE(biteProgressFromText(text.toStdString()), position);
    }
};

QTEST_GUILESS_MAIN(BiteResultsTest)
#include "tst_biteresults.moc"
