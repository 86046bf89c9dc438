#pragma once

// The radio's databases moved as whole records. Each call blocks on the caller's thread,
// calls `pump` at least every 50 ms while it waits, and calls `progress` with the number of
// record bytes moved since the previous call (one step per byte of the record); a `progress`
// that returns 0 stops the transfer, which then fails. `patience` is how many seconds the radio
// may take to start answering (the program passes 10; clamped to 1..60); from then on the
// record must move within a bound that follows from the line's rate and the record's size, so
// a line much slower than the rate it was opened at fails (and the radio is told to stop)
// instead of dragging on. The records are in host order; the radio holds their multi-byte
// numbers big-endian and the library converts a private copy, so a record is never left in
// radio order. 1 on success, 0 on failure.

#include "koralapi/MessageEngine.h"
#include "koralapi/RadioRecords.h"

#include <cstdint>
#include <span>

namespace koral {

// `start` is the first byte to read (0 = the whole record).
int ReadRadioDataBase(MessageEngine* engine, dbase* record, int start, const PumpCallback& pump,
                      const ProgressCallback& progress, int patience);
int ReadAleDataBase(MessageEngine* engine, ale_dbase* record, const PumpCallback& pump,
                    const ProgressCallback& progress, int patience);
int ReadGlobalMemberDataBase(MessageEngine* engine, ale_dbase_global_members* record,
                             const PumpCallback& pump, const ProgressCallback& progress,
                             int patience);
int ReadCcirDataBase(MessageEngine* engine, ccir_dbase* record, const PumpCallback& pump,
                     const ProgressCallback& progress, int patience);
int ReadChannelNameDataBase(MessageEngine* engine, channel_name* record, const PumpCallback& pump,
                            const ProgressCallback& progress, int patience);
int ReadExtraOptionDataBase(MessageEngine* engine, tag_extra_options* record,
                            const PumpCallback& pump, const ProgressCallback& progress,
                            int patience);

// The flags tell the radio what the program believes about it (CCIR mode, ALE global members
// and extra options kept); they travel with the write request.
int WriteRadioDataBase(MessageEngine* engine, const dbase* record, int start,
                       const PumpCallback& pump, const ProgressCallback& progress, int patience);
int WriteAleDataBase(MessageEngine* engine, const ale_dbase* record, const PumpCallback& pump,
                     const ProgressCallback& progress, int patience, unsigned char ccirMode,
                     unsigned char aleGlobalSupported, unsigned char extraOptionsSupported);
int WriteCcirDataBase(MessageEngine* engine, const ccir_dbase* record, const PumpCallback& pump,
                      const ProgressCallback& progress, int patience);
int WriteChannelNameDataBase(MessageEngine* engine, const channel_name* record,
                             const PumpCallback& pump, const ProgressCallback& progress,
                             int patience, unsigned char extraOptionsSupported);
int WriteGlobalMemberDataBase(MessageEngine* engine, const ale_dbase_global_members* record,
                              const PumpCallback& pump, const ProgressCallback& progress,
                              int patience, unsigned char extraOptionsSupported);
int WriteExtraOptionDataBase(MessageEngine* engine, const tag_extra_options* record,
                             const PumpCallback& pump, const ProgressCallback& progress,
                             int patience);

// The transfers above on raw bytes of one target (`bytes` cover the record from `start` on, in
// host order). For tools and for the virtual radio's tests.
int readTarget(MessageEngine* engine, TransferTarget target, std::span<std::uint8_t> bytes,
               int start, const PumpCallback& pump, const ProgressCallback& progress, int patience);
int writeTarget(MessageEngine* engine, TransferTarget target, std::span<const std::uint8_t> bytes,
                int start, const PumpCallback& pump, const ProgressCallback& progress, int patience,
                std::uint8_t flags);

// Memory programming: the radio's database memory has the `dbase` layout. The data given to
// WriteRADIOMemorySection is sent as it is: the caller has put its numbers in radio order.
int StartRADIOProgramming(MessageEngine* engine);
int WriteRADIOMemorySection(MessageEngine* engine, const unsigned char* data, int offset,
                            unsigned int length);
int StopRADIOProgramming(MessageEngine* engine);

} // namespace koral
