// What the editors of single cells refuse: the message, and a box that stays on its cell with the old text.
#include "cell_desk.h"
#include "panel/operator.h"
#include "watched_dialogs.h"

namespace zelvo::test {
namespace {

using panel::Flash_Edit;

struct Refusal {
  const MainGrid& grid;
  int col;
  const char* text;
  const char* message;
};
const Refusal Refusals[] = {
    {Pic18Flash, HexColumn, "12G4", "Nem megfelelő formátum. 0-9, A-F,(XXXX)"},
    {Pic18Flash, HexColumn, "ffff", "Nem megfelelő formátum. 0-9, A-F,(XXXX)"},
    {Pic18Flash, HexColumn, "10000", "Helyes Tartomány: 0 és FFFF között."},
    {Pic18Flash, DecimalColumn, "x", "Nem adtál meg számot!"},
    {Pic18Flash, DecimalColumn, "", "Nem adtál meg számot!"},
    {Pic18Flash, DecimalColumn, "65536", "Helyes Tartomány: 0 és 65535 között."},
    {Pic18Flash, DecimalColumn, "-1", "Helyes Tartomány: 0 és 65535 között."},
    {Pic18Flash, BinaryColumn, "", "Nem adtál meg számot!"},
    {Pic18Flash, BinaryColumn, "1012", "A megfelelő formátum 1-ekből és 0-ákból állhat."},
    {Pic18Flash, BinaryColumn, "1 0000 0000 0000 0000", "Helyes Tartomány: 0 és 1111 1111 1111 1111 között."},
    {MidFlash, HexColumn, "1f", "Nem megfelelő formátum. 0-9, A-F,(XXXX)"},
    {MidFlash, HexColumn, "4000", "Helyes Tartomány: 0 és 3FFF között."},
    {MidFlash, HexColumn, "03FFF", "Helyes Tartomány: 0 és 3FFF között."},
    {MidFlash, DecimalColumn, "3FFF", "Nem adtál meg számot!"},
    {MidFlash, DecimalColumn, "16384", "Helyes Tartomány: 0 és 16383 között."},
    {MidFlash, BinaryColumn, "", "Nem adtál meg számot!"},
    {MidFlash, BinaryColumn, "x", "A megfelelő formátum 1-ekből és 0-ákból állhat."},
    {MidFlash, BinaryColumn, "0100 0000 0000 0000", "Helyes Tartomány: 0 és 0011 1111 1111 1111 között."},
    {Pic18Eeprom, HexColumn, "a", "Nem megfelelő formátum. 0-9, A-F,(XX)"},
    {Pic18Eeprom, HexColumn, "100", "Helyes Tartomány: 0 és FF között."},
    {Pic18Eeprom, DecimalColumn, "", "Nem adtál meg számot!"},
    {Pic18Eeprom, DecimalColumn, "256", "Helyes Tartomány: 0 és 255 között"},
    {Pic18Eeprom, BinaryColumn, "", "Nem adtál meg számot!"},
    {Pic18Eeprom, BinaryColumn, "2", "A megfelelő formátum 1-ekből és 0-ákból állhat."},
    {Pic18Eeprom, BinaryColumn, "1 0000 0000", "Helyes tartomány: 0 és 1111 1111 között."},
    {MidEeprom, HexColumn, "XY", "Nem megfelelő formátum. 0-9, A-F,(XX)"},
    {MidEeprom, HexColumn, "0FF", "Helyes Tartomány: 0 és FF között."},
    {MidEeprom, DecimalColumn, "1A", "Nem adtál meg számot!"},
    {MidEeprom, DecimalColumn, "-5", "Helyes Tartomány: 0 és 255 között"},
    {MidEeprom, BinaryColumn, "111111111", "Helyes tartomány: 0 és 1111 1111 között."},
};

class CellRefusals : public CellDesk {
 protected:
  static std::string Value(const MainGrid& grid) { return grid.eeprom ? "77" : "1234"; }
  /// Opens the cell, lays the box over the column and types the text.
  void TypeInto(const Refusal& refusal) {
    Open(refusal.grid, 2, 2, Value(refusal.grid));
    Click(refusal.grid, refusal.col);
    Type(refusal.grid, refusal.text);
  }
  void ExpectStanding(const Refusal& refusal, const Lines& values) {
    const MainGrid& grid = refusal.grid;
    EXPECT_EQ(session.Look("messages"), Lines{std::string("ok ok ") + refusal.message});
    EXPECT_TRUE(BoxShown(grid));
    EXPECT_EQ(BoxText(grid), values[static_cast<std::size_t>(refusal.col - 1)]);
    EXPECT_EQ(grid.window->Text1.Over.Get(), (panel::CellPlace{&grid.window->MSFlexGrid1, 1, refusal.col}));
    EXPECT_EQ(Values(grid), values);
    EXPECT_EQ(Held(grid, 2, 2), Value(grid));
    EXPECT_TRUE(grid.window->Loaded());
  }
};

TEST_F(CellRefusals, KeepTheBoxOnItsCellWithTheOldText) {
  for (const Refusal& refusal : Refusals) {
    SCOPED_TRACE(std::string(refusal.grid.name) + ' ' + refusal.text);
    TypeInto(refusal);
    const Lines values = Values(refusal.grid);
    Enter(refusal.grid);
    ExpectStanding(refusal, values);
    Enter(refusal.grid);
    EXPECT_FALSE(BoxShown(refusal.grid)) << "the old text is a good one";
  }
}

TEST_F(CellRefusals, AreTheSameWhenTheBoxIsLeft) {
  for (const Refusal& refusal : Refusals) {
    SCOPED_TRACE(std::string(refusal.grid.name) + ' ' + refusal.text);
    TypeInto(refusal);
    const Lines values = Values(refusal.grid);
    session.Do("leave " + Name(refusal.grid, "Text1"));
    ExpectStanding(refusal, values);
  }
}

TEST_F(CellRefusals, KeepTheWindowFromItsOk) {
  for (const Refusal& refusal : Refusals) {
    SCOPED_TRACE(std::string(refusal.grid.name) + ' ' + refusal.text);
    TypeInto(refusal);
    const Lines values = Values(refusal.grid);
    const std::string shown = Shown(refusal.grid, 2, 2);
    Press(refusal.grid, "OK");
    ExpectStanding(refusal, values);
    EXPECT_EQ(Shown(refusal.grid, 2, 2), shown);
  }
}

TEST_F(CellRefusals, KeepTheBoxFromAnotherCell) {
  for (const Refusal& refusal : Refusals) {
    SCOPED_TRACE(std::string(refusal.grid.name) + ' ' + refusal.text);
    TypeInto(refusal);
    const Lines values = Values(refusal.grid);
    Click(refusal.grid, refusal.col == BinaryColumn ? HexColumn : BinaryColumn);
    ExpectStanding(refusal, values);
    EXPECT_EQ(refusal.grid.window->EditCellCol, refusal.col);
  }
}

TEST_F(CellRefusals, BringBackTheTextThatThisEditBeganWith) {
  Open(Pic18Flash, 2, 2, "1234");
  Edit(Pic18Flash, DecimalColumn, "31");
  Click(Pic18Flash, HexColumn);
  Type(Pic18Flash, "nonsense");
  Enter(Pic18Flash);
  EXPECT_EQ(BoxText(Pic18Flash), "001F");
  EXPECT_EQ(Values(Pic18Flash), (Lines{"001F", "31", "0000 0000 0001 1111"}));
}

TEST_F(CellRefusals, LeaveTheWayOutByCancel) {
  TypeInto(Refusals[0]);
  Press(Pic18Flash, "Mégse");
  EXPECT_FALSE(Flash_Edit.Loaded());
  EXPECT_TRUE(session.Look("messages").empty());
  EXPECT_EQ(Held(Pic18Flash, 2, 2), "1234");
}

TEST_F(CellRefusals, OfAWordThatIsTooHighForThePageFromItsOpeningToo) {
  Open(MidFlash, 2, 2, "FFFF");
  EXPECT_EQ(Values(MidFlash), (Lines{"FFFF", "65535", "1111 1111 1111 1111"}));
  Click(MidFlash, HexColumn);
  Press(MidFlash, "OK");
  EXPECT_EQ(session.Look("messages"), Lines{"ok ok Helyes Tartomány: 0 és 3FFF között."});
  EXPECT_TRUE(Flash_Edit.Loaded());
  Type(MidFlash, "3FFF");
  Press(MidFlash, "OK");
  EXPECT_EQ(Held(MidFlash, 2, 2), "3FFF");
}

TEST_F(CellRefusals, BringTheWindowDownForTheTimeOfTheirMessageOnly) {
  WatchedDialogs dialogs;
  int seen = 0;
  const panel::CellEditWindow* window = nullptr;
  dialogs.InMessage = [&](const std::string&) {
    ++seen;
    EXPECT_FALSE(window->OnTop);
  };
  for (const Refusal* refusal : {&Refusals[0], &Refusals[18]}) {
    window = refusal->grid.window;
    TypeInto(*refusal);
    EXPECT_TRUE(window->OnTop);
    Enter(refusal->grid);
    EXPECT_TRUE(window->OnTop);
  }
  EXPECT_EQ(seen, 2);
}

TEST_F(CellRefusals, AreToldOnceWhenTheirMessageTakesTheFocus) {
  WatchedDialogs dialogs;
  dialogs.InMessage = [](const std::string&) {
    EXPECT_EQ(panel::HandLeave(Flash_Edit.Text1), panel::HandResult::Done);
  };
  TypeInto(Refusals[0]);
  Enter(Pic18Flash);
  EXPECT_EQ(session.Look("messages").size(), 1u);
  EXPECT_EQ(BoxText(Pic18Flash), "1234");
}

}  // namespace
}  // namespace zelvo::test
