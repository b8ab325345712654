// `IDLocEdit` and `IDLocEdit_F16`: the ID locations as characters, in hexadecimal and in decimal at once.
// They work on their grids; the image takes them over by `Módosít`.
#include <string>

#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/views.h"
#include "link/event_log.h"
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

enum Row { Character = 1, Hex, Decimal };

/// The blanks in front of and behind the text of a cell.
struct Padding {
  std::size_t front;
  std::size_t behind;
};

std::string Padded(const std::string& text, Padding padding) {
  return std::string(padding.front, ' ') + text + std::string(padding.behind, ' ');
}

Padding DecimalPadding(std::size_t digits) {
  return {digits == 3 ? 1u : 2u, 2};
}

/// One of the two editors.
struct IdEditor {
  panel::IdEditWindow& window;
  panel::ListBox& log;
  int headingWidth;  ///< twips
  int columnWidth;   ///< twips
  Padding characters;
  Entry (*readHex)(std::string);
  Entry (*readDecimal)(std::string_view);
  std::string (*hexText)(int value);
  /// The characters that stand for a value that was typed as a number.
  std::string (*charactersOfHex)(int value);
  std::string (*charactersOfDecimal)(const std::string& text, int value);
  int (*inImage)(int n);
  void (*intoImage)(int n, const std::string& hex);

  [[nodiscard]] panel::Grid& Cells() const { return window.MSFlexGrid1; }
};

std::string TwoDigits(int value) {
  return icsp::HexPadded(static_cast<std::uint32_t>(value), 2);
}
std::string FewestDigits(int value) {
  return link::HexText(static_cast<std::uint32_t>(value));
}

std::string CharactersOfByte(int value) {
  return image::Cp1250(value);
}
std::string CharactersOfTypedByte(const std::string& /*text*/, int value) {
  return image::Cp1250(value);
}
std::string CharactersOfWord(int value) {
  return image::Cp1250(value >> 8) + image::Cp1250(value & 0xFF);
}

/// Digits 1 and 2 of the typed text are the code of the first character, digits 3 and 4 that of the second.
std::string CharactersOfTypedWord(const std::string& text, int /*value*/) {
  std::string digits;
  for (const char c : text) {
    if (c >= '0' && c <= '9') digits += c;
  }
  std::string characters;
  for (std::size_t at = 0; at < 4 && at < digits.size(); at += 2)
    characters += image::Cp1250(static_cast<int>(link::ReadWhole(digits.substr(at, 2)).value_or(0)));
  return characters;
}

int ByteInImage(int n) {
  int value = 0;
  icsp::HexPairToValue(image::IdBuffer.at(static_cast<std::size_t>(n)), value);
  return value;
}
void ByteIntoImage(int n, const std::string& hex) {
  image::IdBuffer.at(static_cast<std::size_t>(n)) = hex;
  image::ShowIdByte(n, hex);
}
int WordInImage(int n) {
  return static_cast<std::uint16_t>(image::MidIdWords.at(static_cast<std::size_t>(n)));
}
void WordIntoImage(int n, const std::string& hex) {
  image::MidIdWords.at(static_cast<std::size_t>(n)) =
      static_cast<std::int16_t>(link::ReadHex(hex).value_or(image::ErasedMidWord));
  image::ShowMidId(n);
}

const IdEditor Pic18Ids{panel::IDLocEdit,
                        Form1.List1,
                        1000,
                        510,
                        {3, 3},
                        ReadIdHex,
                        ReadIdDecimal,
                        TwoDigits,
                        CharactersOfByte,
                        CharactersOfTypedByte,
                        ByteInImage,
                        ByteIntoImage};
const IdEditor MidRangeIds{panel::IDLocEdit_F16,
                           Form1.List4,
                           1000,
                           720,
                           {2, 2},
                           ReadMidIdHex,
                           ReadMidIdDecimal,
                           FewestDigits,
                           CharactersOfWord,
                           CharactersOfTypedWord,
                           WordInImage,
                           WordIntoImage};

void ShowColumn(const IdEditor& editor, int col, const std::string& characters, int value) {
  const std::string decimal = std::to_string(value);
  editor.Cells().SetText(Character, col, Padded(characters, editor.characters));
  editor.Cells().SetText(Hex, col, Padded(editor.hexText(value), {2, 2}));
  editor.Cells().SetText(Decimal, col, Padded(decimal, DecimalPadding(decimal.size())));
}

/// The text of a cell without the blanks that it was given; a blank may be the character itself.
std::string CellText(const IdEditor& editor, int row, int col) {
  const std::string& cell = editor.Cells().Text(row, col);
  Padding padding{2, 2};
  if (row == Character) padding = editor.characters;
  if (row == Decimal) padding = DecimalPadding(cell.size() == 6 && cell[1] != ' ' ? 3 : 1);
  return cell.substr(padding.front, cell.size() - padding.front - padding.behind);
}

void BuildGrid(const IdEditor& editor) {
  panel::Grid& grid = editor.Cells();
  grid.SetRows(panel::IdEditWindow::RowCount);
  grid.ToolTip = std::string("Dupla kattint-> szerkeszt");
  for (int row = 0; row < grid.Rows(); ++row) grid.SetRowHeight(row, 275);
  grid.SetColWidth(0, editor.headingWidth);
  for (int col = 1; col < grid.Cols(); ++col) {
    grid.SetColWidth(col, editor.columnWidth);
    grid.SetText(0, col, " ID " + std::to_string(col));
  }
  grid.SetText(Character, 0, " Karakteres");
  grid.SetText(Hex, 0, " Hexa kódos");
  grid.SetText(Decimal, 0, " Decimális");
}

void Opened(const IdEditor& editor) {
  MindigFelül(editor.window);
  BuildGrid(editor);
  for (int n = 1; n < editor.Cells().Cols(); ++n) {
    const int value = editor.inImage(n);
    ShowColumn(editor, n, editor.charactersOfHex(value), value);
  }
  link::LogEvent(editor.log, ":  ID Location szerkesztése.");
}

Entry Read(const IdEditor& editor, const std::string& text) {
  switch (editor.window.CurrentRow) {
    case Character:
      return ReadIdCharacter(text);
    case Hex:
      return editor.readHex(text);
    default:
      return editor.readDecimal(text);
  }
}

std::string CharactersOf(const IdEditor& editor, const std::string& text, int value) {
  switch (editor.window.CurrentRow) {
    case Character:
      return image::Cp1250(value);
    case Hex:
      return editor.charactersOfHex(value);
    default:
      return editor.charactersOfDecimal(text, value);
  }
}

void Commit(const IdEditor& editor, const std::string& text) {
  panel::IdEditWindow& window = editor.window;
  window.CellInput.at(static_cast<std::size_t>(window.CurrentRow))
      .at(static_cast<std::size_t>(window.CurrentCol)) = text;
  const Entry entry = Read(editor, text);
  if (entry.value) {
    ShowColumn(editor, window.CurrentCol, CharactersOf(editor, text, *entry.value), *entry.value);
  } else {
    MessageOver(window, entry.refusal);
  }
}

void CellDoubleClicked(const IdEditor& editor, int row, int col) {
  if (row == 0 || col == 0) return;
  panel::IdEditWindow& window = editor.window;
  window.CurrentRow = row;
  window.CurrentCol = col;
  window.Text1.Text = CellText(editor, row, col);
  OpenCellEdit(window.Text1, editor.Cells(), row, col);
}

void Close(const IdEditor& editor, const char* outcome) {
  link::LogEvent(editor.log, outcome);
  link::LogEvent(editor.log, ":  ID Loc szerkesztés befelyezve.");
}

void Accept(const IdEditor& editor) {
  for (int n = 1; n < editor.Cells().Cols(); ++n) editor.intoImage(n, CellText(editor, Hex, n));
  Close(editor, ":  Szerkesztett ID Loc tartalom Pufferbe áttölve.");
  image::IdEdited = 1;
  editor.window.Unload();
}

void Cancel(const IdEditor& editor) {
  Close(editor, ":  Szerkesztett ID Loc tartalom Nem lett Pufferbe áttölve.");
  editor.window.Unload();
}

void Attach(const IdEditor& editor, panel::CommandButton& opener) {
  panel::IdEditWindow& window = editor.window;
  const CommitText commit = [&editor](const std::string& text) { Commit(editor, text); };
  opener.Click = [&window] {
    if (devices::ChipIsSelected()) Reopen(window);
  };
  window.OnLoad = [&editor] { Opened(editor); };
  window.MSFlexGrid1.Click = [&window, commit] { CommitCellEdit(window.Text1, commit); };
  window.MSFlexGrid1.CellDblClick = [&editor](int row, int col) { CellDoubleClicked(editor, row, col); };
  AttachCellEdit(window.Text1, commit);
  window.Módosít.Click = [&editor] { Accept(editor); };
  window.Mégse.Click = [&editor] { Cancel(editor); };
}

}  // namespace

void AttachIdEditors() {
  Attach(Pic18Ids, Form1.IDMod);
  Attach(MidRangeIds, Form1.IDMod_F16);
}

}  // namespace zelvo::ui
