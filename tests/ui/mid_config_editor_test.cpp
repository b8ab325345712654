// The editor of the mid-range configuration words: opening, the boxes, accept and cancel.
#include <algorithm>
#include <cstdio>

#include "devices/selection.h"
#include "mid_config_desk.h"
#include "mid_config_name_tables.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using image::ConfigEdited;
using image::ConfigWord1Bits;
using image::ConfigWord2Bits;
using panel::ConfEdit_F16;

constexpr const char* SystemWindowColour = "-2147483643";
constexpr const char* UnusedColour = "16744576";  // FF8080h
constexpr const char* Opened = ":  Config Bájtok Szerkesztése.";

/// Empty boxes add nothing but the blank before each.

/// The line of the main window's list, worked out digit by digit.
std::string ListLine(const std::string& bits) {
  std::string spaced;
  int sum = 0;
  for (const char bit : bits) {
    spaced += std::string(" ") + bit;
    sum = 2 * sum + (bit - '0');
  }
  char hex[8];
  std::snprintf(hex, sizeof hex, "%X", static_cast<unsigned>(sum));
  return "  " + std::string(hex) + "h  (" + spaced + ")bin";
}

TEST_F(MidConfigEditor, WithoutAChipOnlyTellsSo) {
  ASSERT_EQ(devices::FlashWordMax, 0);
  EXPECT_EQ(session.WireOf("click ConfRészlEdit_F16"), Lines{"M ok ok Nincs PIC kiválasztva!"});
  EXPECT_FALSE(ConfEdit_F16.Loaded());
}

TEST_F(MidConfigEditor, WithoutAChipAnOpenWindowStaysAsItIs) {
  Open("PIC16F84A");
  Flip(1, 0);
  devices::FlashWordMax = 0;
  EXPECT_EQ(session.WireOf("click ConfRészlEdit_F16"), Lines{"M ok ok Nincs PIC kiválasztva!"});
  EXPECT_TRUE(ConfEdit_F16.Loaded());
  EXPECT_EQ(Shown(1, 0), "0");
}

TEST_F(MidConfigEditor, OpeningLogsFirstAndShowsTheWindowThen) {
  session.Do("choose Combo2 PIC16F84A");
  const std::string line = Line(Opened);
  EXPECT_EQ(session.WireOf("click ConfRészlEdit_F16"), (Lines{line, "+ ConfEdit_F16"}));
}

TEST_F(MidConfigEditor, OpeningAgainStartsAFreshWindow) {
  Open("PIC16F84A");
  Flip(1, 0);
  ConfigWord1Bits = "10101010101010";
  const std::string line = Line(Opened);
  EXPECT_EQ(session.WireOf("click ConfRészlEdit_F16"), (Lines{"- ConfEdit_F16", line, "+ ConfEdit_F16"}));
  EXPECT_EQ(ShownWord(1), "10101010101010");
}

TEST_F(MidConfigEditor, BearsItsCaptionsAndTipsAndStaysOnTop) {
  Open("PIC16F887");
  EXPECT_EQ(ConfEdit_F16.Caption, "Configurációs szó szerkesztése");
  EXPECT_EQ(session.Ask("get ConfEdit_F16.Command1"), "Pufferbe töltés");
  EXPECT_FALSE(session.Ask("get ConfEdit_F16.Command2").empty());
  EXPECT_TRUE(ConfEdit_F16.OnTop);
  for (const panel::TextBox& box : ConfEdit_F16.Boxes) {
    EXPECT_EQ(box.ToolTip.Get(), "Szerkesztés: DblClick") << box.Name();
  }
}

TEST_F(MidConfigEditor, HeadsEachBoxWithItsBitsNumber) {
  Open("PIC16F887");
  for (int heading = 1; heading <= 28; ++heading) {
    EXPECT_EQ(session.Ask("get ConfEdit_F16.Label32(" + std::to_string(heading) + ")"),
              std::to_string((28 - heading) % 14));
  }
}

TEST_F(MidConfigEditor, LeavesTheMainWindowUsable) {
  Open("PIC16F84A");
  session.Do({"tick Check5", "untick Check5", "choose Combo2 PIC16F887"});
  EXPECT_TRUE(ConfEdit_F16.Loaded());
}

TEST_F(MidConfigEditor, ShowsTheBitsOfBothWordsBit13First) {
  Open("PIC16F887", "10110011100011", "01000000000001");
  EXPECT_EQ(ShownWord(1), "10110011100011");
  EXPECT_EQ(ShownWord(2), "01000000000001");
  EXPECT_EQ(session.Ask("get ConfEdit_F16.Text1(0)"), "1");
  EXPECT_EQ(session.Ask("get ConfEdit_F16.Text1(14)"), "0");
  EXPECT_EQ(session.Ask("get ConfEdit_F16.Text1(15)"), "1");
  EXPECT_EQ(session.Ask("get ConfEdit_F16.Text1(27)"), "1");
}

TEST_F(MidConfigEditor, LeavesTheBoxesBehindAShortWordEmpty) {
  Open("PIC16F887", "1010", "");
  EXPECT_EQ(ShownWord(1), "1010");
  EXPECT_EQ(Shown(1, 10), "0");
  EXPECT_EQ(Shown(1, 9), "");
  EXPECT_EQ(ShownWord(2), "");
}

TEST_F(MidConfigEditor, DisablesAndColoursTheBitsThatAreNotUsedOnEveryChip) {
  for (const MidChipNames& one : MidChipsWithNames()) {
    SCOPED_TRACE(one.chip);
    Open(one.chip);
    for (const int word : {1, 2}) {
      if (word == 2 && one.word2.empty()) break;
      const MidBitNames names = NamesOfWord(word == 1 ? one.word1 : one.word2);
      for (int bit = 0; bit < 14; ++bit) {
        const bool used = names.at(static_cast<std::size_t>(bit)) != "X";
        EXPECT_EQ(session.Ask("enabled " + Box(word, bit)), used ? "1" : "0") << bit;
        EXPECT_EQ(session.Ask("color " + Box(word, bit)), used ? SystemWindowColour : UnusedColour) << bit;
      }
    }
  }
}

TEST_F(MidConfigEditor, HidesTheSecondWordOnChipsThatHaveOne) {
  for (const MidChipNames& one : MidChipsWithNames()) {
    SCOPED_TRACE(one.chip);
    const bool two = std::ranges::count(TwoWordChips, one.chip) == 1;
    Open("PIC16F887");
    Open(one.chip);
    for (int bit = 0; bit < 14; ++bit) {
      for (const char* array : {"Text1", "Label1"}) {
        EXPECT_EQ(session.Ask("visible " + Element(array, 1, bit)), "1") << array << bit;
        EXPECT_EQ(session.Ask("visible " + Element(array, 2, bit)), two ? "1" : "0") << array << bit;
      }
      const std::string heading = "visible ConfEdit_F16.Label32(";
      EXPECT_EQ(session.Ask(heading + std::to_string(bit + 1) + ")"), "1");
      EXPECT_EQ(session.Ask(heading + std::to_string(bit + 15) + ")"), two ? "1" : "0");
    }
  }
}

TEST_F(MidConfigEditor, ADoubleClickFlipsEachUsedBitOfBothWords) {
  const auto& table = MidChipsWithNames();
  for (const MidChipNames& one : table) {
    SCOPED_TRACE(one.chip);
    Open(one.chip, FourteenOnes, FourteenZeros);
    for (int bit = 0; bit < 14; ++bit) {
      if (NamesOfWord(one.word1).at(static_cast<std::size_t>(bit)) != "X") {
        Flip(1, bit);
        EXPECT_EQ(Shown(1, bit), "0") << bit;
        Flip(1, bit);
        EXPECT_EQ(Shown(1, bit), "1") << bit;
      }
      if (NamesOfWord(one.word2).at(static_cast<std::size_t>(bit)) != "X") {
        Flip(2, bit);
        EXPECT_EQ(Shown(2, bit), "1") << bit;
        Flip(2, bit);
        EXPECT_EQ(Shown(2, bit), "0") << bit;
      }
    }
    EXPECT_EQ(ShownWord(1), FourteenOnes) << "no other box changed";
  }
}

TEST_F(MidConfigEditor, ADoubleClickMakesAOneOfAnyOtherText) {
  Open("PIC16F84A");
  for (const char* text : {"", "0", "x", "11", "01", "10"}) {
    Type(1, 7, text);
    Flip(1, 7);
    EXPECT_EQ(Shown(1, 7), "1") << '\'' << text << '\'';
  }
  for (const char* text : {" 1", "1 "}) {  // the script cannot type blanks
    ConfEdit_F16.Boxes[6].Text = text;
    Flip(1, 7);
    EXPECT_EQ(Shown(1, 7), "1") << '\'' << text << '\'';
  }
}

TEST_F(MidConfigEditor, ADisabledBoxTakesNoClickAndNoText) {
  Open("PIC16F877A", FourteenOnes);  // bits 12, 5 and 4 have no function
  for (const int bit : {12, 5, 4}) {
    EXPECT_EQ(session.Refused("dblclick " + Box(1, bit)), "disabled");
    EXPECT_EQ(session.Refused("type " + Box(1, bit) + " 0"), "disabled");
    EXPECT_EQ(Shown(1, bit), "1");
  }
  EXPECT_EQ(session.Refused("dblclick " + Box(2, 0)), "hidden");
}

TEST_F(MidConfigEditor, TypingIsNotValidatedAndTheImageWaitsForTheAccept) {
  Open("PIC16F84A");
  for (const char* text : {"2", "x", "", "é", "0"}) {
    EXPECT_EQ(session.WireOf("type " + Box(1, 2) + " " + text), Lines{}) << text;
    EXPECT_EQ(Shown(1, 2), text);
  }
  Flip(1, 3);
  EXPECT_EQ(ConfigWord1Bits, FourteenOnes);
  EXPECT_EQ(ConfigEdited, 0);
}

TEST_F(MidConfigEditor, AcceptTakesTheWordAndShowsItInTheMainWindow) {
  Open("PIC16F887", "11111101110011", "00011100000000");
  Flip(1, 0);
  Flip(2, 10);
  session.Do("click ConfEdit_F16.Command1");
  EXPECT_EQ(ConfigWord1Bits, "11111101110010");
  EXPECT_EQ(ConfigWord2Bits, "00001100000000");
  EXPECT_EQ(session.Look("list List6"), Lines{"  3F72h  ( 1 1 1 1 1 1 0 1 1 1 0 0 1 0)bin"});
  EXPECT_EQ(session.Look("list List12"), Lines{"  300h  ( 0 0 0 0 1 1 0 0 0 0 0 0 0 0)bin"});
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(MidConfigEditor, AcceptLogsTwoLinesMarksTheEditAndUnloads) {
  struct Course : panel::Witness {
    void WindowUnloaded(panel::Window&) override { editedAtUnload = ConfigEdited; }
    void LineLogged(panel::ListBox&, const std::string&) override { editedAtLog = ConfigEdited; }
    int editedAtLog = -1, editedAtUnload = -1;
  } course;
  Open("PIC16F84A");
  ASSERT_EQ(ConfigEdited, 0);
  panel::witnesses.push_back(&course);
  const Lines expected{Line(":  A Szerkesztett Config Adatok Áttöltve a Pufferbe!"),
                       Line(":  Config Szerkesztés Vége!", 1), "- ConfEdit_F16"};
  EXPECT_EQ(session.WireOf("click ConfEdit_F16.Command1"), expected);
  panel::witnesses.pop_back();
  EXPECT_EQ(course.editedAtLog, 0);
  EXPECT_EQ(course.editedAtUnload, 1);
  EXPECT_EQ(session.Ask("var ConfigEdited"), "1");
}

TEST_F(MidConfigEditor, AcceptUnchangedKeepsEveryBitOfEveryChipUsedOrNot) {
  for (const MidChipNames& one : MidChipsWithNames()) {
    SCOPED_TRACE(one.chip);
    for (const std::string& bits : {FourteenOnes, FourteenZeros, std::string("10011010111001")}) {
      const std::string other(bits.rbegin(), bits.rend());
      Open(one.chip, bits, other);
      session.Do("click ConfEdit_F16.Command1");
      EXPECT_EQ(ConfigWord1Bits, bits);
      EXPECT_EQ(session.Look("list List6"), Lines{ListLine(bits)});
      // The second word's boxes are read on every chip; hidden ones stand for the erased word.
      const std::string second = one.word2.empty() ? FourteenOnes : other;
      EXPECT_EQ(ConfigWord2Bits, second);
      EXPECT_EQ(session.Look("list List12"), Lines{ListLine(second)});
    }
  }
}

TEST_F(MidConfigEditor, ASetBitWithoutFunctionSurvivesAndCounts) {
  Open("PIC16F877A", "01000000000000");
  session.Do("click ConfEdit_F16.Command1");
  EXPECT_EQ(ConfigWord1Bits, "01000000000000");
  EXPECT_EQ(session.Look("list List6"), Lines{"  1000h  ( 0 1 0 0 0 0 0 0 0 0 0 0 0 0)bin"});
}

TEST_F(MidConfigEditor, AChipInNoGroupGetsBackWhatTheBoxesShow) {
  Open("PIC16F887");
  Open("PIC16F999", "10000000000001");
  for (int bit = 0; bit < 14; ++bit) {
    EXPECT_EQ(session.Refused("dblclick " + Box(1, bit)), "disabled");
    EXPECT_EQ(session.Ask("color " + Box(1, bit)), UnusedColour);
  }
  session.Do("click ConfEdit_F16.Command1");
  EXPECT_EQ(ConfigWord1Bits, "10000000000001");
  EXPECT_EQ(session.Look("list List6"), Lines{"  2001h  ( 1 0 0 0 0 0 0 0 0 0 0 0 0 1)bin"});
}

TEST_F(MidConfigEditor, EachBitHasTheWeightOfItsPlace) {
  const char* const digits[] = {"1",  "2",   "4",   "8",   "10",  "20",   "40",
                                "80", "100", "200", "400", "800", "1000", "2000"};
  for (std::size_t bit = 0; bit < 14; ++bit) {
    std::string bits = FourteenZeros;
    bits.at(13 - bit) = '1';
    Open("PIC16F887", bits, bits);
    session.Do("click ConfEdit_F16.Command1");
    const std::string begin = std::string("  ") + digits[bit] + "h  ( ";
    EXPECT_TRUE(session.Ask("list List6").starts_with(begin)) << session.Ask("list List6");
    EXPECT_TRUE(session.Ask("list List12").starts_with(begin)) << session.Ask("list List12");
  }
}

TEST_F(MidConfigEditor, ASumOfZeroIsASingleZero) {
  Open("PIC16F887", FourteenZeros, FourteenZeros);
  session.Do("click ConfEdit_F16.Command1");
  const Lines zero{"  0h  ( 0 0 0 0 0 0 0 0 0 0 0 0 0 0)bin"};
  EXPECT_EQ(session.Look("list List6"), zero);
  EXPECT_EQ(session.Look("list List12"), zero);
}

TEST_F(MidConfigEditor, AnEmptiedBoxMakesTheWordShorter) {
  Open("PIC16F84A", FourteenOnes);
  Type(1, 13, "");
  Type(1, 0, "");
  session.Do("click ConfEdit_F16.Command1");
  EXPECT_EQ(ConfigWord1Bits, std::string(12, '1'));
  EXPECT_EQ(session.Look("list List6"), Lines{"  1FFEh  (  1 1 1 1 1 1 1 1 1 1 1 1 )bin"});
}

TEST_F(MidConfigEditor, AnyOtherTextIsTakenAsItStandsAndCountsNothing) {
  Open("PIC16F84A", FourteenZeros);
  Type(1, 13, "11");
  Type(1, 2, "x");
  Type(1, 1, "01");
  Type(1, 0, "1");
  session.Do("click ConfEdit_F16.Command1");
  EXPECT_EQ(ConfigWord1Bits, "110000000000x011");
  EXPECT_EQ(session.Look("list List6"), Lines{"  1h  ( 11 0 0 0 0 0 0 0 0 0 0 x 01 1)bin"});
}

TEST_F(MidConfigEditor, AcceptedBitsAreShownAtTheNextOpening) {
  Open("PIC16F84A", FourteenOnes);
  Flip(1, 1);
  session.Do({"click ConfEdit_F16.Command1", "click ConfRészlEdit_F16"});
  EXPECT_EQ(ShownWord(1), "11111111111101");
  EXPECT_EQ(session.Ask("var ConfigWord1Bits"), "11111111111101");
}

TEST_F(MidConfigEditor, CancelChangesNothingAndLogsTwoLines) {
  Open("PIC16F887");
  const Lines list6 = session.Look("list List6");
  const Lines list12 = session.Look("list List12");
  Flip(1, 0);
  Flip(2, 8);
  const Lines expected{Line(":  A Szerkesztett Config Adatok Nem lettek Pufferbe töltve!"),
                       Line(":  Config Szerkesztése Vége!", 1), "- ConfEdit_F16"};
  EXPECT_EQ(session.WireOf("click ConfEdit_F16.Command2"), expected);
  EXPECT_EQ(ConfigWord1Bits, FourteenOnes);
  EXPECT_EQ(ConfigWord2Bits, FourteenOnes);
  EXPECT_EQ(session.Look("list List6"), list6);
  EXPECT_EQ(session.Look("list List12"), list12);
  EXPECT_EQ(ConfigEdited, 0);
}

TEST_F(MidConfigEditor, CancelLeavesTheMarkOfAnEarlierEdit) {
  Open("PIC16F84A");
  session.Do({"click ConfEdit_F16.Command1", "click ConfRészlEdit_F16", "click ConfEdit_F16.Command2"});
  EXPECT_EQ(ConfigEdited, 1);
}

TEST_F(MidConfigEditor, ClosingItByItsFrameLogsNothing) {
  Open("PIC16F84A");
  Flip(1, 0);
  EXPECT_EQ(session.WireOf("close ConfEdit_F16"), Lines{"- ConfEdit_F16"});
  EXPECT_EQ(ConfigWord1Bits, FourteenOnes);
  EXPECT_EQ(ConfigEdited, 0);
}

TEST_F(MidConfigEditor, AnAcceptIsAskedAboutByAFileOfTheOtherPageAndNotByOneOfItsOwn) {
  session.Folder().Write("mid.hex", ":02400E00723FFF\r\n:00000001FF\r\n");
  session.Folder().Write("pic18.hex", ":020000040030CA\r\n:0100010027D7\r\n:00000001FF\r\n");
  Open("PIC16F84A");
  session.Do({"click ConfEdit_F16.Command1", "file " + session.Folder().File("mid.hex"), "click Command7"});
  EXPECT_TRUE(session.Look("messages").empty());
  EXPECT_EQ(ConfigWord1Bits, "11111101110010");
  EXPECT_EQ(ConfigEdited, 1);
  session.Do({"tab 2", "choose Combo1 PIC18F452", "file " + session.Folder().File("pic18.hex"), "answer yes",
              "click FájlBetölt"});
  EXPECT_EQ(session.Look("messages"), Lines{"yesno yes Felülírjam a szerkesztett Config bájtokat?"});
  EXPECT_EQ(ConfigEdited, 0);
}

}  // namespace
}  // namespace zelvo::test
