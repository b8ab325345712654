// What is known of every supported chip. The name is the key to all that differs from chip to chip.
#pragma once

#include <array>
#include <string_view>

namespace zelvo::devices {

/// One PIC18 chip. A word of its Flash is 16 bits.
struct Pic18Entry {
  std::string_view name;
  int flashWordMax;          ///< highest Flash word index
  int eepromMax;             ///< highest EEPROM byte index; 0: the chip has none
  std::string_view maskSet;  ///< configuration masks of the selection; empty: choosing it selects nothing
  std::string_view reappliedMaskSet;  ///< configuration masks when a file brings configuration bytes
  std::string_view announcedAs;       ///< the name in the selection's log line
};

/// One mid-range chip. A word of its Flash is 14 bits.
struct MidRangeEntry {
  std::string_view name;
  int flashWordMax;
  int eepromMax;
  int configWords;  ///< 1 or 2
};

/// In the order of `Combo1` and of `Combo2`.
extern const std::array<Pic18Entry, 72> Pic18Catalogue;
extern const std::array<MidRangeEntry, 55> MidRangeCatalogue;

/// Nullptr for a name that is not in the catalogue. Names are compared byte for byte.
[[nodiscard]] const Pic18Entry* FindPic18(std::string_view name);
[[nodiscard]] const MidRangeEntry* FindMidRange(std::string_view name);

}  // namespace zelvo::devices
