// `ConfEdit`: the configuration bytes bit by bit, by name. It works on a copy; the image takes it over by
// `BetPufferbe`.
#include <string>

#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/views.h"
#include "link/event_log.h"
#include "link/numbers.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "ui/behaviour.h"
#include "ui/cell_edit.h"
#include "ui/config_names.h"
#include "ui/on_top.h"

namespace zelvo::ui {

using panel::ConfEdit;
using panel::Form1;

namespace {

constexpr int Bytes = 14;
constexpr int Columns = 8;
constexpr const char* NotAvailable = "F";

panel::Grid& GridOf(int byte) {
  return ConfEdit.Grids.at(static_cast<size_t>(byte - 1));
}

std::string& EditBit(int byte, int column) {
  return image::ConfigEditBits.at(static_cast<size_t>(byte)).at(static_cast<size_t>(column));
}

void Log(const char* text) {
  link::LogEvent(Form1.List1, text);
}

/// Calls `use` with each byte and column, left to right.
template <class Use>
void ForEachBit(const Use& use) {
  for (int byte = 1; byte <= Bytes; ++byte) {
    for (int column = 1; column <= Columns; ++column) use(byte, column);
  }
}

void Tábla_Cella_Középre() {
  for (panel::Grid& grid : ConfEdit.Grids) {
    for (int col = 0; col < grid.Cols(); ++col) grid.SetColAlignment(col, panel::Grid::AlignCentre);
  }
}

void BuildEmptyGrid(panel::Grid& grid) {
  grid.SetRows(2);
  for (int row = 0; row < 2; ++row) grid.SetRowHeight(row, 275);
  grid.SetColWidth(0, 690);
  for (int col = 1; col <= Columns; ++col) grid.SetColWidth(col, 660);
  grid.SetText(0, 0, "Funkció");
  grid.SetText(1, 0, " Állapot");
  grid.ToolTip = std::string("Dupla Kattintás -> Szerkesztés");
}

void Opened() {
  MindigFelül(ConfEdit);
  for (panel::Grid& grid : ConfEdit.Grids) BuildEmptyGrid(grid);
  Tábla_Cella_Középre();
}

/// The bit as the image holds it; empty where its text is shorter than 16 characters.
std::string BitInBuffer(int byte, int column) {
  const std::string& bits = image::ConfigBitStrings.at(static_cast<size_t>(byte));
  const auto place = static_cast<size_t>(2 * column - 1);
  return place < bits.size() ? bits.substr(place, 1) : std::string();
}

void FillBit(const ConfigNameGroup& group, const std::string& chip, int byte, int column) {
  const ConfigBit bit = FindConfigBit(group, chip, {byte, column});
  const std::string state = BitInBuffer(byte, column);
  if (bit.live) EditBit(bit.bit.byte, bit.bit.column) = state;
  GridOf(byte).SetText(0, column, bit.name.empty() ? "X" : bit.name);
  GridOf(bit.state.byte).SetText(1, bit.state.column, bit.name.empty() ? "0" : state);
}

void FillByChip(const std::string& chip) {
  const ConfigNameGroup* group = FindNameGroup(chip);
  if (group == nullptr) return;
  ForEachBit([](int byte, int column) { EditBit(byte, column) = NotAvailable; });
  ForEachBit([&](int byte, int column) { FillBit(*group, chip, byte, column); });
}

void OpenConfigEditor() {
  ConfEdit.Unload();
  Log(":  Config Bájtok Szerkesztése.");
  const std::string chip = Form1.Combo1.Text;
  ConfEdit.Load();
  FillByChip(chip);
}

void BeginEdit(int byte, int row, int column) {
  ConfEdit.CurrentGrid = byte;
  ConfEdit.CurrentCol = column;
  ConfEdit.CurrentRow = row;
  const long state = link::ReadWhole(GridOf(byte).Text(row, column)).value_or(0);
  if (state == 0 || state == 1) ConfEdit.Text1.Text = std::to_string(state);
  OpenCellEdit(ConfEdit.Text1, GridOf(byte), row, column);
}

void CellDoubleClicked(int byte, int row, int column) {
  if (row == 0 || column == 0) return;
  if (EditBit(byte, column) == NotAvailable) {
    MessageOver(ConfEdit, " Ez a bit nincs használva!");
    return;
  }
  BeginEdit(byte, row, column);
}

void Commit(const std::string& text) {
  const int column = ConfEdit.CurrentCol;
  const int byte = ConfEdit.CurrentGrid;
  ConfEdit.CellInput.at(static_cast<size_t>(byte)).at(static_cast<size_t>(column)) = text;
  if (text == "0" || text == "1") {
    EditBit(byte, column) = text;
  } else {
    MessageOver(ConfEdit, "A bevitel csak 1 vagy 0 lehet! ");
  }
  GridOf(byte).SetText(ConfEdit.CurrentRow, column, "     " + EditBit(byte, column));
}

/// Bits that are not available come out as 0.
int ValueOf(int byte) {
  int sum = 0;
  for (int column = 1; column <= Columns; ++column) sum = 2 * sum + (EditBit(byte, column) == "1" ? 1 : 0);
  return sum;
}

void Accept() {
  for (int byte = 1; byte <= Bytes; ++byte) {
    const int value = ValueOf(byte);
    const auto index = static_cast<size_t>(byte);
    image::ConfigBuffer.at(index) = icsp::HexPadded(static_cast<std::uint32_t>(value), 1);
    icsp::ByteToSpacedBits(value);
    image::ConfigBitStrings.at(index) = icsp::ConvertedBits;
    image::ShowConfigBits(byte);
  }
  Log(":  A Szerkesztett Config Adatok Áttöltve a Pufferbe!");
  Log(":  Config Szerkesztés Vége!");
  image::ConfigEdited = 1;
  ConfEdit.Unload();
}

void Cancel() {
  Log(":  A Szerkesztett Config Adatok Nem lettek Pufferbe töltve!");
  Log(":  Config Szerkesztése Vége!");
  ConfEdit.Unload();
}

}  // namespace

void AttachConfigEditor() {
  Form1.ConfRészlEdit.Click = OpenConfigEditor;
  ConfEdit.OnLoad = Opened;
  for (int byte = 1; byte <= Bytes; ++byte) {
    GridOf(byte).Click = [] { CommitCellEdit(ConfEdit.Text1, Commit); };
    GridOf(byte).CellDblClick = [byte](int row, int column) { CellDoubleClicked(byte, row, column); };
  }
  AttachCellEdit(ConfEdit.Text1, Commit);
  ConfEdit.BetPufferbe.Click = Accept;
  ConfEdit.Mégse.Click = Cancel;
}

}  // namespace zelvo::ui
