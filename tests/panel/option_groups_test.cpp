// Radio buttons in frames, and a window that is called for while it is open.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "panel/operator.h"
#include "panel/window.h"

namespace zelvo::test {
namespace {

using namespace panel;  // NOLINT: the tests speak in the terms of the panel

struct FramedWindow : Window {
  FramedWindow() : Window("Framed", "") {}
  OptionFrame Upper{*this, "Upper", "Above"}, Lower{*this, "Lower", "Below"};
  OptionButton A1{*this, "A1", "", &Upper}, A2{*this, "A2", "", &Upper};
  OptionButton B1{*this, "B1", "", &Lower}, B2{*this, "B2", "", &Lower};
  OptionButton C1{*this, "C1", ""}, C2{*this, "C2", ""};
  CheckBox Box{*this, "Box", ""};
};

class Framed : public testing::Test {
 protected:
  Framed() {
    window.Load();
    for (OptionButton* option : Options())
      option->Click = [this, option] { clicks.push_back(option->Name()); };
  }
  std::vector<OptionButton*> Options() {
    return {&window.A1, &window.A2, &window.B1, &window.B2, &window.C1, &window.C2};
  }
  /// The names of the selected ones.
  std::string Selected() {
    std::string names;
    for (const OptionButton* option : Options()) names += option->Value ? option->Name() : "";
    return names;
  }
  FramedWindow window;
  std::vector<std::string> clicks;
};

TEST_F(Framed, ASelectionClearsTheOthersOfItsFrameAlone) {
  for (OptionButton* option : {&window.A1, &window.B1, &window.C1}) option->Select();
  EXPECT_EQ(Selected(), "A1B1C1");
  window.Box.Value = true;
  window.A2.Select();
  EXPECT_EQ(Selected(), "A2B1C1");
  window.B2.Select();
  EXPECT_EQ(Selected(), "A2B2C1");
  window.C2.Select();
  EXPECT_EQ(Selected(), "A2B2C2") << "those without a frame are a group too";
  EXPECT_TRUE(window.Box.Value);
  EXPECT_EQ(clicks, (std::vector<std::string>{"A1", "B1", "C1", "A2", "B2", "C2"}))
      << "the cleared ones are not clicked";
}

TEST_F(Framed, TheOperatorsHandSelectsAndOneThatIsSelectedIsNotClickedAgain) {
  EXPECT_EQ(HandClick(window.A1), HandResult::Done);
  EXPECT_EQ(HandClick(window.B2), HandResult::Done);
  EXPECT_EQ(HandTick(window.A1, true), HandResult::Done);
  EXPECT_EQ(HandClick(window.A2), HandResult::Done);
  EXPECT_EQ(Selected(), "A2B2");
  EXPECT_EQ(clicks, (std::vector<std::string>{"A1", "B2", "A2"}));
}

TEST_F(Framed, TheClickFindsTheOthersClearedAlready) {
  window.A1.Select();
  std::string seen;
  window.A2.Click = [&] { seen = Selected(); };
  window.A2.Select();
  EXPECT_EQ(seen, "A2");
}

TEST_F(Framed, EachKnowsItsFrame) {
  EXPECT_EQ(window.A1.Group(), &window.Upper);
  EXPECT_EQ(window.B2.Group(), &window.Lower);
  EXPECT_EQ(window.C1.Group(), nullptr);
  EXPECT_EQ(window.Upper.Caption.Get(), "Above");
}

TEST_F(Framed, OptionsOfAnotherWindowAreNoneOfTheGroup) {
  FramedWindow other;
  other.Load();
  window.C1.Select();
  other.C2.Select();
  EXPECT_EQ(Selected(), "C1");
}

TEST_F(Framed, AReloadSelectsNothing) {
  window.A1.Select();
  window.Unload();
  window.Load();
  EXPECT_EQ(Selected(), "");
  EXPECT_EQ(clicks, std::vector<std::string>{"A1"}) << "and clicks nothing";
}

// Called for.

class Calls : public Witness {
 public:
  Calls() { witnesses.push_back(this); }
  ~Calls() override { witnesses.clear(); }
  void WindowLoaded(Window& window) override { course += '+' + window.Name() + ' '; }
  void WindowCalled(Window& window) override { course += '!' + window.Name() + ' '; }
  void WindowUnloaded(Window& window) override { course += '-' + window.Name() + ' '; }
  std::string course;
};

TEST_F(Framed, ALoadOfAnOpenWindowIsACallForItAndNoLoad) {
  Calls calls, others;
  int loads = 0;
  window.OnLoad = [&loads] { ++loads; };
  window.A1.Select();
  window.Load();
  window.Load();
  EXPECT_EQ(calls.course, "!Framed !Framed ");
  EXPECT_EQ(others.course, calls.course) << "every witness hears";
  EXPECT_EQ(loads, 0);
  EXPECT_EQ(Selected(), "A1");
  EXPECT_EQ(LoadedWindows.size(), 1U);
  window.Unload();
  window.Load();
  EXPECT_EQ(calls.course, "!Framed !Framed -Framed +Framed ");
  EXPECT_EQ(loads, 1);
}

}  // namespace
}  // namespace zelvo::test
