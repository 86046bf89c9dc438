#include "koralapi/CRadioMessage.h"
#include "koralapi/FrameCodec.h"
#include "koralapi/RadioRecords.h"
#include "support/Table.h"

#include <QTest>

#include <algorithm>
#include <vector>

using namespace koral;
using namespace koral::test;

Q_DECLARE_METATYPE(koral::FrameFault)

namespace {
using Bytes = std::vector<std::uint8_t>;

Bytes concat(std::initializer_list<Bytes> parts)
{
    Bytes out;
    for (const Bytes& part : parts)
        out.insert(out.end(), part.begin(), part.end());
    return out;
}

std::vector<Frame> decodeAll(const Bytes& wire, std::size_t chunk, FrameDecoder& decoder)
{
    std::vector<Frame> frames;
    for (std::size_t at = 0; at < wire.size(); at += chunk) {
        decoder.feed(std::span(wire).subspan(at, std::min(chunk, wire.size() - at)));
        while (auto frame = decoder.next())
            frames.push_back(std::move(*frame));
    }
    return frames;
}
} // namespace

class TestFrameCodec : public QObject
{
    Q_OBJECT
private slots:
    void crcMatchesTheStandardCheckValue()
    {
        const Bytes check{'1', '2', '3', '4', '5', '6', '7', '8', '9'};
        QCOMPARE(crc16(check), std::uint16_t{0x29B1});
    }

    void roundTripSurvivesAnyChunking_data()
    {
        QTest::addColumn<int>("chunk");
        for (int chunk : {1, 2, 7, 263, 4096})
            QTest::addRow("chunk %d", chunk) << chunk;
    }
    void roundTripSurvivesAnyChunking()
    {
        QFETCH(int, chunk);
        Bytes body(262);
        for (std::size_t i = 0; i < body.size(); ++i)
            body[i] = static_cast<std::uint8_t>(i); // includes 0x7E inside the body
        const Bytes wire =
            concat({encodeFrame(FrameKind::Data, 200, body), encodeFrame(FrameKind::Ack, 200),
                    encodeFrame(FrameKind::Data, 201, {})});
        FrameDecoder decoder;
        const auto frames = decodeAll(wire, static_cast<std::size_t>(chunk), decoder);
        QCOMPARE(frames.size(), std::size_t{3});
        QCOMPARE(frames[0].seq, std::uint8_t{200});
        QVERIFY(frames[0].body == body);
        QCOMPARE(frames[1].kind, FrameKind::Ack);
        QVERIFY(frames[2].body.empty());
        QCOMPARE(decoder.rejectedFrames(), std::size_t{0});
    }

    // A damaged frame is dropped and the next good one is still found.
    void damagedFrameIsSkipped_data()
    {
        // fault: what a trace of the link is told
        columns<int, int, bool, FrameFault>("position", "value", "truncate", "fault");
        QTest::addRow("bad kind") << 1 << 9 << false << FrameFault::Header;
        QTest::addRow("length too long") << 3 << 0x7F << false << FrameFault::Header;
        QTest::addRow("flipped body byte") << 7 << 0x55 << false << FrameFault::Checksum;
        QTest::addRow("ack with a body") << 1 << 2 << false << FrameFault::Header;
        // The good frame's bytes complete the cut one, whose checksum then fails.
        QTest::addRow("cut after the header") << 6 << 0 << true << FrameFault::Checksum;
    }
    void damagedFrameIsSkipped()
    {
        auto [position, value, truncate, fault] =
            fetch<int, int, bool, FrameFault>("position", "value", "truncate", "fault");
        Bytes bad = encodeFrame(FrameKind::Data, 1, Bytes{0x7E, 0x7E, 0x7E, 0x7E, 0x7E});
        if (truncate)
            bad.resize(static_cast<std::size_t>(position));
        else
            bad[static_cast<std::size_t>(position)] = static_cast<std::uint8_t>(value);
        const Bytes good = encodeFrame(FrameKind::Data, 2, Bytes{1, 2, 3});
        FrameDecoder decoder;
        decoder.setKeepRejections(true);
        auto frames = decodeAll(concat({Bytes{0x00, 0x7E, 0xFF}, bad, good}), 1, decoder);
        if (truncate && frames.empty()) {
            // The truncated frame swallowed the start of the good one until the bytes stop.
            decoder.discardPartial();
            while (auto frame = decoder.next())
                frames.push_back(*frame);
        }
        QVERIFY(!frames.empty());
        QCOMPARE(frames.back().seq, std::uint8_t{2});
        QVERIFY(frames.back().body == (Bytes{1, 2, 3}));
        QVERIFY(decoder.rejectedFrames() >= 1);
        // The stray sync byte first, then the damaged frame from its sync byte on.
        const auto rejections = decoder.takeRejections();
        QCOMPARE(rejections.size(), decoder.rejectedFrames());
        QCOMPARE(rejections.front().fault, FrameFault::Header);
        QCOMPARE(rejections.front().bytes.size(), frame::kHeaderSize);
        QCOMPARE(rejections.front().bytes[1], std::uint8_t{0xFF});
        QVERIFY(std::any_of(rejections.begin() + 1, rejections.end(), [&](const auto& r) {
            return r.fault == fault && r.bytes.front() == 0x7E && r.bytes[2] == 1;
        }));
    }

    void messageKeepsOnlyWhatItsLengthSays()
    {
        CRadioMessage message;
        message.prepareRequest();
        message.setOpcodeAndLength(100, 2);
        message[6] = 0;
        message[7] = 12;
        QCOMPARE(message.wireBytes().size(), std::size_t{8});
        CRadioMessage copy;
        QVERIFY(copy.assign(message.wireBytes()));
        QCOMPARE(copy.GetOpcode(), 100);
        QCOMPARE(copy.GetLen(), 2);
        QCOMPARE(copy[7], std::uint8_t{12});
        const Bytes inconsistent{0x24, 1, 0x18, 0, 5, 3, 1};
        QVERIFY(!copy.assign(inconsistent));
        QCOMPARE(copy.GetOpcode(), 0);
    }

    void radioOrderOfTheRecords_data()
    {
        columns<int, int, int>("target", "offset", "size");
        QTest::addRow("parameter word") << 1 << 1330 << 2;
        QTest::addRow("guard of group E") << 1 << 1383 + 61 * 4 << 2;
        QTest::addRow("tx of channel 1") << 1 << 1688 + 3 << 4;
        QTest::addRow("rx of channel 200") << 1 << 1688 + 13 * 199 + 7 << 4;
        QTest::addRow("priority channel") << 1 << 4288 << 2;
        QTest::addRow("all-call channel of net 20") << 2 << 91 * 19 + 49 << 2;
    }
    void radioOrderOfTheRecords()
    {
        auto [target, offset, size] = fetch<int, int, int>("target", "offset", "size");
        Bytes record(targetSize(target));
        const std::uint32_t value = size == 2 ? 0x0001u : 0x01C9C380u; // 30 MHz
        std::memcpy(record.data() + offset, &value, static_cast<std::size_t>(size));
        convertByteOrder(static_cast<TransferTarget>(target), record);
        // Most significant byte first now, nothing else touched.
        Bytes expected(targetSize(target));
        for (int i = 0; i < size; ++i)
            expected[static_cast<std::size_t>(offset + i)] =
                static_cast<std::uint8_t>(value >> (8 * (size - 1 - i)));
        QVERIFY(record == expected);
        // A block that holds only part of the record converts only the numbers inside it.
        Bytes block(record.begin() + offset, record.begin() + offset + size);
        convertByteOrder(static_cast<TransferTarget>(target), block,
                         static_cast<std::size_t>(offset));
        QCOMPARE(std::memcmp(block.data(), &value, static_cast<std::size_t>(size)), 0);
    }

    void byteOnlyRecordsAreLeftAlone()
    {
        for (auto target :
             {TransferTarget::Ccir, TransferTarget::ChannelName, TransferTarget::GlobalMembers,
              TransferTarget::ExtraOptions, TransferTarget::RadioMemory}) {
            Bytes record(targetSize(static_cast<int>(target)));
            for (std::size_t i = 0; i < record.size(); ++i)
                record[i] = static_cast<std::uint8_t>(i * 7);
            const Bytes before = record;
            convertByteOrder(target, record);
            QVERIFY(record == before);
        }
    }
};

QTEST_GUILESS_MAIN(TestFrameCodec)
#include "tst_framecodec.moc"
