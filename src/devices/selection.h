// The chip that every operation works on: its limits, its name, and what choosing it does.
#pragma once

#include <functional>
#include <string>

#include "panel/controls.h"

namespace zelvo::devices {

inline int FlashWordMax = 0;      ///< highest Flash word index; 0: no chip is selected
inline int EepromMax = 0;         ///< highest EEPROM byte index; 0: none
inline std::string SelectedName;  ///< text of the chip combo as last copied

inline constexpr const char* NoChipText =
    "PIC Kiválasztása";  ///< text of a combo before a choice; no chip answers
inline constexpr const char* UnknownChipText = "Ismeretlen_PIC";  ///< an answer that is in no table
inline constexpr const char* NoChipMessage = "Nincs PIC kiválasztva!";

/// What a selection does to the image above, attached by `image::AttachToSelection`.
struct ImageHooks {
  std::function<void()> fillErased;    ///< Flash, EEPROM, configuration and ID buffers, in this order
  std::function<void()> rebuildViews;  ///< EEPROM grid, Flash grid, ID labels
};
inline ImageHooks imageHooks;

/// Fill the chip lists; once each, at start-up.
void FillCombo1();
void FillCombo2();

/// Makes the chip in the combo of the selected tab the working chip: limits, masks, erased buffers, views,
/// log and summary line. A name without a row keeps the earlier limits.
void SelectChip();

/// True when a chip is selected; else the operator is told that none is.
[[nodiscard]] bool ChipIsSelected();

/// The summary list of a page says that no chip is selected.
void ShowNoChipSelected(panel::ListBox& summary);

}  // namespace zelvo::devices
