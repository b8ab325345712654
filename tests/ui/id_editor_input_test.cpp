// What the operator types into the ID editors: the three rows of a column in step, and what is refused.
#include "id_desk.h"
#include "watched_dialogs.h"

namespace zelvo::test {
namespace {

constexpr const char* OneCharacterOnly = "Csak egy karakter hoszzúságú lehet a bevitel!";
constexpr const char* BadCharacter = "Hibás karakter bevitel!";
constexpr const char* TwoDigitsOnly = "A hexa szám két karakteres kell legyen!";
constexpr const char* FourDigitsOnly = "A hexa szám max 4 karakteres lehet!";
constexpr const char* WordRange = "Helyes Tartomány: 0 és 3FFFh között.";
constexpr const char* NoFraction = "A bevitel nem lehet törtszám!";

std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

TEST_F(IdDesk, AByteTypedInAnyRowIsShownInAllThree) {
  const struct {
    int row;
    const char* text;
    Lines column;
  } edits[] = {
      {CharacterRow, "A", {"   A   ", "  41  ", "  65  "}},
      {CharacterRow, "a", {"   a   ", "  61  ", "  97  "}},
      {CharacterRow, "0", {"   0   ", "  30  ", "  48  "}},
      {CharacterRow, "Ő", {"   Ő   ", "  D5  ", " 213  "}},
      {CharacterRow, "ű", {"   ű   ", "  FB  ", " 251  "}},
      {CharacterRow, "€", {"   €   ", "  80  ", " 128  "}},
      {CharacterRow, "˙", {"   ˙   ", "  FF  ", " 255  "}},
      {HexRow, "5", {"   \x05   ", "  05  ", "  5  "}},
      {HexRow, "ab", {"   «   ", "  AB  ", " 171  "}},
      {HexRow, "4b", {"   K   ", "  4B  ", "  75  "}},
      {HexRow, "FF", {"   ˙   ", "  FF  ", " 255  "}},
      {HexRow, "f", {"   \x0F   ", "  0F  ", "  15  "}},
      {DecimalRow, "9", {"   \t   ", "  09  ", "  9  "}},
      {DecimalRow, "65", {"   A   ", "  41  ", "  65  "}},
      {DecimalRow, "100", {"   d   ", "  64  ", " 100  "}},
      {DecimalRow, "233", {"   é   ", "  E9  ", " 233  "}},
      {DecimalRow, "007", {"   \a   ", "  07  ", "  7  "}},
      {DecimalRow, "255", {"   ˙   ", "  FF  ", " 255  "}},
      {DecimalRow, "66.0", {"   B   ", "  42  ", "  66  "}},
  };
  OpenWith(Pic18Ids, "23");
  const Lines neighbour = Column(Pic18Ids, 1);
  for (const auto& edit : edits) {
    Edit(Pic18Ids, edit.row, 3, edit.text);
    EXPECT_EQ(Column(Pic18Ids, 3), edit.column) << edit.row << ' ' << edit.text;
    EXPECT_EQ(panel::IDLocEdit.CellInput.at(static_cast<std::size_t>(edit.row))[3], edit.text);
    EXPECT_EQ(Column(Pic18Ids, 1), neighbour);
  }
  EXPECT_TRUE(session.Look("messages").empty());
  EXPECT_EQ(image::IdBuffer[3], "FF") << "the image waits for the accept";
}

TEST_F(IdDesk, AByteOfZeroHasACharacterToo) {
  Open(Pic18Ids);
  Edit(Pic18Ids, DecimalRow, 8, "0");
  EXPECT_EQ(Column(Pic18Ids, 8), (Lines{std::string("   \0   ", 7), "  00  ", "  0  "}));
}

TEST_F(IdDesk, AWordTypedInAnyRowIsShownInAllThree) {
  const struct {
    int row;
    const char* text;
    std::string characters;  // of the first cell, without the blanks around them
    Lines digits;
  } edits[] = {
      {CharacterRow, "A", "A", {"  41  ", "  65  "}},
      {CharacterRow, "ő", "ő", {"  F5  ", " 245  "}},
      {HexRow, "3fff", "?˙", {"  3FFF  ", "  16383  "}},
      {HexRow, "3 0 4 1", "0A", {"  3041  ", "  12353  "}},
      {HexRow, "0D0A", "\r\n", {"  D0A  ", "  3338  "}},
      {HexRow, "3A3B", ":;", {"  3A3B  ", "  14907  "}},
      {DecimalRow, "6566", "AB", {"  19A6  ", "  6566  "}},
      {DecimalRow, "9765", "aA", {"  2625  ", "  9765  "}},
      {DecimalRow, "16383", "\x10&", {"  3FFF  ", "  16383  "}},
      {DecimalRow, "10065", "\n\x06", {"  2751  ", "  10065  "}},
      {DecimalRow, "337", "!\a", {"  151  ", " 337  "}},
      {DecimalRow, "90", "Z", {"  5A  ", "  90  "}},
      {DecimalRow, "0037", std::string("\0%", 2), {"  25  ", "  37  "}},
  };
  Open(MidIds);
  const Lines neighbour = Column(MidIds, 3);
  for (const auto& edit : edits) {
    SCOPED_TRACE(std::to_string(edit.row) + ' ' + edit.text);
    Edit(MidIds, edit.row, 4, edit.text);
    EXPECT_EQ(WithoutBlanks(Cell(MidIds, CharacterRow, 4)), edit.characters);
    EXPECT_EQ((Lines{Cell(MidIds, HexRow, 4), Cell(MidIds, DecimalRow, 4)}), edit.digits);
    EXPECT_EQ(Column(MidIds, 3), neighbour);
  }
  EXPECT_TRUE(session.Look("messages").empty());
  EXPECT_EQ(image::MidIdWords[4], 16383) << "the image waits for the accept";
}

struct Refusal {
  const IdEditor& editor;
  int row;
  const char* text;
  const char* message;
};
const Refusal Refusals[] = {
    {Pic18Ids, CharacterRow, "AB", OneCharacterOnly},
    {Pic18Ids, CharacterRow, "őű", OneCharacterOnly},
    {Pic18Ids, HexRow, "G", BadCharacter},
    {Pic18Ids, HexRow, "1x", BadCharacter},
    {Pic18Ids, HexRow, "é1", BadCharacter},
    {Pic18Ids, HexRow, "123", TwoDigitsOnly},
    {Pic18Ids, HexRow, "xyz", TwoDigitsOnly},
    {Pic18Ids, DecimalRow, "256", "A bevitel 0 - 255 lehet!"},
    {Pic18Ids, DecimalRow, "-1", "A bevitel 0 - 255 lehet!"},
    {Pic18Ids, DecimalRow, "255.5", "A bevitel 0 - 255 lehet!"},
    {Pic18Ids, DecimalRow, "12.5", NoFraction},
    {MidIds, CharacterRow, "AB", OneCharacterOnly},
    {MidIds, HexRow, "12345", FourDigitsOnly},
    {MidIds, HexRow, "xxxxx", FourDigitsOnly},
    {MidIds, HexRow, "3FFG", BadCharacter},
    {MidIds, HexRow, "x", BadCharacter},
    {MidIds, HexRow, "4000", WordRange},
    {MidIds, HexRow, "8000", WordRange},
    {MidIds, HexRow, "FFFF", WordRange},
    {MidIds, DecimalRow, "16384", "A bevitel 0 - 16383 lehet!"},
    {MidIds, DecimalRow, "-1", "A bevitel 0 - 16383 lehet!"},
    {MidIds, DecimalRow, "x", "A bevitel 0 - 16383 lehet!"},
    {MidIds, DecimalRow, "12.5", NoFraction},
};

TEST_F(IdDesk, ARefusedTextIsToldAndTheColumnStays) {
  for (const Refusal& refusal : Refusals) {
    const IdEditor& editor = refusal.editor;
    SCOPED_TRACE(editor.window->Name() + ' ' + std::to_string(refusal.row) + ' ' + refusal.text);
    OpenWith(editor, "41");
    const Lines before = Column(editor, 1);
    Edit(editor, refusal.row, 1, refusal.text);
    EXPECT_EQ(session.Look("messages"), Lines{std::string("ok ok ") + refusal.message});
    EXPECT_EQ(Column(editor, 1), before);
    EXPECT_EQ(editor.window->CellInput.at(static_cast<std::size_t>(refusal.row))[1], refusal.text);
    EXPECT_EQ(BoxText(editor), "");
    EXPECT_FALSE(BoxShown(editor));
    EXPECT_EQ(image::IdBuffer[1], "41");
    EXPECT_EQ(image::MidIdWords[1], 0x41);
    Press(editor, "Mégse");
  }
}

TEST_F(IdDesk, TheWindowComesDownForTheTimeOfAMessageOnly) {
  WatchedDialogs dialogs;
  int seen = 0;
  const panel::IdEditWindow* window = nullptr;
  dialogs.InMessage = [&](const std::string&) {
    ++seen;
    EXPECT_FALSE(window->OnTop);
    EXPECT_EQ(window->Text1.Text.Get(), "") << "the box is emptied before its text is judged";
  };
  for (const Refusal& refusal : Refusals) {
    window = refusal.editor.window;
    Open(refusal.editor);
    EXPECT_TRUE(window->OnTop);
    Edit(refusal.editor, refusal.row, 1, refusal.text);
    EXPECT_TRUE(window->OnTop);
    Press(refusal.editor, "Mégse");
  }
  EXPECT_EQ(seen, static_cast<int>(std::size(Refusals)));
}

TEST_F(IdDesk, EveryByteValueKeepsItsWayThroughAllThreeRows) {
  Open(Pic18Ids);
  for (int value = 1; value <= 255; ++value) {
    Edit(Pic18Ids, DecimalRow, 2, std::to_string(value));
    const Lines column = Column(Pic18Ids, 2);
    Edit(Pic18Ids, HexRow, 2, "00");
    DblClick(Pic18Ids, CharacterRow, 2);
    panel::IDLocEdit.Text1.Text = column[0].substr(3, column[0].size() - 6);  // a blank too
    Key(Pic18Ids, "Enter");
    ASSERT_EQ(Column(Pic18Ids, 2), column) << value;
  }
  EXPECT_TRUE(session.Look("messages").empty());
}

}  // namespace
}  // namespace zelvo::test
