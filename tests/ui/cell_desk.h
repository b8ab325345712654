// A desk with the editors of single cells at hand: which of them belongs to which main grid, and hands for
// the cells and the box of one.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "image/buffers.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {

inline constexpr int HexColumn = 1, DecimalColumn = 2, BinaryColumn = 3;  ///< columns of an editor's grid

/// A main grid, the page that it is on and what a double click on it opens.
struct MainGrid {
  const char* name;
  const char* page;
  const char* choose;  ///< a chip of that page
  panel::CellEditWindow* window;
  bool eeprom;
};
inline const MainGrid MainGrids[] = {
    {"MSFlexGrid1", "tab 2", "choose Combo1 PIC18F452", &panel::Flash_Edit, false},
    {"MSFlexGrid4", "tab 1", "choose Combo2 PIC16F877A", &panel::Flash_Edit, false},
    {"MSFlexGrid2", "tab 2", "choose Combo1 PIC18F452", &panel::EEPROM_Edit, true},
    {"MSFlexGrid3", "tab 1", "choose Combo2 PIC16F877A", &panel::EEPROM_Edit, true},
};
inline const MainGrid& Pic18Flash = MainGrids[0];
inline const MainGrid& MidFlash = MainGrids[1];
inline const MainGrid& Pic18Eeprom = MainGrids[2];
inline const MainGrid& MidEeprom = MainGrids[3];

class CellDesk : public testing::Test {
 protected:
  void SetUp() override { session.Do("start"); }
  /// Goes to the grid's page and chooses a chip there.
  void Choose(const MainGrid& grid) { session.Do({grid.page, grid.choose, "messages"}); }
  static std::string Place(int row, int col) { return std::to_string(row) + ' ' + std::to_string(col); }
  void DblClick(const MainGrid& grid, int row, int col) {
    session.Do(std::string("dblclick ") + grid.name + ' ' + Place(row, col));
  }
  /// Chooses a chip of the grid's page, gives the buffer's cell a text and opens its editor.
  void Open(const MainGrid& grid, int row, int col, const std::string& text) {
    Choose(grid);
    Buffer(grid, row, col) = text;
    DblClick(grid, row, col);
  }
  static image::Cell& Buffer(const MainGrid& grid, int row, int col) {
    return grid.eeprom ? image::EepromBuffer(col, row) : image::MainBuffer(col, row);
  }
  static std::string Held(const MainGrid& grid, int row, int col) {
    return std::string(Buffer(grid, row, col).View());
  }
  std::string Shown(const MainGrid& grid, int row, int col) {
    return session.Ask(std::string("cell ") + grid.name + ' ' + Place(row, col));
  }

  static std::string Name(const MainGrid& grid, const char* control) {
    return grid.window->Name() + '.' + control;
  }
  /// Clicks a column of the value row.
  void Click(const MainGrid& grid, int col) { ClickCell(grid, 1, col); }
  void ClickCell(const MainGrid& grid, int row, int col) {
    session.Do("click " + Name(grid, "MSFlexGrid1") + ' ' + Place(row, col));
  }
  void Type(const MainGrid& grid, const std::string& text) {
    session.Do("type " + Name(grid, "Text1") + (text.empty() ? "" : ' ' + text));
  }
  void Enter(const MainGrid& grid) { session.Do("key " + Name(grid, "Text1") + " Enter"); }
  void Edit(const MainGrid& grid, int col, const std::string& text) {
    Click(grid, col);
    Type(grid, text);
    Enter(grid);
  }
  void Press(const MainGrid& grid, const char* button) { session.Do("click " + Name(grid, button)); }
  /// The three values, in hexadecimal, decimal and binary.
  static Lines Values(const MainGrid& grid) {
    const panel::Grid& cells = grid.window->MSFlexGrid1;
    return {cells.Text(1, HexColumn), cells.Text(1, DecimalColumn), cells.Text(1, BinaryColumn)};
  }
  static bool BoxShown(const MainGrid& grid) { return grid.window->Text1.Visible; }
  static std::string BoxText(const MainGrid& grid) { return grid.window->Text1.Text; }
  BenchSession session;
};

}  // namespace zelvo::test
