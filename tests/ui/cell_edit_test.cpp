// The edit box over a cell of a grid, in its two manners, on a window of the test's own.
#include "ui/cell_edit.h"

#include "panel/operator.h"
#include "panel/window.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using panel::CellPlace;
using panel::HandResult;
using panel::Key;

struct BoxWindow : panel::Window {
  BoxWindow() : Window("BoxWindow", "") {}
  panel::Grid Cells{*this, "Cells", 3};
  panel::TextBox Text1{*this, "Text1", false};
};

class EditBox : public testing::Test {
 protected:
  void SetUp() override {
    window.Load();
    window.Cells.SetRows(3);
    window.Cells.SetText(1, 2, "old");
    window.Cells.SetText(2, 1, "other");
  }
  void Type(const std::string& text) { ASSERT_EQ(panel::HandType(window.Text1, text), HandResult::Done); }
  HandResult Press(Key key) { return panel::HandKey(window.Text1, key); }
  HandResult Leave() { return panel::HandLeave(window.Text1); }
  [[nodiscard]] std::string Text() const { return window.Text1.Text; }
  [[nodiscard]] bool Shown() const { return window.Text1.Visible; }
  BoxWindow window;
  Lines taken;  ///< what the box gave away, in this order
};

class PassingBox : public EditBox {
 protected:
  void SetUp() override {
    EditBox::SetUp();
    ui::AttachCellEdit(window.Text1, commit);
    window.Text1.Text = "old";
    ui::OpenCellEdit(window.Text1, window.Cells, 1, 2);
  }
  const ui::CommitText commit = [this](const std::string& text) {
    taken.push_back(text);
    emptyBeforeVerdict = Text().empty();
  };
  bool emptyBeforeVerdict = false;
};

TEST_F(PassingBox, LiesOverItsCellWithTheCaretAndTheTextThatItWasGiven) {
  EXPECT_EQ(window.Text1.Over.Get(), (CellPlace{&window.Cells, 1, 2}));
  EXPECT_TRUE(Shown());
  EXPECT_EQ(window.Text1.FocusRequests, 1u);
  EXPECT_EQ(Text(), "old");
  ui::OpenCellEdit(window.Text1, window.Cells, 2, 1);
  EXPECT_EQ(window.Text1.Over.Get(), (CellPlace{&window.Cells, 2, 1}));
  EXPECT_EQ(window.Text1.FocusRequests, 2u);
  EXPECT_TRUE(taken.empty());
}

TEST_F(PassingBox, GivesItsTextAwayAtEnterAndIsEmptyAndHidden) {
  Type("new");
  EXPECT_EQ(Press(Key::Enter), HandResult::Done);
  EXPECT_EQ(taken, Lines{"new"});
  EXPECT_TRUE(emptyBeforeVerdict);
  EXPECT_EQ(Text(), "");
  EXPECT_FALSE(Shown());
}

TEST_F(PassingBox, GivesItsFirstTextAwayWhenNothingWasTyped) {
  EXPECT_EQ(Press(Key::Enter), HandResult::Done);
  EXPECT_EQ(taken, Lines{"old"});
}

TEST_F(PassingBox, OnlyHidesAtEnterWithoutAText) {
  Type("");
  EXPECT_EQ(Press(Key::Enter), HandResult::Done);
  EXPECT_TRUE(taken.empty());
  EXPECT_FALSE(Shown());
}

TEST_F(PassingBox, KeepsItsTextAtEscapeForTheNextCommit) {
  Type("new");
  EXPECT_EQ(Press(Key::Escape), HandResult::Done);
  EXPECT_FALSE(Shown());
  EXPECT_EQ(Text(), "new");
  EXPECT_TRUE(taken.empty());
  ui::CommitCellEdit(window.Text1, commit);
  EXPECT_EQ(taken, Lines{"new"});
  EXPECT_EQ(Text(), "");
  ui::CommitCellEdit(window.Text1, commit);
  EXPECT_EQ(taken, Lines{"new"}) << "once";
}

TEST_F(PassingBox, HidesWithACommitFromOutside) {
  Type("new");
  ui::CommitCellEdit(window.Text1, commit);
  EXPECT_EQ(taken, Lines{"new"});
  EXPECT_FALSE(Shown());
}

TEST_F(PassingBox, StaysOpenWithoutATextWhenACommitComesFromOutside) {
  Type("");
  ui::CommitCellEdit(window.Text1, commit);
  EXPECT_TRUE(taken.empty());
  EXPECT_TRUE(Shown());
}

TEST_F(PassingBox, IsNotMovedByBeingLeft) {
  Type("new");
  EXPECT_EQ(Leave(), HandResult::Done);
  EXPECT_TRUE(taken.empty());
  EXPECT_TRUE(Shown());
  EXPECT_EQ(Text(), "new");
}

class StandingBox : public EditBox {
 protected:
  void SetUp() override {
    EditBox::SetUp();
    box.Attach([this](const std::string& text) {
      taken.push_back(text);
      if (InVerdict) InVerdict();
      return text != "bad";
    });
    box.Open(window.Cells, 1, 2);
  }
  std::string start;
  ui::StandingCellEdit box{window.Text1, start};
  std::function<void()> InVerdict;
};

TEST_F(StandingBox, LiesOverItsCellWithTheCaretAndTheCellsText) {
  EXPECT_EQ(window.Text1.Over.Get(), (CellPlace{&window.Cells, 1, 2}));
  EXPECT_TRUE(Shown());
  EXPECT_EQ(window.Text1.FocusRequests, 1u);
  EXPECT_EQ(Text(), "old");
  EXPECT_EQ(start, "old");
  EXPECT_TRUE(taken.empty());
}

TEST_F(StandingBox, GoesAtEnterWithATextThatIsAccepted) {
  Type("new");
  EXPECT_EQ(Press(Key::Enter), HandResult::Done);
  EXPECT_EQ(taken, Lines{"new"});
  EXPECT_FALSE(Shown());
}

TEST_F(StandingBox, GoesWhenItIsLeftWithATextThatIsAccepted) {
  Type("new");
  EXPECT_EQ(Leave(), HandResult::Done);
  EXPECT_EQ(taken, Lines{"new"});
  EXPECT_FALSE(Shown());
}

TEST_F(StandingBox, HasAnEmptyTextJudgedToo) {
  Type("");
  EXPECT_EQ(Press(Key::Enter), HandResult::Done);
  EXPECT_EQ(taken, Lines{""});
}

TEST_F(StandingBox, StaysWithItsFirstTextAndTheCaretWhenItsTextIsRefused) {
  for (const bool byEnter : {true, false}) {
    const unsigned focus = window.Text1.FocusRequests;
    Type("bad");
    EXPECT_EQ(byEnter ? Press(Key::Enter) : Leave(), HandResult::Done);
    EXPECT_TRUE(Shown());
    EXPECT_EQ(Text(), "old");
    EXPECT_EQ(start, "old");
    EXPECT_EQ(window.Text1.Over.Get(), (CellPlace{&window.Cells, 1, 2}));
    EXPECT_EQ(window.Text1.FocusRequests, focus + 1);
  }
  EXPECT_EQ(taken, (Lines{"bad", "bad"}));
}

TEST_F(StandingBox, DoesNothingAtEscape) {
  Type("new");
  EXPECT_EQ(Press(Key::Escape), HandResult::Done);
  EXPECT_TRUE(Shown());
  EXPECT_EQ(Text(), "new");
  EXPECT_TRUE(taken.empty());
}

TEST_F(StandingBox, TellsTheVerdictToWhomTakesItsText) {
  Type("bad");
  EXPECT_FALSE(box.Take());
  EXPECT_TRUE(Shown());
  Type("new");
  EXPECT_TRUE(box.Take());
  EXPECT_FALSE(Shown());
}

TEST_F(StandingBox, HasNothingToTakeWhenItIsHidden) {
  Type("new");
  ASSERT_TRUE(box.Take());
  EXPECT_TRUE(box.Take());
  EXPECT_EQ(Press(Key::Enter), HandResult::Hidden);
  EXPECT_EQ(Leave(), HandResult::Hidden);
  EXPECT_EQ(taken, Lines{"new"});
}

TEST_F(StandingBox, IsNotJudgedAgainWhileAMessageStandsInFrontOfIt) {
  InVerdict = [this] {
    EXPECT_EQ(Leave(), HandResult::Done);
    EXPECT_EQ(Press(Key::Enter), HandResult::Done);
  };
  Type("bad");
  EXPECT_EQ(Press(Key::Enter), HandResult::Done);
  EXPECT_EQ(taken, Lines{"bad"});
  EXPECT_TRUE(Shown());
  Type("new");
  EXPECT_EQ(Press(Key::Enter), HandResult::Done);
  EXPECT_EQ(taken, (Lines{"bad", "new"})) << "it is judged again once the message is gone";
  EXPECT_FALSE(Shown());
}

TEST_F(StandingBox, OpensAnewWithTheTextOfAnotherCell) {
  Type("new");
  ASSERT_TRUE(box.Take());
  box.Open(window.Cells, 2, 1);
  EXPECT_EQ(Text(), "other");
  EXPECT_EQ(start, "other");
  Type("bad");
  EXPECT_FALSE(box.Take());
  EXPECT_EQ(Text(), "other");
}

}  // namespace
}  // namespace zelvo::test
