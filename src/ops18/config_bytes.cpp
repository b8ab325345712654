#include "ops18/config_bytes.h"

#include <cmath>
#include <string>

#include "devices/chip_lists.h"
#include "devices/config_masks.h"
#include "devices/selection.h"
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

constexpr std::string_view DirectChips =
    "242 252 442 452 248 258 448 458 1220 1320 2220 2320 4220 4320 6525 6621 8525 8621 6585 6680 8585 8680 "
    "6520 "
    "6620 6720 8520 8620 8720";

/// So long that the clocks behind a byte are its programming time: no pulse stands between the bytes.
constexpr double ProgrammingWait = 10000;

constexpr int LastElement = 153;
constexpr int PastGoto = 13;  // the newer chips need no jump out of the boot code

/// "C1L" to "C7H" name the bytes in the order of their addresses.
std::string_view ConfigText(std::string_view element) {
  if (element.size() != 3 || element[0] != 'C') return element;
  const int word = element[1] - '1';
  static std::string byte;
  byte = icsp::WithHeldDigits(
      image::ConfigBuffer.at(static_cast<size_t>(2 * word + (element[2] == 'H' ? 2 : 1))));
  return byte;
}

void RunConfigScript(int first, int last) {
  icsp::RunScript(icsp::base::ConfigWrite, first, last, 0, ConfigText);
}

void EndConfigWrite() {
  icsp::ProgramPulse();  // of the last byte
  link::WaitCount = link::SpeedSetting;
}

}  // namespace

void WriteConfigDirect() {
  link::WaitCount = ProgrammingWait;
  RunConfigScript(1, LastElement);
  EndConfigWrite();
}

void WriteConfigAfterErase() {
  BulkEraseTwoKey("00", "82");
  link::WaitCount = ProgrammingWait;
  RunConfigScript(1, 6);
  RunConfigScript(PastGoto, LastElement);
  EndConfigWrite();
}

void ReadConfigBytes() {
  panel::Config_Beolvas.Unload();
  if (!devices::ChipIsSelected()) return;
  link::WaitCount = std::floor(link::SpeedSetting / 8);
  link::TargetPowerOn();
  link::LogEvent(Form1.List1, ":  Configbájtok beolvasása Indult.");
  icsp::TablePointerU = "30";
  icsp::TablePointerH = icsp::TablePointerL = "00";
  icsp::SetTablePointer(icsp::TablePointerU, icsp::TablePointerH, icsp::TablePointerL);
  image::ReadIndex = 1;
  for (int byte = 0; byte < devices::ConfigByteCount; ++byte) ReadFlashByte();
  link::TargetPowerOff();
  panel::Config_Beolvas.Load();
  link::LogEvent(Form1.List1, ":  Configbájtok beolvasása Kész.");
  link::WaitCount = link::SpeedSetting;
}

void WriteConfigBytes() {
  panel::Config_Beolvas.Unload();
  link::TargetPowerOn();
  link::LogEvent(Form1.List1, ":  Config Bájtok Irása Indult.");
  const std::string chip = Form1.Combo1.Text;
  if (devices::ListHolds(DirectChips, chip)) WriteConfigDirect();
  if (IsTwoKeyChip(chip)) WriteConfigAfterErase();
  link::LogEvent(Form1.List1, ":  Config Bájtok Irása Kész.");
  link::TargetPowerOff();
  if (Form1.Check1.Value) ReadConfigBytes();
}

}  // namespace zelvo::ops18
