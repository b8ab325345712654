// The buttons of the mid-range page.
#include <string>

#include "devices/identification.h"
#include "devices/mid_range_identification.h"
#include "devices/preflight.h"
#include "devices/selection.h"
#include "icsp/conversions.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "opsmid/config_id.h"
#include "opsmid/eeprom.h"
#include "opsmid/erase.h"
#include "opsmid/flash.h"
#include "opsmid/manual_board.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "ui/behaviour.h"
#include "ui/main_window.h"
#include "ui/on_top.h"

namespace zelvo::ui {

using devices::MidVerb;
using panel::Form1;

namespace {

void Tell(const char* text) {
  platform::seams.dialogs->Message(text);
}

/// The target on, the chip identified, the questions asked.
bool MayRun(MidVerb verb) {
  link::TargetPowerOn();
  return devices::MidRangeQuestions(verb);
}

void PowerOnAnd(void (*operation)()) {
  link::TargetPowerOn();
  operation();
}

/// A read of one memory. With the manual board the operator switches, and nothing is identified.
void ReadOne(void (*read)()) {
  if (opsmid::OnManualBoard()) {
    opsmid::AskManualBoard(opsmid::PowerOn);
    read();
  } else {
    if (!MayRun(MidVerb::Read)) return;
    PowerOnAnd(read);
  }
  link::UserAbort = false;
  link::TargetPowerOff();
}

void AttachRead(panel::CommandButton& button, void (*read)()) {
  button.Click = [read] {
    if (devices::ChipIsSelected()) ReadOne(read);
  };
}

void ReadEepromClicked() {
  if (devices::ChipIsSelected() && opsmid::HasMidEeprom()) ReadOne(opsmid::ReadMidEeprom);
}

void WriteEepromClicked() {
  if (!devices::ChipIsSelected() || !opsmid::HasMidEeprom()) return;
  opsmid::AskManualBoard(opsmid::PowerOn);
  opsmid::WriteMidEeprom();
  link::UserAbort = false;  // else the next write would not begin
  opsmid::AskManualBoard(opsmid::PowerOffNow);
  link::TargetPowerOff();
}

/// A check has left review windows open.
void OfferToCloseReviews() {
  if (Form1.Check4.Value) Reopen(panel::Összes_Bezárása);
}

void WriteFlashClicked() {
  if (!devices::ChipIsSelected()) return;
  if (!opsmid::OnManualBoard() && !link::WholeChipRun && !MayRun(MidVerb::Write)) return;
  opsmid::WriteMidFlash();
  link::UserAbort = false;
  link::TargetPowerOff();
  OfferToCloseReviews();
}

/// The flag is set before the questions, and a No leaves it set: until the next whole erase the pieces that
/// it stops from powering the target rely on their callers.
void EraseClicked() {
  devices::MidEraseRun = true;
  if (!devices::ChipIsSelected()) {
    icsp::LoadFailed = 1;
    return;
  }
  opsmid::AskManualBoard(opsmid::PowerOn);
  if (!opsmid::OnManualBoard() && !MayRun(MidVerb::Erase)) return;
  opsmid::EraseChip();
  devices::MidEraseRun = false;
  link::UserAbort = false;
  opsmid::AskManualBoard(opsmid::PowerOffNow);
  OfferToCloseReviews();
}

void ReadWholeChip() {
  if (!devices::ChipIsSelected()) return;
  if (opsmid::OnManualBoard()) return Tell("ZLPT_minivel csak egyenként lehet kiolvasni a tartalmakat.");
  if (!MayRun(MidVerb::Read)) return;
  PowerOnAnd(opsmid::ReadMidFlash);
  if (devices::EepromMax != 0) PowerOnAnd(opsmid::ReadMidEeprom);
  PowerOnAnd(opsmid::ReadMidConfig);
  PowerOnAnd(opsmid::ReadMidUserIds);
  link::UserAbort = false;
  link::TargetPowerOff();
  Reopen(panel::Összes_Bezárása);
}

void WriteWholeChip() {
  if (!devices::ChipIsSelected()) return;
  if (opsmid::OnManualBoard()) return Tell("ZLPT_minivel csak egyenként lehet írni a tartalmakat.");
  if (!MayRun(MidVerb::Write)) return;
  link::UserAbort = false;
  // The read-back of a cancelled write has forgotten the Cancel; the EEPROM must not be written behind it.
  if (!opsmid::WriteMidFlash()) link::UserAbort = true;
  if (devices::EepromMax != 0) {
    link::WholeChipRun = true;
    PowerOnAnd(opsmid::WriteMidEeprom);
    link::WholeChipRun = false;
  }
  link::UserAbort = false;
  link::TargetPowerOff();
  OfferToCloseReviews();
}

void IdentifyClicked() {
  opsmid::AskManualBoard(opsmid::PowerOn);
  link::TargetPowerOn();
  devices::SilentIdentify = false;
  devices::IdentifyMidrange();
  link::TargetPowerOff();
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
  Tell("ZLPT_mini használatánál ez a funkció nem érhető el.");
}

}  // namespace

void AttachMidRangePage() {
  Form1.Command9.Click = IdentifyClicked;
  AttachRead(Form1.Command8, opsmid::ReadMidFlash);
  AttachRead(Form1.Command13, opsmid::ReadMidConfig);
  AttachRead(Form1.Command15, opsmid::ReadMidUserIds);
  Form1.Command11.Click = WriteFlashClicked;
  Form1.Command12.Click = EraseClicked;
  Form1.Command17.Click = ReadEepromClicked;
  Form1.Command18.Click = WriteEepromClicked;
  Form1.Command19.Click = ReadWholeChip;
  Form1.Command21.Click = WriteWholeChip;
  Form1.Check8.Click = ManualBoardClicked;
  for (panel::CheckBox* box : {&Form1.Check4, &Form1.Check6})
    box->Click = [box] { RefuseOnManualBoard(*box); };
}

}  // namespace zelvo::ui
