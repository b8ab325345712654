// Loading and unloading of windows, and grids.
#include <gtest/gtest.h>

#include "panel/secondary_windows.h"
#include "panel/window.h"

namespace zelvo::test {
namespace {

using namespace panel;  // NOLINT: the tests speak in the terms of the panel

struct SampleWindow : Window {
  explicit SampleWindow(std::string name) : Window(std::move(name), "A window") {}
  CheckBox Box{*this, "Box", "Tick me"};
  TextBox Edit{*this, "Edit", false};
  ComboBox Combo{*this, "Combo"};
  ListBox List{*this, "List"};
  Grid Table{*this, "Table", 3};
  Label Text{*this, "Text", "Caption"};
};

/// Notes what the witnesses and the windows' own events say, in order.
class Course : public Witness {
 public:
  Course() { witnesses.push_back(this); }
  ~Course() override { witnesses.clear(); }
  void WindowLoaded(Window& window) override { text += '+' + window.Name() + ' '; }
  void WindowUnloaded(Window& window) override { text += '-' + window.Name() + ' '; }
  void Follow(Window& window) {
    window.OnLoad = [this, &window] { text += "load" + window.Name() + ' '; };
    window.OnUnload = [this, &window] { text += "unload" + window.Name() + ' '; };
  }
  std::string text;
};

TEST(Windows, TheWitnessesHearOfALoadBeforeItsEventAndOfAnUnloadBehindIt) {
  SampleWindow a("A");
  Course course;
  course.Follow(a);
  a.Load();
  EXPECT_TRUE(a.Loaded());
  a.Unload();
  EXPECT_FALSE(a.Loaded());
  EXPECT_EQ(course.text, "+A loadA unloadA -A ");
}

TEST(Windows, ASecondLoadAndASecondUnloadDoNothing) {
  SampleWindow a("A");
  Course course;
  course.Follow(a);
  a.Unload();
  EXPECT_EQ(course.text, "");
  a.Load();
  a.Box.Value = true;
  a.Load();
  EXPECT_TRUE(a.Box.Value) << "nothing is reset";
  a.Unload();
  a.Unload();
  EXPECT_EQ(course.text, "+A loadA unloadA -A ");
}

TEST(Windows, StandInTheOrderOfLoading) {
  SampleWindow a("A"), b("B"), c("C");
  b.Load();
  a.Load();
  c.Load();
  EXPECT_EQ(LoadedWindows, (std::vector<Window*>{&b, &a, &c}));
  a.Unload();
  EXPECT_EQ(LoadedWindows, (std::vector<Window*>{&b, &c}));
  a.Load();
  EXPECT_EQ(LoadedWindows, (std::vector<Window*>{&b, &c, &a}));
}

TEST(Windows, ALoadPutsEveryControlToItsDesignBeforeTheEventFillsIt) {
  SampleWindow a("A");
  a.OnLoad = [&a] { a.List.AddItem("filled"); };
  a.Load();
  int clicks = 0;
  a.Box.Click = [&clicks] { ++clicks; };
  a.Box.Value = true;
  a.Box.Enabled = false;
  a.Edit.Visible = true;
  a.Edit.Text = "typed";
  a.Combo.AddItem("line");
  a.Text.Caption = "changed";
  a.Text.ToolTip = "hint";
  a.Table.SetRows(5);
  a.Unload();
  EXPECT_EQ(a.Text.Caption.Get(), "changed") << "an unloaded window keeps its last state";
  a.Load();
  EXPECT_FALSE(a.Box.Value);
  EXPECT_TRUE(a.Box.Enabled);
  EXPECT_FALSE(a.Edit.Visible);
  EXPECT_EQ(a.Edit.Text.Get(), "");
  EXPECT_TRUE(a.Combo.Lines().empty());
  EXPECT_EQ(a.Text.Caption.Get(), "Caption");
  EXPECT_EQ(a.Text.ToolTip.Get(), "");
  EXPECT_EQ(a.Table.Rows(), 1);
  EXPECT_EQ(a.List.Lines(), std::vector<std::string>{"filled"});
  EXPECT_EQ(clicks, 1) << "hooks stay, and the reset is no click";
}

TEST(Windows, AnUnloadEventThatUnloadsItsOwnWindowEndsThere) {
  SampleWindow a("A");
  Course course;
  int events = 0;
  a.OnUnload = [&] {
    ++events;
    a.Unload();
  };
  a.Load();
  a.Unload();
  EXPECT_EQ(events, 1);
  EXPECT_EQ(course.text, "+A -A ");
  EXPECT_FALSE(a.Loaded());
  a.Load();
  a.Unload();
  EXPECT_EQ(events, 2) << "the window can be used again";
}

TEST(Windows, AnUnloadEventThatUnloadsOthersTakesThemOutFirst) {
  SampleWindow a("A"), b("B"), c("C");
  Course course;
  a.OnUnload = [&] {
    b.Unload();
    c.Unload();
  };
  a.Load();
  c.Load();
  a.Unload();
  EXPECT_EQ(course.text, "+A +C -C -A ");
  EXPECT_TRUE(LoadedWindows.empty());
}

TEST(Windows, AReloadInsideTheLoadEventIsOne) {
  SampleWindow a("A");
  Course course;
  a.OnLoad = [&a] { a.Load(); };
  a.Load();
  EXPECT_EQ(course.text, "+A ");
}

TEST(Windows, TheProgressWindowsHaveTheirCancelInTheSamePlace) {
  EXPECT_EQ(Állapot.Caption, "Flash Olvasás állapota");
  EXPECT_EQ(FlashÍrÁllapot.Caption, "Flash Írás Állapota");
  for (ProgressWindow* window : {&Állapot, &FlashÍrÁllapot}) {
    EXPECT_EQ(window->Find("Command1"), &window->Command1);
    EXPECT_EQ(window->Find("ProgressBar1"), &window->ProgressBar1);
  }
}

TEST(Grids, BeginWithTheirHeadingRowAndGrowWithEmptyCells) {
  SampleWindow a("A");
  Grid& grid = a.Table;
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.Cols(), 3);
  grid.SetText(0, 2, "heading");
  grid.SetRows(3);
  EXPECT_EQ(grid.Text(0, 2), "heading");
  EXPECT_EQ(grid.Text(2, 2), "");
  EXPECT_EQ(grid.CellBackColor(2, 2), White);
  grid.SetText(2, 1, "cell");
  grid.SetRows(2);
  grid.SetRows(3);
  EXPECT_EQ(grid.Text(2, 1), "") << "a row that went comes back empty";
  grid.SetRows(0);
  EXPECT_EQ(grid.Rows(), 1) << "the headings stay";
  EXPECT_EQ(grid.Text(0, 2), "heading");
}

TEST(Grids, ACellOutsideIsAFaultAndChangesNothing) {
  SampleWindow a("A");
  Grid& grid = a.Table;
  grid.SetRows(2);
  for (const auto& [row, col] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 3}, {1000000, 1000000}}) {
    EXPECT_THROW(static_cast<void>(grid.Text(row, col)), GridFault) << row << ' ' << col;
    EXPECT_THROW(grid.SetText(row, col, "x"), GridFault);
    EXPECT_THROW(grid.SetCellBackColor(row, col, Red), GridFault);
    EXPECT_THROW(static_cast<void>(grid.CellBackColor(row, col)), GridFault);
  }
  for (int row = 0; row < 2; ++row) {
    for (int col = 0; col < 3; ++col) EXPECT_EQ(grid.Text(row, col), "");
  }
}

TEST(Grids, CellsHaveColoursOfTheirOwn) {
  SampleWindow a("A");
  Grid& grid = a.Table;
  grid.SetRows(3);
  grid.SetCellBackColor(1, 1, LightRed);
  EXPECT_EQ(grid.CellBackColor(1, 1), LightRed);
  EXPECT_EQ(grid.CellBackColor(1, 2), White);
}

TEST(Grids, EveryChangeOfTheirShapeIsCounted) {
  SampleWindow a("A");
  Grid& grid = a.Table;
  unsigned layout = grid.Layout();
  const auto counted = [&] {
    const bool changed = grid.Layout() != layout;
    layout = grid.Layout();
    return changed;
  };
  grid.SetRows(7);
  EXPECT_TRUE(counted());
  grid.SetRows(7);
  EXPECT_FALSE(counted()) << "no change";
  grid.SetColWidth(1, 500);
  EXPECT_TRUE(counted());
  EXPECT_EQ(grid.ColWidth(1), 500);
  grid.SetColAlignment(2, Grid::AlignCentre);
  EXPECT_TRUE(counted());
  EXPECT_EQ(grid.ColAlignment(2), 5);
  grid.SetRowHeight(0, 300);
  EXPECT_TRUE(counted());
  EXPECT_EQ(grid.RowHeight(0), 300);
  EXPECT_EQ(grid.RowHeight(6), 270) << "every row has its own";
  grid.SetText(3, 1, "x");
  EXPECT_FALSE(counted()) << "a cell's text is no change of shape";
}

}  // namespace
}  // namespace zelvo::test
