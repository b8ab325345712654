// The two erases of a PIC18: the whole chip by one bulk erase, and the code blocks one by one.
#pragma once

#include <string_view>

namespace zelvo::ops18 {

/// Flash, EEPROM, configuration and ID by one bulk erase. Powers the target up and down; logs start and end
/// whatever happened on the wire.
void EraseWholeChip();
/// The code blocks of the chip in `Combo1`; EEPROM, configuration and ID stay. Powers the target up and down;
/// the caller must not have it powered. Writes nothing in the log.
void EraseCodeBlocks();

/// One code at 3C0004h.
void BulkEraseOneKey();
/// One code at 3C0005h and one at 3C0004h, as two hexadecimal digits each.
void BulkEraseTwoKey(std::string_view first, std::string_view second);

/// One memory of an older chip by one code at 3C0004h, `waits` edges behind each element. The script's
/// closing elements are no digits and go out as eight zero bits each, held from the NOP before them: these 24
/// clocks are all the time that the erase gets.
void EraseOneBlock(std::string_view key, int waits);

/// Key lists of the code-block erases, parted by blanks: one code a block, or pairs "00/81".
[[nodiscard]] bool IsOneKeyChip(std::string_view chip);
[[nodiscard]] bool IsTwoKeyChip(std::string_view chip);
/// The chip's keys in order; empty for a name in no row.
[[nodiscard]] std::string_view BlockKeys(std::string_view chip);

void EraseBlocksOneKey(std::string_view keys);
void EraseBlocksTwoKey(std::string_view pairs);

}  // namespace zelvo::ops18
