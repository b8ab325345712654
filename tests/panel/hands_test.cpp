// The operator's hand on the controls.
#include <gtest/gtest.h>

#include <stdexcept>

#include "panel/operator.h"
#include "platform/seams.h"

namespace zelvo::test {
namespace {

using namespace panel;  // NOLINT: the tests speak in the terms of the panel

struct HandWindow : Window {
  HandWindow() : Window("Hand", "") {}
  CommandButton Button{*this, "Button", "Press"};
  CheckBox Box{*this, "Box", "Tick me"};
  OptionButton First{*this, "First", "1"}, Second{*this, "Second", "2"}, Third{*this, "Third", "3"};
  TextBox Edit{*this, "Edit"};
  ScrollBar Bar{*this, "Bar", 1, 100, 10};
  ComboBox Combo{*this, "Combo"};
  ListBox List{*this, "List"};
  Grid Table{*this, "Table", 3};
  TabStrip Tabs{*this, "Tabs", {"one", "two"}};
  Frame Page{*this, "Page"};
};

class Hands : public testing::Test {
 protected:
  Hands() { window.Load(); }
  /// Each event adds its word.
  std::function<void()> Note(const char* word) {
    return [this, word] { events += std::string(word) + ' '; };
  }
  HandWindow window;
  std::string events;
};

TEST_F(Hands, AClickRunsTheClickEvent) {
  window.Button.Click = Note("button");
  window.List.Click = Note("list");
  EXPECT_EQ(HandClick(window.Button), HandResult::Done);
  EXPECT_EQ(HandClick(window.List), HandResult::Done);
  EXPECT_EQ(events, "button list ");
}

TEST_F(Hands, AControlWithoutAnEventTakesEveryHandQuietly) {
  EXPECT_EQ(HandClick(window.Button), HandResult::Done);
  EXPECT_EQ(HandDblClick(window.Button), HandResult::Done);
  EXPECT_EQ(HandKey(window.Edit, Key::Enter), HandResult::Done);
  EXPECT_EQ(HandLeave(window.Edit), HandResult::Done);
  EXPECT_EQ(HandCellClick(window.Table, 0, 0), HandResult::Done);
  EXPECT_EQ(HandCellDblClick(window.Table, 0, 0), HandResult::Done);
  HandMouse(window.Page);
  EXPECT_EQ(events, "");
}

/// Every way in, on a control of its kind.
std::vector<HandResult> EveryHand(HandWindow& window) {
  return {HandClick(window.Button),
          HandDblClick(window.List),
          HandTick(window.Box, true),
          HandChoose(window.Combo, "x"),
          HandScroll(window.Bar, 50),
          HandType(window.Edit, "x"),
          HandKey(window.Edit, Key::Escape),
          HandLeave(window.Edit),
          HandCellClick(window.Table, 0, 0),
          HandCellDblClick(window.Table, 0, 0),
          HandTab(window.Tabs, 2)};
}

TEST_F(Hands, ADisabledControlIsNotReached) {
  for (Control* control : window.Controls()) dynamic_cast<VisibleControl&>(*control).Enabled = false;
  window.Button.Click = window.List.DblClick = window.Box.Click = window.Tabs.Click = Note("reached");
  for (const HandResult result : EveryHand(window)) EXPECT_EQ(result, HandResult::Disabled);
  EXPECT_EQ(events, "");
  EXPECT_FALSE(window.Box.Value);
  EXPECT_EQ(window.Bar.Value.Get(), 1);
  EXPECT_EQ(window.Edit.Text.Get(), "");
  EXPECT_EQ(window.Combo.Text.Get(), "");
  EXPECT_EQ(window.Tabs.SelectedItem.Get(), 1);
}

TEST_F(Hands, AHiddenControlIsNotReachedAndNeitherIsOneOfAnUnloadedWindow) {
  for (Control* control : window.Controls()) dynamic_cast<VisibleControl&>(*control).Visible = false;
  for (const HandResult result : EveryHand(window)) EXPECT_EQ(result, HandResult::Hidden);
  for (Control* control : window.Controls()) dynamic_cast<VisibleControl&>(*control).Visible = true;
  window.Unload();
  for (const HandResult result : EveryHand(window)) EXPECT_EQ(result, HandResult::Hidden);
  EXPECT_FALSE(window.Box.Value);
}

TEST_F(Hands, AClickOnATickBoxTurnsItAndIsItsClickEvent) {
  window.Box.Click = Note("box");
  EXPECT_EQ(HandClick(window.Box), HandResult::Done);
  EXPECT_TRUE(window.Box.Value);
  EXPECT_EQ(HandClick(window.Box), HandResult::Done);
  EXPECT_FALSE(window.Box.Value);
  EXPECT_EQ(events, "box box ");
}

TEST_F(Hands, ATickThatIsThereAlreadyIsNoClick) {
  window.Box.Click = Note("box");
  EXPECT_EQ(HandTick(window.Box, true), HandResult::Done);
  EXPECT_EQ(HandTick(window.Box, true), HandResult::Done);
  EXPECT_EQ(events, "box ");
}

TEST_F(Hands, ARadioButtonClearsTheOthersWithoutAClickOfTheirs) {
  window.First.Click = Note("first");
  window.Second.Click = Note("second");
  window.Box.Value = true;
  EXPECT_EQ(HandClick(window.First), HandResult::Done);
  EXPECT_EQ(HandClick(window.Second), HandResult::Done);
  EXPECT_FALSE(window.First.Value);
  EXPECT_TRUE(window.Second.Value);
  EXPECT_FALSE(window.Third.Value);
  EXPECT_TRUE(window.Box.Value) << "a tick box is none of them";
  EXPECT_EQ(events, "first second ");
  EXPECT_EQ(HandClick(window.Second), HandResult::Done);
  EXPECT_TRUE(window.Second.Value) << "a second click does not clear it";
}

TEST_F(Hands, AChoiceSetsTheTextAndIsAClickForALineOfTheListOnly) {
  window.Combo.AddItem("PIC18F452");
  window.Combo.Click = [this] { events += window.Combo.Text.Get() + ' '; };
  EXPECT_EQ(HandChoose(window.Combo, "PIC18F452"), HandResult::Done);
  EXPECT_EQ(HandChoose(window.Combo, "PIC18F452"), HandResult::Done);
  EXPECT_EQ(HandChoose(window.Combo, "PIC99"), HandResult::Done);
  EXPECT_EQ(window.Combo.Text.Get(), "PIC99");
  EXPECT_EQ(events, "PIC18F452 PIC18F452 ") << "the same line again is a click, too";
}

TEST_F(Hands, AScrollStaysWithinTheBar) {
  window.Bar.Change = Note("moved");
  HandResult result = HandScroll(window.Bar, 1000);
  EXPECT_EQ(window.Bar.Value.Get(), 100);
  result = HandScroll(window.Bar, -5);
  EXPECT_EQ(result, HandResult::Done);
  EXPECT_EQ(window.Bar.Value.Get(), 1);
  EXPECT_EQ(events, "moved moved ");
}

TEST_F(Hands, TypingKeysAndLeavingReachATextBox) {
  window.Edit.Change = Note("changed");
  window.Edit.LostFocus = Note("left");
  window.Edit.KeyDown = [this](Key key) { events += key == Key::Enter ? "enter " : "escape "; };
  for (const HandResult result : {HandType(window.Edit, "12"), HandKey(window.Edit, Key::Enter),
                                  HandKey(window.Edit, Key::Escape), HandLeave(window.Edit)}) {
    EXPECT_EQ(result, HandResult::Done);
  }
  EXPECT_EQ(window.Edit.Text.Get(), "12");
  EXPECT_EQ(events, "changed enter escape left ");
}

TEST_F(Hands, AGridTellsTheCellThenTheClick) {
  window.Table.SetRows(3);
  window.Table.CellClick = [this](int row, int col) { events += std::to_string(row * 10 + col) + ' '; };
  window.Table.Click = Note("click");
  window.Table.CellDblClick = [this](int row, int col) {
    events += "dbl" + std::to_string(row * 10 + col) + ' ';
  };
  EXPECT_EQ(HandCellClick(window.Table, 2, 1), HandResult::Done);
  EXPECT_EQ(HandCellDblClick(window.Table, 0, 2), HandResult::Done);
  EXPECT_EQ(events, "21 click dbl2 ");
}

TEST_F(Hands, AClickOnTheSelectedTabIsAClick) {
  window.Tabs.Click = [this] { events += std::to_string(window.Tabs.SelectedItem) + ' '; };
  EXPECT_EQ(HandTab(window.Tabs, 2), HandResult::Done);
  EXPECT_EQ(HandTab(window.Tabs, 2), HandResult::Done);
  EXPECT_EQ(events, "2 2 ");
}

TEST_F(Hands, AMouseEventOnAPageAndTheCloseOfAWindow) {
  window.Page.MouseEvent = Note("mouse");
  window.OnUnload = Note("unload");
  HandMouse(window.Page);
  HandClose(window);
  EXPECT_FALSE(window.Loaded());
  HandClose(window);
  EXPECT_EQ(events, "mouse unload ");
}

TEST_F(Hands, TheEndOfTheProgramEndsAHandlerWhereItStands) {
  window.Button.Click = [this] {
    events += "begun ";
    throw platform::ProgramEnded{};
  };
  EXPECT_EQ(HandClick(window.Button), HandResult::Done);
  EXPECT_EQ(events, "begun ");
}

TEST_F(Hands, AFaultOfAHandlerIsToldOnStandardErrorAndTheProgramGoesOn) {
  window.Button.Click = [this] { window.Table.SetText(1, 0, "x"); };
  window.Box.Click = [] { throw std::runtime_error("no luck"); };
  window.Page.MouseEvent = [this] { static_cast<void>(window.Table.Text(0, 3)); };
  window.OnUnload = [] { throw std::runtime_error("stuck"); };
  testing::internal::CaptureStderr();
  EXPECT_EQ(HandClick(window.Button), HandResult::Done);
  EXPECT_EQ(HandClick(window.Box), HandResult::Done);
  HandMouse(window.Page);
  HandClose(window);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "zelvo: a handler failed: a cell beyond its grid\nzelvo: a handler failed: no luck\n"
            "zelvo: a handler failed: a cell beyond its grid\nzelvo: a handler failed: stuck\n");
}

TEST_F(Hands, AfterAFaultTheTargetIsBroughtToRestOnce) {
  int rests = 0;
  AfterFault = [&rests] { ++rests; };
  window.Button.Click = [] { throw std::runtime_error("no luck"); };
  EXPECT_EQ(HandClick(window.Button), HandResult::Done);
  EXPECT_EQ(rests, 1);
  window.Button.Click = [] { throw platform::ProgramEnded{}; };
  EXPECT_EQ(HandClick(window.Button), HandResult::Done);
  EXPECT_EQ(rests, 1) << "an end of the program is no fault";
  AfterFault = nullptr;
}

TEST_F(Hands, AHandlerMayPutAnotherInItsOwnPlace) {
  window.Button.Click = [this, word = std::string("a text that is too long to stand in the hook itself")] {
    window.Button.Click = Note("second");
    events += word.substr(0, 6) + ' ';
  };
  EXPECT_EQ(HandClick(window.Button), HandResult::Done);
  EXPECT_EQ(HandClick(window.Button), HandResult::Done);
  EXPECT_EQ(events, "a text second ");
}

}  // namespace
}  // namespace zelvo::test
