#include "opsmid/erase.h"

#include <array>
#include <string>

#include "devices/chip_lists.h"
#include "devices/mid_range_identification.h"
#include "devices/selection.h"
#include "icsp/mid_range_engine.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "opsmid/config_id.h"
#include "opsmid/eeprom.h"
#include "opsmid/flash.h"
#include "panel/form1.h"

namespace zelvo::opsmid {

using panel::Form1;

namespace {

/// The sequence of the chips in a list; an empty list means all.
struct Sequence {
  std::string_view chips;
  std::string_view steps;
};

/// The first sequence that fits the chip is clocked. A piece that fits none does nothing.
struct Piece {
  std::array<Sequence, 2> sequences;
  /// Powers the target up by itself, but not inside an erase or a write.
  bool powersUp = false;
  int times = 1;
};

// Two erased words are in use: 3FFFh between a start and a stop bit of 0, and the plain text of 3FFFh, which
// begins with a start bit of 1. Which stands where is what the chips have always been sent.

constexpr Piece EraseProgramMemory{{{{"", "000010 0011111111111111 001001 001000 wait*4"}}}};
constexpr Piece EraseProgramSetup{
    {{{"", "000010 0111111111111110 000001 000111 001000 wait*2 000001 000111"}}}};
constexpr Piece EraseDataMemory{
    {{{"16F628 16F627 16F84A", "000011 0111111111111110 001011 001000 wait*8"}, {"", "001011 wait*8"}}}};
constexpr Piece EraseDataOldStyle{
    {{{"", "000011 0011111111111111 000001 000111 001000 wait*2 000001 000111"}}}};
constexpr Piece EraseChipFull{{{{"", "011111 wait*2"}}}};
constexpr Piece EraseProgramAndEnd{{{{"", "001001 wait*2 010111"}}}};
constexpr Piece EraseDataAndEnd{{{{"", "001011 wait*2 010111"}}}};
constexpr Piece EraseDataPlain{{{{"", "001011 wait*2"}}}};
constexpr Piece EraseProgramPlain{{{{"", "001001 wait*2 000000 0011111111111111 001001 wait*2"}}}};
constexpr Piece BlankUserIds{
    {{{"", "000000 0000000000000000 000010 0111111111111110 001000 wait*2 000110"}}}, true, 4};
constexpr std::string_view FromConfigSpace =
    "000000 0011111111111111 000110*7 000001 000111 001000 wait*2 000001 000111";
constexpr Piece EraseProtectedOldStyle{{{{"", FromConfigSpace}}}, true};
constexpr Piece EraseFromConfigSpace{{{{"16F628 16F627", FromConfigSpace}}}};

using Pieces = std::array<const Piece*, 5>;  // in order, the rest null

struct EraseRow {
  std::string_view chips;
  Pieces whole;  ///< of the whole chip
  Pieces flash;  ///< before a Flash write
};
constexpr EraseRow EraseRows[] = {
    {"16F628 16F627 16F84A",
     {&BlankUserIds, &EraseFromConfigSpace, &BlankUserIds, &EraseProgramMemory, &EraseDataMemory},
     {&BlankUserIds, &EraseFromConfigSpace, &BlankUserIds, &EraseProgramMemory}},
    {"16F628A 16F627A 16F648A 16F873A 16F876A 16F874A 16F877A",
     {&BlankUserIds, &EraseProgramMemory, &EraseDataMemory},
     {&BlankUserIds, &EraseProgramMemory}},
    {"16F871 16F870 16F872 16F873 16F874 16F876 16F877",
     {&EraseProtectedOldStyle, &EraseProgramSetup, &EraseDataOldStyle},
     {&EraseProtectedOldStyle, &EraseProgramSetup}},
    {"16F819 16F818", {&EraseChipFull}, {&EraseProgramAndEnd}},
    {"16F883 16F882 16F884 16F886 16F887 16F631 16F636/639 16F677 16F684 16F685 16F687 16F688 16F689 16F690 "
     "16F913 16F914 16F916 16F917 16F946 12F609 12HV609 12F615 12HV615 12F617 16F616 16HV616 16F610 16HV610 "
     "12F635 "
     "12F683 12F629 12F675 16F630 16F676 16F87 16F88",
     {&EraseProgramPlain, &EraseDataPlain},
     {&EraseProgramPlain}},
};

struct DataEraseRow {
  std::string_view chips;
  const Piece* piece;
};
constexpr DataEraseRow DataEraseRows[] = {
    {"16F628 16F627 16F627A 16F628A 16F648A 16F84A 16F873A 16F876A 16F874A 16F877A", &EraseDataMemory},
    {"16F871 16F870 16F872 16F873 16F874 16F876 16F877", &EraseDataOldStyle},
    {"16F819 16F818", &EraseDataAndEnd},
    {"16F883 16F882 16F884 16F886 16F887 16F631 16F636/639 16F677 16F684 16F685 16F687 16F688 16F689 16F690 "
     "16F913 16F914 16F916 16F917 16F946 16F87 16F88",
     &EraseDataPlain},
};

std::string_view StepsFor(const Piece& piece, std::string_view chip) {
  for (const Sequence& sequence : piece.sequences) {
    if (sequence.chips.empty() || devices::MidListHolds(sequence.chips, chip)) return sequence.steps;
  }
  return {};
}

void Run(const Piece& piece, std::string_view chip) {
  link::WaitCount = link::SpeedSetting;
  if (piece.powersUp && !devices::MidEraseRun && !link::WholeChipRun) link::TargetPowerOn();
  for (int i = 0; i < piece.times; ++i) icsp::RunSteps(StepsFor(piece, chip));
}

void RunPieces(Pieces EraseRow::*pieces, std::string_view chip) {
  for (const EraseRow& row : EraseRows) {
    if (!devices::MidListHolds(row.chips, chip)) continue;
    for (const Piece* piece : row.*pieces) {
      const bool dataOfNone = piece == &EraseDataPlain && devices::EepromMax == 0;
      if (piece != nullptr && !dataOfNone) Run(*piece, chip);
    }
  }
}

void ReadEverythingBack() {
  for (void (*read)() : {ReadMidConfig, ReadMidUserIds, ReadMidFlash, ReadMidEeprom}) {
    link::TargetPowerOn();
    read();
  }
}

}  // namespace

void EraseWholeChip(std::string_view chip) {
  RunPieces(&EraseRow::whole, chip);
}

void EraseForFlashWrite(std::string_view chip) {
  RunPieces(&EraseRow::flash, chip);
}

void EraseForEepromWrite(std::string_view chip) {
  for (const DataEraseRow& row : DataEraseRows) {
    if (devices::MidListHolds(row.chips, chip)) Run(*row.piece, chip);
  }
}

void EraseChip() {
  link::LogEvent(Form1.List4, ":  PIC Törlése Indult.");
  link::TargetPowerOn();
  EraseWholeChip(Form1.Combo2.Text.Get());
  link::LogEvent(Form1.List4, ":  PIC Törlése Kész.");
  if (Form1.Check4.Value) ReadEverythingBack();
  link::TargetPowerOff();
}

}  // namespace zelvo::opsmid
