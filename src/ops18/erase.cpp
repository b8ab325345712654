#include "ops18/erase.h"

#include <string>

#include "devices/chip_lists.h"
#include "icsp/conversions.h"
#include "icsp/pic18_engine.h"
#include "icsp/scripts.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/target_power.h"
#include "panel/form1.h"

namespace zelvo::ops18 {

using panel::Form1;

namespace {

constexpr int OneKeyElements = 27;
constexpr int TwoKeyElements = 49;

constexpr std::string_view OneKeyChips =
    "242 252 442 452 248 258 448 458 1220 1320 2220 2320 4220 4320 2331 2431 4331 4431 6525 6621 8525 8621 "
    "6585 6680 "
    "8585 8680 6520 6620 6720 8520 8620 8720";
constexpr std::string_view TwoKeyChips =
    "2455 2550 4455 4550 2410 2510 4410 4510 2420 2520 4420 4520 2480 2580 4480 4580 2515 2610 4515 4610 "
    "2525 2620 "
    "4525 4620 2585 2680 4585 4680 6527 6622 6627 6722 8527 8622 8627 8722 2221 2321 4221 4321";

struct BlockRow {
  std::string_view keys;
  std::string_view chips;
};

// One key: 83h is the boot block, 88h to 8Fh are the panels (DS39576, DS39583). Two keys: for 3C0005h and
// 3C0004h, the boot block, then one block a bit (DS39622).
constexpr BlockRow BlockRows[] = {
    {"83 88 89", "242 442 248 448 1220 1320 2220 4220 2331 4331"},
    {"83 88 89 8A", "6525 8525 6585 8585"},
    {"83 88 89 8A 8B", "252 452 258 458 2320 4320 2431 4431 6621 8621 6680 8680 6520 6620 8520 8620"},
    {"83 88 89 8A 8B 8C 8D 8E 8F", "6720 8720"},
    {"00/81 01/80 02/80", "2410 2420 4410 4420 2480 4480 2221 2321 4221 4321"},
    {"00/81 01/80 02/80 04/80", "2455 4455 2515 4515 2525 4525 2585 4585 6527 8527"},
    {"00/81 01/80 02/80 04/80 08/80",
     "2550 4550 2510 4510 2520 4520 2580 4580 2610 4610 2620 4620 2680 4680 6622 8622"},
    {"00/81 01/80 02/80 04/80 08/80 10/80 20/80", "6627 8627"},
    {"00/81 01/80 02/80 04/80 08/80 10/80 20/80 40/80 80/80", "6722 8722"},
};

/// NOP whose payload waits while the chip erases.
void EraseHold() {
  icsp::ClockOutBits("0000");
  link::SleepP11();
  link::SleepP11();
  icsp::ClockOutBits("00000000");
  icsp::ClockOutBits("00000000");
}

/// Calls `use` with each of the words of `list`.
template <class Use>
void ForEachWord(std::string_view list, const Use& use) {
  while (!list.empty()) {
    const size_t end = list.find(' ');
    use(list.substr(0, end));
    list = end == std::string_view::npos ? std::string_view{} : list.substr(end + 1);
  }
}

}  // namespace

bool IsOneKeyChip(std::string_view chip) {
  return devices::ListHolds(OneKeyChips, chip);
}
bool IsTwoKeyChip(std::string_view chip) {
  return devices::ListHolds(TwoKeyChips, chip);
}

std::string_view BlockKeys(std::string_view chip) {
  for (const BlockRow& row : BlockRows) {
    if (devices::ListHolds(row.chips, chip)) return row.keys;
  }
  return {};
}

void BulkEraseOneKey() {
  static constexpr std::string_view WholeChip = "80";
  icsp::RunScript(icsp::base::BulkEraseOneKey, 1, OneKeyElements, 0,
                  [](std::string_view element) { return element == "COD" ? WholeChip : element; });
  EraseHold();
}

void BulkEraseTwoKey(std::string_view first, std::string_view second) {
  icsp::EraseKey1 = first;
  icsp::EraseKey2 = second;
  icsp::RunScript(icsp::base::BulkEraseTwoKey, 1, TwoKeyElements, 3, [](std::string_view element) {
    if (element == "CO1") return std::string_view(icsp::EraseKey1);
    if (element == "CO2") return std::string_view(icsp::EraseKey2);
    return element;
  });
  EraseHold();
}

void EraseOneBlock(std::string_view key, int waits) {
  for (int i = 1; i <= OneKeyElements; ++i) {
    std::string_view element = icsp::ScriptElement(icsp::base::BulkEraseOneKey + i);
    if (element == "COD") element = key;
    if (element.size() == 4) {
      icsp::ClockOutBits(element);
    } else {
      icsp::ClockOutHexPair(icsp::WithHeldDigits(element));
    }
    link::Vár_Ír(waits);
  }
}

void EraseBlocksOneKey(std::string_view keys) {
  ForEachWord(keys, [](std::string_view key) { EraseOneBlock(key, 1); });
}

void EraseBlocksTwoKey(std::string_view pairs) {
  ForEachWord(pairs, [](std::string_view pair) { BulkEraseTwoKey(pair.substr(0, 2), pair.substr(3, 2)); });
}

void EraseWholeChip() {
  link::TargetPowerOn();
  link::LogEvent(Form1.List1, ":  Teljes Memória törlés indult.");
  const std::string chip = Form1.Combo1.Text;
  if (IsOneKeyChip(chip)) BulkEraseOneKey();
  if (IsTwoKeyChip(chip)) BulkEraseTwoKey("FF", "87");
  link::TargetPowerOff();
  link::LogEvent(Form1.List1, ":  PIC Törlése kész.");
}

void EraseCodeBlocks() {
  link::TargetPowerOn();
  const std::string chip = Form1.Combo1.Text;
  if (IsOneKeyChip(chip)) EraseBlocksOneKey(BlockKeys(chip));
  if (IsTwoKeyChip(chip)) EraseBlocksTwoKey(BlockKeys(chip));
  link::SettleDelay();
  link::TargetPowerOff();
}

}  // namespace zelvo::ops18
