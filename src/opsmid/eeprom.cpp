#include "opsmid/eeprom.h"

#include <string>

#include "devices/preflight.h"
#include "devices/selection.h"
#include "icsp/conversions.h"
#include "icsp/mid_range_engine.h"
#include "icsp/pic18_engine.h"
#include "image/buffers.h"
#include "image/eeprom_walk.h"
#include "image/views.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/progress.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "opsmid/erase.h"
#include "opsmid/manual_board.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"

namespace zelvo::opsmid {

using panel::Form1;

namespace {

void Log(const char* text) {
  link::LogEvent(Form1.List4, text);
}

int ReadByte() {
  link::WaitCount = link::SpeedSetting;
  return icsp::ReadFrame(icsp::mid::ReadData, icsp::ByteFrame);
}

/// Eight bits behind the start bit, then six pad bits and the stop bit.
void WriteByte(std::string_view digits) {
  icsp::ClockOutBits(icsp::mid::LoadData);
  icsp::ClockOutBits("0");
  icsp::ClockOutHexPair(icsp::WithHeldDigits(digits));
  icsp::RunSteps("0000000 001000 wait*2");
}

bool WriteCell(int column, int row) {
  const image::Cell cell = image::EepromBuffer(column, row);
  if (!(cell == image::ErasedByte)) WriteByte(cell);
  icsp::IncrementAddress();
  ++EepromWriteCount;
  return !link::UserAbort;
}

/// False when the operator does not want to go on.
bool MayWrite() {
  if (OnManualBoard() || link::WholeChipRun) return true;
  link::TargetPowerOn();
  return devices::MidRangeQuestions(devices::MidVerb::EepromWrite);
}

}  // namespace

bool HasMidEeprom() {
  if (devices::EepromMax != 0) return true;
  platform::seams.dialogs->Message("Ebben a PIC-ben nincs EEPROM memória.");
  return false;
}

void ReadMidEeprom() {
  link::WaitCount = link::SpeedSetting;
  Log(":  EEPROM Beolvasása Indult.");
  image::EepromAddress = 0;
  image::ReadIndex = 1;
  panel::EEE_Olv_Állapot.Load();
  image::WalkEeprom(panel::EEE_Olv_Állapot, image::EepromAddress, [](int column, int row) {
    const int byte = ReadByte();
    icsp::IncrementAddress();
    image::EepromReadBuffer(column, row) = icsp::HexPadded(static_cast<std::uint32_t>(byte), 2);
    ++image::EepromAddress;
    return true;
  });
  Log(":  EEPROM beolvasás kész.");
  panel::EEE_Olv_Állapot.Unload();
  AskManualBoard(PowerOffNow);
  panel::EEPROM_Beolvas.Unload();
  panel::EEPROM_Beolvas.Load();
}

void WriteMidEeprom() {
  link::WaitCount = link::SpeedSetting;
  if (!MayWrite() || link::UserAbort) return;
  Log(":  EEPROM Írása Indult.");
  devices::SelectedName = Form1.Combo2.Text.Get();
  EraseForEepromWrite(devices::SelectedName);
  link::TargetPowerOn();
  EepromWriteCount = 0;
  panel::EEE_Ír_Állapot.Load();
  image::WalkEeprom(panel::EEE_Ír_Állapot, EepromWriteCount, WriteCell);
  Log(link::UserAbort ? ":  Felhasználói megszakítás!" : ":  EEPROM Írása kész.");
  panel::EEE_Ír_Állapot.Unload();
  if (Form1.Check4.Value) {
    link::TargetPowerOn();
    ReadMidEeprom();
  }
}

}  // namespace zelvo::opsmid
