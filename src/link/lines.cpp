#include "link/lines.h"

namespace zelvo::link {

void SetComMasks() {
  VddSetMask = 1;
  VddClearMask = 254;
  VppSetMask = 64;
  VppClearMask = 191;
  DataSetMask = 1;
  DataClearMask = 254;
  ClockSetMask = 2;
  ClockClearMask = 253;
}

}  // namespace zelvo::link
