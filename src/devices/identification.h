// Recognises the PIC18 in the socket by the two device ID bytes at 3FFFFEh.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace zelvo::devices {

inline bool SilentIdentify = false;  ///< no log line, no selection, no window; only `DetectedName`
inline std::string
    DetectedName;  ///< a chip's name, `NoChipText` or `UnknownChipText`; empty before the first run
inline int ChipRecognised = 0;      ///< 1 after a row matched in an identification that was not silent
inline std::array<int, 3> DevId{};  ///< element 1: DEVID1 at 3FFFFEh, element 2: DEVID2 at 3FFFFFh; 0..255

/// One pattern: DEVID2, and bits 7 to 5 of DEVID1. The revision in the lower bits plays no part.
struct Pic18IdRow {
  int devId2;
  std::string_view devId1Bits;
  std::string_view name;
};
extern const std::array<Pic18IdRow, 72> Pic18IdTable;

/// Powers the target, reads the ID, names the chip and, unless silent, selects it or shows `PICAzonos`.
/// Leaves the target without power.
void IdentifyPic18();

/// Fills the window `PICAzonos` with what the operator should look at, and logs it on the page in view.
void ShowNotRecognised();

}  // namespace zelvo::devices
