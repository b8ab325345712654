// The eight ID location bytes of a PIC18, 200000h to 200007h.
#pragma once

namespace zelvo::ops18 {

/// Reads them into `ReadBackBytes` 1 to 8, each pair with its odd address first, and opens the review. Powers
/// the target up and down.
void ReadIdLocations();
/// Erases the row and writes `IdBuffer`, as the chip in `Combo1` takes it. Reads back if `Check1` is ticked.
/// Powers the target up and down.
void WriteIdLocations();

// The two ways of writing. Each expects the target powered and the pointer texts at 200000h.
void WriteIdWithUnlock();
void WriteIdTwoPhase();

}  // namespace zelvo::ops18
