// The fourteen configuration bytes of a PIC18, 300000h to 30000Dh.
#pragma once

namespace zelvo::ops18 {

/// Reads them into `ReadBackBytes` 1 to 14 and opens the review. Needs a selected chip. Powers the target up
/// and down.
void ReadConfigBytes();
/// Writes `ConfigBuffer` as the chip in `Combo1` takes it: 2331, 2431, 4331 and 4431 are sent nothing. Reads
/// back if `Check1` is ticked. Powers the target up and down.
void WriteConfigBytes();

// The two ways of writing. Each expects the target powered and leaves `WaitCount` at the speed setting.
void WriteConfigDirect();
void WriteConfigAfterErase();

}  // namespace zelvo::ops18
