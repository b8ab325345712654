// `Adat_él_Beállít_COM`: which lines of the board on the serial port are inverted.
#include <array>

#include "link/port.h"
#include "link/settings.h"
#include "panel/secondary_windows.h"
#include "platform/raised.h"
#include "ui/behaviour.h"
#include "ui/on_top.h"
#include "ui/settings_saving.h"

namespace zelvo::ui {

using panel::Adat_él_Beállít_COM;

namespace {

struct InvertBox {
  panel::CheckBox& box;
  int bit;  ///< in invert_com.ini
  bool& flag;
  bool whenTicked;
};
/// The input's flag is the opposite of its box as long as the window is open; the file's reader takes it
/// back.
const std::array<InvertBox, 4> InvertBoxes{{
    {Adat_él_Beállít_COM.Check1_PGD_Vdd, 1, link::ComPgdInverted, true},
    {Adat_él_Beállít_COM.Check2_PGC, 2, link::ComPgcInverted, true},
    {Adat_él_Beállít_COM.Check3_DataIn, 4, link::ComInputInverted, false},
    {Adat_él_Beállít_COM.Check4_Vpp, 8, link::ComVppInverted, true},
}};

void UpdateFlag(const InvertBox& one) {
  one.flag = one.box.Value == one.whenTicked;
}

void Save() {
  TellUnlessSaved(Adat_él_Beállít_COM, link::WriteComInvertFile(TickedBits(InvertBoxes)));
}

void Clicked(const InvertBox& one) {
  if (Adat_él_Beállít_COM.Loading) return;
  Adat_él_Beállít_COM.Changed = true;
  UpdateFlag(one);
  Save();
}

void Opened() {
  MindigFelül(Adat_él_Beállít_COM);
  Adat_él_Beállít_COM.Changed = false;
  Adat_él_Beállít_COM.InputFlagBefore = link::ComInputInverted;
  const platform::Raised loading(Adat_él_Beállít_COM.Loading);
  const long bits = link::ReadComInvertBits();
  for (const InvertBox& one : InvertBoxes) {
    one.box.Value = (bits & one.bit) != 0;
    UpdateFlag(one);
  }
}

/// Looking at the settings must leave the input as it was; a change is read back from the file.
void Closed() {
  if (Adat_él_Beállít_COM.Changed) {
    link::SetUpInterface();
  } else {
    link::ComInputInverted = Adat_él_Beállít_COM.InputFlagBefore;
  }
}

}  // namespace

void AttachComLineSettings() {
  Adat_él_Beállít_COM.OnLoad = Opened;
  Adat_él_Beállít_COM.OnUnload = Closed;
  for (const InvertBox& one : InvertBoxes) one.box.Click = [&one] { Clicked(one); };
}

}  // namespace zelvo::ui
