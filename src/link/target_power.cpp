#include "link/target_power.h"

#include <array>

#include "link/delays.h"
#include "link/lines.h"
#include "link/run_state.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::link {

using panel::Form1;

namespace {

constexpr const char* CaptionOn = "Vdd(+5V) On";
constexpr const char* CaptionOff = "Vdd(+5V) Off";

void PaintVpp(panel::Colour colour) {
  Form1.Shape1.FillColor = colour;
  Form1.Shape2.FillColor = colour;
}

/// Both in one port cycle.
void LptClockAndDataOff() {
  Address(LptData);
  PortRead();
  ShapePgd(false);
  PortLast = PortShadow;
  ShapePgc(false);
  PortWrite();
}

void ComClockAndDataOff() {
  ChangeLine(UartModemControl, ShapePgd, false);
  ChangeLine(UartModemControl, ShapePgc, false);
}

void EnterLpt() {
  // The exclusive-or flips the idle level and so needs no look at the polarity.
  Address(LptData);
  PortRead();
  for (const int mask : {VddSetMask, VppSetMask}) {
    PortShadow = PortLast ^ mask;
    PortWrite();
    SettleDelay();
  }
}

void EnterCom() {
  // A pulse of DTR charges the board, which then lives from it while all lines are idle.
  ChangeLine(UartModemControl, ShapeVdd, true);
  SettleDelay();
  TargetPowerOff();
  ChangeLine(UartLineControl, ShapeVpp, true);
  SettleDelay();
}

}  // namespace

void ChangeLine(int offset, void (*shape)(bool), bool level) {
  Address(offset);
  PortRead();
  shape(level);
  PortWrite();
}

void LptLinesToIdle() {
  struct Line {
    bool inverted;
    int setMask;
    int clearMask;
  };
  // Not by the shapes: those follow the interface in force, and the windows of this one may outlive it.
  const std::array<Line, OutputLines> lines{{{VddInverted, VddSetMask, VddClearMask},
                                             {VppInverted, VppSetMask, VppClearMask},
                                             {DataInverted, DataSetMask, DataClearMask},
                                             {ClockInverted, ClockSetMask, ClockClearMask}}};
  Address(LptData);
  PortRead();
  PortShadow = PortLast;
  for (const Line& line : lines)
    PortShadow = WithLine(PortShadow, false, line.inverted, line.setMask, line.clearMask);
  PortWrite();
}

void ShowVddSwitch(bool on) {
  const char* const caption = on ? CaptionOff : CaptionOn;
  Form1.ProgFut.Caption = caption;
  Form1.Command10.Caption = caption;
}

void MarkVddOff() {
  Form1.ProgFut.Caption = CaptionOn;
  VddOnFlag = 0;
}

void TargetPowerOff() {
  PaintVpp(panel::Grey);
  if (LptMode) LptLinesToIdle();
  if (ComMode) {
    ComClockAndDataOff();
    ChangeLine(UartLineControl, ShapeVpp, false);
  }
}

void ClockAndDataToRest() {
  if (LptMode) LptClockAndDataOff();
  if (ComMode) ComClockAndDataOff();
}

void TargetPowerOn() {
  TargetPowerOff();
  SettleDelay();
  if (LptMode) EnterLpt();
  if (ComMode) EnterCom();
  if (LptMode || ComMode) MarkVddOff();
  PaintVpp(panel::Red);
}

void ToggleVdd() {
  const bool on = VddOnFlag == 0;
  VddOnFlag = on ? 1 : 0;
  if (AddressOutput()) {
    PortRead();
    ShapeVdd(on);
    PortWrite();
  }
  ShowVddSwitch(on);
  if (PortCheckOpen) panel::LPT_Port_Check.Check1.Value = on;
}

}  // namespace zelvo::link
