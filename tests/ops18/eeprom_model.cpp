#include "eeprom_model.h"

#include <algorithm>
#include <fstream>

#include "devices/selection.h"
#include "image/buffers.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using enum EepromGroup;

// Core instructions on EECON1 (A6h), EECON2 (A7h), EEDATA (A8h), EEADR (A9h), EEADRH (AAh) and TABLAT (F5h).
constexpr int ClearEepgd = 0x9EA6, ClearCfgs = 0x9CA6, SetWren = 0x84A6, ClearWren = 0x94A6, SetWr = 0x82A6,
              SetRd = 0x80A6;
constexpr int ToEecon2 = 0x6EA7, ToData = 0x6EA8, ToAddress = 0x6EA9, ToAddressHigh = 0x6EAA;
constexpr int FromData = 0x50A8, FromEecon1 = 0x50A6, ToTablat = 0x6EF5, Nop = 0;

constexpr int Literal(int value) {
  return 0x0E00 | value;
}

constexpr long long WriteTime = 4000;  // us, P11A
constexpr int Wren = 0x04, Wr = 0x02;

void SendAddress(WireModel& model, EepromGroup group, int address) {
  model.HeldCore({Literal(address & 0xFF), ToAddress});
  if (group != Small) model.HeldCore({Literal(address >> 8), ToAddressHigh});
}

/// What `waits` waits behind each command and byte add to a transaction.
void SlowFrame(WireModel& model, std::string_view command, int payload, int waits) {
  model.Out(command);
  model.Wait(waits);
  model.OutByte(payload & 0xFF);
  model.Wait(waits);
  model.OutByte(payload >> 8);
  model.Wait(waits);
}

void PointSlowly(WireModel& model, int address) {
  for (const int word : {Literal(address >> 16), 0x6EF8, Literal(address >> 8 & 0xFF), 0x6EF7,
                         Literal(address & 0xFF), 0x6EF6}) {
    SlowFrame(model, "0000", word, 3);
  }
}

/// One key at 3C0004h, and 24 zero bits in place of a hold.
void AddOneKey(WireModel& model) {
  PointSlowly(model, 0x3C0004);
  SlowFrame(model, "1100", 0x0081, 3);
  SlowFrame(model, "0000", Nop, 3);
  for (int i = 0; i < 3; ++i) {
    model.OutByte(0);
    model.Wait(3);
  }
}

/// 00h at 3C0005h and 84h at 3C0004h, then a NOP with the erase time inside.
void AddTwoKeys(WireModel& model) {
  PointSlowly(model, 0x3C0005);
  SlowFrame(model, "1100", 0x0000, 3);
  PointSlowly(model, 0x3C0004);
  SlowFrame(model, "1100", 0x8484, 3);
  SlowFrame(model, "0000", Nop, 3);
  model.Out("0000");
  model.Line("S11");
  model.Line("S11");
  model.OutByte(0);
  model.OutByte(0);
}

std::string Digits(int value) {
  char text[8];
  std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(value));
  return text;
}

}  // namespace

const std::vector<EepromChip>& EepromChips() {
  static const std::vector<EepromChip> chips = {
      {"1220", Small}, {"1320", Small}, {"2220", Small}, {"2320", Small}, {"4220", Small}, {"4320", Small},
      {"242", Panel},  {"252", Panel},  {"442", Panel},  {"452", Panel},  {"248", Panel},  {"258", Panel},
      {"448", Panel},  {"458", Panel},  {"2331", Panel}, {"2431", Panel}, {"4331", Panel}, {"4431", Panel},
      {"6525", Panel}, {"6621", Panel}, {"8525", Panel}, {"8621", Panel}, {"6585", Panel}, {"6680", Panel},
      {"8585", Panel}, {"8680", Panel}, {"6520", Panel}, {"6620", Panel}, {"6720", Panel}, {"8520", Panel},
      {"8620", Panel}, {"8720", Panel}, {"2455", Newer}, {"2550", Newer}, {"4455", Newer}, {"4550", Newer},
      {"2420", Newer}, {"2520", Newer}, {"4420", Newer}, {"4520", Newer}, {"2480", Newer}, {"2580", Newer},
      {"4480", Newer}, {"4580", Newer}, {"2525", Newer}, {"2620", Newer}, {"4525", Newer}, {"4620", Newer},
      {"2585", Newer}, {"2680", Newer}, {"4585", Newer}, {"4680", Newer}, {"6527", Newer}, {"6622", Newer},
      {"6627", Newer}, {"6722", Newer}, {"8527", Newer}, {"8622", Newer}, {"8627", Newer}, {"8722", Newer},
      {"2221", Newer}, {"2321", Newer}, {"4221", Newer}, {"4321", Newer}, {"2410", None},  {"2510", None},
      {"4410", None},  {"4510", None},  {"2515", None},  {"2610", None},  {"4515", None},  {"4610", None}};
  return chips;
}

int WritingChip(long long microseconds) {
  return microseconds < WriteTime ? Wren | Wr : Wren;
}

int EmptySocket(long long) {
  return 0xFF;
}

void AddEepromErase(WireModel& model, EepromGroup group) {
  model.PowerOn();
  if (group == Newer) {
    AddTwoKeys(model);
  } else if (group != None) {
    AddOneKey(model);
  }
  if (group != None) model.Line("D settle");
  model.PowerOff();
}

void AddEepromReadByte(WireModel& model, EepromGroup group, int address, int value) {
  model.HeldCore({ClearEepgd, ClearCfgs});
  SendAddress(model, group, address);
  model.HeldCore({SetRd, FromData, ToTablat, Nop});
  model.Out("0010");
  model.OutByte(0);
  model.InByte(value);
}

void AddEepromWriteByte(WireModel& model, const BoardKind& kind, EepromGroup group, int address, int value,
                        const Eecon1& eecon1) {
  SendAddress(model, group, address);
  model.HeldCore({Literal(value), ToData, SetWren});
  if (group != Newer) model.HeldCore({Literal(0x55), ToEecon2, Literal(0xAA), ToEecon2});
  model.HeldCore({SetWr});
  const long long begun = model.Microseconds();
  bool ended = false;
  while (!ended) {
    model.HeldCore({FromEecon1});
    const int read = eecon1(model.Microseconds() - begun);
    model.HeldCore({ToTablat});
    if (group == Newer) model.HeldCore({Nop});
    model.Out("0010");
    model.Out("0000");
    model.Out("0000");
    model.InByte(read);
    // The serial port waits for WR to read 0; the printer port for a high level at its pin.
    const bool writing = (read & Wr) != 0;
    ended = kind.com ? !writing : writing != kind.input;
  }
  model.HeldCore({ClearWren});
}

void AddEepromRead(WireModel& model, EepromGroup group, int event, const EepromBytes& bytes) {
  model.PowerOn();
  model.Event(event, ":  EEPROM Beolvasása Indult.");
  model.Line("+ EEE_Olv_Állapot");
  for (int address = 0; address < static_cast<int>(bytes.size()); ++address) {
    model.Line("B EEE_Olv_Állapot " + std::to_string(address));
    AddEepromReadByte(model, group, address, bytes[static_cast<std::size_t>(address)]);
  }
  model.Line("- EEE_Olv_Állapot");
  model.PowerOff();
  model.Line("+ EEPROM_Beolvas");
  model.Event(event + 1, ":  EEPROM beolvasás kész.");
  model.PowerOff();
}

void AddEepromWrite(WireModel& model, const BoardKind& kind, EepromGroup group, long long setting, int event,
                    const EepromBytes& bytes, const Eecon1& eecon1) {
  model.Passes(setting);
  AddEepromErase(model, group);
  model.Line("D szün");
  model.PowerOn();
  model.Event(event, ":  EEPROM Írása Indult.");
  model.Passes(4 * setting);
  model.HeldCore({ClearEepgd, ClearCfgs});
  model.ClockAndDataToRest();
  model.Line("+ EEE_Ír_Állapot");
  for (int address = 0; address < static_cast<int>(bytes.size()); ++address) {
    model.Line("B EEE_Ír_Állapot " + std::to_string(address));
    const int value = bytes[static_cast<std::size_t>(address)];
    if (value != ErasedByte) AddEepromWriteByte(model, kind, group, address, value, eecon1);
  }
  model.Line("- EEE_Ír_Állapot");
  model.Event(event + 1, ":  EEPROM Írása kész.");
  model.PowerOff();
}

void TakeEeprom(const std::string& name, const EepromBytes& bytes) {
  panel::Form1.Combo1.Text = name;
  devices::EepromMax = static_cast<int>(bytes.size()) - 1;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    image::EepromBuffer(static_cast<int>(i % 8) + 1, static_cast<int>(i / 8) + 1) = Digits(bytes[i]);
  }
}

void SocketEeprom(BenchSession& session, const std::string& name, const EepromBytes& bytes) {
  session.Do("socket " + name);
  const std::string path = session.Folder().File("eeprom.hex");
  std::ofstream file(path);
  const auto record = [&file](std::vector<int> line) {
    int sum = 0;
    file << ':';
    for (const int byte : line) {
      file << Digits(byte);
      sum += byte;
    }
    file << Digits(-sum & 0xFF) << '\n';
  };
  record({2, 0, 0, 4, 0x00, 0xF0});
  for (int address = 0; address < static_cast<int>(bytes.size()); ++address) {
    record({1, address >> 8, address & 0xFF, 0, bytes[static_cast<std::size_t>(address)]});
  }
  file << ":00000001FF\n";
  file.close();
  session.Do("burn " + path);
}

int NextEvent(BenchSession& session) {
  return std::stoi(session.Ask("var EventCounter"));
}

int Count(const Lines& log, std::string_view line) {
  return static_cast<int>(std::count(log.begin(), log.end(), line));
}

}  // namespace zelvo::test
