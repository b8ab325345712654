// The commands that look: what each kind of control, window and variable answers.
#include <gtest/gtest.h>

#include <set>

#include "bench/variables.h"
#include "image/hex_lines.h"
#include "link/delays.h"
#include "link/port.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using panel::Form1;

class ScriptLooking : public testing::Test {
 protected:
  void SetUp() override { session.Do("start"); }
  BenchSession session;
};

TEST_F(ScriptLooking, GetAnswersWhatAControlShows) {
  Form1.Text1.Text = " typed ";
  Form1.Combo1.Text = "PIC18F452";
  Form1.Check1.Value = true;
  panel::Állapot.Load();
  panel::Állapot.ProgressBar1.Step(42);
  const std::pair<const char*, const char*> cases[] = {
      {"FlashOl", "Flash Beolvasása"},
      {"Label43", "Config 2:"},
      {"Text1", " typed "},
      {"Combo1", "PIC18F452"},
      {"Check1", "1"},
      {"Check2", "0"},
      {"ÁSeb", "1"},
      {"TabStrip1", "1"},
      {"Állapot.ProgressBar1", "42"},
      {"Állapot.Command1", "Cancel"},
  };
  for (const auto& [name, content] : cases)
    EXPECT_EQ(session.Ask(std::string("get ") + name), content) << name;
}

TEST_F(ScriptLooking, GetRefusesControlsWithoutContent) {
  EXPECT_EQ(session.Refused("get MSFlexGrid1"), "MSFlexGrid1 has no caption, text or value");
  EXPECT_EQ(session.Refused("get List1"), "List1 has no caption, text or value");
  EXPECT_EQ(session.Refused("get Shape2"), "Shape2 has no caption, text or value");
  EXPECT_EQ(session.Refused("get Nothing"), "no control Nothing");
}

TEST_F(ScriptLooking, ListAnswersTheLinesOfListsAndCombos) {
  Form1.List1.Clear();
  Form1.List1.InsertTop("older");
  Form1.List1.InsertTop(" newer ");
  EXPECT_EQ(session.Run("list List1"), (Lines{"|  newer ", "| older", "ok"}));
  Form1.List1.Clear();
  EXPECT_EQ(session.Run("list List1"), Lines{"ok"});
  EXPECT_EQ(session.Look("list Combo1").size(), Form1.Combo1.Lines().size());
  EXPECT_EQ(session.Refused("list FlashOl"), "FlashOl is no list");
}

TEST_F(ScriptLooking, GridsAnswerRowsTextsAndColours) {
  Form1.MSFlexGrid2.SetRows(3);
  Form1.MSFlexGrid2.SetText(2, 8, "A5");
  Form1.MSFlexGrid2.SetCellBackColor(2, 8, panel::LightRed);
  EXPECT_EQ(session.Ask("rows MSFlexGrid2"), "3");
  EXPECT_EQ(session.Ask("cell MSFlexGrid2 2 8"), "A5");
  EXPECT_EQ(session.Ask("color MSFlexGrid2 2 8"), "12632319");
  EXPECT_EQ(session.Ask("color MSFlexGrid2 2 7"), "16777215");
  EXPECT_EQ(session.Refused("cell MSFlexGrid2 3 0"), "no such cell");
  EXPECT_EQ(session.Refused("cell MSFlexGrid2 0 9"), "no such cell");
  EXPECT_EQ(session.Refused("color MSFlexGrid2 -1 0"), "no such cell");
  EXPECT_EQ(session.Refused("rows FlashOl"), "FlashOl is no grid");
  EXPECT_EQ(session.Refused("cell FlashOl 0 0"), "FlashOl is no grid");
}

TEST_F(ScriptLooking, ColoursOfControls) {
  Form1.Shape2.FillColor = panel::Red;
  EXPECT_EQ(session.Ask("color Shape2"), "255");
  EXPECT_EQ(session.Ask("color Shape3"), "14737632");
  EXPECT_EQ(session.Ask("color List1"), "16777215");
  EXPECT_EQ(session.Ask("color FlashOl"), "15790320");
  EXPECT_EQ(session.Refused("color Nothing"), "no control Nothing");
}

TEST_F(ScriptLooking, EnabledAndVisible) {
  Form1.FlashOl.Enabled = false;
  EXPECT_EQ(session.Ask("enabled FlashOl"), "0");
  EXPECT_EQ(session.Ask("enabled FlashÍr"), "1");
  EXPECT_EQ(session.Ask("visible FlashOl"), "1");
  EXPECT_EQ(session.Ask("visible Text1"), "0");
  EXPECT_EQ(session.Ask("visible FlashOlv.FlashPuff"), "0");
}

TEST_F(ScriptLooking, WindowsStandInTheOrderOfLoading) {
  panel::FlashOlv.OnLoad = nullptr;
  panel::Állapot.Load();
  panel::FlashOlv.Load();
  Lines windows = session.Look("windows");
  ASSERT_GE(windows.size(), 2u);
  EXPECT_EQ(Lines(windows.end() - 2, windows.end()), (Lines{"Állapot", "FlashOlv"}));
}

TEST_F(ScriptLooking, MessagesAreToldOnce) {
  session.Do({"messages", "answer yes"});
  platform::seams.dialogs->Message("first\r\nline");
  EXPECT_TRUE(platform::seams.dialogs->AskYesNo("Folytatod?"));
  EXPECT_FALSE(platform::seams.dialogs->AskYesNo("Tényleg?"));
  EXPECT_EQ(session.Look("messages"),
            (Lines{"ok ok first line", "yesno yes Folytatod?", "yesno no Tényleg?"}));
  EXPECT_EQ(session.Look("messages"), Lines{});
}

TEST_F(ScriptLooking, VariablesAreNumbersFlagsAndTexts) {
  link::PortBase = 888;
  link::LptMode = true;
  link::WaitCount = 12.5;
  EXPECT_EQ(session.Ask("var PortBase"), "888");
  EXPECT_EQ(session.Ask("var LptMode"), "1");
  EXPECT_EQ(session.Ask("var WaitCount"), "12.5");
  link::WaitCount = 100000;
  EXPECT_EQ(session.Ask("var WaitCount"), "100000");
  EXPECT_EQ(session.Ask("var TablePointerU"), "00");
  EXPECT_EQ(session.Refused("var NoSuchName"), "no variable NoSuchName");
  EXPECT_EQ(session.Refused("var PortBase(1)"), "written as PortBase");
}

TEST_F(ScriptLooking, ElementsAndCellsHaveBounds) {
  EXPECT_EQ(session.Look("var ConfigBuffer(14)").size(), 1u);
  EXPECT_EQ(session.Look("var MainBuffer(8,66000)").size(), 1u);
  EXPECT_EQ(session.Look("var MainBuffer( 1 , 1 )").size(), 1u);
  EXPECT_EQ(session.Refused("var ConfigBuffer(15)"), "no element ConfigBuffer(15)");
  EXPECT_EQ(session.Refused("var ConfigBuffer(-1)"), "no element ConfigBuffer(-1)");
  EXPECT_EQ(session.Refused("var MainBuffer(9,1)"), "no element MainBuffer(9,1)");
  EXPECT_EQ(session.Refused("var MainBuffer(1,66001)"), "no element MainBuffer(1,66001)");
  for (const char* form :
       {"ConfigBuffer", "ConfigBuffer(", "ConfigBuffer()", "ConfigBuffer(1,2)", "ConfigBuffer(x)"}) {
    EXPECT_EQ(session.Refused(std::string("var ") + form), "written as ConfigBuffer(INDEX)") << form;
  }
  EXPECT_EQ(session.Refused("var MainBuffer(1)"), "written as MainBuffer(COLUMN,ROW)");
}

TEST_F(ScriptLooking, EveryVariableOfTheTableCanBeReadByItsOwnName) {
  image::HexLines.Set("first\nsecond\n");
  std::set<std::string_view> names;
  for (const bench::Variable& variable : bench::Variables()) {
    EXPECT_TRUE(names.insert(variable.name).second) << variable.name << " stands twice";
    const std::string brackets[] = {"", "(1)", "(1,1)"};
    EXPECT_EQ(session.Look("var " + std::string(variable.name) + brackets[variable.subscripts]).size(), 1u);
  }
}

TEST_F(ScriptLooking, LinesOfTheLoadedFileAreCountedFromZero) {
  image::HexLines.Set("first\nsecond\n");
  EXPECT_EQ(session.Ask("var HexLines(1)"), "second");
  EXPECT_EQ(session.Refused("var HexLines(2)"), "no element HexLines(2)");
  EXPECT_EQ(session.Refused("var HexLines(-1)"), "no element HexLines(-1)");
}

TEST_F(ScriptLooking, TimeCountsFromTheStart) {
  const long long before = std::stoll(session.Ask("time"));
  session.Do("pump 1000");
  platform::seams.ports->Out32(0x378, 0);
  EXPECT_EQ(std::stoll(session.Ask("time")), before + 1001);
}

TEST(ScriptLookingBeforeStart, TheClockOfTheProgramStandsAtZero) {
  BenchSession session;
  session.Do("pump 5000000");
  EXPECT_EQ(session.Ask("time"), "0");
  EXPECT_EQ(platform::seams.clock->LocalTime(), "12:00:00");
  EXPECT_EQ(session.Ask("get FlashOl"), "Flash Beolvasása");
}

}  // namespace
}  // namespace zelvo::test
