// Data EEPROM of the mid-range chips.
#pragma once

#include <cstdint>

namespace zelvo::opsmid {

inline std::int16_t EepromWriteCount = 0;  ///< cells that a write has passed

/// Reads `EepromMax` + 1 bytes into `EepromReadBuffer` and opens the review; Cancel has no effect. The target
/// must be powered.
void ReadMidEeprom();
/// Asks its questions unless a whole write runs or the manual board is in use, erases, and writes every byte
/// of `EepromBuffer` that is not "FF". Cancel ends it behind the byte in hand. Powers the target up, not
/// down.
void WriteMidEeprom();

/// True when the chosen chip has data memory; else the operator is told that it has none.
[[nodiscard]] bool HasMidEeprom();

}  // namespace zelvo::opsmid
