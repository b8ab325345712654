// The ID editors: their opening, their grids, and the box over a cell.
#include "id_desk.h"

namespace zelvo::test {
namespace {

using panel::IDLocEdit;
using panel::IDLocEdit_F16;

TEST_F(IdDesk, OpeningShowsTheWindowOnTopAndLogsInTheListOfItsPage) {
  for (const IdEditor* editor : BothEditors) {
    Choose(*editor);
    const std::string line = Event(*editor, ":  ID Location szerkesztése.");
    EXPECT_TRUE(SameLog({"+ " + editor->window->Name(), line}, session.WireOf(editor->opener)));
    EXPECT_TRUE(editor->window->OnTop);
    EXPECT_EQ(session.Look("windows").back(), editor->window->Name());
    EXPECT_TRUE(session.Look("messages").empty());
    Press(*editor, "Mégse");
  }
}

TEST_F(IdDesk, WithoutAChipTheButtonOnlyTellsSo) {
  for (const IdEditor* editor : BothEditors) {
    session.Do(editor->page);
    const std::string told = "M ok ok Nincs PIC kiválasztva!";
    EXPECT_TRUE(SameLog({told}, session.WireOf(editor->opener)));
    EXPECT_FALSE(editor->window->Loaded());
  }
}

TEST_F(IdDesk, LeavesTheMainWindowUsable) {
  Open(Pic18Ids);
  session.Do({"tick Check1", "choose Combo1 PIC18F242"});
  EXPECT_EQ(session.Ask("var FlashWordMax"), "8191");
  EXPECT_TRUE(IDLocEdit.Loaded());
}

TEST_F(IdDesk, CalledAgainItShowsTheBufferAfresh) {
  for (const IdEditor* editor : BothEditors) {
    Open(*editor);
    const std::string before = Cell(*editor, HexRow, 2);
    Edit(*editor, HexRow, 2, "41");
    const Lines wire = session.WireOf(editor->opener);
    ASSERT_EQ(wire.size(), 3U);
    EXPECT_EQ(wire[0], "- " + editor->window->Name());
    EXPECT_EQ(wire[1], "+ " + editor->window->Name());
    EXPECT_EQ(Cell(*editor, HexRow, 2), before);
  }
}

TEST_F(IdDesk, BearsItsCaptions) {
  for (const IdEditor* editor : BothEditors) {
    Open(*editor);
    EXPECT_EQ(editor->window->Caption, "User ID  bájtok szerkesztése");
    EXPECT_EQ(session.Ask("get " + Name(*editor, "Módosít")), "Adatok Pufferbe Töltése");
    EXPECT_EQ(session.Ask("get " + Name(*editor, "Mégse")), "Mégse");
    EXPECT_EQ(session.Ask("visible " + Name(*editor, "Text1")), "0");
  }
}

TEST_F(IdDesk, TheGridHasAColumnForEachLocationAndARowForEachView) {
  for (const IdEditor* editor : BothEditors) {
    Open(*editor);
    SCOPED_TRACE(editor->window->Name());
    EXPECT_EQ(session.Ask("rows " + Name(*editor, "MSFlexGrid1")), "4");
    const panel::Grid& grid = editor->window->MSFlexGrid1;
    ASSERT_EQ(grid.Cols(), editor->count + 1);
    EXPECT_EQ(grid.ToolTip.Get(), "Dupla kattint-> szerkeszt");
    for (int row = 0; row < 4; ++row) EXPECT_EQ(grid.RowHeight(row), 275);
    for (int col = 1; col <= editor->count; ++col) {
      EXPECT_EQ(grid.ColWidth(col), editor->columnWidth);
      EXPECT_EQ(grid.Text(0, col), " ID " + std::to_string(col));
    }
    EXPECT_EQ(grid.Text(1, 0), " Karakteres");
    EXPECT_EQ(grid.Text(2, 0), " Hexa kódos");
    EXPECT_EQ(grid.Text(3, 0), " Decimális");
    EXPECT_EQ(grid.Text(0, 0), "");
  }
  EXPECT_EQ(IDLocEdit_F16.MSFlexGrid1.ColWidth(0), 1000);
}

TEST_F(IdDesk, ShowsTheBytesOfTheImageInThreeViews) {
  Choose(Pic18Ids);
  image::IdBuffer = {"", "FF", "41", "0A", "09", "64", "80", "20", "F5"};
  session.Do("click IDMod");
  const Lines columns[] = {
      {"   ˙   ", "  FF  ", " 255  "}, {"   A   ", "  41  ", "  65  "}, {"   \n   ", "  0A  ", "  10  "},
      {"   \t   ", "  09  ", "  9  "}, {"   d   ", "  64  ", " 100  "}, {"   €   ", "  80  ", " 128  "},
      {"       ", "  20  ", "  32  "}, {"   ő   ", "  F5  ", " 245  "},
  };
  for (int col = 1; col <= 8; ++col) EXPECT_EQ(Column(Pic18Ids, col), columns[col - 1]) << col;
}

TEST_F(IdDesk, ShowsTheWordsOfTheImageInThreeViews) {
  Choose(MidIds);
  image::MidIdWords = {0, 16383, 0x4142, 300, 0x00D5};
  session.Do("click IDMod_F16");
  EXPECT_EQ(Cell(MidIds, HexRow, 1), "  3FFF  ");
  EXPECT_EQ(Cell(MidIds, DecimalRow, 1), "  16383  ");
  EXPECT_NE(Cell(MidIds, CharacterRow, 1).find("?˙"), std::string::npos);
  EXPECT_EQ(Cell(MidIds, HexRow, 2), "  4142  ");
  EXPECT_EQ(Cell(MidIds, DecimalRow, 2), "  16706  ");
  EXPECT_NE(Cell(MidIds, CharacterRow, 2).find("AB"), std::string::npos);
  EXPECT_EQ(Cell(MidIds, HexRow, 3), "  12C  ");
  EXPECT_EQ(Cell(MidIds, DecimalRow, 3), " 300  ");
  EXPECT_NE(Cell(MidIds, CharacterRow, 3).find("\x01,"), std::string::npos);
  EXPECT_EQ(Cell(MidIds, HexRow, 4), "  D5  ");
  EXPECT_NE(Cell(MidIds, CharacterRow, 4).find(std::string(1, '\0') + "Ő"), std::string::npos);
}

TEST_F(IdDesk, ShowsAWordBeyondFourteenBitsAsItStandsInTheImage) {
  Choose(MidIds);
  image::MidIdWords = {0, -1, -32768, 16384, 0};
  session.Do("click IDMod_F16");
  EXPECT_EQ(Cell(MidIds, HexRow, 1), "  FFFF  ");
  EXPECT_EQ(Cell(MidIds, DecimalRow, 1), "  65535  ");
  EXPECT_EQ(Cell(MidIds, HexRow, 2), "  8000  ");
  EXPECT_EQ(Cell(MidIds, HexRow, 3), "  4000  ");
  EXPECT_EQ(Cell(MidIds, HexRow, 4), "  0  ");
  EXPECT_EQ(Cell(MidIds, DecimalRow, 4), "  0  ");
  Press(MidIds, "Módosít");
  EXPECT_EQ(image::MidIdWords, (std::array<std::int16_t, 5>{0, -1, -32768, 16384, 0}));
}

TEST_F(IdDesk, ADoubleClickLaysTheBoxOverTheCellWithItsTextWithoutThePadding) {
  const std::pair<const IdEditor*, Lines> cells[] = {{&Pic18Ids, {"A", "41", "65"}},
                                                     {&MidIds, {"AB", "4142", "16706"}}};
  for (const auto& [editor, texts] : cells) {
    Choose(*editor);
    image::IdBuffer.fill("41");
    image::MidIdWords.fill(0x4142);
    session.Do(editor->opener);
    for (int row = 1; row <= 3; ++row) {
      for (int col = 1; col <= editor->count; ++col) {
        SCOPED_TRACE(editor->window->Name() + Place(row, col));
        const unsigned focus = editor->window->Text1.FocusRequests;
        DblClick(*editor, row, col);
        EXPECT_EQ(editor->window->Text1.Over.Get(),
                  (panel::CellPlace{&editor->window->MSFlexGrid1, row, col}));
        EXPECT_EQ(editor->window->Text1.FocusRequests, focus + 1);
        EXPECT_TRUE(BoxShown(*editor));
        EXPECT_EQ(BoxText(*editor), texts[static_cast<std::size_t>(row - 1)]);
        EXPECT_EQ(editor->window->CurrentRow, row);
        EXPECT_EQ(editor->window->CurrentCol, col);
      }
    }
  }
}

TEST_F(IdDesk, TheBoxTakesDecimalsOfEveryLengthBare) {
  for (const int value : {0, 9, 10, 99, 100, 255, 999, 1000, 9999, 10000, 16383}) {
    Choose(MidIds);
    image::MidIdWords[2] = static_cast<std::int16_t>(value);
    session.Do("click IDMod_F16");
    DblClick(MidIds, DecimalRow, 2);
    EXPECT_EQ(BoxText(MidIds), std::to_string(value));
    Press(MidIds, "Mégse");
  }
}

TEST_F(IdDesk, ABlankThatIsTheCharacterItselfIsNoPadding) {
  OpenWith(Pic18Ids, "20");
  DblClick(Pic18Ids, CharacterRow, 1);
  EXPECT_EQ(BoxText(Pic18Ids), " ");
  Key(Pic18Ids, "Enter");
  EXPECT_EQ(Column(Pic18Ids, 1), (Lines{"       ", "  20  ", "  32  "}));
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(IdDesk, ADoubleClickOnAHeadingDoesNothing) {
  for (const IdEditor* editor : BothEditors) {
    Open(*editor);
    DblClick(*editor, HexRow, 3);
    Key(*editor, "Escape");
    for (const auto& [row, col] : {std::pair{0, 0}, {0, 1}, {0, 4}, {1, 0}, {3, 0}}) {
      DblClick(*editor, row, col);
      EXPECT_FALSE(BoxShown(*editor));
      EXPECT_EQ(editor->window->CurrentRow, HexRow);
      EXPECT_EQ(editor->window->CurrentCol, 3);
    }
  }
}

TEST_F(IdDesk, EnterCommitsEmptiesAndHidesTheBox) {
  for (const IdEditor* editor : BothEditors) {
    OpenWith(*editor, "41");
    const Lines neighbour = Column(*editor, 2);
    for (const char* text : {"5A", "xyzzy"}) {
      Edit(*editor, HexRow, 1, text);
      EXPECT_EQ(editor->window->CellInput[HexRow][1], text);
      EXPECT_EQ(BoxText(*editor), "");
      EXPECT_FALSE(BoxShown(*editor));
      EXPECT_EQ(Cell(*editor, HexRow, 1), "  5A  ");
    }
    EXPECT_EQ(session.Look("messages").size(), 1u);
    EXPECT_EQ(Column(*editor, 2), neighbour);
  }
}

TEST_F(IdDesk, EnterInAnEmptyBoxOnlyHidesIt) {
  for (const IdEditor* editor : BothEditors) {
    OpenWith(*editor, "41");
    const Lines before = Column(*editor, 1);
    Edit(*editor, HexRow, 1, "");
    EXPECT_FALSE(BoxShown(*editor));
    EXPECT_EQ(Column(*editor, 1), before);
    EXPECT_EQ(editor->window->CellInput[HexRow][1], "");
  }
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(IdDesk, TextLeftByEscapeGoesToItsOwnCellAtTheNextClickOnTheGrid) {
  for (const IdEditor* editor : BothEditors) {
    for (const auto& [row, col] : {std::pair{2, 1}, {1, 4}, {0, 0}, {0, 2}, {3, 0}}) {
      SCOPED_TRACE(editor->window->Name() + Place(row, col));
      OpenWith(*editor, "41");
      DblClick(*editor, HexRow, 2);
      Type(*editor, "7");
      Key(*editor, "Escape");
      EXPECT_FALSE(BoxShown(*editor));
      EXPECT_EQ(BoxText(*editor), "7");
      const Lines untouched = Column(*editor, 1);
      EXPECT_NE(Cell(*editor, DecimalRow, 2), "  7  ");
      Click(*editor, row, col);
      EXPECT_EQ(Cell(*editor, DecimalRow, 2), "  7  ");
      EXPECT_EQ(Column(*editor, 1), untouched);
      EXPECT_EQ(BoxText(*editor), "");
      Press(*editor, "Mégse");
    }
  }
}

TEST_F(IdDesk, TextLeftByEscapeIsJudgedAsAnyOther) {
  for (const IdEditor* editor : BothEditors) {
    OpenWith(*editor, "41");
    DblClick(*editor, DecimalRow, 1);
    Type(*editor, "12.5");
    Key(*editor, "Escape");
    EXPECT_TRUE(session.Look("messages").empty());
    Click(*editor, HexRow, 3);
    EXPECT_EQ(session.Look("messages"), Lines{"ok ok A bevitel nem lehet törtszám!"});
    EXPECT_EQ(Cell(*editor, DecimalRow, 1), "  65  ");
  }
}

TEST_F(IdDesk, AClickCommitsTheTextOfAnOpenBoxToo) {
  Open(Pic18Ids);
  DblClick(Pic18Ids, CharacterRow, 5);
  Type(Pic18Ids, "Z");
  Click(Pic18Ids, HexRow, 1);
  EXPECT_EQ(Column(Pic18Ids, 5), (Lines{"   Z   ", "  5A  ", "  90  "}));
  EXPECT_FALSE(BoxShown(Pic18Ids));
  Click(Pic18Ids, HexRow, 1);
  EXPECT_FALSE(BoxShown(Pic18Ids)) << "a single click opens nothing";
}

TEST_F(IdDesk, AnewOpenedItForgetsTheTextThatWasLeft) {
  for (const IdEditor* editor : BothEditors) {
    OpenWith(*editor, "41");
    DblClick(*editor, HexRow, 1);
    Type(*editor, "7");
    Key(*editor, "Escape");
    Press(*editor, "Mégse");
    session.Do(editor->opener);
    Click(*editor, HexRow, 2);
    EXPECT_EQ(Cell(*editor, HexRow, 1), "  41  ");
    EXPECT_EQ(BoxText(*editor), "");
  }
}

}  // namespace
}  // namespace zelvo::test
