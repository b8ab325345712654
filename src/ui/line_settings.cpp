// `Adat_él_Beállít_H`: how the board on the printer port is wired. Every change is in force and saved at
// once.
#include <array>
#include <string>

#include "link/event_log.h"
#include "link/lines.h"
#include "link/port.h"
#include "link/run_state.h"
#include "link/settings.h"
#include "link/target_power.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/raised.h"
#include "ui/behaviour.h"
#include "ui/on_top.h"
#include "ui/port_check.h"
#include "ui/settings_saving.h"

namespace zelvo::ui {

using panel::Adat_él_Beállít_COM;
using panel::Adat_él_Beállít_H;
using panel::Form1;
using panel::LPT_Port_Check;

namespace {

/// The option groups in the order of the lines' table, which is that of the file's fields too.
const std::array<panel::LptLinesWindow::BitOptions*, link::OutputLines> Groups{
    &Adat_él_Beállít_H.VddBit, &Adat_él_Beállít_H.VppBit, &Adat_él_Beállít_H.DataBit,
    &Adat_él_Beállít_H.ClockBit};

/// A box, its bit in invert.ini, the flag behind it, and who tells of it.
struct InvertBox {
  panel::CheckBox& box;
  int bit;
  bool& flag;
  panel::Label* label;  ///< of the port check; nullptr for the input
  const char* inverted;
  const char* plain;
};
const std::array<InvertBox, 5> InvertBoxes{{
    {Adat_él_Beállít_H.Check1, 1, link::VddInverted, &LPT_Port_Check.Vdd_Él_Lab, ":  Vdd Kimenet Inverz",
     ":  Vdd Kimenet Nem Inverz"},
    {Adat_él_Beállít_H.Check2, 2, link::VppInverted, &LPT_Port_Check.Vpp_Él_Lab, ":  Vpp Kimenet Inverz",
     ":  Vpp Kimenet Nem Inverz"},
    {Adat_él_Beállít_H.Check3, 4, link::ClockInverted, &LPT_Port_Check.CLK_Él_Lab, ":  CLK Kimenet Inverz",
     ":  CLK Kimenet Nem Inverz"},
    {Adat_él_Beállít_H.Check4, 8, link::DataInverted, &LPT_Port_Check.Data_Él_Lab, ":  ADAT Kimenet Inverz",
     ":  ADAT Kimenet Nem Inverz"},
    {Adat_él_Beállít_H.Check5, 16, link::InputInverted, nullptr, ":  Ack Bemenet Inverz",
     ":  Ack Bemenet Nem Inverz"},
}};

constexpr int BitOf(std::size_t option) {
  return 128 >> option;
}

/// 0 when none of the group is selected.
int ChosenBit(std::size_t line) {
  int bit = 0;
  for (std::size_t option = 0; option < Groups.at(line)->size(); ++option) {
    if (Groups.at(line)->at(option).Value) bit = BitOf(option);
  }
  return bit;
}

/// While the window opens it shows what the file holds: there is nothing to save. The file takes what is
/// shown, since the masks in force may be the serial board's by now; a group without a choice keeps its mask.
void SavePins() {
  if (Adat_él_Beállít_H.Loading) return;
  std::array<int, link::OutputLines> bits{link::VddSetMask, link::VppSetMask, link::DataSetMask,
                                          link::ClockSetMask};
  for (std::size_t line = 0; line < bits.size(); ++line) {
    if (const int chosen = ChosenBit(line)) bits.at(line) = chosen;
  }
  TellUnlessSaved(Adat_él_Beállít_H, link::WritePinFile(bits));
}

void SaveInversions() {
  if (Adat_él_Beállít_H.Loading) return;
  TellUnlessSaved(Adat_él_Beállít_H, link::WriteInvertFile(TickedBits(InvertBoxes)));
}

void BitChosen(std::size_t line) {
  link::SetMasks(line, ChosenBit(line));
  SavePins();
}

void InputChosen(int select) {
  link::InputSelect = select;
  SavePins();
}

/// The word Ack stands for either input.
void TellInput() {
  link::Address(link::LptStatus);
  link::PortRead();
  const bool set = (link::PortLast & (link::InputSelect == 1 ? link::AckBit : link::BusyBit)) != 0;
  LPT_Port_Check.List1.AddItem(std::string("H Című LPT Port Ack Bit Értéke: ") + (set ? "1" : "0"));
  AddRegisterLine();
}

void ApplyIdleLevels() {
  link::LptLinesToIdle();
  if (link::PortCheckOpen) TellInput();
}

void InversionClicked(const InvertBox& one) {
  one.flag = one.box.Value;
  if (one.label != nullptr && link::PortCheckOpen) one.label->Caption = PolarityText(one.flag);
  if (!Adat_él_Beállít_H.Loading) link::LogToBoth(one.flag ? one.inverted : one.plain);
  SaveInversions();
  if (one.label == nullptr) return;  // an input has no level to be put to
  ApplyIdleLevels();
  ClosePortCheck();
}

void Opened() {
  {
    const platform::Raised loading(Adat_él_Beállít_H.Loading);
    const long bits = link::ReadInvertBits();
    for (const InvertBox& one : InvertBoxes) one.box.Value = (bits & one.bit) != 0;
    const auto fields = link::ReadPinFields();
    for (std::size_t line = 0; line < Groups.size(); ++line) {
      for (std::size_t option = 0; option < Groups.at(line)->size(); ++option) {
        if (fields.at(line) == BitOf(option)) Groups.at(line)->at(option).Select();
      }
    }
    if (fields.back() == 1) Adat_él_Beállít_H.ACK_Radio.Select();
    if (fields.back() == 0) Adat_él_Beállít_H.BUSY_Radio.Select();
  }
  MindigFelül(Adat_él_Beállít_H);
  ClosePortCheck();
}

void Closed() {
  link::LogToBoth(link::InputSelect == 1 ? ":  Ack Bemenetnek kiválasztva."
                                         : ":  Busy Bemenetnek kiválasztva.");
}

void OpenLineSettings() {
  if (link::LptMode) Reopen(Adat_él_Beállít_H);
  if (link::ComMode) Reopen(Adat_él_Beállít_COM);
}

}  // namespace

void AttachLineSettings() {
  for (panel::CommandButton* button : {&Form1.Command5, &Form1.Command16}) button->Click = OpenLineSettings;
  Adat_él_Beállít_H.OnLoad = Opened;
  Adat_él_Beállít_H.OnUnload = Closed;
  for (std::size_t line = 0; line < Groups.size(); ++line) {
    for (panel::OptionButton& option : *Groups.at(line)) option.Click = [line] { BitChosen(line); };
  }
  Adat_él_Beállít_H.ACK_Radio.Click = [] { InputChosen(1); };
  Adat_él_Beállít_H.BUSY_Radio.Click = [] { InputChosen(0); };
  for (const InvertBox& one : InvertBoxes) one.box.Click = [&one] { InversionClicked(one); };
}

}  // namespace zelvo::ui
