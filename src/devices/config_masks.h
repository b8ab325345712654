// Which bits of the 14 configuration bytes of a PIC18 exist: mask lines for the lists of the main window, and
// one presence flag for each byte.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace zelvo::devices {

inline constexpr int ConfigByteCount = 14;

/// Elements 1 to 14, one for each byte from CONFIG1L to CONFIG7H: "I" when the byte exists and takes part in
/// loading and in operations, "N" when it does not.
inline std::array<std::string, ConfigByteCount + 1> ConfigFlags;

struct MaskSet {
  std::string_view name;
  std::string_view flags;                               ///< 14 letters
  std::array<std::string_view, ConfigByteCount> masks;  ///< 8 characters each, bit 7 first
};
/// Another mask for some of the chips that share a set.
struct MaskChoice {
  std::string_view set;
  std::string_view chip;
  int element;  ///< 1 to 14
  std::string_view mask;
  char flag;  ///< the byte's flag for this chip
};

inline constexpr int MaskSetCount = 34;
extern const std::array<MaskSet, MaskSetCount> MaskSets;
[[nodiscard]] const MaskSet* FindMaskSet(std::string_view name);

/// Shows the set's mask lines in the 14 lists and takes its flags over. Where chips share a set, the text of
/// `Combo1` decides. An unknown name changes nothing.
void LoadMaskSet(std::string_view name);

/// The lists `Bconfig1L` to `Bconfig7H` by a number from 0 to 13; any other number does nothing.
void ClearConfigList(int k);
void AddConfigLine(int k, std::string_view text);

}  // namespace zelvo::devices
