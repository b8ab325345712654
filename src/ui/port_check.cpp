// `LPT_Port_Check`: the lines of the board by hand, for a meter or a scope. No chip takes part.
#include "ui/port_check.h"

#include <array>
#include <string>
#include <utility>

#include "icsp/conversions.h"
#include "link/delays.h"
#include "link/lines.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "ui/behaviour.h"
#include "ui/on_top.h"

namespace zelvo::ui {

using panel::Form1;
using panel::LPT_Port_Check;

namespace {

/// A box and the line that it switches.
struct SwitchedLine {
  panel::CheckBox& box;
  int comRegister;  ///< on the printer port all lines are in the data register
  void (*shape)(bool level);
  /// On the serial port the box of the same line: the line rests when both are clear.
  const panel::CheckBox* shared;
};
const SwitchedLine Vdd{LPT_Port_Check.Check1, link::UartModemControl, link::ShapeVdd, &LPT_Port_Check.Check3};
const SwitchedLine Vpp{LPT_Port_Check.Check2, link::UartLineControl, link::ShapeVpp, nullptr};
const SwitchedLine Pgd{LPT_Port_Check.Check3, link::UartModemControl, link::ShapePgd, &LPT_Port_Check.Check1};
const SwitchedLine Pgc{LPT_Port_Check.Check4, link::UartModemControl, link::ShapePgc, nullptr};

constexpr int TestWaits = 50000;

/// Counts the openings of the window: a test whose window is gone has no business with the next one.
unsigned opening = 0;
/// The opening whose one-second test runs; 0 for none.
unsigned testOf = 0;

void ShowPolarities() {
  const bool com = link::ComMode;
  const std::array<std::pair<panel::Label*, bool>, 5> labels{{
      {&LPT_Port_Check.Vdd_Él_Lab, com ? link::ComPgdInverted : link::VddInverted},
      {&LPT_Port_Check.Vpp_Él_Lab, com ? link::ComVppInverted : link::VppInverted},
      {&LPT_Port_Check.CLK_Él_Lab, com ? link::ComPgcInverted : link::ClockInverted},
      {&LPT_Port_Check.Data_Él_Lab, com ? link::ComPgdInverted : link::DataInverted},
      {&LPT_Port_Check.Ack_Él_Lab, com ? !link::ComInputInverted : link::InputInverted},
  }};
  for (const auto& [label, inverted] : labels) label->Caption = PolarityText(inverted);
}

void ShowInput(bool high) {
  LPT_Port_Check.Label2.Caption = high ? std::string("Adat vonal belső logikai szintje High (1)")
                                       : std::string("Adat vonal belső logikai szintje Low (0)");
}

bool ReadInput() {
  link::AddressInput();
  link::PortRead();
  return (link::PortLast & link::InputBit()) != 0;
}

void ReadOutLpt() {
  LPT_Port_Check.List1.Clear();
  const bool set = ReadInput();
  LPT_Port_Check.List1.AddItem(std::string("H Című LPT Port ") + (link::InputSelect == 1 ? "Ack" : "Busy") +
                               " láb szintje: " + (set ? "1 (5V)" : "0 (0V)"));
  ShowInput(set != link::InputInverted);
  AddRegisterLine();
  ShowPolarities();
}

void ReadOut() {
  if (link::LptMode) ReadOutLpt();
  if (link::ComMode) ShowInput(ReadInput() != link::ComInputInverted);
}

void Switch(const SwitchedLine& line) {
  if (!link::PortCheckLoaded) return;
  if (link::LptMode) link::ChangeLine(link::LptData, line.shape, line.box.Value);
  if (link::ComMode) {
    const bool sharedOn = line.shared != nullptr && line.shared->Value;
    link::ChangeLine(line.comRegister, line.shape, line.box.Value || sharedOn);
  }
  if (link::LptMode || link::ComMode) ReadOut();
}

void SwitchVdd() {
  Switch(Vdd);
  link::ShowVddSwitch(LPT_Port_Check.Check1.Value);
  link::VddState = LPT_Port_Check.Check1.Value ? 1 : 0;
}

/// The clock line of the one-second test, moved on top of what other handlers make of its register meanwhile.
/// The register is read once, and again only behind such a handler, or when another interface was chosen.
class ClockPulses {
 public:
  void Set(bool on) {
    const bool untouched = link::PortAddress == address_ && link::PortShadow == shadow_;
    if (!link::AddressOutput()) return;
    if (!untouched || link::PortAddress != address_) {
      link::PortRead();
      link::PortShadow = link::PortLast;
    }
    link::PortShadow = on ? link::PortShadow | link::ClockSetMask : link::PortShadow & link::ClockClearMask;
    link::PortWrite();
    address_ = link::PortAddress;
    shadow_ = link::PortShadow;
  }

 private:
  int address_ = -1;  ///< none yet
  std::int32_t shadow_ = 0;
};

bool WindowIsGone(unsigned mine) {
  return !link::PortCheckLoaded || opening != mine;
}

/// About half a second at the speed that the delays are calibrated for.
void WaitHalfPeriod(unsigned mine) {
  for (int wait = 0; wait < TestWaits; ++wait) {
    link::Vár_Ír();
    platform::seams.pump->Once();
    if (LPT_Port_Check.StopRequested || WindowIsGone(mine)) return;
  }
}

/// One pulse behind the other until `Check6` is ticked. False when the window went meanwhile.
bool Pulse(unsigned mine) {
  ClockPulses clock;
  do {
    clock.Set(true);
    LPT_Port_Check.Label1.BackColor = panel::Green;
    WaitHalfPeriod(mine);
    if (WindowIsGone(mine)) return false;
    clock.Set(false);
    LPT_Port_Check.Label1.BackColor = panel::White;
    WaitHalfPeriod(mine);
    if (WindowIsGone(mine)) return false;
    if (LPT_Port_Check.StopRequested) LPT_Port_Check.Check6.Value = true;
    platform::seams.pump->Once();
  } while (!LPT_Port_Check.Check6.Value && !WindowIsGone(mine));
  return !WindowIsGone(mine);
}

void Close() {
  link::PortCheckOpen = false;
  LPT_Port_Check.Unload();
}

/// The lines' polarity does not count here: on is the set bit.
void RunTest() {
  if (!LPT_Port_Check.Check5.Value || testOf == opening) return;
  const unsigned mine = opening;
  const unsigned before = std::exchange(testOf, mine);
  link::WaitCount = link::SpeedSetting;
  const bool stillThere = Pulse(mine);
  testOf = before;
  if (!stillThere) {
    // Closed in the middle of a pulse: the clock line must not stay up.
    if (link::LptMode || link::ComMode)
      link::ChangeLine(link::LptMode ? link::LptData : link::UartModemControl, link::ShapePgc, false);
    return;
  }
  LPT_Port_Check.Check6.Value = false;
  LPT_Port_Check.Check5.Value = false;
  if (!LPT_Port_Check.StopRequested) return;
  LPT_Port_Check.StopRequested = false;
  Close();
}

void CloseClicked() {
  if (LPT_Port_Check.Check5.Value) {
    LPT_Port_Check.StopRequested = true;
  } else {
    Close();
  }
}

void Opened() {
  MindigFelül(LPT_Port_Check);
  ++opening;
  link::PortCheckOpen = true;
  link::PortCheckLoaded = true;
  LPT_Port_Check.StopRequested = false;
  LPT_Port_Check.List1.Clear();
  ShowPolarities();
  LPT_Port_Check.Check1.Value = link::VddState == 1;
}

}  // namespace

std::string PolarityText(bool inverted) {
  return inverted ? "Inverz    " : "Nem Inverz";
}

void AddRegisterLine() {
  icsp::ByteToSpacedBits(link::PortShadow & 0xFF);
  LPT_Port_Check.List1.AddItem("H Című LPT Port Értéke. - Dec:" + std::to_string(link::PortBase) +
                               std::to_string(link::PortShadow) + " - Bin: " + icsp::ConvertedBits);
}

void ClosePortCheck() {
  if (!link::PortCheckLoaded) return;
  for (panel::CheckBox* box :
       {&LPT_Port_Check.Check1, &LPT_Port_Check.Check2, &LPT_Port_Check.Check3, &LPT_Port_Check.Check4})
    box->Value = false;
  LPT_Port_Check.Unload();
}

void AttachPortCheck() {
  for (panel::CommandButton* button : {&Form1.Command4, &Form1.Command20})
    button->Click = [] { LPT_Port_Check.Load(); };
  LPT_Port_Check.OnLoad = Opened;
  LPT_Port_Check.OnUnload = [] { link::PortCheckLoaded = false; };
  LPT_Port_Check.Check1.Click = SwitchVdd;
  LPT_Port_Check.Check2.Click = [] { Switch(Vpp); };
  LPT_Port_Check.Check3.Click = [] { Switch(Pgd); };
  LPT_Port_Check.Check4.Click = [] { Switch(Pgc); };
  LPT_Port_Check.Check5.Click = RunTest;
  LPT_Port_Check.Command1.Click = CloseClicked;
}

}  // namespace zelvo::ui
