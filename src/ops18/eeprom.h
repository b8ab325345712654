// The data EEPROM of a PIC18, reached through the chip's own EEADR, EEDATA and EECON1: core instructions go
// in, results come out through TABLAT.
#pragma once

#include <string_view>

namespace zelvo::ops18 {

/// Reads `EepromMax` + 1 bytes into `EepromReadBuffer`, at an eighth of the speed setting's waits, and opens
/// the review unless the operator cancelled. Powers the target up and down. A chip without EEPROM is told.
void ReadEeprom();
/// Erases the EEPROM alone, then writes every byte of `EepromBuffer` that is not "FF", one at a time, waiting
/// for the chip's WR bit without limit. Cancel has no effect. Reads back if `Check1` is ticked. Powers the
/// target up and down.
void WriteEeprom();
/// Powers the target up and down.
void EraseEeprom();

[[nodiscard]] bool HasNoEeprom(std::string_view chip);

// The variants. Each expects the target powered; the reads leave it without power.
void ReadEepromByteAddress();
void ReadEepromWordAddress();
void WriteEepromUnlockShort();
void WriteEepromUnlockLong();
void WriteEepromNoUnlock();
void EraseEepromOneKey();

}  // namespace zelvo::ops18
