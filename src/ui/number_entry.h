// What an editor takes for a number, and what it says to a text that is none. Plain functions: no window, no
// state.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zelvo::ui {

/// A value, or the message that refuses the text.
struct Entry {
  std::optional<int> value;
  std::string refusal;
  bool operator==(const Entry&) const = default;
};

/// A memory whose cells can be edited: the highest value, and the messages that are its own.
struct CellRules {
  int limit;
  int digits;  ///< hexadecimal digits of a cell
  std::string_view badHex;
  std::string_view decimalEnd;   ///< behind the lower bound of the decimal range
  std::string_view binaryRange;  ///< the whole message
};
[[nodiscard]] const CellRules& Pic18FlashRules();     ///< 16-bit words
[[nodiscard]] const CellRules& MidRangeFlashRules();  ///< 14-bit words
[[nodiscard]] const CellRules& EepromRules();

/// Upper-case digits, padded with "0" on the left; an empty text is 0.
[[nodiscard]] Entry ReadCellHex(std::string text, const CellRules& rules);
/// A number; halves are rounded to the even neighbour.
[[nodiscard]] Entry ReadCellDecimal(std::string_view text, const CellRules& rules);
/// Ones and zeros, blanks anywhere.
[[nodiscard]] Entry ReadCellBinary(std::string text, const CellRules& rules);
/// The value as groups of four bits, a blank between them; `hex` is four or two upper-case digits.
[[nodiscard]] std::string ShowBits(std::string_view hex);

/// One character; its code in code page 1250.
[[nodiscard]] Entry ReadIdCharacter(std::string_view text);
/// One or two digits of either case.
[[nodiscard]] Entry ReadIdHex(std::string text);
/// Up to four digits of either case, blanks anywhere, up to 3FFFh.
[[nodiscard]] Entry ReadMidIdHex(std::string text);
/// A whole number, 0 to 255.
[[nodiscard]] Entry ReadIdDecimal(std::string_view text);
/// A whole number, 0 to 16383.
[[nodiscard]] Entry ReadMidIdDecimal(std::string_view text);

/// Characters of a UTF-8 text.
[[nodiscard]] std::size_t CharacterCount(std::string_view text);

}  // namespace zelvo::ui
