// `MDIForm1` and `Form1`: pages, closing, and the buttons of both pages.
#pragma once

namespace zelvo::ui {

/// Brings the frame of the selected tab to the front and deselects the chip.
void ShowSelectedPage();
/// The whole-chip buttons of the mid-range page cannot be used with the manual board.
void EnableWholeChipButtons();

}  // namespace zelvo::ui
