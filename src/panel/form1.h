// `MDIForm1`, the frame window, and `Form1`, the one working window with its two pages.
#pragma once

#include <array>

#include "panel/window.h"

namespace zelvo::panel {

struct MDIForm1Window : Window {
  MDIForm1Window() : Window("MDIForm1", "Zelvo F18 & F16 & F12 ") {}
};

struct Form1Window : Window {
  Form1Window() : Window("Form1", "") {}

  TabStrip TabStrip1{*this, "TabStrip1", {"            12F & 16F", "              18F"}};
  Frame Frame0{*this, "Frame(0)"};  ///< carries the PIC18 page
  Frame Frame1{*this, "Frame(1)"};  ///< carries the mid-range page

  // The PIC18 page: chip and file.
  ComboBox Combo1{*this, "Combo1"};
  ListBox List2{*this, "List2"};  ///< summary line of the chip
  CommandButton IDazonosít{*this, "IDazonosít", "PIC azonosítás"};
  CommandButton FájlBetölt{*this, "FájlBetölt", "Fájl Beolvasása"};
  CommandButton Frissites{*this, "Frissites", "Frissítés"};
  CommandButton fájlment{*this, "fájlment", "Fájlba Mentés"};

  // The PIC18 page: memory operations.
  CommandButton FlashOl{*this, "FlashOl", "Flash Beolvasása"};
  CommandButton FlashÍr{*this, "FlashÍr", "Flash Írása"};
  CommandButton EEPROMOlvas{*this, "EEPROMOlvas", "EEPROM Olvasás"};
  CommandButton EEPROMÍr{*this, "EEPROMÍr", "EEPROM Írása"};
  CommandButton ConfigOlvas{*this, "ConfigOlvas", "Config Beolvasása"};
  CommandButton CinfigÍr{*this, "CinfigÍr", "Config Írása"};
  CommandButton IDLocOlvas{*this, "IDLocOlvas", "ID Loc Olvasása"};
  CommandButton IDLocÍr{*this, "IDLocÍr", "ID Loc Írása"};
  CommandButton ConfRészlEdit{*this, "ConfRészlEdit", " Config Részletek, Szerkesztés"};
  CommandButton IDMod{*this, "IDMod", "User ID Szerkesztés"};
  CommandButton PICTörlés{*this, "PICTörlés", "PIC  Törlése"};
  CommandButton PICÍrás{*this, "PICÍrás", "PIC   Írása"};
  CommandButton PICOlvas{*this, "PICOlvas", "PIC Beolvasása"};
  CheckBox Check1{*this, "Check1", "Automata Ellenőrzés Engedélyezése"};
  CheckBox Check2{*this, "Check2", "Automatikus Pufferbe Töltés"};
  CheckBox Check3{*this, "Check3", "Verify Flash Írás Mód Engedély"};
  CommandButton Command2{*this, "Command2", "Verify Puffer Törlése FFFF"};
  CommandButton Command3{*this, "Command3", "Verify Mód Segítség"};

  // The PIC18 page: port and information.
  CommandButton ProgFut{*this, "ProgFut", "Vdd(+5V) On"};
  CommandButton Command1{*this, "Command1", "Portcím Beállítás"};
  CommandButton Command4{*this, "Command4", "Port Check"};
  CommandButton Command5{*this, "Command5", "Port Beállítás"};
  CommandButton Command6{*this, "Command6", "Port Kiválasztása"};
  CommandButton Névjegy{*this, "Névjegy", "Névjegy"};
  CommandButton ZLV_info{*this, "ZLV_info", "ZLV_Infók html"};

  // The PIC18 page: speed.
  ScrollBar ÁSeb{*this, "ÁSeb", 1, 10000, 10};
  ListBox List3{*this, "List3"};         ///< the speed value
  TextBox Text1{*this, "Text1", false};  ///< its edit box, behind the list
  CheckBox Check9{*this, "Check9", "10x Speed"};
  CheckBox Check10{*this, "Check10", "Szuper lassú"};

  // The PIC18 page: indicators, event log, memory views.
  Label VppLabel18{*this, "Label44", "Vpp:"};
  Label InLabel18{*this, "Label45", "In"};
  Shape Shape2{*this, "Shape2"};  ///< Vpp
  Shape Shape3{*this, "Shape3"};  ///< data in
  Label LogLabel18{*this, "Label46", "Esemény lista"};
  ListBox List1{*this, "List1"};
  Grid MSFlexGrid1{*this, "MSFlexGrid1", 9};  ///< MainBuffer
  Grid MSFlexGrid2{*this, "MSFlexGrid2", 9};  ///< EepromBuffer
  ListBox Bconfig1L{*this, "Bconfig1L"};
  ListBox Bconfig1H{*this, "Bconfig1H"};
  ListBox Bconfig2L{*this, "Bconfig2L"};
  ListBox Bconfig2H{*this, "Bconfig2H"};
  ListBox Bconfig3L{*this, "Bconfig3L"};
  ListBox Bconfig3H{*this, "Bconfig3H"};
  ListBox Bconfig4L{*this, "Bconfig4L"};
  ListBox Bconfig4H{*this, "Bconfig4H"};
  ListBox Bconfig5L{*this, "Bconfig5L"};
  ListBox Bconfig5H{*this, "Bconfig5H"};
  ListBox Bconfig6L{*this, "Bconfig6L"};
  ListBox Bconfig6H{*this, "Bconfig6H"};
  ListBox Bconfig7L{*this, "Bconfig7L"};
  ListBox Bconfig7H{*this, "Bconfig7H"};
  ListBox IDLOC11{*this, "IDLOC11"};
  ListBox IDLOC21{*this, "IDLOC21"};
  ListBox IDLOC31{*this, "IDLOC31"};
  ListBox IDLOC41{*this, "IDLOC41"};
  ListBox IDLOC51{*this, "IDLOC51"};
  ListBox IDLOC61{*this, "IDLOC61"};
  ListBox IDLOC71{*this, "IDLOC71"};
  ListBox IDLOC81{*this, "IDLOC81"};

  // The mid-range page: chip and file.
  ComboBox Combo2{*this, "Combo2"};
  ListBox List5{*this, "List5"};  ///< summary line of the chip
  CommandButton Command9{*this, "Command9", "PIC azonosítás"};
  CommandButton Command7{*this, "Command7", "Fájl Beolvasása"};
  CommandButton Command22{*this, "Command22", "Frissítés"};
  CommandButton Command23{*this, "Command23", "Fájlba Mentés"};

  // The mid-range page: memory operations.
  CommandButton Command8{*this, "Command8", "Flash Beolvasása"};
  CommandButton Command11{*this, "Command11", "       Flash,          Config és       User ID Loc    Írása"};
  CommandButton Command17{*this, "Command17", "EEPROM Olvasás"};
  CommandButton Command18{*this, "Command18", "EEPROM Írása"};
  CommandButton Command13{*this, "Command13", "Config Beolvasása"};
  CommandButton Command15{*this, "Command15", "ID Loc Olvasása"};
  CommandButton ConfRészlEdit_F16{*this, "ConfRészlEdit_F16", " Config Részletek, Szerkesztés"};
  CommandButton IDMod_F16{*this, "IDMod_F16", "User ID Szerkesztés"};
  CommandButton Command12{*this, "Command12", "PIC  Törlése"};
  CommandButton Command21{*this, "Command21", "PIC   Írása"};
  CommandButton Command19{*this, "Command19", "PIC Beolvasása"};
  CheckBox Check4{*this, "Check4", "Automata Ellenőrzés Engedélyezése"};
  CheckBox Check5{*this, "Check5", "Automatikus Pufferbe Töltés"};
  CheckBox Check6{*this, "Check6", "Elsődleges Flash ellenőrzés védett Flash esetén (Config CP=0)"};
  CheckBox Check8{*this, "Check8", "ZLPT_mini használata"};

  // The mid-range page: port and information.
  CommandButton Command10{*this, "Command10", "Vdd(+5V) On"};
  CommandButton Command26{*this, "Command26", "Portcím Beállítás"};
  CommandButton Command20{*this, "Command20", "Port Check"};
  CommandButton Command16{*this, "Command16", "Port Beállítás"};
  CommandButton Command14{*this, "Command14", "Port Kiválasztása"};
  CommandButton Command24{*this, "Command24", "Névjegy"};
  CommandButton Command25{*this, "Command25", "ZLV_Infók html"};

  // The mid-range page: speed.
  ScrollBar HScroll1{*this, "HScroll1", 1, 10000, 10};
  ListBox List11{*this, "List11"};       ///< the speed value
  TextBox Text2{*this, "Text2", false};  ///< its edit box, behind the list
  CheckBox Check7{*this, "Check7", "10x Speed"};
  CheckBox Check11{*this, "Check11", "Szuper lassú"};

  // The mid-range page: indicators, event log, memory views.
  Label VppLabelMid{*this, "Label47", "Vpp:"};
  Label InLabelMid{*this, "Label48", "In"};
  Shape Shape1{*this, "Shape1"};  ///< Vpp
  Shape Shape4{*this, "Shape4"};  ///< data in
  Label LogLabelMid{*this, "Label49", "Esemény lista"};
  ListBox List4{*this, "List4"};
  Grid MSFlexGrid4{*this, "MSFlexGrid4", 9};  ///< MainBuffer
  Grid MSFlexGrid3{*this, "MSFlexGrid3", 9};  ///< EepromBuffer
  ListBox List6{*this, "List6"};              ///< configuration word 1
  Label Label43{*this, "Label43", "Config 2:"};
  ListBox List12{*this, "List12"};  ///< configuration word 2
  ListBox List7{*this, "List7"};    ///< user ID words 1 to 4
  ListBox List8{*this, "List8"};
  ListBox List9{*this, "List9"};
  ListBox List10{*this, "List10"};

  /// The configuration bytes' lists in the order CONFIG1L, 1H, 2L ... 7H.
  const std::array<ListBox*, 14> ConfigLists{&Bconfig1L, &Bconfig1H, &Bconfig2L, &Bconfig2H, &Bconfig3L,
                                             &Bconfig3H, &Bconfig4L, &Bconfig4H, &Bconfig5L, &Bconfig5H,
                                             &Bconfig6L, &Bconfig6H, &Bconfig7L, &Bconfig7H};
  /// The ID bytes' lists, element 1 first.
  const std::array<ListBox*, 8> IdLists{&IDLOC11, &IDLOC21, &IDLOC31, &IDLOC41,
                                        &IDLOC51, &IDLOC61, &IDLOC71, &IDLOC81};
  /// The user ID words' lists, word 1 first.
  const std::array<ListBox*, 4> MidIdLists{&List7, &List8, &List9, &List10};
};

inline MDIForm1Window MDIForm1;
inline Form1Window Form1;

/// `TabStrip1` index of the two pages.
inline constexpr int MidRangeTab = 1;
inline constexpr int Pic18Tab = 2;

}  // namespace zelvo::panel
