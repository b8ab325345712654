#include "job.h"

#include <cstdio>
#include <fstream>
#include <set>

#include "bench/board.h"
#include "bench/pic18_facts.h"

namespace zelvo::test {
namespace {

constexpr std::uint32_t ReachableCode = 0x1FFFFF;

/// Chips whose own row of the list selects nothing, and one of their size.
const std::map<std::string, std::string>& Twins() {
  static const std::map<std::string, std::string> twins = {{"PIC18F258", "PIC18F252"},
                                                           {"PIC18F6520", "PIC18F8520"}};
  return twins;
}

Settings WithSpeed(Settings settings, const std::string& speed) {
  settings.speed = speed;
  return settings;
}

/// Data records of up to 16 bytes that do not cross a line of 16, with linear address records between them.
void WriteHex(const std::string& path, const HexImage& image) {
  std::ofstream file(path, std::ios::binary);
  const auto record = [&file](std::uint32_t address, int type, const std::vector<int>& data) {
    std::vector<int> bytes = {static_cast<int>(data.size()), static_cast<int>(address >> 8 & 0xFF),
                              static_cast<int>(address & 0xFF), type};
    bytes.insert(bytes.end(), data.begin(), data.end());
    int sum = 0;
    file << ':';
    for (const int byte : bytes) {
      char digits[4];
      std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(byte));
      file << digits;
      sum += byte;
    }
    char digits[4];
    std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(-sum & 0xFF));
    file << digits << "\r\n";
  };
  std::uint32_t segment = 0;
  for (auto byte = image.begin(); byte != image.end();) {
    const std::uint32_t first = byte->first;
    if (first >> 16 != segment) {
      segment = first >> 16;
      record(0, 4, {static_cast<int>(segment >> 8), static_cast<int>(segment & 0xFF)});
    }
    std::vector<int> data;
    for (std::uint32_t at = first; byte != image.end() && byte->first == at && (at == first || at % 16 != 0);
         ++at, ++byte) {
      data.push_back(byte->second);
    }
    record(first & 0xFFFF, 0, data);
  }
  file << ":00000001FF\r\n";
}

}  // namespace

const BoardKind& ShippedBoard() {
  static const BoardKind kind{.name = "Lpt", .clock = true, .data = true, .input = true};
  return kind;
}

const BoardKind& SerialBoard() {
  static const BoardKind kind{.name = "Com", .com = true};
  return kind;
}

Job::Job(const BoardKind& kind, const std::string& speed) : session(WithSpeed(kind.SettingsFiles(), speed)) {
  session.Do({kind.BoardCommand(), "start", "tab 2"});
}

void Job::Begin(const std::string& chip) {
  session.Do("socket " + chip);
  if (const auto twin = Twins().find(chip); twin != Twins().end())
    session.Do("choose Combo1 " + twin->second);
  session.Do("choose Combo1 " + chip);
}

void Job::Burn(const HexImage& image) {
  const std::string path = session.Folder().File("burn.hex");
  WriteHex(path, image);
  session.Do("burn " + path);
}

void Job::Load(const std::string& path) {
  session.Do({"file " + path, "click FájlBetölt"});
}

void Job::Load(const HexImage& image) {
  const std::string path = session.Folder().File("image.hex");
  WriteHex(path, image);
  Load(path);
}

HexImage Job::Chip() {
  const std::string path = session.Folder().File("dump.hex");
  session.Do("dump " + path);
  return ReadHexImage(path);
}

HexImage Job::Code() {
  return Between(Chip(), 0, ReachableCode);
}

std::string Job::Review() {
  return session.Ask("list FlashOlv.List1");
}

std::string Job::LastEvent() {
  const Lines log = session.Look("list List1");
  if (log.empty()) return "";
  // Number, ":  ", eight characters of time, then the text that begins with ":  " itself.
  const std::size_t time = log.front().find(":  ");
  return log.front().substr(time + 3 + 8);
}

std::uint32_t CodeBytes(const std::string& chip) {
  return bench::FindPic18(chip)->codeSize;
}

std::uint32_t EepromBytes(const std::string& chip) {
  return bench::FindPic18(chip)->eeprom;
}

std::vector<std::string> AllChips() {
  std::vector<std::string> chips;
  for (const bench::Pic18Row& row : bench::Pic18Catalogue()) chips.emplace_back(row.name);
  return chips;
}

bool HasOneKey(const std::string& chip) {
  static const std::set<std::string> numbers = {
      "242",  "252",  "442",  "452",  "248",  "258",  "448",  "458",  "1220", "1320", "2220",
      "2320", "4220", "4320", "2331", "2431", "4331", "4431", "6525", "6621", "8525", "8621",
      "6585", "6680", "8585", "8680", "6520", "6620", "6720", "8520", "8620", "8720"};
  return numbers.contains(chip.substr(6));
}

HexImage Bytes(std::uint32_t first, std::uint32_t bytes, int seed) {
  HexImage image;
  for (std::uint32_t i = 0; i < bytes; ++i) {
    const std::uint32_t mixed = (first + i) * 0x9E3779B1U + static_cast<std::uint32_t>(seed) * 0x85EBCA6BU;
    image.emplace_hint(image.end(), first + i, static_cast<std::uint8_t>((mixed >> 11) % 0xFF));
  }
  return image;
}

HexImage With(HexImage image, const HexImage& more) {
  for (const auto& [address, value] : more) image[address] = value;
  return image;
}

HexImage ProgrammedOver(HexImage image, const HexImage& over) {
  for (const auto& [address, value] : over) {
    const auto [cell, added] = image.emplace(address, value);
    if (!added) cell->second &= value;
  }
  return image;
}

}  // namespace zelvo::test
