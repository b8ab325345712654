#include "bench/serial_chip.h"

namespace zelvo::bench {

void SerialChip::Drive(const LineLevels& lines, Nanoseconds now) {
  const LineLevels before = lines_;
  lines_ = lines;
  if (!programming_) {
    if (lines.pgc || lines.pgd || !Enters(before, lines)) return;
    driving_ = clocked_ = false;
    entered_ = lastEdge_ = now;
    programming_ = true;
    Entered(now);
    return;
  }
  if (!lines.vdd || !lines.vpp) {
    Leaving(now);
    programming_ = driving_ = false;
    return;
  }
  if (lines.pgc == before.pgc) return;
  if (lines.pgc) {
    ClockRises(now);
  } else {
    // Data that changes in the same moment as the falling edge comes too late for it.
    ClockFalls(before.pgd, now);
  }
}

std::optional<bool> SerialChip::DataOut(Nanoseconds) {
  return driving_ ? std::optional<bool>(level_) : std::nullopt;
}

}  // namespace zelvo::bench
