// Power to the target and entry into programming mode.
#pragma once

namespace zelvo::link {

/// All lines to idle. Changes neither `VddOnFlag` nor a caption.
void TargetPowerOff();
/// Raises the supply, then the programming voltage, with PGC and PGD low: the chip enters programming mode.
void TargetPowerOn();
/// PGC and PGD alone to idle; the target stays powered.
void ClockAndDataToRest();
/// The operator's own button: switches the supply alone, on and off by turns.
void ToggleVdd();
/// `ProgFut` says what its next click does, and the manual supply counts as off.
void MarkVddOff();

}  // namespace zelvo::link
