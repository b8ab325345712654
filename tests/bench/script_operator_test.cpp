// The operator's commands: every way to a control, and every way that is barred.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using panel::Form1;

/// A session after `start`, with a note of what happened to the controls.
class ScriptOperator : public testing::Test {
 protected:
  void SetUp() override { session.Do("start"); }
  std::function<void()> Note(std::string what) {
    return [this, what] { notes.push_back(what); };
  }
  BenchSession session;
  Lines notes;
};

TEST(ScriptProgram, CommandsOfTheOperatorNeedAStartedProgram) {
  BenchSession session;
  for (const char* command :
       {"stop", "tab 1", "choose Combo1 PIC18F452", "click FlashOl", "dblclick List3", "tick Check1",
        "untick Check1", "scroll ÁSeb 5", "type Text1 5", "key Text1 Enter", "leave Text1", "close Form1"}) {
    EXPECT_EQ(session.Refused(command), "not started") << command;
  }
}

TEST(ScriptProgram, StartsOnceAndEndsOnce) {
  BenchSession session;
  EXPECT_EQ(session.Look("windows"), Lines{});
  session.Do("start");
  EXPECT_EQ(session.Refused("start"), "already started");
  const Lines windows = session.Look("windows");
  EXPECT_NE(std::find(windows.begin(), windows.end(), "MDIForm1"), windows.end());
  EXPECT_NE(std::find(windows.begin(), windows.end(), "Form1"), windows.end());

  session.Do("stop");
  EXPECT_TRUE(platform::programEnded);
  EXPECT_EQ(session.Look("windows"), Lines{});
  for (const char* command : {"start", "stop", "click FlashOl", "tab 1", "close Form1"}) {
    EXPECT_EQ(session.Refused(command), "the program has ended") << command;
  }
  EXPECT_EQ(session.Ask("get FlashOl"), "Flash Beolvasása");
}

TEST_F(ScriptOperator, ClickRunsTheClickEvent) {
  Form1.FlashOl.Click = Note("FlashOl");
  Form1.List3.Click = Note("List3");
  Form1.MSFlexGrid1.Click = Note("grid");
  session.Do({"click FlashOl", "click List3", "click MSFlexGrid1"});
  EXPECT_EQ(notes, (Lines{"FlashOl", "List3", "grid"}));
}

TEST_F(ScriptOperator, ClickOnATickBoxTurnsItOver) {
  session.Do("click Check1");
  EXPECT_EQ(session.Ask("get Check1"), "1");
  session.Do("click Check1");
  EXPECT_EQ(session.Ask("get Check1"), "0");
}

TEST_F(ScriptOperator, ClickOnAPageIsAMouseEvent) {
  Form1.Frame0.MouseEvent = Note("page");
  session.Do("click Frame(0)");
  EXPECT_EQ(notes, Lines{"page"});
}

TEST_F(ScriptOperator, ClickOnTheTabsIsAClickOnTheSelectedOne) {
  session.Do("tab 2");
  Form1.TabStrip1.Click = Note("tab");
  session.Do("click TabStrip1");
  EXPECT_EQ(notes, Lines{"tab"});
  EXPECT_EQ(session.Ask("get TabStrip1"), "2");
}

TEST_F(ScriptOperator, ControlsOutOfReachAreRefused) {
  Form1.FlashOl.Click = Note("FlashOl");
  Form1.FlashOl.Enabled = false;
  EXPECT_EQ(session.Refused("click FlashOl"), "disabled");
  Form1.FlashOl.Visible = false;
  EXPECT_EQ(session.Refused("click FlashOl"), "hidden");
  EXPECT_EQ(session.Refused("dblclick FlashOl"), "hidden");
  EXPECT_EQ(session.Refused("key FlashOl Enter"), "hidden");
  EXPECT_EQ(session.Refused("leave FlashOl"), "hidden");
  EXPECT_EQ(session.Refused("click Állapot.Command1"), "hidden");
  Form1.Check1.Enabled = false;
  EXPECT_EQ(session.Refused("tick Check1"), "disabled");
  EXPECT_EQ(session.Refused("untick Check1"), "disabled");
  Form1.Combo1.Enabled = false;
  EXPECT_EQ(session.Refused("choose Combo1 PIC18F452"), "disabled");
  Form1.ÁSeb.Enabled = false;
  EXPECT_EQ(session.Refused("scroll ÁSeb 5"), "disabled");
  Form1.Text1.Visible = false;
  EXPECT_EQ(session.Refused("type Text1 5"), "hidden");
  Form1.MSFlexGrid1.Enabled = false;
  EXPECT_EQ(session.Refused("click MSFlexGrid1 0 1"), "disabled");
  EXPECT_EQ(session.Refused("dblclick MSFlexGrid1 0 1"), "disabled");
  Form1.TabStrip1.Enabled = false;
  EXPECT_EQ(session.Refused("tab 1"), "disabled");
  Form1.Frame0.Visible = false;
  EXPECT_EQ(session.Refused("click Frame(0)"), "hidden");
  EXPECT_EQ(notes, Lines{});
  EXPECT_EQ(session.Ask("get Check1"), "0");
}

TEST_F(ScriptOperator, NamesThatDoNotExistAreRefused) {
  for (const char* name :
       {"FlashOlx", "flashol", "Nowhere.FlashOl", "FlashOlv.FlashOl", "Frame(2)", ".", "Form1."}) {
    EXPECT_EQ(session.Refused(std::string("click ") + name), std::string("no control ") + name);
  }
  EXPECT_EQ(session.Refused("close Nowhere"), "no window Nowhere");
}

TEST_F(ScriptOperator, ControlsOfTheMainWindowMayBearItsName) {
  EXPECT_EQ(session.Ask("get Form1.FlashOl"), "Flash Beolvasása");
  EXPECT_EQ(session.Ask("visible Form1.Frame(1)"), "1");
}

TEST_F(ScriptOperator, KindsThatDoNotFitAreRefused) {
  EXPECT_EQ(session.Refused("tick FlashOl"), "FlashOl is no check box");
  EXPECT_EQ(session.Refused("choose FlashOl x"), "FlashOl is no combo box");
  EXPECT_EQ(session.Refused("scroll Text1 5"), "Text1 is no scroll bar");
  EXPECT_EQ(session.Refused("type ÁSeb 5"), "ÁSeb is no text box");
  EXPECT_EQ(session.Refused("click FlashOl 0 0"), "FlashOl is no grid");
  EXPECT_EQ(session.Refused("dblclick MSFlexGrid1"), "a grid needs ROW COL");
  EXPECT_EQ(session.Refused("key Text1 Tab"), "unknown key Tab");
}

TEST_F(ScriptOperator, TickAndUntickRunTheClickOnAChangeOnly) {
  Form1.Check1.Click = Note("Check1");
  session.Do({"untick Check1", "tick Check1", "tick Check1", "untick Check1"});
  EXPECT_EQ(notes, (Lines{"Check1", "Check1"}));
}

TEST_F(ScriptOperator, ChoosingALineOfTheListRunsTheClick) {
  Form1.Combo1.Click = Note("Combo1");
  session.Do("choose Combo1 PIC18F452");
  EXPECT_EQ(notes, Lines{"Combo1"});
  session.Do("choose Combo1 PIC18F452 extra");
  EXPECT_EQ(notes, Lines{"Combo1"});
  EXPECT_EQ(session.Ask("get Combo1"), "PIC18F452 extra");
}

TEST_F(ScriptOperator, ScrollSetsAValueWithinTheBarOnly) {
  session.Do("scroll ÁSeb 77");
  EXPECT_EQ(session.Ask("get ÁSeb"), "77");
  for (const char* value : {"0", "10001", "-5"}) {
    EXPECT_EQ(session.Refused(std::string("scroll ÁSeb ") + value), "out of range");
  }
  EXPECT_EQ(session.Refused("scroll ÁSeb ten"), "no number ten");
  EXPECT_EQ(session.Refused("scroll ÁSeb 99999999999"), "no number 99999999999");
  EXPECT_EQ(session.Ask("get ÁSeb"), "77");
}

TEST_F(ScriptOperator, TypeReplacesTheTextAndEmptiesIt) {
  Form1.Text1.Visible = true;
  session.Do("type Text1 12");
  EXPECT_EQ(session.Ask("get Text1"), "12");
  session.Do("type Text1");
  EXPECT_EQ(session.Ask("get Text1"), "");
}

TEST_F(ScriptOperator, KeysFocusAndDoubleClicksReachTheControl) {
  Form1.Text1.Visible = true;
  Form1.Text1.KeyDown = [this](panel::Key key) {
    notes.push_back(key == panel::Key::Enter ? "Enter" : "Escape");
  };
  Form1.Text1.LostFocus = Note("left");
  Form1.List1.DblClick = Note("double");
  session.Do({"key Text1 Enter", "key Text1 Escape", "leave Text1", "dblclick List1"});
  EXPECT_EQ(notes, (Lines{"Enter", "Escape", "left", "double"}));
}

TEST_F(ScriptOperator, CellsAreReachedByRowAndColumn) {
  Form1.MSFlexGrid1.SetRows(3);
  const auto note = [this](const char* kind) {
    return [this, kind](int row, int col) {
      notes.push_back(std::string(kind) + ' ' + std::to_string(row) + ' ' + std::to_string(col));
    };
  };
  Form1.MSFlexGrid1.CellClick = note("click");
  Form1.MSFlexGrid1.CellDblClick = note("dblclick");
  session.Do({"click MSFlexGrid1 0 0", "dblclick MSFlexGrid1 2 8"});
  EXPECT_EQ(notes, (Lines{"click 0 0", "dblclick 2 8"}));
  for (const char* place : {"3 0", "0 9", "-1 0", "0 -1", "x 0", "4294967296 0"}) {
    EXPECT_EQ(session.Refused(std::string("click MSFlexGrid1 ") + place), "no such cell") << place;
    EXPECT_EQ(session.Refused(std::string("dblclick MSFlexGrid1 ") + place), "no such cell") << place;
  }
  EXPECT_EQ(notes.size(), 2u);
}

TEST_F(ScriptOperator, TabPassesEveryNumberOn) {
  Form1.TabStrip1.Click = Note("tab");
  session.Do({"tab 2", "tab 2", "tab 7"});
  EXPECT_EQ(notes.size(), 3u);
  EXPECT_EQ(session.Refused("tab two"), "no number two");
}

TEST_F(ScriptOperator, CloseUnloadsALoadedWindow) {
  EXPECT_EQ(session.Refused("close FlashOlv"), "not loaded");
  panel::FlashOlv.OnLoad = nullptr;
  panel::FlashOlv.Load();
  session.Do("close FlashOlv");
  EXPECT_FALSE(panel::FlashOlv.Loaded());
}

TEST_F(ScriptOperator, AFaultOfAHandlerStaysInsideIt) {
  Form1.FlashOl.Click = [] { throw std::runtime_error("broken"); };
  session.Do("click FlashOl");
  EXPECT_EQ(session.Ask("get FlashOl"), "Flash Beolvasása");
}

}  // namespace
}  // namespace zelvo::test
