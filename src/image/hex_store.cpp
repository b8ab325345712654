#include "image/hex_store.h"

#include <cmath>
#include <string>

#include "image/hex_load.h"
#include "link/numbers.h"
#include "platform/seams.h"

namespace zelvo::image {
namespace {

/// Walks over cells of eight columns.
struct Place {
  int row;  ///< from 0
  int col;  ///< from 0
  void Advance() {
    if (++col < 8) return;
    col = 0;
    ++row;
  }
};

/// The grid refuses a cell that the chip does not have before the buffer takes anything.
template <class Buffer>
void StoreCell(Buffer& buffer, panel::Grid& grid, const Place& place, std::string_view digits,
               std::string_view shown) {
  grid.SetText(place.row + 1, place.col + 1, shown);
  buffer(place.col + 1, place.row + 1) = digits;
}

}  // namespace

void WalkRecords(const std::function<bool(std::string_view, const Record&)>& visit,
                 const std::function<bool(std::string_view)>& ends) {
  try {
    HexLines.Rewind();
    std::string_view line;
    for (HexLineIndex = 0; HexLines.Next(line); ++HexLineIndex) {
      if (ends(line)) return;
      if (line.empty() || line.front() != ':') {
        platform::seams.dialogs->Message("A nem IntelHex Formátumú");
        return;
      }
      if (!visit(line, Record(line))) return;
    }
  } catch (const panel::GridFault&) {
    RecoverFromFault();
  } catch (const RecordFault&) {
    RecoverFromFault();
  } catch (const std::out_of_range&) {
    RecoverFromFault();
  }
}

void StoreFlash(const Record& record, double word, panel::Grid& grid) {
  if (word < 0) throw RecordFault{};
  Place place{static_cast<int>(word / 8), 0};
  place.col = link::RoundHalfEven(word - place.row * 8.0);
  const int bytes = record.Count() + record.Count() % 2;
  size_t position = DataPosition;
  for (int i = 1; i <= bytes / 2; ++i, position += 4) {
    char digits[4] = {'F', 'F'};
    if (2 * i <= record.Count()) record.PutPair(position + 2, digits);
    record.PutPair(position, digits + 2);
    const std::string_view text(digits, sizeof digits);
    StoreCell(MainBuffer, grid, place, text, text);
    place.Advance();
  }
}

void StoreEeprom(const Record& record, int index, int stride, panel::Grid& grid, std::string_view lead) {
  Place place{index / 8, index % 8};
  size_t position = DataPosition;
  for (int i = 1; i <= record.Count() / stride; ++i, position += static_cast<size_t>(2 * stride)) {
    const std::string byte = record.Pair(position);
    StoreCell(EepromBuffer, grid, place, byte, std::string(lead) += byte);
    place.Advance();
  }
}

}  // namespace zelvo::image
