#include "opsmid/config_id.h"

#include <string>

#include "devices/chip_lists.h"
#include "icsp/mid_range_engine.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "opsmid/manual_board.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::opsmid {

using panel::Form1;

namespace {

constexpr int ConfigWord = 7;     // words above 2000h
constexpr int BehindUserIds = 3;  // from the word behind them to the configuration word

/// How a chip takes configuration memory.
struct WriteRow {
  std::string_view chips;
  std::string_view userId;  ///< steps behind a loaded user ID word, to the next one
  std::string_view config;  ///< steps behind a loaded configuration word
  bool twoWords;
};
constexpr WriteRow WriteRows[] = {
    {"16F627A 16F627 16F628 16F628A 16F648A 16F870 16F871 16F872 16F873 16F874 16F876 16F877 16F818 16F819 "
     "16F84A "
     "16F873A 16F876A 16F874A 16F877A 16F631 16F636/639 16F677 16F684 16F685 16F687 16F688 16F689 16F690 "
     "16F913 16F914 "
     "16F916 16F917 16F946 12F635 12F683 12F629 12F675 16F630 16F676",
     "001000 wait*4 000110", "001000 wait*4", false},
    {"12HV609 12F609 12F615 12HV615 12F617 16F616 16HV616 16F610 16HV610", "011000 wait*4 001010 000110",
     "011000 wait*4 001010", false},
    {"16F883 16F882 16F884 16F886 16F887", "001000 wait*4 000110", "001000 wait*4", true},
    // The increment comes before the programming: the chip keeps the address with its latches.
    {"16F88 16F87", "000110 011000 wait*4 001010", "011000 wait*4 001010", true},
};

void Log(const char* text) {
  link::LogEvent(Form1.List4, text);
}

int ReadConfigWord() {
  icsp::ToConfigurationMemory();
  icsp::IncrementAddress(ConfigWord);
  return icsp::ReadFrame(icsp::mid::ReadProgram, icsp::WordFrame);
}

void ReadInto(std::int16_t& value, std::string& raw) {
  value = static_cast<std::int16_t>(ReadConfigWord());
  raw = "00" + icsp::WordToBits(value);
}

void WriteConfigWord(std::string_view bits, const WriteRow& row) {
  icsp::LoadFrame(icsp::mid::LoadProgram, bits);
  icsp::RunSteps(row.config);
}

void WriteUserIds(const WriteRow& row) {
  Log(":  User ID Szavak Írása Indult.");
  icsp::ToConfigurationMemory();
  for (size_t word = 1; word < image::MidIdWords.size(); ++word) {
    icsp::LoadFrame(icsp::mid::LoadProgram, icsp::WordToBits(image::MidIdWords[word]));
    icsp::RunSteps(row.userId);
  }
  Log(":  User ID Szavak Írása Kész.");
}

void WriteConfig(const WriteRow& row) {
  Log(":  Config Szó Írása Indult.");
  icsp::IncrementAddress(BehindUserIds);
  WriteConfigWord(image::ConfigWord1Bits, row);
  if (row.twoWords) {
    icsp::IncrementAddress();
    WriteConfigWord(image::ConfigWord2Bits, row);
  }
  Log(":  Config Szó Írása Kész.");
}

panel::Window& ReviewFor(std::string_view chip) {
  if (HasTwoConfigWords(chip)) return panel::Config_2008_Olv_F16;
  return panel::Config_Beolvas_F16;
}

}  // namespace

bool HasTwoConfigWords(std::string_view chip) {
  for (const WriteRow& row : WriteRows) {
    if (devices::MidListHolds(row.chips, chip)) return row.twoWords;
  }
  return false;
}

void ReadMidConfig() {
  panel::Config_Beolvas_F16.Unload();
  link::WaitCount = link::SpeedSetting;
  Log(":  Config szó beolvasása Indult.");
  const std::string chip = Form1.Combo2.Text;
  ReadInto(MidConfigValue1, image::ConfigWord1Raw);
  if (HasTwoConfigWords(chip)) ReadInto(MidConfigValue2, image::ConfigWord2Raw);
  AskManualBoard(PowerOffNow);
  panel::Window& review = ReviewFor(chip);
  review.Unload();
  review.Load();
  Log(":  Config szó beolvasása Kész.");
}

void ReadMidUserIds() {
  link::WaitCount = link::SpeedSetting;
  image::MidIdReadWords.fill(0);
  Log(":  User ID Location bájtok beolvasása indult.");
  icsp::ToConfigurationMemory();
  for (size_t word = 1; word < image::MidIdReadWords.size(); ++word) {
    image::MidIdReadWords[word] =
        static_cast<std::int16_t>(icsp::ReadFrame(icsp::mid::ReadProgram, icsp::WordFrame));
    icsp::IncrementAddress();
  }
  Log(":  User ID Location bájtok beolvasása Kész.");
  AskManualBoard(PowerOffNow);
  panel::IDLoc_F16.Unload();
  panel::IDLoc_F16.Load();
}

void WriteConfigAndIds(std::string_view chip) {
  link::WaitCount = link::SpeedSetting;
  for (const WriteRow& row : WriteRows) {
    if (!devices::MidListHolds(row.chips, chip)) continue;
    WriteUserIds(row);
    WriteConfig(row);
    if (!Form1.Check4.Value) continue;
    ReadMidConfig();
    ReadMidUserIds();
  }
}

}  // namespace zelvo::opsmid
