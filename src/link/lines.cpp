#include "link/lines.h"

namespace zelvo::link {

void SetMasks(std::size_t line, int bit) {
  int* const setMasks[OutputLines] = {&VddSetMask, &VppSetMask, &DataSetMask, &ClockSetMask};
  int* const clearMasks[OutputLines] = {&VddClearMask, &VppClearMask, &DataClearMask, &ClockClearMask};
  *setMasks[line] = bit;
  *clearMasks[line] = 255 - bit;
}

void SetComMasks() {
  for (std::size_t line = 0; line < OutputLines; ++line) SetMasks(line, LineTable[line].comBit);
}

}  // namespace zelvo::link
