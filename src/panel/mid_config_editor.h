// `ConfEdit_F16`, the editor of the mid-range configuration words: one box for each bit under its name.
#pragma once

#include <array>
#include <string>

#include "panel/control_array.h"
#include "panel/window.h"

namespace zelvo::panel {

/// Bits 13 to 0 of word 1 are elements 0 to 13 of the boxes and names, those of word 2 elements 14 to 27; the
/// headings count from 1.
struct MidConfEditWindow : Window {
  static constexpr std::size_t Bits = 28;
  MidConfEditWindow() : Window("ConfEdit_F16", "Configurációs szó szerkesztése") {}

  std::array<Label, Bits> Headings = MakeControls<Bits, Label>([this](std::size_t i) {
    return Label(*this, "Label32(" + std::to_string(i + 1) + ")", std::to_string(13 - i % 14));
  });
  std::array<Label, Bits> Names = MakeControls<Bits, Label>(
      [this](std::size_t i) { return Label(*this, "Label1(" + std::to_string(i) + ")", ""); });
  std::array<TextBox, Bits> Boxes = MakeControls<Bits, TextBox>(
      [this](std::size_t i) { return TextBox(*this, "Text1(" + std::to_string(i) + ")"); });
  CommandButton Command1{*this, "Command1", "Pufferbe töltés"};
  CommandButton Command2{*this, "Command2", "Mégse"};
};

inline MidConfEditWindow ConfEdit_F16;

}  // namespace zelvo::panel
