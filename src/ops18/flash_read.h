// Reads the program memory of a PIC18 by table reads.
#pragma once

namespace zelvo::ops18 {

/// Reads `FlashWordMax` + 1 words into `ReadBackBytes`, at an eighth of the speed setting's waits, and opens
/// the review unless the operator cancelled. Powers the target up and down.
void ReadFlash();
/// One word at the chip's table pointer: high byte at `ReadIndex`, low byte behind it; the pointer grows
/// by 2.
void MEMolvasLH();
/// One byte at the chip's table pointer, into `ReadBackBytes` at `ReadIndex`; both grow by 1.
void ReadFlashByte();

}  // namespace zelvo::ops18
