#include "ops18/flash_write.h"

#include <string>

#include "devices/chip_lists.h"
#include "icsp/pic18_engine.h"
#include "icsp/scripts.h"
#include "image/buffers.h"
#include "image/fills.h"
#include "image/views.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/progress.h"
#include "link/target_power.h"
#include "ops18/erase.h"
#include "ops18/flash_read.h"
#include "ops18/write_burst.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::ops18 {

using panel::Form1;

namespace {

using icsp::base::FlashPanel;
using icsp::base::RowErasePulsed;
using icsp::base::RowEraseUnlocked;

constexpr int RowsPerBlock = 4;  // 64 bytes

/// The full write of one buffer size: groups of words, each written by one burst or skipped when blank.
struct FullLayout {
  BurstLayout burst;
  bool accessOnce;  ///< code access is set once at the start, else before every burst
};
constexpr FullLayout FullPanels{{4, FlashPanel}, true};
constexpr FullLayout Full32{{16, FlashPanel}, false};
constexpr FullLayout Full64{{32, FlashPanel}, false};

bool GroupIsBlank(int words, int row, int column) {
  for (int i = 0; i < words; ++i) {
    const int word = column - 1 + i;
    if (image::MainBuffer(word % WordsPerRow + 1, row + word / WordsPerRow) != image::ErasedPic18Word)
      return false;
  }
  return true;
}

void FullWrite(const FullLayout& layout) {
  ResetAddress();
  if (layout.accessOnce) RunAddressed(FlashPanel, 1, 6);
  panel::FlashÍrÁllapot.Load();
  const int rowStep = layout.burst.words > WordsPerRow ? layout.burst.words / WordsPerRow : 1;
  const int rows = FlashRows();  // choosing a chip or a page meanwhile does not end the write
  for (int row = 1; row <= rows; row += rowStep) {
    link::StepProgress(panel::FlashÍrÁllapot, row);
    for (int column = 1; column <= WordsPerRow; column += layout.burst.words) {
      if (GroupIsBlank(layout.burst.words, row, column)) {
        AdvanceAddress(2 * layout.burst.words);
        continue;
      }
      if (!layout.accessOnce) RunAddressed(FlashPanel, 1, 6);
      WriteBurst(layout.burst, row, column);
    }
  }
  panel::FlashÍrÁllapot.Unload();
}

void DisableWrites() {
  icsp::ClockTransaction("0000", "A6", "94");
}

/// Row erase that the chip times itself, with the unlock sequence.
void EraseBlockUnlocked() {
  RunAddressed(RowEraseUnlocked, 7, 48);
  link::SleepP11();
  DisableWrites();
}

/// Row erase timed by the pulse.
void EraseBlockPulsed() {
  RunAddressed(RowErasePulsed, 7, 36);
  icsp::ProgramPulse();
}

/// The verify-write mode of one buffer size.
struct VerifyLayout {
  BurstLayout burst;
  int accessScript;  ///< its elements 1 to 6 set code access
  void (*eraseBlock)();
};
constexpr VerifyLayout VerifyPanels{{4, FlashPanel}, FlashPanel, EraseBlockUnlocked};
constexpr VerifyLayout Verify32{{16, RowErasePulsed}, RowErasePulsed, EraseBlockPulsed};
constexpr VerifyLayout Verify64{{32, RowErasePulsed}, RowErasePulsed, EraseBlockPulsed};

bool BlockDiffers(int row) {
  for (int i = 0; i < RowsPerBlock * WordsPerRow; ++i) {
    const int column = i % WordsPerRow + 1;
    const int at = row + i / WordsPerRow;
    if (!(image::MainBuffer(column, at) == image::VerifyBuffer(column, at))) return true;
  }
  return false;
}

void RewriteBlock(const VerifyLayout& layout, int row) {
  layout.eraseBlock();
  for (int word = 0; word < RowsPerBlock * WordsPerRow; word += layout.burst.words) {
    WriteBurst(layout.burst, row + word / WordsPerRow, word % WordsPerRow + 1);
  }
}

void VerifyWrite(const VerifyLayout& layout) {
  ResetAddress();
  RunAddressed(layout.accessScript, 1, 6);
  panel::FlashÍrÁllapot.Load();
  const int rows = FlashRows();  // as in the full write
  for (int row = 1; row <= rows; row += RowsPerBlock) {
    link::StepProgress(panel::FlashÍrÁllapot, row);
    if (BlockDiffers(row)) {
      RewriteBlock(layout, row);
    } else {
      AdvanceAddress(2 * RowsPerBlock * WordsPerRow);
    }
  }
  panel::FlashÍrÁllapot.Unload();
}

constexpr WriteRow WriteRows[] = {
    {"242 252 442 452 248 258 448 458 1220 1320 2220 2320 4220 4320 2331 2431 4331 4431 6525 6621 8525 8621 "
     "6585 "
     "6680 8585 8680 6520 6620 6720 8520 8620 8720 2221 2321 4221 4321",
     WriteFlashPanels, VerifyWritePanels},
    {"2455 2550 4455 4550 2410 2510 4410 4510 2420 2520 4420 4520 2480 2580 4480 4580", WriteFlash32,
     VerifyWrite32},
    {"2515 2610 4515 4610 2525 2620 4525 4620 2585 2680 4585 4680 6527 6622 6627 6722 8527 8622 8627 8722",
     WriteFlash64, VerifyWrite64},
};

}  // namespace

const WriteRow* FindWriteRow(std::string_view chip) {
  for (const WriteRow& row : WriteRows) {
    if (devices::ListHolds(row.chips, chip)) return &row;
  }
  return nullptr;
}

void WriteFlashPanels() {
  FullWrite(FullPanels);
}
void WriteFlash32() {
  FullWrite(Full32);
}
void WriteFlash64() {
  FullWrite(Full64);
}

void VerifyWritePanels() {
  icsp::SinglePanelMode();
  VerifyWrite(VerifyPanels);
}
void VerifyWrite32() {
  VerifyWrite(Verify32);
  DisableWrites();
}
void VerifyWrite64() {
  VerifyWrite(Verify64);
  DisableWrites();
}

void WriteFlash() {
  const bool verifyMode = Form1.Check3.Value;
  if (!verifyMode) EraseCodeBlocks();
  link::TargetPowerOn();
  link::LogEvent(Form1.List1, ":  Flash Memória Irása Indult.");
  const std::string chip = Form1.Combo1.Text;
  if (chip == "PIC18F242") link::WaitCount = link::SpeedSetting;
  if (const WriteRow* row = FindWriteRow(chip)) (Form1.Check3.Value ? row->verify : row->full)();
  link::LogEvent(Form1.List1, ":  Flash Írása Kész.");
  image::CopyMainToVerify();
  link::LogEvent(Form1.List1, ":  Verify Puffer feltöltve");
  link::TargetPowerOff();
  if (Form1.Check1.Value) ReadFlash();
}

}  // namespace zelvo::ops18
