#include "ui/main_window.h"

#include "devices/identification.h"
#include "devices/mid_range_identification.h"
#include "devices/preflight.h"
#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/fills.h"
#include "image/hex_load.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "ops18/config_bytes.h"
#include "ops18/eeprom.h"
#include "ops18/erase.h"
#include "ops18/flash_read.h"
#include "ops18/flash_write.h"
#include "ops18/id_locations.h"
#include "panel/form1.h"
#include "panel/operator.h"
#include "panel/secondary_windows.h"
#include "panel/window.h"
#include "platform/seams.h"
#include "ui/behaviour.h"
#include "ui/on_top.h"

namespace zelvo::ui {

using devices::Preflight;
using devices::PreflightQuestions;
using devices::Verb;
using panel::Form1;

namespace {

/// Closing ends a running operation: the pump pass that the click came through throws, so that no line moves
/// after this brought them to idle.
void CloseForm1() {
  link::TargetPowerOff();
  for (panel::Window* window : panel::AllWindows()) {
    if (window != &panel::MDIForm1 && window != &Form1) window->Unload();
  }
  if (platform::seams.serial->IsOpen()) platform::seams.serial->Close();
  platform::programEnded = true;
}

void CloseMainWindow() {
  Form1.Unload();
}

/// A handler that fell over must not leave a chip powered, nor a speed that was only its own.
void RestAfterFault() {
  link::TargetPowerOff();
  for (panel::ProgressWindow* window :
       {&panel::Állapot, &panel::FlashÍrÁllapot, &panel::EEE_Olv_Állapot, &panel::EEE_Ír_Állapot})
    window->Unload();
  link::WholeChipRun = false;
  devices::MidEraseRun = false;
  link::UserAbort = false;
  link::WaitCount = link::SpeedSetting;
}

/// A read of one memory.
void AttachRead(panel::CommandButton& button, void (*read)()) {
  button.Click = [read] {
    if (Preflight(Verb::Read)) read();
  };
}

/// A write of one memory; inside a whole-chip write the questions were asked before.
void AttachWrite(panel::CommandButton& button, void (*write)()) {
  button.Click = [write] {
    if (!devices::ChipIsSelected()) return;
    if (!link::WholeChipRun && !PreflightQuestions(Verb::Write)) return;
    write();
  };
}

void WriteFlashClicked() {
  if (!devices::ChipIsSelected()) return;
  link::WaitCount = link::SpeedSetting;
  if (!link::WholeChipRun && !PreflightQuestions(Verb::Write)) return;
  ops18::WriteFlash();
}

void EraseClicked() {
  if (!devices::ChipIsSelected()) {
    icsp::LoadFailed = 1;
    return;
  }
  if (!PreflightQuestions(Verb::Erase)) return;
  ops18::EraseWholeChip();
  image::FillVerifyErased();
}

void IdentifyClicked() {
  devices::SilentIdentify = false;
  devices::IdentifyPic18();
}

void ReadWholeChip() {
  if (!Preflight(Verb::Read)) return;
  ops18::ReadFlash();
  if (!ops18::HasNoEeprom(Form1.Combo1.Text.Get())) ops18::ReadEeprom();
  ops18::ReadIdLocations();
  ops18::ReadConfigBytes();
  Reopen(panel::Összes_Bezárása);
}

/// Asks its questions with no chip selected too. The configuration comes last, so that no protection bit
/// blocks the steps before it.
void WriteWholeChip() {
  if (!PreflightQuestions(Verb::Write)) return;
  link::WholeChipRun = true;
  ops18::WriteFlash();
  if (!ops18::HasNoEeprom(Form1.Combo1.Text.Get())) ops18::WriteEeprom();
  ops18::WriteIdLocations();
  ops18::WriteConfigBytes();
  link::WholeChipRun = false;
}

void ClearVerifyBuffer() {
  image::FillVerifyErased();
  link::LogEvent(Form1.List1, ":  Verify Puffer Törölve(FFFF).");
}

}  // namespace

void ShowSelectedPage() {
  const int tab = Form1.TabStrip1.SelectedItem;
  if (tab != panel::MidRangeTab && tab != panel::Pic18Tab) return;
  Form1.Frame1.InFront = tab == panel::MidRangeTab;
  Form1.Frame0.InFront = tab == panel::Pic18Tab;
  devices::FlashWordMax = 0;
}

void EnableWholeChipButtons() {
  const bool enabled = !Form1.Check8.Value;
  Form1.Command21.Enabled = enabled;
  Form1.Command19.Enabled = enabled;
}

void AttachMainWindow() {
  panel::MDIForm1.OnUnload = CloseMainWindow;
  Form1.OnLoad = [] {
    for (panel::CommandButton* button : {&Form1.PICTörlés, &Form1.Command12})
      button->ToolTip = std::string("Teljes PIC tartalom Törlése");
  };
  Form1.OnUnload = CloseForm1;
  panel::AfterFault = RestAfterFault;
  Form1.TabStrip1.Click = ShowSelectedPage;
  for (panel::ComboBox* combo : {&Form1.Combo1, &Form1.Combo2}) combo->Click = devices::SelectChip;
  for (panel::CommandButton* button : {&Form1.FájlBetölt, &Form1.Command7}) button->Click = image::LoadButton;
  for (panel::CommandButton* button : {&Form1.Frissites, &Form1.Command22})
    button->Click = image::ReloadButton;
  for (panel::CommandButton* button : {&Form1.ProgFut, &Form1.Command10}) button->Click = link::ToggleVdd;
  Form1.IDazonosít.Click = IdentifyClicked;
  AttachRead(Form1.FlashOl, ops18::ReadFlash);
  AttachRead(Form1.EEPROMOlvas, ops18::ReadEeprom);
  AttachRead(Form1.IDLocOlvas, ops18::ReadIdLocations);
  AttachRead(Form1.ConfigOlvas, ops18::ReadConfigBytes);
  AttachWrite(Form1.EEPROMÍr, ops18::WriteEeprom);
  AttachWrite(Form1.IDLocÍr, ops18::WriteIdLocations);
  AttachWrite(Form1.CinfigÍr, ops18::WriteConfigBytes);
  Form1.FlashÍr.Click = WriteFlashClicked;
  Form1.PICTörlés.Click = EraseClicked;
  Form1.PICOlvas.Click = ReadWholeChip;
  Form1.PICÍrás.Click = WriteWholeChip;
  Form1.Command2.Click = ClearVerifyBuffer;
}

}  // namespace zelvo::ui
