#include "image/hex_load.h"

#include <optional>
#include <string>

#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/fills.h"
#include "image/hex_lines.h"
#include "image/views.h"
#include "link/event_log.h"
#include "panel/form1.h"
#include "platform/files.h"
#include "platform/seams.h"

namespace zelvo::image {

using panel::Form1;

namespace {

constexpr int NoLines = 1;  // of `LoadFailed`

void Fail(const char* message) {
  platform::seams.dialogs->Message(message);
  icsp::LoadFailed = NoLines;
}

/// No HEX file of any chip comes near this size, in bytes.
constexpr size_t BeyondAnyChip = size_t{64} << 20;

/// Garbage that never breaks into lines would otherwise pass for a file without records.
bool IsEndlessLine(const std::string& text) {
  return text.size() > BeyondAnyChip && text.find_first_of("\r\n") == std::string::npos;
}

/// What the text reader makes of a file: nothing of an empty one, as of a missing one.
bool ReadLines() {
  auto text = platform::ReadWholeFile(HexFileName);
  if (!text || text->empty() || IsEndlessLine(*text)) {
    Fail("Ismeretlen Fájl hiba!");
    return false;
  }
  HexLines.Set(std::move(*text));
  return true;
}

/// Begins an open; false when no chip is selected.
bool BeginOpen() {
  icsp::LoadFailed = 0;
  HexFileName.clear();
  if (devices::ChipIsSelected()) return true;
  icsp::LoadFailed = NoLines;
  return false;
}

void EraseFlashAndEeprom() {
  ListAlapEEPROM();
  FillEepromErased();
  ListAlapFlash();
  FillFlashErased();
}

}  // namespace

void OpenHexFile() {
  if (!BeginOpen()) return;
  const std::optional<std::string> chosen =
      platform::seams.dialogs->OpenFile({".hex adatfájlok|*.HEX|Összes Fájl|*.*", ""});
  if (!chosen) {
    Fail("Nem lett fájl kiválasztva!");
    return;
  }
  DialogFile = *chosen;
  HexFileName = DialogFile;
  if (ReadLines()) link::LogEvent(link::PageLog(), ":  Fájl betöltése Indult!");
}

void ReopenHexFile() {
  if (!BeginOpen()) return;
  HexFileName = DialogFile;
  if (!ReadLines()) return;
  for (panel::ListBox* log : {&Form1.List1, &Form1.List4}) link::LogEvent(*log, ":  Fájl  Frissítése Indul!");
}

void LoadButton() {
  OpenHexFile();
  if (icsp::LoadFailed == NoLines) return;
  EraseFlashAndEeprom();
  FillConfigErased();
  FillIdErased();
  if (Form1.TabStrip1.SelectedItem == panel::MidRangeTab) {
    ParseHexMidRange();
  } else {
    ParseHexPic18();
  }
  HexLines.Set({});
}

void ReloadButton() {
  ReopenHexFile();
  if (icsp::LoadFailed == NoLines) return;
  EraseFlashAndEeprom();
  ParseHexPic18();
  HexLines.Set({});
}

void RecoverFromFault() {
  platform::seams.dialogs->Message("A fájl nem kompatibilis a kiválasztott PIC-el!");
  FillFlashErased();
  FillEepromErased();
  ListAlapEEPROM();
  ListAlapFlash();
}

}  // namespace zelvo::image
