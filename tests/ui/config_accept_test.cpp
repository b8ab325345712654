// What an accept or a cancel of the configuration editor leaves, bits with a fate of their own included, and
// how a file comes to overwrite it.
#include "config_desk.h"
#include "watched_dialogs.h"

namespace zelvo::test {
namespace {

using image::ConfigBitStrings;
using image::ConfigBuffer;
using panel::ConfFelülír;

using ConfigAccept = ConfigEditor;

TEST_F(ConfigAccept, XinstHasNoStateUntilItIsEditedAndKeepsItsBit) {
  Open("PIC18F2680", " 0 1 0 1 0 1 0 1");
  EXPECT_EQ(session.Ask("cell ConfEdit.Conf4L 0 2"), "XINST");
  EXPECT_EQ(State(7, 2), "");
  EXPECT_EQ(State(7, 3), "0") << "the state of the next name";
  EXPECT_EQ(Bit(7, 2), "1");
  DblClick(7, 1, 2);
  EXPECT_EQ(BoxText(), "0") << "an empty cell counts as 0";
  TypeAndEnter("9");
  EXPECT_EQ(State(7, 2), "     1") << "the bit that is kept";
  Edit(7, 2, "0");
  EXPECT_EQ(State(7, 2), "     0");
  session.Do("click ConfEdit.BetPufferbe");
  EXPECT_EQ(ConfigBuffer[7], "15") << "01010101 without XINST, and only named bits";
}

TEST_F(ConfigAccept, T1oscmxIsShownWithoutAStateAndLost) {
  Open("PIC18F4431", AllOnes);
  EXPECT_EQ(session.Ask("cell ConfEdit.Conf3L 0 3"), "t1oscmx");
  EXPECT_EQ(State(5, 3), "");
  DblClick(5, 1, 3);
  EXPECT_EQ(session.Look("messages"), Lines{NotUsed});
  session.Do("click ConfEdit.BetPufferbe");
  EXPECT_EQ(ConfigBitStrings[5], " 0 0 0 1 1 1 0 0");
}

TEST_F(ConfigAccept, TheSecondCpdTakesThePlaceOfTheFirst) {
  Choose("PIC18F4620");
  ConfigBitStrings.fill(AllZeros);
  ConfigBitStrings[12] = AllOnes;
  session.Do("click ConfRészlEdit");
  EXPECT_EQ(session.Ask("cell ConfEdit.Conf6H 0 1"), "CPD");
  EXPECT_EQ(State(12, 1), "1");
  EXPECT_EQ(State(10, 1), "0");
  DblClick(12, 1, 1);
  EXPECT_EQ(session.Look("messages"), Lines{NotUsed});
  Edit(10, 1, "x");
  EXPECT_EQ(State(10, 1), "     1") << "what the editor holds, not what it showed";
  session.Do("click ConfEdit.BetPufferbe");
  EXPECT_EQ(ConfigBuffer[10], "80");
  EXPECT_EQ(ConfigBuffer[12], "60");
}

TEST_F(ConfigAccept, HiddenBitsCanBeEditedAndComeThroughUnchanged) {
  Open("PIC18F1220", AllOnes);
  EXPECT_EQ(session.Ask("cell ConfEdit.Conf5L 0 5"), "X");
  EXPECT_EQ(State(9, 5), "0");
  DblClick(9, 1, 5);
  EXPECT_EQ(BoxText(), "0") << "as the cell shows, not as the bit is";
  session.Do({"type ConfEdit.Text1", "key ConfEdit.Text1 Enter"});
  Edit(9, 6, "0");
  session.Do("click ConfEdit.BetPufferbe");
  EXPECT_EQ(ConfigBuffer[9], "B");
  EXPECT_EQ(ConfigBuffer[11], "F");
}

TEST_F(ConfigAccept, AnAcceptPutsTheEditedBytesIntoTheImageAndTheLists) {
  Open("PIC18F4550", AllOnes);
  Edit(1, 3, "0");   // USBdiv
  Edit(1, 8, "0");   // Plldiv0
  Edit(7, 1, "0");   // DEBUG
  Edit(10, 2, "0");  // CPB
  ConfigBuffer.fill("--");
  const Lines log = {"L List1 " + Line(":  A Szerkesztett Config Adatok Áttöltve a Pufferbe!"),
                     "L List1 " + Line(":  Config Szerkesztés Vége!", 1), "- ConfEdit"};
  EXPECT_TRUE(SameLog(log, session.WireOf("click ConfEdit.BetPufferbe")));
  const int values[] = {0x1E, 0xCF, 0x3F, 0x1F, 0x00, 0x87, 0x65, 0x00, 0x0F, 0x80, 0x0F, 0xE0, 0x0F, 0x40};
  const char* texts[] = {"1E", "CF", "3F", "1F", "0", "87", "65", "0", "F", "80", "F", "E0", "F", "40"};
  for (std::size_t byte = 1; byte <= 14; ++byte) {
    EXPECT_EQ(ConfigBuffer[byte], texts[byte - 1]) << "byte " << byte;
    EXPECT_EQ(ConfigBitStrings[byte], Spaced(values[byte - 1])) << "byte " << byte;
    const std::string list = std::string("list Bconfig") + Bytes[byte - 1];
    EXPECT_EQ(session.Look(list), Lines{" " + Spaced(values[byte - 1])});
  }
  EXPECT_EQ(session.Ask("var ConfigEdited"), "1");
  EXPECT_EQ(ConfigBuffer[0], "--");
}

TEST_F(ConfigAccept, ACancelLeavesTheImageAndKeepsOnlyItsOwnEdits) {
  Open("PIC18F452", AllOnes);
  ConfigBuffer.fill("5A");
  const Lines lists = session.Look("list Bconfig1H");
  Edit(2, 3, "0");
  const Lines log = {"L List1 " + Line(":  A Szerkesztett Config Adatok Nem lettek Pufferbe töltve!"),
                     "L List1 " + Line(":  Config Szerkesztése Vége!", 1), "- ConfEdit"};
  EXPECT_TRUE(SameLog(log, session.WireOf("click ConfEdit.Mégse")));
  EXPECT_EQ(session.Ask("var ConfigEdited"), "0");
  for (std::size_t byte = 1; byte <= 14; ++byte) {
    EXPECT_EQ(ConfigBuffer[byte], "5A");
    EXPECT_EQ(ConfigBitStrings[byte], AllOnes);
  }
  EXPECT_EQ(session.Look("list Bconfig1H"), lists);
  EXPECT_EQ(Bit(2, 3), "0") << "the editor's own bits stay";
  session.Do("click ConfRészlEdit");
  EXPECT_EQ(Bit(2, 3), "1") << "until the next opening";
}

TEST_F(ConfigAccept, ACancelLeavesAnEarlierAcceptStanding) {
  session.Do(
      {"click ConfRészlEdit", "click ConfEdit.BetPufferbe", "click ConfRészlEdit", "click ConfEdit.Mégse"});
  EXPECT_EQ(session.Ask("var ConfigEdited"), "1");
}

TEST_F(ConfigAccept, TheFrameClosesItWithoutAWord) {
  Open("PIC18F452", AllOnes);
  EXPECT_TRUE(SameLog({"- ConfEdit"}, session.WireOf("close ConfEdit")));
  EXPECT_EQ(session.Ask("var ConfigEdited"), "0");
}

TEST_F(ConfigAccept, AnAcceptWithNoFillInTheRunMakesEveryByteZero) {
  OpenUnfilled();
  session.Do("click ConfEdit.BetPufferbe");
  for (std::size_t byte = 1; byte <= 14; ++byte) {
    EXPECT_EQ(ConfigBuffer[byte], "0");
    EXPECT_EQ(ConfigBitStrings[byte], AllZeros);
  }
  EXPECT_EQ(session.Ask("var ConfigEdited"), "1");
}

TEST_F(ConfigAccept, AnAcceptForANameInNoGroupRepeatsTheLastFill) {
  Open("PIC18F452", AllOnes);
  session.Do("click ConfEdit.Mégse");
  ConfigBitStrings.fill(AllZeros);
  OpenUnfilled();
  session.Do("click ConfEdit.BetPufferbe");
  EXPECT_EQ(ConfigBuffer[2], "27");
  EXPECT_EQ(ConfigBuffer[7], "85");
  EXPECT_EQ(ConfigBuffer[8], "0");
}

TEST_F(ConfigAccept, WithoutBitsInTheImageEveryStateIsEmptyAndCountsAsZero) {
  ASSERT_EQ(ConfigBitStrings[2], "") << "the choice of a chip fills no bits";
  session.Do("click ConfRészlEdit");
  EXPECT_EQ(session.Ask("cell ConfEdit.Conf1H 0 3"), "OSCEN");
  EXPECT_EQ(State(2, 3), "");
  EXPECT_EQ(Bit(2, 3), "");
  DblClick(2, 1, 3);
  EXPECT_EQ(BoxText(), "0");
  TypeAndEnter("x");
  EXPECT_EQ(session.Look("messages"), Lines{OnlyOneOrZero});
  EXPECT_EQ(State(2, 3), "     ");
  Edit(2, 3, "1");
  session.Do("click ConfEdit.BetPufferbe");
  EXPECT_EQ(ConfigBuffer[2], "20");
  EXPECT_EQ(ConfigBuffer[3], "0");
}

TEST_F(ConfigAccept, BeyondAShorterTextOfTheLoaderStatesAreEmpty) {
  // One configuration byte is loaded; the loader leaves the others as eight ones without blanks.
  session.Folder().Write("image.hex", ":020000040030CA\r\n:01000100FFFF\r\n:00000001FF\r\n");
  session.Do({"file " + session.Folder().File("image.hex"), "click FájlBetölt", "click ConfRészlEdit"});
  ASSERT_EQ(ConfigBitStrings[7], "11111111");
  EXPECT_EQ(State(7, 1), "1") << "DEBUG";
  EXPECT_EQ(State(7, 6), "") << "LVP";
  EXPECT_EQ(State(12, 3), "1") << "WRTC";
  EXPECT_EQ(State(2, 8), "1") << "the byte that was loaded";
  session.Do("click ConfEdit.BetPufferbe");
  EXPECT_EQ(ConfigBuffer[2], "27");
  EXPECT_EQ(ConfigBuffer[7], "80");
}

TEST_F(ConfigAccept, AnAcceptOverwritesWhatAFileBroughtMeanwhile) {
  Open("PIC18F452", AllOnes);
  session.Folder().Write("image.hex", ":020000040030CA\r\n:02000100000000FD\r\n:00000001FF\r\n");
  session.Do({"file " + session.Folder().File("image.hex"), "click FájlBetölt"});
  ASSERT_EQ(ConfigBuffer[2], "00");
  EXPECT_EQ(State(2, 3), "1") << "the window shows what it was opened with";
  session.Do("click ConfEdit.BetPufferbe");
  EXPECT_EQ(ConfigBuffer[2], "27");
  EXPECT_EQ(ConfigBitStrings[2], " 0 0 1 0 0 1 1 1");
}

/// A file with one configuration record comes after an accepted edit.
class ConfigOverwrite : public ConfigEditor {
 protected:
  void SetUp() override {
    ConfigEditor::SetUp();
    Open("PIC18F452", AllOnes);
    session.Do({"click ConfEdit.BetPufferbe", "messages"});
    session.Folder().Write("image.hex", ":020000040030CA\r\n:020001000502F6\r\n:00000001FF\r\n");
    session.Do("file " + session.Folder().File("image.hex"));
  }
};
constexpr const char* Question = "Felülírjam a szerkesztett Config bájtokat?";

TEST_F(ConfigOverwrite, TheQuestionStandsBesideAWindowThatTellsWhy) {
  WatchedDialogs dialogs;
  int seen = 0;
  dialogs.InQuestion = [&](const std::string& text) {
    ++seen;
    EXPECT_EQ(text, Question);
    EXPECT_EQ(session.Look("windows").back(), "ConfFelülír");
    EXPECT_EQ(ConfFelülír.Caption, "Config Bájtok Felülírása?");
    EXPECT_TRUE(ConfFelülír.OnTop);
    EXPECT_EQ(ConfFelülír.List1.Lines(), (Lines{" A Config bájtok már szerkesztve voltak.",
                                                " Felülírjam a betöltés alatt lévő Fájl értékeivel?"}));
  };
  session.Do("click FájlBetölt");
  EXPECT_EQ(seen, 1);
  EXPECT_FALSE(ConfFelülír.Loaded());
}

TEST_F(ConfigOverwrite, AYesTakesTheFilesBytes) {
  session.Do("answer yes");
  const Lines log = {"L List1 " + Line(":  Fájl betöltése Indult!"), "+ ConfFelülír",
                     std::string("M yesno yes ") + Question,
                     "L List1 " + Line(":  Config Bájtok Felülírva.", 1), "- ConfFelülír"};
  EXPECT_TRUE(SameLog(log, session.WireOf("click FájlBetölt")));
  EXPECT_EQ(ConfigBuffer[2], "05");
  EXPECT_EQ(ConfigBuffer[3], "02");
  EXPECT_EQ(session.Look("list Bconfig1H"), Lines{Spaced(5)});
  EXPECT_EQ(session.Ask("var ConfigEdited"), "0");
  session.Do({"messages", "click Frissites"});
  EXPECT_TRUE(session.Look("messages").empty()) << "it was asked once";
}

TEST_F(ConfigOverwrite, ANoKeepsTheEditedBitsAndIsAskedAgain) {
  session.Do("answer no");
  const Lines log = {"L List1 " + Line(":  Fájl betöltése Indult!"), "+ ConfFelülír",
                     std::string("M yesno no ") + Question,
                     "L List1 " + Line(":  Config Bájtok Nem lettek felülírva.", 1), "- ConfFelülír"};
  EXPECT_TRUE(SameLog(log, session.WireOf("click FájlBetölt")));
  EXPECT_EQ(ConfigBitStrings[2], " 0 0 1 0 0 1 1 1");
  EXPECT_EQ(session.Look("list Bconfig1H"), Lines{"  0 0 1 0 0 1 1 1"});
  EXPECT_EQ(session.Ask("var ConfigEdited"), "1");
  session.Do({"messages", "click Frissites"});
  EXPECT_EQ(session.Look("messages"), Lines{std::string("yesno no ") + Question});
}

TEST_F(ConfigOverwrite, AReloadWithANoKeepsTheEditedBytesToo) {
  session.Do({"answer yes", "click FájlBetölt"});
  Open("PIC18F452", AllOnes);
  session.Do({"click ConfEdit.BetPufferbe", "answer no", "click Frissites"});
  EXPECT_EQ(ConfigBuffer[2], "27");
  EXPECT_EQ(ConfigBuffer[3], "F");
}

}  // namespace
}  // namespace zelvo::test
