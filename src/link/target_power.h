// Power to the target and entry into programming mode.
#pragma once

namespace zelvo::link {

/// All lines to idle. Changes neither `VddOnFlag` nor a caption.
void TargetPowerOff();
/// Raises the supply, then the programming voltage, with PGC and PGD low: the chip enters programming mode.
void TargetPowerOn();
/// The four lines of the printer port to idle in one port cycle, whatever interface is chosen.
void LptLinesToIdle();
/// One line on its own, at a register of the interface: read, change, write.
void ChangeLine(int offset, void (*shape)(bool level), bool level);
/// PGC and PGD alone to idle; the target stays powered.
void ClockAndDataToRest();
/// The operator's own button: switches the supply alone, on and off by turns.
void ToggleVdd();
/// `ProgFut` says what its next click does, and the manual supply counts as off.
void MarkVddOff();
/// The buttons of both pages say what their next click does to a supply that was switched by hand.
void ShowVddSwitch(bool on);

}  // namespace zelvo::link
