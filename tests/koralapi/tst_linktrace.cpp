// The link trace: what each event of the link looks like to a technician, and the recorder
// that keeps the last rows and writes the file.

#include "koralapi/FrameCodec.h"
#include "koralapi/LinkTraceRecorder.h"
#include "koralapi/LinkTraceRow.h"
#include "support/Table.h"

#include <QTemporaryDir>
#include <QTest>

#include <fstream>
#include <sstream>

using namespace koral;
using namespace koral::test;
using Kind = LinkEvent::Kind;
using Mark = LinkTraceRow::Mark;
using Bytes = std::vector<std::uint8_t>;

Q_DECLARE_METATYPE(koral::LinkEvent)
Q_DECLARE_METATYPE(koral::LinkTraceRow::Mark)

namespace {

// A DATA frame carrying a message: header (opcode, units, length) and payload.
Bytes dataFrame(std::uint8_t seq, std::uint8_t opcode, const Bytes& payload, bool fromRadio)
{
    Bytes message{0x24,
                  opcode,
                  std::uint8_t(fromRadio ? 0x03 : 0x18),
                  std::uint8_t(payload.size() >> 8),
                  std::uint8_t(payload.size()),
                  std::uint8_t(fromRadio ? 0x18 : 0x03)};
    message.insert(message.end(), payload.begin(), payload.end());
    return encodeFrame(FrameKind::Data, seq, message);
}

LinkEvent linkEvent(Kind kind, Bytes bytes, int transmission = 1, int count = 0, int boundMs = 0)
{
    LinkEvent e;
    e.kind = kind;
    e.bytes = std::move(bytes);
    e.transmission = transmission;
    e.count = count;
    e.boundMs = boundMs;
    return e;
}

const Bytes kSetChannel12 = dataFrame(3, 100, {0, 12}, false);

std::string readFile(const QString& path)
{
    std::ifstream in(path.toStdString());
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

} // namespace

class TestLinkTrace : public QObject
{
    Q_OBJECT
private slots:
    void rowOfEachEvent_data()
    {
        // columns: direction|mark|frame|message|fields
        columns<LinkEvent, Mark, QString, bool>("event", "mark", "columns", "bytes");
        const auto row = [](const char* name, const LinkEvent& event, Mark mark,
                            const QString& columns, bool bytes = true) {
            QTest::newRow(name) << event << mark << columns << bytes;
        };
        row("request", linkEvent(Kind::Sent, kSetChannel12), Mark::None,
            "->||DATA #3|SetActiveChannel (100)|unit=0 channel=12");
        row("report",
            linkEvent(
                Kind::Received,
                dataFrame(7, 46, {0, 12, 0, 0x00, 0x6C, 0x56, 0x60, 0x00, 0x6D, 0xDD, 0x00}, true)),
            Mark::None,
            "<-||DATA #7|ChannelReport (46)|kind=0 channel=12 group=0 rx=7.100000 tx=7.200000");
        row("database read",
            linkEvent(Kind::Sent, dataFrame(0, 132, {1, 0, 0, 0x10, 0xD0, 0}, false)), Mark::None,
            "->||DATA #0|DatabaseRead (132)|target=dbase offset=0 length=4304");
        Bytes block{2, 0x00, 0xF6, 1};
        block.resize(4 + 58, 0xAA);
        row("last block of the ALE database",
            linkEvent(Kind::Received, dataFrame(9, 135, block, true)), Mark::None,
            "<-||DATA #9|DataBlock (135)|target=ale_dbase offset=246 bytes=58 last=1");
        row("refused read", linkEvent(Kind::Received, dataFrame(1, 140, {132, 4, 1}, true)),
            Mark::None,
            "<-||DATA #1|CommandResult (140)|request=DatabaseRead (132) target=ccir_dbase "
            "status=refused");
        row("rejected request", linkEvent(Kind::Received, dataFrame(2, 60, {0, 118}, true)),
            Mark::None, "<-||DATA #2|CommandRejected (60)|request=SetRadioScanMode (118)");
        row("acknowledgement", linkEvent(Kind::Received, encodeFrame(FrameKind::Ack, 3)),
            Mark::None, "<-||ACK #3||");
        row("time-out", linkEvent(Kind::AckTimeout, kSetChannel12, 1, 0, 612), Mark::Timeout,
            "|TIMEOUT|DATA #3|SetActiveChannel (100)|no acknowledgement within 612 ms", false);
        row("retry", linkEvent(Kind::Resent, kSetChannel12, 2, 3), Mark::Retry,
            "->|RETRY 2/3|DATA #3|SetActiveChannel (100)|unit=0 channel=12");
        row("given up", linkEvent(Kind::GivenUp, kSetChannel12, 3, 2), Mark::Failed,
            "|FAILED|DATA #3|SetActiveChannel (100)|not acknowledged after 3 transmissions; 2 "
            "messages fail",
            false);
        Bytes damaged = dataFrame(4, 1, {0, 12}, true);
        const QString computed =
            QString::asprintf("%02X%02X", damaged[damaged.size() - 2], damaged[damaged.size() - 1]);
        damaged[damaged.size() - 2] = 0;
        damaged[damaged.size() - 1] = 0;
        row("checksum error", linkEvent(Kind::ChecksumError, damaged), Mark::ChecksumError,
            "<-|CRC-ERROR|DATA #4|ActiveChannel (1)|checksum 0000, computed " + computed);
        row("unknown kind", linkEvent(Kind::BadHeader, {0x7E, 9, 1, 0, 0}), Mark::BadFrame,
            "<-|BAD-FRAME|kind 9 #1||unknown frame kind 9");
        row("frame cut short",
            linkEvent(Kind::Truncated, Bytes(damaged.begin(), damaged.begin() + 9)), Mark::Timeout,
            "<-|TIMEOUT|DATA #4|ActiveChannel (1)|frame cut after 9 of 15 bytes");
        LinkEvent noAnswer = linkEvent(Kind::ReplyTimeout, {}, 1, 0, 1500);
        noAnswer.opcode = 126;
        row("no answer", noAnswer, Mark::Timeout,
            "|TIMEOUT||CurrentChannel (126)|no answer within 1500 ms", false);
    }
    void rowOfEachEvent()
    {
        auto [event, mark, columns, bytes] =
            fetch<LinkEvent, Mark, QString, bool>("event", "mark", "columns", "bytes");
        const LinkTraceRow row = LinkTraceRow::describe(event);
        QCOMPARE(row.mark, mark);
        QCOMPARE(QString::fromStdString(row.direction + "|" + row.markText + "|" + row.frame + "|" +
                                        row.message + "|" + row.fields),
                 columns);
        QCOMPARE(row.hex, bytes ? LinkTraceRow::hexBytes(event.bytes) : std::string());
    }

    void lineKeepsTheColumns()
    {
        LinkEvent sent = linkEvent(Kind::Resent, kSetChannel12, 2, 3);
        sent.timeMs = 1234;
        const std::string line = LinkTraceRow::describe(sent).line();
        QVERIFY(
            line.starts_with("     1234 ms  ->  RETRY 2/3  DATA #3       SetActiveChannel (100) "
                             "unit=0 channel=12  "));
        QVERIFY(line.ends_with("| 7E 01 03 00 08 24 64 18 00 02 03 00 0C " +
                               LinkTraceRow::hexBytes(std::span(kSetChannel12).last(2))));
    }

    // The window sees the newest rows only, in batches; the file gets every row.
    void recorderKeepsTheLastRowsAndWritesEveryOne()
    {
        QTemporaryDir dir;
        LinkTraceRecorder recorder(3);
        const QString path = dir.filePath("trace.txt");
        QVERIFY(recorder.writeTo(path.toStdString()));
        for (std::uint8_t seq = 0; seq < 5; ++seq)
            recorder.record(linkEvent(Kind::Received, encodeFrame(FrameKind::Ack, seq)));

        std::uint64_t next = 0;
        auto rows = recorder.rowsSince(next);
        QCOMPARE(next, std::uint64_t{5});
        QCOMPARE(rows.size(), std::size_t{3});
        QCOMPARE(rows.front().frame, std::string("ACK #2"));
        recorder.record(linkEvent(Kind::Received, encodeFrame(FrameKind::Ack, 5)));
        rows = recorder.rowsSince(next);
        QCOMPARE(rows.size(), std::size_t{1});
        QCOMPARE(rows.front().frame, std::string("ACK #5"));

        const QString saved = dir.filePath("saved.txt");
        QVERIFY(recorder.save(saved.toStdString()));
        recorder.clear();
        QVERIFY(recorder.rowsSince(next).empty());
        std::uint64_t from = 0;
        QVERIFY(recorder.rowsSince(from).empty());

        const std::string file = readFile(path);
        QVERIFY(file.starts_with(recorder.header()));
        QCOMPARE(std::count(file.begin(), file.end(), '\n'), 1 + 6);
        QVERIFY(file.find("ACK #0") != std::string::npos);
        const std::string copy = readFile(saved);
        QCOMPARE(std::count(copy.begin(), copy.end(), '\n'), 1 + 3);
        QVERIFY(copy.find("ACK #0") == std::string::npos);
        QVERIFY(copy.find("ACK #5") != std::string::npos);
    }
};

QTEST_GUILESS_MAIN(TestLinkTrace)
#include "tst_linktrace.moc"
