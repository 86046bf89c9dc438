#pragma once

#include "koralapi/CRadioMessage.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace koral::radiosim {

// The radio's side of the database block transfer: cuts a read into data blocks, and
// collects the blocks of a write until the last one, so that a partial or broken write never
// touches the radio's memory.
class RadioTransfers
{
public:
    static constexpr std::size_t kBlockData = 246;

    // The memory of a target, or the status that refuses it (reading or writing).
    using Memory = std::variant<std::span<std::uint8_t>, std::uint8_t>;
    using Access = std::function<Memory(int target, bool write)>;

    struct Result
    {
        int request = 0;
        int target = 0;
        std::uint8_t status = 0;
    };

    explicit RadioTransfers(Access access) : m_access(std::move(access)) {}

    // A read request (132): the refusal to send back, or nothing when blocks will follow.
    std::optional<Result> startRead(const CRadioMessage& request);
    bool reading() const { return m_read.has_value(); }
    // The next data block of the read in progress (call while reading()).
    CRadioMessage nextReadBlock();

    // A write request (133): the refusal, or nothing when the blocks are awaited.
    std::optional<Result> startWrite(const CRadioMessage& request);
    // A data block (135): the write's result once its last block has come, else nothing.
    std::optional<Result> block(const CRadioMessage& block);

    // Transfer abort (134): stops a read, forgets a write.
    void abort(int target);
    void clear();

private:
    struct Read
    {
        int target = 0;
        std::size_t offset = 0;
        std::size_t end = 0;
        std::vector<std::uint8_t> data; // a snapshot, so a read is consistent
    };
    struct Write
    {
        int target = 0;
        std::size_t offset = 0;
        std::size_t length = 0;
        std::optional<std::uint8_t> failure; // answered when the last block comes
        std::vector<std::uint8_t> data;
    };

    Access m_access;
    std::optional<Read> m_read;
    std::optional<Write> m_write;
};

} // namespace koral::radiosim
