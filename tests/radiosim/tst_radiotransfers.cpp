#include "koralapi/Opcodes.h"
#include "radiosim/RadioTransfers.h"
#include "support/Table.h"

#include <QtTest>

#include <numeric>

using namespace koral;
using namespace koral::radiosim;
using namespace koral::test;

namespace {

constexpr int kTarget = 2;
constexpr int kRefusedTarget = 4;

CRadioMessage transferRequest(int opcode, int target, int offset, int length)
{
    CRadioMessage m;
    m.prepareRequest();
    m.setOpcodeAndLength(opcode, 6);
    m[6] = static_cast<std::uint8_t>(target);
    m.put16(7, static_cast<std::uint16_t>(offset));
    m.put16(9, static_cast<std::uint16_t>(length));
    return m;
}

CRadioMessage dataBlock(int target, int offset, int count, bool last, std::uint8_t fill)
{
    CRadioMessage m;
    m.prepareRequest();
    m.setOpcodeAndLength(op::DataBlock, 4 + std::size_t(count));
    m[6] = static_cast<std::uint8_t>(target);
    m.put16(7, static_cast<std::uint16_t>(offset));
    m[9] = last ? 1 : 0;
    std::fill_n(m.payload() + 4, count, fill);
    return m;
}

struct Block
{
    int offset;
    int count;
    bool last;
};

} // namespace

Q_DECLARE_METATYPE(std::vector<Block>)

class RadioTransfersTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        std::iota(m_memory.begin(), m_memory.end(), std::uint8_t{0});
        m_transfers =
            std::make_unique<RadioTransfers>([this](int target, bool) -> RadioTransfers::Memory {
                if (target == kRefusedTarget) {
                    return std::uint8_t(op::status::Refused);
                }
                return std::span<std::uint8_t>(m_memory);
            });
    }

    // A write takes effect only when all its blocks came in order; otherwise nothing changes.
    void write_data()
    {
        columns<int, int, int, std::vector<Block>, int>("target", "offset", "length", "blocks",
                                                        "status");
        const auto row = [](const char* name, int target, int offset, int length,
                            std::vector<Block> blocks, int status) {
            QTest::newRow(name) << target << offset << length << blocks << status;
        };
        row("two blocks", kTarget, 100, 300, {{100, 246, false}, {346, 54, true}},
            op::status::Done);
        row("gap between blocks", kTarget, 0, 300, {{0, 246, false}, {250, 50, true}},
            op::status::BadRange);
        row("last block too early", kTarget, 0, 300, {{0, 246, true}}, op::status::BadRange);
        row("more than announced", kTarget, 0, 100, {{0, 120, true}}, op::status::BadRange);
        row("beyond the record", kTarget, 900, 200, {{900, 200, true}}, op::status::BadRange);
        row("target not kept", kRefusedTarget, 0, 10, {{0, 10, true}}, op::status::Refused);
    }
    void write()
    {
        auto [target, offset, length, blocks, status] =
            fetch<int, int, int, std::vector<Block>, int>("target", "offset", "length", "blocks",
                                                          "status");
        const auto before = m_memory;
        QVERIFY(
            !m_transfers->startWrite(transferRequest(op::DatabaseWrite, target, offset, length)));
        std::optional<RadioTransfers::Result> result;
        for (const Block& b : blocks) {
            QVERIFY(!result);
            result = m_transfers->block(dataBlock(target, b.offset, b.count, b.last, 0xEE));
        }
        QVERIFY(result);
        QCOMPARE(result->request, op::DatabaseWrite);
        QCOMPARE(result->target, target);
        QCOMPARE(int(result->status), status);
        if (status != op::status::Done) {
            QVERIFY(m_memory == before);
            return;
        }
        for (int i = 0; i < int(m_memory.size()); ++i) {
            const bool written = i >= offset && i < offset + length;
            QCOMPARE(m_memory[i], written ? std::uint8_t(0xEE) : before[i]);
        }
    }

    void abortedWriteChangesNothing()
    {
        const auto before = m_memory;
        m_transfers->startWrite(transferRequest(op::DatabaseWrite, kTarget, 0, 20));
        m_transfers->abort(kTarget);
        QVERIFY(!m_transfers->block(dataBlock(kTarget, 0, 20, true, 0xEE)));
        QVERIFY(m_memory == before);
    }

    // A read comes back as consecutive blocks of at most 246 bytes, the last one flagged.
    void readCutsBlocks()
    {
        QVERIFY(!m_transfers->startRead(transferRequest(op::DatabaseRead, kTarget, 10, 600)));
        std::vector<std::uint8_t> got;
        int expectedOffset = 10;
        while (m_transfers->reading()) {
            const CRadioMessage block = m_transfers->nextReadBlock();
            QCOMPARE(block.GetOpcode(), op::DataBlock);
            QCOMPARE(int(block.get16(7)), expectedOffset);
            const int count = block.GetLen() - 4;
            QVERIFY(count <= 246);
            QCOMPARE(block[9] == 1, expectedOffset + count == 610);
            got.insert(got.end(), block.payload() + 4, block.payload() + 4 + count);
            expectedOffset += count;
        }
        QCOMPARE(expectedOffset, 610);
        QVERIFY(std::equal(got.begin(), got.end(), m_memory.begin() + 10));
    }

    void readRefusals_data()
    {
        columns<int, int, int, int>("target", "offset", "length", "status");
        QTest::newRow("not kept") << kRefusedTarget << 0 << 10 << op::status::Refused;
        QTest::newRow("beyond the end") << kTarget << 1000 << 1 << op::status::BadRange;
        QTest::newRow("nothing asked") << kTarget << 0 << 0 << op::status::BadRange;
    }
    void readRefusals()
    {
        auto [target, offset, length, status] =
            fetch<int, int, int, int>("target", "offset", "length", "status");
        const auto refusal =
            m_transfers->startRead(transferRequest(op::DatabaseRead, target, offset, length));
        QVERIFY(refusal);
        QCOMPARE(int(refusal->status), status);
        QVERIFY(!m_transfers->reading());
    }

private:
    std::array<std::uint8_t, 1000> m_memory{};
    std::unique_ptr<RadioTransfers> m_transfers;
};

QTEST_GUILESS_MAIN(RadioTransfersTest)
#include "tst_radiotransfers.moc"
