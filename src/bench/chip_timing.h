// Waits that a simulated chip found too short.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "bench/board.h"

namespace zelvo::bench {

enum class WaitKind : std::uint8_t {
  ClockLow,
  ClockHigh,
  Entry,
  Program,
  ProgramConfig,
  ProgramRow,
  Discharge,
  Erase,
  EraseRow,
  Eeprom,
  // of the mid-range chips
  MidEntry,
  FrameGap,
  ProgramWords,
  ProgramHeld,
  DataByte,
  EraseMemory,
  EraseWords,
  HoldDischarge,
  Count
};

class WaitLog {
 public:
  /// Kept only when the wait was shorter than the minimum.
  void Check(WaitKind kind, Nanoseconds waited, Nanoseconds minimum) {
    if (waited < minimum) Add(kind, waited, minimum);
  }
  [[nodiscard]] std::vector<TimingFault> Faults() const;

 private:
  struct Entry {
    Nanoseconds shortest = 0;
    Nanoseconds minimum = 0;
    std::uint64_t count = 0;
  };
  void Add(WaitKind kind, Nanoseconds waited, Nanoseconds minimum);

  std::array<Entry, static_cast<std::size_t>(WaitKind::Count)> entries_{};
};

}  // namespace zelvo::bench
