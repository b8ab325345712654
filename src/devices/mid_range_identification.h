// Recognises the mid-range chip in the socket by the nine high bits of the device ID word at 2006h.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zelvo::devices {

inline std::int16_t ChipIdValue = 0;  ///< the nine ID bits; 0 and 511: the line stood at one level
/// An erase of the mid-range page is under way: the pieces that power the target by themselves do not.
inline bool MidEraseRun = false;

struct MidRangeIdRow {
  int value;  ///< the word at 2006h without its five revision bits
  std::string_view name;
};
inline constexpr int MidRangeIdRows = 51;
extern const std::array<MidRangeIdRow, MidRangeIdRows> MidRangeIdTable;

/// Reads the ID, names the chip in `DetectedName` and, unless silent, selects it in `Combo2` or shows
/// `PICAzonos`. Powers the target up unless an erase is under way, and leaves it powered.
void IdentifyMidrange();

}  // namespace zelvo::devices
