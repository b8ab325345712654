// A desk with the ID editors at hand: the one of each family, and hands for its cells and its box.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "image/buffers.h"
#include "link/event_log.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {

inline constexpr int CharacterRow = 1, HexRow = 2, DecimalRow = 3;  ///< rows of an editor's grid

/// An ID editor and the page that it belongs to.
struct IdEditor {
  panel::IdEditWindow* window;
  const char* page;
  const char* choose;  ///< a chip of that page
  const char* opener;
  const char* log;
  int count;        ///< of ID locations
  int columnWidth;  ///< twips
};
inline const IdEditor Pic18Ids{
    &panel::IDLocEdit, "tab 2", "choose Combo1 PIC18F452", "click IDMod", "List1", 8, 510};
inline const IdEditor MidIds{
    &panel::IDLocEdit_F16, "tab 1", "choose Combo2 PIC16F84A", "click IDMod_F16", "List4", 4, 720};
inline const IdEditor* const BothEditors[] = {&Pic18Ids, &MidIds};

class IdDesk : public testing::Test {
 protected:
  void SetUp() override { session.Do("start"); }
  void Choose(const IdEditor& editor) { session.Do({editor.page, editor.choose, "messages"}); }
  /// Chooses a chip of the editor's page and opens the editor.
  void Open(const IdEditor& editor) {
    Choose(editor);
    session.Do(editor.opener);
  }
  /// The same with these digits in the image's first location.
  void OpenWith(const IdEditor& editor, const std::string& digits) {
    Choose(editor);
    image::IdBuffer[1] = digits;
    image::MidIdWords[1] = static_cast<std::int16_t>(std::stoi(digits, nullptr, 16));
    session.Do(editor.opener);
  }
  static std::string Name(const IdEditor& editor, const char* control) {
    return editor.window->Name() + '.' + control;
  }
  static std::string Place(int row, int col) { return ' ' + std::to_string(row) + ' ' + std::to_string(col); }
  void DblClick(const IdEditor& editor, int row, int col) {
    session.Do("dblclick " + Name(editor, "MSFlexGrid1") + Place(row, col));
  }
  void Click(const IdEditor& editor, int row, int col) {
    session.Do("click " + Name(editor, "MSFlexGrid1") + Place(row, col));
  }
  void Type(const IdEditor& editor, const std::string& text) {
    session.Do("type " + Name(editor, "Text1") + (text.empty() ? "" : ' ' + text));
  }
  void Key(const IdEditor& editor, const char* key) {
    session.Do("key " + Name(editor, "Text1") + ' ' + key);
  }
  void Edit(const IdEditor& editor, int row, int col, const std::string& text) {
    DblClick(editor, row, col);
    Type(editor, text);
    Key(editor, "Enter");
  }
  void Press(const IdEditor& editor, const char* button) { session.Do("click " + Name(editor, button)); }
  static const std::string& Cell(const IdEditor& editor, int row, int col) {
    return editor.window->MSFlexGrid1.Text(row, col);
  }
  /// The three cells of a column, from the top.
  static Lines Column(const IdEditor& editor, int col) {
    return {Cell(editor, CharacterRow, col), Cell(editor, HexRow, col), Cell(editor, DecimalRow, col)};
  }
  static bool BoxShown(const IdEditor& editor) { return editor.window->Text1.Visible; }
  static std::string BoxText(const IdEditor& editor) { return editor.window->Text1.Text; }
  /// The log's event for the line with the number that comes next plus `ahead`.
  static std::string Event(const IdEditor& editor, const std::string& text, int ahead = 0) {
    return std::string("L ") + editor.log + ' ' + std::to_string(link::EventCounter + ahead) + ":  12:00:00" +
           text;
  }
  BenchSession session;
};

}  // namespace zelvo::test
