#include "opsmid/flash.h"

#include <string>
#include <string_view>

#include "devices/chip_lists.h"
#include "devices/selection.h"
#include "icsp/conversions.h"
#include "icsp/mid_range_engine.h"
#include "icsp/pic18_engine.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/progress.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "opsmid/config_id.h"
#include "opsmid/erase.h"
#include "opsmid/manual_board.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::opsmid {

using panel::Form1;

namespace {

constexpr int Columns = 8;
constexpr std::string_view Plain = "001000 wait";
constexpr std::string_view Ended = "011000 wait 001010";

/// Where a cancelled run is told of.
enum class AbortLine { None, Before, After };

/// How a chip takes the words of a write.
struct WriteLoop {
  std::string_view chips;
  int group;                   ///< words for one programming command: 1, 4, or 8, a row of the image
  std::string_view programme;  ///< steps that programme what was loaded
  AbortLine abortLine;
};

// PIC16F87 and PIC16F88 stand in two rows and run both, one behind the other.
constexpr WriteLoop WriteLoops[] = {
    {"16F627A 16F627 16F628 16F628A 16F648A 16F870 16F871 16F872 16F873 16F874 16F876 16F877 16F818 16F819 "
     "16F84A "
     "12F629 12F675 16F630 16F676",
     1, Plain, AbortLine::After},
    {"12HV609 12F609 12F615 12HV615 16F610 16HV610 16F87 16F88", 1, Ended, AbortLine::None},
    {"16F88 16F87 12F617 16F616 16HV616", 4, Ended, AbortLine::None},
    {"16F883 16F882 16F884 16F886 16F887 16F913 16F914 16F916 16F917 16F946 16F873A 16F876A 16F874A 16F877A",
     8, Plain, AbortLine::After},
    {"16F636/639 16F631 16F677 16F684 16F685 16F687 16F688 16F689 16F690 12F635 12F683", 4, Plain,
     AbortLine::Before},
};

void Log(const char* text) {
  link::LogEvent(Form1.List4, text);
}

void StoreWord(int word) {
  image::ReadBackBytes.at(static_cast<size_t>(image::ReadIndex)) = word / 256;
  image::ReadBackBytes.at(static_cast<size_t>(image::ReadIndex + 1)) = word % 256;
  image::ReadIndex += 2;
}

/// False when the operator cancelled. The chip's size counts as it is at the start.
bool ReadWords() {
  const int words = devices::FlashWordMax + 1;
  for (int number = 1; number <= words; ++number) {
    WordCounter = number;  // a read clicked meanwhile counts there too, and does not end this one
    link::StepProgress(panel::Állapot, WordCounter);
    const int word = icsp::ReadFrame(icsp::mid::ReadProgram, icsp::WordFrame);
    icsp::IncrementAddress();
    StoreWord(word);
    if (link::UserAbort) return false;
  }
  return true;
}

std::string PairBits(std::string_view pair) {
  icsp::HexPairToBits(icsp::WithHeldDigits(pair));
  return icsp::ConvertedBits;
}

/// The word's sixteen bits as the image holds it.
std::string WordBits(std::string_view word) {
  const std::string high = PairBits(word.substr(0, 2));
  return high + PairBits(word.substr(2, 2));
}

/// Loads a word unless it is erased: start bit 0, fourteen bits, and bit 14 of the image's word as the stop
/// bit.
bool LoadWord(std::string_view word) {
  const std::string bits = WordBits(word);
  if (bits == "0011111111111111") return false;
  icsp::ClockOutBits(icsp::mid::LoadProgram);
  icsp::ClockOutBits(bits.substr(1) + "0");
  return true;
}

void TellAbort(const WriteLoop& loop, AbortLine place) {
  if (loop.abortLine == place && link::UserAbort) Log(":  Felhasználói megszakítás.");
}

/// One word of the loop: the increment stands behind the last word of a group and before its programming.
void WriteWord(const WriteLoop& loop, int row, int column) {
  WriteProgress += 1.0 / Columns;
  link::StepProgress(panel::FlashÍrÁllapot, static_cast<int>(WriteProgress));
  const bool loaded = LoadWord(image::MainBuffer(column, row));
  if (loaded && loop.group == 1) icsp::RunSteps(loop.programme);
  icsp::IncrementAddress();
  if (loop.group == 4 && ++LatchCount == 4) {
    LatchCount = 0;
    icsp::RunSteps(loop.programme);
  }
}

/// False when the operator cancelled behind one of the row's words.
bool WriteRow(const WriteLoop& loop, int row) {
  for (int column = 1; column <= Columns; ++column) {
    WriteWord(loop, row, column);
    if (link::UserAbort) return false;
  }
  if (loop.group == Columns) icsp::RunSteps(loop.programme);
  return true;
}

/// All words of the chip.
void WriteWords(const WriteLoop& loop) {
  link::WaitCount = link::SpeedSetting;
  panel::FlashÍrÁllapot.Load();
  WriteProgress = 0;
  LatchCount = 0;
  const int rows =
      image::RowsOf(devices::FlashWordMax);  // choosing a chip or a page meanwhile does not end the write
  for (int row = 1; row <= rows; ++row) {
    if (!WriteRow(loop, row)) break;
  }
  panel::FlashÍrÁllapot.Unload();
}

/// False when the operator cancelled one of the chip's loops: the windows that open behind it forget that.
bool WriteByChip(std::string_view chip) {
  bool whole = true;
  for (const WriteLoop& loop : WriteLoops) {
    if (!devices::MidListHolds(loop.chips, chip)) continue;
    TellAbort(loop, AbortLine::Before);
    WriteWords(loop);
    TellAbort(loop, AbortLine::After);
    whole = whole && !link::UserAbort;
  }
  return whole;
}

}  // namespace

void ReadMidFlash() {
  link::WaitCount = link::SpeedSetting;
  Log(":  Flash Beolvasása Indult.");
  image::ReadIndex = 1;
  panel::Állapot.Load();
  if (!ReadWords()) {
    panel::Állapot.Unload();
    Log(":  Felhasználói megszakítás!");
    return;
  }
  Log(":  Flash beolvasás kész.");
  panel::Állapot.Unload();
  AskManualBoard(PowerOffNow);
  panel::FlashOlv.Unload();
  panel::FlashOlv.Load();
}

bool WriteMidFlash() {
  link::WaitCount = link::SpeedSetting;
  link::WholeChipRun = true;
  AskManualBoard(PowerOn);
  link::TargetPowerOn();
  devices::SelectedName = Form1.Combo2.Text.Get();
  const std::string chip = devices::SelectedName;
  EraseForFlashWrite(chip);
  AskManualBoard(CycleVpp);
  link::TargetPowerOn();
  Log(":  Flash Memória Irása Indult.");
  const bool whole = WriteByChip(chip);
  if (!link::UserAbort) Log(":  Flash Írása Kész.");
  if (Form1.Check6.Value) {
    link::TargetPowerOn();
    ReadMidFlash();
  }
  AskManualBoard(CycleVpp);
  link::TargetPowerOn();
  if (whole && !link::UserAbort) WriteConfigAndIds(chip);
  link::WholeChipRun = false;
  AskManualBoard(PowerOffNow);
  if (Form1.Check4.Value && !Form1.Check6.Value) {
    link::TargetPowerOn();
    ReadMidFlash();
  }
  return whole;
}

}  // namespace zelvo::opsmid
