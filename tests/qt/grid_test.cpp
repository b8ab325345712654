// Grids: a window on the panel's cells that costs what can be seen of it.
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <algorithm>

#include "qt/desk.h"
#include "qt/grid_view.h"

namespace zelvo::test {
namespace {

using panel::Form1;

class Grids : public DeskTest {
 protected:
  void SetUp() override {
    Open();
    Form1.Frame0.InFront = true;
    Fill(8192);
    Settle();
    view = Find<desktop::GridView>("MSFlexGrid1");
  }
  static void Fill(int rows) {
    panel::Grid& grid = Form1.MSFlexGrid1;
    grid.SetText(0, 0, " Szó cím");
    for (int col = 1; col < grid.Cols(); ++col) grid.SetText(0, col, " " + std::to_string(col - 1));
    grid.SetRows(rows + 1);
    for (int row = 1; row <= rows; ++row) {
      grid.SetText(row, 0, QStringLiteral("%1").arg((row - 1) * 8, 4, 16, QLatin1Char('0')).toStdString());
      for (int col = 1; col < grid.Cols(); ++col) grid.SetText(row, col, "FFFF");
    }
  }
  QPoint CellAt(int row, int col) const {
    return view->visualRect(view->model()->index(row - 1, col)).center();
  }
  QColor PixelAt(int row, int col) const {
    const QRect cell = view->visualRect(view->model()->index(row - 1, col));
    return view->viewport()->grab().toImage().pixelColor(cell.topLeft() + QPoint(2, 2));
  }

  desktop::GridView* view = nullptr;
};

TEST_F(Grids, ShowThePanelsCellsAndHeadings) {
  Form1.MSFlexGrid1.SetText(2, 3, "  1EEF  ");
  Settle();
  EXPECT_EQ(view->model()->rowCount(), 8192);
  EXPECT_EQ(view->model()->index(1, 3).data().toString(), QStringLiteral("1EEF"));
  EXPECT_EQ(view->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Szó cím"));
}

TEST_F(Grids, DrawACellInItsColour) {
  EXPECT_EQ(PixelAt(3, 4), QColor(Qt::white));
  Form1.MSFlexGrid1.SetCellBackColor(3, 4, panel::LightRed);
  Settle();
  EXPECT_EQ(PixelAt(3, 4), QColor(255, 192, 192));
}

TEST_F(Grids, FollowTheNumberOfRowsDownAndUp) {
  Form1.MSFlexGrid1.SetRows(1);
  EXPECT_EQ(view->model()->index(8000, 1).data().toString(), QString());  // gone before the view was told
  Settle();
  EXPECT_EQ(view->model()->rowCount(), 0);
  Form1.MSFlexGrid1.SetRows(33);
  Settle();
  EXPECT_EQ(view->model()->rowCount(), 32);
}

TEST_F(Grids, TellThePlaceOfAClickWithTheHeadingsAsRowAndColumnZero) {
  std::vector<std::pair<int, int>> clicks;
  Form1.MSFlexGrid1.CellClick = [&clicks](int row, int col) { clicks.emplace_back(row, col); };
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, CellAt(2, 5));
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, CellAt(3, 0));
  QHeaderView* heading = view->horizontalHeader();
  QTest::mouseClick(heading->viewport(), Qt::LeftButton, {},
                    QPoint(heading->sectionViewportPosition(4) + 5, heading->height() / 2));
  EXPECT_EQ(clicks, (std::vector<std::pair<int, int>>{{2, 5}, {3, 0}, {0, 4}}));
}

TEST_F(Grids, TellOfADoubleClickAndOfEnterOnACell) {
  std::vector<std::pair<int, int>> opened;
  Form1.MSFlexGrid1.CellDblClick = [&opened](int row, int col) { opened.emplace_back(row, col); };
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, CellAt(2, 5));
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, CellAt(2, 5));
  QTest::keyClick(view, Qt::Key_Down);
  QTest::keyClick(view, Qt::Key_Right);
  QTest::keyClick(view, Qt::Key_Return);
  EXPECT_EQ(opened, (std::vector<std::pair<int, int>>{{2, 5}, {3, 6}}));
}

TEST_F(Grids, LetTheFocusGoOnWithTab) {
  view->setFocus();
  QTest::keyClick(view, Qt::Key_Tab);
  EXPECT_NE(QApplication::focusWidget(), view);
}

TEST_F(Grids, ShareTheWidthByThePanelsColumnWidths) {
  Form1.MSFlexGrid1.SetColWidth(0, 760);
  for (int col = 1; col <= 8; ++col) Form1.MSFlexGrid1.SetColWidth(col, 713);
  Settle();
  int whole = 0;
  for (int col = 0; col <= 8; ++col) whole += view->columnWidth(col);
  EXPECT_EQ(whole, view->viewport()->width());
  EXPECT_GT(view->columnWidth(0), view->columnWidth(1));
}

TEST_F(Grids, RepaintWithinAFractionOfADisplayFrameAtAnyLength) {
  constexpr int Changes = 51;
  std::vector<double> each;
  for (int change = 0; change < Changes; ++change) {
    QElapsedTimer timer;
    timer.start();
    Form1.MSFlexGrid1.SetText(1 + change * 100, 1, std::to_string(1000 + change));
    view->verticalScrollBar()->setValue(change * view->verticalScrollBar()->maximum() / Changes);
    desk.Refresh();
    view->viewport()->repaint();
    each.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  std::sort(each.begin(), each.end());
  RecordProperty("milliseconds", std::to_string(each[Changes / 2]));
  EXPECT_LT(each[Changes / 2], 16.0);
}

/// A grid that scrolls, as in windows of many cells.
struct ScrollingWindow : panel::Window {
  ScrollingWindow() : Window("Görgethető", "Görgethető") {}
  panel::Grid Grid1{*this, "Grid1", 9};
  panel::TextBox Text1{*this, "Text1", false};
};

class BoxOverACell : public DeskTest {};

TEST_F(BoxOverACell, GoesWithItsCellWhenTheGridScrolls) {
  ScrollingWindow scrolling;
  Open();
  scrolling.Load();
  scrolling.Grid1.SetRows(200);
  scrolling.Text1.Over = panel::CellPlace{&scrolling.Grid1, 9, 4};
  scrolling.Text1.Visible = true;
  scrolling.Text1.SetFocus();
  Settle();
  QWidget* window = SecondaryWindow("Görgethető");
  auto* grid = FindIn<desktop::GridView>(window, "Grid1");
  auto* box = FindIn<QLineEdit>(window, "Text1");
  const auto cell = [grid] {
    const QRect rect = grid->visualRect(grid->model()->index(8, 4));
    return QRect(grid->viewport()->mapToGlobal(rect.topLeft()), rect.size());
  };
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  EXPECT_EQ(OnScreen(*box), cell());
  EXPECT_TRUE(box->hasFocus());
  const int before = cell().top();
  grid->verticalScrollBar()->setValue(37);
  QTest::qWait(5);
  EXPECT_EQ(cell().top(), before - 37);
  EXPECT_EQ(OnScreen(*box), cell());
  scrolling.Unload();
  Settle();
  panel::AllWindows().pop_back();
}

}  // namespace
}  // namespace zelvo::test
