// The editors of single cells: what opens them, what they show, and how a value comes into the image.
#include "cell_desk.h"

namespace zelvo::test {
namespace {

using panel::Flash_Edit;

constexpr const char* NoChip = "ok ok Nincs PIC kiválasztva!";

TEST_F(CellDesk, ADoubleClickOnACellOpensTheEditorOfItsMemoryAndNothingElseHappens) {
  for (const MainGrid& grid : MainGrids) {
    SCOPED_TRACE(grid.name);
    Choose(grid);
    const std::string opened = "+ " + grid.window->Name();
    EXPECT_TRUE(SameLog({opened}, session.WireOf(std::string("dblclick ") + grid.name + " 3 7")));
    EXPECT_EQ(session.Ask("var EditRow"), "3");
    EXPECT_EQ(session.Ask("var EditCol"), "7");
    EXPECT_EQ(session.Look("windows").back(), grid.window->Name());
    EXPECT_FALSE(BoxShown(grid));
    EXPECT_TRUE(session.Look("messages").empty());
    Press(grid, "Mégse");
  }
}

TEST_F(CellDesk, ADoubleClickOnAHeadingOpensNothing) {
  for (const MainGrid& grid : MainGrids) {
    SCOPED_TRACE(grid.name);
    Choose(grid);
    for (const auto& [row, col] : {std::pair{0, 0}, {0, 1}, {0, 8}, {1, 0}, {8, 0}}) {
      const std::string click = std::string("dblclick ") + grid.name + ' ' + Place(row, col);
      EXPECT_TRUE(session.WireOf(click).empty()) << click;
      EXPECT_FALSE(grid.window->Loaded()) << click;
      EXPECT_EQ(session.Ask("var EditRow"), std::to_string(row));
      EXPECT_EQ(session.Ask("var EditCol"), std::to_string(col));
    }
    EXPECT_TRUE(session.Look("messages").empty());
  }
}

TEST_F(CellDesk, WithoutAChipADoubleClickOnlyTellsSo) {
  for (const MainGrid& grid : MainGrids) {
    SCOPED_TRACE(grid.name);
    Choose(grid);
    session.Do(grid.page);  // a click on a tab drops the choice, the grid stays filled
    for (const auto& [row, col] : {std::pair{2, 5}, {0, 1}}) {
      image::EditRow = image::EditCol = 77;
      DblClick(grid, row, col);
      EXPECT_EQ(session.Look("messages"), Lines{NoChip});
      EXPECT_FALSE(grid.window->Loaded());
      EXPECT_EQ(session.Ask("var EditRow"), "77");
      EXPECT_EQ(session.Ask("var EditCol"), "77");
    }
  }
}

TEST_F(CellDesk, ALabelTellsTheCellsAddressInHexadecimalAndDecimal) {
  const struct {
    const MainGrid& grid;
    const char* choose;
    int row, col;
    const char* label;
  } cells[] = {
      {Pic18Flash, "choose Combo1 PIC18F4620", 1, 1, "Hex: 0000   Dec: 0"},
      {Pic18Flash, "choose Combo1 PIC18F4620", 2, 3, "Hex: 000A   Dec: 10"},
      {Pic18Flash, "choose Combo1 PIC18F4620", 4096, 8, "Hex: 7FFF   Dec: 32767"},
      {Pic18Eeprom, "choose Combo1 PIC18F4620", 1, 8, "Hex: 07   Dec: 7"},
      {Pic18Eeprom, "choose Combo1 PIC18F4620", 32, 8, "Hex: FF   Dec: 255"},
      {Pic18Eeprom, "choose Combo1 PIC18F4620", 128, 8, "Hex: 3FF   Dec: 1023"},
      {MidFlash, "choose Combo2 PIC16F84A", 128, 8, "Hex: 03FF   Dec: 1023"},
      {MidEeprom, "choose Combo2 PIC16F84A", 8, 1, "Hex: 38   Dec: 56"},
  };
  for (const auto& cell : cells) {
    session.Do({cell.grid.page, cell.choose});
    DblClick(cell.grid, cell.row, cell.col);
    EXPECT_EQ(session.Ask("get " + Name(cell.grid, "Label1")), cell.label);
  }
}

TEST_F(CellDesk, TheGridHasOneRowOfValuesUnderThreeHeadings) {
  for (const MainGrid& grid : MainGrids) {
    Open(grid, 2, 2, grid.eeprom ? "A5" : "3FFF");
    EXPECT_EQ(session.Ask("rows " + Name(grid, "MSFlexGrid1")), "2");
    const panel::Grid& cells = grid.window->MSFlexGrid1;
    ASSERT_EQ(cells.Cols(), 4);
    EXPECT_EQ(cells.Text(0, HexColumn), "HEX");
    EXPECT_EQ(cells.Text(0, DecimalColumn), "DEC");
    EXPECT_EQ(cells.Text(0, BinaryColumn), "BIN");
    EXPECT_EQ(session.Ask("get " + Name(grid, "OK")), "OK");
    EXPECT_EQ(session.Ask("get " + Name(grid, "Mégse")), "Mégse");
  }
}

TEST_F(CellDesk, OpensWithTheValueOfTheBufferInAllThreeColumns) {
  Open(Pic18Flash, 5, 4, "8001");
  EXPECT_EQ(Values(Pic18Flash), (Lines{"8001", "32769", "1000 0000 0000 0001"}));
  Open(Pic18Flash, 5, 5, "FFFF");
  EXPECT_EQ(Values(Pic18Flash), (Lines{"FFFF", "65535", "1111 1111 1111 1111"}));
  Open(MidFlash, 1, 1, "0C3A");
  EXPECT_EQ(Values(MidFlash), (Lines{"0C3A", "3130", "0000 1100 0011 1010"}));
  Open(Pic18Eeprom, 32, 8, "A5");
  EXPECT_EQ(Values(Pic18Eeprom), (Lines{"A5", "165", "1010 0101"}));
  Open(MidEeprom, 1, 2, "00");
  EXPECT_EQ(Values(MidEeprom), (Lines{"00", "0", "0000 0000"}));
}

TEST_F(CellDesk, TheHighestValueIsThatOfThePageAndOfTheMemory) {
  const std::pair<const MainGrid&, int> limits[] = {
      {Pic18Flash, 65535}, {MidFlash, 16383}, {Pic18Eeprom, 255}, {MidEeprom, 255}};
  for (const auto& [grid, limit] : limits) {
    Choose(grid);
    DblClick(grid, 1, 1);
    EXPECT_EQ(grid.window->EditLimit, limit) << grid.name;
  }
}

TEST_F(CellDesk, AClickLaysTheBoxOverTheCellWithItsText) {
  for (const MainGrid& grid : MainGrids) {
    Open(grid, 2, 2, grid.eeprom ? "A5" : "1234");
    const Lines values = Values(grid);
    for (const int col : {HexColumn, DecimalColumn, BinaryColumn}) {
      SCOPED_TRACE(grid.window->Name() + ' ' + std::to_string(col));
      const unsigned focus = grid.window->Text1.FocusRequests;
      Click(grid, col);
      EXPECT_EQ(grid.window->Text1.Over.Get(), (panel::CellPlace{&grid.window->MSFlexGrid1, 1, col}));
      EXPECT_TRUE(BoxShown(grid));
      EXPECT_EQ(grid.window->Text1.FocusRequests, focus + 1);
      EXPECT_EQ(BoxText(grid), values[static_cast<std::size_t>(col - 1)]);
      EXPECT_EQ(grid.window->EditStartText, BoxText(grid));
      EXPECT_EQ(grid.window->EditCellRow, 1);
      EXPECT_EQ(grid.window->EditCellCol, col);
    }
    EXPECT_EQ(Values(grid), values);
  }
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(CellDesk, AClickOnAHeadingOfTheEditorOpensNoBox) {
  Open(Pic18Flash, 2, 2, "1234");
  for (const auto& [row, col] : {std::pair{0, 0}, {0, HexColumn}, {0, BinaryColumn}, {1, 0}}) {
    ClickCell(Pic18Flash, row, col);
    EXPECT_FALSE(BoxShown(Pic18Flash)) << row << ' ' << col;
  }
}

TEST_F(CellDesk, AnyColumnKeepsTheOthersInStep) {
  const struct {
    const MainGrid& grid;
    int col;
    const char* text;
    Lines values;
  } edits[] = {
      {Pic18Flash, HexColumn, "1F", {"001F", "31", "0000 0000 0001 1111"}},
      {Pic18Flash, HexColumn, "FFFF", {"FFFF", "65535", "1111 1111 1111 1111"}},
      {Pic18Flash, DecimalColumn, "10", {"000A", "10", "0000 0000 0000 1010"}},
      {Pic18Flash, DecimalColumn, "65535", {"FFFF", "65535", "1111 1111 1111 1111"}},
      {Pic18Flash, DecimalColumn, "007", {"0007", "7", "0000 0000 0000 0111"}},
      {Pic18Flash, BinaryColumn, "1 0", {"0002", "2", "0000 0000 0000 0010"}},
      {Pic18Flash, BinaryColumn, "1000000000000000", {"8000", "32768", "1000 0000 0000 0000"}},
      {MidFlash, HexColumn, "3FFF", {"3FFF", "16383", "0011 1111 1111 1111"}},
      {MidFlash, HexColumn, "", {"0000", "0", "0000 0000 0000 0000"}},
      {MidFlash, DecimalColumn, "16383", {"3FFF", "16383", "0011 1111 1111 1111"}},
      {MidFlash, BinaryColumn, "11 1111 1111 1111", {"3FFF", "16383", "0011 1111 1111 1111"}},
      {Pic18Eeprom, HexColumn, "5", {"05", "5", "0000 0101"}},
      {Pic18Eeprom, DecimalColumn, "255", {"FF", "255", "1111 1111"}},
      {Pic18Eeprom, DecimalColumn, "0", {"00", "0", "0000 0000"}},
      {Pic18Eeprom, BinaryColumn, "1111 1111", {"FF", "255", "1111 1111"}},
      {MidEeprom, HexColumn, "C3", {"C3", "195", "1100 0011"}},
      {MidEeprom, DecimalColumn, "9", {"09", "9", "0000 1001"}},
      {MidEeprom, BinaryColumn, "1", {"01", "1", "0000 0001"}},
  };
  for (const auto& edit : edits) {
    SCOPED_TRACE(std::string(edit.grid.name) + ' ' + edit.text);
    Open(edit.grid, 3, 3, edit.grid.eeprom ? "77" : "1234");
    Edit(edit.grid, edit.col, edit.text);
    EXPECT_EQ(Values(edit.grid), edit.values);
    EXPECT_FALSE(BoxShown(edit.grid));
    EXPECT_EQ(Held(edit.grid, 3, 3), edit.grid.eeprom ? "77" : "1234") << "the image waits for OK";
  }
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(CellDesk, OkWritesTheDigitsToTheBufferAndTheGridAndClosesTheWindow) {
  for (const MainGrid& grid : MainGrids) {
    SCOPED_TRACE(grid.name);
    Choose(grid);
    const std::string before = Shown(grid, 4, 6);
    DblClick(grid, 4, 5);
    Edit(grid, DecimalColumn, "171");
    const std::string digits = grid.eeprom ? "AB" : "00AB";
    const std::string closed = "- " + grid.window->Name();
    EXPECT_TRUE(SameLog({closed}, session.WireOf("click " + Name(grid, "OK"))));
    EXPECT_EQ(Held(grid, 4, 5), digits);
    EXPECT_EQ(Shown(grid, 4, 5), digits);
    EXPECT_FALSE(grid.window->Loaded());
    EXPECT_EQ(Shown(grid, 4, 6), before);
    EXPECT_EQ(Shown(grid, 5, 4), before) << "rows and columns are not mixed up";
    EXPECT_NE(Held(grid, 5, 4), digits);
  }
}

TEST_F(CellDesk, OkWithoutAnEditWritesTheValueBack) {
  Open(Pic18Flash, 2, 2, "1234");
  Press(Pic18Flash, "OK");
  EXPECT_EQ(Held(Pic18Flash, 2, 2), "1234");
  EXPECT_EQ(Shown(Pic18Flash, 2, 2), "1234");
}

TEST_F(CellDesk, OkTakesTheTextOfAnOpenBoxFirst) {
  for (const MainGrid& grid : MainGrids) {
    SCOPED_TRACE(grid.name);
    Open(grid, 2, 2, grid.eeprom ? "77" : "1234");
    Click(grid, BinaryColumn);
    Type(grid, "101");
    Press(grid, "OK");
    EXPECT_EQ(Held(grid, 2, 2), grid.eeprom ? "05" : "0005");
    EXPECT_FALSE(grid.window->Loaded());
  }
}

TEST_F(CellDesk, CancelAndTheFrameCloseWithoutAChange) {
  for (const MainGrid& grid : MainGrids) {
    SCOPED_TRACE(grid.name);
    for (const bool byFrame : {false, true}) {
      Open(grid, 2, 2, grid.eeprom ? "77" : "1234");
      const std::string shown = Shown(grid, 2, 2);
      Edit(grid, HexColumn, "11");
      Click(grid, DecimalColumn);
      Type(grid, "nonsense");
      const std::string command = byFrame ? "close " + grid.window->Name() : "click " + Name(grid, "Mégse");
      EXPECT_TRUE(SameLog({"- " + grid.window->Name()}, session.WireOf(command)));
      EXPECT_EQ(Held(grid, 2, 2), grid.eeprom ? "77" : "1234");
      EXPECT_EQ(Shown(grid, 2, 2), shown);
    }
  }
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(CellDesk, LeavingTheBoxIsEnter) {
  Open(Pic18Eeprom, 2, 2, "77");
  Click(Pic18Eeprom, HexColumn);
  Type(Pic18Eeprom, "A");
  session.Do("leave EEPROM_Edit.Text1");
  EXPECT_EQ(Values(Pic18Eeprom), (Lines{"0A", "10", "0000 1010"}));
  EXPECT_FALSE(BoxShown(Pic18Eeprom));
  EXPECT_EQ(session.Refused("leave EEPROM_Edit.Text1"), "hidden");
}

TEST_F(CellDesk, AClickOnAnotherCellTakesTheOpenTextFirst) {
  Open(Pic18Flash, 2, 2, "1234");
  Click(Pic18Flash, HexColumn);
  Type(Pic18Flash, "2A");
  Click(Pic18Flash, DecimalColumn);
  EXPECT_EQ(Values(Pic18Flash), (Lines{"002A", "42", "0000 0000 0010 1010"}));
  EXPECT_TRUE(BoxShown(Pic18Flash));
  EXPECT_EQ(BoxText(Pic18Flash), "42");
  EXPECT_EQ(Flash_Edit.EditCellCol, DecimalColumn);
  Type(Pic18Flash, "43");
  ClickCell(Pic18Flash, 0, BinaryColumn);
  EXPECT_EQ(Values(Pic18Flash)[0], "002B");
  EXPECT_FALSE(BoxShown(Pic18Flash)) << "a heading takes the text and opens no box";
}

TEST_F(CellDesk, EscapeDoesNothingInTheBox) {
  Open(Pic18Flash, 2, 2, "1234");
  Click(Pic18Flash, HexColumn);
  Type(Pic18Flash, "2A");
  session.Do("key Flash_Edit.Text1 Escape");
  EXPECT_TRUE(BoxShown(Pic18Flash));
  EXPECT_EQ(BoxText(Pic18Flash), "2A");
  EXPECT_EQ(Values(Pic18Flash)[0], "1234");
  EXPECT_TRUE(Flash_Edit.Loaded());
}

}  // namespace
}  // namespace zelvo::test
