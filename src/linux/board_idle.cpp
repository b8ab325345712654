#include "linux/board_idle.h"

#include <cstdint>

#include "link/lines.h"

namespace zelvo::linuxio {
namespace {

/// A line's bit at rest. This runs at every write to a port, so it stays free of branches.
constexpr int HighIf(bool inverted, int bit) {
  return -static_cast<int>(inverted) & bit;
}

int Register(int offset) {
  return static_cast<std::uint16_t>(link::PortBase + offset);
}

}  // namespace

IdleLevels IdleLevelsOfBoard() {
  using namespace link;  // NOLINT(google-build-using-namespace): the board's settings, nothing else
  if (LptMode) {
    const int atRest = HighIf(VddInverted, VddSetMask) | HighIf(VppInverted, VppSetMask) |
                       HighIf(DataInverted, DataSetMask) | HighIf(ClockInverted, ClockSetMask);
    return {{{Register(LptData), VddSetMask | VppSetMask | DataSetMask | ClockSetMask, atRest}}};
  }
  if (ComMode) {
    // Fixed bits: the masks may still be those of the printer port while the interface is being changed.
    return {{{Register(UartModemControl), 1 | 2, HighIf(ComPgdInverted, 1) | HighIf(ComPgcInverted, 2)},
             {Register(UartLineControl), 64, HighIf(ComVppInverted, 64)}}};
  }
  return {};
}

}  // namespace zelvo::linuxio
