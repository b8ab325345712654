#include "link/settings.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "link/delays.h"
#include "link/event_log.h"
#include "link/lines.h"
#include "link/numbers.h"
#include "link/port.h"
#include "link/speed.h"
#include "link/target_power.h"
#include "panel/form1.h"
#include "platform/files.h"
#include "platform/seams.h"

namespace zelvo::link {

using panel::Form1;

namespace {

struct SettingsFile {
  const char* name;
  const char* failure;  ///< the message of a bad or missing file
  const char* written;  ///< what a new file holds
};

// The speed message names 1500 although 100 is written, and invert.ini stores 28 although 3 applies until the
// restart: operators know both, and so they stay.
constexpr SettingsFile PortFile{
    "port.ini",
    "Hiba a PortCím betöltésénél! Ellenőrizd a Címet! Új Fájl létrehozva alapértelmezett értékekkel "
    "(&H378,LPT). Indítsd újra a programot!",
    "&H378,LPT"};
constexpr SettingsFile PinFile{
    "LPT_Kiosztas.ini",
    "Hiba az LPT_Port Lábkiosztás betöltésénél! Ellenőrizd a kiosztást! Új Fájl létrehozva alapértelmezett "
    "értékekkel (ZLV_F18). Indítsd újra a programot!",
    "4,8,1,2,1"};
constexpr SettingsFile InvertFile{
    "invert.ini",
    "Hiba a Port Él(invert) adatok betöltésénél! Ellenőrizd az Él beállításokat! Új Fájl létrehozva "
    "alapértelmezett értékekkel (ZLV_F18)",
    "28"};
constexpr SettingsFile ComInvertFile{
    "invert_com.ini",
    "Hiba az invert_com.ini betöltésénél! Ellenőrizd az éleket! Új Fájl létrehozva alapértelmezett "
    "értékekkel. Indítsd újra a programot!",
    "6"};
constexpr SettingsFile SpeedFile{
    "speed.ini",
    "Hiba az Írás sebesség fájl betöltésénél! Ellenőrizd a Sebességet! Új Fájl létrehozva alapértelmezett "
    "értékekkel (1500), Indítsd újra a programot!",
    "100,0"};

constexpr long InvertInForceAfterFailure = 3;
constexpr int SpeedAfterFailure = 10;

std::string PathOf(const SettingsFile& file) {
  return platform::programFolder + "/" + file.name;
}

/// The file's one line without its line end.
std::optional<std::string> ReadLine(const SettingsFile& file) {
  auto text = platform::ReadWholeFile(PathOf(file));
  if (text) {
    while (!text->empty() && (text->back() == '\n' || text->back() == '\r')) text->pop_back();
  }
  return text;
}

[[nodiscard]] bool WriteLine(const SettingsFile& file, const std::string& line) {
  return platform::ReplaceFile(PathOf(file), line + "\r\n");
}

/// A folder that cannot be written leaves nothing to tell beyond the file's own message: the values in memory
/// hold for this run and the next start ends here again.
void Recover(const SettingsFile& file) {
  platform::seams.dialogs->Message(file.failure);
  static_cast<void>(WriteLine(file, file.written));
}

std::vector<std::string> SplitAtCommas(const std::string& line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == ',') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

bool IsBitValue(long value) {
  return value >= 1 && value <= 128 && (value & (value - 1)) == 0;
}

[[nodiscard]] bool ApplyPins(const std::string& line) {
  const auto fields = SplitAtCommas(line);
  if (fields.size() != PinFields) return false;
  std::array<long, PinFields> values{};
  for (size_t i = 0; i < values.size(); ++i) {
    const auto value = ReadWhole(fields[i]);
    const bool good = value && (i < OutputLines ? IsBitValue(*value) : *value == 0 || *value == 1);
    if (!good) return false;
    values.at(i) = *value;
  }
  for (size_t i = 0; i < OutputLines; ++i) SetMasks(i, static_cast<int>(values.at(i)));
  InputSelect = static_cast<int>(values[4]);
  return true;
}

long ReadBits(const SettingsFile& file) {
  const auto line = ReadLine(file);
  if (const auto bits = line ? ReadWhole(*line) : std::nullopt) return *bits;
  Recover(file);
  return ReadWhole(file.written).value_or(0);
}

struct PolarityRow {
  long bit;
  bool* flag;
  const char* inverted;
  const char* plain;
};

void ApplyPolarity(long bits, const std::vector<PolarityRow>& rows) {
  for (const PolarityRow& row : rows) {
    *row.flag = (bits & row.bit) != 0;
    LogToBoth(*row.flag ? row.inverted : row.plain);
  }
}

struct SpeedLine {
  int value;
  bool tenfold;
};

std::optional<SpeedLine> ReadSpeedLine() {
  const auto line = ReadLine(SpeedFile);
  if (!line) return std::nullopt;
  const size_t comma = line->find(',');
  if (comma == std::string::npos) return std::nullopt;
  const auto value = ReadWhole(line->substr(0, comma));
  if (!value || *value < Form1.ÁSeb.Min || *value > Form1.ÁSeb.Max) return std::nullopt;
  return SpeedLine{static_cast<int>(*value), line->substr(comma + 1, 1) == "1"};
}

void ApplySpeed(int value) {
  Form1.ÁSeb.Value = value;  // HScroll1 follows through the change of this bar
  ShowSpeed(value);
  SpeedSetting = 10.0 * value;
  WaitCount = SpeedSetting;
}

}  // namespace

void ReadPortFile() {
  LptMode = false;
  ComMode = false;
  const auto line = ReadLine(PortFile);
  const size_t comma = line ? line->find(',') : std::string::npos;
  const auto address = comma == std::string::npos ? std::nullopt : ReadAddress(line->substr(0, comma));
  if (!address) {
    Recover(PortFile);
    PortBase = 888;
    PortAddress = PortBase;
    return;
  }
  PortAddress = *address;
  PortBase = *address;
  const std::string kind = line->substr(comma + 1, 3);
  LptMode = kind == "LPT";
  ComMode = kind == "COM";
}

void ReadSpeedFile() {
  SpeedLoading = true;
  if (const auto line = ReadSpeedLine()) {
    if (line->tenfold) {
      Form1.Check7.Value = true;
      Form1.Check9.Value = true;
    }
    ApplySpeed(line->value);
  } else {
    Recover(SpeedFile);
    ApplySpeed(SpeedAfterFailure);
  }
  SpeedLoading = false;
}

void ReadPinFile() {
  const auto line = ReadLine(PinFile);
  if (line && ApplyPins(*line)) return;
  Recover(PinFile);
  static_cast<void>(ApplyPins(PinFile.written));
}

void ReadInvertFile() {
  const auto line = ReadLine(InvertFile);
  auto bits = line ? ReadWhole(*line) : std::nullopt;
  if (!bits) {
    Recover(InvertFile);
    bits = InvertInForceAfterFailure;
  }
  const bool ack = InputSelect == 1;
  ApplyPolarity(*bits, {{1, &VddInverted, ":  Vdd Kimenet Inverz", ":  Vdd Kimenet Nem Inverz"},
                        {2, &VppInverted, ":  Vpp Kimenet Inverz", ":  Vpp Kimenet Nem Inverz"},
                        {4, &ClockInverted, ":  CLK Kimenet Inverz", ":  CLK Kimenet Nem Inverz"},
                        {8, &DataInverted, ":  ADAT Kimenet Inverz", ":  ADAT Kimenet Nem Inverz"},
                        {16, &InputInverted, ack ? ":  Ack Bemenet Inverz" : ":  Busy Bemenet Inverz",
                         ack ? ":  Ack Bemenet Nem Inverz" : ":  Busy Bemenet Nem Inverz"}});
  TargetPowerOff();
}

void ReadComInvertFile() {
  ComPgdInverted = ComPgcInverted = ComInputInverted = ComVppInverted = false;
  const auto line = ReadLine(ComInvertFile);
  const auto bits = line ? ReadWhole(*line) : std::nullopt;
  if (!bits) {
    Recover(ComInvertFile);
    return;
  }
  ApplyPolarity(*bits, {{1, &ComPgdInverted, ":  PGD inverz.", ":  PGD nem inverz."},
                        {2, &ComPgcInverted, ":  PGC inverz.", ":  PGC nem inverz."},
                        {4, &ComInputInverted, ":  AdatBe inverz.", ":  AdatBe nem inverz."},
                        {8, &ComVppInverted, ":  Vpp inverz.", ":  Vpp nem inverz."}});
}

std::array<std::optional<long>, PinFields> ReadPinFields() {
  std::array<std::optional<long>, PinFields> values;
  const auto fields = SplitAtCommas(ReadLine(PinFile).value_or(""));
  for (size_t i = 0; i < values.size() && i < fields.size(); ++i) values.at(i) = ReadWhole(fields[i]);
  return values;
}

long ReadInvertBits() {
  return ReadBits(InvertFile);
}

long ReadComInvertBits() {
  return ReadBits(ComInvertFile);
}

bool WritePortFile(const std::string& address) {
  return WriteLine(PortFile, address + (ComMode ? ",COM" : ",LPT"));
}

bool WritePinFile(const std::array<int, PinFields - 1>& bits) {
  std::string line;
  for (const int bit : bits) line += std::to_string(bit) + ",";
  return WriteLine(PinFile, line + std::to_string(InputSelect));
}

bool WriteInvertFile(int bits) {
  return WriteLine(InvertFile, std::to_string(bits));
}

bool WriteComInvertFile(int bits) {
  return WriteLine(ComInvertFile, std::to_string(bits));
}

void SetUpInterface() {
  if (ComMode) SetUpCom();
  if (LptMode) {
    ReadPinFile();
    ReadInvertFile();
  }
}

void WriteSpeedFile(int value) {
  static bool told = false;
  if (WriteLine(SpeedFile, std::to_string(value) + "," + (Form1.Check7.Value ? "1" : "0")) || told) return;
  told = true;  // once a run: the bar may move a hundred times
  platform::seams.dialogs->Message("Ismeretlen Fájl hiba!");
}

}  // namespace zelvo::link
