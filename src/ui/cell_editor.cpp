// `Flash_Edit` and `EEPROM_Edit`: one cell of the image in three number systems.
#include <functional>
#include <string>

#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/views.h"
#include "link/numbers.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "ui/behaviour.h"
#include "ui/cell_edit.h"
#include "ui/number_entry.h"
#include "ui/on_top.h"

namespace zelvo::ui {

using panel::Form1;

namespace {

constexpr int ValueRow = 1;
enum Column { Hex = 1, Decimal, Binary };
constexpr int CellsPerRow = 8;

const CellRules& FlashRules() {
  return Form1.TabStrip1.SelectedItem == panel::MidRangeTab ? MidRangeFlashRules() : Pic18FlashRules();
}

image::Cell& FlashCell(int col, int row) {
  return image::MainBuffer(col, row);
}
image::Cell& EepromCell(int col, int row) {
  return image::EepromBuffer(col, row);
}

/// An editor, the memory behind it, and the rules of its values.
struct CellEditor {
  panel::CellEditWindow& window;
  const CellRules& (*rulesOfPage)();
  image::Cell& (*cell)(int col, int row);
  const image::GridLayout& layout;
  StandingCellEdit box;
  // As it was when the editor opened: both editors can be open, and `EditRow` tells of the last one.
  const CellRules* rules = nullptr;
  panel::Grid* mainGrid = nullptr;
  int tab = 0;
  int row = 0;
  int col = 0;
};
CellEditor Editors[] = {
    {panel::Flash_Edit, FlashRules, FlashCell, image::FlashGridLayout,
     StandingCellEdit(panel::Flash_Edit.Text1, panel::Flash_Edit.EditStartText)},
    {panel::EEPROM_Edit, EepromRules, EepromCell, image::EepromGridLayout,
     StandingCellEdit(panel::EEPROM_Edit.Text1, panel::EEPROM_Edit.EditStartText)},
};

void ShowValue(CellEditor& editor, std::string_view hex, int value) {
  panel::Grid& grid = editor.window.MSFlexGrid1;
  grid.SetText(ValueRow, Hex, hex);
  grid.SetText(ValueRow, Decimal, std::to_string(value));
  grid.SetText(ValueRow, Binary, ShowBits(hex));
}

bool Judge(CellEditor& editor, const std::string& text) {
  const CellRules& rules = *editor.rules;
  Entry entry;
  switch (editor.window.EditCellCol) {
    case Hex:
      entry = ReadCellHex(text, rules);
      break;
    case Decimal:
      entry = ReadCellDecimal(text, rules);
      break;
    default:
      entry = ReadCellBinary(text, rules);
  }
  if (!entry.value) {
    MessageOver(editor.window, entry.refusal);
    return false;
  }
  ShowValue(editor, icsp::HexPadded(static_cast<std::uint32_t>(*entry.value), rules.digits), *entry.value);
  return true;
}

void CellClicked(CellEditor& editor, int row, int col) {
  // The click takes the focus from a box that is open on another cell.
  if (!editor.box.Take() || row != ValueRow || col < Hex) return;
  editor.window.EditCellRow = row;
  editor.window.EditCellCol = col;
  editor.box.Open(editor.window.MSFlexGrid1, row, col);
}

void Opened(CellEditor& editor) {
  panel::CellEditWindow& window = editor.window;
  MindigFelül(window);
  window.EditLimit = editor.rules->limit;
  const int address = (editor.row - 1) * CellsPerRow + editor.col - 1;
  window.Label1.Caption =
      "Hex: " + icsp::HexPadded(static_cast<std::uint32_t>(address), editor.layout.labelDigits) +
      "   Dec: " + std::to_string(address);
  window.Label4.Caption = "0 - " + link::HexText(static_cast<std::uint32_t>(window.EditLimit)) + "h (" +
                          std::to_string(window.EditLimit) + ")";
  panel::Grid& grid = window.MSFlexGrid1;
  grid.SetRows(ValueRow + 1);
  const struct {
    const char* heading;
    int twips;
  } columns[] = {{"", 690}, {"HEX", 800}, {"DEC", 800}, {"BIN", 2100}};
  for (int col = 0; col < grid.Cols(); ++col) {
    grid.SetText(0, col, columns[col].heading);
    grid.SetColWidth(col, columns[col].twips);
    grid.SetColAlignment(col, panel::Grid::AlignCentre);
  }
  grid.SetText(ValueRow, 0, "Érték");
  const std::string hex(editor.cell(editor.col, editor.row).View());
  ShowValue(editor, hex,
            static_cast<int>(static_cast<std::uint32_t>(link::ReadHex(hex).value_or(0)) & 0xFFFFu));
}

void MainGridDoubleClicked(CellEditor& editor, panel::Grid& grid, int row, int col) {
  if (!devices::ChipIsSelected()) return;
  image::EditRow = row;
  image::EditCol = col;
  if (row == 0 || col == 0) return;
  editor.window.Unload();  // an editor that is open shows the cell of before
  editor.row = row;
  editor.col = col;
  editor.mainGrid = &grid;
  editor.tab = Form1.TabStrip1.SelectedItem;
  editor.rules = &editor.rulesOfPage();
  editor.window.Load();
}

/// Another page has deselected the chip, and its words are of another width: nothing is taken over. The main
/// grid has fewer rows than before when another chip of the page was chosen meanwhile.
void Accept(CellEditor& editor) {
  if (Form1.TabStrip1.SelectedItem != editor.tab) {
    MessageOver(editor.window, devices::NoChipMessage);
    editor.window.Unload();
    return;
  }
  if (!editor.box.Take()) return;
  const std::string hex = editor.window.MSFlexGrid1.Text(ValueRow, Hex);
  editor.cell(editor.col, editor.row) = hex;
  if (editor.row < editor.mainGrid->Rows()) editor.mainGrid->SetText(editor.row, editor.col, hex);
  editor.window.Unload();
}

void Attach(CellEditor& editor, std::initializer_list<panel::Grid*> mainGrids) {
  for (panel::Grid* grid : mainGrids) {
    grid->CellDblClick = [&editor, grid](int row, int col) {
      MainGridDoubleClicked(editor, *grid, row, col);
    };
  }
  editor.window.OnLoad = [&editor] { Opened(editor); };
  editor.window.MSFlexGrid1.CellClick = [&editor](int row, int col) { CellClicked(editor, row, col); };
  editor.box.Attach([&editor](const std::string& text) { return Judge(editor, text); });
  editor.window.OK.Click = [&editor] { Accept(editor); };
  editor.window.Mégse.Click = [&editor] { editor.window.Unload(); };
}

}  // namespace

void AttachCellEditors() {
  Attach(Editors[0], {&Form1.MSFlexGrid1, &Form1.MSFlexGrid4});
  Attach(Editors[1], {&Form1.MSFlexGrid2, &Form1.MSFlexGrid3});
}

}  // namespace zelvo::ui
