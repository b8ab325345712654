// Conversions between hexadecimal digits, numbers and bit texts. Commands and data are kept as text all the
// way to the engine, most significant bit on the left.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zelvo::icsp {

inline std::string HexPair;        ///< argument slot of `HexPairToBits`
inline std::string ConvertedBits;  ///< result slot of the conversions
/// The system's one error marker: 0, 1 when no file could be opened or no chip is selected, 2 after a bad
/// digit.
inline int LoadFailed = 0;

/// One or two upper-case digits become 8 characters in `ConvertedBits`; a single digit is padded on the left.
/// A character that is no upper-case hexadecimal digit yields no text and sets `LoadFailed` to 2, and so does
/// a text longer than two, a placeholder left unfilled: it yields nothing. An empty text yields nothing.
void HexPairToBits(std::string_view pair);
/// `pair`, of which the first two characters count, with the digit that the conversion held before in place
/// of each character that is none; such a character sets `LoadFailed` to 2. A single character is padded
/// first, so that it is a 0 that was held before it. Before any conversion that digit is 0.
[[nodiscard]] std::string WithHeldDigits(std::string_view pair);
/// One digit becomes 4 characters in `ConvertedBits`.
void HexDigitToBits(char digit);
/// The same as a result; empty for a bad digit.
[[nodiscard]] std::string_view HexDigitToNibble(char digit);
/// The same with a blank before each bit: '0' gives " 0 0 0 0".
[[nodiscard]] std::string_view HexDigitToSpacedBits(char digit);
/// Two spaced groups, high nibble first, into `ConvertedBits`. `value` 0..255.
void ByteToSpacedBits(int value);
/// 4 characters of '0' and '1' become one upper-case digit; another text gives '\0' and sets `LoadFailed`
/// to 2.
[[nodiscard]] char BitsToHexDigit(std::string_view bits);
/// First digit times 16 plus the second into `number`; a bad digit counts 0 and sets `LoadFailed` to 2.
void HexPairToValue(std::string_view pair, int& number);

/// Left-padded with "0" to 2, 4 or 6 characters; longer texts are kept.
void PadHex2(std::string& text);
void PadHex4(std::string& text);
void PadHex6(std::string& text);

/// Value 0..15 of a hexadecimal digit in upper case; -1 for any other character.
[[nodiscard]] constexpr int DigitValue(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  return -1;
}

/// Upper-case hexadecimal text without leading zeros, padded to `width`.
[[nodiscard]] std::string HexPadded(std::uint32_t value, int width);

}  // namespace zelvo::icsp
