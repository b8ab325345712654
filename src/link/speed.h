// The speed controls of both pages: scroll bars, value lists, edit boxes and tick boxes that follow each
// other.
#pragma once

#include "panel/form1.h"

namespace zelvo::link {

/// The speed controls of one page.
struct SpeedControls {
  panel::ScrollBar& bar;
  panel::ListBox& list;
  panel::TextBox& edit;
  panel::CheckBox& tenfold;  ///< "10x Speed"
  panel::CheckBox& slow;     ///< "Szuper lassú"
  int tab;
};
/// The PIC18 page, then the mid-range page.
[[nodiscard]] const SpeedControls& Pic18Speed();
[[nodiscard]] const SpeedControls& MidRangeSpeed();

/// The two value lists show `value` with two blanks on either side.
void ShowSpeed(double value);
/// Change or scroll of a bar: both pages take the position, speed.ini is written unless it is being loaded.
void SpeedBarChanged(const SpeedControls& page);
/// Click on "10x Speed" of a page; without effect while another page is in view or speed.ini is being loaded.
void TenfoldClicked(const SpeedControls& page, const SpeedControls& twin);
/// Click on the value list: its edit box comes up, empty.
void OpenSpeedEdit(const SpeedControls& page);
/// Takes the edit box's text over: Enter, leaving the box, or a mouse event on the page while it is shown.
void ApplySpeedEdit(const SpeedControls& page);

}  // namespace zelvo::link
