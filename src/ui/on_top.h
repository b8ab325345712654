// Windows that stay above the main window, and drop that for the time of a message box.
#pragma once

#include <string>

#include "panel/window.h"
#include "platform/seams.h"

namespace zelvo::ui {

inline void MindigFelül(panel::Window& window) {
  window.OnTop = true;
}
inline void NemFelül(panel::Window& window) {
  window.OnTop = false;
}

/// Shows a window afresh: an earlier one goes first.
inline void Reopen(panel::Window& window) {
  window.Unload();
  window.Load();
}

/// A message box in front of a window that stays on top.
inline void MessageOver(panel::Window& window, const std::string& text) {
  NemFelül(window);
  platform::seams.dialogs->Message(text);
  MindigFelül(window);
}

}  // namespace zelvo::ui
