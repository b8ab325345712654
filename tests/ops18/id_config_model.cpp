#include "id_config_model.h"

#include <fstream>
#include <sstream>

#include "write_model.h"

namespace zelvo::test {
namespace {

constexpr int IdAddress = 0x200000;
constexpr int ConfigAddress = 0x300000;
constexpr int PanelModeAddress = 0x3C0006;

struct Family {
  std::string_view numbers;  ///< behind "PIC18F"
  IdWay id;
  ConfigWay config;
};
constexpr Family Families[] = {
    {"242 252 442 452 248 258 448 458 6525 6621 8525 8621 6585 6680 8585 8680 6520 6620 6720 8520 8620 8720",
     IdWay::OnePanel, ConfigWay::Direct},
    {"2331 2431 4331 4431", IdWay::OnePanel, ConfigWay::Nothing},
    {"1220 1320 2220 2320 4220 4320", IdWay::Unlock, ConfigWay::Direct},
    {"2455 2550 4455 4550 2410 2510 4410 4510 2420 2520 4420 4520 2480 2580 4480 4580 2515 2610 4515 4610 "
     "2525 2620 4525 4620 2585 2680 4585 4680 6527 6622 6627 6722 8527 8622 8627 8722 2221 2321 4221 4321",
     IdWay::TwoPhase, ConfigWay::AfterErase},
};

int Word(int low, int high) {
  return high << 8 | low;
}

/// Eight table writes of the row's words, low byte first; the last one starts programming.
void AddIdWords(WireModel& model, const Bytes& ids) {
  for (std::size_t i = 0; i < ids.size(); i += 2) {
    model.Frame(i + 2 == ids.size() ? "1111" : "1101", Word(ids[i], ids[i + 1]));
  }
  model.Pulse();
}

/// TBLPTRH and TBLPTRL back to the row's start.
void AddPointerBack(WireModel& model) {
  model.Core({0x0E00, 0x6EF7, 0x0E00, 0x6EF6});
}

void AddUnlockedIdWrite(WireModel& model, const Bytes& ids) {
  model.CodeAccess();
  model.SetPointer(IdAddress);
  // WREN, FREE, the unlock sequence 55h and AAh, WR, NOP, WREN off.
  model.Core({0x84A6, 0x88A6, 0x0E55, 0x6EA7, 0x0EAA, 0x6EA7, 0x82A6, 0x0000, 0x94A6});
  AddPointerBack(model);
  AddIdWords(model, ids);
}

void AddTwoPhaseIdWrite(WireModel& model, const Bytes& ids) {
  model.CodeAccess();
  model.SetPointer(IdAddress);
  model.Core({0x84A6, 0x88A6, 0x82A6});  // WREN, FREE, WR
  model.Pulse();
  AddPointerBack(model);
  AddIdWords(model, ids);
  model.Core({0x94A6});  // WREN off
}

/// The byte in both halves; between two bytes a NOP and the next address.
void AddConfigBytes(WireModel& model, const Bytes& config) {
  model.SetPointer(ConfigAddress);
  for (std::size_t i = 0; i < config.size(); ++i) {
    if (i != 0) model.Core({0x0000, 0x2AF6});
    model.Frame("1111", config[i] > 0xFF ? config[i] : Word(config[i], config[i]));
  }
  model.Pulse();
}

}  // namespace

const std::vector<SmallMemoryChip>& SmallMemoryChips() {
  static const std::vector<SmallMemoryChip> chips = [] {
    std::vector<SmallMemoryChip> all;
    for (const Family& family : Families) {
      std::istringstream numbers{std::string(family.numbers)};
      for (std::string number; numbers >> number;) {
        all.push_back({"PIC18F" + number, family.id, family.config});
      }
    }
    return all;
  }();
  return chips;
}

void AddIdRead(WireModel& model, Speed speed, int event, const Bytes& ids) {
  model.Passes(speed.Read());
  model.PowerOn();
  model.Event(event, ":  ID Location bájtok beolvasása indult.");
  model.SetPointerSlowly(IdAddress);
  for (std::size_t i = 0; i < ids.size(); i += 2) {
    model.Wait();
    model.ReadByte(ids[i]);
    model.ReadByte(ids[i + 1]);
  }
  model.Event(event + 1, ":  ID Location kiolvasása kész.");
  model.PowerOff();
}

void AddIdWrite(WireModel& model, Speed speed, int event, IdWay way, const Bytes& ids) {
  model.Passes(speed.IdWrite());
  model.PowerOn();
  model.Event(event, ":  ID Location bájtok Írása indult.");
  if (way == IdWay::OnePanel) {
    model.Core({0x8EA6, 0x8CA6});  // EEPGD, CFGS
    model.SetPointer(PanelModeAddress);
    model.Frame("1100", 0);
  }
  if (way == IdWay::TwoPhase) {
    model.Passes(speed.IdRow());
    AddTwoPhaseIdWrite(model, ids);
  } else {
    AddUnlockedIdWrite(model, ids);
  }
  model.Event(event + 1, ":  ID Location bájtok Írása Kész.");
  model.PowerOff();
}

void AddConfigRead(WireModel& model, Speed speed, int event, const Bytes& config) {
  model.Passes(speed.Read());
  model.PowerOn();
  model.Event(event, ":  Configbájtok beolvasása Indult.");
  model.SetPointerSlowly(ConfigAddress);
  for (const int byte : config) model.ReadByte(byte);
  model.PowerOff();
}

void AddConfigWrite(WireModel& model, Speed speed, int event, ConfigWay way, const Bytes& config) {
  model.Passes(speed.setting);
  model.PowerOn();
  model.Event(event, ":  Config Bájtok Irása Indult.");
  if (way == ConfigWay::AfterErase) AddTwoKeyErase(model, 0x00, 0x82);
  if (way != ConfigWay::Nothing) {
    model.Passes(ConfigPasses);
    model.Core({0x8EA6, 0x8CA6});                                // EEPGD, CFGS
    if (way == ConfigWay::Direct) model.Core({0xEF00, 0xF800});  // GOTO 100000h
    AddConfigBytes(model, config);
  }
  model.Event(event + 1, ":  Config Bájtok Irása Kész.");
  model.PowerOff();
}

void BurnBytes(Operations& it, int address, const Bytes& bytes) {
  const std::string path = it.session.Folder().File("bytes.hex");
  std::ofstream file(path);
  const auto record = [&file](int at, int type, const Bytes& data) {
    Bytes all = {static_cast<int>(data.size()), at >> 8 & 0xFF, at & 0xFF, type};
    all.insert(all.end(), data.begin(), data.end());
    int sum = 0;
    for (const int byte : all) sum += byte;
    all.push_back(-sum & 0xFF);
    file << ':';
    for (const int byte : all) {
      char digits[3];
      std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(byte));
      file << digits;
    }
    file << '\n';
  };
  record(0, 4, {address >> 24 & 0xFF, address >> 16 & 0xFF});
  record(address & 0xFFFF, 0, bytes);
  record(0, 1, {});
  file.close();
  it.session.Do("burn " + path);
}

int NextEvent(Operations& it) {
  return std::stoi(it.session.Ask("var EventCounter"));
}

Lines SeenByOperator(const Lines& log) {
  Lines seen;
  for (const std::string& line : log) {
    if (std::string_view("L+-M").find(line[0]) != std::string_view::npos) seen.push_back(line);
  }
  return seen;
}

}  // namespace zelvo::test
