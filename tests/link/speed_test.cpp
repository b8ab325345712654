// The speed controls of both pages.
#include "link/speed.h"

#include <gtest/gtest.h>

#include "link/delays.h"
#include "panel/form1.h"
#include "panel/operator.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using namespace link;  // NOLINT: the tests speak in the terms of the link
using panel::Form1;

class SpeedControlsOfBothPages : public testing::Test {
 protected:
  SpeedControlsOfBothPages() { session.Do("start"); }

  /// Both bars, both value lists, `SpeedSetting`, `WaitCount` and the file stand at scroll bar value `value`.
  void ExpectSpeed(int value, const char* file) {
    const std::string text = std::to_string(value);
    EXPECT_EQ(session.Ask("get ÁSeb"), text);
    EXPECT_EQ(session.Ask("get HScroll1"), text);
    EXPECT_EQ(session.Look("list List3"), Lines{"  " + text + "  "});
    EXPECT_EQ(session.Look("list List11"), Lines{"  " + text + "  "});
    EXPECT_EQ(SpeedSetting, 10.0 * value);
    EXPECT_EQ(WaitCount, 10.0 * value);
    EXPECT_EQ(session.Folder().Read("speed.ini"), file + std::string("\r\n"));
  }
  [[nodiscard]] Lines Messages() { return session.Look("messages"); }

  BenchSession session;
};

/// The same controls of the PIC18 and of the mid-range page.
struct PageControls {
  const char *bar, *otherBar, *list, *edit, *tenfold, *twin, *slow, *slowTwin, *frame, *otherEdit;
  int tab, otherTab;
};
const PageControls Pages[] = {{"ÁSeb", "HScroll1", "List3", "Text1", "Check9", "Check7", "Check10", "Check11",
                               "Frame(0)", "Text2", 2, 1},
                              {"HScroll1", "ÁSeb", "List11", "Text2", "Check7", "Check9", "Check11",
                               "Check10", "Frame(1)", "Text1", 1, 2}};

std::string Command(const char* verb, const char* control, const std::string& rest = "") {
  return std::string(verb) + ' ' + control + (rest.empty() ? "" : ' ' + rest);
}
std::string Tab(int index) {
  return "tab " + std::to_string(index);
}

TEST_F(SpeedControlsOfBothPages, TheBarsRunFrom1To10000InStepsOf10) {
  for (const panel::ScrollBar* bar : {&Form1.ÁSeb, &Form1.HScroll1}) {
    EXPECT_EQ(bar->Min, 1);
    EXPECT_EQ(bar->Max, 10000);
    EXPECT_EQ(bar->LargeChange, 10);
  }
  for (const char* box : {"Check7", "Check9"}) EXPECT_EQ(session.Ask(Command("get", box)), "0");
  EXPECT_EQ(Form1.Check7.Caption.Get(), "10x Speed");
  EXPECT_EQ(Form1.Check9.Caption.Get(), "10x Speed");
  EXPECT_EQ(Form1.Check10.Caption.Get(), "Szuper lassú");
  EXPECT_EQ(Form1.Check11.Caption.Get(), "Szuper lassú");
}

TEST_F(SpeedControlsOfBothPages, AMoveOfEitherBarMovesTheOtherShowsTheValueAndSavesIt) {
  session.Do("scroll ÁSeb 120");
  ExpectSpeed(120, "120,0");
  session.Do("scroll HScroll1 10000");
  ExpectSpeed(10000, "10000,0");
  session.Do("scroll HScroll1 1");
  ExpectSpeed(1, "1,0");
}

TEST_F(SpeedControlsOfBothPages, AMoveDuringARunChangesTheSpeedInForce) {
  WaitCount = 3;
  session.Do("scroll ÁSeb 9");
  EXPECT_EQ(WaitCount, 90);
}

TEST_F(SpeedControlsOfBothPages, TheTickMultipliesTheSettingByTenAndIsSavedWithIt) {
  for (const PageControls& page : Pages) {
    session.Do({Tab(page.tab), "scroll ÁSeb 70", Command("tick", page.tenfold)});
    EXPECT_EQ(session.Ask(Command("get", page.twin)), "1");
    ExpectSpeed(700, "700,1");
    session.Do(Command("untick", page.tenfold));
    EXPECT_EQ(session.Ask(Command("get", page.twin)), "0");
    ExpectSpeed(70, "70,0");
  }
}

TEST_F(SpeedControlsOfBothPages, TheTickAt5000IsCappedAt100000) {
  for (const PageControls& page : Pages) {
    session.Do({Tab(page.tab), "scroll ÁSeb 5000", Command("tick", page.tenfold)});
    ExpectSpeed(10000, "10000,1");
    session.Do(Command("untick", page.tenfold));
    ExpectSpeed(1000, "1000,0");
  }
}

TEST_F(SpeedControlsOfBothPages, ClearingTheTickAtASettingOf50StopsAtTheFloorOf10) {
  for (const PageControls& page : Pages) {
    session.Do({Tab(page.tab), "scroll ÁSeb 3", Command("tick", page.tenfold), "scroll ÁSeb 5"});
    EXPECT_EQ(SpeedSetting, 50);
    session.Do(Command("untick", page.tenfold));
    ExpectSpeed(1, "1,0");
  }
}

TEST_F(SpeedControlsOfBothPages, AValueThatDoesNotDivideByTenIsRoundedByTheBar) {
  session.Do({"tab 2", "scroll ÁSeb 7", "tick Check9", "scroll ÁSeb 127", "untick Check9"});
  ExpectSpeed(13, "13,0");
}

TEST_F(SpeedControlsOfBothPages, ATickThatMovesNoBarSavesNothing) {
  session.Do({"tab 1", "scroll HScroll1 10000"});
  session.Do("tick Check7");
  EXPECT_EQ(SpeedSetting, 100000);
  EXPECT_EQ(session.Ask("get Check9"), "1");
  EXPECT_EQ(session.Folder().Read("speed.ini"), "10000,0\r\n") << "only the bar's change saves";
}

TEST_F(SpeedControlsOfBothPages, ATickOfThePageThatIsNotInViewScalesNothingAndMirrorsNothing) {
  for (const PageControls& page : Pages) {
    session.Do({Tab(page.otherTab), "scroll ÁSeb 70", Command("tick", page.tenfold)});
    EXPECT_EQ(session.Ask(Command("get", page.twin)), "0");
    EXPECT_EQ(SpeedSetting, 700);
    EXPECT_EQ(session.Ask("get ÁSeb"), "70");
    session.Do(Command("untick", page.tenfold));
    EXPECT_EQ(SpeedSetting, 700);
  }
}

TEST_F(SpeedControlsOfBothPages, ATickWhileTheFileIsBeingReadScalesNothing) {
  session.Do({"tab 1", "scroll ÁSeb 70"});
  SpeedLoading = true;
  session.Do("tick Check7");
  SpeedLoading = false;
  EXPECT_EQ(SpeedSetting, 700);
  EXPECT_EQ(session.Ask("get Check9"), "0");
}

TEST_F(SpeedControlsOfBothPages, TheSlowTicksFollowEachOtherAndChangeNothingElse) {
  for (const PageControls& page : Pages) {
    for (const int tab : {1, 2}) {
      session.Do({Tab(tab), "scroll ÁSeb 70", Command("tick", page.slow)});
      EXPECT_EQ(session.Ask(Command("get", page.slowTwin)), "1");
      ExpectSpeed(70, "70,0");
      session.Do(Command("untick", page.slow));
      EXPECT_EQ(session.Ask(Command("get", page.slowTwin)), "0");
      ExpectSpeed(70, "70,0");
    }
  }
}

TEST_F(SpeedControlsOfBothPages, AClickOnTheValueOpensThePagesEditBoxEmptyAndWithTheFocus) {
  for (const PageControls& page : Pages) {
    auto* const edit = dynamic_cast<panel::TextBox*>(Form1.Find(page.edit));
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(session.Ask(Command("visible", page.edit)), "0");
    edit->Text = std::string("old");
    const unsigned asked = edit->FocusRequests;
    session.Do(Command("click", page.list));
    EXPECT_EQ(session.Ask(Command("visible", page.edit)), "1");
    EXPECT_EQ(session.Ask(Command("visible", page.otherEdit)), "0");
    EXPECT_EQ(session.Ask(Command("get", page.edit)), "");
    EXPECT_EQ(edit->FocusRequests, asked + 1);
    session.Do({Command("type", page.edit, "1"), Command("key", page.edit, "Enter")});
  }
}

TEST_F(SpeedControlsOfBothPages, EnterLeavingAndAMouseEventOnThePageApplyTheText) {
  int value = 100;
  for (const PageControls& page : Pages) {
    for (const std::string& act :
         {Command("key", page.edit, "Enter"), Command("leave", page.edit), Command("click", page.frame)}) {
      ++value;
      session.Do({Command("click", page.list), Command("type", page.edit, std::to_string(value)), act});
      ExpectSpeed(value, (std::to_string(value) + ",0").c_str());
      EXPECT_EQ(session.Ask(Command("visible", page.edit)), "0") << act;
      EXPECT_EQ(Messages(), Lines{});
    }
  }
}

TEST_F(SpeedControlsOfBothPages, TheEndsOfTheRangeAreTaken) {
  session.Do({"click List3", "type Text1 10000", "key Text1 Enter"});
  ExpectSpeed(10000, "10000,0");
  session.Do({"click List11", "type Text2 1", "key Text2 Enter"});
  ExpectSpeed(1, "1,0");
}

TEST_F(SpeedControlsOfBothPages, AFractionGoesToTheBarsNextPositionEverywhere) {
  session.Do({"tab 1", "click List11", "type Text2 2.4", "key Text2 Enter"});
  EXPECT_EQ(session.Ask("get HScroll1"), "2");
  EXPECT_EQ(session.Ask("list List11"), "  2  ");
  EXPECT_EQ(session.Ask("var SpeedSetting"), "20");
}

TEST_F(SpeedControlsOfBothPages, ANumberOutOfTheRangeIsRefused) {
  session.Do("scroll ÁSeb 70");
  for (const PageControls& page : Pages) {
    for (const char* text : {"0", "10001", "-3", "1000000"}) {
      session.Do({Command("click", page.list), Command("type", page.edit, text),
                  Command("key", page.edit, "Enter")});
      EXPECT_EQ(Messages(), Lines{"ok ok minimum érték 1, maximum érték 10000"}) << text;
      ExpectSpeed(70, "70,0");
      EXPECT_EQ(session.Ask(Command("visible", page.edit)), "1");
    }
  }
}

TEST_F(SpeedControlsOfBothPages, WhatIsNoNumberIsRefused) {
  session.Do("scroll ÁSeb 70");
  for (const PageControls& page : Pages) {
    for (const char* text : {"gyors", "12x", "--5", "1 2", "nan", "inf"}) {
      session.Do({Command("click", page.list), Command("type", page.edit, text),
                  Command("key", page.edit, "Enter")});
      EXPECT_EQ(Messages(), Lines{"ok ok számot kérnék! :)"}) << text;
      ExpectSpeed(70, "70,0");
    }
  }
}

TEST_F(SpeedControlsOfBothPages, EnterInAnEmptyBoxDoesNothingButLeavingItAsksForANumber) {
  session.Do({"scroll ÁSeb 70", "click List3", "key Text1 Enter"});
  EXPECT_EQ(Messages(), Lines{});
  session.Do("leave Text1");
  EXPECT_EQ(Messages(), Lines{"ok ok számot kérnék! :)"});
  ExpectSpeed(70, "70,0");
}

TEST_F(SpeedControlsOfBothPages, EscapeAndAMouseEventOnTheOtherPageApplyNothing) {
  session.Do({"scroll ÁSeb 70", "click List3", "type Text1 80", "key Text1 Escape", "click Frame(1)"});
  ExpectSpeed(70, "70,0");
  EXPECT_EQ(session.Ask("visible Text1"), "1");
}

TEST_F(SpeedControlsOfBothPages, AMouseEventWhileNoBoxIsShownDoesNothing) {
  session.Do({"scroll ÁSeb 70", "click Frame(0)", "click Frame(1)"});
  EXPECT_EQ(Messages(), Lines{});
  ExpectSpeed(70, "70,0");
}

TEST_F(SpeedControlsOfBothPages, ATypedSpeedIsSavedWithTheTickOfTheTenfold) {
  session.Do({"tab 2", "tick Check9", "click List3", "type Text1 33", "key Text1 Enter"});
  ExpectSpeed(33, "33,1");
}

}  // namespace
}  // namespace zelvo::test
