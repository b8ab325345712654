#include "ui/main_window.h"

#include "devices/identification.h"
#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/fills.h"
#include "image/hex_load.h"
#include "link/delays.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "ops18/erase.h"
#include "ops18/flash_read.h"
#include "ops18/flash_write.h"
#include "panel/form1.h"
#include "panel/operator.h"
#include "panel/secondary_windows.h"
#include "panel/window.h"
#include "platform/seams.h"
#include "ui/behaviour.h"
#include "ui/preflight.h"

namespace zelvo::ui {

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
  panel::Állapot.Unload();
  panel::FlashÍrÁllapot.Unload();
  link::WholeChipRun = false;
  link::UserAbort = false;
  link::WaitCount = link::SpeedSetting;
}

void ReadFlashClicked() {
  if (Preflight(Verb::Read)) ops18::ReadFlash();
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

void ManualBoardClicked() {
  Form1.Check4.Value = false;
  Form1.Check6.Value = false;
  EnableWholeChipButtons();
}

/// The manual board cannot verify by itself: the tick is taken back at once.
void RefuseOnManualBoard(panel::CheckBox& box) {
  if (!Form1.Check8.Value || !box.Value) return;
  box.Value = false;
  platform::seams.dialogs->Message("ZLPT_mini használatánál ez a funkció nem érhető el.");
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
  Form1.OnLoad = [] { Form1.PICTörlés.ToolTip = "Teljes PIC tartalom Törlése"; };
  Form1.OnUnload = CloseForm1;
  panel::AfterFault = RestAfterFault;
  Form1.TabStrip1.Click = ShowSelectedPage;
  for (panel::ComboBox* combo : {&Form1.Combo1, &Form1.Combo2}) combo->Click = devices::SelectChip;
  for (panel::CommandButton* button : {&Form1.FájlBetölt, &Form1.Command7}) button->Click = image::LoadButton;
  for (panel::CommandButton* button : {&Form1.Frissites, &Form1.Command22})
    button->Click = image::ReloadButton;
  for (panel::CommandButton* button : {&Form1.ProgFut, &Form1.Command10}) button->Click = link::ToggleVdd;
  Form1.IDazonosít.Click = IdentifyClicked;
  Form1.FlashOl.Click = ReadFlashClicked;
  Form1.FlashÍr.Click = WriteFlashClicked;
  Form1.PICTörlés.Click = EraseClicked;
  Form1.Check8.Click = ManualBoardClicked;
  for (panel::CheckBox* box : {&Form1.Check4, &Form1.Check6})
    box->Click = [box] { RefuseOnManualBoard(*box); };
}

}  // namespace zelvo::ui
