// The erases of the mid-range chips. Each generation erases in its own way: twelve short fixed sequences, and
// tables of which chip takes which.
#pragma once

#include <string_view>

namespace zelvo::opsmid {

/// Everything on the chip, by its group. The target must be powered.
void EraseWholeChip(std::string_view chip);
/// Program memory, before a Flash write. The target must be powered.
void EraseForFlashWrite(std::string_view chip);
/// Data memory, before an EEPROM write; chips in no row get none. The target must be powered.
void EraseForEepromWrite(std::string_view chip);

/// The button's operation behind its questions: erase with its log lines and, if `Check4` is ticked,
/// everything read back. Powers the target up and down.
void EraseChip();

}  // namespace zelvo::opsmid
