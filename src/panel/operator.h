// The operator's hand: what a person, a script or a view does to a control. Every way in goes through here,
// so that a click has the same effect from a screen and from the bench. A `ProgramEnded` that unwinds a
// handler ends here; the pump that the hand came through throws it anew for the operation around it.
#pragma once

#include <functional>
#include <string>

#include "panel/window.h"

namespace zelvo::panel {

/// Runs after a handler that failed, a fault of the program: brings the target to rest. Attached from above.
inline std::function<void()> AfterFault;

enum class HandResult { Done, Disabled, Hidden };

[[nodiscard]] HandResult HandClick(VisibleControl& control);
[[nodiscard]] HandResult HandDblClick(VisibleControl& control);
/// Click on a radio button: sets it and clears the others of its group.
[[nodiscard]] HandResult HandTick(CheckBox& box, bool ticked);
/// Sets the text, then runs the click event if the text is a line of the list.
[[nodiscard]] HandResult HandChoose(ComboBox& combo, const std::string& text);
[[nodiscard]] HandResult HandScroll(ScrollBar& bar, int value);
[[nodiscard]] HandResult HandType(TextBox& box, const std::string& text);
[[nodiscard]] HandResult HandKey(VisibleControl& control, Key key);
[[nodiscard]] HandResult HandLeave(VisibleControl& control);
[[nodiscard]] HandResult HandCellClick(Grid& grid, int row, int col);
[[nodiscard]] HandResult HandCellDblClick(Grid& grid, int row, int col);
[[nodiscard]] HandResult HandTab(TabStrip& tabs, int index);
/// A mouse event on the bare surface of a page.
void HandMouse(Frame& frame);
/// Closes a window by its frame.
void HandClose(Window& window);

}  // namespace zelvo::panel
