#include "linux/board_idle.h"

#include <cstdint>

#include "link/lines.h"

namespace zelvo::linuxio {
namespace {

struct Line {
  int bit;
  bool inverted;
};

template <typename... Lines>
IdleRegister AtRest(int offset, Lines... lines) {
  IdleRegister idle{static_cast<std::uint16_t>(link::PortBase + offset), 0, 0};
  for (const Line& line : {lines...}) {
    idle.mask |= line.bit;
    if (line.inverted) idle.value |= line.bit;
  }
  return idle;
}

}  // namespace

IdleLevels IdleLevelsOfBoard() {
  using namespace link;  // NOLINT(google-build-using-namespace): the board's settings, nothing else
  if (LptMode) {
    return {AtRest(LptData, Line{VddSetMask, VddInverted}, Line{VppSetMask, VppInverted},
                   Line{DataSetMask, DataInverted}, Line{ClockSetMask, ClockInverted})};
  }
  if (ComMode) {
    // Fixed bits: the masks may still be those of the printer port while the interface is being changed.
    return {AtRest(UartModemControl, Line{1, ComPgdInverted}, Line{2, ComPgcInverted}),
            AtRest(UartLineControl, Line{64, ComVppInverted})};
  }
  return {};
}

}  // namespace zelvo::linuxio
