// The configuration editor at work: its opening, its grids, the edit box and what is refused.
#include "config_desk.h"
#include "panel/form1.h"
#include "watched_dialogs.h"

namespace zelvo::test {
namespace {

using image::ConfigBitStrings;
using panel::ConfEdit;

TEST_F(ConfigEditor, OpeningLogsThenShowsTheWindowAndMovesNoLine) {
  const std::string line = "L List1 " + Line(":  Config Bájtok Szerkesztése.");
  EXPECT_TRUE(SameLog({line, "+ ConfEdit"}, session.WireOf("click ConfRészlEdit")));
}

TEST_F(ConfigEditor, OpeningAgainUnloadsTheOldWindowFirst) {
  session.Do("click ConfRészlEdit");
  const std::string line = "L List1 " + Line(":  Config Bájtok Szerkesztése.");
  EXPECT_TRUE(SameLog({"- ConfEdit", line, "+ ConfEdit"}, session.WireOf("click ConfRészlEdit")));
}

TEST_F(ConfigEditor, OpeningAgainDropsWhatWasEditedAndWhatStoodInTheBox) {
  Open("PIC18F452", AllZeros);
  Edit(2, 3, "1");
  DblClick(2, 1, 6);
  session.Do({"type ConfEdit.Text1 1", "key ConfEdit.Text1 Escape", "click ConfRészlEdit"});
  EXPECT_EQ(State(2, 3), "0");
  EXPECT_EQ(Bit(2, 3), "0");
  EXPECT_EQ(BoxText(), "");
  EXPECT_FALSE(BoxShown());
  Click(2, 1, 6);
  EXPECT_EQ(State(2, 6), "0");
}

TEST_F(ConfigEditor, OpensWithoutAChipAndAsksNothing) {
  session.Do({"tab 1", "tab 2", "messages"});
  ASSERT_EQ(session.Ask("var FlashWordMax"), "0");
  session.Do("click ConfRészlEdit");
  EXPECT_TRUE(ConfEdit.Loaded());
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(ConfigEditor, StandsOnTopAndLeavesTheMainWindowUsable) {
  session.Do("click ConfRészlEdit");
  EXPECT_TRUE(ConfEdit.OnTop);
  EXPECT_EQ(session.Look("windows").back(), "ConfEdit");
  session.Do({"tick Check1", "choose Combo1 PIC18F242"});
  EXPECT_EQ(session.Ask("var FlashWordMax"), "8191");
  EXPECT_TRUE(ConfEdit.Loaded());
}

TEST_F(ConfigEditor, BearsItsCaptionsAndALabelAboveEveryGrid) {
  session.Do("click ConfRészlEdit");
  EXPECT_EQ(session.Ask("get ConfRészlEdit"), " Config Részletek, Szerkesztés");
  EXPECT_EQ(ConfEdit.Caption, "Configurációs bájtok szerkesztése");
  EXPECT_EQ(session.Ask("get ConfEdit.BetPufferbe"), "Config Módosítások Pufferbe töltése");
  EXPECT_EQ(session.Ask("get ConfEdit.Mégse"), "Mégse");
  for (int byte = 1; byte <= 14; ++byte) {
    EXPECT_EQ(session.Ask("get ConfEdit.Label" + std::to_string(byte)),
              std::string("Config") + Bytes[byte - 1]);
  }
  EXPECT_EQ(session.Ask("visible ConfEdit.Text1"), "0");
}

TEST_F(ConfigEditor, BuildsFourteenGridsOfTwoRowsAndNineCentredColumns) {
  OpenUnfilled();
  for (int byte = 1; byte <= 14; ++byte) {
    SCOPED_TRACE(GridName(byte));
    ASSERT_EQ(session.Ask("rows " + GridName(byte)), "2");
    const panel::Grid& grid = ConfEdit.Grids.at(static_cast<std::size_t>(byte - 1));
    ASSERT_EQ(grid.Cols(), 9);
    EXPECT_EQ(grid.ToolTip.Get(), "Dupla Kattintás -> Szerkesztés");
    EXPECT_EQ(grid.RowHeight(0), 275);
    EXPECT_EQ(grid.RowHeight(1), 275);
    for (int col = 0; col <= 8; ++col) {
      EXPECT_EQ(grid.ColWidth(col), col == 0 ? 690 : 660);
      EXPECT_EQ(grid.ColAlignment(col), 5);
    }
    EXPECT_EQ(grid.Text(0, 0), "Funkció");
    EXPECT_EQ(grid.Text(1, 0), " Állapot");
  }
}

TEST_F(ConfigEditor, OfANameInNoGroupShowsEmptyGridsWithoutAMessage) {
  Open("PIC18F452", AllOnes);
  Choose(NoSuchChip);
  const std::string line = "L List1 " + Line(":  Config Bájtok Szerkesztése.");
  EXPECT_TRUE(SameLog({"- ConfEdit", line, "+ ConfEdit"}, session.WireOf("click ConfRészlEdit")));
  EXPECT_TRUE(session.Look("messages").empty());
  for (const panel::Grid& grid : ConfEdit.Grids) {
    for (int col = 1; col <= 8; ++col) EXPECT_EQ(grid.Text(0, col) + grid.Text(1, col), "");
  }
}

TEST_F(ConfigEditor, TakesTheNamesOfTheTextInTheComboBox) {
  Choose(NoSuchChip);
  Choose("PIC18F4550");
  session.Do({"tab 1", "choose Combo2 PIC16F84A", "tab 2", "click ConfRészlEdit"});
  EXPECT_EQ(session.Ask("cell ConfEdit.Conf1L 0 3"), "USBdiv");
}

TEST_F(ConfigEditor, ShowsWhatTheImageHoldsAtItsOpening) {
  // CONFIG1H, CONFIG2L: 00100011, 00001010; low bytes of the others as the choice of the chip left them.
  session.Folder().Write("image.hex", ":020000040030CA\r\n:02000100230AD0\r\n:00000001FF\r\n");
  session.Do({"file " + session.Folder().File("image.hex"), "click FájlBetölt", "click ConfRészlEdit"});
  const auto shown = [](int byte) {
    std::string states;
    for (int column = 1; column <= 8; ++column) states += State(byte, column);
    return states;
  };
  EXPECT_EQ(shown(2), "00100011");
  EXPECT_EQ(shown(3), "00001010");
}

TEST_F(ConfigEditor, ADoubleClickLaysTheBoxOverTheCellWithItsState) {
  // With nothing filled ever, no bit is known as unavailable: all fourteen grids can be tried.
  OpenUnfilled();
  for (int byte = 1; byte <= 14; ++byte) {
    for (int column = 1; column <= 8; ++column) {
      SCOPED_TRACE(GridName(byte) + " " + std::to_string(column));
      panel::Grid& grid = ConfEdit.Grids.at(static_cast<std::size_t>(byte - 1));
      const std::string digit = column % 2 == 0 ? "1" : "0";
      grid.SetText(1, column, digit);
      const unsigned focus = ConfEdit.Text1.FocusRequests;
      DblClick(byte, 1, column);
      ASSERT_EQ(ConfEdit.Text1.Over.Get(), (panel::CellPlace{&grid, 1, column}));
      ASSERT_TRUE(BoxShown());
      ASSERT_EQ(ConfEdit.Text1.FocusRequests, focus + 1);
      ASSERT_EQ(BoxText(), digit);
      ASSERT_EQ(ConfEdit.CurrentGrid, byte);
      ASSERT_EQ(ConfEdit.CurrentCol, column);
      ASSERT_EQ(ConfEdit.CurrentRow, 1);
      TypeAndEnter("1");
      ASSERT_EQ(grid.Text(1, column), "     1");
      ASSERT_EQ(Bit(byte, column), "1");
    }
  }
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(ConfigEditor, ThePresentStateIsTheBoxesFirstTextHoweverTheCellShowsIt) {
  OpenUnfilled();
  panel::Grid& grid = ConfEdit.Grids[0];
  const std::pair<const char*, const char*> cells[] = {
      {"0", "0"}, {"1", "1"}, {"     0", "0"}, {"     1", "1"}, {"", "0"}, {"X", "0"},
  };
  for (const auto& [cell, text] : cells) {
    grid.SetText(1, 4, cell);
    ConfEdit.Text1.Text = "old";
    DblClick(1, 1, 4);
    EXPECT_EQ(BoxText(), text) << '\'' << cell << '\'';
  }
  grid.SetText(1, 4, "7");
  ConfEdit.Text1.Text = "old";
  DblClick(1, 1, 4);
  EXPECT_EQ(BoxText(), "old") << "a cell of any other value leaves the box as it stood";
}

TEST_F(ConfigEditor, ADoubleClickOnAHeadingDoesNothing) {
  Open("PIC18F452", AllOnes);
  for (const auto& [row, column] : {std::pair{0, 0}, {0, 3}, {0, 1}, {1, 0}}) {
    session.BeginWire();
    DblClick(2, row, column);
    EXPECT_TRUE(session.EndWire().empty());
    EXPECT_FALSE(BoxShown());
    EXPECT_EQ(ConfEdit.CurrentGrid, 0);
  }
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(ConfigEditor, ADoubleClickOnABitThatIsNotUsedOnlyTellsSo) {
  Open("PIC18F452", AllOnes);
  DblClick(2, 1, 3);
  session.Do("key ConfEdit.Text1 Escape");
  DblClick(8, 1, 5);
  EXPECT_EQ(session.Look("messages"), Lines{NotUsed});
  EXPECT_FALSE(BoxShown());
  EXPECT_EQ(ConfEdit.CurrentGrid, 2) << "the cell under edit stays";
  EXPECT_EQ(ConfEdit.CurrentCol, 3);
  EXPECT_EQ(State(8, 5), "0");
  EXPECT_EQ(Bit(8, 5), "F");
}

TEST_F(ConfigEditor, TheWindowComesDownForTheTimeOfAMessageOnly) {
  WatchedDialogs dialogs;
  int seen = 0;
  dialogs.InMessage = [&](const std::string&) {
    ++seen;
    EXPECT_FALSE(ConfEdit.OnTop);
  };
  Open("PIC18F452", AllOnes);
  DblClick(1, 1, 1);
  EXPECT_TRUE(ConfEdit.OnTop);
  Edit(2, 3, "2");
  EXPECT_TRUE(ConfEdit.OnTop);
  EXPECT_EQ(seen, 2);
}

TEST_F(ConfigEditor, EnterCommitsHidesAndEmptiesTheBox) {
  Open("PIC18F452", AllZeros);
  DblClick(2, 1, 3);
  TypeAndEnter("1");
  EXPECT_EQ(State(2, 3), "     1") << "five blanks and the digit";
  EXPECT_EQ(Bit(2, 3), "1");
  EXPECT_EQ(ConfEdit.CellInput[2][3], "1");
  EXPECT_EQ(BoxText(), "");
  EXPECT_FALSE(BoxShown());
  EXPECT_EQ(ConfigBitStrings[2], AllZeros) << "the image waits for the accept";
  Edit(2, 3, "0");
  EXPECT_EQ(State(2, 3), "     0");
  EXPECT_EQ(Bit(2, 3), "0");
}

TEST_F(ConfigEditor, EnterWithTheFirstTextWritesTheStateBackAndTogglesNothing) {
  Open("PIC18F452", AllOnes);
  DblClick(2, 1, 3);
  session.Do("key ConfEdit.Text1 Enter");
  EXPECT_EQ(State(2, 3), "     1");
  EXPECT_EQ(Bit(2, 3), "1");
}

TEST_F(ConfigEditor, EnterInAnEmptyBoxOnlyHidesIt) {
  Open("PIC18F452", AllOnes);
  DblClick(2, 1, 3);
  session.Do({"type ConfEdit.Text1", "key ConfEdit.Text1 Enter"});
  EXPECT_FALSE(BoxShown());
  EXPECT_EQ(State(2, 3), "1");
  EXPECT_EQ(ConfEdit.CellInput[2][3], "");
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(ConfigEditor, OnlyASingleOneOrZeroPasses) {
  Open("PIC18F452", AllOnes);
  for (const char* text : {"01", "2", "10", "00", "11", "-0", "+1", "x", "O", "l", "1.", "F", "é"}) {
    Edit(2, 3, text);
    EXPECT_EQ(session.Look("messages"), Lines{OnlyOneOrZero}) << text;
    EXPECT_EQ(State(2, 3), "     1") << text;
    EXPECT_EQ(Bit(2, 3), "1") << text;
    EXPECT_EQ(ConfEdit.CellInput[2][3], text);
    EXPECT_EQ(BoxText(), "");
    EXPECT_FALSE(BoxShown());
  }
  for (const char* text : {" 1", "1 ", "     0"}) {  // the script cannot type blanks
    DblClick(2, 1, 3);
    ConfEdit.Text1.Text = text;
    session.Do("key ConfEdit.Text1 Enter");
    EXPECT_EQ(session.Look("messages"), Lines{OnlyOneOrZero}) << '\'' << text << '\'';
  }
}

TEST_F(ConfigEditor, EscapeHidesTheBoxAndLeavesItsText) {
  Open("PIC18F452", AllOnes);
  DblClick(2, 1, 3);
  session.Do({"type ConfEdit.Text1 0", "key ConfEdit.Text1 Escape"});
  EXPECT_FALSE(BoxShown());
  EXPECT_EQ(BoxText(), "0");
  EXPECT_EQ(State(2, 3), "1");
  EXPECT_EQ(Bit(2, 3), "1");
}

TEST_F(ConfigEditor, TextLeftByEscapeGoesToItsOwnCellAtTheNextClickOnAnyGrid) {
  for (int clicked = 1; clicked <= 14; ++clicked) {
    SCOPED_TRACE(GridName(clicked));
    Open("PIC18F452", AllOnes);
    DblClick(11, 1, 6);
    session.Do({"type ConfEdit.Text1 0", "key ConfEdit.Text1 Escape"});
    const std::string before = State(clicked, 2);
    Click(clicked, 1, 2);
    EXPECT_EQ(State(11, 6), "     0");
    EXPECT_EQ(Bit(11, 6), "0");
    EXPECT_EQ(State(clicked, 2), before);
    EXPECT_EQ(BoxText(), "");
    Click(clicked, 1, 2);
    EXPECT_EQ(State(11, 6), "     0") << "once";
  }
}

TEST_F(ConfigEditor, AClickOnAHeadingCommitsToo) {
  Open("PIC18F452", AllOnes);
  DblClick(11, 1, 6);
  session.Do("type ConfEdit.Text1 0");
  Click(3, 0, 0);
  EXPECT_EQ(State(11, 6), "     0");
  EXPECT_FALSE(BoxShown()) << "the box hides with its commit";
}

TEST_F(ConfigEditor, TextLeftByEscapeIsJudgedAsAnyOther) {
  Open("PIC18F452", AllOnes);
  DblClick(11, 1, 6);
  session.Do({"type ConfEdit.Text1 5", "key ConfEdit.Text1 Escape"});
  EXPECT_TRUE(session.Look("messages").empty());
  Click(2, 1, 3);
  EXPECT_EQ(session.Look("messages"), Lines{OnlyOneOrZero});
  EXPECT_EQ(State(11, 6), "     1");
  EXPECT_EQ(State(2, 3), "1");
}

TEST_F(ConfigEditor, AClickWithAnEmptyBoxDoesNothing) {
  Open("PIC18F452", AllOnes);
  Click(2, 1, 3);
  EXPECT_EQ(State(2, 3), "1");
  EXPECT_FALSE(BoxShown());
  EXPECT_TRUE(session.Look("messages").empty());
}

}  // namespace
}  // namespace zelvo::test
