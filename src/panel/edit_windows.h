// The editors of single values: one cell of Flash or EEPROM, and the ID locations of both families.
#pragma once

#include <array>
#include <string>

#include "panel/window.h"

namespace zelvo::panel {

/// One cell in hexadecimal, decimal and binary, side by side. Column 0 and row 0 of the grid are headings.
struct CellEditWindow : Window {
  using Window::Window;
  Label Label1{*this, "Label1", ""};  ///< address of the cell
  Grid MSFlexGrid1{*this, "MSFlexGrid1", 4};
  TextBox Text1{*this, "Text1", false};  ///< lies over the cell being edited
  Label Label2{*this, "Label2", "Kattints az értékre, amit módosítani akarsz!"};
  Label Label3{*this, "Label3", "Tartomány:"};
  Label Label4{*this, "Label4", ""};  ///< the range of the values
  CommandButton OK{*this, "OK", "OK"};
  CommandButton Mégse{*this, "Mégse", "Mégse"};

  int EditLimit = 0;          ///< highest value
  std::string EditStartText;  ///< text of the cell when its edit began
  int EditCellRow = 0;        ///< the cell under the box
  int EditCellCol = 0;
};

/// The ID locations as characters, in hexadecimal and in decimal, a column each.
struct IdEditWindow : Window {
  static constexpr int RowCount = 4;
  static constexpr int MostColumns = 9;
  IdEditWindow(std::string name, int cols)
      : Window(std::move(name), "User ID  bájtok szerkesztése"), MSFlexGrid1(*this, "MSFlexGrid1", cols) {}
  Grid MSFlexGrid1;
  TextBox Text1{*this, "Text1", false};  ///< lies over the cell being edited
  CommandButton Módosít{*this, "Módosít", "Adatok Pufferbe Töltése"};
  CommandButton Mégse{*this, "Mégse", "Mégse"};

  /// What the operator typed, before it is judged: [row 0..3][column 0..8].
  std::array<std::array<std::string, MostColumns>, RowCount> CellInput;
  int CurrentRow = 0;  ///< the cell under the box
  int CurrentCol = 0;
};

inline CellEditWindow Flash_Edit{"Flash_Edit", "Flash szerkesztése"};
inline CellEditWindow EEPROM_Edit{"EEPROM_Edit", "EEPROM szerkesztése"};
inline IdEditWindow IDLocEdit{"IDLocEdit", 9};
inline IdEditWindow IDLocEdit_F16{"IDLocEdit_F16", 5};

}  // namespace zelvo::panel
