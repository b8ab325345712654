// The secondary windows: progress, review, questions of the file loader, identification.
#pragma once

#include "panel/window.h"

namespace zelvo::panel {

/// A progress window: a bar and a Cancel button.
struct ProgressWindow : Window {
  using Window::Window;
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  CommandButton Command1{*this, "Command1", "Cancel"};
};

struct FlashOlvWindow : Window {
  FlashOlvWindow() : Window("FlashOlv", "Flash Olvasás") {}
  Grid MSFlexGrid1{*this, "MSFlexGrid1", 9};
  ListBox List1{*this, "List1"};
  CommandButton FlashPuff{*this, "FlashPuff", "Pufferbe töltés"};
  CommandButton Command1{*this, "Command1", "Verify Puffer Feltöltése"};
  CommandButton Mégse{*this, "Mégse", "Kilépés"};
};

struct PICAzonosWindow : Window {
  PICAzonosWindow() : Window("PICAzonos", "PIC azonosítás") {}
  ListBox PICazon{*this, "PICazon"};
  CommandButton Command1{*this, "Command1", "Bezárás"};
};

/// Stands beside the loader's question whether edited values may be overwritten.
struct OverwriteWindow : Window {
  using Window::Window;
  ListBox List1{*this, "List1"};
};

/// The port check window; its first box shows and moves Vdd.
struct PortCheckWindow : Window {
  PortCheckWindow() : Window("LPT_Port_Check", "Port Check") {}
  CheckBox Check1{*this, "Check1", "Vdd"};
};

inline ProgressWindow Állapot{"Állapot", "Flash Olvasás állapota"};
inline ProgressWindow FlashÍrÁllapot{"FlashÍrÁllapot", "Flash Írás Állapota"};
inline FlashOlvWindow FlashOlv;
inline PICAzonosWindow PICAzonos;
inline OverwriteWindow FelülDialog{"FelülDialog", "ID  Location felülírása?"};
inline OverwriteWindow ConfFelülír{"ConfFelülír", "Config Bájtok Felülírása?"};
inline PortCheckWindow LPT_Port_Check;

}  // namespace zelvo::panel
