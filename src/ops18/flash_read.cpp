#include "ops18/flash_read.h"

#include <cmath>

#include "devices/selection.h"
#include "icsp/pic18_engine.h"
#include "icsp/scripts.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/progress.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::ops18 {

using panel::Form1;

namespace {

/// Table read with post-increment and its eight dummy clocks.
int TableReadByte() {
  icsp::ClockOutBits("1001");
  link::Vár_Ír();
  icsp::ClockOutBits("0000");
  icsp::ClockOutBits("0000");
  return icsp::ClockInBits();
}

void StoreByte(int index, int value) {
  image::ReadBackBytes.at(static_cast<size_t>(index)) = value;
}

/// The chip's size counts as it is at the start: choosing a chip or a page meanwhile does not end the read.
void ReadWords() {
  const int words = devices::FlashWordMax + 1;
  for (int word = 1; word <= words; ++word) {
    link::StepProgress(panel::Állapot, word);
    MEMolvasLH();
    if (link::UserAbort) return;
  }
}

}  // namespace

void MEMolvasLH() {
  StoreByte(image::ReadIndex + 1, TableReadByte());
  StoreByte(image::ReadIndex, TableReadByte());
  image::ReadIndex += 2;
}

void ReadFlashByte() {
  StoreByte(image::ReadIndex, TableReadByte());
  ++image::ReadIndex;
}

void ReadFlash() {
  link::WaitCount = std::floor(link::SpeedSetting / 8);
  link::TargetPowerOn();
  link::LogEvent(Form1.List1, ":  Flash Beolvasása Indult.");
  icsp::TablePointerU = icsp::TablePointerH = icsp::TablePointerL = "00";
  icsp::SetTablePointer(icsp::TablePointerU, icsp::TablePointerH, icsp::TablePointerL);
  image::ReadIndex = 1;
  panel::Állapot.Load();
  ReadWords();
  panel::Állapot.Unload();
  link::LogEvent(Form1.List1, link::UserAbort ? ":  Felhasználói megszakítás" : ":  Flash beolvasás kész.");
  link::TargetPowerOff();
  panel::FlashOlv.Unload();
  if (!link::UserAbort) panel::FlashOlv.Load();
  link::UserAbort = false;
  link::WaitCount = link::SpeedSetting;
}

}  // namespace zelvo::ops18
