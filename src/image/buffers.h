// The in-memory image of a chip as text: every word and byte is a cell of upper-case hexadecimal digits of
// fixed width, four for a Flash word (high byte first), two for a byte. A cell that was never written is
// empty.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::image {

/// The text of one cell, up to seven characters.
class Cell {
 public:
  Cell& operator=(std::string_view text) {
    length_ = static_cast<char>(text.size() < sizeof text_ ? text.size() : sizeof text_);
    std::memcpy(text_, text.data(), static_cast<size_t>(length_));
    return *this;
  }
  [[nodiscard]] std::string_view View() const { return {text_, static_cast<size_t>(length_)}; }
  operator std::string_view() const { return View(); }  // NOLINT: reads as the text it is
  bool operator==(std::string_view text) const { return View() == text; }
  bool operator==(const Cell& other) const { return View() == other.View(); }

 private:
  char text_[7];
  char length_;
};

/// Cells by (column, row): columns 1 to 8, rows from 1. Index 0 of either exists and stays unused. An index
/// beyond the bounds is a fault of the program and raises std::out_of_range.
template <int Rows>
class CellBuffer {
 public:
  static constexpr int RowMax = Rows;
  Cell& operator()(int column, int row) { return cells_[Index(column, row)]; }
  const Cell& operator()(int column, int row) const { return cells_[Index(column, row)]; }

 private:
  static size_t Index(int column, int row) {
    if (column < 0 || column > 8 || row < 0 || row > Rows) throw std::out_of_range("cell beyond its buffer");
    return static_cast<size_t>(row) * 9 + static_cast<size_t>(column);
  }
  std::array<Cell, static_cast<size_t>(Rows + 1) * 9> cells_;
};

// The bounds are those of the address space; every loop runs against the limits of the selected chip.
using FlashBuffer = CellBuffer<66000>;
using EepromCells = CellBuffer<2000>;

inline FlashBuffer MainBuffer;        ///< what will be written to the chip
inline FlashBuffer VerifyBuffer;      ///< what the chip is believed to hold
inline FlashBuffer FlashReadBuffer;   ///< the last full Flash read
inline EepromCells EepromBuffer;      ///< EEPROM image
inline EepromCells EepromReadBuffer;  ///< the last EEPROM read

inline std::array<std::string, 15> ConfigBuffer;      ///< 1..14: bytes from 300000h, erased "FF"
inline std::array<std::string, 16> ConfigBitStrings;  ///< 1..14: the same as bits
/// The bits under edit: [byte 1..14][column 1..8], column 1 is bit 7; "F" for a bit that is not available.
inline std::array<std::array<std::string, 9>, 15> ConfigEditBits;
inline int EditRow = 0, EditCol = 0;  ///< the cell of a main grid under edit
// The bits of the mid-range configuration words under edit, 1..14 from bit 13 down: names ("X" for a bit
// without function) and whether they can be edited.
inline std::array<std::string, 16> ConfigWord1Names, ConfigWord2Names;
inline std::array<bool, 16> ConfigWord1Used{}, ConfigWord2Used{};
inline std::array<std::string, 9> IdBuffer;           ///< 1..8: bytes from 200000h, erased "FF"
inline std::array<std::int16_t, 5> MidIdWords{};      ///< 1..4: user ID words, erased 16383
inline std::array<std::int16_t, 5> MidIdReadWords{};  ///< 1..4: the same as last read
inline std::string ConfigWord1Bits, ConfigWord2Bits;  ///< 14 characters, most significant bit first
inline std::string ConfigWord1Raw, ConfigWord2Raw;    ///< 16 characters, as loaded from a file
inline std::string WorkHex;                           ///< scratch text of a cell in the making

inline constexpr std::int16_t ErasedMidWord = 16383;

inline std::array<int, 140001>
    ReadBackBytes{};       ///< bytes as they came from the chip, 0..255; 1 is the first used
inline int ReadIndex = 0;  ///< next free element of `ReadBackBytes`

/// Set to 1 by the editors when the operator has changed the values, cleared when he lets a file overwrite
/// them.
inline int IdEdited = 0;
inline int ConfigEdited = 0;

/// Rows of eight words or bytes up to `highest`, whole rows only.
[[nodiscard]] constexpr int RowsOf(int highest) {
  return (highest + 1) / 8;
}

}  // namespace zelvo::image
