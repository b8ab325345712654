// What the windows that save settings at every click share.
#pragma once

#include "panel/window.h"
#include "ui/on_top.h"

namespace zelvo::ui {

/// The number of a polarity file: the bits of the boxes that are ticked.
template <class Boxes>
[[nodiscard]] int TickedBits(const Boxes& boxes) {
  int bits = 0;
  for (const auto& one : boxes) bits += one.box.Value ? one.bit : 0;
  return bits;
}

/// Says it in front of the window when a settings file could not be written. Gives `saved` back.
inline bool TellUnlessSaved(panel::Window& window, bool saved) {
  if (!saved) MessageOver(window, "Ismeretlen Fájl hiba!");
  return saved;
}

}  // namespace zelvo::ui
