// The manual board: the operator switches Vdd and Vpp by hand when the program asks for it.
#pragma once

#include "panel/form1.h"
#include "platform/seams.h"

namespace zelvo::opsmid {

inline constexpr const char* PowerOn = "Kapcsold Be a Vdd-t és a Vpp-t, majd OK!";
inline constexpr const char* PowerOffNow = "Kapcsold Ki a Vdd-t és a Vpp-t!";
inline constexpr const char* CycleVpp = "Kapcsold Ki-Be a Vpp-t, majd OK!";

/// True while the manual board is in use.
[[nodiscard]] inline bool OnManualBoard() {
  return panel::Form1.Check8.Value;
}

/// Asks the operator for one of the above; nothing on any other board.
inline void AskManualBoard(const char* request) {
  if (OnManualBoard()) platform::seams.dialogs->Message(request);
}

}  // namespace zelvo::opsmid
