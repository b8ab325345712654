// The names of the configuration bits as data sheets and the screen have them, chip by chip, written out
// whole and without the editor's own lists, and the places where the editor shows or keeps another thing than
// the table tells.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::test {

inline constexpr int ConfigBytes = 14;   ///< byte 1 is CONFIG1L, byte 14 CONFIG7H
inline constexpr int ConfigColumns = 8;  ///< column 1 is bit 7

/// A text for each bit: [byte 1..14][column 1..8]; index 0 stays unused.
using BitTexts = std::array<std::array<std::string, ConfigColumns + 1>, ConfigBytes + 1>;

/// What the editor holds for one chip.
struct ExpectedEditor {
  BitTexts names;   ///< row 0 of the grids
  BitTexts states;  ///< row 1
  BitTexts bits;    ///< `ConfigEditBits`
};

/// All chips that have a table.
[[nodiscard]] std::vector<std::string> ChipsWithNames();
/// What opening the editor for `chip` gives, when the image holds the bits `held`.
[[nodiscard]] ExpectedEditor ExpectedFor(std::string_view chip, const BitTexts& held);

}  // namespace zelvo::test
