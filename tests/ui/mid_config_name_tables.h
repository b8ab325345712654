// What the data sheets and the screen call the bits of the mid-range configuration words, chip by chip.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::test {

/// Number and name of each bit that has a function, from bit 13 down: "5 MCLRE, 4 PWRTE". Empty for a word
/// that the chip does not have.
struct MidChipNames {
  std::string chip;
  std::string_view word1;
  std::string_view word2;
};

/// All 55 chips.
[[nodiscard]] const std::vector<MidChipNames>& MidChipsWithNames();

/// The name of each bit by its number 0..13; "X" for one without function.
using MidBitNames = std::array<std::string, 14>;
[[nodiscard]] MidBitNames NamesOfWord(std::string_view listed);

}  // namespace zelvo::test
