// `MEM_Mentes`, the ways of saving the image, and its help.
#pragma once

#include <array>

#include "panel/window.h"

namespace zelvo::panel {

struct SaveWindow : Window {
  SaveWindow() : Window("MEM_Mentes", "Mentés Fájlba") {}
  CommandButton IntelHex{*this, "IntelHex", "Mentés Intel HEX-be"};
  CommandButton FlashMent{*this, "FlashMent", "Flash Mentése MCH-ba"};
  CommandButton EEPROM{*this, "EEPROM", "EEPROM Mentése MCH-ba"};
  CommandButton M_Help{*this, "M_Help", "Segítség"};
  CommandButton Megse{*this, "Megse", "Mégse"};
};

struct SaveHelpWindow : Window {
  SaveHelpWindow() : Window("Mem_Help", "Segéd infók") {}
  std::array<Label, 5> Lines{
      Label(*this, "Label1", "Az Intel HEX formátumba mentett fájl visszatölthető és beégethető."),
      Label(*this, "Label2", "Az MCH kiterjesztés az MPLAB export/import fájlformátuma."),
      Label(
          *this, "Label3",
          "Az így elmentett fájlt be lehet tölteni(jobb egérgomb, import Table) az MPLAB Program Memory ill. "
          "EEPROM ablakába."),
      Label(*this, "Label4",
            "Betöltés után a Machine és a Symbolic listaforma kiválasztásával a memória tartalom "
            "Dissasemlálódik."),
      Label(*this, "Label5", "Jó visszafejtést!")};
  CommandButton Command1{*this, "Command1", "Bezárás"};
};

inline SaveWindow MEM_Mentes;
inline SaveHelpWindow Mem_Help;

}  // namespace zelvo::panel
