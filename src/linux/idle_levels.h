// The levels of the lines at rest, as registers of the port, and their bytes kept ready for the signal
// handler.
#pragma once

#include <array>
#include <atomic>

namespace zelvo::linuxio {

/// Number of registers behind one port: a UART's eight; a parallel port uses the first three.
inline constexpr int registerCount = 8;

/// One register that carries lines: `mask` has their bits, `value` their levels at rest.
struct IdleRegister {
  int address = -1;  ///< 0..FFFFh; -1 for an unused entry
  int mask = 0;
  int value = 0;
};

/// All registers that carry lines of the board: one on a parallel port, two on a serial port.
using IdleLevels = std::array<IdleRegister, 2>;

/// Asked at every write, because polarity and pin assignment may change during a run.
using IdleLevelsSource = IdleLevels (*)();

/// A port's registers as they must read at rest. Written by the program, read by the signal handler.
class IdleBytes {
 public:
  IdleBytes();
  /// `written` is what the registers from `base` on hold now; bits that carry no line keep their value.
  void Refresh(const IdleLevels& levels, int base, const std::array<int, registerCount>& written);
  /// The byte at rest, or -1 for a register without lines. Async-signal-safe.
  [[nodiscard]] int At(int offset) const noexcept;

 private:
  std::array<std::atomic<int>, registerCount> bytes_;
  static_assert(std::atomic<int>::is_always_lock_free, "a signal handler reads these");
};

}  // namespace zelvo::linuxio
