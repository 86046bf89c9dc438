#include "support/Table.h"

#include "common/RecordingNotifier.h"
#include "profile/ProfileFile.h"
#include "session/CallFiles.h"
#include "session/CallListEditor.h"

#include <QTemporaryDir>
#include <QtTest>

#include <fstream>

using namespace koral;
using namespace koral::test;

namespace {

CallRecord record(int n)
{
    const std::string tag = std::to_string(n);
    return {"FROM" + tag, "TO" + tag, "11/23/26", "10:00:0" + tag.substr(0, 1),
            "10:01:00",   "Station",  "1",        "12",
            "MSG " + tag, "not saved"};
}

std::vector<CallRecord> records(int count)
{
    std::vector<CallRecord> list;
    for (int i = 1; i <= count; ++i)
        list.push_back(record(i));
    return list;
}

void writeFile(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

} // namespace

class CallFilesTest : public QObject
{
    Q_OBJECT
private slots:
    void init() { QVERIFY(m_dir.isValid()); }

    void listsAreCutAtTheirCapacity_data()
    {
        columns<bool, int, int>("stack", "count", "written");
        QTest::newRow("stack of 101") << true << 101 << 100;
        QTest::newRow("log of 200") << false << 200 << 200;
        QTest::newRow("log of 201") << false << 201 << 200;
        QTest::newRow("empty log") << false << 0 << 0;
    }
    void listsAreCutAtTheirCapacity()
    {
        auto [stack, count, written] = fetch<bool, int, int>("stack", "count", "written");
        const CallListLayout& layout = stack ? kStackLayout : kLogLayout;
        const auto file = path(layout.fileName);
        const auto list = records(count);
        QVERIFY(saveCallList(file, layout, list));
        const ProfileFile profile(file);
        QCOMPARE(profile.read(layout.listSection, layout.countKey), std::to_string(written));
        const auto loaded = loadCallList(file, layout);
        QCOMPARE(int(loaded.size()), written);
        for (int i = 0; i < written; ++i) {
            CallRecord expected = list[i];
            expected.extra.clear();
            QVERIFY(loaded[i] == expected);
        }
    }

    void stackFileLayout()
    {
        const auto file = path("stack.txt");
        QVERIFY(saveCallList(file, kStackLayout, {record(1), record(2)}));
        std::ifstream in(file, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(in), {});
        QVERIFY(bytes.starts_with("[Stack List]\r\nNumber of Stack Records=2\r\n"
                                  "[Stack Record No. 1]\r\nFrom=FROM1\r\nTo=TO1\r\n"
                                  "Date=11/23/26\r\nStart=10:00:01\r\nEnd=10:01:00\r\n"
                                  "Call Type=Station\r\nNet=1\r\nChannel=12\r\n"
                                  "Message=MSG 1\r\n[Stack Record No. 2]\r\n"));
        QVERIFY(bytes.find("not saved") == std::string::npos);
    }

    void readingCutsCountsAndValues_data()
    {
        columns<QString, int>("countText", "count");
        QTest::newRow("four digits kept") << "0002" << 2;
        QTest::newRow("five digits cut to four") << "00003" << 0;
        QTest::newRow("over capacity capped") << "150" << 100;
        QTest::newRow("negative") << "-4" << 0;
    }
    void readingCutsCountsAndValues()
    {
        auto [countText, count] = fetch<QString, int>("countText", "count");
        const auto file = path("stack.txt");
        const std::string longValue(150, 'L');
        writeFile(file, "[Stack List]\nNumber of Stack Records=" + countText.toStdString() +
                            "\n[Stack Record No. 1]\nFrom=" + longValue + "\n");
        const auto loaded = loadCallList(file, kStackLayout);
        QCOMPARE(int(loaded.size()), count);
        if (count > 0) {
            QCOMPARE(loaded[0].from, std::string(99, 'L'));
            QVERIFY(loaded[1].from.empty()); // a missing record reads as empty fields
        }
    }

    // The Stack List's and the log's buttons on a list of three records; row 0 is the header.
    void listButtons_data()
    {
        columns<QString, int, QString, QStringList, QString>("button", "row", "replyTo", "left",
                                                             "message");
        const QStringList all{"FROM1", "FROM2", "FROM3"};
        const QString invalid = "Grid line is not valid, line = 0";
        QTest::newRow("delete a record")
            << "delete" << 2 << "" << QStringList{"FROM1", "FROM3"} << "";
        QTest::newRow("delete the header") << "delete" << 0 << "" << all << "";
        QTest::newRow("delete past the end") << "delete" << 4 << "" << all << "";
        QTest::newRow("delete all") << "deleteAll" << 1 << "" << QStringList{} << "";
        QTest::newRow("reply to a record") << "reply" << 3 << "FROM3" << all << "";
        QTest::newRow("reply on the header") << "reply" << 0 << "" << all << invalid;
        QTest::newRow("reply without a row") << "reply" << -1 << "" << all << invalid;
    }
    void listButtons()
    {
        auto [button, row, replyTo, left, message] =
            fetch<QString, int, QString, QStringList, QString>("button", "row", "replyTo", "left",
                                                               "message");
        std::vector<CallRecord> list = records(3);
        RecordingNotifier notifier;
        CallListEditor editor(list, notifier);
        QString replied;
        if (button == "delete")
            editor.deleteRow(row);
        else if (button == "deleteAll")
            editor.deleteAll();
        else if (const auto record = editor.replyRecord(row))
            replied = QString::fromStdString(record->from);
        QStringList froms;
        for (int r = 1; r <= editor.recordCount(); ++r)
            froms << QString::fromStdString(editor.cell(r, 0));
        QCOMPARE(froms, left);
        QCOMPARE(replied, replyTo);
        // The grid's columns follow the record; the header row holds no record.
        QCOMPARE(editor.cell(0, 0), std::string());
        QStringList cells;
        for (int c = 0; c < int(CallListEditor::kColumns.size()) && !left.isEmpty(); ++c)
            cells << QString::fromStdString(editor.cell(1, c));
        if (!left.isEmpty())
            QCOMPARE(cells, (QStringList{"FROM1", "TO1", "11/23/26", "10:00:01", "10:01:00",
                                         "Station", "1", "12"}));
        const auto texts = notifier.texts();
        QCOMPARE(texts.empty() ? QString() : QString::fromStdString(texts.front()), message);
    }

    // A missing file, or a message count below one, reads as an empty list.
    void missingOrEmptyFilesReadAsNothing()
    {
        QVERIFY(loadCallList(path("log.txt"), kLogLayout).empty());
        QVERIFY(loadMessageList(path("msg.txt")).empty());
        writeFile(path("msg.txt"), "[Messages]\nNumber of messages=0\nMessage No. 1=X\n");
        QVERIFY(loadMessageList(path("msg.txt")).empty());
    }

    void messagesRoundTripWithoutEmptiesAndCapped()
    {
        const auto file = path("msg.txt");
        writeFile(file, "[Other]\r\nkeep=1\r\n[Messages]\r\nNumber of messages=3\r\n"
                        "Message No. 1=hello\r\nMessage No. 2=\r\nMessage No. 3=QRV\r\n"
                        "Message No. 4=beyond the count\r\n");
        QCOMPARE(loadMessageList(file), (std::vector<std::string>{"hello", "QRV"}));

        std::vector<std::string> many;
        for (int i = 1; i <= 205; ++i)
            many.push_back("M" + std::to_string(i));
        QVERIFY(saveMessageList(file, many));
        const ProfileFile profile(file);
        QCOMPARE(profile.read("Messages", "Number of messages"), std::string("200"));
        QCOMPARE(profile.read("Other", "keep"), std::string("1"));
        // The section is rewritten whole, so an old key beyond the new count is gone.
        QVERIFY(!profile.contains("Messages", "Message No. 201"));
        const auto loaded = loadMessageList(file);
        QCOMPARE(int(loaded.size()), 200);
        QCOMPARE(loaded.back(), std::string("M200"));
    }

    void unwritableFileReportsAnError()
    {
        std::string error;
        QVERIFY(!saveCallList("/nonexistent/dir/stack.txt", kStackLayout, records(1), &error));
        QVERIFY(!error.empty());
    }

private:
    std::filesystem::path path(std::string_view name) const
    {
        return std::filesystem::path(m_dir.path().toStdString()) / name;
    }
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(CallFilesTest)
#include "tst_callfiles.moc"
