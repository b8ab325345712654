// Which way each mid-range chip is erased and written, chip by chip, in the order of the chip list.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace zelvo::test {

/// How program memory takes its words.
enum class Loop { None, Word, WordEnd, FourEnd, Eight, Four };
/// How configuration memory takes them.
enum class ConfigKind { Basic, End, TwoWords, Latched };
/// The erase before an EEPROM write.
enum class EepromErase { None, DataMemory, DataOldStyle, DataAndEnd, DataPlain };

struct MidChip {
  std::string_view number;  ///< behind "PIC"
  bool eeprom;
  char group;  ///< of the erases, 'A' to 'E'
  EepromErase eepromErase;
  Loop loop;
  Loop second;  ///< the loop that runs behind the first
  ConfigKind config;

  [[nodiscard]] std::string Name() const { return "PIC" + std::string(number); }
  [[nodiscard]] bool TwoWords() const {
    return config == ConfigKind::TwoWords || config == ConfigKind::Latched;
  }
};

namespace midrows {
using enum Loop;
using E = EepromErase;
using C = ConfigKind;

inline constexpr MidChip Rows[] = {
    {"12F609", false, 'E', E::None, WordEnd, None, C::End},
    {"12HV609", false, 'E', E::None, WordEnd, None, C::End},
    {"12F615", false, 'E', E::None, WordEnd, None, C::End},
    {"12HV615", false, 'E', E::None, WordEnd, None, C::End},
    {"12F617", false, 'E', E::None, FourEnd, None, C::End},
    {"12F629", true, 'E', E::None, Word, None, C::Basic},
    {"12F635", true, 'E', E::None, Four, None, C::Basic},
    {"12F675", true, 'E', E::None, Word, None, C::Basic},
    {"12F683", true, 'E', E::None, Four, None, C::Basic},
    {"16F610", false, 'E', E::None, WordEnd, None, C::End},
    {"16HV610", false, 'E', E::None, WordEnd, None, C::End},
    {"16F616", false, 'E', E::None, FourEnd, None, C::End},
    {"16HV616", false, 'E', E::None, FourEnd, None, C::End},
    {"16F627", true, 'A', E::DataMemory, Word, None, C::Basic},
    {"16F627A", true, 'B', E::DataMemory, Word, None, C::Basic},
    {"16F628", true, 'A', E::DataMemory, Word, None, C::Basic},
    {"16F628A", true, 'B', E::DataMemory, Word, None, C::Basic},
    {"16F630", true, 'E', E::None, Word, None, C::Basic},
    {"16F631", true, 'E', E::DataPlain, Four, None, C::Basic},
    {"16F636/639", true, 'E', E::DataPlain, Four, None, C::Basic},
    {"16F648A", true, 'B', E::DataMemory, Word, None, C::Basic},
    {"16F676", true, 'E', E::None, Word, None, C::Basic},
    {"16F677", true, 'E', E::DataPlain, Four, None, C::Basic},
    {"16F684", true, 'E', E::DataPlain, Four, None, C::Basic},
    {"16F685", true, 'E', E::DataPlain, Four, None, C::Basic},
    {"16F687", true, 'E', E::DataPlain, Four, None, C::Basic},
    {"16F688", true, 'E', E::DataPlain, Four, None, C::Basic},
    {"16F689", true, 'E', E::DataPlain, Four, None, C::Basic},
    {"16F690", true, 'E', E::DataPlain, Four, None, C::Basic},
    {"16F818", true, 'D', E::DataAndEnd, Word, None, C::Basic},
    {"16F819", true, 'D', E::DataAndEnd, Word, None, C::Basic},
    {"16F84A", true, 'A', E::DataMemory, Word, None, C::Basic},
    {"16F87", true, 'E', E::DataPlain, WordEnd, FourEnd, C::Latched},
    {"16F870", true, 'C', E::DataOldStyle, Word, None, C::Basic},
    {"16F871", true, 'C', E::DataOldStyle, Word, None, C::Basic},
    {"16F872", true, 'C', E::DataOldStyle, Word, None, C::Basic},
    {"16F873", true, 'C', E::DataOldStyle, Word, None, C::Basic},
    {"16F873A", true, 'B', E::DataMemory, Eight, None, C::Basic},
    {"16F874", true, 'C', E::DataOldStyle, Word, None, C::Basic},
    {"16F874A", true, 'B', E::DataMemory, Eight, None, C::Basic},
    {"16F876", true, 'C', E::DataOldStyle, Word, None, C::Basic},
    {"16F876A", true, 'B', E::DataMemory, Eight, None, C::Basic},
    {"16F877", true, 'C', E::DataOldStyle, Word, None, C::Basic},
    {"16F877A", true, 'B', E::DataMemory, Eight, None, C::Basic},
    {"16F88", true, 'E', E::DataPlain, WordEnd, FourEnd, C::Latched},
    {"16F882", true, 'E', E::DataPlain, Eight, None, C::TwoWords},
    {"16F883", true, 'E', E::DataPlain, Eight, None, C::TwoWords},
    {"16F884", true, 'E', E::DataPlain, Eight, None, C::TwoWords},
    {"16F886", true, 'E', E::DataPlain, Eight, None, C::TwoWords},
    {"16F887", true, 'E', E::DataPlain, Eight, None, C::TwoWords},
    {"16F913", true, 'E', E::DataPlain, Eight, None, C::Basic},
    {"16F914", true, 'E', E::DataPlain, Eight, None, C::Basic},
    {"16F916", true, 'E', E::DataPlain, Eight, None, C::Basic},
    {"16F917", true, 'E', E::DataPlain, Eight, None, C::Basic},
    {"16F946", true, 'E', E::DataPlain, Eight, None, C::Basic},
};
}  // namespace midrows

/// All 55.
[[nodiscard]] inline std::span<const MidChip> MidChips() {
  return midrows::Rows;
}
/// The row of a chip without its "PIC".
[[nodiscard]] inline const MidChip& MidChipOf(std::string_view number) {
  const MidChip* row = midrows::Rows;
  while (row->number != number) ++row;
  return *row;
}

}  // namespace zelvo::test
