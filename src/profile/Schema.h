#pragma once

// The table-driven engine behind every data file (.rss, .ale, .ccr, the BITE results): one
// table of rows per file kind drives both saving and loading, so the two cannot drift apart.
//
// A row maps one key (or, for an array row, one key per element) to a field of a record. The
// record is a byte span; multi-byte numbers in it are in host order. Value types and their
// text in the file:
//   Text       (1) NUL-terminated text in a field of `width` bytes (at most width - 1 chars)
//   FixedText  (2) fixed-width text of `width` bytes, NUL-padded, not terminated when full
//   U32        (3) unsigned 32-bit number, decimal as the C "%ld" of a 32-bit long
//   U16        (4) 16-bit number, decimal ("%d"), or its text when the row has a value list
//   U8         (5) 8-bit number, its text from the value list, or decimal without a list
//   Composite  (6) several fields joined by "," (no trailing comma); see Field
//   Hex32      (7) 32-bit number, hexadecimal ("%X")
//   Hex8       (8) 8-bit number, hexadecimal ("%X")
//   Bitmap     (9) `width` bits, most significant bit first within each byte (bit n is bit
//                  7 - n % 8 of byte n / 8): the numbers of the set bits, rising, joined by ","
//
// Saving writes a value that its list does not hold as an empty text. Loading takes a missing
// key's default; an empty field of a composite value takes that field's default; a text is
// matched exactly and case-sensitively against the value list, and one that is in no list
// stores kValueListEnd (0x8000), of which an 8-bit field keeps the low byte, 0; decimal and
// hexadecimal texts go through the C library's conversions (leading number, else 0); a bitmap
// sets the bit of each listed number from 0 to its bit count inclusive and ignores the others.
// Loading overwrites every field a row names and leaves the other bytes alone.
//
// Nothing here throws; a row that does not fit in the record is skipped.

#include "profile/ValueList.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace koral {

class ProfileFile;

namespace schema {

enum class Type : std::uint8_t
{
    Text = 1,
    FixedText = 2,
    U32 = 3,
    U16 = 4,
    U8 = 5,
    Composite = 6,
    Hex32 = 7,
    Hex8 = 8,
    Bitmap = 9,
};

// One comma-separated part of a composite value. A Bitmap field takes every remaining part,
// so it must be the last field of its row.
struct Field
{
    Type type = Type::U8;
    std::size_t offset = 0; // from the start of the row's element
    std::size_t width = 1;  // bytes (text types), bits (Bitmap); ignored for number types
    const char* defaultText = "";
    ValueList values = {};
};

// The presence flag of a row that is written whatever the flags say.
inline constexpr int kAlways = -1;

struct Row
{
    // nullptr: the section named by Options::section (for example one per ALE net).
    const char* section = nullptr;
    const char* key = "";
    // Loaded when the key is missing; for a composite, the whole value text.
    const char* defaultText = "";
    // Index into the presence flags of the row (of element 0 for an array row; element i uses
    // flag + i); a row or element is written only when its flag byte is non-zero. kAlways
    // writes it unconditionally.
    int flag = kAlways;
    Type type = Type::U8;
    std::size_t offset = 0; // of the field (of element 0) in the record
    std::size_t width = 1;  // as Field::width
    // 0: one key. N > 0: an array of N elements at offset + i * stride, keyed by the key
    // followed directly by the element's number, counted from firstNumber ("%s%d").
    int count = 0;
    std::size_t stride = 0;
    int firstNumber = 1;
    std::span<const Field> fields = {}; // Composite only
    ValueList values = {};              // U16 and U8 only
    // Loading a key that is present with an empty value leaves the field as it was.
    bool emptyKeeps = false;
};

struct Options
{
    // The first row of the table to handle. The BITE results writer passes 1: its table's
    // first row (the software version) is deliberately never written to that file.
    std::size_t firstRow = 0;
    // The section of rows whose section is nullptr.
    std::string_view section = {};
    // The read buffer of each key when loading: at most bufferSize - 1 characters are read.
    std::size_t bufferSize = 4096;
};

// Writes the rows into `file` (in memory) in table order. `flags` holds the presence flags
// the rows point at; a flag index outside `flags` counts as not present.
void save(ProfileFile& file, std::span<const Row> rows, std::span<const std::uint8_t> record,
          std::span<const std::uint8_t> flags, const Options& options = {});

// Reads the rows from `file` into `record`, in table order.
void load(const ProfileFile& file, std::span<const Row> rows, std::span<std::uint8_t> record,
          const Options& options = {});

// The decimal conversion of the loaders: the C library's atol on a 32-bit long (leading
// blanks, an optional sign, the leading digits; 0 without digits; saturated on overflow).
std::int32_t parseDecimal(std::string_view text);

} // namespace schema
} // namespace koral
