// `MEM_Mentes`: the image into a file, in one of three forms, and the help of it.
#include <optional>
#include <string>

#include "devices/selection.h"
#include "image/hex_save.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/files.h"
#include "platform/seams.h"
#include "ui/behaviour.h"
#include "ui/on_top.h"

namespace zelvo::ui {

using panel::Mem_Help;
using panel::MEM_Mentes;

namespace {

const platform::FileFilter HexFilter{".Hex Intel HEX formátum|*.Hex", "Hex"};
const platform::FileFilter MchFilter{".MCH MPLAB import formátum|*.MCH", "MCH"};

/// The window stays when nothing was saved, so that the operator can choose another place.
void Save(const platform::FileFilter& filter, std::string (*text)()) {
  if (!devices::ChipIsSelected()) return;
  const std::optional<std::string> path = platform::seams.dialogs->SaveFile(filter);
  if (!path) {
    MessageOver(MEM_Mentes, "Nem lett a fájl elmentve!");
  } else if (!platform::ReplaceFile(*path, text())) {
    MessageOver(MEM_Mentes, "Ismeretlen hiba!");
  } else {
    MEM_Mentes.Unload();
  }
}

void SaveIntelHex() {
  Save(HexFilter, image::IntelHexText);
}
void SaveMchFlash() {
  Save(MchFilter, image::MchFlashText);
}
void SaveMchEeprom() {
  Save(MchFilter, image::MchEepromText);
}

void OpenSaveWindow() {
  if (!devices::ChipIsSelected()) return;
  Reopen(MEM_Mentes);
}

}  // namespace

void AttachSaveWindow() {
  panel::Form1.fájlment.Click = OpenSaveWindow;
  MEM_Mentes.OnTop = true;
  MEM_Mentes.IntelHex.Click = SaveIntelHex;
  MEM_Mentes.FlashMent.Click = SaveMchFlash;
  MEM_Mentes.EEPROM.Click = SaveMchEeprom;
  MEM_Mentes.M_Help.Click = [] { Reopen(Mem_Help); };
  MEM_Mentes.Megse.Click = [] { MEM_Mentes.Unload(); };
  Mem_Help.OnTop = true;
  Mem_Help.Command1.Click = [] { Mem_Help.Unload(); };
}

}  // namespace zelvo::ui
