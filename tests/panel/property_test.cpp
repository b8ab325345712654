// Controls as plain data: values, their events, and the stamps that views follow.
#include <gtest/gtest.h>

#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "panel/window.h"

namespace zelvo::test {
namespace {

using namespace panel;  // NOLINT: the tests speak in the terms of the panel

struct SampleWindow : Window {
  SampleWindow() : Window("Sample", "A window") {}
  CheckBox Box{*this, "Box", "Tick me"};
  TextBox Edit{*this, "Edit"};
  TextBox Hidden{*this, "Hidden", false};
  ScrollBar Bar{*this, "Bar", 1, 100, 10};
  ComboBox Combo{*this, "Combo"};
  ListBox List{*this, "List"};
  Label Text{*this, "Text", "Caption"};
  CommandButton Button{*this, "Button", "Press"};
  Shape Lamp{*this, "Lamp"};
  ProgressBar Progress{*this, "Progress"};
  TabStrip Tabs{*this, "Tabs", {"one", "two"}};
};

struct Counted {
  explicit Counted(std::function<void()>& hook) {
    hook = [this] { ++times; };
  }
  int times = 0;
};

TEST(Property, AnotherValueStampsTheControlAndRunsTheEventOnce) {
  SampleWindow window;
  const Counted clicks(window.Box.Click);
  const std::uint64_t before = window.Box.Changed();
  window.Box.Value = true;
  EXPECT_EQ(clicks.times, 1);
  EXPECT_GT(window.Box.Changed(), before);
  EXPECT_EQ(window.Box.Changed(), revision);
  window.Box.Value = false;
  EXPECT_EQ(clicks.times, 2);
}

TEST(Property, TheSameValueIsNoChange) {
  SampleWindow window;
  const Counted clicks(window.Box.Click), changes(window.Bar.Change);
  const std::uint64_t before = revision;
  window.Box.Value = false;
  window.Bar.Value = 1;
  window.Text.Caption = "Caption";
  EXPECT_EQ(clicks.times + changes.times, 0);
  EXPECT_EQ(revision, before);
}

TEST(Property, TheEventSeesTheNewValue) {
  SampleWindow window;
  int seen = 0;
  window.Bar.Change = [&] { seen = window.Bar.Value; };
  window.Bar.Value = 42;
  EXPECT_EQ(seen, 42);
  std::string text;
  window.Edit.Change = [&] { text = window.Edit.Text.Get(); };
  window.Edit.Text = "abc";
  EXPECT_EQ(text, "abc");
}

TEST(Property, TwoBoxesThatFollowEachOtherComeToRest) {
  SampleWindow window;
  CheckBox twin{window, "Twin", ""};
  int clicks = 0;
  window.Box.Click = [&] {
    ++clicks;
    twin.Value = window.Box.Value.Get();
  };
  twin.Click = [&] {
    ++clicks;
    window.Box.Value = twin.Value.Get();
  };
  twin.Value = true;
  EXPECT_TRUE(window.Box.Value);
  EXPECT_EQ(clicks, 2);
}

TEST(Property, CaptionsTextsOfCombosAndColoursHaveNoEvent) {
  SampleWindow window;
  const Counted button(window.Button.Click), combo(window.Combo.Click), tabs(window.Tabs.Click);
  window.Button.Caption = "Pressed";
  window.Combo.AddItem("line");
  window.Combo.Text = "line";
  window.Lamp.FillColor = Red;
  window.Tabs.SelectedItem = 2;
  EXPECT_EQ(button.times + combo.times + tabs.times, 0);
}

TEST(Property, IsTakenOverFromAnotherByItsValue) {
  SampleWindow window;
  window.Text.Caption = "new";
  window.Button.Caption = window.Text.Caption;
  EXPECT_EQ(window.Button.Caption.Get(), "new");
}

TEST(Property, GoesBackToItsDesignWithoutAnEvent) {
  SampleWindow window;
  const Counted clicks(window.Box.Click);
  window.Box.Value = true;
  const std::uint64_t before = revision;
  window.Box.Value.Reset();
  EXPECT_FALSE(window.Box.Value);
  EXPECT_EQ(clicks.times, 1);
  EXPECT_GT(revision, before) << "a view has to draw it";
}

TEST(Controls, ListsTakeLinesAtBothEnds) {
  SampleWindow window;
  window.List.AddItem("b");
  window.List.InsertTop("a");
  window.List.AddItem("c");
  EXPECT_EQ(window.List.Lines(), (std::vector<std::string>{"a", "b", "c"}));
  const std::uint64_t before = window.List.Changed();
  window.List.Clear();
  EXPECT_TRUE(window.List.Lines().empty());
  EXPECT_GT(window.List.Changed(), before);
}

TEST(Controls, ATextBoxCountsItsRequestsForTheFocus) {
  SampleWindow window;
  const std::uint64_t before = window.Edit.Changed();
  window.Edit.SetFocus();
  window.Edit.SetFocus();
  EXPECT_EQ(window.Edit.FocusRequests, 2u);
  EXPECT_GT(window.Edit.Changed(), before);
}

TEST(Controls, AStepOfTheBarReachesTheWitnessesEvenWhenTheValueStays) {
  struct Watcher : Witness {
    void BarStepped(ProgressBar& bar, int value) override {
      seen += bar.Name() + std::to_string(value) + ' ';
    }
    std::string seen;
  } watcher;
  witnesses.push_back(&watcher);
  SampleWindow window;
  window.Progress.Step(5);
  window.Progress.Step(5);
  window.Progress.Value = 9;
  witnesses.clear();
  EXPECT_EQ(watcher.seen, "Progress5 Progress5 ");
  EXPECT_EQ(window.Progress.Value.Get(), 9);
}

TEST(Controls, TheColoursAreTheSystemsNumbers) {
  EXPECT_EQ(Grey, 14737632);
  EXPECT_EQ(Red, 255);
  EXPECT_EQ(Green, 65280);
  EXPECT_EQ(White, 0xFFFFFF);
}

TEST(Registry, EveryControlIsFoundByItsNameAndNoNameStandsTwiceInAWindow) {
  for (Window* window : AllWindows()) {
    EXPECT_EQ(FindWindow(window->Name()), window);
    for (Control* control : window->Controls()) {
      EXPECT_EQ(window->Find(control->Name()), control) << window->Name() << '.' << control->Name();
      EXPECT_EQ(&control->Owner(), window);
    }
    EXPECT_EQ(window->Find("NoSuchControl"), nullptr);
  }
  EXPECT_EQ(FindWindow("NoSuchWindow"), nullptr);
}

TEST(Registry, TheMemoryViewsListsStandInTheOrderOfTheirBytes) {
  const char* const config[] = {"Bconfig1L", "Bconfig1H", "Bconfig2L", "Bconfig2H", "Bconfig3L",
                                "Bconfig3H", "Bconfig4L", "Bconfig4H", "Bconfig5L", "Bconfig5H",
                                "Bconfig6L", "Bconfig6H", "Bconfig7L", "Bconfig7H"};
  for (std::size_t i = 0; i < 14; ++i) EXPECT_EQ(Form1.ConfigLists[i]->Name(), config[i]);
  for (std::size_t i = 0; i < 8; ++i)
    EXPECT_EQ(Form1.IdLists[i]->Name(), "IDLOC" + std::to_string(i + 1) + '1');
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(Form1.MidIdLists[i]->Name(), "List" + std::to_string(i + 7));
}

}  // namespace
}  // namespace zelvo::test
