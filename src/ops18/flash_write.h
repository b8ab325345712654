// Writes `MainBuffer` into the program memory of a PIC18. The chips differ in the size of their write buffer:
// 8, 32 or 64 bytes. The full write erases the code blocks first and skips blank groups; the verify-write
// mode compares with `VerifyBuffer` in blocks of 64 bytes and rewrites only those that differ.
#pragma once

#include <string_view>

namespace zelvo::ops18 {

/// Writes by the chip in `Combo1` and the mode in `Check3`, takes `MainBuffer` over into `VerifyBuffer`, and
/// reads back if `Check1` is ticked. Powers the target up and down. Cancel has no effect.
void WriteFlash();

// The six routines. Each expects the target powered.
void WriteFlashPanels();
void WriteFlash32();
void WriteFlash64();
void VerifyWritePanels();
void VerifyWrite32();
void VerifyWrite64();

/// Write buffers and the chips that have them.
struct WriteRow {
  std::string_view chips;
  void (*full)();
  void (*verify)();
};
/// Nullptr for a name in no row.
[[nodiscard]] const WriteRow* FindWriteRow(std::string_view chip);

}  // namespace zelvo::ops18
