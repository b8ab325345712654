// What both parsers do with a record's data: walks over words and bytes into a buffer and its grid at once.
#pragma once

#include <functional>

#include "image/buffers.h"
#include "image/hex_lines.h"
#include "panel/grid.h"

namespace zelvo::image {

/// First position of a record's data.
inline constexpr size_t DataPosition = 10;

/// Runs `line` for each line of `HexLines` until it gives false. A line that does not begin with ":" is told
/// and ends the parse; so does a record that does not fit the chip, with the image reset.
void WalkRecords(const std::function<bool(std::string_view line, const Record& record)>& visit,
                 const std::function<bool(std::string_view line)>& ends);

/// Words from the 0-based index `word`, low byte first in the record; a half index falls between two cells
/// and goes to the even one. An odd last byte is completed with "FF".
void StoreFlash(const Record& record, double word, panel::Grid& grid);
/// Bytes from the 0-based index `index`, one byte in every `stride` bytes of data. The grid shows each behind
/// `lead`.
void StoreEeprom(const Record& record, int index, int stride, panel::Grid& grid, std::string_view lead);

}  // namespace zelvo::image
