// The walk over a chip's EEPROM that every read and write of it makes.
#pragma once

#include "devices/selection.h"
#include "image/buffers.h"
#include "link/progress.h"

namespace zelvo::image {

inline int EepromAddress = 0;  ///< of the byte being read or written

/// Calls `use` with column and row of each byte of the chosen chip, in order of addresses, until it gives
/// false, and shows `counter` before each. The chip's size counts as it is at the start: choosing a chip or a
/// page meanwhile does not end the walk.
template <class Counter, class Use>
void WalkEeprom(panel::ProgressWindow& window, const Counter& counter, const Use& use) {
  constexpr int Columns = 8;
  const int rows = RowsOf(devices::EepromMax);
  for (int row = 1; row <= rows; ++row) {
    for (int column = 1; column <= Columns; ++column) {
      link::StepProgress(window, counter);
      if (!use(column, row)) return;
    }
  }
}

}  // namespace zelvo::image
