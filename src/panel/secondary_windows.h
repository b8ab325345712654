// The secondary windows: all of them by the includes, and here progress, questions of the file loader and
// identification.
#pragma once

#include "panel/config_editor.h"
#include "panel/edit_windows.h"
#include "panel/file_windows.h"
#include "panel/info_windows.h"
#include "panel/mid_config_editor.h"
#include "panel/review_windows.h"
#include "panel/settings_windows.h"
#include "panel/window.h"

namespace zelvo::panel {

/// A progress window: a bar and a Cancel button.
struct ProgressWindow : Window {
  using Window::Window;
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  CommandButton Command1{*this, "Command1", "Cancel"};
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

inline ProgressWindow Állapot{"Állapot", "Flash Olvasás állapota"};
inline ProgressWindow FlashÍrÁllapot{"FlashÍrÁllapot", "Flash Írás Állapota"};
inline ProgressWindow EEE_Olv_Állapot{"EEE_Olv_Állapot", "EEPROM Olvasás állapota"};
inline ProgressWindow EEE_Ír_Állapot{"EEE_Ír_Állapot", "EEPROM Írás Állapota"};
inline PICAzonosWindow PICAzonos;
inline OverwriteWindow FelülDialog{"FelülDialog", "ID  Location felülírása?"};
inline OverwriteWindow ConfFelülír{"ConfFelülír", "Config Bájtok Felülírása?"};

}  // namespace zelvo::panel
