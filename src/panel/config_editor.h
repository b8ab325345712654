// `ConfEdit`, the editor of the PIC18's configuration bits: one small grid for each of the 14 bytes.
#pragma once

#include <array>
#include <string>

#include "panel/control_array.h"
#include "panel/window.h"

namespace zelvo::panel {

/// A text for each bit of the 14 bytes: [byte 1..14][column 1..8], column 1 is bit 7. Index 0 stays unused.
using ConfigBitTexts = std::array<std::array<std::string, 9>, 15>;

struct ConfEditWindow : Window {
  ConfEditWindow() : Window("ConfEdit", "Configurációs bájtok szerkesztése") {}
  std::array<Label, 14> Labels = MakeControls<14, Label>([this](std::size_t i) {
    return Label(*this, "Label" + std::to_string(i + 1), "Config" + std::string(ConfigByteNames[i]));
  });
  /// `Conf1L` to `Conf7H`. Two rows, names above states; column 0 is a heading.
  std::array<Grid, 14> Grids = MakeControls<14, Grid>(
      [this](std::size_t i) { return Grid(*this, "Conf" + std::string(ConfigByteNames[i]), 9); });
  CommandButton BetPufferbe{*this, "BetPufferbe", "Config Módosítások Pufferbe töltése"};
  CommandButton Mégse{*this, "Mégse", "Mégse"};
  TextBox Text1{*this, "Text1", false};  ///< lies over the cell being edited

  ConfigBitTexts CellInput;  ///< what the operator typed, before it is judged
  int CurrentGrid = 0;       ///< 1..14: the grid of the cell being edited
  int CurrentCol = 0;
  int CurrentRow = 0;
};

inline ConfEditWindow ConfEdit;

}  // namespace zelvo::panel
