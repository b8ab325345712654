// The image as the text of a file: Intel HEX with the addresses of a PIC18, and MCH, the plain list of cells
// that MPLAB imports. Lines end in CR and LF, which every reader of these formats takes.
#pragma once

#include <string>

namespace zelvo::image {

/// Flash, ID locations, configuration and EEPROM of the chosen chip. Beyond FFFFh the address of a line has
/// five digits: such a line is no record any more, and the checksum takes the lower 16 bits of its address.
[[nodiscard]] std::string IntelHexText();
/// The words of the chosen chip, one a line, as they stand in `MainBuffer`.
[[nodiscard]] std::string MchFlashText();
/// The bytes of the chosen chip's EEPROM, one a line, as they stand in `EepromBuffer`.
[[nodiscard]] std::string MchEepromText();

}  // namespace zelvo::image
