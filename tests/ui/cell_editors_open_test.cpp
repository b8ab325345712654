// Editors of single cells that stay open while other things happen: both of them at once, another cell,
// another chip, another page.
#include "cell_desk.h"

namespace zelvo::test {
namespace {

using panel::EEPROM_Edit;
using panel::Flash_Edit;

TEST_F(CellDesk, BothEditorsCanBeOpenAndEachWritesItsOwnCell) {
  Choose(Pic18Flash);
  DblClick(Pic18Flash, 3, 4);
  DblClick(Pic18Eeprom, 5, 6);
  EXPECT_EQ(session.Ask("var EditRow"), "5");
  EXPECT_EQ(session.Ask("var EditCol"), "6");
  Edit(Pic18Flash, HexColumn, "00F1");
  Edit(Pic18Eeprom, HexColumn, "E2");
  Press(Pic18Flash, "OK");
  EXPECT_TRUE(EEPROM_Edit.Loaded());
  Press(Pic18Eeprom, "OK");
  EXPECT_EQ(Held(Pic18Flash, 3, 4), "00F1");
  EXPECT_EQ(Shown(Pic18Flash, 3, 4), "00F1");
  EXPECT_EQ(Held(Pic18Eeprom, 5, 6), "E2");
  EXPECT_EQ(Shown(Pic18Eeprom, 5, 6), "E2");
  EXPECT_EQ(Held(Pic18Flash, 5, 6), "FFFF");
  EXPECT_EQ(Held(Pic18Eeprom, 3, 4), "FF");
}

TEST_F(CellDesk, ASecondDoubleClickShowsTheOtherCellAfresh) {
  Open(Pic18Flash, 3, 4, "1111");
  Buffer(Pic18Flash, 7, 8) = "2222";
  Edit(Pic18Flash, HexColumn, "3333");
  Click(Pic18Flash, HexColumn);
  EXPECT_TRUE(SameLog({"- Flash_Edit", "+ Flash_Edit"}, session.WireOf("dblclick MSFlexGrid1 7 8")));
  EXPECT_EQ(Values(Pic18Flash)[0], "2222");
  EXPECT_FALSE(BoxShown(Pic18Flash));
  Edit(Pic18Flash, HexColumn, "4444");
  Press(Pic18Flash, "OK");
  EXPECT_EQ(Held(Pic18Flash, 3, 4), "1111");
  EXPECT_EQ(Held(Pic18Flash, 7, 8), "4444");
}

TEST_F(CellDesk, AHeadingLeavesAnOpenEditorWithItsCell) {
  Open(Pic18Flash, 3, 4, "1111");
  DblClick(Pic18Flash, 0, 2);
  DblClick(Pic18Flash, 9, 0);
  ASSERT_TRUE(Flash_Edit.Loaded());
  Edit(Pic18Flash, HexColumn, "4444");
  Press(Pic18Flash, "OK");
  EXPECT_EQ(Held(Pic18Flash, 3, 4), "4444");
  EXPECT_EQ(Shown(Pic18Flash, 3, 4), "4444");
}

TEST_F(CellDesk, AChipChosenMeanwhileKeepsTheEditorAtItsCell) {
  Open(Pic18Flash, 9, 4, "1111");
  session.Do("choose Combo1 PIC18F242");
  Edit(Pic18Flash, HexColumn, "4444");
  Press(Pic18Flash, "OK");
  EXPECT_EQ(Held(Pic18Flash, 9, 4), "4444");
  EXPECT_EQ(Shown(Pic18Flash, 9, 4), "4444");
}

TEST_F(CellDesk, ACellThatASmallerChipDoesNotHaveGoesToTheBufferOnly) {
  session.Do({"tab 2", "choose Combo1 PIC18F452"});
  DblClick(Pic18Flash, 2048, 8);
  Edit(Pic18Flash, HexColumn, "4444");
  session.Do("choose Combo1 PIC18F1220");
  ASSERT_EQ(session.Ask("rows MSFlexGrid1"), "257");
  Press(Pic18Flash, "OK");
  EXPECT_EQ(Held(Pic18Flash, 2048, 8), "4444");
  EXPECT_FALSE(Flash_Edit.Loaded());
}

TEST_F(CellDesk, ATabClickedMeanwhileKeepsTheRangeOfTheOpeningAndTakesNothingOver) {
  Open(MidFlash, 2, 3, "0000");
  Choose(Pic18Flash);
  const std::string other = Shown(Pic18Flash, 2, 3);
  Edit(MidFlash, HexColumn, "4000");
  EXPECT_EQ(session.Look("messages"), Lines{"ok ok Helyes Tartomány: 0 és 3FFF között."});
  EXPECT_EQ(Flash_Edit.EditLimit, 16383);
  const std::string held = Held(Pic18Flash, 2, 3);
  Type(MidFlash, "2BCD");
  Press(MidFlash, "OK");
  EXPECT_EQ(session.Look("messages"), Lines{"ok ok Nincs PIC kiválasztva!"});
  EXPECT_FALSE(Flash_Edit.Loaded());
  EXPECT_EQ(Shown(MidFlash, 2, 3), "3FFF");
  EXPECT_EQ(Shown(Pic18Flash, 2, 3), other);
  EXPECT_EQ(Held(Pic18Flash, 2, 3), held) << "both pages stand on the one buffer";
}

}  // namespace
}  // namespace zelvo::test
