#include "ops18/eeprom.h"

#include <cmath>
#include <string>

#include "devices/chip_lists.h"
#include "devices/selection.h"
#include "icsp/conversions.h"
#include "icsp/pic18_engine.h"
#include "icsp/scripts.h"
#include "image/buffers.h"
#include "image/eeprom_walk.h"
#include "image/views.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/lines.h"
#include "link/progress.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "ops18/erase.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"

namespace zelvo::ops18 {

using panel::Form1;

namespace {

using icsp::ShortPause;
using image::EepromAddress;

struct ReadScript {
  int base;
  int elements;
  int addressDigits;
};
constexpr ReadScript ByteAddress{icsp::base::EepromReadLow, 24, 2};
constexpr ReadScript WordAddress{icsp::base::EepromRead, 30, 4};

/// A stretch of a script by its first and last element.
struct Stretch {
  int first;
  int last;
};
struct WriteScript {
  int base;
  Stretch prefix, byte, poll, finish;
  int addressDigits;
};
constexpr WriteScript UnlockShort{icsp::base::EepromWriteLow, {1, 6}, {7, 36}, {37, 42}, {44, 46}, 2};
constexpr WriteScript UnlockLong{icsp::base::EepromWrite, {1, 6}, {7, 42}, {43, 48}, {49, 51}, 4};
constexpr WriteScript NoUnlock{icsp::base::EepromWriteNoUnlock, {1, 6}, {7, 30}, {43, 51}, {52, 54}, 4};

void EraseEepromTwoKey() {
  BulkEraseTwoKey("00", "84");
}

struct EepromGroup {
  std::string_view chips;
  void (*read)();
  void (*write)();
  void (*erase)();
};
constexpr EepromGroup Groups[] = {
    {"1220 1320 2220 2320 4220 4320", ReadEepromByteAddress, WriteEepromUnlockShort, EraseEepromOneKey},
    {"242 252 442 452 248 258 448 458 2331 2431 4331 4431 6525 6621 8525 8621 6585 6680 8585 8680 "
     "6520 6620 6720 8520 8620 8720",
     ReadEepromWordAddress, WriteEepromUnlockLong, EraseEepromOneKey},
    {"2455 2550 4455 4550 2420 2520 4420 4520 2480 2580 4480 4580 2525 2620 4525 4620 2585 2680 4585 4680 "
     "6527 6622 6627 6722 8527 8622 8627 8722 2221 2321 4221 4321",
     ReadEepromWordAddress, WriteEepromNoUnlock, EraseEepromTwoKey},
};
constexpr std::string_view WithoutEeprom = "2410 2510 4410 4510 2515 2610 4515 4610";

/// Nullptr for a name in no row.
const EepromGroup* FindGroup(std::string_view chip) {
  for (const EepromGroup& group : Groups) {
    if (devices::ListHolds(group.chips, chip)) return &group;
  }
  return nullptr;
}

void TellNoEeprom() {
  platform::seams.dialogs->Message("Ebben a PIC-ben nincs EEPROM!");
}

/// Clocks a stretch with the running address and `data` in their places.
void RunStretch(int base, Stretch stretch, int addressDigits, std::string_view data = {}) {
  const std::string address = icsp::HexPadded(static_cast<std::uint32_t>(EepromAddress), addressDigits);
  const std::string_view text = address;
  const bool wide = addressDigits > 2;
  icsp::RunScript(base, stretch.first, stretch.last, ShortPause, [=](std::string_view element) {
    if (element == "ECM") return wide ? text.substr(2) : text;
    if (element == "ECH") return text.substr(0, 2);
    if (element == "EDA") return data;
    return element;
  });
}

int ShiftOutTablat() {
  icsp::ClockOutBits("0010");
  icsp::ClockOutBits("00000000");
  return icsp::ClockInBits();
}

void ReadBytes(const ReadScript& script) {
  EepromAddress = 0;
  link::WaitCount = std::floor(link::SpeedSetting / 8);
  panel::EEE_Olv_Állapot.Load();
  image::WalkEeprom(panel::EEE_Olv_Állapot, EepromAddress, [&script](int column, int row) {
    RunStretch(script.base, {1, script.elements}, script.addressDigits);
    ++EepromAddress;
    image::EepromReadBuffer(column, row) = icsp::HexPadded(static_cast<std::uint32_t>(ShiftOutTablat()), 2);
    return !link::UserAbort;
  });
  panel::EEE_Olv_Állapot.Unload();
  link::TargetPowerOff();
  panel::EEPROM_Beolvas.Unload();
  if (!link::UserAbort) panel::EEPROM_Beolvas.Load();
  link::WaitCount = link::SpeedSetting;
}

/// The second bit of EECON1 is WR, 1 while the chip writes. On the printer port its end is taken from the raw
/// level, whatever the input's polarity: with a plain input the wait ends as soon as WR reads 1.
bool WriteEndSeen() {
  const bool high = icsp::BitSamples[2] != 0;
  return link::ComMode ? high == link::ComInputInverted : high;
}

/// Asks without limit; the operator must be able to close the program meanwhile, at any speed and without a
/// port.
void AwaitWriteEnd(const WriteScript& script) {
  do {
    RunStretch(script.base, script.poll, script.addressDigits);
    icsp::ClockOutBits("0010");
    icsp::ClockOutBits("0000");
    icsp::ClockOutBits("0000");
    static_cast<void>(icsp::ClockInBits());
    const bool pumped = link::EdgePasses() > 0 && (link::LptMode || link::ComMode);
    if (!pumped) platform::seams.pump->Once();
  } while (!WriteEndSeen());
}

void WriteBytes(const WriteScript& script) {
  EepromAddress = 0;
  link::WaitCount = std::floor(link::SpeedSetting * 4);
  RunStretch(script.base, script.prefix, script.addressDigits);
  link::ClockAndDataToRest();
  panel::EEE_Ír_Állapot.Load();
  image::WalkEeprom(panel::EEE_Ír_Állapot, EepromAddress, [&script](int column, int row) {
    const image::Cell cell = image::EepromBuffer(column, row);
    if (!(cell == image::ErasedByte)) {
      RunStretch(script.base, script.byte, script.addressDigits, cell);
      AwaitWriteEnd(script);
      RunStretch(script.base, script.finish, script.addressDigits);
    }
    ++EepromAddress;
    return true;
  });
  panel::EEE_Ír_Állapot.Unload();
  link::WaitCount = link::SpeedSetting;
}

}  // namespace

bool HasNoEeprom(std::string_view chip) {
  return devices::ListHolds(WithoutEeprom, chip);
}

void ReadEepromByteAddress() {
  ReadBytes(ByteAddress);
}
void ReadEepromWordAddress() {
  ReadBytes(WordAddress);
}

void WriteEepromUnlockShort() {
  WriteBytes(UnlockShort);
}
void WriteEepromUnlockLong() {
  WriteBytes(UnlockLong);
}
void WriteEepromNoUnlock() {
  WriteBytes(NoUnlock);
}

void EraseEepromOneKey() {
  EraseOneBlock("81", 3);
}

void ReadEeprom() {
  link::TargetPowerOn();
  link::LogEvent(Form1.List1, ":  EEPROM Beolvasása Indult.");
  const std::string chip = Form1.Combo1.Text;
  if (HasNoEeprom(chip)) {
    TellNoEeprom();
    link::TargetPowerOff();
    return;
  }
  if (const EepromGroup* group = FindGroup(chip)) group->read();
  link::LogEvent(Form1.List1, link::UserAbort ? ":  Felhasználói megszakítás!" : ":  EEPROM beolvasás kész.");
  link::TargetPowerOff();
  link::UserAbort = false;  // else the next EEPROM write of the mid-range page would not begin
}

void WriteEeprom() {
  EraseEeprom();
  link::Szün();
  link::TargetPowerOn();
  link::LogEvent(Form1.List1, ":  EEPROM Írása Indult.");
  const std::string chip = Form1.Combo1.Text;
  if (HasNoEeprom(chip)) {
    TellNoEeprom();
  } else {
    if (const EepromGroup* group = FindGroup(chip)) group->write();
    link::LogEvent(Form1.List1, ":  EEPROM Írása kész.");
  }
  link::TargetPowerOff();
  if (Form1.Check1.Value) ReadEeprom();
}

void EraseEeprom() {
  link::TargetPowerOn();
  const std::string chip = Form1.Combo1.Text;
  if (!HasNoEeprom(chip)) {
    if (const EepromGroup* group = FindGroup(chip)) group->erase();
    link::SettleDelay();
  }
  link::TargetPowerOff();
}

}  // namespace zelvo::ops18
