// The pieces that the full write and the verify-write mode share: the running address, and one burst of table
// writes.
#pragma once

namespace zelvo::ops18 {

inline constexpr int WordsPerRow = 8;

/// How a chip takes a burst.
struct BurstLayout {
  int words;          ///< of one burst
  int pointerScript;  ///< script whose elements 7 to 24 set the table pointer
};

inline int RunningAddress = 0;  ///< byte address of the next burst

/// The running address and the three pointer texts back to 0.
void ResetAddress();
void AdvanceAddress(int bytes);
/// Clocks elements `first` to `last` of a script with the pointer texts, no pauses. Stops at "NOP".
void RunAddressed(int scriptBase, int first, int last);
/// Sets the chip's pointer and writes the layout's words of `MainBuffer` from (`row`, `column`): "1101" for
/// each but the last, "1111" for that, then the pulse. The running address grows by the burst.
void WriteBurst(const BurstLayout& layout, int row, int column);

/// Rows of the selected chip, which is also the maximum of the progress bar.
[[nodiscard]] int FlashRows();

}  // namespace zelvo::ops18
