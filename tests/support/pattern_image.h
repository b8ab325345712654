// The program's image of a PIC18 filled with a pattern, and told in the addresses of a HEX file.
#pragma once

#include <string_view>

#include "support/hex_image.h"

namespace zelvo::test {

/// Fills Flash, EEPROM, ID and configuration of the chosen chip with bytes that depend on their place and on
/// `seed`. No ID byte is FFh.
void FillWithPattern(int seed);
/// Configuration bytes that the chosen chip does not have go back to FFh.
void EraseForeignConfig();
/// The image by byte address: code from 0, ID from 200000h, configuration from 300000h, EEPROM from F00000h.
[[nodiscard]] HexImage ImageByAddress();
/// True for a PIC18 whose choice brings limits of its own; the others keep those of the chip before.
[[nodiscard]] bool HasLimits(std::string_view chip);

}  // namespace zelvo::test
