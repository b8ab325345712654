// The grids and lists through which the operator sees the image.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "panel/grid.h"

namespace zelvo::image {

inline constexpr std::string_view ErasedPic18Word = "FFFF";
inline constexpr std::string_view ErasedMidRangeWord = "3FFF";
inline constexpr std::string_view ErasedByte = "FF";

/// How a memory is laid out in a grid.
struct GridLayout {
  std::string_view corner;     ///< heading of the address column
  std::string_view separator;  ///< between the two digits of a column heading
  int labelDigits;             ///< row labels are padded to this width
};
inline constexpr GridLayout FlashGridLayout{" Szó cím", " / ", 4};
inline constexpr GridLayout FlashReviewLayout{"Flash cím", " / ", 4};
inline constexpr GridLayout EepromGridLayout{"EE cím", "/", 2};

/// Headings, rows for the cells 0..`highest`, row labels; every cell holds `text`.
void SetUpGrid(panel::Grid& grid, const GridLayout& layout, int highest, std::string_view text);

/// The grids of the page in view.
[[nodiscard]] panel::Grid& PageFlashGrid();
[[nodiscard]] panel::Grid& PageEepromGrid();

/// Column geometry of the four grids; once, at start-up.
void FormatGrids();
/// Column geometry of one Flash grid.
void FormatFlashGrid(panel::Grid& grid);
/// Column geometry of one EEPROM grid.
void FormatEepromGrid(panel::Grid& grid);
/// Rebuild the grid of the page in view with erased cells.
void ListAlapFlash();
void ListAlapEEPROM();

/// The eight ID lists of the PIC18 page back to the erased byte.
void ResetIdLabels();
/// An ID byte as its lists show it: two digits and their character.
[[nodiscard]] std::string IdLine(std::string_view digits);
/// The list of configuration byte `index` (1..14) shows the bits of `ConfigBitStrings`.
void ShowConfigBits(int index);
/// ID list `element` (1..8) shows two digits and their character.
void ShowIdByte(int element, std::string_view digits);
/// A user ID word as its list shows it, in hexadecimal and decimal.
[[nodiscard]] std::string MidIdLine(std::int16_t value);
/// The list of user ID word `word` (1..4) shows it in hexadecimal and decimal.
void ShowMidId(int word);
/// A character of code page 1250 in UTF-8. `code` 0..255.
[[nodiscard]] std::string Cp1250(int code);
/// The code of a UTF-8 character in code page 1250; that of '?' for one that the page does not have.
[[nodiscard]] int Cp1250Code(std::string_view character);

}  // namespace zelvo::image
