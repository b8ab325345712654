#include "ops18/id_locations.h"

#include <cmath>
#include <string>

#include "devices/chip_lists.h"
#include "icsp/conversions.h"
#include "icsp/pic18_engine.h"
#include "icsp/scripts.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/target_power.h"
#include "ops18/erase.h"
#include "ops18/flash_read.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::ops18 {

using panel::Form1;

namespace {

constexpr int Words = 4;

void PointToIds() {
  icsp::TablePointerU = "20";
  icsp::TablePointerH = icsp::TablePointerL = "00";
}

void WriteIdOnePanel() {
  icsp::SinglePanelMode();
  WriteIdWithUnlock();
}

struct IdGroup {
  std::string_view chips;
  void (*write)();
};
constexpr IdGroup Groups[] = {
    {"242 252 442 452 248 258 448 458 2331 2431 4331 4431 6525 6621 8525 8621 6585 6680 8585 8680 6520 6620 "
     "6720 "
     "8520 8620 8720",
     WriteIdOnePanel},
    {"1220 1320 2220 2320 4220 4320", WriteIdWithUnlock},
};

/// "DA0" to "DA7" name the bytes of four words, high byte first: DA1 is the first to go out.
std::string_view IdText(std::string_view element) {
  if (element.size() != 3 || !element.starts_with("DA")) return icsp::TablePointerText(element);
  static std::string byte;
  byte = icsp::WithHeldDigits(image::IdBuffer.at(static_cast<size_t>((element[2] - '0') ^ 1) + 1));
  return byte;
}

void RunIdScript(int base, int first, int last) {
  icsp::RunScript(base, first, last, 0, IdText);
  icsp::ProgramPulse();
}

void WriteByChip(const std::string& chip) {
  for (const IdGroup& group : Groups) {
    if (devices::ListHolds(group.chips, chip)) group.write();
  }
  if (IsTwoKeyChip(chip)) WriteIdTwoPhase();
}

}  // namespace

void WriteIdWithUnlock() {
  RunIdScript(icsp::base::IdWrite, 1, 78);
}

void WriteIdTwoPhase() {
  PointToIds();
  link::WaitCount = link::SpeedSetting * 24;
  RunIdScript(icsp::base::IdWriteNoUnlock, 1, 36);   // the pulse carries the row erase
  RunIdScript(icsp::base::IdWriteNoUnlock, 37, 63);  // and this one the write
  icsp::ClockTransaction("0000", "A6", "94");
}

void ReadIdLocations() {
  link::WaitCount = std::floor(link::SpeedSetting / 8);
  link::TargetPowerOn();
  link::LogEvent(Form1.List1, ":  ID Location bájtok beolvasása indult.");
  PointToIds();
  icsp::SetTablePointer(icsp::TablePointerU, icsp::TablePointerH, icsp::TablePointerL);
  image::ReadIndex = 1;
  for (int word = 0; word < Words; ++word) {
    link::Vár_Ír();
    MEMolvasLH();
  }
  link::LogEvent(Form1.List1, ":  ID Location kiolvasása kész.");
  link::TargetPowerOff();
  panel::IDLocO.Unload();
  panel::IDLocO.Load();
  link::WaitCount = link::SpeedSetting;
}

void WriteIdLocations() {
  link::WaitCount = link::SpeedSetting * 3;
  link::TargetPowerOn();
  link::LogEvent(Form1.List1, ":  ID Location bájtok Írása indult.");
  PointToIds();
  WriteByChip(std::string(Form1.Combo1.Text));  // a copy: another choice meanwhile starts nothing more
  link::LogEvent(Form1.List1, ":  ID Location bájtok Írása Kész.");
  link::TargetPowerOff();
  link::WaitCount = link::SpeedSetting;
  if (Form1.Check1.Value) ReadIdLocations();
}

}  // namespace zelvo::ops18
