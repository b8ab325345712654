// `LPT_Port_Check` as the settings windows see it.
#pragma once

#include <string>

namespace zelvo::ui {

/// Brings the lines that were switched there to rest and closes the window; nothing when it is not open.
void ClosePortCheck();
/// What a label says of a line: "Inverz    " or "Nem Inverz".
[[nodiscard]] std::string PolarityText(bool inverted);
/// The readout's line about the data register: base address, value and bits.
void AddRegisterLine();

}  // namespace zelvo::ui
